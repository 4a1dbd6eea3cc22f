// Text in OpenGL through display lists, one for each character code 0 to
// 255, as the WGL font calls made them: glyphs come from FreeType fonts
// through FTGL, chosen by face name through fontconfig.
#pragma once

#include <array>
#include <memory>
#include <string>

// The drawing surface a font is made for. Any non-null value stands for the
// OpenGL context current on the calling thread; a null one makes no font.
struct HDC__;
using HDC = HDC__ *;

// Character cell metrics of an outline glyph, in em units.
struct GlyphMetrics {
    float blackBoxX = 0;
    float blackBoxY = 0;
    float originX = 0;
    float originY = 0;
    float cellIncX = 0;
    float cellIncY = 0;
};

// A bitmap font: each list draws its glyph at the raster position and moves
// the position on.
class CGLBitmapFont {
public:
    // With a null surface or an empty name, makes nothing and keeps base 0.
    // Throws CQorException with empty texts when no font can be made.
    CGLBitmapFont(HDC__ *dc, const std::string &name, int height, int weight);
    virtual ~CGLBitmapFont();
    CGLBitmapFont(const CGLBitmapFont &) = delete;
    CGLBitmapFont &operator=(const CGLBitmapFont &) = delete;

    // At (x, y, z) through the current matrices.
    void DrawStringAt(float x, float y, float z, const std::string &text) const;
    // At (x, y) in window coordinates of a width x height window, origin lower left.
    void Draw2dStringAt(int x, int y, int width, int height, const std::string &text) const;

    unsigned int GetBase() const { return base; }

private:
    unsigned int base = 0;
};

// An outline font: each list draws its glyph at the model-view origin, one
// em high, and moves the origin on by its advance.
class CGLOutlineFont {
public:
    // With a null surface, an empty name or a negative deviation or
    // extrusion, makes nothing and keeps base 0. polygons chooses filled
    // glyphs over outlines; a positive extrusion gives them depth along -z.
    CGLOutlineFont(HDC__ *dc, const std::string &name, float deviation, float extrusion, bool polygons);
    virtual ~CGLOutlineFont();
    CGLOutlineFont(const CGLOutlineFont &) = delete;
    CGLOutlineFont &operator=(const CGLOutlineFont &) = delete;

    void DrawString(const std::string &text) const;

    unsigned int GetBase() const { return base; }
    const std::array<GlyphMetrics, 256> &GetMetrics() const { return metrics; }

private:
    unsigned int base = 0;
    std::array<GlyphMetrics, 256> metrics{};
};
