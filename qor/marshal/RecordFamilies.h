// The four family bases. Each marks the namespace its records stand in and
// adds nothing to XMLMarshallableObject: no field, no behaviour.
#pragma once

#include "qor/marshal/XMLMarshallableObject.h"

namespace ObjectInstanceXMLMarshaller {
// Base of Range, Parameter, AsyncParameter and the ObjectInstance records.
class ObjectDatabaseXMLMarshallableObject : public XMLMarshaller::XMLMarshallableObject {};
}  // namespace ObjectInstanceXMLMarshaller

namespace HooksPluginXMLMarshaller {
// Base of the hook event records and their answers.
class HooksPluginXMLMarshallableObject : public XMLMarshaller::XMLMarshallableObject {};
}  // namespace HooksPluginXMLMarshaller

// Base of the device metadata records. It stands in the global namespace,
// because MetaDataManager, which encloses those records, is a class.
class MetaDataManagerBase : public XMLMarshaller::XMLMarshallableObject {};

namespace PipetteXMLMarshaller {
// Base of the pipetting records.
class PipetteXMLMarshallerBase : public XMLMarshaller::XMLMarshallableObject {};
}  // namespace PipetteXMLMarshaller
