#include "qor/view3d/OffscreenGlContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <cstring>
#include <mutex>

namespace qor {
namespace {

// One display for the process, initialised once and never terminated:
// terminating it would pull the ground from under every other context.
EGLDisplay SharedDisplay(std::string &error) {
    static std::once_flag once;
    static EGLDisplay display = EGL_NO_DISPLAY;
    static std::string failure;
    std::call_once(once, [] {
        // The surfaceless platform needs no display server; without it, the
        // default display.
        auto getPlatformDisplay =
            reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
        EGLDisplay d = EGL_NO_DISPLAY;
        if (getPlatformDisplay) d = getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        EGLint major = 0, minor = 0;
        if (d == EGL_NO_DISPLAY || !eglInitialize(d, &major, &minor)) {
            d = eglGetDisplay(EGL_DEFAULT_DISPLAY);
            if (d == EGL_NO_DISPLAY || !eglInitialize(d, &major, &minor)) {
                failure = "no EGL display could be initialised";
                return;
            }
        }
        display = d;
    });
    error = failure;
    return display;
}

}  // namespace

OffscreenGlContext::OffscreenGlContext(int width, int height) : width_(width), height_(height) {
    EGLDisplay display = SharedDisplay(error_);
    if (display == EGL_NO_DISPLAY) return;
    if (width <= 0 || height <= 0) {
        error_ = "the size must be at least 1 x 1";
        return;
    }
    const EGLint configAttributes[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                                       EGL_RED_SIZE, 8, EGL_GREEN_SIZE, 8, EGL_BLUE_SIZE, 8, EGL_ALPHA_SIZE, 8,
                                       EGL_DEPTH_SIZE, 24, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglChooseConfig(display, configAttributes, &config, 1, &count) || count < 1) {
        error_ = "no EGL configuration offers an OpenGL pbuffer with a depth buffer";
        return;
    }
    const EGLint surfaceAttributes[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    EGLSurface surface = eglCreatePbufferSurface(display, config, surfaceAttributes);
    if (surface == EGL_NO_SURFACE) {
        error_ = "the pbuffer could not be made";
        return;
    }
    eglBindAPI(EGL_OPENGL_API);
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    if (context == EGL_NO_CONTEXT) {
        eglDestroySurface(display, surface);
        error_ = "no OpenGL context could be made";
        return;
    }
    display_ = display;
    surface_ = surface;
    context_ = context;
    if (!MakeCurrent()) error_ = "the context could not be made current";
}

OffscreenGlContext::~OffscreenGlContext() {
    if (!context_) return;
    if (eglGetCurrentContext() == context_) eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display_, context_);
    eglDestroySurface(display_, surface_);
}

bool OffscreenGlContext::MakeCurrent() {
    if (!context_) return false;
    eglBindAPI(EGL_OPENGL_API);
    return eglMakeCurrent(display_, surface_, surface_, context_) == EGL_TRUE;
}

std::vector<std::uint8_t> OffscreenGlContext::ReadPixels() const {
    const std::size_t row = static_cast<std::size_t>(width_) * 4;
    std::vector<std::uint8_t> pixels(row * static_cast<std::size_t>(height_));
    glFinish();
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    // OpenGL's rows run bottom up.
    std::vector<std::uint8_t> flipped(pixels.size());
    for (int y = 0; y < height_; ++y)
        std::memcpy(&flipped[static_cast<std::size_t>(y) * row],
                    &pixels[static_cast<std::size_t>(height_ - 1 - y) * row], row);
    return flipped;
}

}  // namespace qor
