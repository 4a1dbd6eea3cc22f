// Product keys issued and read with a throwaway vendor key pair.
#include <algorithm>
#include <cctype>
#include <cstring>

#include "LicensingTestSupport.h"
#include "qor/licensing/KeyText.h"

namespace {

using licensing_test::SampleTerms;
using licensing_test::ThrowawayVendor;
using Status = CProductKey::Status;

// Issued once with the vendor's real private key, which is not in the
// repository: product "Qor Demo", licensee "Qor test suite", edition
// "Evaluation", never expires, bound to nothing.
constexpr char kVendorIssuedKey[] = "04452-VVJ41-26AVB-F192Q-CRBCE-NGQ8T-BFDR7-52VVJ-41T6A-WVM41-SQATB-MCM00-0078F-6G32Q-F1Y9N-169X5-"
    "JE2TK-GR2M5-FP838-R9WKX-VBY4D-NVJGR-0FP0P-AC7V7-DA197-4MBZP-A1S4H-DVZFF-CZBMX-GF3GN-AZVXV-F1TKP-0N3G2-B9";

// The key text of any bytes, signed as Issue signs terms; for terms that
// Issue itself would refuse to write.
std::string SignRaw(const ThrowawayVendor &vendor, std::vector<unsigned char> bytes) {
    static const char context[] = "Qor product key";
    std::vector<unsigned char> message(context, context + sizeof context);
    message.insert(message.end(), bytes.begin(), bytes.end());
    unsigned char signature[qor::Ed25519Key::kSignatureSize];
    EXPECT_TRUE(vendor.signer.Sign(message.data(), message.size(), signature));
    bytes.insert(bytes.end(), signature, signature + sizeof signature);
    return qor::EncodeKeyText(bytes);
}

class ProductKey : public ::testing::Test {
protected:
    Status Load(const std::string &text) { return key.Load(text, vendor.verifier); }
    ThrowawayVendor vendor;
    CProductKey key;
};

TEST_F(ProductKey, IssuedKeyReadsBackInEveryTypedForm) {
    CProductKey::Terms terms = SampleTerms();
    terms.ExpiryDay = 20000;
    terms.Adapters = {"a4:bb:6d:01:02:03", "00-1A-2B-3C-4D-5E", "A4-BB-6D-01-02-03"};
    const std::string text = vendor.Issue(terms);
    for (std::size_t i = 0; i < text.size(); ++i)
        EXPECT_EQ(text[i] == '-', i % 6 == 5) << text;

    // Case, blanks, hyphens and the look-alikes O, I and L do not matter.
    std::string typed;
    for (char c : text) {
        if (c == '-') continue;
        typed += c == '0' ? 'o' : c == '1' ? 'L' : static_cast<char>(std::tolower(c));
        if (typed.size() % 7 == 0) typed += " \n";
    }
    for (const std::string &form : {text, typed}) {
        ASSERT_EQ(Load(form), CProductKey::Valid) << form;
        EXPECT_EQ(key.GetText(), text);
        terms.Adapters = {"00-1A-2B-3C-4D-5E", "A4-BB-6D-01-02-03"};  // sorted, once each
        EXPECT_EQ(key.GetTerms(), terms);
        EXPECT_EQ(key.GetExpiryText(), "2024-10-04");
    }
}

TEST_F(ProductKey, ChecksProductAndExpiry) {
    CProductKey::Terms terms = SampleTerms();
    terms.ExpiryDay = 20000;
    ASSERT_EQ(Load(vendor.Issue(terms)), CProductKey::Valid);
    struct Case { const char *product; long day; Status expected; };
    const Case cases[] = {
        {"Qor Scheduler", 19000, CProductKey::Valid},
        {"Qor Scheduler", 20000, CProductKey::Valid},  // through its last day
        {"Qor Scheduler", 20001, CProductKey::Expired},
        {"qor scheduler", 19000, CProductKey::WrongProduct},
        {"Qor Scheduler Lite", 19000, CProductKey::WrongProduct},
    };
    for (const Case &c : cases) EXPECT_EQ(key.Check(c.product, c.day), c.expected) << c.product << " " << c.day;

    ASSERT_EQ(Load(vendor.Issue(SampleTerms())), CProductKey::Valid);
    EXPECT_EQ(key.Check("Qor Scheduler", CProductKey::kMaxExpiryDay + 1), CProductKey::Valid);
    EXPECT_EQ(key.GetExpiryText(), "never");
}

// Not one byte of a key can change and still pass, whatever the check
// characters say.
TEST_F(ProductKey, EveryChangedByteOrCharacterIsRefused) {
    CProductKey::Terms terms = SampleTerms();
    terms.Adapters = {"00-1A-2B-3C-4D-5E"};
    const std::string text = vendor.Issue(terms);
    std::vector<unsigned char> bytes;
    ASSERT_EQ(qor::DecodeKeyText(text, 1, 1000, bytes), CProductKey::Valid);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        auto changed = bytes;
        changed[i] ^= static_cast<unsigned char>(1u << (i % 8));
        EXPECT_EQ(Load(qor::EncodeKeyText(changed)), i == 0 ? CProductKey::UnknownVersion : CProductKey::BadSignature)
            << "byte " << i;
        EXPECT_TRUE(key.GetTerms().Product.empty() && key.GetText().empty());
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '-') continue;
        std::string changed = text;
        changed[i] = text[i] == 'Z' ? 'Y' : 'Z';
        EXPECT_NE(Load(changed), CProductKey::Valid) << "character " << i;
    }
}

