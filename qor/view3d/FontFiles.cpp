#include "qor/view3d/FontFiles.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace qor {

std::string FindFontFile(const std::string &faceName, int weight) {
    const std::string face = faceName.substr(0, 31);
    std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> pattern(FcPatternCreate(), &FcPatternDestroy);
    if (!pattern) return {};
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8 *>(face.c_str()));
    if (weight > 0) FcPatternAddInteger(pattern.get(), FC_WEIGHT, FcWeightFromOpenType(weight));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> match(FcFontMatch(nullptr, pattern.get(), &result),
                                                                  &FcPatternDestroy);
    FcChar8 *file = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch || !file) return {};
    return reinterpret_cast<const char *>(file);
}

}  // namespace qor
