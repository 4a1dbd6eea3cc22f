#include "qor/records/metadata/Layout.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Layout,
    attribute("Name", &Layout::Name),
    attribute("Labware", &Layout::Labware))
