#include "qor/host/Crypto.h"

#include <openssl/evp.h>
#include <openssl/rand.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

namespace {

constexpr char kMagic[4] = {'Q', 'C', 'R', '1'};
constexpr std::size_t kSaltSize = 16;
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kTagSize = 16;
constexpr std::size_t kKeySize = 32;
constexpr std::size_t kHeaderSize = sizeof(kMagic) + 4 + kSaltSize + kNonceSize;
constexpr unsigned kMinIterations = 1000;
// A block that asks for more is hostile: it would only burn time.
constexpr unsigned kMaxIterations = 10000000;
constexpr char kBuiltInPassword[] = "Qor shared classes: host crypto wrapper, built-in key v1";

struct CipherContext {
    EVP_CIPHER_CTX *ctx = EVP_CIPHER_CTX_new();
    ~CipherContext() { EVP_CIPHER_CTX_free(ctx); }
};

// Wipes key material when it goes out of scope.
struct KeyBuffer {
    unsigned char bytes[kKeySize];
    ~KeyBuffer() { OPENSSL_cleanse(bytes, sizeof bytes); }
};

void PutBigEndian32(unsigned char *at, unsigned value) {
    at[0] = static_cast<unsigned char>(value >> 24);
    at[1] = static_cast<unsigned char>(value >> 16);
    at[2] = static_cast<unsigned char>(value >> 8);
    at[3] = static_cast<unsigned char>(value);
}

unsigned GetBigEndian32(const unsigned char *at) {
    return (unsigned(at[0]) << 24) | (unsigned(at[1]) << 16) | (unsigned(at[2]) << 8) | at[3];
}

}  // namespace

CCrypto::CCrypto() : password_(std::begin(kBuiltInPassword), std::end(kBuiltInPassword) - 1) {}

CCrypto::CCrypto(const std::vector<char> &password) : password_(password) {}

CCrypto::~CCrypto() {
    EVP_CIPHER_free(static_cast<EVP_CIPHER *>(cipher_));
    EVP_MD_free(static_cast<EVP_MD *>(digest_));
    OPENSSL_cleanse(password_.data(), password_.size());
}

bool CCrypto::Init() {
    if (cipher_ != nullptr && digest_ != nullptr) return true;
    if (cipher_ == nullptr) cipher_ = EVP_CIPHER_fetch(nullptr, "AES-256-GCM", nullptr);
    if (digest_ == nullptr) digest_ = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    return cipher_ != nullptr && digest_ != nullptr;
}

void CCrypto::SetPassword(const std::vector<char> &password) {
    OPENSSL_cleanse(password_.data(), password_.size());
    password_ = password;
}

void CCrypto::SetIterations(unsigned iterations) {
    iterations_ = std::max(iterations, kMinIterations);
}

bool CCrypto::DeriveKey(const unsigned char *salt, unsigned iterations, unsigned char *key) const {
    return PKCS5_PBKDF2_HMAC(password_.data(), static_cast<int>(password_.size()), salt,
                             static_cast<int>(kSaltSize), static_cast<int>(iterations),
                             static_cast<const EVP_MD *>(digest_), static_cast<int>(kKeySize),
                             key) == 1;
}

bool CCrypto::Encrypt(const std::vector<char> &in, std::vector<char> &out) {
    out.clear();
    if (!Init() || in.size() > static_cast<std::size_t>(INT32_MAX) - kHeaderSize - kTagSize)
        return false;
    std::vector<unsigned char> block(kHeaderSize + in.size() + kTagSize);
    unsigned char *header = block.data();
    std::memcpy(header, kMagic, sizeof kMagic);
    PutBigEndian32(header + 4, iterations_);
    unsigned char *salt = header + 8;
    unsigned char *nonce = salt + kSaltSize;
    if (RAND_bytes(salt, kSaltSize + kNonceSize) != 1) return false;

    KeyBuffer key;
    CipherContext c;
    int len = 0;
    if (c.ctx == nullptr || !DeriveKey(salt, iterations_, key.bytes) ||
        EVP_EncryptInit_ex2(c.ctx, static_cast<EVP_CIPHER *>(cipher_), key.bytes, nonce,
                            nullptr) != 1 ||
        EVP_EncryptUpdate(c.ctx, nullptr, &len, header, static_cast<int>(kHeaderSize)) != 1)
        return false;
    unsigned char *body = header + kHeaderSize;
    if (!in.empty() &&
        EVP_EncryptUpdate(c.ctx, body, &len, reinterpret_cast<const unsigned char *>(in.data()),
                          static_cast<int>(in.size())) != 1)
        return false;
    if (EVP_EncryptFinal_ex(c.ctx, body + in.size(), &len) != 1 ||
        EVP_CIPHER_CTX_ctrl(c.ctx, EVP_CTRL_GCM_GET_TAG, kTagSize, body + in.size()) != 1)
        return false;
    out.assign(block.begin(), block.end());
    return true;
}

