// One line per pipetting record: a record that is not listed here cannot be
// built by name (qor record show, qor plate show, transports).
#include "qor/records/pipette/PipetteRecordTypes.h"

namespace PipetteXMLMarshaller {

std::span<const qor::RecordType> RecordTypes() { return {}; }

}  // namespace PipetteXMLMarshaller
