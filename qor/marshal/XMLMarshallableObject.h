// The base of every record, the exception offered to record users, and the
// attribute lookup every record's reader goes through.
#pragma once

#include <memory>
#include <string>

#include "qor/platform/QorException.h"
#include "qor/xml/XMLParser.h"
#include "qor/xml/XMLParserException.h"

namespace XMLMarshaller {

// A record: a value class that becomes an XML element, a whole document or
// a property bag (ObjectInstance), and can be rebuilt from each. It has no
// data. Concrete records add ToObjectInstance and FromObjectInstance as
// virtual operations of their own (see qor/marshal/Record.h).
class XMLMarshallableObject {
public:
    virtual ~XMLMarshallableObject() = default;

    // The record as one element named by its class.
    virtual XMLParser::XMLNode ToXMLNode() const = 0;
    // The record as a whole document: header, root, sum, the record as the
    // root's only child. Each call uses a fresh writer, so it can be repeated.
    virtual std::string ToXMLString() const = 0;
    // A heap copy of the record, of its own type.
    virtual std::shared_ptr<XMLMarshallableObject> Clone() const = 0;
    // The record's element name.
    virtual const std::string &GetClassName() const = 0;

    // First step of every record's CreateXMLNode: empties the node's
    // attributes, children and text; the name stays for the caller to set.
    static void CreateXMLNode(XMLParser::XMLNode &node, const XMLMarshallableObject &record);

protected:
    XMLMarshallableObject() = default;
    XMLMarshallableObject(const XMLMarshallableObject &) = default;
    XMLMarshallableObject(XMLMarshallableObject &&) = default;
    XMLMarshallableObject &operator=(const XMLMarshallableObject &) = default;
    XMLMarshallableObject &operator=(XMLMarshallableObject &&) = default;
};

// Offered to users of the records beside XMLParserException; the records
// themselves never throw it (their failures come up as XMLParserException).
// The run-time exception fields of the base stay empty and zero.
class XMLMarshallerException : public CQorException {
public:
    XMLMarshallerException(int code, const std::string &function, const std::string &message)
        : code(code), function(function), message(message) {}
    // Re-wraps a parser failure, keeping its code, function and message.
    explicit XMLMarshallerException(const XMLParserException &failure)
        : code(failure.code), function(failure.function), message(failure.message) {}

    int code;
    std::string function;
    std::string message;
};

}  // namespace XMLMarshaller

// If node has the attribute key, assigns its value to value and returns
// true; otherwise leaves value alone and returns false.
bool __xml_marshaller_get_attribute__(const XMLParser::XMLNode &node, const std::string &key,
                                      std::string &value);