bool CCrypto::Decrypt(const std::vector<char> &in, std::vector<char> &out) {
    out.clear();
    if (!Init() || in.size() < kHeaderSize + kTagSize ||
        in.size() > static_cast<std::size_t>(INT32_MAX) ||
        std::memcmp(in.data(), kMagic, sizeof kMagic) != 0)
        return false;
    const auto *header = reinterpret_cast<const unsigned char *>(in.data());
    unsigned iterations = GetBigEndian32(header + 4);
    if (iterations < kMinIterations || iterations > kMaxIterations) return false;
    const unsigned char *salt = header + 8;
    const unsigned char *nonce = salt + kSaltSize;
    const unsigned char *body = header + kHeaderSize;
    const std::size_t bodySize = in.size() - kHeaderSize - kTagSize;
    unsigned char tag[kTagSize];
    std::memcpy(tag, body + bodySize, kTagSize);

    KeyBuffer key;
    CipherContext c;
    int len = 0;
    std::vector<char> plain(bodySize);
    if (c.ctx == nullptr || !DeriveKey(salt, iterations, key.bytes) ||
        EVP_DecryptInit_ex2(c.ctx, static_cast<EVP_CIPHER *>(cipher_), key.bytes, nonce,
                            nullptr) != 1 ||
        EVP_DecryptUpdate(c.ctx, nullptr, &len, header, static_cast<int>(kHeaderSize)) != 1)
        return false;
    if (bodySize > 0 &&
        EVP_DecryptUpdate(c.ctx, reinterpret_cast<unsigned char *>(plain.data()), &len, body,
                          static_cast<int>(bodySize)) != 1)
        return false;
    unsigned char scratch[16];
    if (EVP_CIPHER_CTX_ctrl(c.ctx, EVP_CTRL_GCM_SET_TAG, kTagSize, tag) != 1 ||
        EVP_DecryptFinal_ex(c.ctx, scratch, &len) != 1) {
        OPENSSL_cleanse(plain.data(), plain.size());
        return false;
    }
    out.swap(plain);
    return true;
}

bool CCrypto::EncryptToFile(const std::vector<char> &in, const std::string &path) {
    std::vector<char> block;
    if (!Encrypt(in, block)) return false;
    std::string temp = path + ".qcrXXXXXX";
    int fd = ::mkstemp(temp.data());
    if (fd < 0) return false;
    std::size_t written = 0;
    while (written < block.size()) {
        ssize_t n = ::write(fd, block.data() + written, block.size() - written);
        if (n <= 0) break;
        written += static_cast<std::size_t>(n);
    }
    bool ok = written == block.size() && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (ok) ok = std::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) ::unlink(temp.c_str());
    return ok;
}

bool CCrypto::DecryptFromFile(const std::string &path, std::vector<char> &out) {
    out.clear();
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    std::vector<char> block((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad()) return false;
    return Decrypt(block, out);
}

void CCrypto::GeneratePassword(std::vector<char> &out) {
    static constexpr char kAlphabet[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    constexpr unsigned kAlphabetSize = sizeof kAlphabet - 1;  // 62
    out.clear();
    while (out.size() < 32) {
        unsigned char bytes[64];
        if (RAND_bytes(bytes, sizeof bytes) != 1) {
            out.clear();
            return;
        }
        // Rejecting bytes of 248 and above keeps every character equally likely.
        for (unsigned char b : bytes)
            if (b < 248 && out.size() < 32) out.push_back(kAlphabet[b % kAlphabetSize]);
    }
}