TEST_F(ProductKey, OnlyTheSigningVendorsKeysPass) {
    const std::string text = vendor.Issue(SampleTerms());
    ThrowawayVendor other;
    EXPECT_EQ(key.Load(text, other.verifier), CProductKey::BadSignature);
    EXPECT_EQ(key.Load(text), CProductKey::BadSignature);  // the built-in key is not the throwaway one

    // A signature of the vendor's own key, over the same terms, is accepted by the built-in key.
    ASSERT_EQ(key.Load(kVendorIssuedKey), CProductKey::Valid) << CProductKey::StatusText(key.GetStatus());
    EXPECT_EQ(key.GetTerms().Product, "Qor Demo");
    EXPECT_EQ(key.GetTerms().Licensee, "Qor test suite");
    EXPECT_EQ(key.Check("Qor Demo"), CProductKey::Valid);
}

TEST_F(ProductKey, RefusesTextsThatAreNoKeys) {
    const std::string valid = vendor.Issue(SampleTerms());
    struct Case { std::string text; Status expected; };
    const Case cases[] = {
        {"", CProductKey::Empty},
        {" - \n\t", CProductKey::Empty},
        {"ABCDE-FGHIU", CProductKey::BadCharacter},
        {valid + "*", CProductKey::BadCharacter},
        {valid + "\xC3\xA9", CProductKey::BadCharacter},
        {std::string(116, '0'), CProductKey::WrongLength},   // below the shortest key
        {std::string(120, '0'), CProductKey::WrongLength},   // no whole number of bytes
        {std::string(399, '0'), CProductKey::WrongLength},   // above the longest key
        {std::string(100000, '0'), CProductKey::WrongLength},
        {valid.substr(0, valid.size() - 1) + (valid.back() == 'Z' ? "Y" : "Z"), CProductKey::Mistyped},
    };
    for (const Case &c : cases) EXPECT_EQ(Load(c.text), c.expected) << c.text.substr(0, 40);
}

// Bytes with a good signature that no issuer writes are still refused.
TEST_F(ProductKey, SignedButMalformedTermsAreRefused) {
    using Bytes = std::vector<unsigned char>;
    const Bytes nineAdapters = [] {
        Bytes b = {1, 1, 'P', 0, 1, 'L', 0, 0, 9};
        for (unsigned char i = 1; i <= 54; ++i) b.push_back(i);
        return b;
    }();
    struct Case { Bytes bytes; Status expected; };
    const Case cases[] = {
        {{1, 1, 'P', 0, 1, 'L', 0, 0, 0}, CProductKey::Valid},  // the shortest key there is
        {{2, 1, 'P', 0, 1, 'L', 0, 0, 0}, CProductKey::UnknownVersion},
        {{1, 1, 'P', 0, 1, 'L', 0, 0, 0, 0}, CProductKey::Malformed},     // a byte left over
        {{1, 0, 0, 2, 'L', 'L', 0, 0, 0}, CProductKey::Malformed},        // no product
        {{1, 1, '\n', 0, 1, 'L', 0, 0, 0}, CProductKey::Malformed},       // a control character
        {{1, 1, 'P', 0, 6, 'L', 0, 0, 0}, CProductKey::Malformed},        // a name past the end
        {{1, 1, 'P', 0, 1, 'L', 0, 0, 2, 1, 2, 3, 4, 5, 6}, CProductKey::Malformed},  // an adapter short
        {{1, 1, 'P', 0, 1, 'L', 0, 0, 1, 0, 0, 0, 0, 0, 0}, CProductKey::Malformed},  // no adapter's address
        {nineAdapters, CProductKey::Malformed},
    };
    for (const Case &c : cases)
        EXPECT_EQ(Load(SignRaw(vendor, c.bytes)), c.expected) << testing::PrintToString(c.bytes);
}

