#include "qor/licensing/Ed25519Key.h"

#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>

#include <fstream>
#include <iterator>
#include <utility>

namespace qor {
namespace {

// A PEM file is a few hundred bytes; anything far larger is not a key.
constexpr std::size_t kMaxPemSize = 64 * 1024;

struct Bio {
    BIO *bio;
    ~Bio() { BIO_free(bio); }
};

struct SignContext {
    EVP_MD_CTX *ctx = EVP_MD_CTX_new();
    ~SignContext() { EVP_MD_CTX_free(ctx); }
};

// Stands in for OpenSSL's default, which would ask on the terminal for the
// passphrase of an encrypted key and so hang a program without one.
int RefusePassphrase(char *, int, int, void *asked) {
    *static_cast<bool *>(asked) = true;
    return 0;
}

// OpenSSL's words for the last failure, for a vendor who has to fix a file.
std::string OpenSslReason() {
    const unsigned long code = ERR_get_error();
    ERR_clear_error();
    if (code == 0) return "no key in it";
    const char *reason = ERR_reason_error_string(code);
    return reason != nullptr ? reason : "unreadable";
}

}  // namespace

Ed25519Key::Ed25519Key(Ed25519Key &&other) noexcept
    : key_(std::exchange(other.key_, nullptr)), private_(std::exchange(other.private_, false)) {}

Ed25519Key &Ed25519Key::operator=(Ed25519Key &&other) noexcept {
    if (this != &other) Adopt(std::exchange(other.key_, nullptr), std::exchange(other.private_, false));
    return *this;
}

Ed25519Key::~Ed25519Key() { EVP_PKEY_free(key_); }

void Ed25519Key::Adopt(evp_pkey_st *key, bool isPrivate) {
    EVP_PKEY_free(key_);
    key_ = key;
    private_ = isPrivate;
}

bool Ed25519Key::LoadPemFile(const std::string &path, std::string &error) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        error = path + ": cannot be read";
        return false;
    }
    std::string pem;
    char buffer[4096];
    while (file.read(buffer, sizeof buffer) || file.gcount() > 0) {
        pem.append(buffer, static_cast<std::size_t>(file.gcount()));
        if (pem.size() > kMaxPemSize) {
            error = path + ": too large for a key file";
            return false;
        }
    }
    if (file.bad()) {  // a folder, or a read error
        error = path + ": cannot be read";
        return false;
    }
    if (!LoadPem(pem, error)) {
        error = path + ": " + error;
        return false;
    }
    return true;
}

bool Ed25519Key::LoadPem(const std::string &pem, std::string &error) {
    if (pem.size() > kMaxPemSize) {
        error = "too large for a key";
        return false;
    }
    ERR_clear_error();
    bool passphraseAsked = false;
    // A private key is tried first, since its file also yields the public half.
    for (const bool isPrivate : {true, false}) {
        Bio in{BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size()))};
        if (in.bio == nullptr) break;
        EVP_PKEY *key = isPrivate ? PEM_read_bio_PrivateKey(in.bio, nullptr, &RefusePassphrase, &passphraseAsked)
                                  : PEM_read_bio_PUBKEY(in.bio, nullptr, &RefusePassphrase, &passphraseAsked);
        if (key == nullptr) continue;
        if (!EVP_PKEY_is_a(key, "ED25519")) {
            EVP_PKEY_free(key);
            ERR_clear_error();
            error = "not an Ed25519 key";
            return false;
        }
        ERR_clear_error();
        Adopt(key, isPrivate);
        return true;
    }
    if (passphraseAsked) {
        ERR_clear_error();
        error = "protected by a passphrase; write it without one first (openssl pkey -in KEY -out PLAIN)";
        return false;
    }
    error = "not a PEM key (" + OpenSslReason() + ")";
    return false;
}

bool Ed25519Key::LoadPublicBytes(const unsigned char *bytes) {
    EVP_PKEY *key = EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytes, kPublicKeySize);
    if (key == nullptr) {
        ERR_clear_error();
        return false;
    }
    Adopt(key, false);
    return true;
}

bool Ed25519Key::GetPublicBytes(unsigned char *bytes) const {
    std::size_t size = kPublicKeySize;
    return key_ != nullptr && EVP_PKEY_get_raw_public_key(key_, bytes, &size) == 1 &&
           size == kPublicKeySize;
}

std::string Ed25519Key::GetPublicPem() const {
    if (key_ == nullptr) return {};
    Bio out{BIO_new(BIO_s_mem())};
    if (out.bio == nullptr || PEM_write_bio_PUBKEY(out.bio, key_) != 1) return {};
    char *data = nullptr;
    const long size = BIO_get_mem_data(out.bio, &data);
    return size > 0 ? std::string(data, static_cast<std::size_t>(size)) : std::string();
}

bool Ed25519Key::Sign(const unsigned char *message, std::size_t size, unsigned char *signature) const {
    if (!private_) return false;
    SignContext c;
    std::size_t length = kSignatureSize;
    const bool ok = c.ctx != nullptr && EVP_DigestSignInit_ex(c.ctx, nullptr, nullptr, nullptr, nullptr, key_, nullptr) == 1 &&
                    EVP_DigestSign(c.ctx, signature, &length, message, size) == 1 && length == kSignatureSize;
    if (!ok) ERR_clear_error();
    return ok;
}

bool Ed25519Key::Verify(const unsigned char *message, std::size_t size, const unsigned char *signature) const {
    if (key_ == nullptr) return false;
    SignContext c;
    const bool ok = c.ctx != nullptr && EVP_DigestVerifyInit_ex(c.ctx, nullptr, nullptr, nullptr, nullptr, key_, nullptr) == 1 &&
                    EVP_DigestVerify(c.ctx, signature, kSignatureSize, message, size) == 1;
    if (!ok) ERR_clear_error();
    return ok;
}

}  // namespace qor
