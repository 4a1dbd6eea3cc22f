// One line per hook record: a record that is not listed here cannot be
// built by name (qor record show, transports).
#include "qor/records/hooks/HooksRecordTypes.h"

#include "qor/records/hooks.h"

namespace HooksPluginXMLMarshaller {

std::span<const qor::RecordType> RecordTypes() {
    static constexpr const char family[] = "HooksPluginXMLMarshaller";
    static constexpr qor::RecordType types[] = {
        qor::RecordTypeOf<ProtocolPaused>(family),
    };
    return types;
}

}  // namespace HooksPluginXMLMarshaller
