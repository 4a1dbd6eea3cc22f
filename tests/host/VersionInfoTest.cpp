#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "PeBuilder.h"
#include "ScratchFile.h"
#include "qor/host/OSVersionInfo.h"
#include "qor/host/VersionInfo.h"

namespace {

using qor::test::BuildPeImage;
using qor::test::BuildVersionResource;
using qor::test::TypicalVersionLayout;
using qor::test::VersionResourceLayout;

using qor::test::ScratchFile;

CVersionInfo LoadImage(const std::vector<std::uint8_t> &image) {
    CVersionInfo info;
    info.LoadFromMemory(image.data(), image.size());
    return info;
}

CVersionInfo LoadLayout(const VersionResourceLayout &layout) {
    return LoadImage(BuildPeImage(BuildVersionResource(layout)));
}

class VersionInfoImage : public ::testing::TestWithParam<bool> {};

TEST_P(VersionInfoImage, ReadsFixedPartAndStringsFromAFile) {
    qor::test::PeImageOptions pe;
    pe.pe32Plus = GetParam();
    CVersionInfo info(ScratchFile(BuildPeImage(BuildVersionResource(TypicalVersionLayout()), pe)).path());

    ASSERT_NE(info.GetFixedFileInfo(), nullptr);
    EXPECT_EQ(info.GetFixedFileInfo()->dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(info.GetFileVersion(), 0x0001000200030004ULL);
    EXPECT_EQ(info.GetProductVersion(), 0x0005000600070008ULL);
    EXPECT_EQ(info.GetFileFlags(), 1u);
    EXPECT_EQ(info.GetFileFlagsMask(), 0x3Fu);
    EXPECT_EQ(info.GetOS(), 0x40004u);
    EXPECT_EQ(info.GetFileType(), 2u);
    EXPECT_EQ(info.GetFileSubType(), 0u);
    EXPECT_EQ(info.GetCreationTime().dwHighDateTime, 0x01D2u);
    EXPECT_EQ(info.GetCreationTime().dwLowDateTime, 0x12345678u);

    EXPECT_EQ(info.GetCompanyName(), "Example Instruments Ltd");
    EXPECT_EQ(info.GetFileDescription(), "Plate handler driver");
    EXPECT_EQ(info.GetInternalName(), "platehandler");
    EXPECT_EQ(info.GetLegalCopyright(), "(c) the makers");
    EXPECT_EQ(info.GetOriginalFilename(), "platehandler.dll");
    EXPECT_EQ(info.GetFileVersionAsString(), "1.2.3.4");
    EXPECT_EQ(info.GetProductVersionAsString(), "5.6.7.8");
    EXPECT_EQ(info.GetComments(), "Unknown");
    EXPECT_EQ(info.GetValue("SpecialBuild", "none"), "none");
    // The product name is asked for as "Productname": a resource keyed the
    // usual way does not answer it.
    EXPECT_EQ(info.GetProductName(), "Unknown");
    EXPECT_EQ(info.GetValue("ProductName"), "Scheduler");
}

INSTANTIATE_TEST_SUITE_P(Pe32AndPe32Plus, VersionInfoImage, ::testing::Values(false, true));

TEST(VersionInfo, VersionTextsAreNormalised) {
    struct Case { const char *fileVersion, *expectFile, *productVersion, *expectProduct; };
    const Case cases[] = {
        {"1, 2, 3, 4", "1.2.3.4", "1, 2, 3, 4", "1.2.3.4"},
        {"7", "7.0.0", "7", "7"},
        {"7, 1", "7.1.0", "7, 1", "7.1"},
        {" 2 . 0 . 1 . 9 ", "2.0.1.9", "2,0", "2.0"},
        {"3.1.4", "3.1.4", "", ""},
    };
    for (const Case &c : cases) {
        VersionResourceLayout layout = TypicalVersionLayout();
        layout.tables[0].values = {{"FileVersion", c.fileVersion}, {"ProductVersion", c.productVersion}};
        CVersionInfo info = LoadLayout(layout);
        EXPECT_EQ(info.GetFileVersionAsString(), c.expectFile) << c.fileVersion;
        EXPECT_EQ(info.GetProductVersionAsString(), c.expectProduct) << c.productVersion;
    }
}

TEST(VersionInfo, TranslationsSelectTheStringTable) {
    VersionResourceLayout layout = TypicalVersionLayout();
    layout.tables = {{"040904B0", {{"CompanyName", "English"}}}, {"040704b0", {{"CompanyName", "Deutsch"}}}};
    layout.translations = {{0x0409, 0x04B0}, {0x0407, 0x04B0}};
    CVersionInfo info = LoadLayout(layout);
    ASSERT_EQ(info.GetTranslationCount(), 2);
    EXPECT_EQ(info.GetTranslation(1)->language, 0x0407);
    EXPECT_EQ(info.GetTranslation(1)->codePage, 0x04B0);
    EXPECT_EQ(info.GetTranslation(2), nullptr);
    // The table key's hex digits match whatever their case.
    EXPECT_EQ(info.GetCompanyName(), "English");
    EXPECT_TRUE(info.SetTranslation(1));
    EXPECT_EQ(info.GetCompanyName(), "Deutsch");
    EXPECT_FALSE(info.SetTranslation(2));
    EXPECT_FALSE(info.SetTranslation(-1));
    EXPECT_EQ(info.GetCompanyName(), "Deutsch");
}

// Layouts real files have, and what the reader makes of each.
TEST(VersionInfo, LayoutVariations) {
    using Layout = VersionResourceLayout;
    struct Case {
        const char *what;
        void (*change)(Layout &);
        bool fixedPart;
        std::uint16_t language;  // of the first translation
        const char *company, *fileVersion, *productName;
    };
    const Case cases[] = {
        {"Productname keyed with a small n", [](Layout &l) { l.tables[0].values.push_back({"Productname", "Small n"}); },
         true, 0x0409, "Example Instruments Ltd", "1.2.3.4", "Small n"},
        // Real files list 0409 and hold a table for 0809; the reads find nothing.
        {"table no translation names", [](Layout &l) { l.tables[0].key = "080904b0"; },
         true, 0x0409, "Unknown", "Unknown", "Unknown"},
        {"no translation list: the tables stand in",
         [](Layout &l) { l.withTranslations = false; l.tables[0].key = "041104e4"; },
         true, 0x0411, "Example Instruments Ltd", "1.2.3.4", "Unknown"},
        {"no fixed part", [](Layout &l) { l.withFixedInfo = false; },
         false, 0x0409, "Example Instruments Ltd", "1.2.3.4", "Unknown"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        Layout layout = TypicalVersionLayout();
        c.change(layout);
        CVersionInfo info = LoadLayout(layout);
        EXPECT_EQ(info.GetFixedFileInfo() != nullptr, c.fixedPart);
        EXPECT_EQ(info.GetFileVersion(), c.fixedPart ? 0x0001000200030004ULL : 0u);
        ASSERT_EQ(info.GetTranslationCount(), 1);
        EXPECT_EQ(info.GetTranslation(0)->language, c.language);
        EXPECT_EQ(info.GetCompanyName(), c.company);
        EXPECT_EQ(info.GetFileVersionAsString(), c.fileVersion);
        EXPECT_EQ(info.GetProductName(), c.productName);
        // The table itself is always read, whether or not a translation names it.
        ASSERT_NE(info.GetVersionBlock(), nullptr);
        EXPECT_NE(qor::FindVersionBlock(*info.GetVersionBlock(), "\\StringFileInfo\\" + layout.tables[0].key +
                                                                     "\\CompanyName"),
                  nullptr);
    }
}

// A file with one version resource per language is read in the language a
// Windows program of the same user would get: neutral, the user's language
// (exact, then with a neutral sublanguage), US English, else the first.
TEST(VersionInfo, TheResourceLanguageFollowsTheLoadersOrder) {
    struct Case {
        std::vector<std::uint16_t> languages;  // in the file, in this order
        const char *locale;                    // the user's LC_ALL
        std::uint16_t chosen;
    };
    const Case cases[] = {
        {{0x0401, 0x0407, 0x0409}, "de_DE.UTF-8", 0x0407},
        {{0x0401, 0x0407, 0x0409}, "C", 0x0409},
        {{0x0401, 0x0407, 0x0409}, "ja_JP.UTF-8", 0x0409},
        {{0x0401, 0x0407, 0x0000, 0x0409}, "de_DE", 0x0000},
        {{0x0401, 0x0007, 0x0409}, "de_CH.UTF-8@euro", 0x0007},
        {{0x0401, 0x0807, 0x0407}, "de_CH", 0x0807},
        {{0x0C0A, 0x0401, 0x0407}, "POSIX", 0x0C0A},
        {{0x0C0A, 0x0401}, "es_ES.UTF-8", 0x0C0A},
    };
    const char *saved = std::getenv("LC_ALL");
    const std::string restore = saved ? saved : "";
    for (const Case &c : cases) {
        SCOPED_TRACE(c.locale);
        qor::test::LanguageResources resources;
        for (std::uint16_t language : c.languages) {
            VersionResourceLayout layout = TypicalVersionLayout();
            layout.tables[0].values = {{"CompanyName", std::to_string(language)}};
            resources.push_back({language, BuildVersionResource(layout)});
        }
        setenv("LC_ALL", c.locale, 1);
        EXPECT_EQ(LoadImage(BuildPeImage(resources)).GetCompanyName(), std::to_string(c.chosen));
    }
    saved ? setenv("LC_ALL", restore.c_str(), 1) : unsetenv("LC_ALL");
}

TEST(VersionInfo, FilesWithoutAResourceLeaveTheObjectEmpty) {
    ScratchFile text({'h', 'e', 'l', 'l', 'o'});
    for (const std::string path : {"/nonexistent/qor.dll", text.path(), "/tmp"}) {
        CVersionInfo info;
        EXPECT_EQ(info.Load(path), 0) << path;
        EXPECT_EQ(info.GetFixedFileInfo(), nullptr);
        EXPECT_EQ(info.GetFileVersion(), 0u);
        EXPECT_EQ(info.GetTranslationCount(), 0);
        EXPECT_EQ(info.GetCompanyName(), "Unknown");
        EXPECT_EQ(info.GetFileVersionAsString(), "Unknown");
    }
    CVersionInfo self(static_cast<HINSTANCE__ *>(nullptr));  // the running program is no PE file
    EXPECT_EQ(self.GetFixedFileInfo(), nullptr);
    EXPECT_EQ(self.GetTranslationCount(), 0);
    // A failed load forgets what an earlier one held.
    CVersionInfo info = LoadLayout(TypicalVersionLayout());
    ASSERT_NE(info.GetFixedFileInfo(), nullptr);
    EXPECT_EQ(info.Load("/nonexistent/qor.dll"), 0);
    EXPECT_EQ(info.GetFixedFileInfo(), nullptr);
    EXPECT_EQ(info.GetCompanyName(), "Unknown");
}

TEST(VersionInfo, ResourceTreeWithoutVersionTypeGivesNothing) {
    auto image = BuildPeImage(BuildVersionResource(TypicalVersionLayout()));
    // The type directory sits at the start of the section (file offset 0x200):
    // the icon entry, then RT_VERSION (16), which becomes RT_STRING (6).
    ASSERT_EQ(image[0x200 + 24], 16);
    image[0x200 + 24] = 6;
    CVersionInfo info = LoadImage(image);
    EXPECT_EQ(info.GetFixedFileInfo(), nullptr);
    EXPECT_EQ(info.GetTranslationCount(), 0);
}

// A real Windows program from a Debian package (cpio-win32): a PE file with
// no resources at all, which must read as empty, whole or cut anywhere.
TEST(VersionInfo, RealPeFileWithoutResources) {
    const char *path = "/usr/share/win32/cpio.exe";
    std::ifstream file(path, std::ios::binary);
    if (!file) GTEST_SKIP() << path << " is not installed (package cpio-win32)";
    std::vector<std::uint8_t> image((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    ASSERT_GT(image.size(), 2u);
    EXPECT_EQ(image[0], 'M');
    CVersionInfo info(path);
    EXPECT_EQ(info.GetFixedFileInfo(), nullptr);
    EXPECT_EQ(info.GetCompanyName(), "Unknown");
    for (std::size_t size = 0; size < image.size(); size += 97) {
        CVersionInfo cut;
        EXPECT_EQ(cut.LoadFromMemory(image.data(), size), 0) << size;
    }
}

// Every prefix of a valid image, and images with bytes changed at random,
// must load or fail cleanly (the sanitizer build checks the memory side).
TEST(VersionInfo, TruncatedAndDamagedImagesNeverCrash) {
    const auto image = BuildPeImage(BuildVersionResource(TypicalVersionLayout()));
    for (std::size_t size = 0; size < image.size(); ++size) {
        CVersionInfo info;
        int loaded = info.LoadFromMemory(image.data(), size);
        if (loaded) {
            info.GetCompanyName();
            info.GetFileVersionAsString();
        }
    }
    std::mt19937 random(20261122);
    for (int round = 0; round < 3000; ++round) {
        auto damaged = image;
        int changes = 1 + static_cast<int>(random() % 8);
        for (int i = 0; i < changes; ++i) damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
        CVersionInfo info = LoadImage(damaged);
        for (int t = 0; t < info.GetTranslationCount(); ++t) {
            info.SetTranslation(t);
            info.GetCompanyName();
            info.GetFileVersionAsString();
            info.GetProductVersionAsString();
        }
    }
}

TEST(VersionInfo, HostileSizesAreBoundedByTheirParents) {
    auto resource = BuildVersionResource(TypicalVersionLayout());
    // A root that claims to be far longer than the resource, and a child
    // claiming more than its parent: both are cut, nothing is read beyond.
    resource[0] = 0xFF;
    resource[1] = 0xFF;
    CVersionInfo info = LoadImage(BuildPeImage(resource));
    EXPECT_EQ(info.GetFileVersion(), 0x0001000200030004ULL);
    auto zeroLength = BuildVersionResource(TypicalVersionLayout());
    zeroLength[0] = zeroLength[1] = 0;
    EXPECT_EQ(LoadImage(BuildPeImage(zeroLength)).GetFixedFileInfo(), nullptr);
}

TEST(OSVersionInfo, CodeTable) {
    struct Row { unsigned major, minor, platform; int code; };
    const Row rows[] = {
        {3, 51, 2, 1}, {3, 10, 2, 0}, {4, 0, 2, 2}, {4, 0, 1, 3}, {4, 0, 0, 0},  {4, 10, 1, 4},
        {4, 90, 1, 5}, {4, 20, 2, 0}, {5, 0, 2, 6}, {5, 1, 2, 7}, {5, 2, 2, 8},  {5, 3, 2, 0},
        {6, 0, 2, 9},  {6, 3, 2, 9},  {6, 18, 2, 9}, {10, 0, 2, 0}, {2, 0, 2, 0}, {7, 0, 2, 0},
    };
    for (const Row &row : rows)
        EXPECT_EQ(OSVersionInfo::CodeFor(row.major, row.minor, row.platform), row.code)
            << row.major << "." << row.minor << " platform " << row.platform;
}

TEST(OSVersionInfo, KernelReleaseFeedsTheTable) {
    OSVERSIONINFOA info{};
    EXPECT_FALSE(qor::GetVersionExA(&info));  // size not set
    info.dwOSVersionInfoSize = sizeof info;
    ASSERT_TRUE(qor::GetVersionExA(&info));
    EXPECT_EQ(info.dwPlatformId, VER_PLATFORM_WIN32_NT);
    EXPECT_EQ(OSVersionInfo::GetOSVersionInfo(),
              OSVersionInfo::CodeFor(info.dwMajorVersion, info.dwMinorVersion, info.dwPlatformId));
}

}  // namespace
