#include "qor/marshal/XMLMarshallableObject.h"

namespace XMLMarshaller {

void XMLMarshallableObject::CreateXMLNode(XMLParser::XMLNode &node, const XMLMarshallableObject &) {
    node.attributes.clear();
    node.children.clear();
    node.text.clear();
}

}  // namespace XMLMarshaller

bool __xml_marshaller_get_attribute__(const XMLParser::XMLNode &node, const std::string &key,
                                      std::string &value) {
    const auto found = node.attributes.find(key);
    if (found == node.attributes.end()) return false;
    value = found->second;
    return true;
}
