// The field tables that several hook records share, one per shape. For the
// sources of those records only: it brings in the record-definition machinery.
#pragma once

#include <tuple>

#include "qor/marshal/RecordDefinition.h"
#include "qor/records/hooks/PathEventFields.h"
#include "qor/records/hooks/ProcessEventFields.h"
#include "qor/records/hooks/TaskEventFields.h"

namespace HooksPluginXMLMarshaller {

constexpr auto PathEventTable() {
    using namespace qor::record::dsl;
    return std::tuple{
        attribute("Path", &PathEventFields::Path),
    };
}

constexpr auto ProcessEventTable() {
    using namespace qor::record::dsl;
    return std::tuple{
        attribute("ProcessName", &ProcessEventFields::ProcessName),
        attribute("Plugin", &ProcessEventFields::Plugin),
        attribute("Labware", &ProcessEventFields::Labware),
        attribute("TaskCount", &ProcessEventFields::TaskCount),
        attribute("NorthSideBarcode", &ProcessEventFields::NorthSideBarcode),
        attribute("SouthSideBarcode", &ProcessEventFields::SouthSideBarcode),
        attribute("WestSideBarcode", &ProcessEventFields::WestSideBarcode),
        attribute("EastSideBarcode", &ProcessEventFields::EastSideBarcode),
        attribute("PlateName", &ProcessEventFields::PlateName),
        attribute("InstanceNumber", &ProcessEventFields::InstanceNumber),
        attribute("DatabaseID", &ProcessEventFields::DatabaseID),
        attribute("ProtocolPath", &ProcessEventFields::ProtocolPath).as("Protocol path"),
        attribute("Path", &ProcessEventFields::Path),
        attribute("ProtocolType", &ProcessEventFields::ProtocolType).as("Protocol type"),
    };
}

constexpr auto TaskEventTable() {
    using namespace qor::record::dsl;
    return std::tuple{
        attribute("Description", &TaskEventFields::Description),
        attribute("ProcessName", &TaskEventFields::ProcessName).as("Process Name"),
        attribute("InstanceNumber", &TaskEventFields::InstanceNumber),
        list("Devices", &TaskEventFields::Devices),
        list("Locations", &TaskEventFields::Locations),
        attribute("TaskIndex", &TaskEventFields::TaskIndex).as("Task Index"),
        attribute("ProcessIndex", &TaskEventFields::ProcessIndex).as("Process Index"),
        attribute("SubProcessName", &TaskEventFields::SubProcessName).as("SubProcess name"),
        attribute("ProtocolPath", &TaskEventFields::ProtocolPath).as("Protocol path"),
        attribute("Path", &TaskEventFields::Path),
        attribute("ProtocolType", &TaskEventFields::ProtocolType).as("Protocol type"),
        attribute("Spawned", &TaskEventFields::Spawned).as("Task is spawned"),
    };
}

}  // namespace HooksPluginXMLMarshaller
