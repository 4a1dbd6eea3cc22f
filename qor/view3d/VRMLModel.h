// A model read from a small subset of VRML text or from the flat binary
// model format, with a placement in the scene and mates: models that ride
// along with it.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>

#include "qor/platform/Win32Types.h"
#include "qor/view3d/Model.h"

class VRMLModel : public Model {
public:
    // Empty, scale (1, 1, 1), grid spacing 0.001, id 0.
    VRMLModel() = default;
    // As the default, with the file name and id stored and rotation taken
    // as the mate rotation. Loads nothing.
    VRMLModel(const std::string &name, float rotation, int id);
    VRMLModel(const VRMLModel &other) = default;
    // Model's assignment, then mates and file name unless this is other;
    // placement, id and grid spacing always.
    VRMLModel &operator=(const VRMLModel &other);
    ~VRMLModel() override = default;

    // Reads a VRML text file, welds if asked and compiles the display list.
    // False only when the file cannot be opened; text without any of the
    // tokens gives an empty model.
    bool OpenFile(const std::string &path, bool optimize);
    // Reads VRML text from memory as OpenFile reads a file's text.
    void ReadVrml(std::string_view text, bool optimize);
    // Reads the binary format. The file must open for reading and writing, as
    // it always had to. False, leaving the model as it was, when it cannot or
    // when it is shorter than its counts say.
    bool OpenBinaryFile(const std::string &path, bool optimize);
    // Decodes the binary format, trusting the counts it reads; always true.
    bool LoadBinaryFile(const char *data);
    // Decodes the binary format from size bytes; false, leaving the model as
    // it was, when the data are shorter than their counts say.
    bool LoadBinaryFile(const char *data, std::size_t size);
    // Looks the resource up (id & 0xFFFF, type), decodes, welds if asked and
    // compiles. False when there is no such resource or it is cut short.
    bool LoadModelFromResource(HINSTANCE__ *module, unsigned int id, const std::string &type,
                               bool optimize);
    // Writes the binary format; false when the file cannot be written.
    bool SaveBinaryFile(const std::string &path) const;

    // Appends mate (not owned) after writing the placement into it, unless it
    // is this model or already listed.
    void AddMate(VRMLModel &mate, float rotation, float x, float y, float z);
    // Kept for its callers; the mate stays listed.
    void DeleteMate(VRMLModel &mate);

    // Store the value only; nothing is drawn or compiled.
    void Rotate(float degrees) { rotation = degrees; }
    void Translate(float x, float y, float z) { translation = {x, y, z}; }
    void Scale(float x, float y, float z) { scale = {x, y, z}; }
    void SetGridSpacing(double spacing) { gridSpacing = spacing; }

    int GetModelId() const { return modelId; }
    const std::list<VRMLModel *> &GetMates() const { return mates; }
    const std::string &GetFileName() const { return fileName; }
    float GetRotation() const { return rotation; }
    Vector3D GetTranslation() const { return translation; }
    Vector3D GetScale() const { return scale; }
    float GetMateRotation() const { return mateRotation; }
    Vector3D GetMateOffset() const { return mateOffset; }
    double GetGridSpacing() const { return gridSpacing; }

    // Draws the model under its placement, named by its id for selection,
    // and then its mates, which inherit translation and rotation but not
    // scale. Pushes no matrix around its own placement.
    void ExecuteTransforms();

private:
    void Parse(std::string_view text);
    void Optimize();
    void TraceVectors() const;

    std::list<VRMLModel *> mates;
    float mateRotation = 0;
    Vector3D mateOffset;
    float rotation = 0;
    Vector3D translation;
    Vector3D scale{1, 1, 1};
    std::string fileName;
    int modelId = 0;
    double gridSpacing = 0.001;
    // Set while this model draws, so that mates that name each other in a
    // circle are drawn once instead of without end.
    bool drawing = false;
};
