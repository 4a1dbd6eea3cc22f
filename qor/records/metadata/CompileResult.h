// Every message of one compile of a protocol.
#pragma once

#include <string>
#include <vector>

#include "qor/records/metadata/CompileError.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::CompileResult : public MetaDataManagerBase {
    QOR_RECORD(CompileResult)
    std::vector<CompileError> CompilerErrors;

    // Appends a CompileError of that text and kind.
    void AddError(const std::string &text, CompilerErrorType type);
};
