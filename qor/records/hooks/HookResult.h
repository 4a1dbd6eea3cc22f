// One request of a plug-in: ResultType selects the action (one of the
// constants below) and ResultValue carries its text.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class HookResult : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(HookResult)
    std::string ResultType = NotSpecified;
    std::string ResultValue = NotSpecified;

    // The result types a plug-in may request. The name of `file` says nothing
    // of its text; clients know the pair as it stands.
    static constexpr const char LogMessage[] = "Log Message";
    static constexpr const char LogError[] = "Log Error";
    static constexpr const char PauseExecution[] = "Pause Execution";
    static constexpr const char PauseMessage[] = "Pause Message";
    static constexpr const char AbortExecution[] = "Abort Execution";
    static constexpr const char AbortMessage[] = "Abort Message";
    static constexpr const char file[] = "Handles inventory Filtering";
};

}  // namespace HooksPluginXMLMarshaller
