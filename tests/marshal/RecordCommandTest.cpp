// qor record, run as a user runs it: the table it prints and its exit codes.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "MarshalTestSupport.h"
#include "qor/records/hooks.h"

namespace {

struct Outcome {
    int status;
    std::string output;  // stdout and stderr together
};

std::string QorBinary() { return std::string(QOR_BINARY_DIR) + "/tools/qor"; }

Outcome RunQor(const std::string &arguments) {
    Outcome outcome{-1, ""};
    FILE *pipe = popen((QorBinary() + " " + arguments + " 2>&1").c_str(), "r");
    if (!pipe) return outcome;
    char buffer[4096];
    std::size_t n;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) outcome.output.append(buffer, n);
    const int status = pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

class RecordCommand : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(QorBinary())) GTEST_SKIP() << "the qor tool isn't built";
    }
    std::string Write(const std::string &name, const std::string &text) {
        const std::string path = (dir_.path() / name).string();
        std::ofstream(path) << text;
        return path;
    }
    marshal_test::TempDir dir_;
};

TEST_F(RecordCommand, ShowPrintsTheParameterTable) {
    HooksPluginXMLMarshaller::ProtocolPaused paused;
    paused.Path = "C:\\runs\\night.pro";
    paused.PauseType = 2;
    const Outcome outcome = RunQor("record show " + Write("paused.xml", paused.ToXMLString()));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              "ProtocolPaused (HooksPluginXMLMarshaller)\n"
              "\n"
              "Category    Name       Type     Value\n"
              "----------  ---------  -------  -----\n"
              "Properties  Path       string   C:\\runs\\night.pro\n"
              "Properties  PauseType  integer  2\n");
}

TEST_F(RecordCommand, FailuresSayWhyAndExitNonZero) {
    struct Case {
        std::string arguments;
        int status;
        const char *says;
    };
    const Case cases[] = {
        {"record show " + Write("unknown.xml", "<?xml version='1.0' ?><r><Nope /></r>"), 1,
         "no record type is named 'Nope'"},
        {"record show " + Write("empty.xml", "<?xml version='1.0' ?><r />"), 1, "the document holds no record"},
        {"record show " + Write("broken.xml", "<?xml version='1.0' ?><r><a>"), 1, "EOF with open tags"},
        {"record show " + (dir_.path() / "missing.xml").string(), 1, "not found"},
        {"record show", 2, "expects one FILE"},
        {"record frobnicate", 2, "unknown sub-verb"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.arguments);
        const Outcome outcome = RunQor(c.arguments);
        EXPECT_EQ(outcome.status, c.status);
        EXPECT_NE(outcome.output.find(c.says), std::string::npos) << outcome.output;
    }
}

TEST_F(RecordCommand, ListAndHelp) {
    const Outcome list = RunQor("record list");
    EXPECT_EQ(list.status, 0);
    EXPECT_NE(list.output.find("ProtocolPaused"), std::string::npos);
    const Outcome help = RunQor("record --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.rfind("usage: qor record show FILE", 0), 0u);
}

}  // namespace
