// A task of a process ends.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/TaskEventFields.h"

namespace HooksPluginXMLMarshaller {

class TaskFinishing : public HooksPluginXMLMarshallableObject, public TaskEventFields {
    QOR_RECORD(TaskFinishing)
};

}  // namespace HooksPluginXMLMarshaller
