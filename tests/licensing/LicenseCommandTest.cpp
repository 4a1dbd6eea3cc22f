// qor license, run as a vendor and a user would.
#include "LicensingTestSupport.h"
#include "support/RunCommand.h"

namespace {

using qor_test::Ran;

class LicenseCommand : public ::testing::Test {
protected:
    void SetUp() override {
        if (program.empty()) GTEST_SKIP() << "the qor command line is not built";
    }
    // Runs `qor license ARGS`; ARGS are quoted for the shell by the caller.
    Ran Run(const std::string &args) { return qor_test::RunCommand(program + " license " + args); }

#ifdef QOR_TOOL
    const std::string program = QOR_TOOL;
#else
    const std::string program;
#endif
    licensing_test::ThrowawayVendor vendor;
};

TEST_F(LicenseCommand, IssuesKeysThatCheckOnlyWithTheirPublicKey) {
    const Ran issued = Run("issue --key '" + vendor.privatePem +
                           "' --product 'Qor Scheduler' --licensee 'Ostrander Labs' --edition Pro"
                           " --expires 2149-06-06");
    ASSERT_EQ(issued.status, 0) << issued.out;
    const std::string key = issued.LastLine();
    CProductKey read;
    ASSERT_EQ(read.Load(key, vendor.verifier), CProductKey::Valid) << issued.out;
    EXPECT_EQ(read.GetTerms().Licensee, "Ostrander Labs");

    const std::string withPublic = " --public-key '" + vendor.publicPem + "'";
    Ran checked = Run("check " + key + withPublic);
    EXPECT_EQ(checked.status, 0) << checked.out;
    EXPECT_EQ(checked.LastLine(), "The product key is valid.");
    // Typed in groups as several words, in lower case.
    std::string words = key;
    for (char &c : words) c = c == '-' ? ' ' : static_cast<char>(std::tolower(c));
    EXPECT_EQ(Run("check " + words + withPublic).status, 0);

    CProductKey::Terms terms = licensing_test::SampleTerms();
    terms.ExpiryDay = 11323;  // 2001-01-01
    const std::string expired = vendor.Issue(terms);
    terms.ExpiryDay = 0;
    terms.Adapters = {"02-00-5E-00-53-01"};  // documentation's own address, on no real adapter
    const std::string boundElsewhere = vendor.Issue(terms);
    struct Case { std::string args; int status; std::string last; };
    const Case cases[] = {
        {"check " + key, 1, "qor license check: " + std::string(CProductKey::StatusText(CProductKey::BadSignature))},
        {"check " + key + withPublic + " --product Other", 1, CProductKey::StatusText(CProductKey::WrongProduct)},
        {"check " + expired + withPublic, 1, CProductKey::StatusText(CProductKey::Expired)},
        {"check " + boundElsewhere + withPublic, 1, CProductKey::StatusText(CProductKey::WrongHost)},
        {"check " + key.substr(0, 40) + withPublic, 1,
         "qor license check: " + std::string(CProductKey::StatusText(CProductKey::WrongLength))},
        {"check" + withPublic, 2, "qor: license check: give the key (see qor license --help)"},
        {"issue --key '" + vendor.privatePem + "' --product P", 2,
         "qor: license issue: --licensee is needed (see qor license --help)"},
        {"issue --key '" + vendor.privatePem + "' --product P --licensee L --expires 2024-02-30", 2,
         "qor: license issue: --expires wants a date YYYY-MM-DD"},
        {"issue --key '" + vendor.publicPem + "' --product P --licensee L", 1,
         "qor license issue: a key is signed with a private key, and this one has none"},
        {"issue --key '" + vendor.privatePem + "' --product P --licensee L --bind-adapter 00-11", 1,
         "qor license issue: '00-11' is not a MAC address (like 00-1A-2B-3C-4D-5E)"},
        {"renew", 2, "qor: license: unknown subcommand 'renew' (see qor license --help)"},
    };
    for (const Case &c : cases) {
        const Ran ran = Run(c.args);
        EXPECT_EQ(ran.status, c.status) << c.args << "\n" << ran.out;
        EXPECT_EQ(ran.LastLine(), c.last) << c.args;
    }
}

TEST_F(LicenseCommand, InfoReadsTheRecordWithoutMakingOne) {
    const std::string store = " --store '" + vendor.folder + "/store.db'";
    const Ran before = Run("info" + store);
    EXPECT_EQ(before.status, 0) << before.out;
    EXPECT_NE(before.out.find("HKEY_CURRENT_USER\\Software\\Qor\\Licensing\\Installation\n  " +
                              std::string(CInstallationTime::StatusText(CInstallationTime::NotRecorded))),
              std::string::npos)
        << before.out;
    EXPECT_NE(before.out.find("adapters as a key binds them"), std::string::npos) << before.out;
    EXPECT_EQ(Run("info" + store).out, before.out);
    EXPECT_EQ(Run("info --hive HKXX").status, 2);
}

}  // namespace
