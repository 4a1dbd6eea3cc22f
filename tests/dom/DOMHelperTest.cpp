// CDOMHelper over real libxml2 documents: queries that find, miss and fail,
// the list forms, the 64-bit form, and elements added to the document.
#include <gtest/gtest.h>

#include <libxml/parser.h>

#include <climits>

#include "qor/xml/DOMHelper.h"

namespace {

const char kPlates[] =
    "<Plates file='PlateInfo'>"
    "<Plate Labware='96 well' Name='A' Count='12'>first <b>bold</b></Plate>"
    "<Plate Name='B' Count='-7'/>"
    "<Plate Labware='384' xmlns:q='urn:q' q:Shelf='3'> 42abc</Plate>"
    "<Big>99999999999999999999</Big><Word>abc</Word>"
    "</Plates>";

class DOMHelper : public testing::Test {
protected:
    void SetUp() override { document_ = xmlReadMemory(kPlates, sizeof kPlates - 1, nullptr, nullptr, 0); }
    void TearDown() override { xmlFreeDoc(document_); }
    xmlDocPtr document_ = nullptr;
};

TEST_F(DOMHelper, SingleFormsTakeTheFirstNodeOrFailLeavingTheOutputAlone) {
    const CDOMHelper helper(document_);
    struct Case {
        const char *query, *attribute;  // attribute null: the text form
        bool found;
        const char *result;
    };
    const Case cases[] = {
        {"//Plate", nullptr, true, "first bold"},  // the text of every descendant
        {"/Plates/Plate[3]", nullptr, true, " 42abc"},
        {"//Plate/@Count", nullptr, true, "12"},
        {"//Plate", "Labware", true, "96 well"},
        {"//Plate[3]", "q:Shelf", true, "3"},  // attributes by qualified name
        {"//Plate[2]", "Labware", false, "untouched"},
        {"//Plate/@Name", "Name", false, "untouched"},  // an attribute has no attributes
        {"/Plates/Missing", nullptr, false, "untouched"},
        {"count(//Plate)", nullptr, false, "untouched"},  // not a set of nodes
        {"//Plate[", nullptr, false, "untouched"},         // malformed
        {"", "Name", false, "untouched"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.query);
        std::string result = "untouched";
        testing::internal::CaptureStderr();
        const bool found = c.attribute ? helper.FindAttribute(c.query, c.attribute, result)
                                       : helper.FindTextA(c.query, result);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");  // a bad query is a false, not a message
        EXPECT_EQ(found, c.found);
        EXPECT_EQ(result, c.result);
    }
}

TEST_F(DOMHelper, ListFormsAppendAndStopAtTheFirstNodeTheyCantRead) {
    const CDOMHelper helper(document_);
    std::vector<std::string> values{"kept"};
    EXPECT_TRUE(helper.FindAttribute("//Plate[@Name]", "Name", values));
    EXPECT_EQ(values, (std::vector<std::string>{"kept", "A", "B"}));
    EXPECT_FALSE(helper.FindAttribute("//Plate", "Count", values));  // the third has none
    EXPECT_EQ(values, (std::vector<std::string>{"kept", "A", "B", "12", "-7"}));
    EXPECT_FALSE(helper.FindAttribute("//Nothing", "Name", values));
    EXPECT_FALSE(helper.FindAttribute("//[", "Name", values));
    EXPECT_EQ(values.size(), 5u);

    std::vector<std::string> texts{"kept"};
    EXPECT_TRUE(helper.FindTextA("//@Count | //Word", texts));
    EXPECT_EQ(texts, (std::vector<std::string>{"kept", "12", "-7", "abc"}));
    EXPECT_FALSE(helper.FindTextA("//Nothing", texts));
    EXPECT_FALSE(helper.FindTextA("1 + 1", texts));
    EXPECT_EQ(texts.size(), 4u);
}

TEST_F(DOMHelper, TheIntegerFormReadsAsAStreamDoes) {
    const CDOMHelper helper(document_);
    struct Case {
        const char *query;
        bool found;
        long long value;
    };
    const Case cases[] = {
        {"//Plate[3]", true, 42},          // leading blanks skipped, stops at the first letter
        {"//Plate[2]/@Count", true, -7},
        {"//Word", true, 0},               // no number at all
        {"//Big", true, LLONG_MAX},        // out of range: the limit
        {"//Missing", false, 5},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.query);
        long long value = 5;
        EXPECT_EQ(helper.FindTextA(c.query, value), c.found);
        EXPECT_EQ(value, c.value);
    }
}

TEST_F(DOMHelper, AddsTextElementsUnderTheDocumentElement) {
    CDOMHelper helper(document_);
    EXPECT_EQ(helper.GetDOMDoc(), document_);
    EXPECT_TRUE(helper.AddTopLevelTextElement("Note", "a<b & 'c'"));
    EXPECT_TRUE(helper.AddTopLevelTextElement("Total", -9000000000LL));
    EXPECT_TRUE(helper.AddTopLevelTextElement("Empty", ""));
    EXPECT_FALSE(helper.AddTopLevelTextElement("1st", "x"));  // not an XML name
    EXPECT_FALSE(helper.AddTopLevelTextElement("", "x"));

    std::string text;
    EXPECT_TRUE(helper.FindTextA("/Plates/Note", text));
    EXPECT_EQ(text, "a<b & 'c'");
    long long total = 0;
    EXPECT_TRUE(helper.FindTextA("/Plates/*[last() - 1]", total));
    EXPECT_EQ(total, -9000000000LL);
    EXPECT_TRUE(helper.FindTextA("/Plates/Empty", text));
    EXPECT_EQ(text, "");

    xmlChar *written = nullptr;
    int size = 0;
    xmlDocDumpMemory(document_, &written, &size);
    const std::string document(reinterpret_cast<const char *>(written), size);
    xmlFree(written);
    EXPECT_NE(document.find("<Word>abc</Word><Note>a&lt;b &amp; 'c'</Note><Total>-9000000000</Total><Empty/></Plates>"),
              std::string::npos)
        << document;
}

TEST(DOMHelperWithoutADocument, EveryOperationIsFalse) {
    xmlDocPtr none = nullptr;
    xmlDocPtr rootless = xmlNewDoc(reinterpret_cast<const xmlChar *>("1.0"));
    for (xmlDocPtr *document : {&none, &rootless}) {
        CDOMHelper helper(*document);
        std::string text = "untouched";
        std::vector<std::string> texts;
        long long value = 1;
        EXPECT_FALSE(helper.AddTopLevelTextElement("Note", "x"));
        EXPECT_FALSE(helper.FindTextA("/*", text));
        EXPECT_FALSE(helper.FindTextA("//*", texts));
        EXPECT_FALSE(helper.FindTextA("/*", value));
        EXPECT_FALSE(helper.FindAttribute("/*", "a", text));
        EXPECT_FALSE(helper.FindAttribute("//*", "a", texts));
        EXPECT_EQ(text, "untouched");
        EXPECT_TRUE(texts.empty());
        EXPECT_EQ(value, 1);
    }
    xmlFreeDoc(rootless);
}

}  // namespace
