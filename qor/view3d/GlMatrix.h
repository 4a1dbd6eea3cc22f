// CCamera and CScene: one four-by-four float matrix in OpenGL's column-major
// order that is multiplied into OpenGL, moved, turned and written as text.
// The view holds one of each; the two names are kept apart so that neither
// can be passed for the other.
#pragma once

#include <array>
#include <string>

namespace qor {

class GlMatrix {
public:
    // The identity.
    GlMatrix();
    // The identity, then up to sixteen blank-separated numbers from text;
    // entries the text does not reach stay as the identity has them.
    explicit GlMatrix(const std::string &text);

    // Appends the sixteen floats, each followed by one blank.
    void operator>>(std::string &text) const;
    // glMultMatrixf with this matrix.
    void Apply() const;
    // Moves in the coordinates the matrix leads into: this = T(x, y, z) * this.
    // Uses the OpenGL model-view stack as its calculator and leaves the
    // matrix state as it found it; needs a current context.
    void Offset(float x, float y, float z);
    // Turns on the object's side, degrees about x, then y, then z:
    // this = this * Rx * Ry * Rz. Needs a current context.
    void RotateRoundAxis(float x, float y, float z);

    const std::array<float, 16> &Get() const { return m_; }
    void Set(const std::array<float, 16> &m) { m_ = m; }
    bool operator==(const GlMatrix &) const = default;

private:
    std::array<float, 16> m_;
};

}  // namespace qor

class CCamera : public qor::GlMatrix {
public:
    using GlMatrix::GlMatrix;
};

class CScene : public qor::GlMatrix {
public:
    using GlMatrix::GlMatrix;
};
