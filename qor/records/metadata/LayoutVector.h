// A list of layouts as a document of its own.
#pragma once

#include <vector>

#include "qor/records/metadata/Layout.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::LayoutVector : public MetaDataManagerBase {
    QOR_RECORD(LayoutVector)
    std::vector<Layout> Layouts;
};
