// CCrypto: enciphers and deciphers byte vectors and files with a password.
//
// The cipher is AES-256-GCM; its key is stretched from the password with
// PBKDF2-HMAC-SHA256 over a random salt. A result is one self-contained block:
//   "QCR1" | iterations (4 bytes, big-endian) | salt (16) | nonce (12)
//   | ciphertext (as long as the plain text) | tag (16)
// The header is authenticated with the data, so a wrong password, a changed
// byte anywhere or a cut block makes Decrypt return false and leave `out`
// empty. Every operation reports failure by false and throws nothing.
//
// A CCrypto made without a password uses the library's built-in one, so two
// programs of the suite can exchange blocks without agreeing on a secret;
// anything meant to stay private should set its own with SetPassword.
#pragma once

#include <string>
#include <vector>

class CCrypto {
public:
    static constexpr unsigned kDefaultIterations = 100000;

    CCrypto();
    explicit CCrypto(const std::vector<char> &password);
    virtual ~CCrypto();
    CCrypto(const CCrypto &) = delete;
    CCrypto &operator=(const CCrypto &) = delete;

    // Acquires the cipher and the digest. The other operations call it when
    // it has not run yet; false when the crypto library lacks either.
    bool Init();

    void SetPassword(const std::vector<char> &password);
    // Iterations of the key stretch for blocks made from now on (at least 1000).
    void SetIterations(unsigned iterations);

    bool Encrypt(const std::vector<char> &in, std::vector<char> &out);
    bool Decrypt(const std::vector<char> &in, std::vector<char> &out);
    // Writes the enciphered block to `path` through a temporary file beside
    // it, so a failure never leaves half a file.
    bool EncryptToFile(const std::vector<char> &in, const std::string &path);
    bool DecryptFromFile(const std::string &path, std::vector<char> &out);

    // A fresh random password of 32 printable characters (letters and digits).
    void GeneratePassword(std::vector<char> &out);

private:
    bool DeriveKey(const unsigned char *salt, unsigned iterations, unsigned char *key) const;

    void *cipher_ = nullptr;  // EVP_CIPHER *
    void *digest_ = nullptr;  // EVP_MD *
    std::vector<char> password_;
    unsigned iterations_ = kDefaultIterations;
};
