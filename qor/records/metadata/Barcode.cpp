#include "qor/records/metadata/Barcode.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Barcode,
    attribute("Barcode", &Barcode::Barcode_))
