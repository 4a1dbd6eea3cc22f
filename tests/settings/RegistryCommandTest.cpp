// qor registry, run as a user would: write, list, export, import, delete.
#include <filesystem>
#include <fstream>
#include <string>

#include "SettingsTestSupport.h"
#include "support/RunCommand.h"

namespace {

using qor_test::Ran;
using settings_test::TempHives;

class RegistryCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (program.empty() || !std::filesystem::exists(program)) GTEST_SKIP() << "the qor command line is not built";
    }
    // Runs `qor registry ARGS --store STORE`; ARGS are quoted for the shell by the caller.
    Ran Run(const std::string &args) {
        return qor_test::RunCommand(program + " registry " + args + " --store '" + store + "'");
    }

#ifdef QOR_TOOL
    const std::string program = QOR_TOOL;
#else
    const std::string program;
#endif
    TempHives hives;
    const std::string store = hives.Folder() + "/cli.db";
};

TEST_F(RegistryCommandTest, WritesListsExportsImportsAndDeletes) {
    EXPECT_EQ(Run(R"(set 'Lab\Arm' Name "arm one")").status, 0);
    EXPECT_EQ(Run(R"(set 'Lab\Arm' Speed 0xFFFFFFFF --type REG_DWORD)").status, 0);
    EXPECT_EQ(Run(R"(set 'Lab\Arm' Ports COM1 COM2 --type 7)").status, 0);
    EXPECT_EQ(Run(R"(set 'Lab\Arm\Gripper' Force 12 --type 4)").status, 0);

    EXPECT_EQ(Run(R"(get 'Lab\Arm' Ports)"), (Ran{0, "COM1\nCOM2\n"}));
    EXPECT_EQ(Run(R"(get 'Lab\Arm' Speed)").out, "4294967295\n");

    Ran listed = Run(R"(ls 'Lab\Arm')");
    EXPECT_EQ(listed.status, 0);
    EXPECT_NE(listed.out.find("Gripper\\\n"), std::string::npos) << listed.out;
    EXPECT_NE(listed.out.find("REG_MULTI_SZ"), std::string::npos) << listed.out;

    const std::string document = hives.Folder() + "/arm.xml";
    EXPECT_EQ(Run(R"(export 'Lab\Arm' > ')" + document + "'").status, 0);
    EXPECT_EQ(Run("import '" + document + R"(' Copies --name Arm2)").status, 0);
    EXPECT_EQ(Run(R"(get 'Copies\Arm2\Gripper' Force)").out, "12\n");

    EXPECT_EQ(Run("rm Copies").status, 0);
    EXPECT_EQ(Run("ls Copies"), (Ran{1, "qor registry: no key Copies\n"}));
}

TEST_F(RegistryCommandTest, FailuresPrintTheSystemsWordsAndExitNonZero) {
    const std::string document = hives.Folder() + "/other.xml";
    std::ofstream(document) << "<?xml version='1.0' ?><Brindlemar file='Other' extrainfo='E'><values /></Brindlemar>";
    EXPECT_EQ(Run("import '" + document + "' X"), (Ran{1, "qor registry: The file type is incorrect.\n"}));

    // A hive named in the key takes the store too.
    EXPECT_EQ(Run(R"(set 'HKLM\Lab' Where machine)").status, 0);
    EXPECT_EQ(Run(R"(get 'HKEY_LOCAL_MACHINE\Lab' Where --hive HKCU)").out, "machine\n");

    EXPECT_EQ(Run(R"(get 'No\Such' Key)").status, 1);
    EXPECT_EQ(Run("set K N notanumber --type 4").status, 2);
    EXPECT_EQ(Run("frobnicate").status, 2);
    Ran help = Run("ls --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("usage: qor registry ls KEY"), std::string::npos);
}

}  // namespace
