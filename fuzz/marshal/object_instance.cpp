// Builds an ObjectInstance from arbitrary text and works its parameters: a
// built instance must write a document that reads back to an equal one.
// (Every record type by name: see records.cpp.)
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qor/marshal.h"
#include "qor/xml.h"

using ObjectInstanceXMLMarshaller::ObjectInstance;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    try {
        const ObjectInstance instance(text);
        const ObjectInstance again(instance.ToXMLString());
        if (!(again == instance)) std::abort();

        // The parameters as typed values, and as a record's property bag.
        for (const auto &category : instance.BaseObjectDescription.Categories) {
            long number = 0;
            double real = 0;
            bool flag = false;
            for (const auto &parameter : category.Parameters) {
                ObjectInstanceXMLMarshaller::Parameter::GetParameterInt(category.Parameters, parameter.Name, number);
                ObjectInstanceXMLMarshaller::Parameter::GetParameterFloat(category.Parameters, parameter.Name, real);
                ObjectInstanceXMLMarshaller::Parameter::GetParameterBool(category.Parameters, parameter.Name, flag);
            }
        }
        ObjectInstanceXMLMarshaller::Parameter parameter;
        parameter.FromObjectInstance(instance);
        std::vector<ObjectInstanceXMLMarshaller::ChangeRecord> changes;
        // Not free of changes even between equal instances: a name that
        // stands twice in a category meets its first namesake.
        ObjectInstance::CopyParameters(again, instance, changes);
    } catch (const XMLParserException &) {
        return 0;  // not a document: no record is built
    }
    return 0;
}
