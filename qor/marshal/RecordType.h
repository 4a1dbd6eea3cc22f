// What a registry of records knows of one record type: its element name and
// how to build it from an element and show it as a property bag.
#pragma once

#include <memory>
#include <span>

#include "qor/marshal/XMLMarshallableObject.h"

namespace ObjectInstanceXMLMarshaller {
class ObjectInstance;
}

namespace qor {

struct RecordType {
    const char *elementName;
    const char *family;  // the namespace the record stands in
    std::shared_ptr<XMLMarshaller::XMLMarshallableObject> (*fromNode)(const XMLParser::XMLNode &node);
    void (*toObjectInstance)(const XMLMarshaller::XMLMarshallableObject &record,
                             ObjectInstanceXMLMarshaller::ObjectInstance &instance);
};

// The entry of record R; use it in a family's table of record types.
template <class R>
constexpr RecordType RecordTypeOf(const char *family) {
    return RecordType{
        R::ElementName,
        family,
        [](const XMLParser::XMLNode &node) -> std::shared_ptr<XMLMarshaller::XMLMarshallableObject> {
            return std::make_shared<R>(node);
        },
        [](const XMLMarshaller::XMLMarshallableObject &record, ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
            static_cast<const R &>(record).ToObjectInstance(instance);
        },
    };
}

}  // namespace qor

namespace ObjectInstanceXMLMarshaller {
// Range, Parameter, AsyncParameter and the ObjectInstance records.
std::span<const qor::RecordType> RecordTypes();
}  // namespace ObjectInstanceXMLMarshaller
