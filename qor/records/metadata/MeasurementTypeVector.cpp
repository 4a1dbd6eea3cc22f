#include "qor/records/metadata/MeasurementTypeVector.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, MeasurementTypeVector,
    list("MeasurementTypes", &MeasurementTypeVector::MeasurementTypes))
