#include "qor/view3d/Welding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>

namespace qor {
namespace {

bool Close(const Vector3D &a, const Vector3D &b, double spacing) {
    return std::fabs(double(a.x) - double(b.x)) < spacing &&
           std::fabs(double(a.y) - double(b.y)) < spacing &&
           std::fabs(double(a.z) - double(b.z)) < spacing;
}

// An infinity or a NaN in any axis: the vertex is within no spacing of
// anything, itself included, since inf - inf and anything - NaN are NaN.
bool Finite(const Vector3D &v) {
    constexpr std::uint32_t exponent = 0x7F800000;
    return (std::bit_cast<std::uint32_t>(v.x) & exponent) != exponent &&
           (std::bit_cast<std::uint32_t>(v.y) & exponent) != exponent &&
           (std::bit_cast<std::uint32_t>(v.z) & exponent) != exponent;
}

// Vertex indices by open addressing in a power-of-two table kept at most
// half full, so that a linear probe stays short. The vertices themselves stay
// where they are, so a slot is four bytes.
class IndexTable {
public:
    explicit IndexTable(std::size_t expected) {
        while ((std::size_t{1} << bits_) < expected * 2) ++bits_;
        slots_.assign(std::size_t{1} << bits_, -1);
    }
    std::size_t Start(std::uint64_t hash) const { return static_cast<std::size_t>(hash >> (64 - bits_)); }
    std::size_t Next(std::size_t i) const { return (i + 1) & (slots_.size() - 1); }
    std::int32_t At(std::size_t i) const { return slots_[i]; }
    // Large tables miss the cache on every look-up; a loop that knows what
    // comes next asks for those slots ahead of time.
    void Prefetch(std::uint64_t hash) const { __builtin_prefetch(&slots_[Start(hash)]); }

    // Puts index in the empty slot i, where a probe ended; when that fills
    // the table past half, it doubles, and hashOf(index) places them anew.
    template <class HashOf>
    void Put(std::size_t i, std::int32_t index, HashOf hashOf) {
        slots_[i] = index;
        if (++used_ * 2 <= slots_.size()) return;
        std::vector<std::int32_t> old(std::size_t{1} << ++bits_, -1);
        old.swap(slots_);
        for (std::int32_t k : old)
            if (k >= 0) {
                std::size_t j = Start(hashOf(k));
                while (slots_[j] >= 0) j = Next(j);
                slots_[j] = k;
            }
    }

private:
    unsigned bits_ = 6;
    std::vector<std::int32_t> slots_;
    std::size_t used_ = 0;
};

// The first input vertex of each finite value. A later copy has the same
// answer as its first copy: the kept vertices only grow after it, and none of
// those comes before the copy's match. Values, not bits, are keys: adding +0
// turns -0 into +0, so the two zeros, which the comparison finds 0 apart,
// share a key; NaN and the infinities never come here.
class ExactIndex {
public:
    ExactIndex(const std::vector<Vector3D> &vertices, std::size_t expected)
        : vertices_(vertices), table_(expected) {}

    static std::uint64_t HashOf(const Vector3D &v) { return Hash(KeyOf(v)); }
    void Prefetch(std::uint64_t hash) const { table_.Prefetch(hash); }

    // The first copy of v, whose hash is given; or -1, after which v is the first.
    std::int32_t FindOrAdd(const Vector3D &v, std::uint64_t hash, std::int32_t index) {
        const Key key = KeyOf(v);
        std::size_t at = table_.Start(hash);
        for (;; at = table_.Next(at)) {
            const std::int32_t k = table_.At(at);
            if (k < 0) break;
            if (KeyOf(vertices_[static_cast<std::size_t>(k)]) == key) return k;
        }
        table_.Put(at, index, [this](std::int32_t k) { return HashOf(vertices_[static_cast<std::size_t>(k)]); });
        return -1;
    }

private:
    using Key = std::array<std::uint32_t, 3>;
    static Key KeyOf(const Vector3D &v) {
        return {std::bit_cast<std::uint32_t>(v.x + 0.0f), std::bit_cast<std::uint32_t>(v.y + 0.0f),
                std::bit_cast<std::uint32_t>(v.z + 0.0f)};
    }
    // Multiplicative hashing; the top bits of the product depend on every bit of the key.
    static std::uint64_t Hash(const Key &k) {
        return (std::uint64_t{k[0]} << 32 | k[1]) * 0x9E3779B97F4A7C15ull + std::uint64_t{k[2]} * 0xC2B2AE3D27D4EB4Full;
    }

