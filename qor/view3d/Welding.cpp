#include "qor/view3d/Welding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace qor {
namespace {

using Cell = std::array<std::int64_t, 3>;

// Cells are twice the spacing wide. Every kept vertex is filed under each
// cell that its open box of half-width spacing reaches (at most two per
// axis), so a query looks in the one cell that holds it. The box ends and the
// query are mapped to cells by the same monotonic rounding, so whatever the
// rounding does, a vertex inside a box finds that box's vertex filed under
// its cell, and the filing is exact, not approximate.
class CellIndex {
public:
    CellIndex(double spacing, std::size_t expected) : cellSize_(2 * spacing), spacing_(spacing) {
        std::size_t capacity = 64;
        while (capacity < expected * 2) capacity *= 2;
        slots_.assign(capacity, Slot{});
    }

    // Cell coordinate of a value; huge values share the outermost cells,
    // which keeps the mapping monotonic.
    std::int64_t CellOf(double value) const {
        constexpr double limit = 4.0e18;
        const double q = std::floor(value / cellSize_);
        if (q >= limit) return static_cast<std::int64_t>(limit);
        if (q <= -limit) return -static_cast<std::int64_t>(limit);
        return static_cast<std::int64_t>(q);
    }

    void File(const Vector3D &v, std::int32_t index) {
        const double c[3] = {v.x, v.y, v.z};
        std::int64_t lo[3], hi[3];
        for (int a = 0; a < 3; ++a) {
            lo[a] = CellOf(c[a] - spacing_);
            hi[a] = CellOf(c[a] + spacing_);
        }
        for (std::int64_t x = lo[0]; x <= hi[0]; ++x)
            for (std::int64_t y = lo[1]; y <= hi[1]; ++y)
                for (std::int64_t z = lo[2]; z <= hi[2]; ++z) Append({x, y, z}, index);
    }

    // First entry of the vertex's cell, or -1; entries follow by Next.
    std::int32_t Head(const Vector3D &v) const {
        const Cell cell{CellOf(v.x), CellOf(v.y), CellOf(v.z)};
        for (std::size_t i = Hash(cell) & (slots_.size() - 1);; i = (i + 1) & (slots_.size() - 1)) {
            const Slot &slot = slots_[i];
            if (slot.head < 0) return -1;
            if (slot.cell == cell) return slot.head;
        }
    }
    std::int32_t Next(std::int32_t entry) const { return entries_[entry].next; }
    std::int32_t Vertex(std::int32_t entry) const { return entries_[entry].vertex; }

private:
    struct Slot {
        Cell cell{};
        std::int32_t head = -1;
        std::int32_t tail = -1;
    };
    struct Entry {
        std::int32_t vertex;
        std::int32_t next;
    };

    static std::size_t Hash(const Cell &c) {
        std::uint64_t h = static_cast<std::uint64_t>(c[0]) * 0x9E3779B97F4A7C15ull;
        h ^= static_cast<std::uint64_t>(c[1]) * 0xC2B2AE3D27D4EB4Full;
        h ^= static_cast<std::uint64_t>(c[2]) * 0x165667B19E3779F9ull;
        return static_cast<std::size_t>(h ^ (h >> 29));
    }

    void Append(const Cell &cell, std::int32_t vertex) {
        if ((used_ + 1) * 2 > slots_.size()) Grow();
        const auto entry = static_cast<std::int32_t>(entries_.size());
        entries_.push_back({vertex, -1});
        for (std::size_t i = Hash(cell) & (slots_.size() - 1);; i = (i + 1) & (slots_.size() - 1)) {
            Slot &slot = slots_[i];
            if (slot.head < 0) {
                slot = {cell, entry, entry};
                ++used_;
                return;
            }
            if (slot.cell == cell) {
                // Kept vertices arrive in index order, so each cell's list is
                // ascending and its first match is the earliest.
                entries_[slot.tail].next = entry;
                slot.tail = entry;
                return;
            }
        }
    }