TEST_F(ProductKey, IssueKeepsToTheLimits) {
    // The largest terms a key holds read back unchanged, names in UTF-8 included.
    CProductKey::Terms largest;
    largest.Product = std::string(CProductKey::kMaxProduct - 2, 'P') + "\xC3\xA9";
    largest.Edition = std::string(CProductKey::kMaxEdition, 'E');
    largest.Licensee = std::string(CProductKey::kMaxLicensee, 'L');
    largest.ExpiryDay = CProductKey::kMaxExpiryDay;
    for (int i = 0; i < 8; ++i) largest.Adapters.push_back("02-00-00-00-00-0" + std::to_string(i + 1));
    ASSERT_EQ(Load(vendor.Issue(largest)), CProductKey::Valid);
    EXPECT_EQ(key.GetTerms(), largest);
    EXPECT_EQ(key.GetExpiryText(), "2149-06-06");

    using Change = void (*)(CProductKey::Terms &);
    const Change refused[] = {
        [](CProductKey::Terms &t) { t.Product.clear(); },
        [](CProductKey::Terms &t) { t.Product += 'x'; },
        [](CProductKey::Terms &t) { t.Edition += 'x'; },
        [](CProductKey::Terms &t) { t.Licensee += 'x'; },
        [](CProductKey::Terms &t) { t.Licensee.clear(); },
        [](CProductKey::Terms &t) { t.Licensee[3] = '\t'; },
        [](CProductKey::Terms &t) { t.Edition[0] = '\x7F'; },
        [](CProductKey::Terms &t) { t.ExpiryDay = CProductKey::kMaxExpiryDay + 1; },
        [](CProductKey::Terms &t) { t.ExpiryDay = -1; },
        [](CProductKey::Terms &t) { t.Adapters.push_back("02-00-00-00-00-09"); },
        [](CProductKey::Terms &t) { t.Adapters[0] = "02-00-00-00-00"; },
        [](CProductKey::Terms &t) { t.Adapters[0] = "00:00:00:00:00:00"; },
    };
    for (std::size_t i = 0; i < std::size(refused); ++i) {
        CProductKey::Terms terms = largest;
        refused[i](terms);
        std::string text = "untouched", error;
        EXPECT_FALSE(CProductKey::Issue(terms, vendor.signer, text, error)) << i;
        EXPECT_FALSE(error.empty()) << i;
        EXPECT_EQ(text, "untouched") << i;
    }
    std::string text, error;
    EXPECT_FALSE(CProductKey::Issue(SampleTerms(), vendor.verifier, text, error));  // a public key signs nothing
}

TEST(LicenceKeyFiles, RefuseWhatIsNoEd25519Key) {
    ThrowawayVendor vendor;
    EVP_PKEY *ec = EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256");
    const std::string ecPath = vendor.folder + "/ec.pem";
    licensing_test::WritePem(ecPath, ec, true);
    EVP_PKEY_free(ec);
    // Asking a terminal for a passphrase would hang a program that has none.
    const std::string lockedPath = vendor.folder + "/locked.pem";
    EVP_PKEY *pair = EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519");
    FILE *locked = std::fopen(lockedPath.c_str(), "w");
    PEM_write_PrivateKey(locked, pair, EVP_aes_256_cbc(), nullptr, 0, nullptr, const_cast<char *>("pass"));
    std::fclose(locked);
    EVP_PKEY_free(pair);

    struct Case { std::string path; const char *words; };
    const Case cases[] = {
        {ecPath, "not an Ed25519 key"},
        {lockedPath, "protected by a passphrase"},
        {vendor.folder + "/missing.pem", "cannot be read"},
        {vendor.folder, "cannot be read"},
        {"/proc/self/status", "not a PEM key"},
    };
    for (const Case &c : cases) {
        qor::Ed25519Key key;
        std::string error;
        EXPECT_FALSE(key.LoadPemFile(c.path, error)) << c.path;
        EXPECT_NE(error.find(c.words), std::string::npos) << error;
        EXPECT_FALSE(key.IsLoaded());
    }
    // A private key file gives its public half too.
    EXPECT_EQ(vendor.signer.GetPublicPem(), vendor.verifier.GetPublicPem());
    EXPECT_FALSE(vendor.verifier.HasPrivateKey());
}

TEST(LicenceDate, ReadsOnlyRealDates) {
    struct Case { const char *text; long day; };
    const Case cases[] = {
        {"1970-01-01", 0}, {"2024-02-29", 19782}, {"2149-06-06", 65535}, {"9999-12-31", 2932896},
        {"2023-02-29", -1}, {"2024-13-01", -1}, {"1969-12-31", -1}, {"2024-1-01", -1},
        {"2024-01-01 ", -1}, {"2024/01/01", -1}, {"", -1},
    };
    for (const Case &c : cases) {
        long day = -1;
        EXPECT_EQ(qor::ParseLicenceDate(c.text, day), c.day >= 0) << c.text;
        EXPECT_EQ(day, c.day) << c.text;
        if (c.day >= 0) {
            EXPECT_EQ(qor::FormatLicenceDate(c.day), c.text);
        }
    }
    EXPECT_EQ(qor::FormatLicenceTime(-1), "1969-12-31 23:59:59 UTC");
}

}  // namespace
