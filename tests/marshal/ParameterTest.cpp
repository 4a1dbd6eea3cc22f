// Parameter, AsyncParameter and Range: text form, equality, and the three
// layers of typed operations.
#include <gtest/gtest.h>

#include <algorithm>

#include "MarshalTestSupport.h"
#include "qor/marshal.h"

using namespace ObjectInstanceXMLMarshaller;
using marshal_test::RecordText;

namespace {

TEST(ParameterText, DefaultsWriteOnlyTheNumbers) {
    EXPECT_EQ(RecordText(Parameter().ToXMLString()), "\t<Parameter Scriptable='1' Style='0' Type='1' />");
    EXPECT_EQ(RecordText(AsyncParameter().ToXMLString()), "\t<AsyncParameter Style='0' Type='1' />");
    EXPECT_EQ(RecordText(Range().ToXMLString()), "\t<Range />");
}

TEST(ParameterText, FullParameterIsExactAndReadsBack) {
    Parameter parameter;
    parameter.Name = "Volume";
    parameter.Description = "how much";
    parameter.Type = PARAMETER_TYPE_FLOAT;
    parameter.Style = PARAMETER_STYLE_2;
    parameter.Units = "uL";
    parameter.Value = "12.5";
    parameter.Scriptable = false;
    parameter.AddRange("1");
    parameter.Ranges.push_back(Range());
    parameter.Ranges.back().Value = "2";
    parameter.Ranges.back().ValueToDisplay = "two";
    parameter.AllowedLabwareClasses = {"plate", "tube"};
    EXPECT_EQ(RecordText(parameter.ToXMLString()),
              "\t<Parameter Description='how much' Name='Volume' Scriptable='0' Style='2' Type='12' "
              "Units='uL' Value='12.5' >\n"
              "\t\t<Ranges >\n"
              "\t\t\t<Range Value='1' />\n"
              "\t\t\t<Range Value='2' ValueToDisplay='two' />\n"
              "\t\t</Ranges>\n"
              "\t\t<AllowedLabwareClasses >\n"
              "\t\t\t<Value Value='plate' />\n"
              "\t\t\t<Value Value='tube' />\n"
              "\t\t</AllowedLabwareClasses>\n"
              "\t</Parameter>");
    const Parameter back(parameter.ToXMLString());
    EXPECT_TRUE(back == parameter);
    EXPECT_FALSE(back.Scriptable);
    EXPECT_EQ(back.AllowedLabwareClasses, parameter.AllowedLabwareClasses);  // not compared
}

TEST(ParameterEquality, IgnoresHideIfScriptableAndLabwareClassesOnly) {
    using Change = void (*)(Parameter &);
    struct Case {
        const char *field;
        Change change;
        bool equal;
    };
    const Case cases[] = {
        {"Hide_if", [](Parameter &p) { p.Hide_if = "x"; }, true},
        {"Scriptable", [](Parameter &p) { p.Scriptable = false; }, true},
        {"AllowedLabwareClasses", [](Parameter &p) { p.AllowedLabwareClasses = {"x"}; }, true},
        {"Name", [](Parameter &p) { p.Name = "x"; }, false},
        {"Description", [](Parameter &p) { p.Description = "x"; }, false},
        {"Type", [](Parameter &p) { p.Type = PARAMETER_TYPE_INTEGER; }, false},
        {"Style", [](Parameter &p) { p.Style = PARAMETER_STYLE_1; }, false},
        {"Units", [](Parameter &p) { p.Units = "x"; }, false},
        {"Value", [](Parameter &p) { p.Value = "x"; }, false},
        {"ValueToDisplay", [](Parameter &p) { p.ValueToDisplay = "x"; }, false},
        {"Script", [](Parameter &p) { p.Script = "x"; }, false},
        {"Category", [](Parameter &p) { p.Category = "x"; }, false},
        {"Ranges", [](Parameter &p) { p.AddRange("x"); }, false},
    };
    for (const Case &c : cases) {
        Parameter changed;
        c.change(changed);
        EXPECT_EQ(changed == Parameter(), c.equal) << c.field;
    }
    Parameter named;
    named.Name = "n";
    EXPECT_TRUE(named == std::string("n"));
    const std::vector<Parameter> list = {Parameter(), named};
    EXPECT_EQ(std::find(list.begin(), list.end(), std::string("n")) - list.begin(), 1);
}

TEST(ParameterOperations, AddSetsTypeAndTextByKind) {
    struct Row {
        const char *name;
        ParameterType type;
        const char *value;
    };
    std::vector<Parameter> list;
    EXPECT_TRUE(Parameter::AddParameterString(list, "s", "text", "a string"));
    EXPECT_TRUE(Parameter::AddParameterInt(list, "i", -5L, ""));
    EXPECT_TRUE(Parameter::AddParameterInt(list, "u", 7UL, ""));
    EXPECT_TRUE(Parameter::AddParameterFloat(list, "x", 0.1, ""));
    EXPECT_TRUE(Parameter::AddParameterBool(list, "b", true, ""));
    EXPECT_TRUE(Parameter::AddParameter(list, "short", static_cast<short>(-3)));
    EXPECT_TRUE(Parameter::AddParameter(list, "float", 0.25f));
    EXPECT_TRUE(Parameter::AddParameter(list, "literal", "chars"));
    EXPECT_TRUE(Parameter::AddParameter(list, "flag", false));
    const Row expected[] = {
        {"s", PARAMETER_TYPE_STRING, "text"},   {"i", PARAMETER_TYPE_INTEGER, "-5"},
        {"u", PARAMETER_TYPE_INTEGER, "7"},     {"x", PARAMETER_TYPE_FLOAT, "0.1"},
        {"b", PARAMETER_TYPE_BOOL, "1"},        {"short", PARAMETER_TYPE_INTEGER, "-3"},
        {"float", PARAMETER_TYPE_FLOAT, "0.25"}, {"literal", PARAMETER_TYPE_STRING, "chars"},
        {"flag", PARAMETER_TYPE_BOOL, "0"},
    };
    ASSERT_EQ(list.size(), std::size(expected));
    for (std::size_t i = 0; i < list.size(); ++i) {
        EXPECT_EQ(list[i].Name, expected[i].name);
        EXPECT_EQ(list[i].Type, expected[i].type) << expected[i].name;
        EXPECT_EQ(list[i].Value, expected[i].value) << expected[i].name;
    }
    EXPECT_EQ(list[0].Description, "a string");

    EXPECT_FALSE(Parameter::AddParameterInt(list, "s", 1L, "again"));  // first one stays
    EXPECT_EQ(list[0].Value, "text");
    EXPECT_EQ(list.size(), std::size(expected));
}

TEST(ParameterOperations, GetConvertsWhateverTheTypeAndLeavesMissesAlone) {
    std::vector<Parameter> list;
    Parameter::AddParameterFloat(list, "x", 0.1, "");
    Parameter::AddParameterString(list, "big", "70000", "");
    Parameter::AddParameterString(list, "word", "abc", "");

    long asLong = -1;
    EXPECT_TRUE(Parameter::GetParameterInt(list, "x", asLong));
    EXPECT_EQ(asLong, 0);
    double asDouble = 0;
    EXPECT_TRUE(Parameter::GetParameterFloat(list, "x", asDouble));
    EXPECT_EQ(asDouble, 0.1);
    short narrow = 0;
    EXPECT_TRUE(Parameter::GetParameter(list, "big", narrow));
    EXPECT_EQ(narrow, static_cast<short>(70000));  // truncated, no range check
    float single = 0;
    EXPECT_TRUE(Parameter::GetParameter(list, "x", single));
    EXPECT_EQ(single, 0.1f);
    bool flag = true;
    EXPECT_TRUE(Parameter::GetParameterBool(list, "word", flag));
    EXPECT_FALSE(flag);

    std::string text = "untouched";
    EXPECT_FALSE(Parameter::GetParameterString(list, "missing", text));
    EXPECT_EQ(text, "untouched");
    unsigned long count = 9;
    EXPECT_FALSE(Parameter::GetParameterInt(list, "missing", count));
    EXPECT_EQ(count, 9u);
}

TEST(ParameterOperations, SetReplacesValueOnlyAndNeverAdds) {
    std::vector<Parameter> list;
    Parameter::AddParameterString(list, "s", "old", "kept");
    list[0].AddRange("r");
    list[0].ValueToDisplay = "shown";
    EXPECT_TRUE(Parameter::SetParameterFloat(list, "s", 2.5));
    EXPECT_EQ(list[0].Value, "2.5");
    EXPECT_EQ(list[0].Type, PARAMETER_TYPE_STRING);
    EXPECT_EQ(list[0].Description, "kept");
    EXPECT_EQ(list[0].ValueToDisplay, "shown");
    EXPECT_EQ(list[0].Ranges.size(), 1u);
    EXPECT_TRUE(Parameter::SetParameter(list, "s", 12u));
    EXPECT_EQ(list[0].Value, "12");
    EXPECT_TRUE(Parameter::SetParameterBool(list, "s", false));
    EXPECT_EQ(list[0].Value, "0");
    EXPECT_FALSE(Parameter::SetParameterString(list, "absent", "x"));
    EXPECT_EQ(list.size(), 1u);
}

TEST(ParameterOperations, AsyncLayerWorksOnAsyncParameters) {
    std::vector<AsyncParameter> list;
    EXPECT_TRUE(AsyncParameter::AddAsyncParameterInt(list, "n", 3L, "count"));
    EXPECT_TRUE(AsyncParameter::AddAsyncParameter(list, "d", 1.5));
    EXPECT_FALSE(AsyncParameter::AddAsyncParameterBool(list, "n", true, ""));
    int n = 0;
    EXPECT_TRUE(AsyncParameter::GetAsyncParameter(list, "n", n));
    EXPECT_EQ(n, 3);
    EXPECT_TRUE(AsyncParameter::SetAsyncParameterString(list, "d", "x"));
    EXPECT_EQ(list[1].Value, "x");
    EXPECT_EQ(list[1].Type, PARAMETER_TYPE_FLOAT);
}

TEST(ParameterTypeNames, TableAsTheSystemShowsIt) {
    const std::pair<int, const char *> rows[] = {
        {0, "bool"}, {1, "string"}, {2, "string"}, {3, "string"}, {7, "well_select"}, {8, "integer"},
        {12, "float"}, {15, "IP address"}, {18, "javascript object"}, {24, "field_composer"},
        {29, "vector string"}, {30, "duration"},
    };
    for (const auto &[value, name] : rows) EXPECT_STREQ(ParameterTypeNames[value], name) << value;
    EXPECT_EQ(ParameterTypeName(31), nullptr);
    EXPECT_EQ(ParameterTypeName(-1), nullptr);
}

TEST(ParameterObjectInstance, ParametersOfAParameter) {
    Parameter parameter;
    parameter.Name = "n";
    parameter.Type = PARAMETER_TYPE_PATH;
    ObjectInstance instance;
    parameter.ToObjectInstance(instance);
    const auto rows = marshal_test::Rows(instance);
    ASSERT_EQ(rows.size(), 11u);
    EXPECT_EQ(rows[2], (marshal_test::ParameterRow{"Properties", "Type", 8, "9", ""}));
    EXPECT_EQ(rows[6], (marshal_test::ParameterRow{"Properties", "Value to display", 1, "", ""}));
    EXPECT_EQ(rows[10], (marshal_test::ParameterRow{"Properties", "Scriptable", 0, "1", ""}));
    Parameter back;
    back.FromObjectInstance(instance);
    EXPECT_TRUE(back == parameter);
}

}  // namespace
