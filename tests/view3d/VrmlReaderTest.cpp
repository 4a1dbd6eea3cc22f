// The VRML subset reader: the token walk over synthetic files chosen to hit
// each rule, real files from a Debian package, and the number reading
// against the stream input it stands in for.
#include <gtest/gtest.h>

#include <sstream>

#include "ViewTestSupport.h"
#include "qor/view3d/VrmlText.h"

using view_test::Shape;

namespace {

struct ReadCase {
    const char *name;
    std::string text;
    std::vector<Vector3D> vertices;
    std::vector<std::array<int, 4>> faces;
    std::size_t materials;
};

VRMLModel Read(const std::string &text) {
    view_test::Gl();
    view_test::TempDir dir;
    VRMLModel model;
    EXPECT_TRUE(model.OpenFile(dir.File("m.wrl", text), false));
    return model;
}

TEST(VrmlReader, WalksTheTokensAsDescribed) {
    const std::string tri = "0 0 0, 1 0 0, 0 1 0";
    const ReadCase cases[] = {
        {"no tokens at all", "#VRML V2.0 utf8\nTransform { }", {}, {}, 0},
        {"a material but no points", "Material { diffuseColor 1 0 0 }", {}, {}, 1},
        {"points but no index list", "Material { } point [ 1 2 3, 4 5 6 ]", {{1, 2, 3}, {4, 5, 6}}, {}, 1},
        {"one triangle", Shape("", tri, "0, 1, 2, -1"), {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2, 0}}, 1},
        {"a polygon is cut to its first triangle", Shape("", tri + ", 1 1 0", "0, 1, 2, 3, -1,"),
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}, {{0, 1, 2, 0}}, 1},
        {"a trailing comma adds an origin and shifts the next base",
         Shape("", "1 1 1,", "0, 0, 0, -1") + Shape("", "2 2 2", "0, 0, 0, -1"),
         {{1, 1, 1}, {0, 0, 0}, {2, 2, 2}}, {{0, 0, 0, 0}, {2, 2, 2, 0}}, 1},
        {"equal materials share one entry; indices are per shape",
         Shape("diffuseColor 1 0 0", tri, "0, 1, 2, -1") + Shape("diffuseColor 1 0 0", tri, "2, 1, 0, -1"),
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2, 0}, {5, 4, 3, 0}}, 1},
        {"different materials get their own entries",
         Shape("diffuseColor 1 0 0", tri, "0, 1, 2, -1") + Shape("diffuseColor 0 1 0", tri, "0, 1, 2, -1"),
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2, 0}, {3, 4, 5, 1}}, 2},
        {"indices without commas read as zeros", Shape("", tri, "0 1 2 -1"),
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 0, 0, 0}}, 1},
        {"a point list cut short ends the read", "Material { } point [ 1 2 3, 4 5 6 ", {{1, 2, 3}}, {}, 1},
        {"an index list cut short ends the read", "Material { } point [ " + tri + " ] coordIndex [ 0, 1, 2, -1, 3, 4",
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2, 0}}, 1},
        {"a number that fails keeps the origin's zero", Shape("", "1 x 3", "0, 0, 0, -1"), {{1, 0, 0}},
         {{0, 0, 0, 0}}, 1},
        {"an index of -12 ends its polygon at its -1", Shape("", tri, "0, 1, -12, -1"),
         {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 0, 0}, {2, 0, 0, 0}}, 1},
        {"bytes of 128 and up and minus signs are skipped before an index",
         Shape("", tri, "\xC3\xA9-0, 1, 2, -1"), {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2, 0}}, 1},
    };
    for (const ReadCase &c : cases) {
        SCOPED_TRACE(c.name);
        const VRMLModel model = Read(c.text);
        ASSERT_EQ(model.GetVertices().size(), c.vertices.size());
        for (std::size_t i = 0; i < c.vertices.size(); ++i) {
            EXPECT_EQ(model.GetVertices()[i].x, c.vertices[i].x);
            EXPECT_EQ(model.GetVertices()[i].y, c.vertices[i].y);
            EXPECT_EQ(model.GetVertices()[i].z, c.vertices[i].z);
        }
        ASSERT_EQ(model.GetFaces().size(), c.faces.size());
        for (std::size_t i = 0; i < c.faces.size(); ++i) {
            const Face &f = model.GetFaces()[i];
            EXPECT_EQ((std::array<int, 4>{f.first, f.second, f.third, f.material}), c.faces[i]);
        }
        EXPECT_EQ(model.GetMaterials().size(), c.materials);
    }
}

