#include "qor/settings/XMLRegistry.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <sstream>

#include "qor/task/LockGuards.h"
#include "qor/xml/XMLReader.h"

namespace {

const char *const kXmlValues = "values";
const char *const kXmlSubkeys = "subkeys";
const char *const kXmlExtraInfo = "extrainfo";
const char *const kXmlFileTypeError = "The file type is incorrect.";
const char *const kXmlEmptyNameError = "The entry name is empty.";
const char *const kXmlInvalidError = "The xml file is invalid.";
const char *const kXmlPermissionError =
    "Please make sure you have permission to write at the specified location: ";
const char *const kXmlUnsupportedType = "Registry data type not supported";

// The root of an export sits one level above the walk's depth 0.
constexpr unsigned short kXmlRootDepth = 0xFFFF;

std::string XmlAttribute(const XMLParser::XMLNode &node, const char *key) {
    auto found = node.attributes.find(key);
    return found == node.attributes.end() ? std::string() : found->second;
}

// How each registry type puts its data into a <value> element.
enum class XmlContent { String, Number, List, Unsupported };

XmlContent XmlContentOf(unsigned long type) {
    switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
    case REG_LINK:
        return XmlContent::String;
    case REG_DWORD:
    case REG_DWORD_BIG_ENDIAN:
        return XmlContent::Number;
    case REG_MULTI_SZ:
        return XmlContent::List;
    default:
        return XmlContent::Unsupported;
    }
}

std::string XmlFormat(const char *format, int number) {
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

}  // namespace

XMLRegistry::XMLRegistry(HKEY root) : CRegistry(root), writer(nullptr), nodes(nullptr) {}

XMLRegistry::~XMLRegistry() = default;

void XMLRegistry::AddValuesAndSubkeysNodes(XMLParser::XMLNode &node) {
    XMLParser::XMLNode values;
    values.name = kXmlValues;
    node.children.push_back(std::move(values));
    XMLParser::XMLNode subkeys;
    subkeys.name = kXmlSubkeys;
    node.children.push_back(std::move(subkeys));
}

XMLParser::XMLNode *XMLRegistry::GetValuesNode(XMLParser::XMLNode &node) {
    for (XMLParser::XMLNode &child : node.children)
        if (child.name == kXmlValues) return &child;
    return nullptr;
}

XMLParser::XMLNode *XMLRegistry::GetSubkeysNode(XMLParser::XMLNode &node) {
    for (XMLParser::XMLNode &child : node.children)
        if (child.name == kXmlSubkeys) return &child;
    return nullptr;
}

XMLParser::XMLNode *XMLRegistry::ParentAt(unsigned short depth) {
    if (!nodes) return nullptr;  // no export running
    auto found = nodes->find(static_cast<unsigned short>(depth - 1));
    return found == nodes->end() ? nullptr : found->second;
}

bool XMLRegistry::ExportXML(const char *keyPath, std::string &xml, const std::string &fileType,
                            const std::string &version, const std::string &extraInfo) {
    auto_lock hold(lock);
    auto document = std::make_unique<XMLWriter>(fileType, version, true);
    std::map<unsigned short, XMLParser::XMLNode *> levels;
    writer = document.get();
    nodes = &levels;
    XMLParser::XMLNode &root = *document;
    levels[kXmlRootDepth] = &root;
    root.attributes[kXmlExtraInfo] = extraInfo;
    AddValuesAndSubkeysNodes(root);
    RegistryTreeWalk(keyPath, 3);
    writer = nullptr;
    nodes = nullptr;
    document->WriteToBuffer(xml);
    return true;
}

int XMLRegistry::OnKeyHit(const char *name, unsigned short depth) {
    XMLParser::XMLNode *parent = ParentAt(depth);
    XMLParser::XMLNode *subkeys = parent ? GetSubkeysNode(*parent) : nullptr;
    if (!subkeys) return 0;
    XMLParser::XMLNode node;
    node.name = "subkey";
    node.attributes["name"] = name;
    AddValuesAndSubkeysNodes(node);
    subkeys->children.push_back(std::move(node));
    (*nodes)[depth] = &subkeys->children.back();
    return 1;
}

