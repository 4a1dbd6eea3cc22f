#include "qor/records/metadata/LayoutVector.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, LayoutVector,
    list("Layouts", &LayoutVector::Layouts))
