// Adapter bindings against given adapters and against this computer's own.
#include "LicensingTestSupport.h"

namespace {

using licensing_test::SampleTerms;
using licensing_test::ThrowawayVendor;

CProductKey BoundKey(const ThrowawayVendor &vendor, std::vector<std::string> adapters) {
    CProductKey::Terms terms = SampleTerms();
    terms.Adapters = std::move(adapters);
    CProductKey key;
    EXPECT_EQ(key.Load(vendor.Issue(terms), vendor.verifier), CProductKey::Valid);
    return key;
}

TEST(LANInfoValidator, AKeyRunsWhereOneOfItsAdaptersIs) {
    ThrowawayVendor vendor;
    const LANInfoValidator::Adapters here = {{"eth0", "a4:bb:6d:01:02:03"}, {"eth1", "00-1A-2B-3C-4D-5E"}};
    struct Case { std::vector<std::string> bound; LANInfoValidator::Adapters host; CProductKey::Status expected; };
    const Case cases[] = {
        {{}, {}, CProductKey::Valid},
        {{"A4-BB-6D-01-02-03"}, here, CProductKey::Valid},
        {{"02-00-00-00-00-01", "00-1A-2B-3C-4D-5E"}, here, CProductKey::Valid},
        {{"02-00-00-00-00-01"}, here, CProductKey::WrongHost},
        {{"A4-BB-6D-01-02-03"}, {}, CProductKey::WrongHost},
        {{"A4-BB-6D-01-02-03"}, {{"eth0", "not a MAC"}}, CProductKey::WrongHost},
    };
    for (const Case &c : cases)
        EXPECT_EQ(LANInfoValidator(c.host).Validate(BoundKey(vendor, c.bound)), c.expected)
            << testing::PrintToString(c.bound);
    // A key that did not load keeps its own refusal.
    CProductKey unread;
    unread.Load("ABCDE", vendor.verifier);
    EXPECT_EQ(LANInfoValidator(here).Validate(unread), CProductKey::WrongLength);
}

TEST(LANInfoValidator, ReadsThisComputersAdapters) {
    ThrowawayVendor vendor;
    const LANInfoValidator host;
    EXPECT_EQ(host.Validate(BoundKey(vendor, {"02-00-5E-00-53-01"})), CProductKey::WrongHost);
    if (host.GetAdapters().empty()) GTEST_SKIP() << "no adapter with an address here: " << host.GetError();
    EXPECT_EQ(host.Validate(BoundKey(vendor, {"02-00-5E-00-53-01", host.GetAdapters().begin()->second})),
              CProductKey::Valid);
}

}  // namespace
