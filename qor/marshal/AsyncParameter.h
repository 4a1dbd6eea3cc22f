// A Parameter of a task that runs asynchronously: the same fields but
// Scriptable, and the typed operations under the word Async.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/ParameterType.h"
#include "qor/marshal/Range.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

class AsyncParameter : public ObjectDatabaseXMLMarshallableObject {
    QOR_RECORD(AsyncParameter)
    std::string Name;
    std::string Description;
    ParameterType Type = PARAMETER_TYPE_STRING;
    ParameterStyle Style = PARAMETER_STYLE_0;
    std::string Units;
    std::string Value;
    std::string ValueToDisplay;
    std::string Script;
    std::string Category;
    std::string Hide_if;
    std::vector<Range> Ranges;
    std::vector<std::string> AllowedLabwareClasses;

    // Appends a Range whose Value is value.
    void AddRange(const std::string &value);

    // True when Name equals name.
    bool operator==(const std::string &name) const;
    // operator==(const AsyncParameter &) compares every field except
    // Hide_if and AllowedLabwareClasses.

    // As the operations of Parameter, on a list of AsyncParameter.
    using List = std::vector<AsyncParameter>;
    static bool AddAsyncParameterString(List &parameters, const std::string &name,
                                        const std::string &value,
                                        const std::string &description = std::string());
    static bool AddAsyncParameterInt(List &parameters, const std::string &name, long value,
                                     const std::string &description = std::string());
    static bool AddAsyncParameterInt(List &parameters, const std::string &name, unsigned long value,
                                     const std::string &description = std::string());
    static bool AddAsyncParameterFloat(List &parameters, const std::string &name, double value,
                                       const std::string &description = std::string());
    static bool AddAsyncParameterBool(List &parameters, const std::string &name, bool value,
                                      const std::string &description = std::string());

    static bool GetAsyncParameterString(const List &parameters, const std::string &name,
                                        std::string &value);
    static bool GetAsyncParameterInt(const List &parameters, const std::string &name, long &value);
    static bool GetAsyncParameterInt(const List &parameters, const std::string &name,
                                     unsigned long &value);
    static bool GetAsyncParameterFloat(const List &parameters, const std::string &name, double &value);
    static bool GetAsyncParameterBool(const List &parameters, const std::string &name, bool &value);

    static bool SetAsyncParameterString(List &parameters, const std::string &name,
                                        const std::string &value);
    static bool SetAsyncParameterInt(List &parameters, const std::string &name, long value);
    static bool SetAsyncParameterInt(List &parameters, const std::string &name, unsigned long value);
    static bool SetAsyncParameterFloat(List &parameters, const std::string &name, double value);
    static bool SetAsyncParameterBool(List &parameters, const std::string &name, bool value);

    template <typename T>
    static bool AddAsyncParameter(List &parameters, const std::string &name, const T &value,
                                  const std::string &description = std::string());
    static bool AddAsyncParameter(List &parameters, const std::string &name, const char *value,
                                  const std::string &description = std::string());
    template <typename T>
    static bool GetAsyncParameter(const List &parameters, const std::string &name, T &value);
    template <typename T>
    static bool SetAsyncParameter(List &parameters, const std::string &name, const T &value);
    static bool SetAsyncParameter(List &parameters, const std::string &name, const char *value);
};

}  // namespace ObjectInstanceXMLMarshaller
