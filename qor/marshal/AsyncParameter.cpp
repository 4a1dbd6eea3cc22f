#include "qor/marshal/AsyncParameter.h"

#include "qor/marshal/ParameterListOperations.h"
#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(AsyncParameter,
    attribute("Name", &AsyncParameter::Name),
    attribute("Description", &AsyncParameter::Description),
    attribute("Type", &AsyncParameter::Type),
    attribute("Style", &AsyncParameter::Style),
    attribute("Units", &AsyncParameter::Units),
    attribute("Value", &AsyncParameter::Value),
    attribute("ValueToDisplay", &AsyncParameter::ValueToDisplay).as("Value to display"),
    attribute("Script", &AsyncParameter::Script),
    attribute("Category", &AsyncParameter::Category),
    attribute("Hide_if", &AsyncParameter::Hide_if).notCompared(),
    list("Ranges", &AsyncParameter::Ranges),
    list("AllowedLabwareClasses", &AsyncParameter::AllowedLabwareClasses).notCompared())

QOR_DEFINE_PARAMETER_OPERATIONS_(AsyncParameter, AddAsyncParameter, GetAsyncParameter, SetAsyncParameter)
QOR_INSTANTIATE_PARAMETER_TEMPLATE_SET_(AsyncParameter, AddAsyncParameter, GetAsyncParameter,
                                        SetAsyncParameter)

}  // namespace ObjectInstanceXMLMarshaller
