#include "qor/records/metadata/DeviceLocationTeachpoints.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, DeviceLocationTeachpoints,
    list("DeviceLocationTeachpoints", &DeviceLocationTeachpoints::DeviceLocationTeachpoints_))
