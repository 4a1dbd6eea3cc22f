// Rebuilding parameter lists from device metadata (ParseParameterNodes),
// and a command taking its definition anew (ParseCommandNode, Refresh).
#include <gtest/gtest.h>

#include "qor/records/metadata.h"
#include "qor/records/pipette.h"
#include "qor/xml.h"

using ObjectInstanceXMLMarshaller::Parameter;
using ObjectInstanceXMLMarshaller::ParameterType;
using M = MetaDataManager;
using XMLNode = XMLParser::XMLNode;

namespace {

XMLNode Element(const std::string &text) {
    XMLReader reader;
    reader.ReadFromBuffer(text, true);
    return reader;
}

std::vector<Parameter> Parse(XMLNode &node, std::vector<Parameter> old = {}, bool keepValues = false) {
    M::ParseParameterNodes(node, old, keepValues);
    return old;
}

TEST(ParseParameterNodes, ReadsDeclaredFieldsAndLimitsTypeAndStyle) {
    struct Case {
        const char *attributes;
        int type, style;
        bool scriptable;
    };
    const Case cases[] = {
        {"", 0, 0, true},  // absent: type 0, style 0, scriptable
        {"Type='12' Style='1' Scriptable='1'", 12, 1, true},
        {"Type='99' Style='7'", 33, 2, true},
        {"Type='-4' Style='-1' Scriptable='0'", 0, 0, false},
        {"Type='9abc' Style='x' Scriptable='false'", 9, 0, true},  // only "0" says no
        {"Type=' 31' Scriptable='00'", 31, 0, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.attributes);
        XMLNode node = Element(std::string("<Command><Parameters><Parameter Name='p' ") + c.attributes +
                               " /></Parameters></Command>");
        const auto parameters = Parse(node);
        ASSERT_EQ(parameters.size(), 1u);
        EXPECT_EQ(parameters[0].Type, c.type);
        EXPECT_EQ(parameters[0].Style, c.style);
        EXPECT_EQ(parameters[0].Scriptable, c.scriptable);
    }
}

TEST(ParseParameterNodes, TakesListsIgnoresTheRestAndLeavesTheElementCompleted) {
    XMLNode node = Element(
        "<Command>"
        "<Parameters>"
        "<Parameter Name='Volume' Description='how much' Units='ul' Value='50' Script='ignored' Category='Liquid'>"
        "<Ranges><Range Value='10' /><Other Value='no' /><Range /></Ranges>"
        "<AllowedLabwareClasses><Value Value='96' /><Value Value='384' /></AllowedLabwareClasses>"
        "<Unknown />"
        "</Parameter>"
        "<NotAParameter Name='x' />"
        "</Parameters>"
        "<Other><Parameter Name='elsewhere' /></Other>"
        "<Parameters><Parameter Name='Second' /></Parameters>"
        "</Command>");
    const auto parameters = Parse(node, {Parameter()});  // the old list is replaced
    ASSERT_EQ(parameters.size(), 2u);
    const Parameter &volume = parameters[0];
    EXPECT_EQ(volume.Name, "Volume");
    EXPECT_EQ(volume.Description, "how much");
    EXPECT_EQ(volume.Units, "ul");
    EXPECT_EQ(volume.Value, "50");
    EXPECT_EQ(volume.Category, "Liquid");
    EXPECT_EQ(volume.Script, "");  // a declared script is not taken
    ASSERT_EQ(volume.Ranges.size(), 2u);
    EXPECT_EQ(volume.Ranges[0].Value, "10");
    EXPECT_EQ(volume.Ranges[1].Value, "");
    EXPECT_EQ(volume.AllowedLabwareClasses, (std::vector<std::string>{"96", "384"}));
    EXPECT_EQ(parameters[1].Name, "Second");

    // The element now carries every attribute read by indexing, the absent
    // ones empty; Units and Value are only read, never added.
    const XMLNode &second = node.children.back().children.front();
    std::vector<std::string> keys;
    for (const auto &[key, value] : second.attributes) keys.push_back(key + "=" + value);
    EXPECT_EQ(keys, (std::vector<std::string>{"Category=", "Description=", "Hide_if=", "Name=Second", "Scriptable=",
                                              "Style=", "Type=", "ValueToDisplay="}));
}

TEST(ParseParameterNodes, KeepingValuesFollowsTheTypeOfTheNewDeclaration) {
    struct Case {
        const char *label;
        int type;
        const char *oldName;  // nullptr: no old parameter of that name
        const char *oldValue, *oldScript;
        const char *value, *script;
    };
    const Case cases[] = {
        {"string takes the old value", 1, "p", "old", "", "old", ""},
        {"string takes an empty old value", 1, "p", "", "", "", ""},
        {"integer, new to the metadata, loses its default", 8, nullptr, "", "", "", ""},
        {"path keeps its default over an empty old value", 9, "p", "", "", "new", ""},
        {"path takes a non-empty old value", 9, "p", "/old", "", "/old", ""},
        {"optional path, new to the metadata, keeps its default", 13, nullptr, "", "", "new", ""},
        {"directory takes a non-empty old value", 16, "p", "/dir", "", "/dir", ""},
        {"a non-empty old script is kept", 1, "p", "v", "x + 1", "v", "x + 1"},
        {"the old list is searched by exact name", 1, "P", "other", "s", "", ""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.label);
        XMLNode node = Element("<Command><Parameters><Parameter Name='p' Type='" + std::to_string(c.type) +
                               "' Value='new' /></Parameters></Command>");
        std::vector<Parameter> list;
        if (c.oldName) {
            Parameter &previous = list.emplace_back();
            previous.Name = c.oldName;
            previous.Value = c.oldValue;
            previous.Script = c.oldScript;
        }
        const auto kept = Parse(node, list, true);
        ASSERT_EQ(kept.size(), 1u);
        EXPECT_EQ(kept[0].Value, c.value);
        EXPECT_EQ(kept[0].Script, c.script);
        EXPECT_EQ(Parse(node, list, false)[0].Value, "new");  // without keepValues the declaration stands
    }
}

TEST(ParseParameterNodes, AWellSelectionKeepsItsWellsUnderTheDeclaredHeadMode) {
    using PipetteXMLMarshaller::WellSelection;
    WellSelection users;
    users.Wells = {PipetteXMLMarshaller::Well(0, 1), PipetteXMLMarshaller::Well(7, 11)};
    users.LinkedText = "source";
    WellSelection declared;
    declared.PipetteHeadMode.SetChannelsType(PipetteXMLMarshaller::CHANNELS_8);
    declared.PipetteHeadMode.ColumnCount = 1;
    declared.OnlyOneSelection = true;
    WellSelection expected = users;
    expected.PipetteHeadMode = declared.PipetteHeadMode;

    struct Case {
        const char *label;
        const char *oldName;
        std::string oldValue, declaredValue, value;
    };
    const Case cases[] = {
        {"wells kept, head mode declared", "p", users.ToXMLString(), declared.ToXMLString(), expected.ToXMLString()},
        {"an empty old value keeps the declaration", "p", "", declared.ToXMLString(), declared.ToXMLString()},
        {"so does a new parameter", nullptr, "", declared.ToXMLString(), declared.ToXMLString()},
        {"an old value that isn't a selection", "p", "<Wells>", declared.ToXMLString(), declared.ToXMLString()},
        {"a declaration that isn't one stands", "p", users.ToXMLString(), "none", "none"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.label);
        XMLNode node = Element("<Command><Parameters><Parameter Name='p' Type='7' /></Parameters></Command>");
        node.children.front().children.front().attributes["Value"] = c.declaredValue;
        std::vector<Parameter> list;
        if (c.oldName) Parameter::AddParameterString(list, c.oldName, c.oldValue);
        const auto kept = Parse(node, list, true);
        ASSERT_EQ(kept.size(), 1u);
        EXPECT_EQ(kept[0].Value, c.value);
    }
}

// The description of a device with one command, as a driver ships it.
std::string Description(const char *file, const char *version, const char *command) {
    return std::string("<?xml version='1.0' ?><Brindlemar file='") + file + "' version='" + version +
           "'><MetaData><Commands>"
           "<Command Name='Other' Description='not this one' />" +
           command + "</Commands></MetaData></Brindlemar>";
}

constexpr char kSeal[] =
    "<Command Name='Seal' Description='Seals anew' Editor='6' Compiler='3x' DisplayName='not read'>"
    "<Parameters><Parameter Name='Time' Type='12' Value='5' /><Parameter Name='Added' Type='9' Value='/d' />"
    "</Parameters></Command>";

M::Command SealCommand() {
    M::Command seal;
    seal.Name = "Seal";
    seal.DisplayName = "Seal plate";
    Parameter::AddParameterFloat(seal.Parameters, "Time", 2.5);
    Parameter::AddParameterString(seal.Parameters, "Dropped", "x");
    return seal;
}

TEST(CommandRefresh, TakesTheNewDefinitionAndKeepsTheUsersValues) {
    M::Command seal = SealCommand();
    ASSERT_TRUE(seal.Refresh(Description("MetaData", "1.0", kSeal)));
    EXPECT_EQ(seal.Description, "Seals anew");
    EXPECT_EQ(seal.DisplayName, "Seal plate");
    EXPECT_EQ(seal.Editor, 6);
    EXPECT_EQ(seal.Compiler, 3);
    ASSERT_EQ(seal.Parameters.size(), 2u);
    EXPECT_EQ(seal.GetParameter("Time"), "2.5");
    EXPECT_EQ(seal.Parameters[0].Type, ObjectInstanceXMLMarshaller::PARAMETER_TYPE_FLOAT);
    EXPECT_EQ(seal.GetParameter("Added"), "/d");

    // Commands straight under the root serve as well.
    M::Command again = SealCommand();
    EXPECT_TRUE(again.Refresh(std::string("<?xml version='1.0' ?><Brindlemar file='MetaData' version='1.0'>"
                                          "<Commands>") + kSeal + "</Commands></Brindlemar>"));
    EXPECT_EQ(again.Description, "Seals anew");
}

TEST(CommandRefresh, RefusesWhatIsNotThisCommandsDescription) {
    const std::string refused[] = {
        Description("MetaData", "2.0", kSeal),
        Description("Query", "1.0", kSeal),
        Description("MetaData", "1.0", "<Command Name='seal' />"),
        Description("MetaData", "1.0", "<Command Description='no name' />"),
        "<?xml version='1.0' ?><Brindlemar file='MetaData' version='1.0'><MetaData /></Brindlemar>",
        "<?xml version='1.0' ?><Brindlemar file='MetaData' version='1.0' />",
        "<Brindlemar file='MetaData' version='1.0'><Commands>" + std::string(kSeal) + "</Commands></Brindlemar>",
        "<?xml version='1.0' ?><Brindlemar file='MetaData' version='1.0'><Commands>",
        "",
    };
    for (const std::string &text : refused) {
        SCOPED_TRACE(text);
        M::Command seal = SealCommand();
        EXPECT_FALSE(seal.Refresh(text));
        EXPECT_TRUE(seal == SealCommand());
    }
}

TEST(CommandParameters, FoundByExactNameFirstMatchWinning) {
    M::Command command;
    Parameter::AddParameterString(command.Parameters, "Speed", "fast");
    command.Parameters.emplace_back().Name = "Speed";  // a second of the name is never seen
    command.Parameters[0].Script = "speed()";
    Parameter::AddParameterFloat(command.Parameters, "Height", 1.5);
    ObjectInstanceXMLMarshaller::AsyncParameter::AddAsyncParameterString(command.AsyncParameters, "Progress", "40");

    EXPECT_EQ(command.GetParameter("Speed"), "fast");
    EXPECT_EQ(command.GetParameterScript("Speed"), "speed()");
    EXPECT_EQ(command.GetParameter("speed"), "");
    EXPECT_EQ(command.GetParameterScript("Height"), "");
    EXPECT_EQ(command.GetAsyncParameter("Progress"), "40");
    EXPECT_EQ(command.GetAsyncParameter("Speed"), "");
    EXPECT_TRUE(command.HasParameterOfType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_FLOAT));
    EXPECT_FALSE(command.HasParameterOfType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT));
}

}  // namespace
