// A viewing frame for client code that drives its own OpenGL scene: an eye
// position, a look-at point and an up vector that turn about a pivot, and the
// projection values. It keeps no matrix: it builds each transform on the
// OpenGL model-view stack, reads it back and moves its vectors by hand, so
// every operation needs a current context.
#pragma once

#include "qor/view3d/Geometry.h"

class Camera {
public:
    // Zero vectors; field of view 45, aspect 1, near 0.1, far 1000.
    Camera();
    Camera(const Vector3D &position, const Vector3D &lookAt, const Vector3D &up);
    // Copy only the three vectors: the projection and the constant-look
    // state stay with the object they were set on.
    Camera(const Camera &other);
    Camera &operator=(const Camera &other);

    // Turns the frame about pivot (radians), puts the look-at point at unit
    // distance, and loads the view with gluLookAt.
    void Rotate(float horizontal, float vertical, const Vector3D &pivot);
    // The same turn keeping the look-at distance; loads the identity, not the view.
    void NewRotate(float horizontal, float vertical, const Vector3D &pivot);
    // Moves nothing (the translation falls outside the three-by-three step);
    // renormalises and reloads the view.
    void Pan(float dx, float dy, const Vector3D &pivot);
    // Moves nothing either; reloads the view.
    void Zoom(float distance, const Vector3D &pivot);
    void SetConstantLookPoint(bool on, const Vector3D &point);
    // Field of view 45; aspect width / height when wider than tall, else 1.
    // Leaves the matrix mode at GL_PROJECTION.
    void SetPerspective(int width, int height);

    Vector3D GetPosition() const { return position; }
    Vector3D GetLookAt() const { return lookAt; }
    Vector3D GetUp() const { return up; }
    float GetFieldOfView() const { return fieldOfView; }
    float GetAspect() const { return aspect; }
    float GetNear() const { return nearPlane; }
    float GetFar() const { return farPlane; }

private:
    enum class Turn { Rotate, NewRotate, Pan };
    void Turned(float horizontal, float vertical, float dx, float dy, const Vector3D &pivot, Turn kind);
    void LoadView() const;

    Vector3D position;
    Vector3D lookAt;
    Vector3D up;
    bool constantLook = false;
    Vector3D constantLookPoint;
    float fieldOfView = 45.0f;
    float aspect = 1.0f;
    float nearPlane = 0.1f;
    float farPlane = 1000.0f;

    // The matrix read back, shared by every camera as it always was.
    static float scratch[16];
};
