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

// Writes a key pair (or its public half) as a PEM file.
inline void WritePem(const std::string &path, EVP_PKEY *key, bool isPrivate) {
    FILE *file = std::fopen(path.c_str(), "w");
    ASSERT_NE(file, nullptr) << path;
    EXPECT_EQ(isPrivate ? PEM_write_PrivateKey(file, key, nullptr, nullptr, 0, nullptr, nullptr)
                        : PEM_write_PUBKEY(file, key),
              1);
    std::fclose(file);
}

class ThrowawayVendor {
public:
    ThrowawayVendor() {
        EVP_PKEY *pair = EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519");
        WritePem(privatePem, pair, true);
        WritePem(publicPem, pair, false);
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

    std::string folder = MakeFolder();
    std::string privatePem = folder + "/private.pem", publicPem = folder + "/public.pem";
    qor::Ed25519Key signer, verifier;

private:
    static std::string MakeFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qor-licensing-XXXXXX").string();
        return mkdtemp(pattern.data());
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
