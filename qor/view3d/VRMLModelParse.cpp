// The VRML subset reader: not a parser but a walk through the text from one
// fixed token to the next, skipping whatever lies between.
#include "qor/view3d/VRMLModel.h"

#include <algorithm>
#include <array>

#include "qor/view3d/VrmlNumber.h"
#include "qor/view3d/VrmlText.h"

using qor::vrml::ExtractString;

namespace {

// The material keys in the order they are read, with their slots.
struct ColourKey {
    const char *key;
    float *(*slot)(Material &);
    int count;
};
constexpr ColourKey kColourKeys[] = {
    {"ambientColor", [](Material &m) { return m.ambient; }, 3},
    {"diffuseColor", [](Material &m) { return m.diffuse; }, 3},
    {"emissiveColor", [](Material &m) { return m.emissive; }, 3},
    {"specularColor", [](Material &m) { return m.specular; }, 3},
    {"shininess", [](Material &m) { return &m.shininess; }, 1},
    {"transparency", [](Material &m) { return &m.transparency; }, 1},
};

Material ReadMaterial(std::string_view block) {
    Material m;
    for (const ColourKey &k : kColourKeys) qor::vrml::ExtractColor(block, k.key, k.slot(m), k.count);
    return m;
}

// The arrays grow once per list to what the list can hold at most, found by
// counting its separators, rather than doubling item by item: for a model of
// megabytes the copies and fresh pages of doubling cost more than reading.
// Geometric still, so that many small lists don't copy for each.
template <class T>
void MakeRoom(std::vector<T> &items, std::size_t more) {
    if (items.capacity() - items.size() < more) items.reserve(std::max(items.size() + more, 2 * items.capacity()));
}

// Where a list that starts at from can end: its first "]", or the end.
std::string_view ListAhead(std::string_view text, std::size_t from) {
    const std::string_view rest = text.substr(from);
    return rest.substr(0, rest.find(']'));
}

// Items of a point list: one per "," ahead of its "]", and the last.
std::size_t MostPoints(std::string_view list) {
    std::size_t n = 1;
    for (const char c : list) n += c == ',';
    return n;
}

// Polygons of an index list: each ends at a "-1" of its own.
std::size_t MostPolygons(std::string_view list) {
    std::size_t n = 0;
    for (std::size_t i = 1; i < list.size(); ++i) n += (list[i - 1] == '-') & (list[i] == '1');
    return n;
}

// The points of one list, from behind "point [" through its "]". Each item
// runs to the next "," or "]", whichever comes first, and gives one vertex:
// the origin with as many of its three numbers as read. Numbers and blanks
// hold neither character, so reading the numbers where the item starts never
// runs past its end, and one walk finds both. False when the text ends
// before the list does: the read then ends rather than adding origins for ever.
bool ReadPoints(std::string_view text, std::size_t &position, std::vector<Vector3D> &out) {
    const char *p = text.data() + position;
    const char *const end = text.data() + text.size();
    for (;;) {
        Vector3D v;
        qor::vrml::ReadFloats(p, end, &v.x, 3);
        while (p != end && *p != ',' && *p != ']') ++p;
        if (p == end) return false;
        out.push_back(v);
        if (*p++ == ']') break;
    }
    position = static_cast<std::size_t>(p - text.data());
    return true;
}

// Where the index walk stops: a list's "]", a polygon's "-1" (found at its
// '-') and the "," behind each index.
enum : unsigned char { kPlain, kClose, kMinus, kComma };
constexpr auto kIndexStops = [] {
    std::array<unsigned char, 256> stops{};
    stops[']'] = kClose;
    stops['-'] = kMinus;
    stops[','] = kComma;
    return stops;
}();

// The polygons of one index list, from behind "coordIndex [" up to its "]",
// where position is left (at the polygon that found it, as the searches from
// there would). Before each polygon the walk passes every character below
// "0" as a signed char: blanks, line ends, commas, minus signs and all bytes
// of 128 and up. A polygon runs to the next "-1"; a "]" before that ends the
// list. Its first three indices are what atoi makes of the text ahead of its
// first three commas; missing ones are 0. atoi's text is read once, on the
// way: it holds no "]" or ",", and a "-1" in it can only begin at its sign.
// False when the text ends inside the list.
bool ReadPolygons(std::string_view text, std::size_t &position, std::int32_t base, std::int32_t material,
                  std::vector<Face> &out) {
    const char *p = text.data() + position;
    const char *const end = text.data() + text.size();
    auto polygonEndsAt = [end](const char *q) { return *q == '-' && q + 1 != end && q[1] == '1'; };
    for (;;) {
        while (p != end && static_cast<signed char>(*p) < '0') ++p;
        position = static_cast<std::size_t>(p - text.data());
        std::int32_t index[3] = {0, 0, 0};
        int read = 0;
        std::int32_t value = 0;
        bool pieceRead = false;  // value holds atoi of the text since the last comma
        for (;; ++p) {
            if (read < 3 && !pieceRead) {
                while (p != end && qor::vrml::IsBlank(*p)) ++p;
                if (p != end && polygonEndsAt(p)) break;
                value = qor::vrml::ReadIndex(p, end);
                pieceRead = true;
            }
            while (p != end && kIndexStops[static_cast<unsigned char>(*p)] == kPlain) ++p;
            if (p == end) return false;
            const unsigned char stop = kIndexStops[static_cast<unsigned char>(*p)];
            if (stop == kClose) return true;
            if (stop == kMinus && polygonEndsAt(p)) break;
            if (stop == kComma && read < 3) {
                index[read++] = value;
                pieceRead = false;
            }
        }
        p += 2;
        // Wrapping addition, as the 32-bit original's int did.
        auto shifted = [base](std::int32_t i) {
            return static_cast<std::int32_t>(static_cast<std::uint32_t>(i) + static_cast<std::uint32_t>(base));
        };
        out.push_back({shifted(index[0]), shifted(index[1]), shifted(index[2]), material});
    }
}

}  // namespace

void VRMLModel::Parse(std::string_view text) {
    vertices.clear();
    faces.clear();
    std::size_t position = 0;
    std::int32_t base = 0;
    for (;;) {
        if (ExtractString(text, position, "Material {").empty()) return;
        const std::string_view block = ExtractString(text, position, "}");
        if (block.empty()) return;
        const Material material = ReadMaterial(block);
        auto same = std::find(materials.begin(), materials.end(), material);
        if (same == materials.end()) same = materials.insert(materials.end(), material);
        const auto materialIndex = static_cast<std::int32_t>(same - materials.begin());

        if (ExtractString(text, position, "point [").empty()) return;
        const std::size_t before = vertices.size();
        MakeRoom(vertices, MostPoints(ListAhead(text, position)));
        if (!ReadPoints(text, position, vertices)) return;
        const auto count = static_cast<std::uint32_t>(vertices.size() - before);

        if (ExtractString(text, position, "coordIndex [").empty()) return;
        MakeRoom(faces, MostPolygons(ListAhead(text, position)));
        if (!ReadPolygons(text, position, base, materialIndex, faces)) return;
        // Wrapping addition, as the 32-bit original's int did.
        base = static_cast<std::int32_t>(static_cast<std::uint32_t>(base) + count);
    }
}
