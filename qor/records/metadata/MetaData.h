// A device's whole description, one document: the device, the file's
// change history, and the commands it offers. The scheduler and the
// protocol editor work from this alone.
#pragma once

#include <string>
#include <vector>

#include "qor/records/metadata/Command.h"
#include "qor/records/metadata/Device.h"
#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/Version.h"

class MetaDataManager::MetaData : public MetaDataManagerBase {
    QOR_RECORD(MetaData)
    // As a property bag a description shows the single Parameter "Version"
    // with the format's version "1.0", whatever this field holds, and reading
    // a bag back leaves the field alone.
    std::string Version;
    MetaDataManager::Device Device;
    std::vector<MetaDataManager::Version> Versions;
    std::vector<Command> Commands;
};
