// Any bytes given to the binary model reader are refused or read whole:
// never a crash, a read out of range or an allocation beyond what the bytes
// can hold; what was read writes back as the same bytes; and drawing a model
// whose faces name missing vertices or materials reads nothing out of range.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "qor/view3d.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    // Exactly the input's bytes, so that reading past them is caught.
    std::vector<char> bytes(data, data + size);
    VRMLModel model;
    if (!model.LoadBinaryFile(bytes.data(), bytes.size())) return 0;
    const std::string again =
        qor::EncodeBinaryModel(model.GetVertices(), model.GetFaces(), model.GetMaterials());
    if (again.size() > size || std::memcmp(again.data(), data, again.size()) != 0) __builtin_trap();
    model.Generate();
    qor::CheckFaces(model);
    qor::PlacedBounds(model);
    std::string text, error;
    qor::WriteVrml(model, text, error);
    return 0;
}
