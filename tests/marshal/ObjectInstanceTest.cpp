// ObjectInstance: path operations and their error codes, the merges, and
// the text of the description records.
#include <gtest/gtest.h>

#include "MarshalTestSupport.h"
#include "qor/marshal.h"

using namespace ObjectInstanceXMLMarshaller;
using marshal_test::RecordText;
using Path = std::vector<std::string>;

namespace {

// A category of string Parameters, named and valued in order.
ObjectParameterCategory Category(const char *name, std::vector<std::pair<const char *, const char *>> values) {
    ObjectParameterCategory category;
    category.Name = name;
    for (const auto &[parameter, value] : values) Parameter::AddParameterString(category.Parameters, parameter, value);
    return category;
}

ObjectInstance FilledInstance() {
    ObjectInstance instance;
    instance.BaseObjectDescription.Categories = {Category("Main", {{"a", "1"}, {"b", "2"}}), Category("Other", {{"c", "3"}})};
    auto &module = instance.ModuleObjectDescriptions.emplace_back();
    module.ModuleName = "Mod";
    module.Categories = {Category("ModCat", {{"m", "4"}})};
    return instance;
}

TEST(ObjectInstancePaths, ResultsAndThrownCodes) {
    constexpr long kThrows = 1;  // marks a case that throws CATEGORY_NOT_FOUND
    struct Case {
        const char *what;
        bool set;
        Path path;
        const char *name;
        long result;
    };
    const Case cases[] = {
        {"get ok", false, {"Main"}, "b", 0},
        {"get empty path", false, {}, "a", ObjectManagerErrors::PATH_NOT_ONE_ELEMENT},
        {"get two elements", false, {"Mod", "ModCat"}, "m", ObjectManagerErrors::PATH_NOT_ONE_ELEMENT},
        {"get unknown parameter", false, {"Main"}, "zz", ObjectManagerErrors::PARAMETER_NOT_IN_CATEGORY},
        {"get unknown category", false, {"Nope"}, "a", kThrows},
        {"set ok", true, {"Other"}, "c", 0},
        {"set module ok", true, {"Mod", "ModCat"}, "m", 0},
        {"set unknown module", true, {"Nope", "ModCat"}, "m", ObjectManagerErrors::SET_MODULE_NOT_FOUND},
        {"set unknown module category", true, {"Mod", "Nope"}, "m", kThrows},
        {"set unknown parameter", true, {"Main"}, "zz", ObjectManagerErrors::SET_PARAMETER_NOT_IN_CATEGORY},
        {"set empty path", true, {}, "a", ObjectManagerErrors::SET_PATH_NOT_ONE_OR_TWO},
        {"set three elements", true, {"a", "b", "c"}, "a", ObjectManagerErrors::SET_PATH_NOT_ONE_OR_TWO},
        {"set unknown category", true, {"Nope"}, "a", kThrows},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        ObjectInstance instance = FilledInstance();
        std::string value = "untouched";
        try {
            const unsigned long result = c.set ? instance.SetValue(c.path, c.name, "new", true)
                                               : instance.GetValue(c.path, c.name, value);
            EXPECT_NE(c.result, kThrows) << "expected a throw";
            EXPECT_EQ(result, static_cast<unsigned long>(c.result));
        } catch (ObjectManagerErrors::ERROR_CODES code) {
            EXPECT_EQ(c.result, kThrows);
            EXPECT_EQ(code, ObjectManagerErrors::CATEGORY_NOT_FOUND);
        }
        if (!c.set && c.result == 0) {
            EXPECT_EQ(value, "2");
        }
    }

    ObjectInstance instance = FilledInstance();
    ASSERT_EQ(instance.SetValue({"Mod", "ModCat"}, "m", "changed", false), 0u);
    EXPECT_EQ(instance.ModuleObjectDescriptions[0].Categories[0].Parameters[0].Value, "changed");
    EXPECT_EQ(ObjectInstance().SetValue({"Mod", "ModCat"}, "m", "x", false),
              static_cast<unsigned long>(ObjectManagerErrors::SET_MODULE_NOT_FOUND));
}

TEST(ObjectInstancePaths, GetParameterRefReachesIntoTheObjectOrThrows) {
    const ObjectInstance instance = FilledInstance();
    instance.GetParameterRef({"Main"}, "a").Value = "through the reference";
    std::string value;
    instance.GetValue({"Main"}, "a", value);
    EXPECT_EQ(value, "through the reference");

    const std::pair<Path, ObjectManagerErrors::ERROR_CODES> failures[] = {
        {{}, ObjectManagerErrors::PATH_NOT_ONE_ELEMENT},
        {{"Main", "x"}, ObjectManagerErrors::PATH_NOT_ONE_ELEMENT},
        {{"Nope"}, ObjectManagerErrors::CATEGORY_NOT_FOUND},
        {{"Other"}, ObjectManagerErrors::PARAMETER_NOT_IN_CATEGORY},
    };
    for (const auto &[path, code] : failures) {
        try {
            instance.GetParameterRef(path, "a");
            ADD_FAILURE() << "no throw for code " << code;
        } catch (ObjectManagerErrors::ERROR_CODES thrown) {
            EXPECT_EQ(thrown, code);
        }
    }
}

TEST(ObjectInstancePaths, RemoveParameterKeepsTheOthersInOrder) {
    ObjectInstance instance = FilledInstance();
    EXPECT_FALSE(instance.RemoveParameter("Nope", "a"));
    EXPECT_FALSE(instance.RemoveParameter("Main", "zz"));
    Parameter::AddParameterString(instance.BaseObjectDescription.Categories[0].Parameters, "z", "9");
    EXPECT_TRUE(instance.RemoveParameter("Main", "b"));
    const auto &parameters = instance.BaseObjectDescription.Categories[0].Parameters;
    ASSERT_EQ(parameters.size(), 2u);
    EXPECT_EQ(parameters[0].Name, "a");
    EXPECT_EQ(parameters[1].Name, "z");
}

TEST(ObjectInstanceMerge, CopyParametersRecordsChangedValuesOnly) {
    const ObjectInstance target = FilledInstance();
    ObjectInstance source = FilledInstance();
    auto &main = source.BaseObjectDescription.Categories[0];
    main.Parameters[1].Value = "22";
    main.Parameters[1].Description = "ignored";
    Parameter::AddParameterString(main.Parameters, "new", "n");
    source.BaseObjectDescription.Categories.emplace_back().Name = "Added";
    source.ModuleObjectDescriptions[0].Categories[0].Parameters[0].Value = "44";
    source.ModuleObjectDescriptions.emplace_back().ModuleName = "Mod2";

    std::vector<ChangeRecord> changes = {{"stale", "", "", ""}};
    const ObjectInstance result = ObjectInstance::CopyParameters(target, source, changes);
    const std::vector<ChangeRecord> expected = {{"Main", "b", "2", "22"}, {"ModCat", "m", "4", "44"}};
    EXPECT_EQ(changes, expected);
    const auto &resultMain = result.BaseObjectDescription.Categories[0];
    ASSERT_EQ(resultMain.Parameters.size(), 3u);
    EXPECT_EQ(resultMain.Parameters[1].Value, "22");
    EXPECT_EQ(resultMain.Parameters[1].Description, "");  // other members stay the target's
    EXPECT_EQ(resultMain.Parameters[2].Name, "new");
    EXPECT_EQ(result.BaseObjectDescription.Categories.back().Name, "Added");
    ASSERT_EQ(result.ModuleObjectDescriptions.size(), 2u);
    EXPECT_EQ(result.ModuleObjectDescriptions[1].ModuleName, "Mod2");
}

TEST(ObjectInstanceMerge, TemplatizeUnionAndIntersection) {
    const ObjectInstance target = FilledInstance();
    ObjectInstance source;
    source.BaseObjectDescription.Categories = {Category("Main", {{"a", "A"}, {"extra", "E"}})};
    source.ModuleObjectDescriptions.emplace_back().ModuleName = "ignored";

    const ObjectInstance templated = ObjectInstance::Templatize(target, source);
    ObjectInstance expected = FilledInstance();
    expected.BaseObjectDescription.Categories[0].Parameters[0].Value = "A";
    EXPECT_TRUE(templated == expected);

    EXPECT_TRUE(ObjectInstance::TemplateUnion(target, source) == target);
    const ObjectInstance none = ObjectInstance::TemplateIntersection(target, target);
    EXPECT_TRUE(none.BaseObjectDescription.Categories.empty());
    EXPECT_TRUE(none == ObjectInstance());
}

TEST(ObjectInstanceText, DescriptionsAreExact) {
    EXPECT_EQ(RecordText(ObjectInstance().ToXMLString()),
              "\t<ObjectInstance >\n"
              "\t\t<BaseObjectDescription BackEndType='0' ObjectNamesAreCaseSensitive='0' />\n"
              "\t</ObjectInstance>");

    BaseObjectDescription description;
    description.ObjectType = "T";
    description.objecttype = "t";
    description.ObjectPlural = "P";
    description.objectplural = "p";
    description.ObjectDescription = "D";
    description.ObjectNamesAreCaseSensitive = true;
    description.Categories.resize(1);
    description.Categories[0].Name = "C";
    EXPECT_EQ(RecordText(description.ToXMLString()),
              "\t<BaseObjectDescription BackEndType='0' ObjectDescription='D' ObjectNamesAreCaseSensitive='1' "
              "ObjectPlural='P' ObjectType='T' objectplural='p' objecttype='t' >\n"
              "\t\t<Categories >\n"
              "\t\t\t<ObjectParameterCategory Name='C' />\n"
              "\t\t</Categories>\n"
              "\t</BaseObjectDescription>");
    const BaseObjectDescription back(description.ToXMLString());
    EXPECT_TRUE(back == description);

    ObjectInstance instance;
    description.ToObjectInstance(instance);
    const std::vector<std::string> names = {"Object type", "object type", "Object plural", "object plural",
                                            "Object description", "Back-end type", "Back-end root",
                                            "Object names are case sensitive"};
    std::vector<std::string> shown;
    for (const auto &row : marshal_test::Rows(instance)) shown.push_back(row.name);
    EXPECT_EQ(shown, names);
}

TEST(ObjectInstanceText, WholeInstanceRoundTrips) {
    ObjectInstance instance = FilledInstance();
    instance.BaseObjectDescription.ObjectType = "Thing";
    instance.BaseObjectDescription.BackEndType = static_cast<DATABASE_BACK_END_TYPES>(3);
    instance.ModuleObjectDescriptions[0].ModuleDescription = "module";
    EXPECT_TRUE(ObjectInstance(instance.ToXMLString()) == instance);

    ObjectInstance shown;
    instance.ToObjectInstance(shown);  // an ObjectInstance shows nothing of itself
    EXPECT_TRUE(shown == ObjectInstance());
}

}  // namespace
