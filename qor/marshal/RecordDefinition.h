// Defining a record: its field table, and the generic code that gives the
// record every member QOR_RECORD declared. Include this in the record's own
// source only, so the generic code is instantiated there and nowhere else.
//
//   namespace HooksPluginXMLMarshaller {
//   QOR_DEFINE_RECORD(ProtocolPaused,
//       attribute("Path", &ProtocolPaused::Path),
//       attribute("PauseType", &ProtocolPaused::PauseType))
//   }
//
// The macro stands in the record's namespace. A record nested in a class is
// defined at namespace scope with QOR_DEFINE_RECORD_IN(Enclosing::, Name, ...).
//
// Table entries, in the order of writing, reading and of the Parameters:
//
//   attribute(key, &R::M)      string attribute for a std::string (left out
//                              when empty), number attribute for a number,
//                              bool or enumeration (always written; six
//                              significant digits for a double)
//   enumAttribute(key, &R::M)  written as the integer, read back by the plain
//                              text-to-long conversion
//   list(key, &R::M)           a wrapper element named key: a string or
//                              number list holds <Value Value='...' /> items,
//                              a record list holds each item's own element;
//                              left out when empty
//   child(key, &R::M)          a child record, always written, read from the
//                              last child element of the child's class name
//                              (the key must be that name: checked at compile time)
//   base<B>()                  first entry (checked) of a record derived from B:
//                              B's fields come first, under this record's name
//   fileType("Query")          the document's file type (default "MetaData")
//   SomeShapeTable()           a tuple of entries that several records share:
//                              its entries stand here in its order (records of
//                              one shape derive from a plain struct that holds
//                              the fields, and the shape's table names those)
//
// and the few departures some records need, chained on an entry:
//
//   .as("Display name")        the Parameter name (default: the key)
//   .noParameter()             no Parameter in ToObjectInstance
//   .parameterType(T)          a Parameter type of its own
//   .describedAs("text")       a Parameter description of its own
//   .shownOnly()               shown by ToObjectInstance, never read back
//   .notCompared()             left out of operator==
//   .wrapperAlways()           a list whose wrapper is written even when empty
//   .readAsLong()              a number read with the enumeration conversion
//   .shownAs("1.0")            the Parameter shows this constant in place of
//                              the field's value, and is never read back
//
// Attributes are Parameters of the category "Properties" unless marked;
// lists and child records are not. A record whose ObjectInstance needs
// hand-written code uses QOR_DEFINE_RECORD_FRAME and writes ToObjectInstance
// and FromObjectInstance itself (qor::record::Code<R> offers the generic ones).
//
// Each record's description (R::GetRecordDescription(), qor/marshal/RecordDescription.h)
// is made from the same table, so tools and tests see exactly what the record does.
#pragma once

#include <charconv>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "qor/marshal/Convert.h"
#include "qor/marshal/ObjectInstance.h"
#include "qor/marshal/Parameter.h"
#include "qor/marshal/Record.h"
#include "qor/marshal/RecordDescription.h"
#include "qor/xml/XMLReader.h"
#include "qor/xml/XMLWriter.h"

namespace qor::record {

using XMLNode = XMLParser::XMLNode;

using Kind = qor::FieldKind;

template <class T>
inline constexpr bool IsRecord = std::is_base_of_v<XMLMarshaller::XMLMarshallableObject, T>;
template <class T>
inline constexpr bool IsNumber = std::is_arithmetic_v<T> || std::is_enum_v<T>;
template <class T>
inline constexpr bool IsTuple = false;
template <class... T>
inline constexpr bool IsTuple<std::tuple<T...>> = true;

// How a field departs from the rules of its kind.
struct FieldOptions {
    const char *parameterName = nullptr;  // nullptr: the XML key
    const char *description = "";
    const char *shownValue = nullptr;     // a constant shown in place of the value
    int parameterType = -1;               // -1: from the member's type
    bool parameter = true;                // shown by ToObjectInstance
    bool readBack = true;                 // read by FromObjectInstance
    bool compared = true;                 // counts in operator==
    bool wrapperAlways = false;           // lists: wrapper even when empty
    bool readAsLong = false;              // numbers: enumeration conversion
};

template <class R, class T, Kind K>
struct Field {
    using Record = R;
    using Type = T;
    static constexpr Kind kind = K;

