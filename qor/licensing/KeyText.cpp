#include "qor/licensing/KeyText.h"

#include <array>

#include "qor/host/CRC_32.h"

namespace qor {
namespace {

constexpr char kAlphabet[] = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";
constexpr std::size_t kGroupSize = 5;
constexpr std::size_t kCheckCharacters = 2;
constexpr unsigned kCheckMask = (1u << (5 * kCheckCharacters)) - 1;

constexpr signed char kSeparator = -2;
constexpr signed char kForeign = -1;

// Each byte's digit value, kSeparator for what people put between groups,
// kForeign for the rest. Both cases read alike; O, I and L read as the
// digits they are mistaken for.
constexpr std::array<signed char, 256> MakeDigitTable() {
    std::array<signed char, 256> table{};
    for (auto &entry : table) entry = kForeign;
    for (int i = 0; i < 32; ++i) {
        const char c = kAlphabet[i];
        table[static_cast<unsigned char>(c)] = static_cast<signed char>(i);
        if (c >= 'A' && c <= 'Z') table[static_cast<unsigned char>(c - 'A' + 'a')] = static_cast<signed char>(i);
    }
    for (char c : {'O', 'o'}) table[static_cast<unsigned char>(c)] = 0;
    for (char c : {'I', 'i', 'L', 'l'}) table[static_cast<unsigned char>(c)] = 1;
    for (char c : {'-', ' ', '\t', '\r', '\n'}) table[static_cast<unsigned char>(c)] = kSeparator;
    return table;
}
constexpr auto kDigits = MakeDigitTable();

std::size_t DataCharacters(std::size_t bytes) { return (bytes * 8 + 4) / 5; }

unsigned CheckValue(const std::vector<unsigned char> &bytes) {
    CRC_32 crc;
    return static_cast<unsigned>(crc.CalcCRC(const_cast<unsigned char *>(bytes.data()),
                                             static_cast<unsigned>(bytes.size()), nullptr)) &
           kCheckMask;
}

}  // namespace

std::string EncodeKeyText(const std::vector<unsigned char> &bytes) {
    std::string digits;
    digits.reserve(DataCharacters(bytes.size()) + kCheckCharacters);
    unsigned buffer = 0, bits = 0;
    for (unsigned char byte : bytes) {
        buffer = (buffer << 8) | byte;
        bits += 8;
        while (bits >= 5) {
            bits -= 5;
            digits += kAlphabet[(buffer >> bits) & 31];
        }
    }
    if (bits > 0) digits += kAlphabet[(buffer << (5 - bits)) & 31];
    const unsigned check = CheckValue(bytes);
    for (std::size_t i = kCheckCharacters; i-- > 0;) digits += kAlphabet[(check >> (5 * i)) & 31];

    std::string text;
    text.reserve(digits.size() + digits.size() / kGroupSize);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && i % kGroupSize == 0) text += '-';
        text += digits[i];
    }
    return text;
}

CProductKey::Status DecodeKeyText(const std::string &text, std::size_t minBytes, std::size_t maxBytes,
                                  std::vector<unsigned char> &bytes) {
    const std::size_t maxDigits = DataCharacters(maxBytes) + kCheckCharacters;
    std::vector<unsigned char> digits;
    digits.reserve(maxDigits);
    bool tooLong = false;
    for (unsigned char c : text) {
        const signed char digit = kDigits[c];
        if (digit == kForeign) return CProductKey::BadCharacter;
        if (digit == kSeparator) continue;
        if (digits.size() == maxDigits) tooLong = true;  // keep looking for foreign characters
        else digits.push_back(static_cast<unsigned char>(digit));
    }
    if (digits.empty()) return CProductKey::Empty;
    if (tooLong || digits.size() < DataCharacters(minBytes) + kCheckCharacters)
        return CProductKey::WrongLength;
    const std::size_t dataDigits = digits.size() - kCheckCharacters;
    const std::size_t size = dataDigits * 5 / 8;
    if (DataCharacters(size) != dataDigits) return CProductKey::WrongLength;

    std::vector<unsigned char> decoded;
    decoded.reserve(size);
    unsigned buffer = 0, bits = 0;
    for (std::size_t i = 0; i < dataDigits; ++i) {
        buffer = ((buffer << 5) | digits[i]) & 0xFFF;
        bits += 5;
        if (bits >= 8) {
            bits -= 8;
            decoded.push_back(static_cast<unsigned char>(buffer >> bits));
        }
    }
    // The last character's unused bits are zero in every key Issue makes; a
    // key text that sets them is a slip, not another key.
    if ((buffer & ((1u << bits) - 1)) != 0) return CProductKey::Mistyped;
    unsigned check = 0;
    for (std::size_t i = dataDigits; i < digits.size(); ++i) check = (check << 5) | digits[i];
    if (check != CheckValue(decoded)) return CProductKey::Mistyped;
    bytes.swap(decoded);
    return CProductKey::Valid;
}

}  // namespace qor
