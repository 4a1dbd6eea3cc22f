// qor record, run as a user runs it: what it prints and its exit codes.
#include <gtest/gtest.h>

#include <fstream>

#include "support/RunCommand.h"
#include "marshal/MarshalTestSupport.h"
#include "qor/records/hooks.h"
#include "qor/xml.h"

namespace {

using Outcome = qor_test::Ran;
using qor_test::RunQor;

class RecordCommand : public testing::Test {
protected:
    void SetUp() override {
        if (!qor_test::QorToolIsBuilt()) GTEST_SKIP() << "the qor tool isn't built";
    }
    std::string Write(const std::string &name, const std::string &text) {
        const std::string path = (dir_.path() / name).string();
        std::ofstream(path) << text;
        return path;
    }
    marshal_test::TempDir dir_;
};

TEST_F(RecordCommand, ShowPrintsEveryRecordWithItsNesting) {
    using namespace HooksPluginXMLMarshaller;
    ProtocolStarted started;
    started.Path = "C:\\runs\\night.pro";
    started.FutureProtocols.resize(1);
    started.FutureProtocols[0].Name = "Wash\tplate";
    TaskStarting task;
    task.Devices = {"Robot", ""};
    XMLWriter document("MetaData", "1.0", true);
    document.children.push_back(started.ToXMLNode());
    document.children.push_back(task.ToXMLNode());
    document.children.push_back(HookResults().ToXMLNode());
    std::string text;
    document.WriteToBuffer(text);

    const Outcome outcome = RunQor("record show " + Write("events.xml", text));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "ProtocolStarted (HooksPluginXMLMarshaller)\n"
              "\n"
              "Name             Type     Value\n"
              "---------------  -------  -----------------\n"
              "Path             string   C:\\runs\\night.pro\n"
              "Simulating       bool     0\n"
              "Protocol type    integer  0\n"
              "Notes            string\n"
              "FutureProtocols  list     1 record\n"
              "  [1]            record   FutureProtocol\n"
              "    Name         string   Wash\\tplate\n"
              "    Notes        string\n"
              "    StartDate    string\n"
              "    StartTime    string\n"
              "\n"
              "TaskStarting (HooksPluginXMLMarshaller)\n"
              "\n"
              "Name             Type     Value\n"
              "---------------  -------  ---------------\n"
              "Description      string\n"
              "Process Name     string\n"
              "InstanceNumber   integer  0\n"
              "Task Index       integer  0\n"
              "Process Index    integer  0\n"
              "SubProcess name  string\n"
              "Protocol path    string\n"
              "Path             string   <not specified>\n"
              "Protocol type    integer  0\n"
              "Task is spawned  bool     0\n"
              "Devices          list     2 items\n"
              "  [1]                     Robot\n"
              "  [2]\n"
              "Locations        list     empty\n"
              "\n"
              "HookResults (HooksPluginXMLMarshaller)\n"
              "\n"
              "Name     Type  Value\n"
              "-------  ----  -----\n"
              "Results  list  empty\n");
}

TEST_F(RecordCommand, ShowPrintsAnObjectInstanceByCategoryAndModule) {
    ObjectInstanceXMLMarshaller::ObjectInstance instance;
    instance.BaseObjectDescription.Categories.resize(1);
    instance.BaseObjectDescription.Categories[0].Name = "Motion";
    ObjectInstanceXMLMarshaller::Parameter::AddParameterFloat(instance.BaseObjectDescription.Categories[0].Parameters,
                                                              "Speed", 2.5);
    auto &module = instance.ModuleObjectDescriptions.emplace_back();
    module.ModuleName = "Washer";
    module.Categories.resize(1);
    module.Categories[0].Name = "Fluid";
    ObjectInstanceXMLMarshaller::Parameter::AddParameterBool(module.Categories[0].Parameters, "Prime", true);

    const Outcome outcome = RunQor("record show " + Write("instance.xml", instance.ToXMLString()));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "ObjectInstance (ObjectInstanceXMLMarshaller)\n"
              "\n"
              "Name           Type   Value\n"
              "-------------  -----  -----\n"
              "[Motion]\n"
              "  Speed        float  2.5\n"
              "module Washer\n"
              "  [Fluid]\n"
              "    Prime      bool   1\n");
}

TEST_F(RecordCommand, NewWritesAStampedDocumentThatChecksAndShows) {
    const Outcome created = RunQor("record new HooksPluginXMLMarshaller::Aborted");
    EXPECT_EQ(created.status, 0);
    EXPECT_EQ(created.out, HooksPluginXMLMarshaller::Aborted().ToXMLString() + "\n");
    const std::string path = Write("aborted.xml", created.out);
    EXPECT_EQ(RunQor("xml check " + path).out, path + ": ok\n");
    EXPECT_EQ(RunQor("record show " + path).status, 0);
}

TEST_F(RecordCommand, FieldsNotesWhereAFieldDeparts) {
    // Parameter's table marks three fields as left out of comparisons.
    const Outcome outcome = RunQor("record fields Parameter");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out.rfind("Parameter (ObjectInstanceXMLMarshaller), file type MetaData\n", 0), 0u);
    EXPECT_NE(outcome.out.find("Hide_if                string attribute  string          empty    Hide_if "
                                  "          string          not compared\n"),
              std::string::npos)
        << outcome.out;
    EXPECT_NE(RunQor("record fields BaseObjectDescription").out.find("BaseObjectDescription : ObjectDescription"),
              std::string::npos);
}

TEST_F(RecordCommand, ListGroupsTypesByFamily) {
    const Outcome list = RunQor("record list");
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(list.out.rfind("ObjectInstanceXMLMarshaller\n  Range\n  Parameter\n", 0), 0u) << list.out;
    EXPECT_NE(list.out.find("\n\nHooksPluginXMLMarshaller\n  FutureProtocol\n"), std::string::npos);
    EXPECT_EQ(RunQor("record --help").out.rfind("usage: qor record show FILE", 0), 0u);
}

TEST_F(RecordCommand, FailuresSayWhyAndExitNonZero) {
    struct Case {
        std::string arguments;
        int status;
        const char *says;
    };
    const Case cases[] = {
        {"record show " + Write("unknown.xml", "<?xml version='1.0' ?><r><Nope /><Aborted /></r>"), 1,
         "no record type is named 'Nope'"},
        {"record show " + Write("empty.xml", "<?xml version='1.0' ?><r />"), 1, "the document holds no record"},
        {"record show " + Write("broken.xml", "<?xml version='1.0' ?><r><a>"), 1, "EOF with open tags"},
        {"record show " + (dir_.path() / "missing.xml").string(), 1, "not found"},
        {"record new NoSuchType", 1, "no record type or family is named 'NoSuchType'"},
        {"record new HooksPluginXMLMarshaller", 2, "is a family; name one type"},
        {"record fields Aborted Nope", 1, "no record type or family is named 'Nope'"},
        {"record show", 2, "expects one FILE"},
        {"record fields", 2, "expects a TYPE or FAMILY"},
        {"record frobnicate", 2, "unknown sub-verb"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.arguments);
        const Outcome outcome = RunQor(c.arguments);
        EXPECT_EQ(outcome.status, c.status);
        EXPECT_NE(outcome.out.find(c.says), std::string::npos) << outcome.out;
    }
    // The known record of a document with an unknown one is still shown.
    EXPECT_NE(RunQor(cases[0].arguments).out.find("Aborted (HooksPluginXMLMarshaller)"), std::string::npos);
}

}  // namespace
