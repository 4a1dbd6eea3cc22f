// A throwaway vendor key pair, made fresh for each test in PEM files of a
// temporary folder, as `openssl genpkey -algorithm ed25519` would write them.
#pragma once

#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "qor/licensing.h"

namespace licensing_test {

class ThrowawayVendor {
public:
    ThrowawayVendor() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qor-licensing-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        EVP_PKEY *pair = EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519");
        Write(privatePem = folder + "/private.pem", [&](FILE *f) { return PEM_write_PrivateKey(f, pair, nullptr, nullptr, 0, nullptr, nullptr); });
        Write(publicPem = folder + "/public.pem", [&](FILE *f) { return PEM_write_PUBKEY(f, pair); });
        EVP_PKEY_free(pair);
        std::string error;
        EXPECT_TRUE(signer.LoadPemFile(privatePem, error)) << error;
        EXPECT_TRUE(verifier.LoadPemFile(publicPem, error)) << error;
    }
    ~ThrowawayVendor() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    ThrowawayVendor(const ThrowawayVendor &) = delete;
    ThrowawayVendor &operator=(const ThrowawayVendor &) = delete;

    // The key text of `terms`, which must be issuable.
    std::string Issue(const CProductKey::Terms &terms) const {
        std::string text, error;
        EXPECT_TRUE(CProductKey::Issue(terms, signer, text, error)) << error;
        return text;
    }

    std::string folder, privatePem, publicPem;
    qor::Ed25519Key signer, verifier;

private:
    template <class WriteKey>
    static void Write(const std::string &path, WriteKey write) {
        FILE *file = std::fopen(path.c_str(), "w");
        ASSERT_NE(file, nullptr) << path;
        EXPECT_EQ(write(file), 1) << path;
        std::fclose(file);
    }
};

inline CProductKey::Terms SampleTerms() {
    CProductKey::Terms terms;
    terms.Product = "Qor Scheduler";
    terms.Edition = "Professional";
    terms.Licensee = "Ostrander Laboratories";
    return terms;
}

}  // namespace licensing_test
