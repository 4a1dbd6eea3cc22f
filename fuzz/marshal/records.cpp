// Builds every registered record type from arbitrary documents: each record
// named by a child of the root by its own type, and the first child by every
// type (a document of one record builds any other from whatever matches).
// Any text either builds the record or throws XMLParserException; a record
// built must write a document that reads back to itself once the reader has
// normalised it (an emptied string comes back as its default), show itself
// as a property bag, read that bag back, and clone.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qor/marshal.h"
#include "qor/records/RecordRegistry.h"
#include "qor/xml.h"

namespace {

void Check(const qor::RecordDescription &type, const XMLMarshaller::XMLMarshallableObject &record) {
    const auto once = type.fromDocument(record.ToXMLString());
    const std::string normalised = once->ToXMLString();
    const auto twice = type.fromDocument(normalised);
    if (twice->ToXMLString() != normalised || !type.equal(*twice, *once)) std::abort();
    if (once->Clone()->ToXMLString() != normalised) std::abort();

    ObjectInstanceXMLMarshaller::ObjectInstance instance;
    type.toObjectInstance(record, instance);
    const auto back = type.make();
    type.fromObjectInstance(*back, instance);
    back->ToXMLString();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    const auto &types = qor::AllRecordTypes();
    // The constructor from text of one type, picked by the input, must agree
    // with the reader on whether the text is a document.
    const qor::RecordDescription &picked = types[size % types.size()].describe();
    XMLReader reader;
    try {
        reader.ReadFromBuffer(text, false);
    } catch (const XMLParserException &) {
        try {
            picked.fromDocument(text);
        } catch (const XMLParserException &) {
            return 0;
        }
        std::abort();
    }
    Check(picked, *picked.fromDocument(text));
    if (reader.children.empty()) return 0;

    for (const XMLParser::XMLNode &element : reader.children) {
        if (const qor::RecordType *type = qor::FindRecordType(element.name)) {
            Check(type->describe(), *type->fromNode(element));
        }
    }
    for (const qor::RecordType &type : types) Check(type.describe(), *type.fromNode(reader.children.front()));
    return 0;
}
