// MD5 (RFC 1321) of bytes, as 32 lower-case hexadecimal digits.
#pragma once

#include <cstddef>
#include <string>

struct evp_md_ctx_st;

// An incremental MD5 computation. Reset starts over, Update adds bytes, Final
// gives the digest and leaves the object ready for a new Reset. The static
// GetMD5 forms hash one buffer at once and reuse a per-thread context.
class CMD5Checksum {
public:
    CMD5Checksum();
    CMD5Checksum(const CMD5Checksum &other);
    CMD5Checksum &operator=(const CMD5Checksum &other);
    ~CMD5Checksum();

    void Reset();
    void Update(const unsigned char *data, unsigned long length);
    // Two lower-case hexadecimal digits per digest byte, in order.
    std::string Final();

    static std::string GetMD5(const std::string &text);
    static std::string GetMD5(const char *data, unsigned int length);
    static std::string GetMD5(const unsigned char *data, unsigned int length);

private:
    evp_md_ctx_st *context_;
};

namespace qor {
// MD5 of any number of bytes, as CMD5Checksum::GetMD5 gives it.
std::string MD5Hex(const void *data, std::size_t length);
}  // namespace qor
