// Reading documents: the failure table, what a failure leaves behind, and the
// loop's required oddities.
#include <gtest/gtest.h>

#include "TestSupport.h"

namespace {

using xmltest::Dump;
using xmltest::Failure;

struct FailureCase {
    const char *input;
    bool noHeader;
    int code;
    const char *message;
};

const char *const kHeader = "<?xml version='1.0' ?>";

TEST(ReadFromBuffer, FailureTable) {
    const FailureCase cases[] = {
        {"", false, 2, "No XML tags found"},
        {" \r\n\t text only", true, 2, "No XML tags found"},
        {"<a />", false, 2, "?xml must be first tag"},
        {"<!-- c --><a/>", false, 2, "?xml must be first tag"},
        {"<?xml version='1.1' ?><a/>", false, 2, "XML version must be 1.0"},
        {"<?xml encoding='ASCII' ?><a/>", false, 2, "XML version must be 1.0"},
        {"<?xml version='1.0' ?>", false, 3, "No root tag found"},
        {"<?xml version='1.0' ?>text", false, 3, "No root tag found"},
        {"<?xml version='1.0' ?><a><b></a>", false, 4, "EOF with open tags"},
        {"<?xml version='1.0' ?><a><?pi x='1' ?></a>", false, 4, "EOF with open tags"},
        {"<a>", true, 4, "EOF with open tags"},
        {"<?xml version='1.0' ?><a></a><b>", false, 2, "Unexpected ending tag: <b>"},
        {"<a></a>\n<!-- x --> <c/> <d/>", true, 2, "Unexpected ending tag: <c/>"},
    };
    for (const auto &c : cases) {
        XMLReader reader;
        EXPECT_EQ(Failure([&] { reader.ReadFromBuffer(c.input, c.noHeader); }),
                  std::to_string(c.code) + " XMLReader::ReadFromBuffer: Unable to read the file: " +
                      c.message)
            << c.input;
    }
}

TEST(ReadFromBuffer, TokeniserFailuresPassThroughWithTheirOwnNames) {
    const std::pair<const char *, const char *> cases[] = {
        {"<?xml version='1.0' ?><a><!-- open</a>", "4 XMLParser::Discard"},
        {"<?xml version='1.0' ?><a><b</a>", "4 XMLParser::FindNextTag"},
        {"<?xml version='1.0' ?><a b=1></a>", "5 XMLParser::XMLNode::XMLNode"},
        {"<?xml version=1.0 ?><a/>", "5 XMLParser::XMLNode::XMLNode"},
        {"<?xml version='1.0' ?><a></a c >", "5 XMLParser::XMLNode::XMLNode"},
    };
    for (const auto &[input, prefix] : cases) {
        XMLReader reader;
        auto failure = Failure([&] { reader.ReadFromBuffer(input, false); });
        ASSERT_TRUE(failure) << input;
        EXPECT_EQ(failure->rfind(prefix, 0), 0u) << *failure;
    }
}

TEST(ReadFromBuffer, RequiredOddities) {
    XMLReader reader;
    reader.ReadFromBuffer("<a />", true);
    EXPECT_EQ(Dump(reader), "[a] closed text=[]\n");

    reader.ReadFromBuffer(std::string(kHeader) + "<a></a>trailing", false);
    EXPECT_EQ(Dump(reader), "[a] text=[]\n");

    // Text around children gathers in one string; leading blanks go, trailing stay.
    reader.ReadFromBuffer(std::string(kHeader) + "<r>\n\t one <c/>\n two &lt;3 \n</r>", false);
    EXPECT_EQ(Dump(reader), "[r] text=[one two <3 \\x0a]\n  [c/] closed text=[]\n");

    // A mismatched closing tag opens a level of its own, which only "<//c>" closes.
    reader.ReadFromBuffer(std::string(kHeader) + "<a><b></c><//c></b></a>", false);
    EXPECT_EQ(Dump(reader), "[a] text=[]\n  [b] text=[]\n    [/c] text=[]\n");

    // Any element may be the root, and a comment anywhere is gone first.
    reader.ReadFromBuffer("<!DOCTYPE x><?xml version='1.0'?><!-- <x> --><Any k='<!--'-->'/>",
                          false);
    EXPECT_EQ(Dump(reader), "[Any] closed text=[] k=[]\n");
}

TEST(ReadFromBuffer, DeepNestingCostsNoStack) {
    const int depth = 1000000;
    std::string document = "<r>";
    for (int i = 0; i < depth; ++i) document += "<n>";
    {
        XMLReader reader;
        EXPECT_EQ(Failure([&] { reader.ReadFromBuffer(document, true); }),
                  "4 XMLReader::ReadFromBuffer: Unable to read the file: EOF with open tags");
        XMLReader copy = reader;
        for (const XMLReader *tree : {&reader, &copy}) {
            int levels = 0;
            for (const qor::XMLNodeData *n = tree; !n->children.empty(); n = &n->children.front())
                ++levels;
            EXPECT_EQ(levels, depth);
        }
        copy = reader;
    }  // and both trees go without recursion

    for (int i = 0; i < depth; ++i) document += "</n>";
    document += "</r>";
    XMLReader reader;
    reader.ReadFromBuffer(document, true);
    EXPECT_EQ(reader.children.size(), 1u);
}

}  // namespace
