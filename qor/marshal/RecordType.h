// What a registry of records knows of one record type: its element name, its
// family, and its description (fields and operations, made from the record's
// own table in the record's own source).
#pragma once

#include <memory>
#include <span>
#include <string>

#include "qor/marshal/RecordDescription.h"

namespace qor {

struct RecordType {
    const char *elementName;
    const char *family;  // the namespace, or enclosing class, the record stands in
    const RecordDescription &(*describe)();

    // The record an element holds (fields missing from it keep their defaults).
    std::shared_ptr<XMLMarshaller::XMLMarshallableObject> fromNode(const XMLParser::XMLNode &node) const {
        return describe().fromNode(node);
    }
    // The record as its property bag; std::bad_cast for a record of another type.
    void toObjectInstance(const XMLMarshaller::XMLMarshallableObject &record,
                          ObjectInstanceXMLMarshaller::ObjectInstance &instance) const {
        describe().toObjectInstance(record, instance);
    }
};

// The entry of record R; use it in a family's table of record types.
template <class R>
constexpr RecordType RecordTypeOf(const char *family) {
    return RecordType{R::ElementName, family, &R::GetRecordDescription};
}

}  // namespace qor

namespace ObjectInstanceXMLMarshaller {
// Range, Parameter, AsyncParameter and the ObjectInstance records.
std::span<const qor::RecordType> RecordTypes();
}  // namespace ObjectInstanceXMLMarshaller
