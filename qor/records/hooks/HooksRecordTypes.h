// The record types of the HooksPluginXMLMarshaller family, for the registry
// of records.
#pragma once

#include <span>

#include "qor/marshal/RecordType.h"

namespace HooksPluginXMLMarshaller {
std::span<const qor::RecordType> RecordTypes();
}  // namespace HooksPluginXMLMarshaller