int XMLRegistry::OnValueHit(const char *, const char *name, const CRegVal &value,
                            unsigned short depth) {
    XMLParser::XMLNode *parent = ParentAt(depth);
    XMLParser::XMLNode *values = parent ? GetValuesNode(*parent) : nullptr;
    if (!values) return 0;
    XMLParser::XMLNode node;
    node.name = "value";
    node.attributes["name"] = name;
    node.attributes["type"] = XmlFormat("%d", static_cast<int>(value.GetType()));
    switch (XmlContentOf(value.GetType())) {
    case XmlContent::String: {
        const char *text = "";
        value.GetValue(text);
        node.attributes["value"] = text;
        break;
    }
    case XmlContent::Number: {
        unsigned long number = 0;
        value.GetValue(number);
        // A 32-bit "%d": numbers from 0x80000000 up print negative.
        node.attributes["value"] = XmlFormat("%d", static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
        break;
    }
    case XmlContent::List: {
        CStringArray strings;
        value.GetValue(strings);
        for (std::size_t i = 0; i < strings.size(); ++i)
            node.attributes[XmlFormat("value.%d", static_cast<int>(i))] = strings[i];
        break;
    }
    case XmlContent::Unsupported:
        node.attributes["value"] = kXmlUnsupportedType;
        break;
    }
    values->children.push_back(std::move(node));
    return 1;
}

bool XMLRegistry::ImportXML(const char *parentPath, const std::string &xml, const std::string &fileType,
                            std::string &error, const std::string &entryName) {
    XMLReader reader;
    reader.ReadFromBuffer(xml, false);
    if (XmlAttribute(reader, FILETYPE_ATTRIBUTE.c_str()) != fileType) {
        error = kXmlFileTypeError;
        return false;
    }
    std::string name = XmlAttribute(reader, kXmlExtraInfo);
    if (name.empty()) {
        error = kXmlEmptyNameError;
        return false;
    }
    if (!entryName.empty()) name = entryName;
    std::string path = std::string(parentPath ? parentPath : "") + name + "\\";
    return ReadValues(reader.children, path, error);
}

bool XMLRegistry::ReadValues(std::list<XMLParser::XMLNode> &children, std::string &path,
                             std::string &error) {
    if (children.empty() || children.front().name != kXmlValues) {
        error = kXmlInvalidError;
        return false;
    }
    XMLParser::XMLNode &values = children.front();
    if (values.children.empty() && !SaveKey(path.c_str(), nullptr, static_cast<const char *>(nullptr))) {
        error = kXmlPermissionError + path;
        return false;
    }
    for (const XMLParser::XMLNode &child : values.children) {
        const std::string name = XmlAttribute(child, "name");
        const std::string text = XmlAttribute(child, "value");
        const std::string type = XmlAttribute(child, "type");
        if (name.empty() && text.empty() && type.empty()) continue;
        int saved;
        if (type == "4") {
            // Read as the 32-bit unsigned long it was: "-1" is 0xFFFFFFFF.
            std::uint32_t number = 0;
            std::istringstream stream(text);
            stream >> number;
            saved = SaveKey(path.c_str(), name.c_str(), static_cast<unsigned long>(number));
        } else {
            saved = SaveKey(path.c_str(), name.c_str(), text.c_str());
        }
        if (!saved) {
            error = kXmlPermissionError + path;
            return false;
        }
    }
    if (children.size() == 1) return true;
    auto next = std::next(children.begin());
    if (next->name != kXmlSubkeys) {
        error = kXmlInvalidError;
        return false;
    }
    for (XMLParser::XMLNode &subkey : next->children) {
        std::string subpath = path + XmlAttribute(subkey, "name") + "\\";
        if (!ReadValues(subkey.children, subpath, error)) return false;
    }
    return true;
}
