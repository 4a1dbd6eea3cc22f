// The vendor's public key. Only this half lives in the library: the private
// half that signs keys stays with the vendor, so nothing in a shipped
// program can make a key. A vendor with a key pair of its own replaces the
// 32 bytes below with those of its public key:
//   openssl pkey -in private.pem -pubout -outform DER | tail -c 32 | xxd -i
#include "qor/licensing/Ed25519Key.h"

namespace qor {
namespace {

constexpr unsigned char kVendorPublicKey[Ed25519Key::kPublicKeySize] = {
    0x1b, 0x33, 0xf3, 0x01, 0xcb, 0xaa, 0x29, 0xd8, 0xd7, 0xfd, 0x3c, 0xf1, 0x4f, 0x18, 0x75, 0x70,
    0xca, 0x59, 0x41, 0xe6, 0xfd, 0xae, 0xb0, 0xd1, 0x40, 0x6d, 0x54, 0x2a, 0xd5, 0x02, 0x3c, 0x10,
};

}  // namespace

const Ed25519Key &Ed25519Key::BuiltIn() {
    static const Ed25519Key key = [] {
        Ed25519Key made;
        made.LoadPublicBytes(kVendorPublicKey);
        return made;
    }();
    return key;
}

}  // namespace qor