    const char *key;
    T R::*member;
    FieldOptions options;

    constexpr Field as(const char *name) const { return With([&](FieldOptions &o) { o.parameterName = name; }); }
    constexpr Field noParameter() const { return With([](FieldOptions &o) { o.parameter = false; }); }
    constexpr Field parameterType(int type) const { return With([&](FieldOptions &o) { o.parameterType = type; }); }
    constexpr Field describedAs(const char *text) const { return With([&](FieldOptions &o) { o.description = text; }); }
    constexpr Field shownOnly() const { return With([](FieldOptions &o) { o.readBack = false; }); }
    constexpr Field shownAs(const char *constant) const {
        return With([&](FieldOptions &o) {
            o.shownValue = constant;
            o.readBack = false;
        });
    }
    constexpr Field notCompared() const { return With([](FieldOptions &o) { o.compared = false; }); }
    constexpr Field wrapperAlways() const {
        static_assert(K == Kind::ValueList || K == Kind::RecordList, "wrapperAlways: lists only");
        return With([](FieldOptions &o) { o.wrapperAlways = true; });
    }
    constexpr Field readAsLong() const {
        static_assert(K == Kind::NumberAttribute, "readAsLong: number attributes only");
        return With([](FieldOptions &o) { o.readAsLong = true; });
    }

