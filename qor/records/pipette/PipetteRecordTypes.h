// The record types of the PipetteXMLMarshaller family, for the registry of
// records.
#pragma once

#include <span>

#include "qor/marshal/RecordType.h"

namespace PipetteXMLMarshaller {
std::span<const qor::RecordType> RecordTypes();
}  // namespace PipetteXMLMarshaller
