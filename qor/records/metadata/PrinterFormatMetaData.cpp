#include "qor/records/metadata/PrinterFormatMetaData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, PrinterFormatMetaData,
    attribute("Name", &PrinterFormatMetaData::Name),
    attribute("Side", &PrinterFormatMetaData::Side),
    list("PrinterFieldMetaData", &PrinterFormatMetaData::PrinterFieldMetaData))