    constexpr const char *ParameterName() const { return options.parameterName ? options.parameterName : key; }

private:
    template <class F>
    constexpr Field With(F change) const {
        Field copy = *this;
        change(copy.options);
        return copy;
    }
};

template <class B>
struct BaseFields {
    using Base = B;
};

struct FileType {
    const char *name;
};

namespace dsl {

template <class R, class T>
constexpr auto attribute(const char *key, T R::*member) {
    if constexpr (std::is_same_v<T, std::string>) {
        return Field<R, T, Kind::StringAttribute>{key, member, {}};
    } else {
        static_assert(IsNumber<T>, "attribute: a string, number, bool or enumeration member");
        return Field<R, T, Kind::NumberAttribute>{key, member, {}};
    }
}

template <class R, class T>
constexpr auto enumAttribute(const char *key, T R::*member) {
    static_assert(std::is_enum_v<T> || std::is_integral_v<T>, "enumAttribute: an enumeration member");
    return Field<R, T, Kind::EnumAttribute>{key, member, {}};
}

template <class R, class T, class A>
constexpr auto list(const char *key, std::vector<T, A> R::*member) {
    FieldOptions options;
    options.parameter = false;
    if constexpr (IsRecord<T>) {
        return Field<R, std::vector<T, A>, Kind::RecordList>{key, member, options};
    } else {
        static_assert(std::is_same_v<T, std::string> || IsNumber<T>, "list: of records, strings or numbers");
        return Field<R, std::vector<T, A>, Kind::ValueList>{key, member, options};
    }
}

template <class R, class T>
constexpr auto child(const char *key, T R::*member) {
    static_assert(IsRecord<T>, "child: a record member");
    FieldOptions options;
    options.parameter = false;
    return Field<R, T, Kind::ChildRecord>{key, member, options};
}

template <class B>
constexpr BaseFields<B> base() {
    static_assert(IsRecord<B>, "base: a record class");
    return {};
}

constexpr FileType fileType(const char *name) { return FileType{name}; }

}  // namespace dsl

// ---- the non-template helpers every record shares (RecordDefinition.cpp)

// Text of a number in an attribute: what a default output stream writes.
std::string AttributeText(bool value);
std::string AttributeText(long long value);
std::string AttributeText(unsigned long long value);
std::string AttributeText(double value);

// <Value Value='text' /> appended to wrapper.
void AppendValueItem(XMLNode &wrapper, std::string text);
// The attribute Value of an item, or "" when it has none.
const std::string &ValueOfItem(const XMLNode &item);

// ToObjectInstance: appends a Parameter to the category "Properties",
// adding the category at the end when it isn't there.
void ShowParameter(ObjectInstanceXMLMarshaller::ObjectInstance &instance, const char *name,
                   const char *description, int type, std::string value);
// FromObjectInstance: the parameters to read from, those of the first
// category with an empty name, else of the first category; null when the
// instance has no category.
const std::vector<ObjectInstanceXMLMarshaller::Parameter> *ParametersToRead(
    const ObjectInstanceXMLMarshaller::ObjectInstance &instance);

// Reads a document and hands its root's first child to fill; a root with no
// child leaves the record as it is. Throws what XMLReader throws.
void ReadDocument(const std::string &xml, void (*fill)(void *record, const XMLNode &node), void *record);
// Writes a document of fileType holding one child filled by fill.
std::string WriteDocument(const char *fileType, void (*fill)(XMLNode &node, const void *record),
                          const void *record);

template <class T>
std::string NumberAttributeText(const T &value) {
    if constexpr (std::is_same_v<T, bool>) return AttributeText(value);
    else if constexpr (std::is_enum_v<T>) return AttributeText(static_cast<long long>(value));
    else if constexpr (std::is_floating_point_v<T>) return AttributeText(static_cast<double>(value));
    else if constexpr (std::is_signed_v<T>) return AttributeText(static_cast<long long>(value));
    else return AttributeText(static_cast<unsigned long long>(value));
}

template <class T>
constexpr int ParameterTypeOf() {
    using namespace ObjectInstanceXMLMarshaller;
    if constexpr (std::is_same_v<T, std::string>) return PARAMETER_TYPE_STRING;
    else if constexpr (std::is_same_v<T, bool>) return PARAMETER_TYPE_BOOL;
    else if constexpr (std::is_floating_point_v<T>) return PARAMETER_TYPE_FLOAT;
    else return PARAMETER_TYPE_INTEGER;  // integers and enumerations
}

// ---- one step per kind of field

template <class R, class F>
void WriteField(XMLNode &node, const R &record, const F &field) {
    constexpr Kind kind = F::kind;
    const auto &value = record.*field.member;
    if constexpr (kind == Kind::StringAttribute) {
        if (!value.empty()) node.attributes.insert_or_assign(field.key, value);
    } else if constexpr (kind == Kind::NumberAttribute) {
        node.attributes.insert_or_assign(field.key, NumberAttributeText(value));
    } else if constexpr (kind == Kind::EnumAttribute) {
        node.attributes.insert_or_assign(field.key, AttributeText(static_cast<long long>(value)));
    } else if constexpr (kind == Kind::ValueList || kind == Kind::RecordList) {
        if (value.empty() && !field.options.wrapperAlways) return;
        XMLNode &wrapper = node.children.emplace_back();
        wrapper.name = field.key;
        for (const auto &item : value) {
            if constexpr (kind == Kind::RecordList) {
                using Item = typename F::Type::value_type;
                Item::CreateXMLNode(wrapper.children.emplace_back(), item);
            } else {
                AppendValueItem(wrapper, Convert<std::string>(item));
            }
        }
    } else {
        using Child = typename F::Type;
        Child::CreateXMLNode(node.children.emplace_back(), value);
    }
}

template <class R, class B>
void WriteField(XMLNode &node, const R &record, BaseFields<B>) {
    B::CreateXMLNode(node, static_cast<const B &>(record));
    node.name = R::ElementName;
}

template <class R>
void WriteField(XMLNode &, const R &, FileType) {}

template <class R, class F>
void ReadField(R &record, const XMLNode &node, const F &field) {
    constexpr Kind kind = F::kind;
    using T = typename F::Type;
    auto &value = record.*field.member;
    if constexpr (kind == Kind::StringAttribute) {
        __xml_marshaller_get_attribute__(node, field.key, value);
    } else if constexpr (kind == Kind::NumberAttribute || kind == Kind::EnumAttribute) {
        const auto found = node.attributes.find(field.key);
        if (found == node.attributes.end()) return;
        if (kind == Kind::EnumAttribute || field.options.readAsLong) {
            value = static_cast<T>(convert::TextToLong(found->second));
        } else {
            value = Convert<T>(found->second);
        }
    } else if constexpr (kind == Kind::ValueList || kind == Kind::RecordList) {
        using Item = typename T::value_type;
        for (const XMLNode &wrapper : node.children) {
            if (wrapper.name != field.key) continue;
            for (const XMLNode &item : wrapper.children) {
                if constexpr (kind == Kind::RecordList) {
                    value.emplace_back(item);
                } else {
                    value.push_back(Convert<Item>(ValueOfItem(item)));
                }
            }
        }
    } else {
        for (const XMLNode &child : node.children) {
            if (child.name == T::ElementName) value = T(child);
        }
    }
}

template <class R, class B>
void ReadField(R &record, const XMLNode &node, BaseFields<B>) {
    B::CreateXMLMarshaller(record, node);
}

template <class R>
void ReadField(R &, const XMLNode &, FileType) {}

template <class R, class F>
void ShowField(const R &record, ObjectInstanceXMLMarshaller::ObjectInstance &instance, const F &field) {
    if constexpr (F::kind != Kind::ValueList && F::kind != Kind::RecordList && F::kind != Kind::ChildRecord) {
        if (!field.options.parameter) return;
        using T = typename F::Type;
        const int type = field.options.parameterType >= 0 ? field.options.parameterType : ParameterTypeOf<T>();
        ShowParameter(instance, field.ParameterName(), field.options.description, type,
                      field.options.shownValue ? std::string(field.options.shownValue)
                                               : Convert<std::string>(record.*field.member));
    }
}

template <class R, class B>
void ShowField(const R &record, ObjectInstanceXMLMarshaller::ObjectInstance &instance, BaseFields<B>) {
    record.B::ToObjectInstance(instance);
}

template <class R>
void ShowField(const R &, ObjectInstanceXMLMarshaller::ObjectInstance &, FileType) {}

template <class R, class F>
void ReadBackField(R &record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance, const F &field) {
    if constexpr (F::kind != Kind::ValueList && F::kind != Kind::RecordList && F::kind != Kind::ChildRecord) {
        if (!field.options.parameter || !field.options.readBack) return;
        const auto *parameters = ParametersToRead(instance);
        if (!parameters) return;
        using ObjectInstanceXMLMarshaller::Parameter;
        using T = typename F::Type;
        auto &value = record.*field.member;
        const std::string name = field.ParameterName();
        if constexpr (std::is_same_v<T, std::string>) {
            Parameter::GetParameterString(*parameters, name, value);
        } else if constexpr (std::is_same_v<T, bool>) {
            Parameter::GetParameterBool(*parameters, name, value);
        } else if constexpr (std::is_floating_point_v<T>) {
            double read = 0;
            if (Parameter::GetParameterFloat(*parameters, name, read)) value = static_cast<T>(read);
        } else if constexpr (std::is_enum_v<T> || std::is_signed_v<T>) {
            long read = 0;
            if (Parameter::GetParameterInt(*parameters, name, read)) value = static_cast<T>(read);
        } else {
            unsigned long read = 0;
            if (Parameter::GetParameterInt(*parameters, name, read)) value = static_cast<T>(read);
        }
    }
}

template <class R, class B>
void ReadBackField(R &record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance, BaseFields<B>) {
    record.B::FromObjectInstance(instance);
}

template <class R>
void ReadBackField(R &, const ObjectInstanceXMLMarshaller::ObjectInstance &, FileType) {}

template <class R, class F>
bool FieldEqual(const R &a, const R &b, const F &field) {
    return !field.options.compared || a.*field.member == b.*field.member;
}

template <class R, class B>
bool FieldEqual(const R &a, const R &b, BaseFields<B>) {
    return static_cast<const B &>(a) == static_cast<const B &>(b);
}

template <class R>
bool FieldEqual(const R &, const R &, FileType) {
    return true;
}

// Table checks made while compiling: a child's key is its class's element
// name (it is found and written by that name), and a base comes first.
template <class E>
constexpr bool EntryIsWellFormed(const E &entry, std::size_t index) {
    if constexpr (requires { E::kind; }) {
        if constexpr (E::kind == Kind::ChildRecord) {
            return std::string_view(entry.key) == std::string_view(E::Type::ElementName);
        }
        return true;
    } else if constexpr (requires { typename E::Base; }) {
        return index == 0;
    } else {
        return true;
    }
}

template <class Table>
constexpr bool TableIsWellFormed(const Table &table) {
    return std::apply(
        [](const auto &...entry) {
            std::size_t index = 0;
            return (EntryIsWellFormed(entry, index++) && ... && true);
        },
        table);
}

// ---- the table as written: entries and shared shape tables, flattened

template <class E>
constexpr auto AsEntries(const E &entry) {
    if constexpr (IsTuple<E>) return entry;
    else return std::tuple<E>{entry};
}

template <class... E>
constexpr auto Table(const E &...entries) {
    return std::tuple_cat(AsEntries(entries)...);
}

// ---- the record's description, from its table

// The name, without namespace or enclosing class, of the type T in the
// __PRETTY_FUNCTION__ of PrettyFunctionOf<T> (g++ and clang spell it alike).
std::string ShortTypeName(std::string_view prettyFunction);

template <class T>
const char *PrettyFunctionOf() {
    return __PRETTY_FUNCTION__;
}

template <class T>
inline constexpr bool IsVector = false;
template <class T, class A>
inline constexpr bool IsVector<std::vector<T, A>> = true;

// A member's type as the field tables write it.
template <class T>
std::string MemberTypeName() {
    if constexpr (std::is_same_v<T, std::string>) return "string";
    else if constexpr (IsRecord<T>) return T::ElementName;
    else if constexpr (IsVector<T>) return "list of " + MemberTypeName<typename T::value_type>();
    else if constexpr (std::is_same_v<T, bool>) return "bool";
    else if constexpr (std::is_same_v<T, int>) return "int";
    else if constexpr (std::is_same_v<T, unsigned>) return "unsigned int";
    else if constexpr (std::is_same_v<T, long>) return "long";
    else if constexpr (std::is_same_v<T, unsigned long>) return "unsigned long";
    else if constexpr (std::is_same_v<T, short>) return "short";
    else if constexpr (std::is_same_v<T, unsigned short>) return "unsigned short";
    else if constexpr (std::is_same_v<T, double>) return "double";
    else if constexpr (std::is_same_v<T, float>) return "float";
    else return ShortTypeName(PrettyFunctionOf<T>());  // enumerations
}

template <class T>
constexpr ValueType ValueTypeOf() {
    if constexpr (std::is_same_v<T, std::string>) return ValueType::String;
    else if constexpr (IsRecord<T>) return ValueType::Record;
    else if constexpr (std::is_same_v<T, bool>) return ValueType::Bool;
    else if constexpr (std::is_enum_v<T>) return ValueType::Enumeration;
    else if constexpr (std::is_floating_point_v<T>) return ValueType::Real;
    else if constexpr (std::is_unsigned_v<T>) return ValueType::Unsigned;
    else return ValueType::Integer;
}

// Appends a field to a description; parameterType is the member type's own.
void AddField(RecordDescription &description, const char *key, Kind kind, ValueType valueType,
              std::string memberType, std::string defaultValue, const FieldOptions &options,
              int parameterType, const RecordDescription &(*item)());
// The default text of a list: empty, or how many items it holds.
std::string ListDefaultText(std::size_t items);

template <class R, class F>
void DescribeField(RecordDescription &description, const R &defaults, const F &field) {
    using T = typename F::Type;
    const T &value = defaults.*field.member;
    constexpr Kind kind = F::kind;
    if constexpr (kind == Kind::ValueList || kind == Kind::RecordList) {
        using Item = typename T::value_type;
        const RecordDescription &(*item)() = nullptr;
        if constexpr (kind == Kind::RecordList) item = &Item::GetRecordDescription;
        AddField(description, field.key, kind, ValueTypeOf<Item>(), MemberTypeName<T>(), ListDefaultText(value.size()),
                 field.options, -1, item);
    } else if constexpr (kind == Kind::ChildRecord) {
        AddField(description, field.key, kind, ValueType::Record, MemberTypeName<T>(), std::string(), field.options,
                 -1, &T::GetRecordDescription);
    } else {
        std::string text;
        if constexpr (kind == Kind::StringAttribute) text = value;
        else if constexpr (kind == Kind::EnumAttribute) text = AttributeText(static_cast<long long>(value));
        else text = NumberAttributeText(value);
        AddField(description, field.key, kind, ValueTypeOf<T>(), MemberTypeName<T>(), std::move(text), field.options,
                 ParameterTypeOf<T>(), nullptr);
    }
}

template <class R, class B>
void DescribeField(RecordDescription &description, const R &, BaseFields<B>) {
    const RecordDescription &base = B::GetRecordDescription();
    description.baseName = base.elementName;
    description.fields.insert(description.fields.end(), base.fields.begin(), base.fields.end());
}

template <class R>
void DescribeField(RecordDescription &description, const R &, FileType entry) {
    description.fileType = entry.name;
}

// ---- the record's members, from its table

template <class R>
struct Code {
    static const auto &Table() { return R::FieldTable(); }

