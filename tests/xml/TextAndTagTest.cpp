// Escaping, single tags and the tag scanner: the dialect's small rules that
// a conforming parser would get "right" and so wrong here.
#include <gtest/gtest.h>

#include "TestSupport.h"

namespace {

using xmltest::Failure;
using xmltest::TagNode;

struct TextCase {
    const char *input;
    const char *expected;
};

TEST(Escaping, EscapeReplacesAllFiveEvenInsideEntities) {
    const TextCase cases[] = {
        {"", ""},
        {"a&b", "a&amp;b"},
        {"<>\"'", "&lt;&gt;&quot;&apos;"},
        {"&amp;", "&amp;amp;"},
        {"\xe9\x80&", "\xe9\x80&amp;"},
    };
    for (const auto &c : cases) {
        std::string text = c.input;
        EXPECT_EQ(EscapeXML(text), c.expected) << c.input;
        EXPECT_EQ(text, c.expected) << "in place: " << c.input;
    }
}

TEST(Escaping, UnescapeIsOnePassAndLeavesStrangersAlone) {
    const TextCase cases[] = {
        {"&amp;lt;", "&lt;"},      {"R&D", "R&D"},        {"R&D &lt;", "R&D <"},
        {"&#65;", "&#65;"},        {"&&amp;", "&&"},      {"&lt&gt;", "&lt>"},
        {"&quot;&apos;", "\"'"},   {"&", "&"},            {"x&amp", "x&amp"},
        {"&amp;amp;", "&amp;"},
    };
    for (const auto &c : cases) {
        std::string text = c.input;
        EXPECT_EQ(UnescapeXML(text), c.expected) << c.input;
    }
}

struct TagCase {
    const char *tag;
    const char *name;
    bool closed;
    const char *attributes;  // "k=v;" per attribute in map order
};

std::string Attributes(const qor::XMLNodeData &node) {
    std::string out;
    for (const auto &[key, value] : node.attributes) out += key + "=" + value + ";";
    return out;
}

// The tokeniser's tests compare every tag of thousands of documents with the
// literal reading; these rows pin the rules a misreading would share.
TEST(Tags, NamesAttributesAndClosing) {
    const TagCase cases[] = {
        {"<Foo/>", "Foo/", true, ""},
        {"<Foo />", "Foo", true, ""},
        {"</Foo>", "/Foo", false, ""},
        {"<?xml version='1.0' encoding='ASCII' ?>", "?xml", false, "encoding=ASCII;version=1.0;"},
        {"<a b='1' b='2' />", "a", true, "b=2;"},
        {"<a b=\"it's\" c='say \"hi\"'>", "a", false, "b=it's;c=say \"hi\";"},
        {"<a key junk 'v'>", "a", false, "key=v;"},
        {"<a b='x' c>", "a", false, "b=x;"},
        {"<a\r\n\tb='&lt;&amp;lt;'/>", "a", true, "b=<&lt;;"},
        {"<a b='x'c='y'>", "a", false, "b=x;c=y;"},
    };
    for (const auto &c : cases) {
        TagNode node(c.tag);
        EXPECT_EQ(node.name, c.name) << c.tag;
        EXPECT_EQ(node.closed, c.closed) << c.tag;
        EXPECT_EQ(Attributes(node), c.attributes) << c.tag;
    }
}

TEST(Tags, AKeyWithoutAQuotedValueNamesTheWholeTag) {
    const char *const tags[] = {"<a b=1 >", "<a b='x' c />", "<a selected >", "<a b='x>",
                                "<a b=\"x' >"};
    for (const char *tag : tags) {
        auto failure = Failure([&] { TagNode node(tag); });
        EXPECT_EQ(failure, "5 XMLParser::XMLNode::XMLNode: Unable to create a node in the file.  "
                           "\\x0d\\x0aAn attribute key was found but the quoted value was "
                           "missing : " +
                               std::string(tag));
    }
}

TEST(Tags, ClosingMatchesTheNameExactly) {
    TagNode closer("</Foo>");
    EXPECT_TRUE(closer.ClosesNode(TagNode("<Foo>")));
    EXPECT_FALSE(closer.ClosesNode(TagNode("<foo>")));
    qor::XMLNodeData spaced;
    spaced.name = "Foo ";
    EXPECT_FALSE(closer.ClosesNode(spaced));
    EXPECT_FALSE(TagNode("</>").ClosesNode(qor::XMLNodeData()));
    EXPECT_FALSE(TagNode("<Foo>").ClosesNode(TagNode("<Foo>")));
}

TEST(Scanner, AnUnterminatedTagQuotesUpToTheNextOpener) {
    xmltest::OpenReader parser;
    std::string buffer = "< a < b >";
    qor::XMLNodeData node;
    EXPECT_EQ(Failure([&] { parser.FindNextTag(buffer, &node); }),
              "4 XMLParser::FindNextTag: Unable to Find Next Tag in the file: EOF while "
              "searching for end of tag near \\x0d\\x0a\"< a \"");
    EXPECT_EQ(node.text, "");
    buffer = "x<open";
    EXPECT_EQ(Failure([&] { parser.FindNextTag(buffer, &node); }),
              "4 XMLParser::FindNextTag: Unable to Find Next Tag in the file: EOF while "
              "searching for end of tag near \\x0d\\x0a\"<open\"");
}

TEST(Scanner, DiscardRefusesNestingAndSaysCommentForDoctypesToo) {
    xmltest::OpenReader parser;
    std::string buffer = "a<!-- <!-- -->b";
    EXPECT_EQ(Failure([&] { parser.DiscardComments(buffer); }),
              "4 XMLParser::Discard: Unable to discard the file: EOF while searching for end of "
              "comment near \\x0d\\x0a\"<!-- \"");
    buffer = "<!DOCTYPE x";
    EXPECT_EQ(Failure([&] { parser.DiscardDoctype(buffer); }),
              "4 XMLParser::Discard: Unable to discard the file: EOF while searching for end of "
              "comment near \\x0d\\x0a\"<!DOCTYPE x\"");
}

}  // namespace
