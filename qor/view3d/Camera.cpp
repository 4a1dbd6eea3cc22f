#include "qor/view3d/Camera.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>

float Camera::scratch[16];

namespace {

Vector3D operator+(const Vector3D &a, const Vector3D &b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vector3D operator-(const Vector3D &a, const Vector3D &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vector3D operator/(const Vector3D &a, float s) { return {a.x / s, a.y / s, a.z / s}; }
Vector3D Cross(const Vector3D &a, const Vector3D &b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
float Length(const Vector3D &a) { return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z); }

// The three-by-three part of m applied to p; the translation column is not used.
Vector3D Apply3x3(const float *m, const Vector3D &p) {
    return {p.x * m[0] + p.y * m[4] + p.z * m[8], p.x * m[1] + p.y * m[5] + p.z * m[9],
            p.x * m[2] + p.y * m[6] + p.z * m[10]};
}

}  // namespace

Camera::Camera() = default;

Camera::Camera(const Vector3D &position, const Vector3D &lookAt, const Vector3D &up)
    : position(position), lookAt(lookAt), up(up) {}

Camera::Camera(const Camera &other) : position(other.position), lookAt(other.lookAt), up(other.up) {}

Camera &Camera::operator=(const Camera &other) {
    position = other.position;
    lookAt = other.lookAt;
    up = other.up;
    return *this;
}

void Camera::LoadView() const {
    gluLookAt(position.x, position.y, position.z, lookAt.x, lookAt.y, lookAt.z, up.x, up.y, up.z);
}

void Camera::Turned(float horizontal, float vertical, float dx, float dy, const Vector3D &pivot, Turn kind) {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const Vector3D d = lookAt - position;
    const Vector3D right = Cross(d, up);
    Vector3D upTip = position + up;
    Vector3D p = position - pivot, l = lookAt - pivot;
    upTip = upTip - pivot;
    if (kind == Turn::Pan) {
        glTranslatef(dx, dy, 0);
    } else {
        const Vector3D axis = Cross(right, d);
        if (horizontal != 0) glRotatef(horizontal * 57.295776f, axis.x, axis.y, axis.z);
        if (vertical != 0) glRotatef(vertical * -57.295776f, right.x, right.y, right.z);
    }
    glGetFloatv(GL_MODELVIEW_MATRIX, scratch);
    p = Apply3x3(scratch, p);
    l = Apply3x3(scratch, l);
    upTip = Apply3x3(scratch, upTip);
    position = p + pivot;
    lookAt = l + pivot;
    up = upTip + pivot - position;
    if (kind != Turn::NewRotate) lookAt = position + (lookAt - position) / Length(lookAt - position);
    up = up / Length(up);
    if (constantLook) lookAt = constantLookPoint;
    glLoadIdentity();
    if (kind != Turn::NewRotate) LoadView();
}

void Camera::Rotate(float horizontal, float vertical, const Vector3D &pivot) {
    Turned(horizontal, vertical, 0, 0, pivot, Turn::Rotate);
}

void Camera::NewRotate(float horizontal, float vertical, const Vector3D &pivot) {
    Turned(horizontal, vertical, 0, 0, pivot, Turn::NewRotate);
}

void Camera::Pan(float dx, float dy, const Vector3D &pivot) { Turned(0, 0, dx, dy, pivot, Turn::Pan); }

void Camera::Zoom(float distance, const Vector3D &) {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    if (distance != 0) glTranslatef(0, 0, distance);
    glGetFloatv(GL_MODELVIEW_MATRIX, scratch);
    position = Apply3x3(scratch, position);
    lookAt = Apply3x3(scratch, lookAt);
    LoadView();
}

void Camera::SetConstantLookPoint(bool on, const Vector3D &point) {
    constantLook = on;
    constantLookPoint = point;
}

void Camera::SetPerspective(int width, int height) {
    fieldOfView = static_cast<float>(2.0 * std::atan2(2.0 * std::tan(0.39269909), 2.0) * 180.0 / M_PI);
    aspect = width > height ? static_cast<float>(width) / static_cast<float>(height) : 1.0f;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(fieldOfView, aspect, nearPlane, farPlane);
}
