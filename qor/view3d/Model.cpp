#include "qor/view3d/Model.h"

#include <GL/gl.h>

#include <cmath>

namespace {

bool HasVertex(const std::vector<Vector3D> &vertices, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < vertices.size();
}

// The one flat normal of a triangle, (v0 - v1) x (v1 - v2) made unit length.
// A degenerate triangle gets whatever the division gives, as it always has.
Vector3D FlatNormal(const Vector3D &v0, const Vector3D &v1, const Vector3D &v2) {
    const float ax = v0.x - v1.x, ay = v0.y - v1.y, az = v0.z - v1.z;
    const float bx = v1.x - v2.x, by = v1.y - v2.y, bz = v1.z - v2.z;
    Vector3D n{ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx};
    const float scale = 1.0f / std::sqrt(n.x * n.x + n.y * n.y + n.z * n.z);
    return {n.x * scale, n.y * scale, n.z * scale};
}

}  // namespace

Model &Model::operator=(const Model &other) {
    callList = -1;
    vertices = other.vertices;
    faces = other.faces;
    materials = other.materials;
    Generate();
    return *this;
}

Model::~Model() { DeleteCallList(); }

void Model::DeleteCallList() {
    if (callList >= 0) glDeleteLists(static_cast<GLuint>(callList), 1);
    callList = -1;
}

void Model::Generate() {
    if (callList >= 0) glDeleteLists(static_cast<GLuint>(callList), 1);
    callList = static_cast<int>(glGenLists(1));
    // No list name means no current context (or none left in it): the calls
    // below would all be ignored, or with a context drawn at once instead of
    // compiled, and a model is read without a window as often as with one.
    // Name 0 draws nothing; skip the walk over the faces.
    if (callList == 0) return;
    glNewList(static_cast<GLuint>(callList), GL_COMPILE);
    glColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    glBegin(GL_TRIANGLES);
    int lastMaterial = -1;
    for (const Face &face : faces) {
        if (face.material >= 0 && static_cast<std::size_t>(face.material) < materials.size() &&
            face.material != lastMaterial) {
            // The colours are issued from the packed array, as GL reads four
            // floats where a colour has three.
            const Material &m = materials[static_cast<std::size_t>(face.material)];
            glMaterialfv(GL_FRONT, GL_AMBIENT, m.ambient);
            glMaterialfv(GL_FRONT, GL_DIFFUSE, m.diffuse);
            glMaterialfv(GL_FRONT, GL_EMISSION, m.emissive);
            glMaterialfv(GL_FRONT, GL_SPECULAR, m.specular);
            glMaterialfv(GL_FRONT, GL_SHININESS, &m.shininess);
            lastMaterial = face.material;
        }
        if (!HasVertex(vertices, face.first) || !HasVertex(vertices, face.second) ||
            !HasVertex(vertices, face.third))
            continue;
        const Vector3D &v0 = vertices[static_cast<std::size_t>(face.first)];
        const Vector3D &v1 = vertices[static_cast<std::size_t>(face.second)];
        const Vector3D &v2 = vertices[static_cast<std::size_t>(face.third)];
        const Vector3D normal = FlatNormal(v0, v1, v2);
        glNormal3fv(&normal.x);
        glVertex3fv(&v0.x);
        glVertex3fv(&v1.x);
        glVertex3fv(&v2.x);
    }
    glEnd();
    glEndList();
}

void Model::Render() const {
    if (callList >= 1) glCallList(static_cast<GLuint>(callList));
}

void Model::Clear() {
    DeleteCallList();
    vertices.clear();
    faces.clear();
    materials.clear();
}

void Model::UseSpecularLighting(bool on) {
    specular = on;
    Generate();
}
