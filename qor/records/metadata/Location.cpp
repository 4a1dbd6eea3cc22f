#include "qor/records/metadata/Location.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Location,
    attribute("Name", &Location::Name),
    enumAttribute("Type", &Location::Type),
    enumAttribute("Group", &Location::Group),
    attribute("Offset", &Location::Offset),
    attribute("MaxStackHeight", &Location::MaxStackHeight))
