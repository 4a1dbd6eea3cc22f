#include "qor/view3d/GlFonts.h"

#include <FTGL/ftgl.h>
#include <GL/gl.h>
#include <GL/glu.h>

#include <cstdlib>

#include "qor/platform/QorException.h"
#include "qor/view3d/FontFiles.h"

namespace {

constexpr int kCodes = 256;
// Outline glyphs are made at this size and scaled down to one em.
constexpr float kOutlineSize = 64.0f;

// A code as a one-character wide string: the byte is the code point
// (Latin-1), where FTGL would read a narrow string as UTF-8.
struct Code {
    explicit Code(int code) : text{static_cast<wchar_t>(code), 0}, length(code == 0 ? 0 : 1) {}
    wchar_t text[2];
    int length;
};

void RenderCode(FTFont &font, int code) {
    const Code c(code);
    font.Render(c.text, c.length);
}

// Deletes what a constructor made before it throws.
[[noreturn]] void Fail(unsigned int base) {
    if (base) glDeleteLists(base, kCodes);
    throw CQorException();
}

void CallLists(unsigned int base, const std::string &text) {
    glPushAttrib(GL_LIST_BIT);
    glListBase(base);
    glCallLists(static_cast<GLsizei>(text.size()), GL_UNSIGNED_BYTE, text.data());
    glPopAttrib();
}

}  // namespace

CGLBitmapFont::CGLBitmapFont(HDC__ *dc, const std::string &name, int height, int weight) {
    if (!dc || name.empty()) return;
    const unsigned int lists = glGenLists(kCodes);
    const std::string file = qor::FindFontFile(name, weight);
    if (!lists || file.empty()) Fail(lists);
    FTBitmapFont font(file.c_str());
    // A negative height is the character height, a positive one the cell's.
    if (font.Error() || !font.FaceSize(static_cast<unsigned>(height ? std::abs(height) : 12))) Fail(lists);
    font.UseDisplayList(false);
    for (int code = 0; code < kCodes; ++code) {
        glNewList(lists + static_cast<unsigned>(code), GL_COMPILE);
        RenderCode(font, code);
        const Code c(code);
        glBitmap(0, 0, 0, 0, c.length ? font.Advance(c.text, c.length) : 0.0f, 0, nullptr);
        glEndList();
    }
    base = lists;
}

CGLBitmapFont::~CGLBitmapFont() {
    if (base) glDeleteLists(base, kCodes);
}

void CGLBitmapFont::DrawStringAt(float x, float y, float z, const std::string &text) const {
    if (text.empty()) return;
    glRasterPos3f(x, y, z);
    CallLists(base, text);
}

void CGLBitmapFont::Draw2dStringAt(int x, int y, int width, int height, const std::string &text) const {
    if (text.empty()) return;
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluOrtho2D(0, width, 0, height);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glRasterPos2f(static_cast<float>(x), static_cast<float>(y));
    CallLists(base, text);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

CGLOutlineFont::CGLOutlineFont(HDC__ *dc, const std::string &name, float deviation, float extrusion,
                               bool polygons) {
    if (!dc || name.empty() || !(deviation >= 0) || !(extrusion >= 0)) return;
    const unsigned int lists = glGenLists(kCodes);
    const std::string file = qor::FindFontFile(name, 0);
    if (!lists || file.empty()) Fail(lists);
    std::unique_ptr<FTFont> font;
    if (!polygons) font = std::make_unique<FTOutlineFont>(file.c_str());
    else if (extrusion > 0) font = std::make_unique<FTExtrudeFont>(file.c_str());
    else font = std::make_unique<FTPolygonFont>(file.c_str());
    if (font->Error() || !font->FaceSize(static_cast<unsigned>(kOutlineSize))) Fail(lists);
    font->Depth(extrusion * kOutlineSize);
    font->UseDisplayList(false);
    for (int code = 0; code < kCodes; ++code) {
        const Code c(code);
        const float advance = c.length ? font->Advance(c.text, c.length) / kOutlineSize : 0.0f;
        const FTBBox box = c.length ? font->BBox(c.text, c.length) : FTBBox();
        GlyphMetrics &m = metrics[static_cast<std::size_t>(code)];
        m.blackBoxX = (box.Upper().Xf() - box.Lower().Xf()) / kOutlineSize;
        m.blackBoxY = (box.Upper().Yf() - box.Lower().Yf()) / kOutlineSize;
        m.originX = box.Lower().Xf() / kOutlineSize;
        m.originY = box.Upper().Yf() / kOutlineSize;
        m.cellIncX = advance;
        glNewList(lists + static_cast<unsigned>(code), GL_COMPILE);
        glPushMatrix();
        glScalef(1 / kOutlineSize, 1 / kOutlineSize, 1 / kOutlineSize);
        RenderCode(*font, code);
        glPopMatrix();
        glTranslatef(advance, 0, 0);
        glEndList();
    }
    base = lists;
}

CGLOutlineFont::~CGLOutlineFont() {
    if (base) glDeleteLists(base, kCodes);
}

void CGLOutlineFont::DrawString(const std::string &text) const {
    if (text.empty()) return;
    CallLists(base, text);
}
