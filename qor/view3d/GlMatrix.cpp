#include "qor/view3d/GlMatrix.h"

#include <GL/gl.h>

#include <cstdio>

#include "qor/view3d/VrmlText.h"

namespace qor {
namespace {

constexpr std::array<float, 16> kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// Runs work on the model-view stack whatever the current matrix mode is,
// and puts the mode back.
template <class Work>
void OnModelView(Work work) {
    GLint mode = GL_MODELVIEW;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    if (mode != GL_MODELVIEW) glMatrixMode(GL_MODELVIEW);
    work();
    if (mode != GL_MODELVIEW) glMatrixMode(static_cast<GLenum>(mode));
}

}  // namespace

GlMatrix::GlMatrix() : m_(kIdentity) {}

GlMatrix::GlMatrix(const std::string &text) : m_(kIdentity) {
    // Piece by piece up to the next blank, as the text form writes them.
    std::size_t position = 0;
    for (float &entry : m_) {
        const std::size_t blank = text.find(' ', position);
        const std::string_view piece =
            std::string_view(text).substr(position, blank == std::string::npos ? std::string::npos : blank - position);
        qor::vrml::ExtractFloats(piece, &entry, 1);
        if (blank == std::string::npos) break;
        position = blank + 1;
    }
}

void GlMatrix::operator>>(std::string &text) const {
    for (float value : m_) {
        // Nine significant digits bring every float back unchanged.
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.9g ", static_cast<double>(value));
        text += buffer;
    }
}

void GlMatrix::Apply() const { glMultMatrixf(m_.data()); }

void GlMatrix::Offset(float x, float y, float z) {
    OnModelView([&] {
        std::array<float, 16> t;
        glPushMatrix();
        glLoadIdentity();
        glTranslatef(x, y, z);
        glGetFloatv(GL_MODELVIEW_MATRIX, t.data());
        glPushMatrix();
        glLoadMatrixf(t.data());
        glMultMatrixf(m_.data());
        glGetFloatv(GL_MODELVIEW_MATRIX, m_.data());
        glPopMatrix();
        glPopMatrix();
    });
}

void GlMatrix::RotateRoundAxis(float x, float y, float z) {
    OnModelView([&] {
        glPushMatrix();
        glLoadMatrixf(m_.data());
        glRotatef(x, 1, 0, 0);
        glRotatef(y, 0, 1, 0);
        glRotatef(z, 0, 0, 1);
        glGetFloatv(GL_MODELVIEW_MATRIX, m_.data());
        glPopMatrix();
    });
}

}  // namespace qor
