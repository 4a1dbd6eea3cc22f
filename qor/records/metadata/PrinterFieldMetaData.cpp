#include "qor/records/metadata/PrinterFieldMetaData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, PrinterFieldMetaData,
    attribute("Name", &PrinterFieldMetaData::Name),
    attribute("Value", &PrinterFieldMetaData::Value))
