// LANInfoValidator: whether a product key's adapter binding lets it run on
// this computer.
//
// The host's adapters are those LANInfo reports: every adapter with an IPv4
// address, loopback aside, with its MAC. An adapter without an address (a
// cable unplugged, an interface down) is not seen, so a vendor binds a key
// to the adapters a computer always has up, or to several.
//
// What it protects against: a key bound to one computer's adapters being
// used on another by passing the text around. What it does not: a MAC
// address can be changed by the computer's owner, and a virtual adapter
// can wear any address; binding raises the effort of sharing a key, it
// does not make it impossible.
#pragma once

#include <map>
#include <string>

#include "qor/licensing/ProductKey.h"

class LANInfoValidator {
public:
    // Adapter name -> MAC text ("00-1A-2B-3C-4D-5E").
    using Adapters = std::map<std::string, std::string>;

    // Reads this computer's adapters through LANInfo. When LANInfo fails,
    // there are none and GetError says why.
    LANInfoValidator();
    // Checks against the given adapters instead (MAC texts in any case, with
    // hyphens or colons).
    explicit LANInfoValidator(Adapters adapters);

    const Adapters &GetAdapters() const { return adapters_; }
    const std::string &GetError() const { return error_; }

    // Valid when the key binds no adapter or at least one of those here;
    // WrongHost when it binds only others; the key's own refusal when it
    // was not loaded.
    CProductKey::Status Validate(const CProductKey &key) const;

private:
    Adapters adapters_;
    std::string error_;
};
