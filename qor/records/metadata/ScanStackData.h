// What a scan of a stack found: its height bound, whether a plate is there,
// and why the scan answers so.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::ScanStackData : public MetaDataManagerBase {
    QOR_RECORD(ScanStackData)
    std::string Location;
    double MaxHeight = 0.0;
    bool LocationHasPlate = false;
    std::string Reason;
};