    const std::vector<Vector3D> &vertices_;
    IndexTable table_;
};

// Kept vertices filed in cubic cells of kCellSpacings spacings. A query looks
// in the cells from the one holding v - s to the one holding v + s on each
// axis: one, or two when v lies within the spacing of a cell's face. The
// query's ends and the filed vertices go to cells by the same monotonic
// rounding, so a kept vertex within the spacing always lies in a cell the
// query looks in: the filing is exact, not approximate. Narrow cells keep a
// crowded cell's run short (a fan's centre, a sphere's pole); wide ones make
// the second look rare. Eight spacings send half the queries to one cell.
constexpr double kCellSpacings = 8;

class CellIndex {
public:
    // The cells a query looks in, from lo to hi on each axis.
    struct Range {
        std::int64_t lo[3], hi[3];
    };

    CellIndex(const std::vector<Vector3D> &kept, double spacing, std::size_t expected)
        : kept_(kept), spacing_(spacing), inverseCell_(1 / (kCellSpacings * spacing)), table_(expected) {}

    Range RangeOf(const Vector3D &v) const {
        Range r;
        const double c[3] = {v.x, v.y, v.z};
        for (int a = 0; a < 3; ++a) {
            r.lo[a] = CellOf(c[a] - spacing_);
            r.hi[a] = CellOf(c[a] + spacing_);
        }
        return r;
    }

    void Prefetch(const Range &r) const {
        ForEachCell(r, [&](std::int64_t x, std::int64_t y, std::int64_t z) { table_.Prefetch(Hash(x, y, z)); });
    }

    // The earliest kept vertex within the spacing of v, or -1.
    std::int32_t Match(const Vector3D &v, const Range &r) const {
        std::int32_t best = std::numeric_limits<std::int32_t>::max();
        ForEachCell(r, [&](std::int64_t x, std::int64_t y, std::int64_t z) {
            // A cell's vertices all lie in the run of filled slots from its
            // hash on, among those of other cells; every one is compared, so
            // strangers cost time, never a wrong answer.
            for (std::size_t i = table_.Start(Hash(x, y, z));; i = table_.Next(i)) {
                const std::int32_t k = table_.At(i);
                if (k < 0) break;
                if (k < best && Close(kept_[static_cast<std::size_t>(k)], v, spacing_)) best = k;
            }
        });
        return best == std::numeric_limits<std::int32_t>::max() ? -1 : best;
    }

    // Files the kept vertex `kept`, whose query range was r.
    void File(std::int32_t kept, const Range &r) {
        const Vector3D &v = kept_[static_cast<std::size_t>(kept)];
        const double c[3] = {v.x, v.y, v.z};
        std::int64_t cell[3];
        for (int a = 0; a < 3; ++a) cell[a] = r.lo[a] == r.hi[a] ? r.lo[a] : CellOf(c[a]);
        std::size_t i = table_.Start(Hash(cell[0], cell[1], cell[2]));
        while (table_.At(i) >= 0) i = table_.Next(i);
        table_.Put(i, kept, [this](std::int32_t k) {
            const Vector3D &w = kept_[static_cast<std::size_t>(k)];
            return Hash(CellOf(w.x), CellOf(w.y), CellOf(w.z));
        });
    }

private:
    template <class Visit>
    static void ForEachCell(const Range &r, Visit visit) {
        for (std::int64_t x = r.lo[0]; x <= r.hi[0]; ++x)
            for (std::int64_t y = r.lo[1]; y <= r.hi[1]; ++y)
                for (std::int64_t z = r.lo[2]; z <= r.hi[2]; ++z) visit(x, y, z);
    }

    // Floor of value / cell width, saturated well inside the 64-bit range so
    // that the mapping stays monotonic. The spacing is large enough here for
    // the inverse width to be finite, so the product is never NaN.
    std::int64_t CellOf(double value) const {
        constexpr double limit = 4.0e18;
        const double q = std::clamp(value * inverseCell_, -limit, limit);
        const auto i = static_cast<std::int64_t>(q);
        return i - (q < static_cast<double>(i));
    }

    static std::uint64_t Hash(std::int64_t x, std::int64_t y, std::int64_t z) {
        return (static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15ull ^ static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4Full ^
                static_cast<std::uint64_t>(z) * 0x165667B19E3779F9ull) *
               0xD6E8FEB86659FD93ull;
    }

