// The record types of the ObjectInstanceXMLMarshaller family, for the
// registry of records.
#include "qor/marshal/AsyncParameter.h"
#include "qor/marshal/ObjectInstance.h"
#include "qor/marshal/RecordType.h"

namespace ObjectInstanceXMLMarshaller {

std::span<const qor::RecordType> RecordTypes() {
    static constexpr const char family[] = "ObjectInstanceXMLMarshaller";
    static constexpr qor::RecordType types[] = {
        qor::RecordTypeOf<Range>(family),
        qor::RecordTypeOf<Parameter>(family),
        qor::RecordTypeOf<AsyncParameter>(family),
        qor::RecordTypeOf<ObjectParameterCategory>(family),
        qor::RecordTypeOf<ObjectDescription>(family),
        qor::RecordTypeOf<BaseObjectDescription>(family),
        qor::RecordTypeOf<ModuleObjectDescription>(family),
        qor::RecordTypeOf<ObjectInstance>(family),
    };
    return types;
}

}  // namespace ObjectInstanceXMLMarshaller
