// The product key reader on arbitrary input: as a key's text, through the
// base32 decoding and the signature check, and as the bytes of a key's terms,
// which no forger can reach past the signature but the parser must survive
// all the same. Whatever reads must also write back.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "qor/licensing/Ed25519Key.h"
#include "qor/licensing/KeyLayout.h"
#include "qor/licensing/KeyText.h"
#include "qor/licensing/ProductKey.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    CProductKey key;
    if (key.Load(text) == CProductKey::Valid) {
        // Only the seed the vendor signed gets here; its printed form reads the same.
        CProductKey again;
        if (again.Load(key.GetText()) != CProductKey::Valid || !(again.GetTerms() == key.GetTerms()))
            __builtin_trap();
    }
    key.Check("Qor Demo", 20000);

    std::vector<unsigned char> bytes;
    if (qor::DecodeKeyText(text, 1, 1000, bytes) == CProductKey::Valid) {
        std::vector<unsigned char> again;
        if (qor::DecodeKeyText(qor::EncodeKeyText(bytes), 1, 1000, again) != CProductKey::Valid || again != bytes)
            __builtin_trap();
    }

    CProductKey::Terms terms;
    if (qor::DecodeKeyTerms(data, size, terms) == CProductKey::Valid) {
        std::vector<unsigned char> written;
        std::string error;
        if (!qor::EncodeKeyTerms(terms, written, error)) __builtin_trap();
    }
    return 0;
}