TEST(VrmlReader, MaterialColoursKeepTheWhiteEmissiveDefault) {
    const VRMLModel plain = Read("Material { diffuseColor [ 0.5 0.25 0.125 ] }");
    const VRMLModel bare = Read("Material { diffuseColor 0.5 0.25 0.125 }");
    ASSERT_EQ(plain.GetMaterials().size(), 1u);
    EXPECT_EQ(plain.GetMaterials()[0], bare.GetMaterials()[0]);
    Material expected;
    expected.diffuse[0] = 0.5f, expected.diffuse[1] = 0.25f, expected.diffuse[2] = 0.125f;
    EXPECT_EQ(plain.GetMaterials()[0], expected);
    EXPECT_EQ(plain.GetMaterials()[0].emissive[0], 1.0f);

    const VRMLModel full = Read(
        "Material { ambientColor 0.1 0.2 0.3 diffuseColor 0.4 0.5 0.6 emissiveColor 0 0 0 "
        "specularColor 0.7 0.8 0.9 shininess 0.25 transparency 0.5 }");
    const Material &m = full.GetMaterials()[0];
    EXPECT_EQ(m.ambient[2], 0.3f);
    EXPECT_EQ(m.emissive[0], 0.0f);
    EXPECT_EQ(m.specular[1], 0.8f);
    EXPECT_EQ(m.shininess, 0.25f);
    EXPECT_EQ(m.transparency, 0.5f);

    Material cleared = m;
    cleared.RemoveAllColors();
    EXPECT_EQ(cleared.emissive[0], 0.0f);
    EXPECT_EQ(cleared.shininess, 0.0f);
}

TEST(VrmlReader, ASecondReadAddsToTheMaterials) {
    view_test::Gl();
    view_test::TempDir dir;
    VRMLModel model;
    ASSERT_TRUE(model.OpenFile(dir.File("a.wrl", "Material { diffuseColor 1 0 0 }"), false));
    ASSERT_TRUE(model.OpenFile(dir.File("b.wrl", "Material { diffuseColor 0 0 1 }"), false));
    EXPECT_EQ(model.GetMaterials().size(), 2u);
    EXPECT_FALSE(model.OpenFile(dir.Path("missing.wrl"), false));
    EXPECT_EQ(model.GetMaterials().size(), 2u);
}

