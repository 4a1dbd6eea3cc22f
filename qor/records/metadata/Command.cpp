#include "qor/records/metadata/Command.h"

#include <algorithm>

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Command,
    attribute("Name", &Command::Name),
    attribute("DisplayName", &Command::DisplayName).as("Display Name"),
    attribute("Description", &Command::Description),
    attribute("PreferredTab", &Command::PreferredTab).as("Preferred tab"),
    attribute("ProtocolName", &Command::ProtocolName).as("Protocol Name"),
    enumAttribute("Editor", &Command::Editor),
    enumAttribute("Compiler", &Command::Compiler),
    list("Parameters", &Command::Parameters),
    attribute("TaskRequiresLocation", &Command::TaskRequiresLocation).as("Task Requires Location"),
    list("Layouts", &Command::Layouts),
    attribute("RequiresRefresh", &Command::RequiresRefresh).as("Task Requires Refresh"),
    list("Locations", &Command::Locations),
    attribute("VisibleAvailability", &Command::VisibleAvailability)
        .as("Task Can Be Selected For New Protocols").shownOnly(),
    list("AsyncParameters", &Command::AsyncParameters),
    attribute("NextTaskToExecute", &Command::NextTaskToExecute).as("Next Task To Execute"),
    attribute("ProcessName", &Command::ProcessName),
    attribute("Index", &Command::Index))

namespace {

template <class P>
const P *Named(const std::vector<P> &parameters, const std::string &name) {
    const auto found = std::find_if(parameters.begin(), parameters.end(),
                                    [&](const P &parameter) { return parameter.Name == name; });
    return found == parameters.end() ? nullptr : &*found;
}

XMLParser::XMLNode *FirstChild(XMLParser::XMLNode &node, const std::string &name) {
    for (XMLParser::XMLNode &child : node.children) {
        if (child.name == name) return &child;
    }
    return nullptr;
}

}  // namespace

std::string MetaDataManager::Command::GetParameter(const std::string &name) const {
    const auto *parameter = Named(Parameters, name);
    return parameter ? parameter->Value : std::string();
}

std::string MetaDataManager::Command::GetParameterScript(const std::string &name) const {
    const auto *parameter = Named(Parameters, name);
    return parameter ? parameter->Script : std::string();
}

std::string MetaDataManager::Command::GetAsyncParameter(const std::string &name) const {
    const auto *parameter = Named(AsyncParameters, name);
    return parameter ? parameter->Value : std::string();
}

bool MetaDataManager::Command::HasParameterOfType(const ObjectInstanceXMLMarshaller::ParameterType &type) const {
    return std::any_of(Parameters.begin(), Parameters.end(),
                       [&](const ObjectInstanceXMLMarshaller::Parameter &parameter) { return parameter.Type == type; });
}

void MetaDataManager::Command::ParseCommandNode(XMLParser::XMLNode &node, bool keepValues) {
    __xml_marshaller_get_attribute__(node, "Name", Name);
    __xml_marshaller_get_attribute__(node, "Description", Description);
    std::string text;
    if (__xml_marshaller_get_attribute__(node, "Editor", text)) {
        Editor = static_cast<EditorType>(Convert<unsigned>(text));
    }
    if (__xml_marshaller_get_attribute__(node, "Compiler", text)) {
        Compiler = static_cast<CompilerAction>(Convert<unsigned>(text));
    }
    ParseParameterNodes(node, Parameters, keepValues);
}

bool MetaDataManager::Command::Refresh(const std::string &xml) {
    XMLReader reader;
    try {
        reader.ReadFromBuffer(xml, false);
    } catch (const XMLParserException &) {
        return false;
    }
    const auto attribute = [&](const std::string &key) {
        const auto found = reader.attributes.find(key);
        return found == reader.attributes.end() ? std::string() : found->second;
    };
    if (attribute(FILETYPE_ATTRIBUTE) != "MetaData" || attribute(VERSION_ATTRIBUTE) != "1.0") return false;

    XMLParser::XMLNode *description = &reader;
    if (!reader.children.empty() && reader.children.front().name == "MetaData") description = &reader.children.front();
    XMLParser::XMLNode *commands = FirstChild(*description, "Commands");
    if (!commands) return false;
    for (XMLParser::XMLNode &command : commands->children) {
        const auto name = command.attributes.find("Name");
        if (name == command.attributes.end() || name->second != Name) continue;
        ParseCommandNode(command, true);
        return true;
    }
    return false;
}
