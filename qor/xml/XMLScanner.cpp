#include "qor/xml/XMLScanner.h"

#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "qor/xml/XMLParserException.h"
#include "qor/xml/XMLText.h"

namespace qor::xmlscan {
namespace {

constexpr std::size_t npos = std::string_view::npos;

std::size_t FindByte(std::string_view s, char c, std::size_t from) {
    if (from >= s.size()) return npos;
    const void *hit = std::memchr(s.data() + from, c, s.size() - from);
    return hit ? static_cast<const char *>(hit) - s.data() : npos;
}

// First position at or after `from` holding a or b, or npos. Tags are a few
// dozen bytes long, too short for two library calls to pay off.
std::size_t FindEither(std::string_view s, std::size_t from, char a, char b) {
    const char *data = s.data();
    std::size_t at = from;
#ifdef __SSE2__
    const __m128i wantA = _mm_set1_epi8(a);
    const __m128i wantB = _mm_set1_epi8(b);
    for (; at + 16 <= s.size(); at += 16) {
        __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(data + at));
        int mask = _mm_movemask_epi8(
            _mm_or_si128(_mm_cmpeq_epi8(block, wantA), _mm_cmpeq_epi8(block, wantB)));
        if (mask != 0) return at + static_cast<std::size_t>(__builtin_ctz(mask));
    }
#endif
    for (; at < s.size(); ++at)
        if (data[at] == a || data[at] == b) return at;
    return npos;
}

}  // namespace

// First occurrence of `needle` at or after `from`. The tags searched for all
// begin with '<', which every element has; their second byte ('!') is rare,
// so that is the byte to scan for.
std::size_t FindTag(std::string_view s, std::string_view needle, std::size_t from) {
    if (needle.size() < 2) return s.find(needle, from);
    for (std::size_t at = from + 1; at < s.size();) {
        const void *hit = std::memchr(s.data() + at, needle[1], s.size() - at);
        if (!hit) return npos;
        std::size_t second = static_cast<const char *>(hit) - s.data();
        if (s.compare(second - 1, needle.size(), needle) == 0) return second - 1;
        at = second + 1;
    }
    return npos;
}

namespace {

[[noreturn]] void ThrowUnclosed(std::string_view near) {
    throw XMLParserException(
        4, "XMLParser::Discard",
        "Unable to discard the file: EOF while searching for end of comment near \r\n\"" +
            std::string(near) + "\"");
}

// The in-place walk, for the rare buffer where an erase joins text into a
// new startTag. The buffer is kept as s[0, kept) followed by s[unread, n): what an erasing
// implementation would hold at the same moment, with a gap between. The
// kept part never holds a startTag, since each search goes to the first one.
// After an erase the last startTag.size() - 1 kept bytes may join with what
// follows into a new startTag, so they go back in front of the unread part
// and the next search covers them.
void DiscardInPlace(std::string &s, std::string_view startTag, std::string_view endTag) {
    std::size_t kept = 0;
    std::size_t unread = 0;
    auto closeGap = [&] { s.erase(kept, unread - kept); };
    for (;;) {
        std::size_t start = FindTag(s, startTag, unread);
        if (start == npos) break;
        std::size_t end = s.find(endTag, start);
        std::size_t nextStart = npos;
        if (end == npos) {
            nextStart = FindTag(s, startTag, start + 1);
        } else {
            // Only a startTag that begins before `end` matters.
            std::size_t limit = std::min(s.size(), end + startTag.size() - 1);
            std::string_view between(s.data() + start + 1, limit - (start + 1));
            std::size_t at = FindTag(between, startTag, 0);
            if (at != npos) nextStart = start + 1 + at;
        }
        if (end == npos || nextStart != npos) {
            std::string near =
                s.substr(start, nextStart == npos ? npos : nextStart - start);
            closeGap();
            ThrowUnclosed(near);
        }
        std::memmove(s.data() + kept, s.data() + unread, start - unread);
        kept += start - unread;
        unread = end + endTag.size();
        std::size_t back = std::min(startTag.size() - 1, kept);
        std::memmove(s.data() + unread - back, s.data() + kept - back, back);
        kept -= back;
        unread -= back;
    }
    closeGap();
}

}  // namespace

