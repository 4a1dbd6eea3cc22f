// Helpers for programs that show model files: pick the reader by the file's
// kind, read an assembly of parts and mates, and measure what will be drawn.
#pragma once

#include <array>
#include <string>

#include "qor/view3d/Geometry.h"
#include "qor/view3d/QorOpenGlModel.h"
#include "qor/view3d/VRMLModel.h"

namespace qor {

// A model file is binary when its name ends in ".bin" (any case), an
// assembly when it ends in ".xml", and VRML text otherwise.
enum class ModelFileKind { Vrml, Binary, Assembly };
ModelFileKind KindOfModelFile(const std::string &path);

// Loads a VRML or binary file into model, welding when asked; a current
// OpenGL context gets the display list. False with a message in error when
// the file cannot be read.
bool LoadModelFile(VRMLModel &model, const std::string &path, bool optimize, std::string &error);

// Reads an assembly into view:
//
//   <?xml version='1.0'?>
//   <Assembly Root="base">
//     <Part Name="base" File="base.wrl" Id="1" Rotation="0" Optimize="1"/>
//     <Part Name="arm" File="arm.bin" Id="2"/>
//     <Mate Parent="base" Child="arm" Rotation="90" X="0" Y="0" Z="0.5"/>
//     <Place Name="arm" Translate="0 0 0" Scale="1 1 1" Rotate="0"/>
//   </Assembly>
//
// Files are relative to the assembly's folder. A single model file is read
// as an assembly of one part named after the file, with id 1. idBase is
// added to every id read. Sets the root model name. False with a message in
// error on the first part that cannot be read or the first element that
// names a part not listed.
bool LoadAssembly(QorOpenGlModel &view, const std::string &path, std::string &error, int idBase = 0);

struct Bounds {
    Vector3D min{1, 1, 1};
    Vector3D max{-1, -1, -1};
    bool Empty() const { return min.x > max.x; }
    void Add(const Vector3D &p);
};

// The bounds of a model's vertices that faces use, scaled by the model's scale.
Bounds ModelBounds(const VRMLModel &model);
// The bounds of a root model and its mates as ExecuteTransforms places them.
Bounds PlacedBounds(const VRMLModel &root);

// Faces whose vertex or material index names nothing.
struct FaceProblems {
    std::size_t missingVertices = 0;
    std::size_t missingMaterials = 0;
};
FaceProblems CheckFaces(const Model &model);

}  // namespace qor

namespace qor {

// A scene matrix that shows bounds whole in the view's fixed look: centred,
// scaled so the box's diagonal spans about 1.9 units, then turned turnX
// degrees about x and turnY about y around its centre.
std::array<float, 16> FitScene(const Bounds &bounds, float turnX, float turnY);

// Named turns of FitScene: "front" (the side facing -z, which the fixed look
// sees), "back", "left", "right", "top", "bottom", "iso".
struct NamedView {
    const char *name;
    float turnX;
    float turnY;
};
const NamedView *FindNamedView(const std::string &name);
extern const NamedView kNamedViews[7];

// The model in the VRML subset form, one shape for each run of faces of one
// material, so that reading it back gives the same triangles and materials.
// False, with a message in error, when a face names a missing vertex or material.
bool WriteVrml(const Model &model, std::string &text, std::string &error);

}  // namespace qor