    const std::vector<Vector3D> &kept_;
    double spacing_;
    double inverseCell_;
    IndexTable table_;
};

// The tables are sized for this share of the input kept and grow when more
// is: a soup of triangles keeps about a sixth.
std::size_t ExpectedKept(std::size_t vertices) { return vertices / 4; }

// How many vertices ahead the loops ask for table slots: enough to cover a
// trip to memory, few enough that the slots are still cached when used.
constexpr std::size_t kAhead = 16;

// First pass: every finite vertex equal to an earlier one gets ~first (a
// negative number) in remap; the rest, the distinct ones, their own index.
// Returns the count of distinct ones.
std::size_t MarkCopies(const std::vector<Vector3D> &vertices, std::vector<std::int32_t> &remap) {
    const std::size_t n = vertices.size();
    ExactIndex exact(vertices, ExpectedKept(n));
    std::size_t distinct = 0;
    std::uint64_t hashes[kAhead];
    for (std::size_t i = 0; i < kAhead && i < n; ++i) exact.Prefetch(hashes[i] = ExactIndex::HashOf(vertices[i]));
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint64_t hash = hashes[i % kAhead];
        if (i + kAhead < n) exact.Prefetch(hashes[i % kAhead] = ExactIndex::HashOf(vertices[i + kAhead]));
        const auto index = static_cast<std::int32_t>(i);
        const std::int32_t first = Finite(vertices[i]) ? exact.FindOrAdd(vertices[i], hash, index) : -1;
        remap[i] = first >= 0 ? ~first : index;
        distinct += first < 0;
    }
    return distinct;
}

// Second pass, over the distinct vertices in order: each is matched with the
// earliest kept vertex within the spacing, or kept. remap[i] becomes the
// answer for each distinct i.
void WeldDistinct(const std::vector<Vector3D> &vertices, double spacing, std::size_t distinct, WeldResult &result) {
    std::vector<std::int32_t> &remap = result.remap;
    const std::size_t n = vertices.size();
    // At most the distinct vertices are kept: neither the result nor the
    // table has to grow.
    result.vertices.reserve(distinct);
    std::optional<CellIndex> cells;
    // Two different floats lie at least 2^-149 apart, and so does their
    // difference rounded to double: below that spacing only equal values
    // match, and the first pass has found them all.
    if (spacing > 0x1p-149) cells.emplace(result.vertices, spacing, distinct);
    // The distinct vertices ahead, with their query ranges, whose cells are
    // on their way to the cache.
    struct Pending {
        std::size_t index;
        CellIndex::Range range{};
    };
    Pending pending[kAhead];
    std::size_t queued = 0, served = 0, scan = 0;
    auto queue = [&] {
        while (scan < n && remap[scan] < 0) ++scan;
        if (scan == n) return false;
        Pending &p = pending[queued++ % kAhead];
        p.index = scan++;
        p.range = {};
        if (cells && Finite(vertices[p.index])) {
            p.range = cells->RangeOf(vertices[p.index]);
            cells->Prefetch(p.range);
        }
        return true;
    };
    while (queued < kAhead && queue()) {
    }
    while (served < queued) {
        const Pending p = pending[served++ % kAhead];
        queue();
        const Vector3D &v = vertices[p.index];
        const bool finite = Finite(v);
        const std::int32_t match = cells && finite ? cells->Match(v, p.range) : -1;
        if (match >= 0) {
            remap[p.index] = match;
            continue;
        }
        const auto kept = static_cast<std::int32_t>(result.vertices.size());
        remap[p.index] = kept;
        result.vertices.push_back(v);
        if (cells && finite) cells->File(kept, p.range);
    }
}

// Third pass: every copy takes its first copy's answer.
void ResolveCopies(std::vector<std::int32_t> &remap) {
    for (std::int32_t &r : remap)
        if (r < 0) r = remap[static_cast<std::size_t>(~r)];
}

// Keeps every vertex: the result when nothing can be close enough to match.
WeldResult KeepAll(const std::vector<Vector3D> &vertices) {
    WeldResult result{vertices, std::vector<std::int32_t>(vertices.size())};
    for (std::size_t i = 0; i < vertices.size(); ++i) result.remap[i] = static_cast<std::int32_t>(i);
    return result;
}

// Every finite vertex is within an infinite spacing of the first finite one;
// a vertex with an infinity or a NaN matches nothing.
WeldResult WeldToFirstFinite(const std::vector<Vector3D> &vertices) {
    WeldResult result;
    result.remap.resize(vertices.size());
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

}  // namespace

WeldResult WeldVertices(const std::vector<Vector3D> &vertices, double spacing) {
    // A spacing of 0 or less (or NaN) matches nothing.
    if (!(spacing > 0)) return KeepAll(vertices);
    if (!std::isfinite(2 * spacing)) return WeldToFirstFinite(vertices);
    // Copies of a value are answered as their first copy is, so only the
    // distinct values need the spatial search; and the exact table is gone
    // before the cell table is made, so the two never hold memory together.
    WeldResult result;
    result.remap.resize(vertices.size());
    const std::size_t distinct = MarkCopies(vertices, result.remap);
    WeldDistinct(vertices, spacing, distinct, result);
    ResolveCopies(result.remap);
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