    static void CreateXMLNode(XMLNode &node, const R &record) {
        XMLMarshaller::XMLMarshallableObject::CreateXMLNode(node, record);
        node.name = R::ElementName;
        std::apply([&](const auto &...field) { (WriteField(node, record, field), ...); }, Table());
    }

    static void CreateXMLMarshaller(R &record, const XMLNode &node) {
        std::apply([&](const auto &...field) { (ReadField(record, node, field), ...); }, Table());
    }

    static std::string ToXMLString(const R &record) {
        return WriteDocument(
            R::GetRecordDescription().fileType,
            [](XMLNode &node, const void *r) { R::CreateXMLNode(node, *static_cast<const R *>(r)); }, &record);
    }

    static void FromDocument(R &record, const std::string &xml) {
        ReadDocument(
            xml, [](void *r, const XMLNode &node) { R::CreateXMLMarshaller(*static_cast<R *>(r), node); },
            &record);
    }

    static void ToObjectInstance(const R &record, ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
        instance = ObjectInstanceXMLMarshaller::ObjectInstance();
        std::apply([&](const auto &...field) { (ShowField(record, instance, field), ...); }, Table());
    }

    static void FromObjectInstance(R &record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
        std::apply([&](const auto &...field) { (ReadBackField(record, instance, field), ...); }, Table());
    }

