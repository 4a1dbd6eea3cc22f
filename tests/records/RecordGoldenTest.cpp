// Golden files pin the bytes of each family: every document under golden/
// is built by its records' element names and must be written back byte for
// byte, and every FAMILY.fields file is what `qor record fields FAMILY`
// prints, the family's field tables as its users see them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/RunCommand.h"
#include "qor/records/RecordRegistry.h"
#include "qor/xml.h"

namespace {

const std::filesystem::path kGolden = std::filesystem::path(QOR_SOURCE_DIR) / "tests/records/golden";

std::vector<std::filesystem::path> GoldenFiles(const std::string &extension) {
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(kGolden)) {
        if (entry.path().extension() == extension) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string Contents(const std::filesystem::path &path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(GoldenDocuments, ReadAndWrittenBackByteForByte) {
    const auto files = GoldenFiles(".xml");
    EXPECT_FALSE(files.empty());
    for (const auto &path : files) {
        SCOPED_TRACE(path.string());
        const std::string text = Contents(path);
        XMLReader reader;
        reader.ReadFromBuffer(text, false);
        ASSERT_EQ(reader.children.size(), 1u) << "one record per document";
        const qor::RecordType *type = qor::FindRecordType(reader.children.front().name);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(type->describe().fromDocument(text)->ToXMLString(), text);
        EXPECT_EQ(type->fromNode(reader.children.front())->ToXMLString(), text);
    }
}

TEST(GoldenFieldTables, AreWhatQorRecordFieldsPrints) {
    if (!qor_test::QorToolIsBuilt()) GTEST_SKIP() << "the qor tool isn't built";
    const auto files = GoldenFiles(".fields");
    EXPECT_FALSE(files.empty());
    for (const auto &path : files) {
        SCOPED_TRACE(path.string());
        const auto outcome = qor_test::RunQor("record fields " + path.stem().string());
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, Contents(path));
    }
}

}  // namespace
