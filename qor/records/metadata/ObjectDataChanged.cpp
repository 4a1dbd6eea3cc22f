#include "qor/records/metadata/ObjectDataChanged.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, ObjectDataChanged,
    attribute("Message", &ObjectDataChanged::Message),
    attribute("ObjectType", &ObjectDataChanged::ObjectType).as("Object type"),
    attribute("ObjectName", &ObjectDataChanged::ObjectName).as("Object name"),
    attribute("PropertyName", &ObjectDataChanged::PropertyName).as("Property name"),
    attribute("OldValue", &ObjectDataChanged::OldValue).as("Old value"),
    attribute("NewValue", &ObjectDataChanged::NewValue).as("New value"))