    static bool Equal(const R &a, const R &b) {
        return std::apply([&](const auto &...field) { return (FieldEqual(a, b, field) && ...); }, Table());
    }

    static const RecordDescription &Describe(bool handWrittenObjectInstance) {
        using Object = XMLMarshaller::XMLMarshallableObject;
        using ObjectInstanceXMLMarshaller::ObjectInstance;
        static const RecordDescription description = [&] {
            RecordDescription made{};
            made.elementName = R::ElementName;
            made.fileType = "MetaData";
            made.handWrittenObjectInstance = handWrittenObjectInstance;
            const R defaults;
            std::apply([&](const auto &...entry) { (DescribeField(made, defaults, entry), ...); }, Table());
            made.make = []() -> RecordDescription::Record { return std::make_shared<R>(); };
            made.fromNode = [](const XMLNode &node) -> RecordDescription::Record { return std::make_shared<R>(node); };
            made.fromDocument = [](const std::string &xml) -> RecordDescription::Record {
                return std::make_shared<R>(xml);
            };
            made.toObjectInstance = [](const Object &record, ObjectInstance &instance) {
                dynamic_cast<const R &>(record).ToObjectInstance(instance);
            };
            made.fromObjectInstance = [](Object &record, const ObjectInstance &instance) {
                dynamic_cast<R &>(record).FromObjectInstance(instance);
            };
            made.equal = [](const Object &a, const Object &b) {
                return typeid(a) == typeid(R) && typeid(b) == typeid(R) &&
                       static_cast<const R &>(a) == static_cast<const R &>(b);
            };
            return made;
        }();
        return description;
    }
};

}  // namespace qor::record

