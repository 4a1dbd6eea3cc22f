#include "qor/view3d/Welding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace qor {
namespace {

using Cell = std::array<std::int64_t, 3>;

bool Finite(const Vector3D &v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

bool Close(const Vector3D &a, const Vector3D &b, double spacing) {
    return std::fabs(double(a.x) - double(b.x)) < spacing &&
           std::fabs(double(a.y) - double(b.y)) < spacing &&
           std::fabs(double(a.z) - double(b.z)) < spacing;
}

// A 64-bit finaliser: every input bit reaches the low bits a table uses.
std::uint64_t Mix(std::uint64_t h) {
    h ^= h >> 33;
    h *= 0xFF51AFD7ED558CCDull;
    h ^= h >> 33;
    h *= 0xC4CEB9FE1A85EC53ull;
    return h ^ (h >> 33);
}

// The first input vertex of each exact value (by bits). A later copy of a
// finite vertex has the same answer as its first copy: the kept vertices
// only grow after it, and none of those comes before the copy's match.
class ExactIndex {
public:
    ExactIndex(const std::vector<Vector3D> &vertices) : vertices_(vertices) {
        std::size_t capacity = 64;
        while (capacity < vertices.size() * 2) capacity *= 2;
        slots_.assign(capacity, -1);
    }
    // The slot of v's value: the index of its first copy, or -1 to fill in.
    std::int32_t &Find(const Vector3D &v) {
        const auto bits = Bits(v);
        for (std::size_t i = Hash(bits) & (slots_.size() - 1);; i = (i + 1) & (slots_.size() - 1)) {
            std::int32_t &slot = slots_[i];
            if (slot < 0) return slot;
            const Key other = Bits(vertices_[static_cast<std::size_t>(slot)]);
            if (other[0] == bits[0] && other[1] == bits[1] && other[2] == bits[2]) return slot;
        }
    }

private:
    using Key = std::array<std::uint32_t, 3>;
    static Key Bits(const Vector3D &v) {
        return {std::bit_cast<std::uint32_t>(v.x), std::bit_cast<std::uint32_t>(v.y), std::bit_cast<std::uint32_t>(v.z)};
    }
    static std::size_t Hash(const Key &k) {
        return static_cast<std::size_t>(Mix((std::uint64_t{k[0]} << 32 | k[1]) ^ std::uint64_t{k[2]} * 0x9E3779B97F4A7C15ull));
    }
    const std::vector<Vector3D> &vertices_;
    std::vector<std::int32_t> slots_;
};

// Cells are eight spacings wide, and every kept vertex is filed under the one
// cell that holds it. A query looks in the cells from the one holding v - s to
// the one holding v + s on each axis: one, or two near a cell's face. The query's ends and
// the filed vertices go to cells by the same monotonic rounding, so a kept
// vertex within the spacing always lies in a cell the query looks in: the
// filing is exact, not approximate.
class CellIndex {
public:
    CellIndex(double spacing, std::size_t expected) : inverseCell_(1 / (8 * spacing)), spacing_(spacing) {
        std::size_t capacity = 64;
        while (capacity < expected * 2) capacity *= 2;
        slots_.assign(capacity, Slot{});
    }

    // Cell coordinate of a value; huge values share the outermost cells,
    // which keeps the mapping monotonic.
    std::int64_t CellOf(double value) const {
        constexpr double limit = 4.0e18;
        // A product, not a quotient: any monotonic mapping keeps the filing
        // exact, and this one is cheaper.
        const double q = std::floor(value * inverseCell_);
        // A spacing so small that its inverse is infinite makes 0 * inf: the
        // middle cell, between the negative and the positive values.
        if (q != q) return 0;
        if (q >= limit) return static_cast<std::int64_t>(limit);
        if (q <= -limit) return -static_cast<std::int64_t>(limit);
        return static_cast<std::int64_t>(q);
    }

    void File(const Vector3D &v, std::int32_t kept) {
        if ((used_ + 1) * 2 > slots_.size()) Grow();
        // Indexed by kept index; kept vertices that are never filed leave gaps.
        while (next_.size() <= static_cast<std::size_t>(kept)) next_.push_back(-1);
        const Cell cell{CellOf(v.x), CellOf(v.y), CellOf(v.z)};
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t i = Hash(cell) & mask;; i = (i + 1) & mask) {
            Slot &slot = slots_[i];
            if (slot.head < 0) {
                slot = {cell, kept, kept};
                ++used_;
                return;
            }
            if (slot.cell == cell) {
                // Kept vertices arrive in index order, so each cell's list is
                // ascending and its first match is its earliest.
                next_[static_cast<std::size_t>(slot.tail)] = kept;
                slot.tail = kept;
                return;
            }
        }
    }

    // The earliest kept vertex within the spacing of v, or -1.
    std::int32_t Match(const Vector3D &v, const std::vector<Vector3D> &kept) const {
        const double c[3] = {v.x, v.y, v.z};
        std::int64_t lo[3], hi[3];
        for (int a = 0; a < 3; ++a) {
            lo[a] = CellOf(c[a] - spacing_);
            hi[a] = CellOf(c[a] + spacing_);
        }
        std::int32_t best = -1;
        if (hi[0] - lo[0] > 3 || hi[1] - lo[1] > 3 || hi[2] - lo[2] > 3) {
            // Only a spacing at the ends of the double range spreads a query
            // over more cells (their mapping saturates): scan, as the
            // described algorithm does.
            for (std::size_t k = 0; k < kept.size(); ++k)
                if (Close(kept[k], v, spacing_)) return static_cast<std::int32_t>(k);
            return -1;
        }
        for (std::int64_t x = lo[0]; x <= hi[0]; ++x)
            for (std::int64_t y = lo[1]; y <= hi[1]; ++y)
                for (std::int64_t z = lo[2]; z <= hi[2]; ++z)
                    for (std::int32_t k = Head({x, y, z}); k >= 0 && (best < 0 || k < best);
                         k = next_[static_cast<std::size_t>(k)]) {
                        if (Close(kept[static_cast<std::size_t>(k)], v, spacing_)) {
                            best = k;
                            break;
                        }
                    }
        return best;
    }

private:
    struct Slot {
        Cell cell{};
        std::int32_t head = -1;
        std::int32_t tail = -1;
    };

    static std::size_t Hash(const Cell &c) {
        return static_cast<std::size_t>(Mix(static_cast<std::uint64_t>(c[0]) * 0x9E3779B97F4A7C15ull ^
                                             static_cast<std::uint64_t>(c[1]) * 0xC2B2AE3D27D4EB4Full ^
                                             static_cast<std::uint64_t>(c[2])));
    }

    std::int32_t Head(const Cell &cell) const {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t i = Hash(cell) & mask;; i = (i + 1) & mask) {
            const Slot &slot = slots_[i];
            if (slot.head < 0) return -1;
            if (slot.cell == cell) return slot.head;
        }
    }

