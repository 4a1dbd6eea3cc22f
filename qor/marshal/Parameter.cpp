#include "qor/marshal/Parameter.h"

#include "qor/marshal/ParameterListOperations.h"
#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(Parameter,
    attribute("Name", &Parameter::Name),
    attribute("Description", &Parameter::Description),
    attribute("Type", &Parameter::Type),
    attribute("Style", &Parameter::Style),
    attribute("Units", &Parameter::Units),
    attribute("Value", &Parameter::Value),
    attribute("ValueToDisplay", &Parameter::ValueToDisplay).as("Value to display"),
    attribute("Script", &Parameter::Script),
    attribute("Category", &Parameter::Category),
    attribute("Hide_if", &Parameter::Hide_if).notCompared(),
    attribute("Scriptable", &Parameter::Scriptable).notCompared(),
    list("Ranges", &Parameter::Ranges),
    list("AllowedLabwareClasses", &Parameter::AllowedLabwareClasses).notCompared())

QOR_DEFINE_PARAMETER_OPERATIONS_(Parameter, AddParameter, GetParameter, SetParameter)
QOR_INSTANTIATE_PARAMETER_TEMPLATE_SET_(Parameter, AddParameter, GetParameter, SetParameter)

}  // namespace ObjectInstanceXMLMarshaller
