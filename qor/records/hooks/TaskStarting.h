// A task of a process begins.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/TaskEventFields.h"

namespace HooksPluginXMLMarshaller {

class TaskStarting : public HooksPluginXMLMarshallableObject, public TaskEventFields {
    QOR_RECORD(TaskStarting)
};

}  // namespace HooksPluginXMLMarshaller
