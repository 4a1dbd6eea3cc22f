// An Ed25519 key of a licence signer, held through OpenSSL's EVP interface:
// a vendor's private key that signs product keys, or the public key that
// checks them.
#pragma once

#include <cstddef>
#include <string>

struct evp_pkey_st;  // OpenSSL's EVP_PKEY

namespace qor {

class Ed25519Key {
public:
    static constexpr std::size_t kPublicKeySize = 32;
    static constexpr std::size_t kSignatureSize = 64;

    Ed25519Key() = default;
    Ed25519Key(Ed25519Key &&other) noexcept;
    Ed25519Key &operator=(Ed25519Key &&other) noexcept;
    Ed25519Key(const Ed25519Key &) = delete;
    Ed25519Key &operator=(const Ed25519Key &) = delete;
    ~Ed25519Key();

    // The vendor's public key built into the library: what CProductKey
    // checks keys with unless it is given another.
    static const Ed25519Key &BuiltIn();

    // Reads a PEM file or text as `openssl genpkey -algorithm ed25519`
    // writes it ("PRIVATE KEY"), or its public half ("PUBLIC KEY"). On
    // failure the key stays as it was and `error` says why. A key protected
    // by a passphrase is refused, never asked for on the terminal.
    bool LoadPemFile(const std::string &path, std::string &error);
    bool LoadPem(const std::string &pem, std::string &error);
    // A public key from its 32 raw bytes.
    bool LoadPublicBytes(const unsigned char *bytes);

    bool IsLoaded() const { return key_ != nullptr; }
    bool HasPrivateKey() const { return private_; }
    // The 32 raw bytes of the public key; false when none is loaded.
    bool GetPublicBytes(unsigned char *bytes) const;
    // The public key as a PEM text ("-----BEGIN PUBLIC KEY-----..."); empty
    // when none is loaded.
    std::string GetPublicPem() const;

    // Signs `size` bytes into kSignatureSize bytes; false without a private key.
    bool Sign(const unsigned char *message, std::size_t size, unsigned char *signature) const;
    // True only when `signature` (kSignatureSize bytes) is this key's over the message.
    bool Verify(const unsigned char *message, std::size_t size, const unsigned char *signature) const;

private:
    void Adopt(evp_pkey_st *key, bool isPrivate);

    evp_pkey_st *key_ = nullptr;
    bool private_ = false;
};

}  // namespace qor
