#include "qor/records/metadata/PrinterMetaData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, PrinterMetaData,
    list("PrinterFormatMetaData", &PrinterMetaData::PrinterFormatMetaData))
