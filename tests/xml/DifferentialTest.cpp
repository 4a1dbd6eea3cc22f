// The linear tokeniser against the literal one (ReferenceParser): same trees,
// same exceptions, same half-built trees after a failure, on thousands of
// random and damaged documents.
#include <gtest/gtest.h>

#include "DocumentGenerator.h"
#include "ReferenceParser.h"
#include "TestSupport.h"

namespace {

using xmltest::Dump;
using xmltest::Failure;

// A tree that a previous read left behind, so that what a failed read keeps
// of it is compared too.
void FillPrevious(qor::XMLNodeData &document) {
    document.Clear();
    document.name = "Previous";
    document.text = "old text";
    document.attributes["kept"] = "1";
    document.children.emplace_back().name = "OldChild";
    document.closed = false;
}

void ExpectSameRead(const std::string &input, bool noHeader) {
    xmltest::OpenReader fast;
    qor::XMLNodeData slow;
    FillPrevious(fast);
    FillPrevious(slow);
    auto fastFailure = Failure([&] { fast.ReadFromBuffer(input, noHeader); });
    auto slowFailure = Failure([&] { reference::ReadFromBuffer(slow, input, noHeader); });
    ASSERT_EQ(fastFailure, slowFailure) << "input: " << input;
    ASSERT_EQ(Dump(fast), Dump(slow)) << "input: " << input;
}

void ExpectSameDiscard(const std::string &input, const std::string &start, const std::string &end) {
    xmltest::OpenReader parser;
    std::string fast = input;
    std::string slow = input;
    auto fastFailure = Failure([&] { parser.Discard(fast, start, end); });
    auto slowFailure = Failure([&] { reference::Discard(slow, start, end); });
    ASSERT_EQ(fastFailure, slowFailure) << "input: " << input;
    ASSERT_EQ(fast, slow) << "input: " << input;
}

TEST(Differential, RandomAndDamagedDocumentsReadAlike) {
    xmltest::DocumentGenerator generator(20261122);
    int failures = 0;
    for (int i = 0; i < 6000; ++i) {
        std::string document = generator.Document();
        if (i % 3) document = generator.Mutate(document);
        bool noHeader = i % 7 == 0;
        ExpectSameRead(document, noHeader);
        if (HasFatalFailure()) return;
        xmltest::OpenReader probe;
        failures += Failure([&] { probe.ReadFromBuffer(document, noHeader); }).has_value();
    }
    // Both outcomes must be well represented for the comparison to mean much.
    EXPECT_GT(failures, 1000);
    EXPECT_LT(failures, 5000);
}

TEST(Differential, DiscardLeavesTheSameBufferOnSuccessAndFailure) {
    xmltest::DocumentGenerator generator(7);
    for (int i = 0; i < 3000; ++i) {
        std::string document = generator.Mutate(generator.Document());
        ExpectSameDiscard(document, "<!--", "-->");
        ExpectSameDiscard(document, "<!DOCTYPE", ">");
        if (HasFatalFailure()) return;
    }
}

// An erase can join the text on either side of a comment into a new opener;
// the linear walk must look back far enough to see it.
TEST(Differential, OpenersJoinedByAnEraseAreFound) {
    const char *const cases[] = {
        "<!<!--x-->--y-->", "<<!--x-->!--y-->", "<!-<!--x-->-y-->", "<!-<!---->-y-->z",
        "<!-->",            "<!--->",           "<!-- <!-- -->",    "<!DOC<!--c-->TYPE d>",
        "a<!--b-->c<!--",   "<!---->-->",       "<!<!<!---->---->-->",
    };
    for (const char *input : cases) {
        ExpectSameDiscard(input, "<!--", "-->");
        ExpectSameRead(std::string("<?xml version='1.0' ?><r>") + input + "</r>", false);
    }
    ExpectSameDiscard("<!DOC<!DOCTYPE x>TYPE y>z", "<!DOCTYPE", ">");
}

TEST(Differential, FindNextTagConsumesTheSameFront) {
    xmltest::DocumentGenerator generator(99);
    for (int i = 0; i < 2000; ++i) {
        std::string fast = generator.Mutate(generator.Document());
        std::string slow = fast;
        xmltest::OpenReader parser;
        qor::XMLNodeData fastNode, slowNode;
        for (int step = 0; step < 50; ++step) {
            std::string fastTag, slowTag;
            auto fastFailure = Failure([&] { fastTag = parser.FindNextTag(fast, &fastNode); });
            auto slowFailure =
                Failure([&] { slowTag = reference::FindNextTag(slow, &slowNode); });
            ASSERT_EQ(fastFailure, slowFailure);
            ASSERT_EQ(fastTag, slowTag);
            ASSERT_EQ(fast, slow);
            ASSERT_EQ(fastNode.text, slowNode.text);
            if (fastFailure || fastTag.empty()) break;
            std::optional<std::string> fastNodeFailure, slowNodeFailure;
            std::string fastDump, slowDump;
            fastNodeFailure = Failure([&] { fastDump = Dump(xmltest::TagNode(fastTag)); });
            slowNodeFailure = Failure([&] { slowDump = Dump(reference::NodeFromTag(slowTag)); });
            ASSERT_EQ(fastNodeFailure, slowNodeFailure);
            ASSERT_EQ(fastDump, slowDump);
        }
    }
}

TEST(Differential, EscapingAgreesOnRandomText) {
    xmltest::DocumentGenerator generator(5);
    for (int i = 0; i < 3000; ++i) {
        std::string text = generator.Mutate(generator.Mutate("&amp;&lt;&gt;&quot;&apos; R&D"));
        std::string fast = text, slow = text;
        ASSERT_EQ(UnescapeXML(fast), reference::Unescape(slow));
        fast = text;
        slow = text;
        ASSERT_EQ(EscapeXML(fast), reference::Escape(slow));
    }
}

}  // namespace
