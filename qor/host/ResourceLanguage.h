// The language in which a module's resource is read, chosen as the Windows
// loader chooses it for a resource asked for in the neutral language: the
// language-neutral resource first, then the user's language (exact, then the
// same language with a neutral sublanguage), then US English, then the first.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace qor {

// The Windows language identifier (primary language in the low ten bits,
// sublanguage above) of a POSIX locale name such as "de_CH.UTF-8"; a name
// without a country takes the language's default sublanguage. 0 when no
// identifier maps ("C", "POSIX", an unknown language).
std::uint16_t LocaleLanguageId(std::string_view locale);

// The user's language: that of the first of LC_ALL, LC_MESSAGES and LANG
// that is set and not empty; 0 when none maps.
std::uint16_t UserLanguageId();

// The languages to look for, best first, for a user of the given language
// (0: none). The first resource of the directory is the last resort and is
// not listed.
std::vector<std::uint16_t> ResourceLanguageOrder(std::uint16_t userLanguage);

}  // namespace qor
