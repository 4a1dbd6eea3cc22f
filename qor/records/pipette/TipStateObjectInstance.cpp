// Tip states as the user edits them: an ObjectInstance whose Parameters of
// type 23 (tip position state) hold TipBoxState documents, and back.
#include <string>
#include <utility>

#include "qor/marshal/ObjectInstance.h"
#include "qor/records/pipette/ProcessTipBoxes.h"
#include "qor/records/pipette/TipBoxDevices.h"

namespace PipetteXMLMarshaller {
namespace {

using ObjectInstanceXMLMarshaller::ObjectInstance;
using ObjectInstanceXMLMarshaller::ObjectParameterCategory;
using ObjectInstanceXMLMarshaller::Parameter;
using ObjectInstanceXMLMarshaller::ParameterType;

constexpr char kTrackingCategory[] = "Tip tracking info";
constexpr char kFilePath[] = "Full file path";
constexpr char kProcessState[] = "State";
constexpr char kStaticModule[] = "Static Tip Boxes";
constexpr char kStaticModuleDescription[] = "Tip states for statically placed tip boxes.";
constexpr char kNoTipBox[] = "No automatic tip selection";

std::string Quoted(const std::string &name) { return '"' + name + '"'; }

void AddParameter(ObjectParameterCategory &category, const std::string &name, std::string description,
                  ParameterType type, std::string value) {
    Parameter &parameter = category.Parameters.emplace_back();
    parameter.Name = name;
    parameter.Description = std::move(description);
    parameter.Type = type;
    parameter.Value = std::move(value);
}

ObjectParameterCategory &AddCategory(std::vector<ObjectParameterCategory> &categories, const std::string &name,
                                     std::string description) {
    ObjectParameterCategory &category = categories.emplace_back();
    category.Name = name;
    category.Description = std::move(description);
    return category;
}

// withFile: the main categories become the one holding the file's path.
void ReplaceWithFilePath(ObjectInstance &instance, const std::string &path) {
    auto &categories = instance.BaseObjectDescription.Categories;
    categories.clear();
    AddParameter(AddCategory(categories, kTrackingCategory, ""), kFilePath, "",
                 ObjectInstanceXMLMarshaller::PARAMETER_TYPE_STRING, path);
}

// The file's path, from the first tracking category; path stays without one.
void ReadFilePath(const ObjectInstance &instance, std::string &path) {
    for (const ObjectParameterCategory &category : instance.BaseObjectDescription.Categories) {
        if (category.Name == kTrackingCategory) {
            Parameter::GetParameterString(category.Parameters, kFilePath, path);
            return;
        }
    }
}

}  // namespace

void ProcessTipBoxes::ConvertToObjectInstance(ObjectInstance &instance, bool withFile, bool withoutInstances) const {
    if (withFile) ReplaceWithFilePath(instance, Protocol);
    auto &categories = instance.BaseObjectDescription.Categories;
    for (const ProcessTipBox &process : Processes) {
        const std::string name = Quoted(process.ProcessName);
        ObjectParameterCategory &category =
            AddCategory(categories, process.ProcessName, "Tip states related to instances of " + name + ".");
        AddParameter(category, kProcessState,
                     process.IsSingleInstance ? "Tip state of " + name + "."
                                              : "Tip state of all instances of process tipbox " + name +
                                                    " when they are sourced into the system.",
                     ObjectInstanceXMLMarshaller::PARAMETER_TYPE_TIP_POSITION_STATE, process.TipBoxState.ToXMLString());
        if (withoutInstances) continue;
        for (const TipBoxInstance &each : process.Instances) {
            AddParameter(category, each.Instance,
                         "Tip state of instance " + Quoted(each.Instance) + " of process tipbox " + name + ".",
                         ObjectInstanceXMLMarshaller::PARAMETER_TYPE_TIP_POSITION_STATE,
                         each.TipBoxState.ToXMLString());
        }
    }
}

void ProcessTipBoxes::ConvertFromObjectInstance(const ObjectInstance &instance) {
    std::string protocol = Protocol;
    ReadFilePath(instance, protocol);
    std::vector<ProcessTipBox> processes;
    for (const ObjectParameterCategory &category : instance.BaseObjectDescription.Categories) {
        if (category.Name == kTrackingCategory) continue;
        ProcessTipBox &process = processes.emplace_back();
        process.ProcessName = category.Name;
        for (const Parameter &parameter : category.Parameters) {
            if (parameter.Name == kProcessState) {
                process.TipBoxState = TipBoxState(parameter.Value);
            } else {
                TipBoxInstance &each = process.Instances.emplace_back();
                each.Instance = parameter.Name;
                each.TipBoxState = TipBoxState(parameter.Value);
            }
        }
    }
    Protocol = std::move(protocol);
    Processes = std::move(processes);
}

void TipBoxDevices::ConvertToObjectInstance(ObjectInstance &instance, bool withFile) const {
    if (withFile) ReplaceWithFilePath(instance, DeviceFile);
    instance.ModuleObjectDescriptions.clear();
    auto &module = instance.ModuleObjectDescriptions.emplace_back();
    module.ModuleName = kStaticModule;
    module.ModuleDescription = kStaticModuleDescription;
    module.ObjectType = GetClassName();
    const auto describe = [](const std::string &name) {
        return "Tip states for static tipboxes on " + Quoted(name) + ".";
    };
    for (const TipBoxDevice &device : Devices) {
        ObjectParameterCategory &category =
            AddCategory(module.Categories, device.DeviceName, describe(device.DeviceName));
        for (const TipBoxLocation &location : device.Locations) {
            if (location.HasTipBox) {
                AddParameter(category, location.Location, describe(location.Location),
                             ObjectInstanceXMLMarshaller::PARAMETER_TYPE_TIP_POSITION_STATE,
                             location.TipBoxState.ToXMLString());
            } else {
                AddParameter(category, location.Location, describe(location.Location),
                             ObjectInstanceXMLMarshaller::PARAMETER_TYPE_STRING, kNoTipBox);
            }
        }
    }
}

void TipBoxDevices::ConvertFromObjectInstance(const ObjectInstance &instance) {
    std::string deviceFile = DeviceFile;
    ReadFilePath(instance, deviceFile);
    std::vector<TipBoxDevice> devices;
    for (const auto &module : instance.ModuleObjectDescriptions) {
        if (module.ModuleName != kStaticModule) continue;
        for (const ObjectParameterCategory &category : module.Categories) {
            if (category.Name == kTrackingCategory) continue;
            TipBoxDevice &device = devices.emplace_back();
            device.DeviceName = category.Name;
            for (const Parameter &parameter : category.Parameters) {
                TipBoxLocation &location = device.Locations.emplace_back();
                location.Location = parameter.Name;
                location.HasTipBox = parameter.Type == ObjectInstanceXMLMarshaller::PARAMETER_TYPE_TIP_POSITION_STATE;
                if (location.HasTipBox) location.TipBoxState = TipBoxState(parameter.Value);
            }
        }
        break;
    }
    DeviceFile = std::move(deviceFile);
    Devices = std::move(devices);
}

}  // namespace PipetteXMLMarshaller
