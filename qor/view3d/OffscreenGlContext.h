// An OpenGL context with no window: a pbuffer through EGL (on Mesa, the
// surfaceless platform, so no display server is needed). Tests, `qor model
// render` and the benchmarks draw into it and read the pixels back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qor {

class OffscreenGlContext {
public:
    // A compatibility-profile context with RGBA8 and a 24-bit depth buffer,
    // current on the calling thread when made.
    OffscreenGlContext(int width, int height);
    ~OffscreenGlContext();
    OffscreenGlContext(const OffscreenGlContext &) = delete;
    OffscreenGlContext &operator=(const OffscreenGlContext &) = delete;

    // False when no context could be made; Error() says why.
    explicit operator bool() const { return context_ != nullptr; }
    const std::string &Error() const { return error_; }

    bool MakeCurrent();
    int Width() const { return width_; }
    int Height() const { return height_; }

    // The framebuffer as RGBA bytes, top row first, after glFinish.
    std::vector<std::uint8_t> ReadPixels() const;

private:
    int width_;
    int height_;
    void *display_ = nullptr;
    void *surface_ = nullptr;
    void *context_ = nullptr;
    std::string error_;
};

}  // namespace qor
