// What the field tables cost on the two large documents of the metadata
// family: a Response of 1,000 parameters and a device description of 200
// commands, written with ToXMLString and built from text, against the same
// work written by hand on the XML layer (build the node tree and write it;
// read it and pick the attributes). The peers are checked to give the same
// bytes and the same records before anything is timed.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/BenchTimes.h"
#include "qor/records/metadata.h"
#include "qor/xml.h"

using namespace ObjectInstanceXMLMarshaller;
using M = MetaDataManager;
using Node = XMLParser::XMLNode;

namespace {

// ---- the data

Parameter MakeParameter(int i) {
    Parameter parameter;
    parameter.Name = "Parameter " + std::to_string(i);
    parameter.Type = (i % 3 == 0) ? PARAMETER_TYPE_INTEGER : (i % 3 == 1) ? PARAMETER_TYPE_STRING : PARAMETER_TYPE_FLOAT;
    parameter.Value = std::to_string(i * 37);
    if (i % 2 == 0) parameter.Description = "What parameter " + std::to_string(i) + " sets";
    if (i % 5 == 0) parameter.Units = "mm";
    return parameter;
}

M::Response MakeResponse() {
    M::Response response;
    response.Category = M::Query::QueryCategoryAllDeviceInfo;
    response.Source = "Sealer";
    response.Destination = "Scheduler";
    for (int i = 0; i < 1000; ++i) response.Parameters.push_back(MakeParameter(i));
    return response;
}

M::MetaData MakeDescription() {
    M::MetaData description;
    description.Version = "1.0";
    M::Version &version = description.Versions.emplace_back();
    version.Name = "First release";
    version.Date = "2024-03-01";
    version.Version_ = "1.0";
    M::Device &device = description.Device;
    device.Name = "Sealer";
    device.Description = "Heat sealer with a plate stack";
    device.PreferredTab = M::PreferredTabs[2];
    for (int i = 0; i < 4; ++i) device.Parameters.push_back(MakeParameter(i));
    for (int i = 0; i < 3; ++i) {
        M::Location &location = device.Locations.emplace_back();
        location.Name = "Stage " + std::to_string(i);
        location.Offset = 0.5 * i;
    }
    for (int c = 0; c < 200; ++c) {
        M::Command &command = description.Commands.emplace_back();
        command.Name = "Command " + std::to_string(c);
        command.DisplayName = "Run step " + std::to_string(c);
        command.Description = "Runs step " + std::to_string(c) + " of the assay";
        command.PreferredTab = M::PreferredTabs[c % 7];
        command.Editor = M::EDITOR_TYPE_PRIMARY;
        command.Compiler = M::CompilerAction{1};
        for (int p = 0; p < 5; ++p) command.Parameters.push_back(MakeParameter(p + c));
        command.Parameters.front().AddRange("1");
        command.Parameters.front().AddRange("2");
        M::Layout &layout = command.Layouts.emplace_back();
        layout.Name = "Default";
        layout.Labware = "96 well";
        command.Locations = {"Stage 0", "Stage 1"};
        command.AsyncParameters.emplace_back().Name = "Progress";
        command.ProcessName = "Assay";
        command.Index = c;
    }
    return description;
}

// ---- the hand-written peers, on the XML layer alone

void Put(Node &node, const char *key, const std::string &value) {
    if (!value.empty()) node.attributes[key] = value;
}
void PutNumber(Node &node, const char *key, long long value) { node.attributes[key] = std::to_string(value); }
void PutDouble(Node &node, const char *key, double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    node.attributes[key] = text;
}
Node &Add(Node &parent, const char *name) {
    Node &node = parent.children.emplace_back();
    node.name = name;
    return node;
}
void PutStrings(Node &parent, const char *key, const std::vector<std::string> &items) {
    if (items.empty()) return;
    Node &wrapper = Add(parent, key);
    for (const std::string &item : items) Add(wrapper, "Value").attributes["Value"] = item;
}

template <class P>
void WriteParameterFields(Node &node, const P &parameter) {
    Put(node, "Name", parameter.Name);
    Put(node, "Description", parameter.Description);
    PutNumber(node, "Type", parameter.Type);
    PutNumber(node, "Style", parameter.Style);
    Put(node, "Units", parameter.Units);
    Put(node, "Value", parameter.Value);
    Put(node, "ValueToDisplay", parameter.ValueToDisplay);
    Put(node, "Script", parameter.Script);
    Put(node, "Category", parameter.Category);
    Put(node, "Hide_if", parameter.Hide_if);
    if constexpr (std::is_same_v<P, Parameter>) PutNumber(node, "Scriptable", parameter.Scriptable);
    if (!parameter.Ranges.empty()) {
        Node &ranges = Add(node, "Ranges");
        for (const Range &range : parameter.Ranges) Put(Add(ranges, "Range"), "Value", range.Value);
    }
    PutStrings(node, "AllowedLabwareClasses", parameter.AllowedLabwareClasses);
}

template <class P>
void WriteParameters(Node &parent, const char *key, const char *element, const std::vector<P> &parameters) {
    if (parameters.empty()) return;
    Node &wrapper = Add(parent, key);
    for (const P &parameter : parameters) WriteParameterFields(Add(wrapper, element), parameter);
}

std::string Finish(XMLWriter &writer) {
    std::string out;
    writer.WriteToBuffer(out);
    return out;
}

std::string HandWriteResponse(const M::Response &response) {
    XMLWriter writer("QueryResponse", "1.0", true);
    Node &node = Add(writer, "Response");
    Put(node, "Category", response.Category);
    Put(node, "Source", response.Source);
    Put(node, "Destination", response.Destination);
    WriteParameters(node, "Parameters", "Parameter", response.Parameters);
    return Finish(writer);
}

void WriteDevice(Node &node, const M::Device &device) {
    Put(node, "Name", device.Name);
    Put(node, "Description", device.Description);
    Put(node, "HardwareManufacturer", device.HardwareManufacturer);
    Put(node, "PreferredTab", device.PreferredTab);
    Put(node, "RegistryName", device.RegistryName);
    PutNumber(node, "HasBarcodeReader", device.HasBarcodeReader);
    PutNumber(node, "DynamicLocations", device.DynamicLocations);
    WriteParameters(node, "Parameters", "Parameter", device.Parameters);
    if (!device.Locations.empty()) {
        Node &locations = Add(node, "Locations");
        for (const M::Location &location : device.Locations) {
            Node &item = Add(locations, "Location");
            Put(item, "Name", location.Name);
            PutNumber(item, "Type", location.Type);
            PutNumber(item, "Group", location.Group);
            PutDouble(item, "Offset", location.Offset);
            PutDouble(item, "MaxStackHeight", location.MaxStackHeight);
        }
    }
    // No measurement types, no storage dimensions: both stay at their defaults.
    Node &storage = Add(node, "StorageDimensions");
    PutNumber(storage, "DirectStorageAccess", device.StorageDimensions.DirectStorageAccess);
    PutNumber(Add(node, "RobotMetaData"), "ReachesExternalLocations", device.RobotMetaData.ReachesExternalLocations);
    PutNumber(node, "MiscAttributes", device.MiscAttributes);
    PutNumber(node, "Ignore", device.Ignore);
    PutNumber(node, "IgnorePipettePlateInstanceOrder", device.IgnorePipettePlateInstanceOrder);
    PutNumber(node, "IsDeviceUnsafe", device.IsDeviceUnsafe);
}

void WriteCommand(Node &node, const M::Command &command) {
    Put(node, "Name", command.Name);
    Put(node, "DisplayName", command.DisplayName);
    Put(node, "Description", command.Description);
    Put(node, "PreferredTab", command.PreferredTab);
    Put(node, "ProtocolName", command.ProtocolName);
    PutNumber(node, "Editor", command.Editor);
    PutNumber(node, "Compiler", command.Compiler);
    WriteParameters(node, "Parameters", "Parameter", command.Parameters);
    PutNumber(node, "TaskRequiresLocation", command.TaskRequiresLocation);
    if (!command.Layouts.empty()) {
        Node &layouts = Add(node, "Layouts");
        for (const M::Layout &layout : command.Layouts) {
            Node &item = Add(layouts, "Layout");
            Put(item, "Name", layout.Name);
            Put(item, "Labware", layout.Labware);
        }
    }
    PutNumber(node, "RequiresRefresh", command.RequiresRefresh);
    PutStrings(node, "Locations", command.Locations);
    PutNumber(node, "VisibleAvailability", command.VisibleAvailability);
    WriteParameters(node, "AsyncParameters", "AsyncParameter", command.AsyncParameters);
    PutNumber(node, "NextTaskToExecute", command.NextTaskToExecute);
    Put(node, "ProcessName", command.ProcessName);
    PutNumber(node, "Index", command.Index);
}

std::string HandWriteDescription(const M::MetaData &description) {
    XMLWriter writer("MetaData", "1.0", true);
    Node &node = Add(writer, "MetaData");
    Put(node, "Version", description.Version);
    WriteDevice(Add(node, "Device"), description.Device);
    if (!description.Versions.empty()) {
        Node &versions = Add(node, "Versions");
        for (const M::Version &version : description.Versions) {
            Node &item = Add(versions, "Version");
            Put(item, "Name", version.Name);
            Put(item, "Date", version.Date);
            Put(item, "Author", version.Author);
            Put(item, "Version", version.Version_);
            Put(item, "Company", version.Company);
        }
    }
    if (!description.Commands.empty()) {
        Node &commands = Add(node, "Commands");
        for (const M::Command &command : description.Commands) WriteCommand(Add(commands, "Command"), command);
    }
    return Finish(writer);
}

// Reading: each present attribute into its field.
void Get(const Node &node, const char *key, std::string &field) {
    const auto found = node.attributes.find(key);
    if (found != node.attributes.end()) field = found->second;
}
template <class T>
void GetNumber(const Node &node, const char *key, T &field) {
    const auto found = node.attributes.find(key);
    if (found != node.attributes.end()) field = static_cast<T>(std::strtol(found->second.c_str(), nullptr, 10));
}
void GetDouble(const Node &node, const char *key, double &field) {
    const auto found = node.attributes.find(key);
    if (found != node.attributes.end()) field = std::strtod(found->second.c_str(), nullptr);
}
// Calls each(item) for every child of every wrapper element named key.
template <class F>
void EachItem(const Node &node, const char *key, F each) {
    for (const Node &wrapper : node.children) {
        if (wrapper.name != key) continue;
        for (const Node &item : wrapper.children) each(item);
    }
}
void GetStrings(const Node &node, const char *key, std::vector<std::string> &items) {
    EachItem(node, key, [&](const Node &item) { Get(item, "Value", items.emplace_back()); });
}

template <class P>
P ReadParameter(const Node &node) {
    P parameter;
    Get(node, "Name", parameter.Name);
    Get(node, "Description", parameter.Description);
    GetNumber(node, "Type", parameter.Type);
    GetNumber(node, "Style", parameter.Style);
    Get(node, "Units", parameter.Units);
    Get(node, "Value", parameter.Value);
    Get(node, "ValueToDisplay", parameter.ValueToDisplay);
    Get(node, "Script", parameter.Script);
    Get(node, "Category", parameter.Category);
    Get(node, "Hide_if", parameter.Hide_if);
    if constexpr (std::is_same_v<P, Parameter>) GetNumber(node, "Scriptable", parameter.Scriptable);
    EachItem(node, "Ranges", [&](const Node &item) { Get(item, "Value", parameter.Ranges.emplace_back().Value); });
    GetStrings(node, "AllowedLabwareClasses", parameter.AllowedLabwareClasses);
    return parameter;
}

template <class P>
void ReadParameters(const Node &node, const char *key, std::vector<P> &parameters) {
    EachItem(node, key, [&](const Node &item) { parameters.push_back(ReadParameter<P>(item)); });
}

const Node *FirstRecord(XMLReader &reader, const std::string &text) {
    reader.ReadFromBuffer(text, false);
    return reader.children.empty() ? nullptr : &reader.children.front();
}

M::Response HandReadResponse(const std::string &text) {
    M::Response response;
    XMLReader reader;
    const Node *node = FirstRecord(reader, text);
    if (!node) return response;
    Get(*node, "Category", response.Category);
    Get(*node, "Source", response.Source);
    Get(*node, "Destination", response.Destination);
    ReadParameters(*node, "Parameters", response.Parameters);
    return response;
}

void ReadDevice(const Node &node, M::Device &device) {
    Get(node, "Name", device.Name);
    Get(node, "Description", device.Description);
    Get(node, "HardwareManufacturer", device.HardwareManufacturer);
    Get(node, "PreferredTab", device.PreferredTab);
    Get(node, "RegistryName", device.RegistryName);
    GetNumber(node, "HasBarcodeReader", device.HasBarcodeReader);
    GetNumber(node, "DynamicLocations", device.DynamicLocations);
    ReadParameters(node, "Parameters", device.Parameters);
    EachItem(node, "Locations", [&](const Node &item) {
        M::Location &location = device.Locations.emplace_back();
        Get(item, "Name", location.Name);
        GetNumber(item, "Type", location.Type);
        GetNumber(item, "Group", location.Group);
        GetDouble(item, "Offset", location.Offset);
        GetDouble(item, "MaxStackHeight", location.MaxStackHeight);
    });
    for (const Node &child : node.children) {
        if (child.name == "StorageDimensions") {
            GetNumber(child, "DirectStorageAccess", device.StorageDimensions.DirectStorageAccess);
        } else if (child.name == "RobotMetaData") {
            GetNumber(child, "ReachesExternalLocations", device.RobotMetaData.ReachesExternalLocations);
        }
    }
    GetNumber(node, "MiscAttributes", device.MiscAttributes);
    GetNumber(node, "Ignore", device.Ignore);
    GetNumber(node, "IgnorePipettePlateInstanceOrder", device.IgnorePipettePlateInstanceOrder);
    GetNumber(node, "IsDeviceUnsafe", device.IsDeviceUnsafe);
}

void ReadCommand(const Node &node, M::Command &command) {
    Get(node, "Name", command.Name);
    Get(node, "DisplayName", command.DisplayName);
    Get(node, "Description", command.Description);
    Get(node, "PreferredTab", command.PreferredTab);
    Get(node, "ProtocolName", command.ProtocolName);
    GetNumber(node, "Editor", command.Editor);
    GetNumber(node, "Compiler", command.Compiler);
    ReadParameters(node, "Parameters", command.Parameters);
    GetNumber(node, "TaskRequiresLocation", command.TaskRequiresLocation);
    EachItem(node, "Layouts", [&](const Node &item) {
        M::Layout &layout = command.Layouts.emplace_back();
        Get(item, "Name", layout.Name);
        Get(item, "Labware", layout.Labware);
    });
    GetNumber(node, "RequiresRefresh", command.RequiresRefresh);
    GetStrings(node, "Locations", command.Locations);
    GetNumber(node, "VisibleAvailability", command.VisibleAvailability);
    ReadParameters(node, "AsyncParameters", command.AsyncParameters);
    GetNumber(node, "NextTaskToExecute", command.NextTaskToExecute);
    Get(node, "ProcessName", command.ProcessName);
    GetNumber(node, "Index", command.Index);
}

M::MetaData HandReadDescription(const std::string &text) {
    M::MetaData description;
    XMLReader reader;
    const Node *node = FirstRecord(reader, text);
    if (!node) return description;
    Get(*node, "Version", description.Version);
    for (const Node &child : node->children) {
        if (child.name == "Device") ReadDevice(child, description.Device);
    }
    EachItem(*node, "Versions", [&](const Node &item) {
        M::Version &version = description.Versions.emplace_back();
        Get(item, "Name", version.Name);
        Get(item, "Date", version.Date);
        Get(item, "Author", version.Author);
        Get(item, "Version", version.Version_);
        Get(item, "Company", version.Company);
    });
    EachItem(*node, "Commands", [&](const Node &item) { ReadCommand(item, description.Commands.emplace_back()); });
    return description;
}

// ---- the benchmarks, in pairs

using bench::Loop;

std::string ResponseText() { return MakeResponse().ToXMLString(); }
std::string DescriptionText() { return MakeDescription().ToXMLString(); }
std::string WriteGeneric(const auto &record) { return record.ToXMLString(); }
template <class Record>
Record ReadGeneric(const std::string &text) {
    return Record(text);
}

BENCHMARK(Loop<MakeResponse, WriteGeneric<M::Response>>)->Name("ResponseWriteGeneric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<MakeResponse, HandWriteResponse>)->Name("ResponseWriteByHand")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<ResponseText, ReadGeneric<M::Response>>)->Name("ResponseReadGeneric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<ResponseText, HandReadResponse>)->Name("ResponseReadByHand")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<MakeDescription, WriteGeneric<M::MetaData>>)->Name("DescriptionWriteGeneric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<MakeDescription, HandWriteDescription>)->Name("DescriptionWriteByHand")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<DescriptionText, ReadGeneric<M::MetaData>>)->Name("DescriptionReadGeneric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<DescriptionText, HandReadDescription>)->Name("DescriptionReadByHand")->Unit(benchmark::kMicrosecond);

bool PeersAgree() {
    const M::Response response = MakeResponse();
    const M::MetaData description = MakeDescription();
    const std::string responseText = response.ToXMLString();
    const std::string descriptionText = description.ToXMLString();
    return HandWriteResponse(response) == responseText && HandWriteDescription(description) == descriptionText &&
           HandReadResponse(responseText).ToXMLString() == responseText &&
           HandReadDescription(descriptionText).ToXMLString() == descriptionText;
}

}  // namespace

int main(int argc, char **argv) {
    if (!PeersAgree()) {
        std::fprintf(stderr, "the hand-written peers don't match the generic records\n");
        return 1;
    }
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);
    times.PrintPairs("metadata records / hand-written peer", 1.3);
    return 0;
}
