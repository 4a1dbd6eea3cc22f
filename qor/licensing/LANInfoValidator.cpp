#include "qor/licensing/LANInfoValidator.h"

#include <algorithm>
#include <vector>

#include "qor/host/LANInfo.h"

namespace {

// The MAC text form keys carry, or "" for a text that is no MAC address.
std::string CanonicalMac(const std::string &text) {
    unsigned char bytes[6];
    return LANInfo::HumanReadableToSixByte(text.c_str(), bytes) ? LANInfo::SixByteToHumanReadable(bytes)
                                                                 : std::string();
}

}  // namespace

LANInfoValidator::LANInfoValidator() {
    try {
        const LANInfo::AdapterAddresses addresses = LANInfo::GetLocalAdapterNames();
        std::vector<std::string> ips;
        for (const auto &[name, ip] : addresses) ips.push_back(ip);
        const LANInfo::MACAddresses macs = LANInfo::GetMACAddresses(ips);
        for (const auto &[name, ip] : addresses) {
            const auto mac = macs.find(ip);
            if (mac != macs.end()) adapters_.emplace(name, CanonicalMac(mac->second));
        }
    } catch (const LANInfoException &e) {
        adapters_.clear();
        error_ = e.function + ": " + (e.message.empty() ? std::string("failed") : e.message);
    }
    std::erase_if(adapters_, [](const auto &adapter) { return adapter.second.empty(); });
}

LANInfoValidator::LANInfoValidator(Adapters adapters) : adapters_(std::move(adapters)) {
    for (auto &[name, mac] : adapters_) mac = CanonicalMac(mac);
    std::erase_if(adapters_, [](const auto &adapter) { return adapter.second.empty(); });
}

CProductKey::Status LANInfoValidator::Validate(const CProductKey &key) const {
    if (key.GetStatus() != CProductKey::Valid) return key.GetStatus();
    const std::vector<std::string> &bound = key.GetTerms().Adapters;
    if (bound.empty()) return CProductKey::Valid;
    const bool here = std::any_of(adapters_.begin(), adapters_.end(), [&](const auto &adapter) {
        return std::find(bound.begin(), bound.end(), adapter.second) != bound.end();
    });
    return here ? CProductKey::Valid : CProductKey::WrongHost;
}
