#include "qor/records/metadata/ScanStackData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, ScanStackData,
    attribute("Location", &ScanStackData::Location),
    attribute("MaxHeight", &ScanStackData::MaxHeight),
    attribute("LocationHasPlate", &ScanStackData::LocationHasPlate),
    attribute("Reason", &ScanStackData::Reason))
