#include "qor/licensing/ProductKey.h"

#include <cstring>

#include "qor/licensing/Ed25519Key.h"
#include "qor/licensing/KeyLayout.h"
#include "qor/licensing/KeyText.h"
#include "qor/licensing/LicenceDate.h"

namespace {

// Signed ahead of the terms, so that a signature made for anything else
// with the same key can never pass for a product key.
constexpr char kSignatureContext[] = "Qor product key";  // with its terminating zero

constexpr const char *kKeyStatusTexts[] = {
    "The product key is valid.",
    "No product key was given.",
    "The product key has a character that is not a letter or digit of a key.",
    "The product key has too few or too many characters.",
    "The product key was mistyped: its check characters do not match.",
    "The product key is of a version this program cannot read.",
    "The product key was not issued by the vendor: its signature does not match.",
    "The product key's contents are malformed.",
    "The product key is for another product.",
    "The product key has expired.",
    "The product key is bound to network adapters this computer does not have.",
};
static_assert(std::size(kKeyStatusTexts) == CProductKey::WrongHost + 1);

// What the signature covers: the context, then the terms' bytes.
std::vector<unsigned char> SignedMessage(const unsigned char *terms, std::size_t size) {
    std::vector<unsigned char> message(kSignatureContext, kSignatureContext + sizeof kSignatureContext);
    message.insert(message.end(), terms, terms + size);
    return message;
}

}  // namespace

const char *CProductKey::StatusText(Status status) {
    const auto index = static_cast<std::size_t>(status);
    return index < std::size(kKeyStatusTexts) ? kKeyStatusTexts[index] : "The product key was refused.";
}

void CProductKey::Clear(Status status) {
    status_ = status;
    terms_ = Terms();
    text_.clear();
}

CProductKey::Status CProductKey::Load(const std::string &text) { return Load(text, qor::Ed25519Key::BuiltIn()); }

CProductKey::Status CProductKey::Load(const std::string &text, const qor::Ed25519Key &publicKey) {
    std::vector<unsigned char> bytes;
    Status status = qor::DecodeKeyText(text, qor::kMinProductKeyBytes, qor::kMaxProductKeyBytes, bytes);
    if (status != Valid) {
        Clear(status);
        return status;
    }
    // A later version may sign other bytes; say so rather than call it forged.
    if (bytes[0] != qor::kProductKeyVersion) {
        Clear(UnknownVersion);
        return status_;
    }
    const std::size_t termsSize = bytes.size() - qor::Ed25519Key::kSignatureSize;
    const std::vector<unsigned char> message = SignedMessage(bytes.data(), termsSize);
    if (!publicKey.Verify(message.data(), message.size(), bytes.data() + termsSize)) {
        Clear(BadSignature);
        return status_;
    }
    Terms terms;
    status = qor::DecodeKeyTerms(bytes.data(), termsSize, terms);
    if (status != Valid) {
        Clear(status);
        return status;
    }
    status_ = Valid;
    terms_ = std::move(terms);
    text_ = qor::EncodeKeyText(bytes);
    return Valid;
}

CProductKey::Status CProductKey::Check(const std::string &product) const {
    return Check(product, qor::LicenceToday());
}

CProductKey::Status CProductKey::Check(const std::string &product, long day) const {
    if (status_ != Valid) return status_;
    if (product != terms_.Product) return WrongProduct;
    if (terms_.ExpiryDay != 0 && day > terms_.ExpiryDay) return Expired;
    return Valid;
}

std::string CProductKey::GetExpiryText() const {
    return terms_.ExpiryDay == 0 ? std::string("never") : qor::FormatLicenceDate(terms_.ExpiryDay);
}

bool CProductKey::Issue(const Terms &terms, const qor::Ed25519Key &privateKey, std::string &text,
                        std::string &error) {
    if (!privateKey.HasPrivateKey()) {
        error = "a key is signed with a private key, and this one has none";
        return false;
    }
    std::vector<unsigned char> bytes;
    if (!qor::EncodeKeyTerms(terms, bytes, error)) return false;
    const std::vector<unsigned char> message = SignedMessage(bytes.data(), bytes.size());
    const std::size_t termsSize = bytes.size();
    bytes.resize(termsSize + qor::Ed25519Key::kSignatureSize);
    if (!privateKey.Sign(message.data(), message.size(), bytes.data() + termsSize)) {
        error = "the signature could not be made";
        return false;
    }
    text = qor::EncodeKeyText(bytes);
    return true;
}
