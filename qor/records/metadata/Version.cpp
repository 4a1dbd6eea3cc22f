#include "qor/records/metadata/Version.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Version,
    attribute("Name", &Version::Name),
    attribute("Date", &Version::Date),
    attribute("Author", &Version::Author),
    attribute("Version", &Version::Version_),
    attribute("Company", &Version::Company))