// The number reading stands in for `istringstream >> float`; both must agree
// on every token, however odd.
TEST(VrmlReader, FloatsReadAsStreamInputReadsThem) {
    const char *tokens[] = {"1 2 3", " +1.5e+2\t-0.25\n7", "1e", "1e+", "1e5e3", "1.5.3 2", ".5 5. .", "-",
                            "+-1", "0x10 2", "00012.500 3", "1e39 2 3", "-1e39", "1e-39 1e-46 3", "3.4028235e38",
                            "inf nan 1", "1,2,3", "", "   ", "7\v8\f9", "12345678901234567890123", "1E2 1e-2",
                            // halfway between two floats, exactly and nearly: double rounding's trap
                            "16777217 16777219 0.1", "1.00000005960464477539 1.0000000596046448 3",
                            // the edges of the range: least denormal, underflow, the normal border, overflow
                            "1e-45 7e-46 1.4e-45", "1.17549435e-38 1.1754942e-38 2", "3.4028235677973366e38 1 2",
                            "3.40282356e38 1 2", "1e2147483648 1", "1e-2147483649 1",
                            // more digits than a 64-bit mantissa holds, zeros before and behind them
                            "9999999999999999999 99999999999999999999 1",
                            "0.000000000000000000000000000000000000000001234 2 3",
                            "123456789012345678901234567890e-20 .000000000000000000000e9 1", "-0 +0 -0.0e5",
                            "\xC3\xA9 1 2", "1\xC3\xA9 2", "1e5\xC3 2"};
    for (const char *token : tokens) {
        SCOPED_TRACE(token);
        float ours[3] = {-7, -7, -7}, theirs[3] = {-7, -7, -7};
        qor::vrml::ExtractFloats(token, ours, 3);
        std::istringstream in(token);
        for (float &slot : theirs) {
            float value;
            if (in >> value) slot = value;
        }
        for (int i = 0; i < 3; ++i) EXPECT_EQ(std::bit_cast<std::uint32_t>(ours[i]), std::bit_cast<std::uint32_t>(theirs[i]));
    }
}

TEST(VrmlReader, IndicesReadAsTheOriginalsAtoi) {
    const std::pair<const char *, int> cases[] = {{"12,", 12},         {"  -7,", -7},   {"+3", 3},
                                                  {"", 0},            {"x1", 0},       {"99999999999", 2147483647},
                                                  {"-99999999999", -2147483647 - 1}, {"2147483647", 2147483647}};
    for (auto [text, value] : cases) EXPECT_EQ(qor::vrml::ToInt(text), value) << text;
    std::size_t position = 0;
    EXPECT_EQ(qor::vrml::ExtractString("ab,cd", position, ","), "ab,c");
    EXPECT_EQ(position, 3u);
    EXPECT_EQ(qor::vrml::ExtractString("ab,cd", position, ","), "");
    EXPECT_EQ(position, 3u);
}

// Files nobody here wrote: the assimp test models that Debian ships.
TEST(VrmlReader, ReadsRealFiles) {
    const std::string folder = "/usr/share/assimp/models/WRL/";
    ASSERT_TRUE(std::filesystem::exists(folder + "MotionCaptureROM.WRL"))
        << "the package assimp-testmodels is missing; ./run installs it";
    view_test::Gl();
    VRMLModel capture;
    ASSERT_TRUE(capture.OpenFile(folder + "MotionCaptureROM.WRL", false));
    // A 3ds Max export: shapes of triangles, every index within its shape.
    EXPECT_GT(capture.GetFaces().size(), 1000u);
    EXPECT_GT(capture.GetVertices().size(), 500u);
    const qor::FaceProblems problems = qor::CheckFaces(capture);
    EXPECT_EQ(problems.missingVertices, 0u);
    EXPECT_EQ(problems.missingMaterials, 0u);
    // Its materials name only diffuseColor, so they all glow white.
    for (const Material &m : capture.GetMaterials()) EXPECT_EQ(m.emissive[1], 1.0f);
    const qor::Bounds bounds = qor::ModelBounds(capture);
    EXPECT_FALSE(bounds.Empty());

    const std::size_t before = capture.GetVertices().size();
    VRMLModel welded;
    ASSERT_TRUE(welded.OpenFile(folder + "MotionCaptureROM.WRL", true));
    EXPECT_LT(welded.GetVertices().size(), before);
    EXPECT_EQ(qor::CheckFaces(welded).missingVertices, 0u);

    // A Blender export with an empty appearance: no "Material {" token, so
    // the walk finds nothing and the model stays empty.
    VRMLModel blender;
    ASSERT_TRUE(blender.OpenFile(folder + "Wuson.wrl", false));
    EXPECT_TRUE(blender.GetVertices().empty());
    EXPECT_TRUE(blender.GetMaterials().empty());
}

}  // namespace
