// MD5 through OpenSSL's EVP interface.
#include "qor/xml/MD5Checksum.h"

#include <openssl/evp.h>

#include <new>

namespace {

// Fetched once: an implicit fetch on every init costs more than hashing a
// small record.
const EVP_MD *Md5Algorithm() {
    static const EVP_MD *md5 = [] {
        const EVP_MD *fetched = EVP_MD_fetch(nullptr, "MD5", nullptr);
        return fetched ? fetched : EVP_md5();
    }();
    return md5;
}

std::string HexDigest(const unsigned char *digest, unsigned int length) {
    static constexpr char kHex[] = "0123456789abcdef";
    std::string hex(length * 2, '0');
    for (unsigned int i = 0; i < length; ++i) {
        hex[2 * i] = kHex[digest[i] >> 4];
        hex[2 * i + 1] = kHex[digest[i] & 0x0f];
    }
    return hex;
}

EVP_MD_CTX *NewContext() {
    EVP_MD_CTX *context = EVP_MD_CTX_new();
    if (!context) throw std::bad_alloc();
    return context;
}

}  // namespace

CMD5Checksum::CMD5Checksum() : context_(NewContext()) { Reset(); }

CMD5Checksum::CMD5Checksum(const CMD5Checksum &other) : context_(NewContext()) {
    EVP_MD_CTX_copy_ex(context_, other.context_);
}

CMD5Checksum &CMD5Checksum::operator=(const CMD5Checksum &other) {
    if (this != &other) EVP_MD_CTX_copy_ex(context_, other.context_);
    return *this;
}

CMD5Checksum::~CMD5Checksum() { EVP_MD_CTX_free(context_); }

void CMD5Checksum::Reset() { EVP_DigestInit_ex(context_, Md5Algorithm(), nullptr); }

void CMD5Checksum::Update(const unsigned char *data, unsigned long length) {
    EVP_DigestUpdate(context_, data, length);
}

std::string CMD5Checksum::Final() {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    EVP_DigestFinal_ex(context_, digest, &length);
    Reset();
    return HexDigest(digest, length);
}

std::string CMD5Checksum::GetMD5(const std::string &text) {
    return qor::MD5Hex(text.data(), text.size());
}

std::string CMD5Checksum::GetMD5(const char *data, unsigned int length) {
    return qor::MD5Hex(data, length);
}

std::string CMD5Checksum::GetMD5(const unsigned char *data, unsigned int length) {
    return qor::MD5Hex(data, length);
}

std::string qor::MD5Hex(const void *data, std::size_t length) {
    // One context per thread, reused: records are hashed one by one.
    thread_local CMD5Checksum checksum;
    checksum.Update(static_cast<const unsigned char *>(data), length);
    return checksum.Final();
}
