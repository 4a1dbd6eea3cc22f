// A triangle mesh that compiles itself into one OpenGL display list, so that
// drawing it is one glCallList however large it is.
#pragma once

#include <vector>

#include "qor/view3d/Geometry.h"
#include "qor/view3d/Material.h"

class Model {
public:
    Model() = default;
    // Copies the arrays and the list name: both objects then share one
    // display list, and the first destroyed deletes it for both.
    Model(const Model &other) = default;
    // Forgets (without deleting) the target's list, copies the arrays and
    // compiles a list of its own; the specular flag is not copied.
    Model &operator=(const Model &other);
    virtual ~Model();

    // Compiles the display list, replacing the one held. Needs a current
    // OpenGL context; faces naming a vertex that does not exist are left out.
    void Generate();
    // Calls the display list when there is one (a name of 1 or more).
    void Render() const;
    // Deletes the display list and empties the three arrays.
    void Clear();
    // Stores the flag and compiles the list again; the list does not depend on it.
    void UseSpecularLighting(bool on);

    const std::vector<Vector3D> &GetVertices() const { return vertices; }
    const std::vector<Face> &GetFaces() const { return faces; }
    const std::vector<Material> &GetMaterials() const { return materials; }
    int GetCallList() const { return callList; }
    bool GetSpecularLighting() const { return specular; }

protected:
    std::vector<Vector3D> vertices;
    std::vector<Face> faces;
    std::vector<Material> materials;
    int callList = -1;
    bool specular = false;

private:
    void DeleteCallList();
};
