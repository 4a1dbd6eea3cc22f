// The parts of the record code that don't depend on a record's type, kept
// out of line so that every record shares them.
#include "qor/marshal/RecordDefinition.h"

namespace qor::record {

std::string AttributeText(bool value) { return value ? "1" : "0"; }

std::string AttributeText(long long value) { return convert::SignedToText(value); }

std::string AttributeText(unsigned long long value) { return convert::UnsignedToText(value); }

std::string AttributeText(double value) {
    // A default output stream: six significant digits, the shorter of the
    // fixed and exponent forms, no trailing zeros (0.5, 1000, 1e+06).
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 6);
    return std::string(buffer, result.ptr);
}

void AppendValueItem(XMLNode &wrapper, std::string text) {
    XMLNode &item = wrapper.children.emplace_back();
    item.name = "Value";
    item.attributes.emplace("Value", std::move(text));
}

const std::string &ValueOfItem(const XMLNode &item) {
    static const std::string none;
    const auto found = item.attributes.find("Value");
    return found == item.attributes.end() ? none : found->second;
}

void ShowParameter(ObjectInstanceXMLMarshaller::ObjectInstance &instance, const char *name,
                   const char *description, int type, std::string value) {
    using namespace ObjectInstanceXMLMarshaller;
    static const std::string properties = "Properties";
    auto &categories = instance.BaseObjectDescription.Categories;
    ObjectParameterCategory *category = nullptr;
    for (ObjectParameterCategory &candidate : categories) {
        if (candidate.Name == properties) {
            category = &candidate;
            break;
        }
    }
    if (!category) {
        category = &categories.emplace_back();
        category->Name = properties;
    }
    Parameter &parameter = category->Parameters.emplace_back();
    parameter.Name = name;
    parameter.Description = description;
    parameter.Type = static_cast<ParameterType>(type);
    parameter.Value = std::move(value);
}

const std::vector<ObjectInstanceXMLMarshaller::Parameter> *ParametersToRead(
    const ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
    const auto &categories = instance.BaseObjectDescription.Categories;
    if (categories.empty()) return nullptr;
    for (const auto &category : categories) {
        if (category.Name.empty()) return &category.Parameters;
    }
    return &categories.front().Parameters;
}

void ReadDocument(const std::string &xml, void (*fill)(void *record, const XMLNode &node), void *record) {
    XMLReader reader;
    reader.ReadFromBuffer(xml, false);
    // A root without a child holds no record: the defaults stay.
    if (!reader.children.empty()) fill(record, reader.children.front());
}

std::string WriteDocument(const char *fileType, void (*fill)(XMLNode &node, const void *record),
                          const void *record) {
    XMLWriter writer(fileType, "1.0", true);
    fill(writer.children.emplace_back(), record);
    std::string out;
    writer.WriteToBuffer(out);
    return out;
}

std::string ShortTypeName(std::string_view prettyFunction) {
    // "... [with T = MetaDataManager::EditorType; ...]" (g++) or "... [T = ...]" (clang):
    // the type's name without its namespace or enclosing class.
    const std::size_t start = prettyFunction.find("T = ");
    if (start == std::string_view::npos) return std::string(prettyFunction);
    std::string_view name = prettyFunction.substr(start + 4);
    name = name.substr(0, name.find_first_of(";]"));
    const std::size_t scope = name.rfind("::");
    if (scope != std::string_view::npos) name.remove_prefix(scope + 2);
    return std::string(name);
}

void AddField(RecordDescription &description, const char *key, Kind kind, ValueType valueType,
              std::string memberType, std::string defaultValue, const FieldOptions &options,
              int parameterType, const RecordDescription &(*item)()) {
    // Only attributes become Parameters; lists and child records never do.
    const bool shown = options.parameter && parameterType >= 0;
    FieldDescription &field = description.fields.emplace_back();
    field.key = key;
    field.kind = kind;
    field.valueType = valueType;
    field.memberType = std::move(memberType);
    field.defaultValue = std::move(defaultValue);
    field.parameterName = shown ? (options.parameterName ? options.parameterName : key) : nullptr;
    field.parameterType = shown ? (options.parameterType >= 0 ? options.parameterType : parameterType) : -1;
    field.parameterDescription = shown ? options.description : "";
    field.shownValue = shown ? options.shownValue : nullptr;
    field.readBack = shown && options.readBack;
    field.compared = options.compared;
    field.wrapperAlways = options.wrapperAlways;
    field.readAsLong = options.readAsLong || kind == Kind::EnumAttribute;
    field.item = item;
}

std::string ListDefaultText(std::size_t items) {
    return items == 0 ? std::string() : std::to_string(items) + (items == 1 ? " item" : " items");
}

}  // namespace qor::record

namespace qor {

const char *FieldKindName(FieldKind kind) {
    static constexpr const char *names[] = {
        "string attribute", "number attribute", "enum attribute", "string list", "record list", "child record",
    };
    return names[static_cast<int>(kind)];
}

}  // namespace qor
