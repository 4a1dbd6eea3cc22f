#include "qor/view3d/VRMLModel.h"

#include <GL/gl.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "qor/platform/Files.h"
#include "qor/view3d/BinaryModel.h"
#include "qor/view3d/Resources.h"
#include "qor/view3d/Welding.h"

namespace {

std::string ReadToEnd(std::istream &in) {
    std::string bytes;
    // A file's length sizes the buffer once: growing it by doubling copies
    // the text several times over and touches twice the memory. Whatever
    // can't seek (a pipe) just grows.
    if (in.seekg(0, std::ios::end)) {
        if (const std::streamoff length = in.tellg(); length > 0) bytes.reserve(static_cast<std::size_t>(length));
        in.seekg(0, std::ios::beg);
    }
    in.clear();
    char chunk[1 << 16];
    while (in.read(chunk, sizeof chunk) || in.gcount() > 0)
        bytes.append(chunk, static_cast<std::size_t>(in.gcount()));
    return bytes;
}

}  // namespace

VRMLModel::VRMLModel(const std::string &name, float rotation, int id)
    : mateRotation(rotation), fileName(name), modelId(id) {}

VRMLModel &VRMLModel::operator=(const VRMLModel &other) {
    Model::operator=(other);
    if (this != &other) {
        mates = other.mates;
        fileName = other.fileName;
    }
    mateRotation = other.mateRotation;
    mateOffset = other.mateOffset;
    rotation = other.rotation;
    translation = other.translation;
    scale = other.scale;
    modelId = other.modelId;
    gridSpacing = other.gridSpacing;
    return *this;
}

bool VRMLModel::OpenFile(const std::string &path, bool optimize) {
    // Read to the end rather than by a length from seeking, which means
    // nothing for a directory or a pipe; for a file it is the same bytes. A
    // read failure is not looked at: what arrived is parsed.
    qor::FileText text;
    if (!text.Open(path)) return false;
    ReadVrml(text.Text(), optimize);
    return true;
}

void VRMLModel::ReadVrml(std::string_view text, bool optimize) {
    Parse(text);
    if (optimize) Optimize();
    Generate();
}

bool VRMLModel::OpenBinaryFile(const std::string &path, bool optimize) {
    // Opened for reading and writing, so a read-only or missing file fails.
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    if (!file.is_open()) return false;
    std::string bytes = ReadToEnd(file);
    if (file.bad()) return false;
    file.close();
    if (!LoadBinaryFile(bytes.data(), bytes.size())) return false;
    if (optimize) Optimize();
    Generate();
    return true;
}

bool VRMLModel::LoadBinaryFile(const char *data) {
    LoadBinaryFile(data, static_cast<std::size_t>(-1));
    return true;
}

bool VRMLModel::LoadBinaryFile(const char *data, std::size_t size) {
    auto decoded = qor::DecodeBinaryModel(data, size);
    if (!decoded) return false;
    vertices = std::move(decoded->vertices);
    faces = std::move(decoded->faces);
    materials = std::move(decoded->materials);
    return true;
}

bool VRMLModel::LoadModelFromResource(HINSTANCE__ *module, unsigned int id, const std::string &type,
                                      bool optimize) {
    const qor::ResourceBytes resource = qor::FindResource(module, id, type);
    if (!resource || !LoadBinaryFile(resource.data, resource.size)) return false;
    if (optimize) Optimize();
    Generate();
    return true;
}

bool VRMLModel::SaveBinaryFile(const std::string &path) const {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out.is_open()) return false;
    const std::string bytes = qor::EncodeBinaryModel(vertices, faces, materials);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

void VRMLModel::AddMate(VRMLModel &mate, float rotation, float x, float y, float z) {
    if (&mate == this || std::find(mates.begin(), mates.end(), &mate) != mates.end()) return;
    mate.mateRotation = rotation;
    mate.mateOffset = {x, y, z};
    mates.push_back(&mate);
}

void VRMLModel::DeleteMate(VRMLModel &) {}

void VRMLModel::ExecuteTransforms() {
    if (drawing) return;
    drawing = true;
    glTranslatef(translation.x + mateOffset.x, translation.y + mateOffset.y, translation.z + mateOffset.z);
    glRotatef(rotation + mateRotation, 0, 1, 0);
    glPushMatrix();
    glScalef(scale.x, scale.y, scale.z);
    glPushName(static_cast<GLuint>(modelId));
    Render();
    glPopName();
    glPopMatrix();
    for (VRMLModel *mate : mates) {
        glPushMatrix();
        mate->ExecuteTransforms();
        glPopMatrix();
    }
    drawing = false;
}

void VRMLModel::Optimize() {
    qor::WeldResult welded = qor::WeldVertices(vertices, gridSpacing);
    qor::RemapAndPruneFaces(faces, welded.remap);
    vertices = std::move(welded.vertices);
}

void VRMLModel::TraceVectors() const {
    // A debugging aid of old whose loop never did anything; kept for its name.
}
