#include "qor/licensing/KeyLayout.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "qor/host/LANInfo.h"
#include "qor/licensing/Ed25519Key.h"

namespace qor {
namespace {

constexpr std::size_t kMacSize = 6;

// The three names of a key, in their order, with their limits.
struct NameField {
    std::string CProductKey::Terms::*member;
    std::size_t minSize;
    std::size_t maxSize;
    const char *what;
};

constexpr NameField kNameFields[] = {
    {&CProductKey::Terms::Product, 1, CProductKey::kMaxProduct, "the product name"},
    {&CProductKey::Terms::Edition, 0, CProductKey::kMaxEdition, "the edition"},
    {&CProductKey::Terms::Licensee, 1, CProductKey::kMaxLicensee, "the licensee"},
};

using Mac = std::array<unsigned char, kMacSize>;

// No adapter has the address of all zeros, so no key binds it.
bool IsAdapterAddress(const Mac &mac) { return mac != Mac{}; }

bool IsPrintableName(const std::string &name) {
    return std::none_of(name.begin(), name.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

// The sorted, distinct six-byte forms of MAC texts.
bool AdapterBytes(const std::vector<std::string> &adapters, std::vector<Mac> &out, std::string &error) {
    for (const std::string &text : adapters) {
        Mac mac{};
        if (!LANInfo::HumanReadableToSixByte(text.c_str(), mac.data())) {
            error = "'" + text + "' is not a MAC address (like 00-1A-2B-3C-4D-5E)";
            return false;
        }
        if (!IsAdapterAddress(mac)) {
            error = "00-00-00-00-00-00 is no adapter's address";
            return false;
        }
        out.push_back(mac);
    }
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
    if (out.size() > CProductKey::kMaxAdapters) {
        error = "a key binds at most " + std::to_string(CProductKey::kMaxAdapters) + " adapters";
        return false;
    }
    return true;
}

// Reads sequentially and remembers whether it ever ran past the end.
class ByteReader {
public:
    ByteReader(const unsigned char *bytes, std::size_t size) : at_(bytes), end_(bytes + size) {}
    unsigned Byte() { return Take(1) ? at_[-1] : 0; }
    const unsigned char *Take(std::size_t count) {
        if (static_cast<std::size_t>(end_ - at_) < count) {
            failed_ = true;
            at_ = end_;
            return nullptr;
        }
        at_ += count;
        return at_ - count;
    }
    bool AtEnd() const { return at_ == end_; }
    bool Failed() const { return failed_; }

private:
    const unsigned char *at_;
    const unsigned char *end_;
    bool failed_ = false;
};

constexpr std::size_t NamesOverhead(bool largest) {
    std::size_t total = 0;
    for (const NameField &field : kNameFields) total += 1 + (largest ? field.maxSize : field.minSize);
    return total;
}

}  // namespace

// Version, the names, expiry, the adapter count and list, the signature.
const std::size_t kMinProductKeyBytes = 1 + NamesOverhead(false) + 2 + 1 + Ed25519Key::kSignatureSize;
const std::size_t kMaxProductKeyBytes =
    1 + NamesOverhead(true) + 2 + 1 + CProductKey::kMaxAdapters * kMacSize + Ed25519Key::kSignatureSize;

bool EncodeKeyTerms(const CProductKey::Terms &terms, std::vector<unsigned char> &out, std::string &error) {
    for (const NameField &field : kNameFields) {
        const std::string &name = terms.*field.member;
        if (name.size() < field.minSize || name.size() > field.maxSize) {
            error = std::string(field.what) + " must have " + std::to_string(field.minSize) + " to " +
                    std::to_string(field.maxSize) + " bytes";
            return false;
        }
        if (!IsPrintableName(name)) {
            error = std::string(field.what) + " may not hold control characters";
            return false;
        }
    }
    if (terms.ExpiryDay < 0 || terms.ExpiryDay > CProductKey::kMaxExpiryDay) {
        error = "the expiry date must lie between 1970-01-02 and 2149-06-06";
        return false;
    }
    std::vector<Mac> macs;
    if (!AdapterBytes(terms.Adapters, macs, error)) return false;

    out.push_back(kProductKeyVersion);
    for (const NameField &field : kNameFields) {
        const std::string &name = terms.*field.member;
        out.push_back(static_cast<unsigned char>(name.size()));
        out.insert(out.end(), name.begin(), name.end());
    }
    out.push_back(static_cast<unsigned char>(terms.ExpiryDay >> 8));
    out.push_back(static_cast<unsigned char>(terms.ExpiryDay));
    out.push_back(static_cast<unsigned char>(macs.size()));
    for (const auto &mac : macs) out.insert(out.end(), mac.begin(), mac.end());
    return true;
}

CProductKey::Status DecodeKeyTerms(const unsigned char *bytes, std::size_t size, CProductKey::Terms &terms) {
    ByteReader in(bytes, size);
    if (in.Byte() != kProductKeyVersion) return CProductKey::UnknownVersion;
    for (const NameField &field : kNameFields) {
        const std::size_t length = in.Byte();
        const unsigned char *name = in.Take(length);
        if (name == nullptr || length < field.minSize || length > field.maxSize) return CProductKey::Malformed;
        std::string &member = terms.*field.member;
        member.assign(reinterpret_cast<const char *>(name), length);
        if (!IsPrintableName(member)) return CProductKey::Malformed;
    }
    const unsigned high = in.Byte();
    terms.ExpiryDay = static_cast<long>((high << 8) | in.Byte());
    const std::size_t count = in.Byte();
    if (in.Failed() || count > CProductKey::kMaxAdapters) return CProductKey::Malformed;
    terms.Adapters.clear();
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned char *bytes = in.Take(kMacSize);
        Mac mac{};
        if (bytes != nullptr) std::memcpy(mac.data(), bytes, kMacSize);
        if (!IsAdapterAddress(mac)) return CProductKey::Malformed;
        terms.Adapters.push_back(LANInfo::SixByteToHumanReadable(mac.data()));
    }
    return in.AtEnd() ? CProductKey::Valid : CProductKey::Malformed;
}

}  // namespace qor
