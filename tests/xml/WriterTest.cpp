// Writing documents: the layout, the escaping that the sum's pass does in
// place, and the MD5 rule.
#include <gtest/gtest.h>

#include "TestSupport.h"

namespace {

const std::string kPlaceholder(32, '0');

// The document with the stored sum put back to the placeholder: the text
// the sum must be the MD5 of.
std::string WithPlaceholder(std::string text, const std::string &sum) {
    std::size_t at = text.find("md5sum='" + sum + "'");
    EXPECT_NE(at, std::string::npos);
    return text.replace(at + 8, 32, kPlaceholder);
}

XMLWriter SampleWriter() {
    XMLWriter writer("MetaData", "1.0", true);
    auto &parent = writer.children.emplace_back();
    parent.name = "Parent";
    parent.attributes["a"] = "1";
    parent.children.emplace_back().name = "Child";
    auto &other = parent.children.emplace_back();
    other.name = "Other";
    other.text = "some text";
    return writer;
}

TEST(Writer, LayoutOfAStampedDocument) {
    XMLWriter writer = SampleWriter();
    std::string text;
    writer.WriteToBuffer(text);
    const std::string sum = writer.attributes[MD5SUM_ATTRIBUTE];
    EXPECT_EQ(text,
              "<?xml version='1.0' encoding='ASCII' ?>\n"
              "<Brindlemar file='MetaData' md5sum='" + sum + "' version='1.0' >\n"
              "\t<Parent a='1' >\n"
              "\t\t<Child />\n"
              "\t\t<Other >some text</Other>\n"
              "\t</Parent>\n"
              "</Brindlemar>");
    EXPECT_EQ(sum, CMD5Checksum::GetMD5(WithPlaceholder(text, sum)));
    EXPECT_EQ(sum.size(), 32u);
}

TEST(Writer, TextBesideChildrenAndTrailingBlanks) {
    XMLWriter writer("Query", "1.0", false);
    writer.text = "lead \r\n";
    auto &mixed = writer.children.emplace_back();
    mixed.name = "M";
    mixed.text = "a<b";
    mixed.children.emplace_back().name = "K";
    writer.children.emplace_back().name = "W";
    writer.children.back().text = " \t";
    std::string text;
    writer.WriteToBuffer(text);
    EXPECT_EQ(text,
              "<?xml version='1.0' encoding='ASCII' ?>\n"
              "<Brindlemar file='Query' version='1.0' >lead"
              "\t<M >a&lt;b\t\t<K />\n</M>\n"
              "\t<W > \t</W>\n"
              "</Brindlemar>");
    EXPECT_EQ(writer.children.front().text, "a<b") << "text is never escaped in the tree";

    // Read back, the text keeps the indentation that the writer put behind it.
    XMLReader reader;
    reader.ReadFromBuffer(text, false);
    EXPECT_EQ(reader.text, "lead\t");
    EXPECT_EQ(reader.children.front().text, "a<b\t\t");
}

TEST(Writer, SpecialCharactersRoundTripWhenTheSumIsWritten) {
    XMLWriter writer("MetaData", "1.0", true);
    auto &node = writer.children.emplace_back();
    node.name = "Record";
    node.attributes["Value"] = "&<>\"' &amp;";
    node.text = "t&<>\"'";
    std::string text;
    writer.WriteToBuffer(text);
    EXPECT_EQ(node.attributes["Value"], "&amp;&lt;&gt;&quot;&apos; &amp;amp;")
        << "the sum's pass escapes in place";

    XMLReader reader;
    reader.ReadFromBuffer(text, false);
    EXPECT_EQ(reader.children.front().attributes["Value"], "&<>\"' &amp;");
    EXPECT_EQ(reader.children.front().text, "t&<>\"'");

    // Written again, the stored values are escaped once more.
    std::string again;
    writer.WriteToBuffer(again);
    reader.ReadFromBuffer(again, false);
    EXPECT_EQ(reader.children.front().attributes["Value"],
              "&amp;&lt;&gt;&quot;&apos; &amp;amp;");
}

TEST(Writer, WithoutTheSumAttributeValuesGoOutRaw) {
    XMLWriter writer("MetaData", "1.0", false);
    writer.children.emplace_back().name = "R";
    writer.children.back().attributes["v"] = "it's";
    std::string text;
    writer.WriteToBuffer(text);
    EXPECT_NE(text.find("<R v='it's' />"), std::string::npos);
    EXPECT_EQ(writer.attributes.count(MD5SUM_ATTRIBUTE), 0u);
}

TEST(Writer, GetMD5SumRestoresTheAttribute) {
    XMLWriter writer("MetaData", "1.0", false);
    std::string sum = writer.GetMD5Sum();
    EXPECT_EQ(writer.attributes.count(MD5SUM_ATTRIBUTE), 0u);

    // No sum attribute: the sum is of the text with the placeholder put in.
    writer.attributes[MD5SUM_ATTRIBUTE] = kPlaceholder;
    std::string hashed;
    writer.FillBuffer(hashed, true, true);
    EXPECT_EQ(sum, CMD5Checksum::GetMD5(hashed));

    writer.attributes[MD5SUM_ATTRIBUTE] = "stored";
    writer.GetMD5Sum();
    EXPECT_EQ(writer.attributes[MD5SUM_ATTRIBUTE], "stored");
    // Only the root's attribute is the sum's place.
    writer.children.emplace_back().attributes[MD5SUM_ATTRIBUTE] = "child";
    writer.GetMD5Sum();
    EXPECT_EQ(writer.children.back().attributes[MD5SUM_ATTRIBUTE], "child");
}

TEST(ReaderAndWriter, SharesOneDocumentAndAssignsItOnce) {
    XMLReaderAndWriter source("Update", "1.0");
    source.children.emplace_back().name = "Payload";
    XMLReaderAndWriter target("Query", "1.0");
    target = std::move(source);
    EXPECT_EQ(target.attributes[FILETYPE_ATTRIBUTE], "Update");
    ASSERT_EQ(target.children.size(), 1u);
    XMLReaderAndWriter copy = target;
    std::string text;
    copy.WriteToBuffer(text);
    copy.ReadFromBuffer(text, false);
    EXPECT_EQ(copy.children.front().name, "Payload");
    EXPECT_EQ(copy.attributes[MD5SUM_ATTRIBUTE],
              CMD5Checksum::GetMD5(WithPlaceholder(text, copy.attributes[MD5SUM_ATTRIBUTE])));
}

TEST(MD5, KnownVectorsAndIncrementalUse) {
    const std::pair<const char *, const char *> vectors[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
    };
    CMD5Checksum checksum;
    for (const auto &[input, digest] : vectors) {
        EXPECT_EQ(CMD5Checksum::GetMD5(std::string(input)), digest);
        for (const char *c = input; *c; ++c) checksum.Update(reinterpret_cast<const unsigned char *>(c), 1);
        EXPECT_EQ(checksum.Final(), digest) << "byte by byte";
    }
    checksum.Update(reinterpret_cast<const unsigned char *>("ab"), 2);
    CMD5Checksum forked = checksum;
    checksum.Update(reinterpret_cast<const unsigned char *>("c"), 1);
    forked.Update(reinterpret_cast<const unsigned char *>("c"), 1);
    EXPECT_EQ(checksum.Final(), forked.Final());
    checksum.Update(reinterpret_cast<const unsigned char *>("zz"), 2);
    checksum.Reset();
    EXPECT_EQ(checksum.Final(), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(CMD5Checksum::GetMD5(reinterpret_cast<const unsigned char *>("abc"), 3),
              "900150983cd24fb0d6963f7d28e17f72");
}

}  // namespace
