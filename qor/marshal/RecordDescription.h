// What a record type is, told by its own field table: its fields in the order
// of writing, reading and of the Parameters, with everything a tool or a test
// needs to know of each (key, kind, member type, default, Parameter name and
// type, and the departures from the rules of its kind), and the operations of
// the type behind plain function pointers. Each record's description is made
// from its table in the record's own source; R::GetRecordDescription() returns it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qor/marshal/XMLMarshallableObject.h"

namespace ObjectInstanceXMLMarshaller {
class ObjectInstance;
}

namespace qor {

// How a field travels in XML.
enum class FieldKind {
    StringAttribute,  // left out when empty
    NumberAttribute,  // always written; six significant digits for a double
    EnumAttribute,    // always written as the integer, read as a long
    ValueList,        // a wrapper of <Value Value='...' /> items
    RecordList,       // a wrapper of the items' own elements
    ChildRecord,      // the child's own element
};

// The C++ type of a field's value, or of a list's items.
enum class ValueType { String, Bool, Integer, Unsigned, Real, Enumeration, Record };

// The words the field tables use for a kind: "string attribute", "record list", ...
const char *FieldKindName(FieldKind kind);

struct RecordDescription;

struct FieldDescription {
    const char *key;          // XML key: attribute name or element name
    FieldKind kind;
    ValueType valueType;      // of the member, or of a list's items
    std::string memberType;   // as the tables write it: "string", "unsigned int", "EditorType", "list of Parameter"
    std::string defaultValue; // the default's XML text; empty for an empty list and for a child record
    // The Parameter that ToObjectInstance shows for the field: its name
    // (nullptr: none), type, and description.
    const char *parameterName;
    int parameterType;        // -1 when there is no Parameter
    const char *parameterDescription;
    const char *shownValue;   // a constant the Parameter shows in place of the field; nullptr: the field's text
    bool readBack;            // FromObjectInstance reads the Parameter back
    bool compared;            // counts in operator==
    bool wrapperAlways;       // a list whose wrapper is written even when empty
    bool readAsLong;          // a number read with the enumeration conversion (a fraction is lost)
    // Record lists and child records: the item's type; nullptr otherwise.
    const RecordDescription &(*item)();
};

struct RecordDescription {
    using Record = std::shared_ptr<XMLMarshaller::XMLMarshallableObject>;

    const char *elementName;
    const char *fileType;            // the document's file attribute: "MetaData", "Query", ...
    const char *baseName;            // the record type it derives from, or nullptr
    bool handWrittenObjectInstance;  // ToObjectInstance/FromObjectInstance are the record's own
    std::vector<FieldDescription> fields;  // a base's fields first

    // The type's operations. fromDocument throws what the record's
    // constructor from text throws (XMLParserException). The rest throw
    // std::bad_cast when handed a record of another type.
    Record (*make)();  // at its defaults
    Record (*fromNode)(const XMLParser::XMLNode &node);
    Record (*fromDocument)(const std::string &xml);
    void (*toObjectInstance)(const XMLMarshaller::XMLMarshallableObject &record,
                             ObjectInstanceXMLMarshaller::ObjectInstance &instance);
    void (*fromObjectInstance)(XMLMarshaller::XMLMarshallableObject &record,
                               const ObjectInstanceXMLMarshaller::ObjectInstance &instance);
    // The type's operator==; false when either record is of another type.
    bool (*equal)(const XMLMarshaller::XMLMarshallableObject &a, const XMLMarshaller::XMLMarshallableObject &b);
};

}  // namespace qor
