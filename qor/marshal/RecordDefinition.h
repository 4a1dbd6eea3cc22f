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

// ---- what every record shares, out of line (RecordDefinition.cpp)

// Text of a number in an attribute: what a default output stream writes.
std::string AttributeText(bool value);
std::string AttributeText(long long value);
std::string AttributeText(unsigned long long value);
std::string AttributeText(double value);

// <Value Value='text' /> appended to wrapper.
void AppendValueItem(XMLNode &wrapper, std::string text);
// The attribute Value of an item, or "" when it has none.
const std::string &ValueOfItem(const XMLNode &item);

// Reads a document and hands its root's first child to fill; a root with no
// child leaves the record as it is. Throws what XMLReader throws.
void ReadDocument(const std::string &xml, void (*fill)(void *record, const XMLNode &node), void *record);
// Writes a document of fileType holding one child filled by fill.
std::string WriteDocument(const char *fileType, void (*fill)(XMLNode &node, const void *record),
                          const void *record);

// The name, without namespace or enclosing class, of the type T in the
// __PRETTY_FUNCTION__ of PrettyFunctionOf<T> (g++ and clang spell it alike).
std::string ShortTypeName(std::string_view prettyFunction);
// The default text of a list: empty, or how many items it holds.
std::string ListDefaultText(std::size_t items);

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

// ---- one member type in one kind of field
//
// The generic code works on a field through its address and the operations
// of its member type and kind. They are made once per type and kind, and
// shared by every field and record of that type, so a record's source
// instantiates little more than its table: compile time grows with the
// number of distinct member types, not with the number of fields.

using DescribeFunction = const RecordDescription &(*)();

template <class T, bool IsList>
struct ItemOf {
    using Type = T;
};
template <class T>
struct ItemOf<T, true> {
    using Type = typename T::value_type;
};

struct FieldOps {
    ValueType valueType;  // of the member, or of a list's items
    int parameterType;    // of the member's type; -1: never a Parameter (lists, child records)
    std::string (*memberType)();
    DescribeFunction item;  // record lists and child records: the item's type
    std::string (*defaultText)(const void *value);
    void (*write)(XMLNode &node, const char *key, const FieldOptions &options, const void *value);
    void (*read)(void *value, const XMLNode &node, const char *key, const FieldOptions &options);
    std::string (*text)(const void *value);  // the Parameter's value
    void (*readBack)(void *value, const std::vector<ObjectInstanceXMLMarshaller::Parameter> &parameters,
                     const std::string &name);
    bool (*equal)(const void *a, const void *b);
};

template <class T, Kind K>
struct FieldCode {
    static constexpr bool IsList = K == Kind::ValueList || K == Kind::RecordList;
    static constexpr bool IsAttribute = !IsList && K != Kind::ChildRecord;

    static const T &Of(const void *value) { return *static_cast<const T *>(value); }
    static T &Of(void *value) { return *static_cast<T *>(value); }

    static void Write(XMLNode &node, const char *key, const FieldOptions &options, const void *field) {
        const T &value = Of(field);
        if constexpr (K == Kind::StringAttribute) {
            if (!value.empty()) node.attributes.insert_or_assign(key, value);
        } else if constexpr (K == Kind::NumberAttribute) {
            node.attributes.insert_or_assign(key, NumberAttributeText(value));
        } else if constexpr (K == Kind::EnumAttribute) {
            node.attributes.insert_or_assign(key, AttributeText(static_cast<long long>(value)));
        } else if constexpr (IsList) {
            if (value.empty() && !options.wrapperAlways) return;
            XMLNode &wrapper = node.children.emplace_back();
            wrapper.name = key;
            for (const auto &item : value) {
                if constexpr (K == Kind::RecordList) {
                    T::value_type::CreateXMLNode(wrapper.children.emplace_back(), item);
                } else {
                    AppendValueItem(wrapper, Convert<std::string>(item));
                }
            }
        } else {
            T::CreateXMLNode(node.children.emplace_back(), value);
        }
    }

