// Export of a registry subtree to a document of the suite's XML dialect, and
// import of such a document under a chosen parent key.
#pragma once

#include <list>
#include <map>
#include <string>

#include "qor/platform/CriticalSection.h"
#include "qor/settings/Registry.h"
#include "qor/xml/XMLParser.h"
#include "qor/xml/XMLWriter.h"

// The document: the writer's stamped root with an extra attribute
// `extrainfo` (the entry's name), and under it, as under every
// <subkey name='...'>, exactly a <values> and a <subkeys> element, in that
// order. Each <value> carries `name`, `type` (the registry type number) and
// the content: `value` holds a string (types 1, 2, 6) or a number printed
// "%d" (types 4, 5); a list (7) has one `value.N` per string; any other type
// has the text "Registry data type not supported" in place of its data.
//
// Import brings type 4 back as a number and everything else as a string,
// writing as it goes: a failed import leaves what it wrote before.
class XMLRegistry : public CRegistry {
public:
    explicit XMLRegistry(HKEY root);
    ~XMLRegistry() override;

    // Writes the subtree at keyPath (values and subkeys, walked in the
    // registry's order) as a document of fileType and version into xml.
    // A key that cannot be read gives empty <values> and <subkeys>. One
    // export at a time per object. Always true.
    bool ExportXML(const char *keyPath, std::string &xml, const std::string &fileType,
                   const std::string &version, const std::string &extraInfo);

    // Creates parentPath + name + "\" and fills it from the document; name
    // is the document's extrainfo, or entryName when that is not empty.
    // parentPath must end in '\' (or be empty). On false, error holds one of:
    // "The file type is incorrect.", "The entry name is empty.",
    // "The xml file is invalid.", or "Please make sure you have permission
    // to write at the specified location: " + the key path. A document the
    // XML layer cannot parse throws its XMLParserException.
    bool ImportXML(const char *parentPath, const std::string &xml, const std::string &fileType,
                   std::string &error, const std::string &entryName);

    int OnValueHit(const char *path, const char *name, const CRegVal &value,
                   unsigned short depth) override;
    int OnKeyHit(const char *name, unsigned short depth) override;

private:
    void AddValuesAndSubkeysNodes(XMLParser::XMLNode &node);
    XMLParser::XMLNode *GetValuesNode(XMLParser::XMLNode &node);
    XMLParser::XMLNode *GetSubkeysNode(XMLParser::XMLNode &node);
    bool ReadValues(std::list<XMLParser::XMLNode> &children, std::string &path, std::string &error);
    // The node of the key one level above `depth`, or null.
    XMLParser::XMLNode *ParentAt(unsigned short depth);

    CCriticalSection lock;
    XMLWriter *writer;
    std::map<unsigned short, XMLParser::XMLNode *> *nodes;
};
