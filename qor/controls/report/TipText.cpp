#include "qor/controls/report/TipText.h"

namespace qor {

std::string WrapTipText(const std::string &text) {
    constexpr std::size_t kWidth = 80;
    std::string wrapped;
    wrapped.reserve(text.size());
    std::size_t pos = 0;
    while (text.size() - pos > kWidth) {
        std::size_t lineEnd = text.find('\n', pos);
        if (lineEnd != std::string::npos && lineEnd < pos + kWidth) {
            wrapped.append(text, pos, lineEnd + 1 - pos);
            pos = lineEnd + 1;
            continue;
        }
        std::size_t blank = text.find(' ', pos + kWidth);
        if (blank == std::string::npos) break;
        wrapped.append(text, pos, blank - pos);
        wrapped += '\n';
        pos = blank + 1;
    }
    wrapped.append(text, pos, std::string::npos);
    return wrapped;
}

}  // namespace qor