    static void Read(void *field, const XMLNode &node, const char *key, const FieldOptions &options) {
        T &value = Of(field);
        if constexpr (K == Kind::StringAttribute) {
            const auto found = node.attributes.find(key);
            if (found != node.attributes.end()) value = found->second;
        } else if constexpr (K == Kind::NumberAttribute || K == Kind::EnumAttribute) {
            const auto found = node.attributes.find(key);
            if (found == node.attributes.end()) return;
            if (K == Kind::EnumAttribute || options.readAsLong) {
                value = static_cast<T>(convert::TextToLong(found->second));
            } else {
                value = Convert<T>(found->second);
            }
        } else if constexpr (IsList) {
            using Item = typename T::value_type;
            for (const XMLNode &wrapper : node.children) {
                if (wrapper.name != key) continue;
                for (const XMLNode &item : wrapper.children) {
                    if constexpr (K == Kind::RecordList) {
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

    static std::string Text(const void *field) {
        if constexpr (IsAttribute) return Convert<std::string>(Of(field));
        else return std::string();
    }

    static void ReadBack(void *field, const std::vector<ObjectInstanceXMLMarshaller::Parameter> &parameters,
                         const std::string &name) {
        using ObjectInstanceXMLMarshaller::Parameter;
        T &value = Of(field);
        if constexpr (std::is_same_v<T, std::string>) {
            Parameter::GetParameterString(parameters, name, value);
        } else if constexpr (std::is_same_v<T, bool>) {
            Parameter::GetParameterBool(parameters, name, value);
        } else if constexpr (std::is_floating_point_v<T>) {
            double read = 0;
            if (Parameter::GetParameterFloat(parameters, name, read)) value = static_cast<T>(read);
        } else if constexpr (std::is_enum_v<T> || std::is_signed_v<T>) {
            long read = 0;
            if (Parameter::GetParameterInt(parameters, name, read)) value = static_cast<T>(read);
        } else {
            unsigned long read = 0;
            if (Parameter::GetParameterInt(parameters, name, read)) value = static_cast<T>(read);
        }
    }

    static std::string DefaultText(const void *field) {
        const T &value = Of(field);
        if constexpr (K == Kind::StringAttribute) return value;
        else if constexpr (K == Kind::NumberAttribute) return NumberAttributeText(value);
        else if constexpr (K == Kind::EnumAttribute) return AttributeText(static_cast<long long>(value));
        else if constexpr (IsList) return ListDefaultText(value.size());
        else return std::string();
    }

    static bool Equal(const void *a, const void *b) { return Of(a) == Of(b); }

    // Only attributes are read back; naming ReadBack elsewhere would
    // instantiate it for lists and records, which have no Parameter.
    static constexpr auto ReadBackFunction() {
        if constexpr (IsAttribute) return &ReadBack;
        else return decltype(&ReadBack){nullptr};
    }

    static constexpr DescribeFunction Item() {
        if constexpr (K == Kind::RecordList) return &T::value_type::GetRecordDescription;
        else if constexpr (K == Kind::ChildRecord) return &T::GetRecordDescription;
        else return nullptr;
    }

    static constexpr FieldOps ops{
        ValueTypeOf<typename ItemOf<T, IsList>::Type>(),
        IsAttribute ? ParameterTypeOf<T>() : -1,
        &MemberTypeName<T>,
        Item(),
        &DefaultText,
        &Write,
        &Read,
        &Text,
        ReadBackFunction(),
        &Equal,
    };
};

// One field of a record's table, ready to run: the member is found at
// offset from the record's address.
struct FieldEntry {
    Kind kind;
    const char *key;
    FieldOptions options;
    std::ptrdiff_t offset;
    const FieldOps *ops;
};

// The part of a record that a base record holds, run by the base's own code
// on the record seen as that base.
struct BaseEntry {
    void (*write)(XMLNode &node, const void *record);
    void (*read)(void *record, const XMLNode &node);
    void (*show)(const void *record, ObjectInstanceXMLMarshaller::ObjectInstance &instance);
    void (*readBack)(void *record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance);
    bool (*equal)(const void *a, const void *b);
    const RecordDescription &(*describe)();
};

template <class R, class B>
struct BaseCode {
    static const R &Of(const void *record) { return *static_cast<const R *>(record); }
    static R &Of(void *record) { return *static_cast<R *>(record); }
    static constexpr BaseEntry entry{
        [](XMLNode &node, const void *record) { B::CreateXMLNode(node, Of(record)); },
        [](void *record, const XMLNode &node) { B::CreateXMLMarshaller(Of(record), node); },
        [](const void *record, ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
            Of(record).B::ToObjectInstance(instance);
        },
        [](void *record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
            Of(record).B::FromObjectInstance(instance);
        },
        [](const void *a, const void *b) { return static_cast<const B &>(Of(a)) == static_cast<const B &>(Of(b)); },
        &B::GetRecordDescription,
    };
};

// A record's table, ready to run.
struct Layout {
    const char *elementName = nullptr;
    const char *fileType = "MetaData";
    const BaseEntry *base = nullptr;
    std::vector<FieldEntry> fields;
};

template <class R, class R2, class T, Kind K>
void AddEntry(Layout &layout, const R &defaults, const Field<R2, T, K> &field) {
    const auto *record = reinterpret_cast<const char *>(std::addressof(defaults));
    const auto *member = reinterpret_cast<const char *>(std::addressof(defaults.*field.member));
    layout.fields.push_back(FieldEntry{K, field.key, field.options, member - record, &FieldCode<T, K>::ops});
}

template <class R, class B>
void AddEntry(Layout &layout, const R &, BaseFields<B>) {
    layout.base = &BaseCode<R, B>::entry;
}

template <class R>
void AddEntry(Layout &layout, const R &, FileType entry) {
    layout.fileType = entry.name;
}

// Every step of the frame, on a record's address and its layout.
void WriteRecord(XMLNode &node, const Layout &layout, const void *record);
void ReadRecord(void *record, const XMLNode &node, const Layout &layout);
void ShowRecord(const void *record, ObjectInstanceXMLMarshaller::ObjectInstance &instance, const Layout &layout);
void ReadBackRecord(void *record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance, const Layout &layout);
bool EqualRecords(const void *a, const void *b, const Layout &layout);
// The description's fields, element and file type; defaults is a default record.
void DescribeRecord(RecordDescription &description, const Layout &layout, const void *defaults);

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

// ---- the record's members, from its table

template <class R>
struct Code {
    static const void *Address(const R &record) { return std::addressof(record); }
    static void *Address(R &record) { return std::addressof(record); }

    static const Layout &GetLayout() {
        static const Layout layout = [] {
            Layout made;
            made.elementName = R::ElementName;
            const R defaults;
            std::apply([&](const auto &...entry) { (AddEntry(made, defaults, entry), ...); }, R::FieldTable());
            return made;
        }();
        return layout;
    }

    static void CreateXMLNode(XMLNode &node, const R &record) {
        XMLMarshaller::XMLMarshallableObject::CreateXMLNode(node, record);
        WriteRecord(node, GetLayout(), Address(record));
    }

    static void CreateXMLMarshaller(R &record, const XMLNode &node) { ReadRecord(Address(record), node, GetLayout()); }

    static std::string ToXMLString(const R &record) {
        return WriteDocument(
            GetLayout().fileType,
            [](XMLNode &node, const void *r) { R::CreateXMLNode(node, *static_cast<const R *>(r)); }, &record);
    }

    static void FromDocument(R &record, const std::string &xml) {
        ReadDocument(
            xml, [](void *r, const XMLNode &node) { R::CreateXMLMarshaller(*static_cast<R *>(r), node); },
            &record);
    }

    static void ToObjectInstance(const R &record, ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
        ShowRecord(Address(record), instance, GetLayout());
    }

    static void FromObjectInstance(R &record, const ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
        ReadBackRecord(Address(record), instance, GetLayout());
    }

    static bool Equal(const R &a, const R &b) { return EqualRecords(Address(a), Address(b), GetLayout()); }

    static const RecordDescription &Describe(bool handWrittenObjectInstance) {
        using Object = XMLMarshaller::XMLMarshallableObject;
        using ObjectInstanceXMLMarshaller::ObjectInstance;
        static const RecordDescription description = [&] {
            RecordDescription made{};
            made.handWrittenObjectInstance = handWrittenObjectInstance;
            const R defaults;
            DescribeRecord(made, GetLayout(), Address(defaults));
            // Through Clone, so the record's source makes one kind of shared
            // record, not one per constructor.
            made.make = [] { return R().Clone(); };
            made.fromNode = [](const XMLNode &node) { return R(node).Clone(); };
            made.fromDocument = [](const std::string &xml) { return R(xml).Clone(); };
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
    Scope Name::Name(const std::string &xml) { ::qor::record::Code<Name>::FromDocument(*this, xml); } \
    Scope Name::Name(const XMLParser::XMLNode &node) { CreateXMLMarshaller(*this, node); }    \
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
