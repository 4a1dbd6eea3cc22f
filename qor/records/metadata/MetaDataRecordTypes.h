// The record types of the MetaDataManager family, for the registry of records.
#pragma once

#include <span>

#include "qor/marshal/RecordType.h"

namespace qor {
std::span<const RecordType> MetaDataRecordTypes();
}  // namespace qor
