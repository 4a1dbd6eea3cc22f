// A list of measurement types as a document of its own.
#pragma once

#include <vector>

#include "qor/records/metadata/MeasurementType.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::MeasurementTypeVector : public MetaDataManagerBase {
    QOR_RECORD(MeasurementTypeVector)
    std::vector<MeasurementType> MeasurementTypes;
};