    void Grow() {
        std::vector<Slot> old(slots_.size() * 2);
        old.swap(slots_);
        const std::size_t mask = slots_.size() - 1;
        for (const Slot &slot : old) {
            if (slot.head < 0) continue;
            std::size_t i = Hash(slot.cell) & mask;
            while (slots_[i].head >= 0) i = (i + 1) & mask;
            slots_[i] = slot;
        }
    }

    double inverseCell_;
    double spacing_;
    std::vector<Slot> slots_;
    std::vector<std::int32_t> next_;  // the next kept vertex of the same cell
    std::size_t used_ = 0;
};

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
    CellIndex index(spacing, vertices.size() / 8);
    ExactIndex exact(vertices);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Vector3D &v = vertices[i];
        const auto kept = static_cast<std::int32_t>(result.vertices.size());
        // Only finite vertices are entered, so an infinity or a NaN finds no copy.
        std::int32_t &first = exact.Find(v);
        if (first >= 0) {
            result.remap[i] = result.remap[static_cast<std::size_t>(first)];
            continue;
        }
        // A vertex with an infinity or a NaN is never within the spacing of
        // anything, so it is kept and never filed.
        if (!Finite(v)) {
            result.remap[i] = kept;
            result.vertices.push_back(v);
            continue;
        }
        first = static_cast<std::int32_t>(i);
        const std::int32_t match = index.Match(v, result.vertices);
        if (match >= 0) {
            result.remap[i] = match;
            continue;
        }
        result.remap[i] = kept;
        result.vertices.push_back(v);
        index.File(v, kept);
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
