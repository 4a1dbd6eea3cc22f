#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <string>

#include "qor/host/Crypto.h"

namespace {

std::vector<char> Bytes(const std::string &text) { return {text.begin(), text.end()}; }

// Key stretching at its lowest setting keeps the tests quick; the format
// carries the count, so the checks hold for any setting.
class Crypto : public ::testing::Test {
protected:
    Crypto() { crypto.SetIterations(1000); }
    static std::vector<char> Password() { return Bytes("correct horse battery staple"); }
    CCrypto crypto{Password()};
    std::vector<char> sealed, opened;
};

TEST_F(Crypto, RoundTripsAnySizeWithFreshBlocks) {
    ASSERT_TRUE(crypto.Init());
    for (std::size_t size : {0u, 1u, 15u, 16u, 17u, 100000u}) {
        std::vector<char> plain(size);
        for (std::size_t i = 0; i < size; ++i) plain[i] = static_cast<char>(i * 7);
        ASSERT_TRUE(crypto.Encrypt(plain, sealed));
        EXPECT_EQ(sealed.size(), plain.size() + 52);
        ASSERT_TRUE(crypto.Decrypt(sealed, opened));
        EXPECT_EQ(opened, plain);
    }
    std::vector<char> again;
    ASSERT_TRUE(crypto.Encrypt(Bytes("settings"), sealed));
    ASSERT_TRUE(crypto.Encrypt(Bytes("settings"), again));
    EXPECT_NE(sealed, again);
}

TEST_F(Crypto, WrongPasswordFailsAndBuiltInOneRoundTrips) {
    opened = Bytes("left over");
    ASSERT_TRUE(crypto.Encrypt(Bytes("licence data"), sealed));
    CCrypto reader(Bytes("correct horse battery stapler")), builtIn, builtInReader;
    EXPECT_FALSE(reader.Decrypt(sealed, opened));
    EXPECT_TRUE(opened.empty());
    EXPECT_FALSE(builtIn.Decrypt(sealed, opened));
    builtIn.SetIterations(1000);
    ASSERT_TRUE(builtIn.Encrypt(Bytes("shared"), sealed));
    ASSERT_TRUE(builtInReader.Decrypt(sealed, opened));
    EXPECT_EQ(opened, Bytes("shared"));
}

TEST_F(Crypto, AnyChangedOrMissingByteFails) {
    ASSERT_TRUE(crypto.Encrypt(Bytes("a block worth keeping intact"), sealed));
    // Magic, iteration count, salt, nonce, body and tag are all covered.
    for (std::size_t at = 0; at < sealed.size(); ++at) {
        auto damaged = sealed;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x01);
        EXPECT_FALSE(crypto.Decrypt(damaged, opened)) << "byte " << at;
    }
    for (std::size_t size : {std::size_t(0), std::size_t(10), sealed.size() - 1}) {
        std::vector<char> cut(sealed.begin(), sealed.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(crypto.Decrypt(cut, opened)) << size;
    }
    sealed.push_back('x');
    EXPECT_FALSE(crypto.Decrypt(sealed, opened));
}

TEST_F(Crypto, FileFormsRoundTrip) {
    std::string path = ::testing::TempDir() + "qor-crypto-file.bin";
    ASSERT_TRUE(crypto.EncryptToFile(Bytes("on disk"), path));
    ASSERT_TRUE(crypto.DecryptFromFile(path, opened));
    EXPECT_EQ(opened, Bytes("on disk"));
    // Overwriting keeps one whole block, never a mix.
    ASSERT_TRUE(crypto.EncryptToFile(Bytes("second"), path));
    ASSERT_TRUE(crypto.DecryptFromFile(path, opened));
    EXPECT_EQ(opened, Bytes("second"));
    std::ofstream(path, std::ios::binary | std::ios::app) << "junk";
    EXPECT_FALSE(crypto.DecryptFromFile(path, opened));
    std::remove(path.c_str());
    EXPECT_FALSE(crypto.DecryptFromFile(path, opened));
    EXPECT_FALSE(crypto.EncryptToFile(Bytes("x"), "/nonexistent-folder/qor.bin"));
}

TEST_F(Crypto, GeneratedPasswordsArePrintableAndFresh) {
    std::vector<char> a, b;
    crypto.GeneratePassword(a);
    crypto.GeneratePassword(b);
    ASSERT_EQ(a.size(), 32u);
    EXPECT_TRUE(std::all_of(a.begin(), a.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)); }));
    EXPECT_NE(a, b);
    CCrypto keyed(a);
    keyed.SetIterations(1000);
    ASSERT_TRUE(keyed.Encrypt(Bytes("x"), sealed));
    EXPECT_TRUE(keyed.Decrypt(sealed, opened));
}

}  // namespace
