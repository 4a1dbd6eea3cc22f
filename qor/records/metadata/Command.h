// One command a device offers to protocols: its parameters, the layouts and
// locations it may run with, how the protocol editor shows it (Editor) and
// what the compiler does with it (Compiler). AsyncParameters are what an
// asynchronous run of it reports; ProcessName and Index place it within a
// process.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/AsyncParameter.h"
#include "qor/marshal/Parameter.h"
#include "qor/marshal/ParameterType.h"
#include "qor/records/metadata/Layout.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Command : public MetaDataManagerBase {
    QOR_RECORD(Command)
    std::string Name;
    std::string DisplayName;
    std::string Description;
    std::string PreferredTab;  // one of PreferredTabs
    std::string ProtocolName;
    EditorType Editor{};
    CompilerAction Compiler{};
    std::vector<ObjectInstanceXMLMarshaller::Parameter> Parameters;
    bool TaskRequiresLocation = true;
    std::vector<Layout> Layouts;
    bool RequiresRefresh = false;
    std::vector<std::string> Locations;  // names of the locations it may run at
    // Shown as "Task Can Be Selected For New Protocols", and on purpose never
    // read back from a property bag: an editor cannot change it.
    bool VisibleAvailability = true;
    std::vector<ObjectInstanceXMLMarshaller::AsyncParameter> AsyncParameters;
    bool NextTaskToExecute = true;
    std::string ProcessName;
    int Index = 0;

    // The Value, or Script, of the first parameter of that exact name; ""
    // when there is none.
    std::string GetParameter(const std::string &name) const;
    std::string GetParameterScript(const std::string &name) const;
    // The Value of the first asynchronous parameter of that name, or "".
    std::string GetAsyncParameter(const std::string &name) const;
    // Whether any parameter is of that type.
    bool HasParameterOfType(const ObjectInstanceXMLMarshaller::ParameterType &type) const;

    // Takes Name, Description, Editor and Compiler from a Command element
    // when it has them, and rebuilds Parameters from it (see
    // MetaDataManager::ParseParameterNodes, which adds missing attributes to
    // the element's parameters). Other fields stay.
    void ParseCommandNode(XMLParser::XMLNode &node, bool keepValues);
    // Takes this command's definition anew from a device description (a
    // "MetaData" document of version "1.0"), keeping the values set so far.
    // False, with the command unchanged, when the text isn't such a document
    // or describes no command of this Name.
    bool Refresh(const std::string &xml);
};
