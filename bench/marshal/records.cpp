// What the field-table machinery costs: records written with ToXMLString and
// built from text, against the same work written by hand on the XML layer
// (build the node tree, write it; read it, pick the attributes). Prints the
// ratio of each generic path to its hand-written peer.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "qor/marshal.h"
#include "support/BenchTimes.h"
#include "qor/records/hooks.h"
#include "qor/xml.h"

using namespace ObjectInstanceXMLMarshaller;
using HooksPluginXMLMarshaller::ProtocolPaused;
using Node = XMLParser::XMLNode;

namespace {

// ---- the data

ProtocolPaused MakePaused() {
    ProtocolPaused paused;
    paused.Path = "C:\\Protocols\\Overnight\\assay plate run.pro";
    paused.PauseType = 2;
    return paused;
}

// 20 categories of 50 parameters each.
ObjectInstance MakeInstance() {
    ObjectInstance instance;
    instance.BaseObjectDescription.ObjectType = "Device";
    for (int c = 0; c < 20; ++c) {
        ObjectParameterCategory &category = instance.BaseObjectDescription.Categories.emplace_back();
        category.Name = "Category " + std::to_string(c);
        category.Description = "Settings of group " + std::to_string(c);
        for (int p = 0; p < 50; ++p) {
            Parameter &parameter = category.Parameters.emplace_back();
            parameter.Name = "Parameter " + std::to_string(p);
            parameter.Description = "What parameter " + std::to_string(p) + " does";
            parameter.Type = (p % 3 == 0) ? PARAMETER_TYPE_INTEGER : PARAMETER_TYPE_STRING;
            parameter.Value = std::to_string(p * 37 + c);
            parameter.Units = (p % 5 == 0) ? "mm" : "";
        }
    }
    return instance;
}

// ---- the hand-written peers, on the XML layer alone

std::string IntText(long long value) {
    char buffer[24];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

void SetIfNotEmpty(Node &node, const char *key, const std::string &value) {
    if (!value.empty()) node.attributes[key] = value;
}

std::string HandWritePaused(const ProtocolPaused &paused) {
    XMLWriter writer("MetaData", "1.0", true);
    Node &node = writer.children.emplace_back();
    node.name = "ProtocolPaused";
    SetIfNotEmpty(node, "Path", paused.Path);
    node.attributes["PauseType"] = IntText(paused.PauseType);
    std::string out;
    writer.WriteToBuffer(out);
    return out;
}

const std::string *Attribute(const Node &node, const char *key) {
    const auto it = node.attributes.find(key);
    return it == node.attributes.end() ? nullptr : &it->second;
}

void HandReadString(const Node &node, const char *key, std::string &field) {
    if (const std::string *value = Attribute(node, key)) field = *value;
}

ProtocolPaused HandReadPaused(const std::string &text) {
    ProtocolPaused paused;
    XMLReader reader;
    reader.ReadFromBuffer(text, false);
    if (reader.children.empty()) return paused;
    const Node &node = reader.children.front();
    HandReadString(node, "Path", paused.Path);
    if (const std::string *value = Attribute(node, "PauseType")) {
        paused.PauseType = static_cast<int>(std::strtol(value->c_str(), nullptr, 10));
    }
    return paused;
}

void HandWriteParameter(Node &node, const Parameter &parameter) {
    node.name = "Parameter";
    SetIfNotEmpty(node, "Name", parameter.Name);
    SetIfNotEmpty(node, "Description", parameter.Description);
    node.attributes["Type"] = IntText(parameter.Type);
    node.attributes["Style"] = IntText(parameter.Style);
    SetIfNotEmpty(node, "Units", parameter.Units);
    SetIfNotEmpty(node, "Value", parameter.Value);
    SetIfNotEmpty(node, "ValueToDisplay", parameter.ValueToDisplay);
    SetIfNotEmpty(node, "Script", parameter.Script);
    SetIfNotEmpty(node, "Category", parameter.Category);
    SetIfNotEmpty(node, "Hide_if", parameter.Hide_if);
    node.attributes["Scriptable"] = parameter.Scriptable ? "1" : "0";
}

std::string HandWriteInstance(const ObjectInstance &instance) {
    XMLWriter writer("MetaData", "1.0", true);
    Node &root = writer.children.emplace_back();
    root.name = "ObjectInstance";
    Node &description = root.children.emplace_back();
    description.name = "BaseObjectDescription";
    const BaseObjectDescription &base = instance.BaseObjectDescription;
    SetIfNotEmpty(description, "ObjectType", base.ObjectType);
    SetIfNotEmpty(description, "objecttype", base.objecttype);
    SetIfNotEmpty(description, "ObjectPlural", base.ObjectPlural);
    SetIfNotEmpty(description, "objectplural", base.objectplural);
    SetIfNotEmpty(description, "ObjectDescription", base.ObjectDescription);
    description.attributes["BackEndType"] = IntText(base.BackEndType);
    SetIfNotEmpty(description, "BackEndRoot", base.BackEndRoot);
    description.attributes["ObjectNamesAreCaseSensitive"] = base.ObjectNamesAreCaseSensitive ? "1" : "0";
    if (!base.Categories.empty()) {
        Node &categories = description.children.emplace_back();
        categories.name = "Categories";
        for (const ObjectParameterCategory &category : base.Categories) {
            Node &node = categories.children.emplace_back();
            node.name = "ObjectParameterCategory";
            SetIfNotEmpty(node, "Name", category.Name);
            SetIfNotEmpty(node, "Description", category.Description);
            if (category.Parameters.empty()) continue;
            Node &parameters = node.children.emplace_back();
            parameters.name = "Parameters";
            for (const Parameter &parameter : category.Parameters) {
                HandWriteParameter(parameters.children.emplace_back(), parameter);
            }
        }
    }
    std::string out;
    writer.WriteToBuffer(out);
    return out;
}

Parameter HandReadParameter(const Node &node) {
    Parameter parameter;
    HandReadString(node, "Name", parameter.Name);
    HandReadString(node, "Description", parameter.Description);
    if (const std::string *value = Attribute(node, "Type")) {
        parameter.Type = static_cast<ParameterType>(std::strtol(value->c_str(), nullptr, 10));
    }
    if (const std::string *value = Attribute(node, "Style")) {
        parameter.Style = static_cast<ParameterStyle>(std::strtol(value->c_str(), nullptr, 10));
    }
    HandReadString(node, "Units", parameter.Units);
    HandReadString(node, "Value", parameter.Value);
    HandReadString(node, "ValueToDisplay", parameter.ValueToDisplay);
    HandReadString(node, "Script", parameter.Script);
    HandReadString(node, "Category", parameter.Category);
    HandReadString(node, "Hide_if", parameter.Hide_if);
    if (const std::string *value = Attribute(node, "Scriptable")) {
        parameter.Scriptable = std::strtol(value->c_str(), nullptr, 10) != 0;
    }
    return parameter;
}

ObjectInstance HandReadInstance(const std::string &text) {
    ObjectInstance instance;
    XMLReader reader;
    reader.ReadFromBuffer(text, false);
    if (reader.children.empty()) return instance;
    for (const Node &child : reader.children.front().children) {
        if (child.name != "BaseObjectDescription") continue;
        BaseObjectDescription &base = instance.BaseObjectDescription;
        HandReadString(child, "ObjectType", base.ObjectType);
        for (const Node &list : child.children) {
            if (list.name != "Categories") continue;
            for (const Node &node : list.children) {
                ObjectParameterCategory &category = base.Categories.emplace_back();
                HandReadString(node, "Name", category.Name);
                HandReadString(node, "Description", category.Description);
                for (const Node &parameters : node.children) {
                    if (parameters.name != "Parameters") continue;
                    for (const Node &parameter : parameters.children) {
                        category.Parameters.push_back(HandReadParameter(parameter));
                    }
                }
            }
        }
    }
    return instance;
}

// ---- the benchmarks, in pairs

using bench::Loop;

std::string PausedText() { return MakePaused().ToXMLString(); }
std::string InstanceText() { return MakeInstance().ToXMLString(); }
std::string WriteGeneric(const auto &record) { return record.ToXMLString(); }
template <class Record>
Record ReadGeneric(const std::string &text) { return Record(text); }

BENCHMARK(Loop<MakePaused, WriteGeneric<ProtocolPaused>>)->Name("PausedWriteGeneric");
BENCHMARK(Loop<MakePaused, HandWritePaused>)->Name("PausedWriteByHand");
BENCHMARK(Loop<PausedText, ReadGeneric<ProtocolPaused>>)->Name("PausedReadGeneric");
BENCHMARK(Loop<PausedText, HandReadPaused>)->Name("PausedReadByHand");
BENCHMARK(Loop<MakeInstance, WriteGeneric<ObjectInstance>>)->Name("InstanceWriteGeneric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<MakeInstance, HandWriteInstance>)->Name("InstanceWriteByHand")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<InstanceText, ReadGeneric<ObjectInstance>>)->Name("InstanceReadGeneric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<InstanceText, HandReadInstance>)->Name("InstanceReadByHand")->Unit(benchmark::kMicrosecond);

bool CheckPeersAgree() {
    // The peers must do the same work: same text out, same record back.
    const ProtocolPaused paused = MakePaused();
    const ObjectInstance instance = MakeInstance();
    return HandWritePaused(paused) == paused.ToXMLString() &&
           HandWriteInstance(instance) == instance.ToXMLString() &&
           HandReadPaused(paused.ToXMLString()) == paused &&
           HandReadInstance(instance.ToXMLString()) == instance;
}

}  // namespace

int main(int argc, char **argv) {
    if (!CheckPeersAgree()) {
        std::fprintf(stderr, "the hand-written peers don't match the generic records\n");
        return 1;
    }
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);
    times.PrintPairs("field-table machinery / hand-written peer", 1.3);
    return 0;
}
