#include "qor/records/metadata/MetaData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_FRAME_IN(MetaDataManager::, MetaData,
    attribute("Version", &MetaData::Version),
    child("Device", &MetaData::Device),
    list("Versions", &MetaData::Versions),
    list("Commands", &MetaData::Commands))

void MetaDataManager::MetaData::ToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance) const {
    instance = ObjectInstanceXMLMarshaller::ObjectInstance();
    qor::record::ShowParameter(instance, "Version", "", ObjectInstanceXMLMarshaller::PARAMETER_TYPE_STRING, "1.0");
}

void MetaDataManager::MetaData::FromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &) {}
