#include "qor/controls/digi/CDigistring.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>

namespace qor::digistring_impl {

enum class Kind : unsigned char { None, Digit, Fourteen, ColonDot };

struct Glyph {
    Kind kind = Kind::None;
    unsigned short mask = 0;    // seven segments for digits; the only mask otherwise
    unsigned short mask14 = 0;  // fourteen segments for digits
};

// In the order blank, 0 to 9, minus, underscore.
constexpr char kDigitChars[] = " 0123456789-_";
constexpr unsigned short kSevenMasks[] = {0x00, 0x77, 0x24, 0x5D, 0x6D, 0x2E, 0x6B, 0x7B, 0x25, 0x7F, 0x6F, 0x08, 0x40};
constexpr unsigned short kFourteenDigitMasks[] = {0x0000, 0x3F00, 0x1800, 0x36C0, 0x3CC0, 0x19C0, 0x2DC0,
                                                  0x2FC0, 0x3800, 0x3FC0, 0x3DC0, 0x00C0, 0x0400};
constexpr unsigned short kLetterMasks[26] = {0x3BC0, 0x3CA1, 0x2700, 0x3C21, 0x27C0, 0x23C0, 0x2F80, 0x1BC0, 0x2421,
                                             0x1E00, 0x0354, 0x0700, 0x1B06, 0x1B12, 0x3F00, 0x33C0, 0x3F10, 0x33D0,
                                             0x2DC0, 0x2021, 0x1F00, 0x030C, 0x1B18, 0x001E, 0x11E0, 0x240C};

constexpr std::array<Glyph, 256> MakeGlyphs() {
    std::array<Glyph, 256> glyphs{};
    for (int i = 0; i < 13; ++i)
        glyphs[static_cast<unsigned char>(kDigitChars[i])] = {Kind::Digit, kSevenMasks[i], kFourteenDigitMasks[i]};
    for (int i = 0; i < 26; ++i) glyphs['A' + i] = {Kind::Fourteen, kLetterMasks[i], 0};
    glyphs['*'] = {Kind::Fourteen, 0xFF, 0};
    glyphs['+'] = {Kind::Fourteen, 0xE1, 0};
    glyphs['.'] = {Kind::ColonDot, 0x04, 0};
    glyphs[':'] = {Kind::ColonDot, 0x03, 0};
    return glyphs;
}

constexpr std::array<Glyph, 256> kGlyphs = MakeGlyphs();

}  // namespace qor::digistring_impl

CDigistring::CDigistring() = default;
CDigistring::~CDigistring() = default;

void CDigistring::SetText(const char *text) {
    std::string next = text ? text : "";
    m_Modified = true;
    if (next == m_strText) return;
    m_strText = std::move(next);
    Invalidate(false);
}

void CDigistring::Format(const char *format, ...) {
    if (!format) return SetText(nullptr);
    va_list args, again;
    va_start(args, format);
    va_copy(again, args);
    int n = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    std::string text(n > 0 ? static_cast<std::size_t>(n) : 0, '\0');
    if (n > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    SetText(text.c_str());
}

void CDigistring::SetColor(COLORREF off, COLORREF on) {
    if (off == m_OffColor && on == m_OnColor) return;
    m_OffColor = off;
    m_OnColor = on;
    Invalidate(true);
}

void CDigistring::SetBackColor(COLORREF back) {
    if (back == m_BackColor) return;
    m_BackColor = back;
    Invalidate(true);
}

int CDigistring::ModifyDigiStyle(unsigned long remove, unsigned long add) {
    unsigned long old = m_dwStyle;
    m_dwStyle = (m_dwStyle & ~remove) | add;
    m_Modified = true;
    Invalidate(true);
    return old != m_dwStyle;
}

CDigiChar *CDigistring::DefineChar(char c) {
    using namespace qor::digistring_impl;
    const Glyph &glyph = kGlyphs[static_cast<unsigned char>(c)];
    CDigiChar *character = nullptr;
    unsigned short mask = glyph.mask;
    switch (glyph.kind) {
    case Kind::None:
        return nullptr;
    case Kind::Digit:
        if (m_dwStyle & DS_STYLE14) {
            character = new CDigi14Segment;
            mask = glyph.mask14;
        } else {
            character = new CDigi7Segment;
        }
        break;
    case Kind::Fourteen:
        character = new CDigi14Segment;
        break;
    case Kind::ColonDot:
        character = new CDigiColonDotChar;
        break;
    }
    character->SetElements(mask, m_dwStyle);
    return character;
}

void CDigistring::BuildString() {
    if (!m_Modified) return;
    m_CharArray.clear();
    m_CharArray.reserve(m_strText.size());
    for (char c : m_strText) {
        char upper = c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
        if (CDigiChar *character = DefineChar(upper)) m_CharArray.emplace_back(character);
    }
    m_Modified = false;
}

qor::DigiLayout CDigistring::Layout(int w, int h) {
    BuildString();
    qor::DigiLayout layout;
    w = std::max(0, w), h = std::max(0, h);
    double sum = 0;
    for (const auto &character : m_CharArray) sum += character->GetWidth();
    layout.xScale = sum > 0 ? w / sum : 0;
    layout.yScale = static_cast<double>(h) / qor::kDigiHeight;
    if (m_dwStyle & DS_SZ_PROP) {
        double scale = std::min(layout.xScale, layout.yScale);
        layout.xScale = layout.yScale = scale;
        layout.xOffset = (w - sum * scale) / 2;
        layout.yOffset = (h - qor::kDigiHeight * scale) / 2;
    }
    double x = layout.xOffset;
    layout.cells.reserve(m_CharArray.size());
    for (const auto &character : m_CharArray) {
        double width = character->GetWidth() * layout.xScale;
        layout.cells.push_back({character.get(), x, layout.yOffset, width, qor::kDigiHeight * layout.yScale});
        x += width;
    }
    return layout;
}

qor::DigiPicture CDigistring::Paint(int w, int h) {
    qor::DigiPicture picture;
    picture.width = std::max(0, w);
    picture.height = std::max(0, h);
    picture.back = m_BackColor;
    picture.onBrush = m_OnColor;
    picture.offBrush = m_OffColor;
    picture.onPen = qor::BlendPen(m_OnColor, m_BackColor);
    picture.offPen = qor::BlendPen(m_OffColor, m_BackColor);
    qor::DigiLayout layout = Layout(w, h);
    for (const qor::DigiCell &cell : layout.cells)
        for (int s = 0; s < cell.character->GetSegmentCount(); ++s)
            picture.shapes.push_back({cell.character->IsLit(s),
                                      qor::SegmentPath(cell.character->GetSegment(s), cell, layout.xScale, layout.yScale)});
    return picture;
}
