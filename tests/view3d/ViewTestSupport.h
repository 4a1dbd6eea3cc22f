// Shared pieces of the 3-D view tests: a scratch folder, one offscreen GL
// context for the whole binary, and pixel helpers.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "qor/view3d.h"

namespace view_test {

class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qor-view3d-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TempDir() { std::filesystem::remove_all(path_); }
    std::string File(const std::string &name, const std::string &content) const {
        const std::string file = path_ + "/" + name;
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    std::string Path(const std::string &name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

constexpr int kSize = 64;

// The context every test draws in, made current again for each use.
inline qor::OffscreenGlContext &Gl() {
    static qor::OffscreenGlContext context(kSize, kSize);
    if (!context) ADD_FAILURE() << "no offscreen GL context: " << context.Error();
    context.MakeCurrent();
    return context;
}

struct Rgb {
    int r, g, b;
};
inline Rgb PixelAt(const std::vector<std::uint8_t> &rgba, int width, int x, int y) {
    const std::size_t i = (static_cast<std::size_t>(y) * width + x) * 4;
    return {rgba[i], rgba[i + 1], rgba[i + 2]};
}
inline int CountNonWhite(const std::vector<std::uint8_t> &rgba) {
    int n = 0;
    for (std::size_t i = 0; i < rgba.size(); i += 4) n += rgba[i] < 250 || rgba[i + 1] < 250 || rgba[i + 2] < 250;
    return n;
}

// A VRML shape in the subset's form.
inline std::string Shape(const std::string &material, const std::string &points, const std::string &indices) {
    return "Shape { appearance Appearance { material Material { " + material +
           " } } geometry IndexedFaceSet { coord Coordinate { point [ " + points + " ] } coordIndex [ " + indices +
           " ] } }\n";
}

}  // namespace view_test

namespace view_test {

// An axis-aligned box as a VRML shape, its triangles wound outward, so one
// side faces the viewer whatever the direction.
inline std::string Box(Vector3D lo, Vector3D hi, const std::string &material) {
    std::string points;
    for (int i = 0; i < 8; ++i) {
        points += std::to_string(i & 1 ? hi.x : lo.x) + " " + std::to_string(i & 2 ? hi.y : lo.y) + " " +
                  std::to_string(i & 4 ? hi.z : lo.z) + (i < 7 ? ", " : "");
    }
    // Corner i has x from bit 0, y from bit 1, z from bit 2.
    const char *indices =
        "0, 2, 3, -1, 0, 3, 1, -1, 4, 5, 7, -1, 4, 7, 6, -1, 0, 1, 5, -1, 0, 5, 4, -1, "
        "2, 6, 7, -1, 2, 7, 3, -1, 0, 4, 6, -1, 0, 6, 2, -1, 1, 3, 7, -1, 1, 7, 5, -1";
    return Shape(material, points, indices);
}

}  // namespace view_test
