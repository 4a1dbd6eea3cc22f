// One message of the protocol compiler: its text and its kind.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::CompileError : public MetaDataManagerBase {
    QOR_RECORD(CompileError)
    std::string Value;
    CompilerErrorType ErrorType{};
};
