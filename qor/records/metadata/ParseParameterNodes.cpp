// Rebuilding a parameter list from a metadata element, optionally keeping
// the values a user set before: how a protocol's task picks up a device's
// new metadata without losing the user's choices.
#include <algorithm>
#include <string>

#include "qor/marshal/Convert.h"
#include "qor/marshal/Parameter.h"
#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/pipette/WellSelection.h"

namespace {

using ObjectInstanceXMLMarshaller::Parameter;
using ObjectInstanceXMLMarshaller::ParameterStyle;
using ObjectInstanceXMLMarshaller::ParameterType;
using XMLNode = XMLParser::XMLNode;

// Text that isn't a number counts as 0, a number outside the range as its
// nearest end.
int Limited(const std::string &text, long low, long high) {
    return static_cast<int>(std::clamp(qor::convert::TextToLong(text), low, high));
}

std::string ValueAttribute(const XMLNode &item) {
    std::string value;
    __xml_marshaller_get_attribute__(item, "Value", value);
    return value;
}

// The lists a Parameter element may hold: a wrapper of items, each giving
// its attribute Value.
struct ItemList {
    const char *wrapper;
    const char *item;
    void (*add)(Parameter &parameter, std::string value);
};

constexpr ItemList kItemLists[] = {
    {"AllowedLabwareClasses", "Value",
     [](Parameter &parameter, std::string value) { parameter.AllowedLabwareClasses.push_back(std::move(value)); }},
    {"Ranges", "Range", [](Parameter &parameter, std::string value) { parameter.AddRange(value); }},
};

// A Parameter as the element declares it. The attributes read by indexing
// are added to the element, empty, when it lacks them: the element is left
// carrying every one of them, as clients of this function have always seen.
Parameter Declared(XMLNode &node) {
    Parameter parameter;
    __xml_marshaller_get_attribute__(node, "Name", parameter.Name);
    __xml_marshaller_get_attribute__(node, "Units", parameter.Units);
    __xml_marshaller_get_attribute__(node, "Value", parameter.Value);
    auto &attributes = node.attributes;
    parameter.Description = attributes["Description"];
    parameter.ValueToDisplay = attributes["ValueToDisplay"];
    parameter.Category = attributes["Category"];
    parameter.Scriptable = attributes["Scriptable"] != "0";
    parameter.Style = static_cast<ParameterStyle>(Limited(attributes["Style"], 0, 2));
    parameter.Type = static_cast<ParameterType>(Limited(attributes["Type"], 0, 33));
    parameter.Hide_if = attributes["Hide_if"];
    for (const XMLNode &child : node.children) {
        for (const ItemList &list : kItemLists) {
            if (child.name != list.wrapper) continue;
            for (const XMLNode &item : child.children) {
                if (item.name == list.item) list.add(parameter, ValueAttribute(item));
            }
        }
    }
    return parameter;
}

// Types whose old value survives only when it isn't empty: an empty path
// takes the new metadata's default.
bool KeepsOnlyNonEmpty(ParameterType type) {
    using namespace ObjectInstanceXMLMarshaller;
    return type == PARAMETER_TYPE_PATH || type == PARAMETER_TYPE_OPTIONAL_PATH || type == PARAMETER_TYPE_DIRECTORY;
}

// A well selection keeps the user's wells under the head mode the new
// metadata declares. Either text failing to read as a selection leaves the
// new one as it stands.
std::string KeptWellSelection(const std::string &kept, const std::string &declared) {
    try {
        PipetteXMLMarshaller::WellSelection selection(kept);
        selection.PipetteHeadMode = PipetteXMLMarshaller::WellSelection(declared).PipetteHeadMode;
        return selection.ToXMLString();
    } catch (const XMLParserException &) {
        return declared;
    }
}

// Carries the old value and script of the parameter of the same name over
// to the fresh one. A parameter new to the metadata has an empty old value,
// which most types take as well: that is the long-standing behaviour.
void KeepOld(Parameter &parameter, const std::vector<Parameter> &old) {
    const auto found = std::find_if(old.begin(), old.end(), [&](const Parameter &p) { return p.Name == parameter.Name; });
    const std::string keptValue = found == old.end() ? std::string() : found->Value;
    const std::string keptScript = found == old.end() ? std::string() : found->Script;
    if (parameter.Type == ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT) {
        parameter.Value = KeptWellSelection(keptValue, parameter.Value);
    } else if (!KeepsOnlyNonEmpty(parameter.Type) || !keptValue.empty()) {
        parameter.Value = keptValue;
    }
    if (!keptScript.empty()) parameter.Script = keptScript;
}

}  // namespace

void MetaDataManager::ParseParameterNodes(XMLParser::XMLNode &node, std::vector<Parameter> &parameters,
                                          bool keepValues) {
    const std::vector<Parameter> old = std::move(parameters);
    parameters.clear();
    for (XMLNode &wrapper : node.children) {
        if (wrapper.name != "Parameters") continue;
        for (XMLNode &element : wrapper.children) {
            if (element.name != "Parameter") continue;
            Parameter parameter = Declared(element);
            if (keepValues) KeepOld(parameter, old);
            parameters.push_back(std::move(parameter));
        }
    }
}
