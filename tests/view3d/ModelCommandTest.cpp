// qor model as a person runs it: the answers, the files it writes and the
// exit codes of its failures.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "ViewTestSupport.h"
#include "support/RunCommand.h"

namespace {

const std::string kModels = std::string(QOR_SOURCE_DIR) + "/examples/models/";

qor_test::Ran Qor(const std::string &arguments) { return qor_test::RunQor("model " + arguments); }

std::string Slurp(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(ModelCommand, AnswersAndFailsClearly) {
    view_test::TempDir dir;
    const std::string cut = dir.File("cut.bin", Slurp(kModels + "plate.bin").substr(0, 30));
    struct Case {
        std::string arguments;
        int status;
        const char *says;
    };
    const Case cases[] = {
        {"info " + kModels + "deck.wrl", 0, "faces: 48"},
        {"info " + kModels + "plate.bin", 0, "materials: 3"},
        {"info " + kModels + "instrument.xml", 0, "mate \"head\" at (-0.29 0 -0.24)"},
        {"info " + kModels + "deck.wrl --optimize", 0, "vertices: 30"},
        {"info " + dir.Path("missing.wrl"), 1, "no such file"},
        {"info " + cut, 1, "cut short"},
        {"info", 2, "one FILE"},
        {"frobnicate", 2, "unknown subverb"},
        {"convert " + kModels + "deck.wrl " + dir.Path("x.xml"), 1, "an assembly cannot be written"},
        {"render " + kModels + "deck.wrl", 2, "--png OUT.png is needed"},
        {"render " + kModels + "deck.wrl --png x.png --size 0x10", 2, "--size wants"},
        {"render " + kModels + "deck.wrl --png x.png --view sideways", 2, "unknown view"},
        {"render " + kModels + "deck.wrl --png " + dir.Path("no/such/dir.png"), 1, "cannot be written"},
    };
    for (const Case &c : cases) {
        const qor_test::Ran outcome = Qor(c.arguments);
        EXPECT_EQ(outcome.status, c.status) << c.arguments << "\n" << outcome.out;
        EXPECT_NE(outcome.out.find(c.says), std::string::npos) << c.arguments << "\n" << outcome.out;
    }
}

TEST(ModelCommand, ConvertsBothWaysToAFixedPoint) {
    view_test::TempDir dir;
    ASSERT_EQ(Qor("convert " + kModels + "head.wrl " + dir.Path("a.bin")).status, 0);
    ASSERT_EQ(Qor("convert " + dir.Path("a.bin") + " " + dir.Path("b.wrl")).status, 0);
    ASSERT_EQ(Qor("convert " + dir.Path("b.wrl") + " " + dir.Path("c.bin")).status, 0);
    ASSERT_EQ(Qor("convert " + dir.Path("c.bin") + " " + dir.Path("d.wrl")).status, 0);
    ASSERT_EQ(Qor("convert " + dir.Path("d.wrl") + " " + dir.Path("e.bin")).status, 0);
    // Points are listed in the order the faces use them, so after the first
    // trip through VRML the files no longer change.
    EXPECT_EQ(Slurp(dir.Path("c.bin")), Slurp(dir.Path("e.bin")));
    VRMLModel original, converted;
    ASSERT_TRUE(original.OpenBinaryFile(dir.Path("a.bin"), false));
    ASSERT_TRUE(converted.OpenBinaryFile(dir.Path("c.bin"), false));
    ASSERT_EQ(original.GetFaces().size(), converted.GetFaces().size());
    EXPECT_EQ(original.GetMaterials(), converted.GetMaterials());
    for (std::size_t i = 0; i < original.GetFaces().size(); ++i) {
        const Face &a = original.GetFaces()[i], &b = converted.GetFaces()[i];
        const auto &va = original.GetVertices(), &vb = converted.GetVertices();
        EXPECT_EQ(0, std::memcmp(&va[static_cast<std::size_t>(a.second)], &vb[static_cast<std::size_t>(b.second)], 12));
        EXPECT_EQ(a.material, b.material);
    }
}

TEST(ModelCommand, RendersAPictureOffscreen) {
    view_test::TempDir dir;
    const qor_test::Ran outcome = Qor("render " + kModels + "instrument.xml --png " + dir.Path("i.png") +
                                " --size 200x150 --view top");
    ASSERT_EQ(outcome.status, 0) << outcome.out;
    const std::string png = Slurp(dir.Path("i.png"));
    ASSERT_GT(png.size(), 33u);
    EXPECT_EQ(png.substr(0, 8), std::string("\x89PNG\r\n\x1a\n", 8));
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\xc8\0\0\0\x96", 8));  // 200 x 150
}

}  // namespace
