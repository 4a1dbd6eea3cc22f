// The names of the protocol compiler's built-in parameters. Not a record:
// only the constants.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

struct MetaDataManager::CompileLabels {
    static constexpr char NumberOfLoops[] = "Number of times to loop";
    static constexpr char Protocol[] = "Protocol";
    static constexpr char Device[] = "Device";
};
