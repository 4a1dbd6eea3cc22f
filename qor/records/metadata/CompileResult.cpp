#include "qor/records/metadata/CompileResult.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, CompileResult,
    list("CompilerErrors", &CompileResult::CompilerErrors))

void MetaDataManager::CompileResult::AddError(const std::string &text, CompilerErrorType type) {
    CompileError &error = CompilerErrors.emplace_back();
    error.Value = text;
    error.ErrorType = type;
}
