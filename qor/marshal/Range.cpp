#include "qor/marshal/Range.h"

#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(Range,
    attribute("Value", &Range::Value),
    attribute("ValueToDisplay", &Range::ValueToDisplay).as("Value to display"))

}  // namespace ObjectInstanceXMLMarshaller
