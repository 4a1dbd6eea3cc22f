// CProductKey: a product key a person can type, signed by the vendor and
// checked offline with the vendor's public key.
//
// A key carries its terms: the product it unlocks, an edition, the licensee,
// an expiry date, and optionally the network adapters of the computers it is
// bound to (LANInfoValidator checks those). The terms are signed with
// Ed25519; the library holds only the public key, so no program that uses
// it can make a key, and a key whose signature fails is never read.
//
// The text is the key's bytes in Crockford's base32 (digits and upper-case
// letters without I, L, O and U), two check characters after them, in
// groups of five joined by '-':
//   1A2B3-C4D5E-...-XY
// Reading ignores case, blanks and hyphens anywhere, and takes O for 0 and
// I or L for 1, as people mistype them.
//
// The bytes, version 1 (lengths count bytes, numbers are big-endian):
//   1       version, 1
//   1 + P   product name, P 1 to 32
//   1 + E   edition, E 0 to 32
//   1 + L   licensee, L 1 to 64
//   2       expiry: the last valid day, counted from 1970-01-01 in UTC
//           (1 is 1970-01-02, at most 65535, 2149-06-06); 0 never expires
//   1 + 6A  adapters the key is bound to, A 0 to 8, six bytes each
//   64      Ed25519 signature of "Qor product key" and a zero byte,
//           followed by every byte above
// Names hold no control characters (bytes below 32, and 127). A key is thus
// 73 to 247 bytes: 119 to 398 characters before the hyphens. The check
// characters are the low ten bits of the bytes' CRC-32; they tell a typing
// slip from a forgery, and prove nothing: only the signature does.
#pragma once

#include <string>
#include <vector>

namespace qor {
class Ed25519Key;
}

class CProductKey {
public:
    // Why a key is refused; StatusText gives the words to show.
    enum Status {
        Valid = 0,       // "The product key is valid."
        Empty,           // "No product key was given."
        BadCharacter,    // "The product key has a character that is not a letter or digit of a key."
        WrongLength,     // "The product key has too few or too many characters."
        Mistyped,        // "The product key was mistyped: its check characters do not match."
        UnknownVersion,  // "The product key is of a version this program cannot read."
        BadSignature,    // "The product key was not issued by the vendor: its signature does not match."
        Malformed,       // "The product key's contents are malformed."
        WrongProduct,    // "The product key is for another product."
        Expired,         // "The product key has expired."
        WrongHost,       // "The product key is bound to network adapters this computer does not have."
    };
    static const char *StatusText(Status status);

    // What a key grants.
    struct Terms {
        std::string Product;
        std::string Edition;                // may be empty
        std::string Licensee;
        long ExpiryDay = 0;                 // last valid day since 1970-01-01 (UTC); 0 never
        std::vector<std::string> Adapters;  // MAC texts "00-1A-2B-3C-4D-5E"; empty binds none
        bool operator==(const Terms &) const = default;
    };

    static constexpr std::size_t kMaxProduct = 32;
    static constexpr std::size_t kMaxEdition = 32;
    static constexpr std::size_t kMaxLicensee = 64;
    static constexpr std::size_t kMaxAdapters = 8;
    static constexpr long kMaxExpiryDay = 65535;

    CProductKey() = default;

    // Reads a key's text and checks its signature with the built-in vendor
    // key, or with `publicKey`. Only a key whose signature holds is read: on
    // Valid the terms and the text are filled, on any refusal they are empty.
    Status Load(const std::string &text);
    Status Load(const std::string &text, const qor::Ed25519Key &publicKey);

    // Whether the loaded key lets `product` run on `day` (days since
    // 1970-01-01, UTC; today without it): the refusal of Load when it
    // refused, else WrongProduct or Expired, else Valid. A key is valid
    // through its expiry day. Names are compared byte for byte.
    Status Check(const std::string &product) const;
    Status Check(const std::string &product, long day) const;

    // Valid, or why the last Load refused; Empty before any.
    Status GetStatus() const { return status_; }
    const Terms &GetTerms() const { return terms_; }
    // The key in its grouped form, upper case: what Issue printed.
    const std::string &GetText() const { return text_; }
    // "YYYY-MM-DD", or "never".
    std::string GetExpiryText() const;

    // For the vendor: signs `terms` with `privateKey` into a key's text.
    // Adapters are kept sorted and once each, in the MAC text form. False,
    // with the reason in `error`, for terms no key can carry or a key with no
    // private part.
    static bool Issue(const Terms &terms, const qor::Ed25519Key &privateKey, std::string &text,
                      std::string &error);

private:
    void Clear(Status status);

    Status status_ = Empty;
    Terms terms_;
    std::string text_;
};
