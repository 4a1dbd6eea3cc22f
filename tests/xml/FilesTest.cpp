// Reading and writing real files in scratch folders: the path failures, the
// folders made on the way, CR LF files, and the safe replace.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

#include "TestSupport.h"

namespace fs = std::filesystem;

namespace {

using xmltest::Dump;
using xmltest::Failure;
using xmltest::ReadFile;
using xmltest::WriteFile;

const std::string kDocument =
    "<?xml version='1.0' encoding='ASCII' ?>\n"
    "<Brindlemar file='MetaData' version='1.0' >\n"
    "\t<Plate Name='P1' >two\nlines \n</Plate>\n"
    "</Brindlemar>";

// Points the temporary folder at a scratch folder of the test's own, so that
// the working files can be seen.
class FilesTest : public ::testing::Test {
protected:
    void SetUp() override {
        const char *old = std::getenv("TMPDIR");
        if (old) oldTmp_ = old;
        hadTmp_ = old != nullptr;
        fs::create_directories(temp_);
        setenv("TMPDIR", temp_.c_str(), 1);
    }
    void TearDown() override {
        if (hadTmp_)
            setenv("TMPDIR", oldTmp_.c_str(), 1);
        else
            unsetenv("TMPDIR");
    }
    // The names in `folder`, sorted.
    static std::vector<std::string> Names(const fs::path &folder) {
        std::vector<std::string> names;
        for (const auto &entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    std::vector<std::string> TempFiles() const { return Names(temp_); }
    static XMLWriter Sample(const std::string &name) {
        XMLWriter writer("MetaData", "1.0", true);
        writer.children.emplace_back().name = name;
        return writer;
    }

    xmltest::ScratchFolder scratch_;
    std::string temp_ = scratch_ / "tmp";

private:
    std::string oldTmp_;
    bool hadTmp_ = false;
};

TEST_F(FilesTest, PathFailures) {
    XMLReader reader;
    XMLWriter writer = Sample("R");
    // A regular file where a folder should be: nothing can be created below it.
    WriteFile(scratch_ / "file", "x");
    const std::string missing = scratch_ / "missing.xml", folder = scratch_.path().string(),
                      below = scratch_ / "file/sub/doc.xml";
    const std::string read = "0 XMLReader::Read: Unable to read the file: \\x0d\\x0a";
    const std::string direct = "XMLWriter::WriteDirectly: Unable to save the file.  \\x0d\\x0a";
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { reader.Read(nullptr); }, read + "Null path pointer"},
        {[&] { reader.Read(""); }, read + "No path info"},
        {[&] { reader.Read(missing.c_str()); }, read + "File " + missing + " not found"},
        {[&] { reader.Read(folder.c_str()); }, read + "File " + folder + " not found"},  // a folder is no file
        {[&] { writer.Write(nullptr); }, "0 XMLWriter::Write: Unable to save the file : \\x0d\\x0aNull path pointer"},
        {[&] { writer.Write(""); }, "0 XMLWriter::Write: Unable to save the file: \\x0d\\x0aEmpty path"},
        {[&] { writer.WriteDirectly(nullptr); }, "0 " + direct + "Null path pointer."},
        {[&] { writer.WriteDirectly(""); }, "0 " + direct + "Empty path."},
        {[&] { writer.WriteDirectly(below.c_str()); },
         "1 " + direct + "Please make sure that you have permissions to save this file at the specified location."},
        {[&] { writer.Write(below.c_str()); },
         "1 XMLWriter::Write: Unable to save the file: \\x0d\\x0aFailed to create directory " + scratch_ / "file/sub"},
    };
    for (const auto &[operation, text] : cases) EXPECT_EQ(Failure(operation), text);
}

TEST_F(FilesTest, AnEmptyFileChangesNothingAndBlanksHaveNoTags) {
    XMLReader reader;
    reader.ReadFromBuffer(kDocument, false);
    std::string before = Dump(reader);
    WriteFile(scratch_ / "empty.xml", "");
    reader.Read((scratch_ / "empty.xml").c_str());
    EXPECT_EQ(Dump(reader), before);
    WriteFile(scratch_ / "blank.xml", " \r\n\t ");
    EXPECT_EQ(Failure([&] { reader.Read((scratch_ / "blank.xml").c_str()); }),
              "2 XMLReader::ReadFromBuffer: Unable to read the file: No XML tags found");
}

TEST_F(FilesTest, LineEndsOfTheFileDoNotMatter) {
    XMLWriter writer = Sample("Record");
    writer.children.front().text = "a\nb";
    std::string text;
    writer.WriteToBuffer(text);
    std::string crlf;
    for (char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    WriteFile(scratch_ / "lf.xml", text);
    WriteFile(scratch_ / "crlf.xml", crlf);

    XMLReader lf, windows;
    lf.Read((scratch_ / "lf.xml").c_str());
    windows.Read((scratch_ / "crlf.xml").c_str());
    EXPECT_EQ(Dump(windows), Dump(lf));
    EXPECT_EQ(windows.children.front().text, "a\nb");
    // And the stored sum still checks out, as the sum never saw the CRs.
    std::string stored = windows.attributes[MD5SUM_ATTRIBUTE];
    EXPECT_EQ(windows.GetMD5Sum(), stored);
}

TEST_F(FilesTest, BothWritesCreateMissingFoldersAndReadBack) {
    for (bool safe : {true, false}) {
        XMLWriter writer = Sample(safe ? "Safe" : "Direct");
        std::string path = scratch_ / (safe ? "a/b/c/doc.xml" : "d/e/doc.xml");
        if (safe)
            writer.Write(path.c_str());
        else
            writer.WriteDirectly(path.c_str());
        XMLReader reader;
        reader.Read(path.c_str());
        EXPECT_EQ(reader.children.front().name, safe ? "Safe" : "Direct");
        std::string text;
        Sample(safe ? "Safe" : "Direct").WriteToBuffer(text);
        EXPECT_EQ(ReadFile(path), text);
    }
    EXPECT_TRUE(TempFiles().empty()) << "working files and name reservations are gone";
}

TEST_F(FilesTest, WriteReplacesTheDestinationWhole) {
    std::string path = scratch_ / "doc.xml";
    WriteFile(path, "old contents");
    ::chmod(path.c_str(), 0640);
    std::string link = scratch_ / "old-link";
    fs::create_hard_link(path, link);

    Sample("New").Write(path.c_str());
    EXPECT_EQ(ReadFile(link), "old contents")
        << "the old file was replaced by a rename, never rewritten in place";
    XMLReader reader;
    reader.Read(path.c_str());
    EXPECT_EQ(reader.children.front().name, "New");
    struct stat info {};
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
    EXPECT_EQ(Names(scratch_.path()), (std::vector<std::string>{"doc.xml", "old-link", "tmp"}));
}

TEST_F(FilesTest, AReadOnlyDestinationKeepsTheOldFileAndTheWorkingFile) {
    std::string path = scratch_ / "locked.xml";
    WriteFile(path, "old contents");
    ::chmod(path.c_str(), 0444);
    const std::time_t before = std::time(nullptr);
    auto failure = Failure([&] { Sample("New").Write(path.c_str()); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(ReadFile(path), "old contents");

    auto files = TempFiles();
    ASSERT_EQ(files.size(), 1u);
    const std::string working = temp_ + "/" + files[0];
    // Named after the local time: TP2026-11-12_143005-XXXXXX.tmp
    std::tm local{};
    localtime_r(&before, &local);
    char date[32];
    std::strftime(date, sizeof date, "TP%F_", &local);
    EXPECT_EQ(files[0].rfind(date, 0), 0u) << files[0];
    EXPECT_EQ(files[0].size(), std::string("TP2026-11-12_143005-XXXXXX.tmp").size()) << files[0];
    EXPECT_EQ(*failure, "1 XMLWriter::Write: Unable to save the file: \\x0d\\x0aCopyFile() "
                        "failed to copy " +
                            working + " -> " + path +
                            "\\x0d\\x0aError 13: Permission denied");
    XMLReader reader;
    reader.Read(working.c_str());
    EXPECT_EQ(reader.children.front().name, "New") << "the working file is whole";
}

}  // namespace