    void Grow() {
        std::vector<Slot> old(slots_.size() * 2);
        old.swap(slots_);
        for (const Slot &slot : old) {
            if (slot.head < 0) continue;
            std::size_t i = Hash(slot.cell) & (slots_.size() - 1);
            while (slots_[i].head >= 0) i = (i + 1) & (slots_.size() - 1);
            slots_[i] = slot;
        }
    }

    double cellSize_;
    double spacing_;
    std::vector<Slot> slots_;
    std::vector<Entry> entries_;
    std::size_t used_ = 0;
};

bool Finite(const Vector3D &v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

bool Close(const Vector3D &a, const Vector3D &b, double spacing) {
    return std::fabs(double(a.x) - double(b.x)) < spacing &&
           std::fabs(double(a.y) - double(b.y)) < spacing &&
           std::fabs(double(a.z) - double(b.z)) < spacing;
}

// Keeps every vertex: the result when nothing can be close enough to match.
WeldResult KeepAll(const std::vector<Vector3D> &vertices) {
    WeldResult result{vertices, std::vector<std::int32_t>(vertices.size())};
    for (std::size_t i = 0; i < vertices.size(); ++i) result.remap[i] = static_cast<std::int32_t>(i);
    return result;
}

}  // namespace

WeldResult WeldVertices(const std::vector<Vector3D> &vertices, double spacing) {
    // A spacing of 0 or less (or NaN) matches nothing.
    if (!(spacing > 0)) return KeepAll(vertices);
    WeldResult result;
    result.remap.resize(vertices.size());
    if (!std::isfinite(2 * spacing)) {
        // Every finite vertex is within an infinite spacing of the first
        // finite one; a vertex with an infinity or a NaN matches nothing.
        std::int32_t first = -1;
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            const bool finite = Finite(vertices[i]);
            if (finite && first >= 0) {
                result.remap[i] = first;
                continue;
            }
            result.remap[i] = static_cast<std::int32_t>(result.vertices.size());
            if (finite) first = result.remap[i];
            result.vertices.push_back(vertices[i]);
        }
        return result;
    }
    CellIndex index(spacing, vertices.size() / 2);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Vector3D &v = vertices[i];
        // A vertex with an infinity or a NaN is never within the spacing of
        // anything, so it is kept and never filed.
        std::int32_t match = -1;
        if (Finite(v)) {
            for (std::int32_t e = index.Head(v); e >= 0; e = index.Next(e)) {
                if (Close(result.vertices[static_cast<std::size_t>(index.Vertex(e))], v, spacing)) {
                    match = index.Vertex(e);
                    break;
                }
            }
        }
        if (match >= 0) {
            result.remap[i] = match;
            continue;
        }
        const auto kept = static_cast<std::int32_t>(result.vertices.size());
        result.remap[i] = kept;
        result.vertices.push_back(v);
        if (Finite(v)) index.File(v, kept);
    }
    return result;
}

WeldResult WeldVerticesByScan(const std::vector<Vector3D> &vertices, double spacing) {
    WeldResult result;
    result.remap.reserve(vertices.size());
    for (const Vector3D &v : vertices) {
        std::size_t j = 0;
        while (j < result.vertices.size() && !Close(result.vertices[j], v, spacing)) ++j;
        if (j == result.vertices.size()) result.vertices.push_back(v);
        result.remap.push_back(static_cast<std::int32_t>(j));
    }
    return result;
}

void RemapAndPruneFaces(std::vector<Face> &faces, const std::vector<std::int32_t> &remap) {
    auto through = [&](std::int32_t i) {
        return i >= 0 && static_cast<std::size_t>(i) < remap.size() ? remap[static_cast<std::size_t>(i)] : i;
    };
    for (Face &f : faces) {
        f.first = through(f.first);
        f.second = through(f.second);
        f.third = through(f.third);
    }
    // Equal under one of the six orders means equal as sorted triples.
    auto sorted = [](const Face &f) {
        std::array<std::int32_t, 3> s{f.first, f.second, f.third};
        std::sort(s.begin(), s.end());
        return s;
    };
    faces.erase(std::unique(faces.begin(), faces.end(),
                            [&](const Face &a, const Face &b) { return sorted(a) == sorted(b); }),
                faces.end());
}

}  // namespace qor
