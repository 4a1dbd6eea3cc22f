// The typed operations on a list of Parameter or AsyncParameter, written
// once for both. Included only by Parameter.cpp and AsyncParameter.cpp.
#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "qor/marshal/Convert.h"
#include "qor/marshal/ParameterType.h"

namespace qor::record {

template <class P>
struct ParameterListOperations {
    using List = std::vector<P>;

    static const P *Find(const List &parameters, const std::string &name) {
        for (const P &parameter : parameters) {
            if (parameter.Name == name) return &parameter;
        }
        return nullptr;
    }
    static P *Find(List &parameters, const std::string &name) {
        return const_cast<P *>(Find(static_cast<const List &>(parameters), name));
    }

    static bool Add(List &parameters, const std::string &name, std::string text,
                    ObjectInstanceXMLMarshaller::ParameterType type, const std::string &description) {
        if (Find(parameters, name)) return false;
        P parameter;
        parameter.Name = name;
        parameter.Description = description;
        parameter.Value = std::move(text);
        parameter.Type = type;
        parameters.push_back(std::move(parameter));
        return true;
    }

    template <class T>
    static bool Get(const List &parameters, const std::string &name, T &value) {
        const P *parameter = Find(parameters, name);
        if (!parameter) return false;
        value = Convert<T>(parameter->Value);
        return true;
    }

    static bool Set(List &parameters, const std::string &name, std::string text) {
        P *parameter = Find(parameters, name);
        if (!parameter) return false;
        parameter->Value = std::move(text);
        return true;
    }

    // The row of the base layer a value type goes through.
    template <class T>
    using Row = std::conditional_t<
        std::is_same_v<T, bool> || std::is_same_v<T, std::string>, T,
        std::conditional_t<std::is_floating_point_v<T>, double,
                           std::conditional_t<std::is_signed_v<T>, long, unsigned long>>>;

    template <class T>
    static ObjectInstanceXMLMarshaller::ParameterType TypeOf() {
        using namespace ObjectInstanceXMLMarshaller;
        if constexpr (std::is_same_v<T, bool>) return PARAMETER_TYPE_BOOL;
        else if constexpr (std::is_same_v<T, std::string>) return PARAMETER_TYPE_STRING;
        else if constexpr (std::is_floating_point_v<T>) return PARAMETER_TYPE_FLOAT;
        else return PARAMETER_TYPE_INTEGER;
    }

    // The template layer: widen to the row, convert, narrow back on Get.
    template <class T>
    static bool AddTyped(List &parameters, const std::string &name, const T &value,
                         const std::string &description) {
        using R = Row<T>;
        return Add(parameters, name, Convert<std::string>(static_cast<R>(value)), TypeOf<R>(),
                   description);
    }
    template <class T>
    static bool GetTyped(const List &parameters, const std::string &name, T &value) {
        Row<T> wide{};
        if (!Get(parameters, name, wide)) return false;
        value = static_cast<T>(wide);
        return true;
    }
    template <class T>
    static bool SetTyped(List &parameters, const std::string &name, const T &value) {
        return Set(parameters, name, Convert<std::string>(static_cast<Row<T>>(value)));
    }
};

}  // namespace qor::record

