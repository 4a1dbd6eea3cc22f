#include "qor/records/hooks/Error.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(Error,
    attribute("Path", &Error::Path),
    attribute("Source", &Error::Source),
    attribute("Message", &Error::Message).as("Error message"),
    attribute("ProcessName", &Error::ProcessName).as("Process Name"),
    attribute("InstanceNumber", &Error::InstanceNumber),
    attribute("DeviceName", &Error::DeviceName).as("Device name"),
    attribute("LocationName", &Error::LocationName).as("Location name"),
    attribute("Profile", &Error::Profile).as("Profile name"))

}  // namespace HooksPluginXMLMarshaller
