// The families of records. Each family lists its own types; this table
// names the families, and by naming them keeps every record linked in, also
// from a static library.
#include "qor/records/RecordRegistry.h"

#include <span>

#include "qor/records/hooks/HooksRecordTypes.h"
#include "qor/records/metadata/MetaDataRecordTypes.h"
#include "qor/records/pipette/PipetteRecordTypes.h"

namespace qor {
namespace {

using FamilyTypes = std::span<const RecordType> (*)();

constexpr FamilyTypes kRecordFamilies[] = {
    &ObjectInstanceXMLMarshaller::RecordTypes,
    &HooksPluginXMLMarshaller::RecordTypes,
    &qor::MetaDataRecordTypes,
    &PipetteXMLMarshaller::RecordTypes,
};

}  // namespace

const std::vector<RecordType> &AllRecordTypes() {
    static const std::vector<RecordType> all = [] {
        std::vector<RecordType> types;
        for (FamilyTypes family : kRecordFamilies) {
            const auto listed = family();
            types.insert(types.end(), listed.begin(), listed.end());
        }
        return types;
    }();
    return all;
}

const RecordType *FindRecordType(std::string_view elementName) {
    for (const RecordType &type : AllRecordTypes()) {
        if (elementName == type.elementName) return &type;
    }
    return nullptr;
}

const RecordType *FindRecordType(std::string_view family, std::string_view elementName) {
    for (const RecordType &type : AllRecordTypes()) {
        if (family == type.family && elementName == type.elementName) return &type;
    }
    return nullptr;
}

std::shared_ptr<XMLMarshaller::XMLMarshallableObject> MakeRecord(const XMLParser::XMLNode &node) {
    const RecordType *type = FindRecordType(node.name);
    return type ? type->fromNode(node) : nullptr;
}

}  // namespace qor
