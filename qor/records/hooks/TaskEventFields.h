// The fields of TaskStarting and TaskFinishing: a task of a process. Devices
// and Locations are those the task uses; Spawned marks a task run as a
// spawned process.
// Each of those records derives from this plain struct as well as from its
// family base; the records differ in their element names alone.
#pragma once

#include <string>
#include <vector>

#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

struct TaskEventFields {
    std::string Description;
    std::string ProcessName;
    unsigned int InstanceNumber = 0;
    std::vector<std::string> Devices;
    std::vector<std::string> Locations;
    int TaskIndex = 0;
    int ProcessIndex = 0;
    std::string SubProcessName;
    std::string ProtocolPath;
    std::string Path = NotSpecified;
    int ProtocolType = 0;
    bool Spawned = false;
};

}  // namespace HooksPluginXMLMarshaller
