#include "qor/records/metadata/CompileError.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, CompileError,
    attribute("Value", &CompileError::Value),
    enumAttribute("ErrorType", &CompileError::ErrorType).as("Error type"))
