// Welding must give exactly what the literal scan gives: each vertex joins
// the earliest kept vertex within the spacing on every axis, else is kept.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "ViewTestSupport.h"

namespace {

void ExpectSameAsScan(const std::vector<Vector3D> &cloud, double spacing) {
    const qor::WeldResult fast = qor::WeldVertices(cloud, spacing);
    const qor::WeldResult slow = qor::WeldVerticesByScan(cloud, spacing);
    ASSERT_EQ(fast.remap, slow.remap) << "spacing " << spacing;
    ASSERT_EQ(fast.vertices.size(), slow.vertices.size());
    for (std::size_t i = 0; i < fast.vertices.size(); ++i)
        ASSERT_EQ(0, std::memcmp(&fast.vertices[i], &slow.vertices[i], sizeof(Vector3D)));
}

float Nudge(float value, int ulps) {
    for (; ulps > 0; --ulps) value = std::nextafter(value, std::numeric_limits<float>::infinity());
    for (; ulps < 0; ++ulps) value = std::nextafter(value, -std::numeric_limits<float>::infinity());
    return value;
}

TEST(Welding, MatchesTheLiteralScanOnRandomAndAdversarialClouds) {
    std::mt19937 random(20261123);
    const double spacings[] = {0.001, 0.1, 0.5, 1.0, 3e-7, 1e-30};
    for (double s : spacings) {
        SCOPED_TRACE(s);
        const float fs = static_cast<float>(s);
        std::uniform_int_distribution<int> cell(-6, 6), ulp(-3, 3), pick(0, 99);
        std::uniform_real_distribution<float> unit(-1, 1);
        // Points on and beside cell boundaries (multiples of the spacing and
        // of twice it), at the tolerance edge, and in tight near-duplicate
        // clusters, in random order.
        std::vector<Vector3D> cloud;
        for (int i = 0; i < 3000; ++i) {
            auto coordinate = [&] {
                const int kind = pick(random) % 4;
                if (kind == 0) return Nudge(cell(random) * fs, ulp(random));
                if (kind == 1) return Nudge(cell(random) * fs * 0.5f, ulp(random));
                if (kind == 2) return unit(random) * fs * 4;
                return cell(random) * fs + (pick(random) % 2 ? fs : -fs) * 0.999999f;
            };
            Vector3D v{coordinate(), coordinate(), coordinate()};
            if (pick(random) < 30 && !cloud.empty()) {
                // A near-duplicate of an earlier point, some just inside, some
                // exactly one spacing away, some just outside.
                v = cloud[static_cast<std::size_t>(pick(random)) % cloud.size()];
                const float offsets[] = {0, fs * 0.5f, fs, Nudge(fs, -1), Nudge(fs, 1)};
                v.x += offsets[pick(random) % 5];
                v.z -= offsets[pick(random) % 5];
            }
            cloud.push_back(v);
        }
        ExpectSameAsScan(cloud, s);
    }
}

TEST(Welding, HandlesExtremeValuesAndSpacingsLikeTheScan) {
    const float inf = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();
    const float big = std::numeric_limits<float>::max();
    const std::vector<Vector3D> cloud = {
        {0, 0, 0},       {0.0004f, 0, 0}, {0.001f, 0, 0}, {inf, 0, 0},      {inf, 0, 0},      {nan, 0, 0},
        {-inf, 1, 1},    {big, big, big}, {big, big, big}, {-big, 0, 0},    {1e30f, 0, 0},    {Nudge(1e30f, 1), 0, 0},
        {1e-40f, 0, 0},  {-0.0f, 0, 0},   {3, 3, 3},      {3.0005f, 3, 3}, {2.9995f, 3, 3}, {0, 0, nan}};
    for (double s : {0.001, 0.0, -1.0, 1e-300, 1e300, std::numeric_limits<double>::infinity(),
                     std::numeric_limits<double>::quiet_NaN(), 5e-324})
        ExpectSameAsScan(cloud, s);
}

TEST(Welding, TwoVerticesExactlyOneSpacingApartStayApart) {
    const qor::WeldResult r = qor::WeldVertices({{0, 0, 0}, {0.5f, 0, 0}, {0.25f, 0, 0}}, 0.5);
    EXPECT_EQ(r.vertices.size(), 2u);
    EXPECT_EQ(r.remap, (std::vector<std::int32_t>{0, 1, 0}));  // the earliest match wins
}

TEST(Welding, PrunesOnlyAdjacentDuplicateFaces) {
    struct Case {
        const char *name;
        std::vector<Face> faces;
        std::vector<Face> kept;
    };
    const Case cases[] = {
        {"a reversed neighbour collapses to the first", {{0, 1, 2, 0}, {2, 1, 0, 5}}, {{0, 1, 2, 0}}},
        {"any rotation collapses", {{0, 1, 2, 0}, {1, 2, 0, 0}, {2, 0, 1, 0}}, {{0, 1, 2, 0}}},
        {"a face between keeps both", {{0, 1, 2, 0}, {3, 4, 5, 0}, {2, 1, 0, 0}},
         {{0, 1, 2, 0}, {3, 4, 5, 0}, {2, 1, 0, 0}}},
        {"repeated indices are not a permutation of distinct ones", {{0, 0, 1, 0}, {0, 1, 1, 0}},
         {{0, 0, 1, 0}, {0, 1, 1, 0}}},
    };
    for (const Case &c : cases) {
        std::vector<Face> faces = c.faces;
        qor::RemapAndPruneFaces(faces, {0, 1, 2, 3, 4, 5});
        ASSERT_EQ(faces.size(), c.kept.size()) << c.name;
        for (std::size_t i = 0; i < faces.size(); ++i)
            EXPECT_EQ(0, std::memcmp(&faces[i], &c.kept[i], sizeof(Face))) << c.name;
    }
    // Welding can make faces equal that were not: they then collapse.
    std::vector<Face> faces{{0, 1, 2, 0}, {3, 1, 2, 0}};
    qor::RemapAndPruneFaces(faces, {0, 1, 2, 0});
    EXPECT_EQ(faces.size(), 1u);
}

TEST(Welding, OptimiseOnLoadWeldsAndPrunes) {
    view_test::Gl();
    view_test::TempDir dir;
    // Two triangles over the same corners, the second a reversed copy with
    // corners off by less than the spacing.
    const std::string text = view_test::Shape("", "0 0 0, 1 0 0, 0 1 0, 0 1.0004 0, 1.0004 0 0, 0 0 0.0009",
                                              "0, 1, 2, -1, 3, 4, 5, -1");
    VRMLModel model;
    model.SetGridSpacing(0.001);
    ASSERT_TRUE(model.OpenFile(dir.File("w.wrl", text), true));
    EXPECT_EQ(model.GetVertices().size(), 3u);
    ASSERT_EQ(model.GetFaces().size(), 1u);
}

}  // namespace
