// The parts of the record code that don't depend on a record's type, kept
// out of line so that every record shares them: every step of the frame,
// driven by a record's layout.
#include "qor/marshal/RecordDefinition.h"

#include <charconv>

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

namespace {

using ObjectInstanceXMLMarshaller::ObjectInstance;
using ObjectInstanceXMLMarshaller::Parameter;

const void *At(const void *record, std::ptrdiff_t offset) { return static_cast<const char *>(record) + offset; }
void *At(void *record, std::ptrdiff_t offset) { return static_cast<char *>(record) + offset; }

bool IsShown(const FieldEntry &field) { return field.options.parameter && field.ops->parameterType >= 0; }

const char *ParameterName(const FieldEntry &field) {
    return field.options.parameterName ? field.options.parameterName : field.key;
}

// ToObjectInstance: appends a Parameter to the category "Properties",
// adding the category at the end when it isn't there.
void ShowParameter(ObjectInstance &instance, const char *name, const char *description, int type,
                   std::string value) {
    using ObjectInstanceXMLMarshaller::ObjectParameterCategory;
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
    parameter.Type = static_cast<ObjectInstanceXMLMarshaller::ParameterType>(type);
    parameter.Value = std::move(value);
}

// FromObjectInstance: the parameters to read from, those of the first
// category with an empty name, else of the first category; null when the
// instance has no category.
const std::vector<Parameter> *ParametersToRead(const ObjectInstance &instance) {
    const auto &categories = instance.BaseObjectDescription.Categories;
    if (categories.empty()) return nullptr;
    for (const auto &category : categories) {
        if (category.Name.empty()) return &category.Parameters;
    }
    return &categories.front().Parameters;
}

}  // namespace

void WriteRecord(XMLNode &node, const Layout &layout, const void *record) {
    node.name = layout.elementName;
    if (layout.base) {
        // The base's fields come first, written by the base under its own name.
        layout.base->write(node, record);
        node.name = layout.elementName;
    }
    for (const FieldEntry &field : layout.fields) {
        field.ops->write(node, field.key, field.options, At(record, field.offset));
    }
}

void ReadRecord(void *record, const XMLNode &node, const Layout &layout) {
    if (layout.base) layout.base->read(record, node);
    for (const FieldEntry &field : layout.fields) {
        field.ops->read(At(record, field.offset), node, field.key, field.options);
    }
}

void ShowRecord(const void *record, ObjectInstance &instance, const Layout &layout) {
    if (layout.base) {
        layout.base->show(record, instance);  // starts the instance afresh itself
    } else {
        instance = ObjectInstance();
    }
    for (const FieldEntry &field : layout.fields) {
        if (!IsShown(field)) continue;
        const int type = field.options.parameterType >= 0 ? field.options.parameterType : field.ops->parameterType;
        ShowParameter(instance, ParameterName(field), field.options.description, type,
                      field.options.shownValue ? std::string(field.options.shownValue)
                                               : field.ops->text(At(record, field.offset)));
    }
}

void ReadBackRecord(void *record, const ObjectInstance &instance, const Layout &layout) {
    if (layout.base) layout.base->readBack(record, instance);
    for (const FieldEntry &field : layout.fields) {
        if (!IsShown(field) || !field.options.readBack) continue;
        const auto *parameters = ParametersToRead(instance);
        if (!parameters) return;
        field.ops->readBack(At(record, field.offset), *parameters, ParameterName(field));
    }
}

bool EqualRecords(const void *a, const void *b, const Layout &layout) {
    if (layout.base && !layout.base->equal(a, b)) return false;
    for (const FieldEntry &field : layout.fields) {
        if (field.options.compared && !field.ops->equal(At(a, field.offset), At(b, field.offset))) return false;
    }
    return true;
}

void DescribeRecord(RecordDescription &description, const Layout &layout, const void *defaults) {
    description.elementName = layout.elementName;
    description.fileType = layout.fileType;
    if (layout.base) {
        const RecordDescription &base = layout.base->describe();
        description.baseName = base.elementName;
        description.fields = base.fields;
    }
    for (const FieldEntry &entry : layout.fields) {
        // Only attributes become Parameters; lists and child records never do.
        const bool shown = IsShown(entry);
        FieldDescription &field = description.fields.emplace_back();
        field.key = entry.key;
        field.kind = entry.kind;
        field.valueType = entry.ops->valueType;
        field.memberType = entry.ops->memberType();
        field.defaultValue = entry.ops->defaultText(At(defaults, entry.offset));
        field.parameterName = shown ? ParameterName(entry) : nullptr;
        field.parameterType =
            shown ? (entry.options.parameterType >= 0 ? entry.options.parameterType : entry.ops->parameterType) : -1;
        field.parameterDescription = shown ? entry.options.description : "";
        field.shownValue = shown ? entry.options.shownValue : nullptr;
        field.readBack = shown && entry.options.readBack;
        field.compared = entry.options.compared;
        field.wrapperAlways = entry.options.wrapperAlways;
        field.readAsLong = entry.options.readAsLong || entry.kind == Kind::EnumAttribute;
        field.item = entry.ops->item;
    }
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
