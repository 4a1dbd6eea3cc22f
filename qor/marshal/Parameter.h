// One named, typed, displayable value held as text, and the typed
// operations on a list of them.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/ParameterType.h"
#include "qor/marshal/Range.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

// A property of an object as an editor shows it. The value is always text;
// the typed operations convert on the way in and out. Ranges and
// AllowedLabwareClasses are hints for the editor: nothing here enforces them.
// Hide_if, Script and Scriptable are carried and given no meaning.
class Parameter : public ObjectDatabaseXMLMarshallableObject {
    QOR_RECORD(Parameter)
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
    bool Scriptable = true;
    std::vector<Range> Ranges;
    std::vector<std::string> AllowedLabwareClasses;

    // Appends a Range whose Value is value.
    void AddRange(const std::string &value);

    // True when Name equals name; serves searches (std::find(v, v, "name")).
    bool operator==(const std::string &name) const;
    // operator==(const Parameter &), declared above, compares every field
    // except Hide_if, Scriptable and AllowedLabwareClasses.

    // Typed operations on a list. A name is found by walking the list from
    // the front; the first exact, case-sensitive match wins.
    //
    // Add: false, and no change, when the name is there already; otherwise
    // appends a Parameter with Name, Description, the value's text and the
    // Type of the value's kind (bool 0, floating 12, integer 8, string 1).
    // Get: false, and the out argument untouched, when the name is missing;
    // otherwise the Value converted, whatever the Type (text that isn't a
    // number reads as 0). Set: false when the name is missing (Set never
    // adds); otherwise replaces Value alone.
    using List = std::vector<Parameter>;
    static bool AddParameterString(List &parameters, const std::string &name, const std::string &value,
                                   const std::string &description = std::string());
    static bool AddParameterInt(List &parameters, const std::string &name, long value,
                                const std::string &description = std::string());
    static bool AddParameterInt(List &parameters, const std::string &name, unsigned long value,
                                const std::string &description = std::string());
    static bool AddParameterFloat(List &parameters, const std::string &name, double value,
                                  const std::string &description = std::string());
    static bool AddParameterBool(List &parameters, const std::string &name, bool value,
                                 const std::string &description = std::string());

    static bool GetParameterString(const List &parameters, const std::string &name, std::string &value);
    static bool GetParameterInt(const List &parameters, const std::string &name, long &value);
    static bool GetParameterInt(const List &parameters, const std::string &name, unsigned long &value);
    static bool GetParameterFloat(const List &parameters, const std::string &name, double &value);
    static bool GetParameterBool(const List &parameters, const std::string &name, bool &value);

    static bool SetParameterString(List &parameters, const std::string &name, const std::string &value);
    static bool SetParameterInt(List &parameters, const std::string &name, long value);
    static bool SetParameterInt(List &parameters, const std::string &name, unsigned long value);
    static bool SetParameterFloat(List &parameters, const std::string &name, double value);
    static bool SetParameterBool(List &parameters, const std::string &name, bool value);

    // The same by the value's type: short, unsigned short, int, unsigned int,
    // float, double, std::string and bool, and for Get also long and unsigned
    // long. Signed types go through the long row, unsigned ones through the
    // unsigned long row, float through double; a narrowing Get truncates.
    template <typename T>
    static bool AddParameter(List &parameters, const std::string &name, const T &value,
                             const std::string &description = std::string());
    static bool AddParameter(List &parameters, const std::string &name, const char *value,
                             const std::string &description = std::string());
    template <typename T>
    static bool GetParameter(const List &parameters, const std::string &name, T &value);
    template <typename T>
    static bool SetParameter(List &parameters, const std::string &name, const T &value);
    static bool SetParameter(List &parameters, const std::string &name, const char *value);
};

}  // namespace ObjectInstanceXMLMarshaller
