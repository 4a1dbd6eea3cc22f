// Vertex welding and face pruning, the work of VRMLModel's optimise step.
//
// Each vertex in turn is matched with the earliest kept vertex whose x, y and
// z each differ from it by strictly less than the spacing (compared in
// double), or kept itself. Found by the literal scan of every kept vertex this
// is quadratic; here a spatial hash gives the same answer in linear time.
#pragma once

#include <cstdint>
#include <vector>

#include "qor/view3d/Geometry.h"

namespace qor {

struct WeldResult {
    std::vector<Vector3D> vertices;     // the kept vertices, in the order first met
    std::vector<std::int32_t> remap;    // for every input vertex, its kept index
};

WeldResult WeldVertices(const std::vector<Vector3D> &vertices, double spacing);

// The same by the literal scan of every kept vertex: quadratic, and the
// reference the tests, fuzz targets and benchmarks hold WeldVertices to.
WeldResult WeldVerticesByScan(const std::vector<Vector3D> &vertices, double spacing);

// Rewrites the faces' vertex indices through remap (indices outside it stay
// as they are) and drops every face that names the same three vertices as the
// face kept before it, in any order and whatever its material.
void RemapAndPruneFaces(std::vector<Face> &faces, const std::vector<std::int32_t> &remap);

}  // namespace qor