// The members every record has; HandWritten says whether ToObjectInstance and
// FromObjectInstance are the record's own.
#define QOR_DEFINE_RECORD_COMMON_(Scope, Name, HandWritten, ...)                                \
    const auto &Scope Name::FieldTable() {                                                     \
        using namespace ::qor::record::dsl;                                                    \
        static constexpr auto table = ::qor::record::Table(__VA_ARGS__);                       \
        static_assert(::qor::record::TableIsWellFormed(table),                                 \
                      "a child's key must be its element name, and a base must come first");  \
        return table;                                                                          \
    }                                                                                          \
    const ::qor::RecordDescription &Scope Name::GetRecordDescription() {                                \
        return ::qor::record::Code<Name>::Describe(HandWritten);                               \
    }                                                                                          \
    Scope Name::Name() = default;                                                              \
    Scope Name::Name(const std::string &xml) { ::qor::record::Code<Name>::FromDocument(*this, xml); } \
    Scope Name::Name(const XMLParser::XMLNode &node) { CreateXMLMarshaller(*this, node); }    \
    Scope Name::Name(const Name &) = default;                                                  \
    Scope Name::Name(Name &&) noexcept = default;                                              \
    Scope Name &Scope Name::operator=(const Name &) = default;                                 \
    Scope Name &Scope Name::operator=(Name &&) noexcept = default;                             \
    Scope Name::~Name() = default;                                                             \
    void Scope Name::CreateXMLMarshaller(Name &record, const XMLParser::XMLNode &node) {       \
        ::qor::record::Code<Name>::CreateXMLMarshaller(record, node);                          \
    }                                                                                          \
    void Scope Name::CreateXMLNode(XMLParser::XMLNode &node, const Name &record) {             \
        ::qor::record::Code<Name>::CreateXMLNode(node, record);                                \
    }                                                                                          \
    XMLParser::XMLNode Scope Name::ToXMLNode() const {                                         \
        XMLParser::XMLNode node;                                                               \
        CreateXMLNode(node, *this);                                                            \
        return node;                                                                           \
    }                                                                                          \
    std::string Scope Name::ToXMLString() const { return ::qor::record::Code<Name>::ToXMLString(*this); } \
    std::shared_ptr<XMLMarshaller::XMLMarshallableObject> Scope Name::Clone() const {          \
        return std::make_shared<Name>(*this);                                                  \
    }                                                                                          \
    const std::string &Scope Name::GetClassName() const {                                      \
        static const std::string class_name_ = ElementName;                                    \
        return class_name_;                                                                    \
    }                                                                                          \
    bool Scope Name::operator==(const Name &other) const {                                     \
        return ::qor::record::Code<Name>::Equal(*this, other);                                 \
    }

// Everything but ToObjectInstance and FromObjectInstance.
#define QOR_DEFINE_RECORD_FRAME_IN(Scope, Name, ...) QOR_DEFINE_RECORD_COMMON_(Scope, Name, true, __VA_ARGS__)

#define QOR_DEFINE_RECORD_IN(Scope, Name, ...)                                                   \
    QOR_DEFINE_RECORD_COMMON_(Scope, Name, false, __VA_ARGS__)                                 \
    void Scope Name::ToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance) const { \
        ::qor::record::Code<Name>::ToObjectInstance(*this, instance);                          \
    }                                                                                          \
    void Scope Name::FromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &instance) { \
        ::qor::record::Code<Name>::FromObjectInstance(*this, instance);                        \
    }

#define QOR_DEFINE_RECORD(Name, ...) QOR_DEFINE_RECORD_IN(, Name, __VA_ARGS__)
#define QOR_DEFINE_RECORD_FRAME(Name, ...) QOR_DEFINE_RECORD_FRAME_IN(, Name, __VA_ARGS__)