// Defines the base and template layers of CLASS with the operation names
// PREFIX##String, PREFIX##Int, ... (AddParameterString, AddAsyncParameterInt).
#define QOR_DEFINE_PARAMETER_OPERATIONS_(CLASS, ADD, GET, SET)                                    \
    using CLASS##Operations = ::qor::record::ParameterListOperations<CLASS>;                       \
    bool CLASS::ADD##String(List &p, const std::string &n, const std::string &v,                  \
                            const std::string &d) {                                               \
        return CLASS##Operations::Add(p, n, v, PARAMETER_TYPE_STRING, d);                          \
    }                                                                                              \
    bool CLASS::ADD##Int(List &p, const std::string &n, long v, const std::string &d) {           \
        return CLASS##Operations::Add(p, n, Convert<std::string>(v), PARAMETER_TYPE_INTEGER, d);   \
    }                                                                                              \
    bool CLASS::ADD##Int(List &p, const std::string &n, unsigned long v, const std::string &d) {  \
        return CLASS##Operations::Add(p, n, Convert<std::string>(v), PARAMETER_TYPE_INTEGER, d);   \
    }                                                                                              \
    bool CLASS::ADD##Float(List &p, const std::string &n, double v, const std::string &d) {       \
        return CLASS##Operations::Add(p, n, Convert<std::string>(v), PARAMETER_TYPE_FLOAT, d);     \
    }                                                                                              \
    bool CLASS::ADD##Bool(List &p, const std::string &n, bool v, const std::string &d) {          \
        return CLASS##Operations::Add(p, n, Convert<std::string>(v), PARAMETER_TYPE_BOOL, d);      \
    }                                                                                              \
    bool CLASS::GET##String(const List &p, const std::string &n, std::string &v) {                \
        return CLASS##Operations::Get(p, n, v);                                                    \
    }                                                                                              \
    bool CLASS::GET##Int(const List &p, const std::string &n, long &v) {                          \
        return CLASS##Operations::Get(p, n, v);                                                    \
    }                                                                                              \
    bool CLASS::GET##Int(const List &p, const std::string &n, unsigned long &v) {                 \
        return CLASS##Operations::Get(p, n, v);                                                    \
    }                                                                                              \
    bool CLASS::GET##Float(const List &p, const std::string &n, double &v) {                      \
        return CLASS##Operations::Get(p, n, v);                                                    \
    }                                                                                              \
    bool CLASS::GET##Bool(const List &p, const std::string &n, bool &v) {                         \
        return CLASS##Operations::Get(p, n, v);                                                    \
    }                                                                                              \
    bool CLASS::SET##String(List &p, const std::string &n, const std::string &v) {                \
        return CLASS##Operations::Set(p, n, v);                                                    \
    }                                                                                              \
    bool CLASS::SET##Int(List &p, const std::string &n, long v) {                                 \
        return CLASS##Operations::Set(p, n, Convert<std::string>(v));                              \
    }                                                                                              \
    bool CLASS::SET##Int(List &p, const std::string &n, unsigned long v) {                        \
        return CLASS##Operations::Set(p, n, Convert<std::string>(v));                              \
    }                                                                                              \
    bool CLASS::SET##Float(List &p, const std::string &n, double v) {                             \
        return CLASS##Operations::Set(p, n, Convert<std::string>(v));                              \
    }                                                                                              \
    bool CLASS::SET##Bool(List &p, const std::string &n, bool v) {                                \
        return CLASS##Operations::Set(p, n, Convert<std::string>(v));                              \
    }                                                                                              \
    template <typename T>                                                                          \
    bool CLASS::ADD(List &p, const std::string &n, const T &v, const std::string &d) {            \
        return CLASS##Operations::AddTyped(p, n, v, d);                                            \
    }                                                                                              \
    bool CLASS::ADD(List &p, const std::string &n, const char *v, const std::string &d) {         \
        return ADD##String(p, n, v, d);                                                            \
    }                                                                                              \
    template <typename T>                                                                          \
    bool CLASS::GET(const List &p, const std::string &n, T &v) {                                  \
        return CLASS##Operations::GetTyped(p, n, v);                                               \
    }                                                                                              \
    template <typename T>                                                                          \
    bool CLASS::SET(List &p, const std::string &n, const T &v) {                                  \
        return CLASS##Operations::SetTyped(p, n, v);                                               \
    }                                                                                              \
    bool CLASS::SET(List &p, const std::string &n, const char *v) {                               \
        return SET##String(p, n, v);                                                               \
    }                                                                                              \
    void CLASS::AddRange(const std::string &value) {                                               \
        Range range;                                                                               \
        range.Value = value;                                                                       \
        Ranges.push_back(std::move(range));                                                        \
    }                                                                                              \
    bool CLASS::operator==(const std::string &name) const { return Name == name; }

// The value types of the template layer, instantiated once in CLASS's source.
#define QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, T)                              \
    template bool CLASS::ADD<T>(List &, const std::string &, const T &, const std::string &);      \
    template bool CLASS::GET<T>(const List &, const std::string &, T &);                           \
    template bool CLASS::SET<T>(List &, const std::string &, const T &);

#define QOR_INSTANTIATE_PARAMETER_TEMPLATE_SET_(CLASS, ADD, GET, SET)                              \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, short)                              \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, unsigned short)                     \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, int)                                \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, unsigned int)                       \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, float)                              \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, double)                             \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, std::string)                        \
    QOR_INSTANTIATE_PARAMETER_TEMPLATES_(CLASS, ADD, GET, SET, bool)                               \
    template bool CLASS::GET<long>(const List &, const std::string &, long &);                     \
    template bool CLASS::GET<unsigned long>(const List &, const std::string &, unsigned long &);
