#include "qor/view3d/BinaryModel.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>

namespace qor {
namespace {

// Every field is a 32-bit word, so the byte order is fixed word by word.
void FixWordOrder(void *data, std::size_t bytes) {
    if constexpr (std::endian::native == std::endian::big) {
        auto *p = static_cast<unsigned char *>(data);
        for (std::size_t i = 0; i + 4 <= bytes; i += 4) {
            std::swap(p[i], p[i + 3]);
            std::swap(p[i + 1], p[i + 2]);
        }
    }
}

class Reader {
public:
    Reader(const char *data, std::size_t size) : data_(data), left_(size) {}

    bool Count(std::uint32_t &count) {
        if (left_ < 4) return false;
        std::memcpy(&count, data_, 4);
        FixWordOrder(&count, 4);
        Skip(4);
        return true;
    }

    template <class T>
    bool Block(std::vector<T> &out) {
        std::uint32_t count;
        if (!Count(count)) return false;
        // Checked before anything is allocated, so a hostile count costs nothing.
        if (count > left_ / sizeof(T)) return false;
        out.resize(count);
        const std::size_t bytes = std::size_t{count} * sizeof(T);
        if (bytes) std::memcpy(out.data(), data_, bytes);
        FixWordOrder(out.data(), bytes);
        Skip(bytes);
        return true;
    }

private:
    void Skip(std::size_t bytes) {
        data_ += bytes;
        left_ -= bytes;
    }
    const char *data_;
    std::size_t left_;
};

template <class T>
void Put(std::string &out, const std::vector<T> &items) {
    const auto count = static_cast<std::uint32_t>(items.size());
    const std::size_t at = out.size();
    out.resize(at + 4 + items.size() * sizeof(T));
    std::memcpy(&out[at], &count, 4);
    if (!items.empty()) std::memcpy(&out[at + 4], items.data(), items.size() * sizeof(T));
    FixWordOrder(&out[at], 4 + items.size() * sizeof(T));
}

}  // namespace

std::optional<BinaryModel> DecodeBinaryModel(const char *data, std::size_t size) {
    BinaryModel model;
    Reader reader(data, size);
    if (!reader.Block(model.vertices) || !reader.Block(model.faces) || !reader.Block(model.materials))
        return std::nullopt;
    return model;
}

std::string EncodeBinaryModel(const std::vector<Vector3D> &vertices, const std::vector<Face> &faces,
                              const std::vector<Material> &materials) {
    std::string out;
    out.reserve(12 + vertices.size() * sizeof(Vector3D) + faces.size() * sizeof(Face) +
                materials.size() * sizeof(Material));
    Put(out, vertices);
    Put(out, faces);
    Put(out, materials);
    return out;
}

}  // namespace qor
