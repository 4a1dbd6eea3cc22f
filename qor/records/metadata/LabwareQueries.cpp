// Asking a device for a labware's attributes and reading its answer, and
// finding the labware of a plate. Each function reports a bad document by
// its result and a text, never by an exception: callers are plug-ins that
// show the text and go on.
#include <string>

#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/Query.h"
#include "qor/xml/XMLReader.h"

namespace {

using XMLNode = XMLParser::XMLNode;

bool Parse(const std::string &xml, XMLReader &reader) {
    try {
        reader.ReadFromBuffer(xml, false);
        return true;
    } catch (const XMLParserException &) {
        return false;
    }
}

bool AttributeIs(const XMLNode &node, const std::string &key, const char *expected) {
    std::string value;
    return __xml_marshaller_get_attribute__(node, key, value) && value == expected;
}

// The first child of node when it has that name; null otherwise.
const XMLNode *FirstChildNamed(const XMLNode &node, const char *name) {
    return !node.children.empty() && node.children.front().name == name ? &node.children.front() : nullptr;
}

}  // namespace

void MetaDataManager::GenerateLabwareAttributeQuery(const std::string &labware, std::string &queryXml) {
    Query query;
    query.Category = Query::QueryCategoryGetLabware;
    ObjectInstanceXMLMarshaller::Parameter::AddParameterString(query.Parameters, "Labware_Entry", labware);
    queryXml = query.ToXMLString();
}

bool MetaDataManager::ParseLabwareAttributeResponse(const std::string &responseXml, const std::string &,
                                                    const std::string &attribute, std::string &value,
                                                    std::string &error) {
    XMLReader reader;
    if (!Parse(responseXml, reader)) {
        error = "labware query returned invalid xml";
        return false;
    }
    const XMLNode *response = reader.name == DEFAULT_ROOT_NAME && AttributeIs(reader, FILETYPE_ATTRIBUTE, "QueryResponse")
                                  ? FirstChildNamed(reader, "Response")
                                  : nullptr;
    const XMLNode *parameters = response && AttributeIs(*response, "Category", Query::QueryCategoryGetLabware)
                                    ? FirstChildNamed(*response, "Parameters")
                                    : nullptr;
    if (!parameters) {
        error = "labware query returned incorrect data";
        return false;
    }
    for (const XMLNode &parameter : parameters->children) {
        if (!AttributeIs(parameter, "Name", attribute.c_str())) continue;
        value.clear();
        __xml_marshaller_get_attribute__(parameter, "Value", value);
        return true;
    }
    error = "labware query did not return desired data";
    return false;
}

bool MetaDataManager::ExtractLabwareNameFromPlateInfo(const std::string &plateInfoXml, std::string &labware,
                                                      std::string &error) {
    XMLReader reader;
    if (!Parse(plateInfoXml, reader)) {
        error = "plate info contained invalid xml";
        return false;
    }
    const XMLNode *plate = reader.name == "Plates" && AttributeIs(reader, FILETYPE_ATTRIBUTE, "PlateInfo")
                               ? FirstChildNamed(reader, "Plate")
                               : nullptr;
    if (!plate || !__xml_marshaller_get_attribute__(*plate, "Labware", labware)) {
        error = "plate info contained incorrect data";
        return false;
    }
    return true;
}