// Like DiscardInPlace, but reading from `in` and appending what is kept to
// `out`, so that the common buffer costs one pass and no copy of its own.
// `out` holds no startTag; only its last startTag.size() - 1 bytes could
// join with what follows into one, and when they do, the whole buffer goes
// through the in-place walk (once, so still in linear time).
void DiscardSpansInto(std::string_view in, std::string &out, std::string_view startTag,
                      std::string_view endTag) {
    out.clear();
    if (startTag.empty() || endTag.empty()) {
        out.assign(in);
        return;
    }
    out.reserve(in.size());
    std::size_t read = 0;
    for (;;) {
        std::size_t tail = std::min(startTag.size() - 1, out.size());
        if (tail > 0 && read < in.size()) {
            std::string window = out.substr(out.size() - tail);
            window.append(in.substr(read, startTag.size() - 1));
            std::size_t joined = window.find(startTag);
            if (joined != npos && joined < tail) {
                // Later erases may join further back, so the in-place walk
                // gets everything kept so far as well.
                out.append(in.substr(read));
                DiscardInPlace(out, startTag, endTag);
                return;
            }
        }
        std::size_t start = FindTag(in, startTag, read);
        if (start == npos) break;
        std::size_t end = in.find(endTag, start);
        std::size_t nextStart = npos;
        if (end == npos) {
            nextStart = FindTag(in, startTag, start + 1);
        } else {
            std::size_t limit = std::min(in.size(), end + startTag.size() - 1);
            std::size_t at = FindTag(in.substr(start + 1, limit - (start + 1)), startTag, 0);
            if (at != npos) nextStart = start + 1 + at;
        }
        if (end == npos || nextStart != npos) {
            std::string_view near = in.substr(start, nextStart == npos ? npos : nextStart - start);
            std::string message(near);
            out.append(in.substr(read));
            ThrowUnclosed(message);
        }
        out.append(in.substr(read, start - read));
        read = end + endTag.size();
    }
    out.append(in.substr(read));
}

void DiscardSpans(std::string &buffer, std::string_view startTag, std::string_view endTag) {
    std::string kept;
    try {
        DiscardSpansInto(buffer, kept, startTag, endTag);
    } catch (...) {
        buffer.swap(kept);
        throw;
    }
    buffer.swap(kept);
}

std::string_view TagScanner::Next(XMLNodeData *textOwner) {
    // White space after the last tag is already skipped, so between elements
    // the next '<' is the next byte.
    std::size_t open = position_ < text_.size() && text_[position_] == '<'
                           ? position_
                           : FindByte(text_, '<', position_);
    if (open == npos) return {};
    // The first '<' or '>' after the opener: a '>' ends the tag; a '<' (or
    // nothing) means the tag is not closed before the next one begins.
    std::size_t hit = FindEither(text_, open + 1, '<', '>');
    std::size_t close = hit != npos && text_[hit] == '>' ? hit : npos;
    std::size_t nextOpen = hit != npos && text_[hit] == '<' ? hit : npos;
    if (close == npos) {
        throw XMLParserException(
            4, "XMLParser::FindNextTag",
            "Unable to Find Next Tag in the file: EOF while searching for end of tag near \r\n\"" +
                std::string(text_.substr(open, nextOpen == npos ? npos : nextOpen - open)) +
                "\"");
    }
    if (textOwner && open > position_)
        qor::xmltext::AppendUnescaped(textOwner->text, text_.substr(position_, open - position_));
    std::size_t after = qor::xmltext::kSpace.FindNotIn(text_, close + 1);
    position_ = after == npos ? text_.size() : after;
    return text_.substr(open, close - open + 1);
}

}  // namespace qor::xmlscan
