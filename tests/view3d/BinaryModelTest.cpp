// The flat binary format, its files and its resources: a round trip keeps
// every byte, and anything short or hostile is refused without harm.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "ViewTestSupport.h"

namespace {

std::string SampleBytes() {
    Material red;
    red.diffuse[0] = 1;
    return qor::EncodeBinaryModel({{1, 2, 3}, {4, 5, 6}, {-7, 8.5f, 9}}, {{0, 1, 2, 0}, {2, 1, 0, 7}}, {red});
}

TEST(BinaryModel, HasTheDescribedLayout) {
    const std::string bytes = SampleBytes();
    ASSERT_EQ(bytes.size(), 12u + 3 * 12 + 2 * 16 + 56);
    EXPECT_EQ(bytes.substr(0, 4), std::string("\x03\0\0\0", 4));
    EXPECT_EQ(bytes.substr(4, 4), std::string("\x00\x00\x80\x3f", 4));           // 1.0f
    EXPECT_EQ(bytes.substr(40, 4), std::string("\x02\0\0\0", 4));                // face count
    EXPECT_EQ(bytes.substr(40 + 4 + 16 + 12, 4), std::string("\x07\0\0\0", 4));  // second face's material
    EXPECT_EQ(bytes.substr(76, 4), std::string("\x01\0\0\0", 4));                // material count
}

TEST(BinaryModel, FileRoundTripKeepsEveryByte) {
    view_test::Gl();
    view_test::TempDir dir;
    const std::string bytes = SampleBytes();
    VRMLModel model;
    ASSERT_TRUE(model.OpenBinaryFile(dir.File("m.bin", bytes), false));
    EXPECT_EQ(model.GetVertices().size(), 3u);
    EXPECT_GT(model.GetCallList(), 0);
    ASSERT_TRUE(model.SaveBinaryFile(dir.Path("again.bin")));
    std::ifstream in(dir.Path("again.bin"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), bytes);
    EXPECT_FALSE(model.SaveBinaryFile(dir.Path("no/such/folder/x.bin")));

    // VRML to binary beside the source, as the conversion tool names it.
    QorOpenGlModel view;
    const std::string wrl = dir.File("a.wrl", view_test::Shape("", "0 0 0, 1 0 0, 0 1 0", "0, 1, 2, -1"));
    ASSERT_TRUE(view.ConvertWrlToBin(wrl, "a", 0));
    VRMLModel converted;
    ASSERT_TRUE(converted.OpenBinaryFile(dir.Path("a.bin"), false));
    EXPECT_EQ(converted.GetFaces().size(), 1u);
    EXPECT_THROW(view.ConvertWrlToBin("a.w", "a", 0), std::out_of_range);
}

TEST(BinaryModel, ShortReadOnlyOrMissingFilesLeaveTheModelAsItWas) {
    view_test::Gl();
    view_test::TempDir dir;
    const std::string bytes = SampleBytes();
    VRMLModel model;
    ASSERT_TRUE(model.OpenBinaryFile(dir.File("m.bin", bytes), false));
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        ASSERT_FALSE(model.OpenBinaryFile(dir.File("cut.bin", bytes.substr(0, length)), false)) << length;
        ASSERT_EQ(model.GetVertices().size(), 3u);
        ASSERT_EQ(model.GetMaterials().size(), 1u);
    }
    // Counts far beyond the data are refused before anything is allocated.
    const std::string hostile = std::string("\xff\xff\xff\xff", 4) + bytes.substr(4);
    EXPECT_FALSE(model.OpenBinaryFile(dir.File("hostile.bin", hostile), false));
    EXPECT_FALSE(model.LoadBinaryFile(hostile.data(), hostile.size()));
    EXPECT_FALSE(model.OpenBinaryFile(dir.Path("missing.bin"), false));
    const std::string readOnly = dir.File("ro.bin", bytes);
    chmod(readOnly.c_str(), 0444);
    if (geteuid() != 0) {  // root may write anyway
        EXPECT_FALSE(model.OpenBinaryFile(readOnly, false));
    }
    EXPECT_EQ(model.GetVertices().size(), 3u);
    // The unbounded form trusts its counts and always answers true.
    VRMLModel trusting;
    EXPECT_TRUE(trusting.LoadBinaryFile(bytes.data()));
    EXPECT_EQ(trusting.GetFaces().size(), 2u);
    EXPECT_EQ(trusting.GetCallList(), -1);  // decoding compiles nothing
}

TEST(BinaryModel, ResourcesAreFoundByModuleLowWordOfTheIdAndType) {
    view_test::Gl();
    static const std::string bytes = SampleBytes();
    qor::RegisterResource(nullptr, 0x10065, "OpenGL", bytes.data(), bytes.size());
    auto *other = reinterpret_cast<HINSTANCE__ *>(0x1234);
    VRMLModel model;
    EXPECT_TRUE(model.LoadModelFromResource(nullptr, 0x65, "OpenGL", false));
    EXPECT_EQ(model.GetVertices().size(), 3u);
    EXPECT_GT(model.GetCallList(), 0);
    EXPECT_FALSE(model.LoadModelFromResource(nullptr, 0x65, "RCDATA", false));
    EXPECT_FALSE(model.LoadModelFromResource(other, 0x65, "OpenGL", false));
    qor::RegisterResource(other, 7, "OpenGL", bytes.data(), 10);  // cut short
    EXPECT_FALSE(model.LoadModelFromResource(other, 7, "OpenGL", false));

    QorOpenGlModel view;
    view.AddModelFromResource(nullptr, 0x65, "res", 15, 4);
    EXPECT_EQ(view.GetModel("res").GetModelId(), 4);
    EXPECT_EQ(view.GetModel("res").GetMateRotation(), 15);
    EXPECT_EQ(view.GetModel("res").GetFaces().size(), 2u);
}

// A model embedded by qor_embed_resource at build time.
TEST(BinaryModel, EmbeddedResourceIsRegisteredBeforeMain) {
    const qor::ResourceBytes embedded = qor::FindResource(nullptr, 101, "OpenGL");
    ASSERT_TRUE(embedded);
    VRMLModel model;
    ASSERT_TRUE(model.LoadBinaryFile(embedded.data, embedded.size));
    EXPECT_GT(model.GetFaces().size(), 0u);
}

}  // namespace
