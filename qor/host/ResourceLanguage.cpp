#include "qor/host/ResourceLanguage.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace qor {
namespace {

constexpr std::uint16_t kNeutral = 0x0000;
constexpr std::uint16_t kUsEnglish = 0x0409;

constexpr std::uint16_t MakeLanguageId(std::uint16_t primary, std::uint16_t sublanguage) {
    return static_cast<std::uint16_t>((sublanguage << 10) | primary);
}
constexpr std::uint16_t PrimaryLanguage(std::uint16_t id) { return id & 0x3FF; }

// A language's primary identifier, and its countries in the order of their
// sublanguage identifiers, from 1 up; "--" holds a place with no country.
struct LanguageEntry {
    const char *code;
    std::uint16_t primary;
    const char *countries;
};

constexpr LanguageEntry kLanguages[] = {
    {"ar", 0x01, "SA IQ EG LY DZ MA TN OM YE SY JO LB KW AE BH QA"},
    {"bg", 0x02, "BG"},
    {"ca", 0x03, "ES"},
    {"zh", 0x04, "TW CN HK SG MO"},
    {"cs", 0x05, "CZ"},
    {"da", 0x06, "DK"},
    {"de", 0x07, "DE CH AT LU LI"},
    {"el", 0x08, "GR"},
    {"en", 0x09, "US GB AU CA NZ IE ZA JM -- BZ TT ZW PH -- -- IN MY SG"},
    {"es", 0x0A, "-- MX ES GT CR PA DO VE CO PE AR EC CL UY PY BO SV HN NI PR US"},
    {"fi", 0x0B, "FI"},
    {"fr", 0x0C, "FR BE CA CH LU MC"},
    {"he", 0x0D, "IL"},
    {"hu", 0x0E, "HU"},
    {"is", 0x0F, "IS"},
    {"it", 0x10, "IT CH"},
    {"ja", 0x11, "JP"},
    {"ko", 0x12, "KR"},
    {"nl", 0x13, "NL BE"},
    {"nb", 0x14, "NO"},
    {"no", 0x14, "NO"},
    {"nn", 0x14, "-- NO"},
    {"pl", 0x15, "PL"},
    {"pt", 0x16, "BR PT"},
    {"ro", 0x18, "RO"},
    {"ru", 0x19, "RU"},
    {"hr", 0x1A, "HR"},
    {"sk", 0x1B, "SK"},
    {"sq", 0x1C, "AL"},
    {"sv", 0x1D, "SE FI"},
    {"th", 0x1E, "TH"},
    {"tr", 0x1F, "TR"},
    {"ur", 0x20, "PK"},
    {"id", 0x21, "ID"},
    {"uk", 0x22, "UA"},
    {"be", 0x23, "BY"},
    {"sl", 0x24, "SI"},
    {"et", 0x25, "EE"},
    {"lv", 0x26, "LV"},
    {"lt", 0x27, "LT"},
    {"fa", 0x29, "IR"},
    {"vi", 0x2A, "VN"},
    {"hy", 0x2B, "AM"},
    {"eu", 0x2D, "ES"},
    {"mk", 0x2F, "MK"},
    {"af", 0x36, "ZA"},
    {"ka", 0x37, "GE"},
    {"hi", 0x39, "IN"},
    {"ms", 0x3E, "MY BN"},
    {"kk", 0x3F, "KZ"},
};

}  // namespace

std::uint16_t LocaleLanguageId(std::string_view locale) {
    // language[_COUNTRY][.encoding][@modifier]
    locale = locale.substr(0, locale.find_first_of(".@"));
    const std::string_view language = locale.substr(0, locale.find('_'));
    const std::string_view country =
        language.size() < locale.size() ? locale.substr(language.size() + 1) : std::string_view();
    const auto entry = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                    [&](const LanguageEntry &e) { return language == e.code; });
    if (entry == std::end(kLanguages)) return 0;
    std::uint16_t sublanguage = 1;  // the language's default country
    if (country.size() == 2) {
        const std::string_view countries = entry->countries;
        for (std::size_t at = 0, index = 1; at + 2 <= countries.size(); at += 3, ++index) {
            if (countries.substr(at, 2) == country) {
                sublanguage = static_cast<std::uint16_t>(index);
                break;
            }
        }
    }
    return MakeLanguageId(entry->primary, sublanguage);
}

std::uint16_t UserLanguageId() {
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *value = std::getenv(variable);
        if (value && *value) return LocaleLanguageId(value);
    }
    return 0;
}

std::vector<std::uint16_t> ResourceLanguageOrder(std::uint16_t userLanguage) {
    std::vector<std::uint16_t> order{kNeutral};
    auto add = [&](std::uint16_t id) {
        if (std::find(order.begin(), order.end(), id) == order.end()) order.push_back(id);
    };
    if (userLanguage != 0) {
        add(userLanguage);
        add(PrimaryLanguage(userLanguage));
    }
    add(kUsEnglish);
    return order;
}

}  // namespace qor
