// What the walk over every record type can't see: the exact bytes of each
// kind of field, lenient reading, the category a property bag is read from,
// hand-written property bags, and text that is no document.
#include <gtest/gtest.h>

#include "marshal/MarshalTestSupport.h"
#include "SampleRecords.h"
#include "qor/records/hooks.h"
#include "qor/xml.h"

using HooksPluginXMLMarshaller::ProtocolPaused;
using ObjectInstanceXMLMarshaller::ObjectInstance;
using ObjectInstanceXMLMarshaller::Parameter;
using marshal_test::ParameterRow;
using marshal_test::RecordText;
using SampleRecords::Sample;

namespace {

// A record's exact text and the rows it shows as a property bag.
template <class Record>
void ExpectTextAndRows(const Record &record, const std::string &text, const std::vector<ParameterRow> &rows) {
    EXPECT_EQ(RecordText(record.ToXMLString()), text);
    EXPECT_EQ(marshal_test::RowsOf(record), rows);
}

TEST(ProtocolPausedText, ReadsWhatIsThereAndKeepsDefaultsForTheRest) {
    struct Case {
        const char *document;
        const char *path;
        int pauseType;
    };
    const Case cases[] = {
        {"<Brindlemar><ProtocolPaused Path='' /></Brindlemar>", "", 0},  // present but empty: overwrites
        {"<Anything><Aborted Path='p' PauseType='4' Other='x'><Junk /></Aborted></Anything>", "p", 4},
        {"<Brindlemar />", "<not specified>", 0},
        {"<Brindlemar>text</Brindlemar>", "<not specified>", 0},
        // numbers read as their leading number, clamped to 32 bits, else 0
        {"<r><ProtocolPaused PauseType='12abc' /></r>", "<not specified>", 12},
        {"<r><ProtocolPaused PauseType='0x1F' /></r>", "<not specified>", 0},
        {"<r><ProtocolPaused PauseType='-2147483649' /></r>", "<not specified>", INT32_MIN},
        {"<r><ProtocolPaused PauseType='99999999999999999999999' /></r>", "<not specified>", INT32_MAX},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.document);
        const ProtocolPaused paused(std::string("<?xml version='1.0' ?>") + c.document);
        EXPECT_EQ(paused.Path, c.path);
        EXPECT_EQ(paused.PauseType, c.pauseType);
    }
}

TEST(ProtocolPausedText, NotADocumentThrowsTheParserException) {
    struct Case {
        const char *text;
        int code;
    };
    const Case cases[] = {
        {"", 2},                                      // no tags at all
        {"<ProtocolPaused PauseType='1' />", 2},      // no header
        {"<?xml version='1.1' ?><a />", 2},           // wrong version
        {"<?xml version='1.0' ?>", 3},                // no root
        {"<?xml version='1.0' ?><a><ProtocolPaused>", 4},  // open elements
        {"<?xml version='1.0' ?><a b=1 />", 5},       // unquoted value
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text);
        try {
            ProtocolPaused paused{std::string(c.text)};
            ADD_FAILURE() << "built a record from bad text";
        } catch (const XMLParserException &e) {
            EXPECT_EQ(e.code, c.code);
        }
    }
}

TEST(ProtocolPausedObjectInstance, ReadsTheFirstUnnamedCategoryElseTheFirst) {
    ObjectInstance instance;
    auto &categories = instance.BaseObjectDescription.Categories;
    categories.resize(3);
    categories[0].Name = "A";
    Parameter::AddParameterInt(categories[0].Parameters, "PauseType", 1L);
    categories[1].Name = "B";
    Parameter::AddParameterInt(categories[1].Parameters, "PauseType", 2L);
    categories[2].Name = "";
    Parameter::AddParameterString(categories[2].Parameters, "PauseType", "3 and more");

    ProtocolPaused paused;
    paused.FromObjectInstance(instance);
    EXPECT_EQ(paused.PauseType, 3);
    EXPECT_EQ(paused.Path, "<not specified>");  // missing Parameter: field kept

    categories.pop_back();
    paused.FromObjectInstance(instance);
    EXPECT_EQ(paused.PauseType, 1);

    categories.clear();
    paused.PauseType = 42;
    paused.FromObjectInstance(instance);  // no category at all: nothing changes
    EXPECT_EQ(paused.PauseType, 42);
}

// ---- every kind of field, through the sample records

TEST(SampleRecord, DoublesGoOutWithSixDigitsAndComeBackSo) {
    struct Case {
        double value;
        const char *text;
        double readBack;
    };
    const Case cases[] = {
        {0.5, "0.5", 0.5},           {1000, "1000", 1000},          {1e6, "1e+06", 1e6},
        {1234567.0, "1.23457e+06", 1234570.0}, {0.1, "0.1", 0.1},  {-2.5e-7, "-2.5e-07", -2.5e-7},
        {1.0 / 3, "0.333333", 0.333333},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text);
        Sample sample;
        sample.Real = c.value;
        const XMLParser::XMLNode node = sample.ToXMLNode();
        EXPECT_EQ(node.attributes.at("Real"), c.text);
        EXPECT_EQ(Sample(sample.ToXMLString()).Real, c.readBack);
        ObjectInstance instance;
        sample.ToObjectInstance(instance);  // the property bag keeps ten digits
        EXPECT_EQ(Convert<double>(instance.BaseObjectDescription.Categories[0].Parameters[3].Value),
                  Convert<double>(Convert<std::string>(c.value)));
    }
}

TEST(SampleRecord, ListsAppendAndChildrenTakeTheLast) {
    const Sample sample(std::string(
        "<?xml version='1.0' ?><r><Sample Capacity='12.5' Colour='junk' Unsigned='-1'>"
        "<Names><Value Value='x' /><Other /></Names><Names><Value Value='y' /></Names>"
        "<Items><LabelledItem Label='l' Extra='e' /></Items>"
        "<Item Label='one' /><Item Label='two' /><LabelledItem Label='three' /></Sample></r>"));
    EXPECT_EQ(sample.Names, (std::vector<std::string>{"x", "", "y"}));
    ASSERT_EQ(sample.Items.size(), 1u);
    EXPECT_EQ(sample.Items[0].Label, "l");
    EXPECT_EQ(sample.Single.Label, "two");
    EXPECT_EQ(sample.Capacity, 12.0);  // read as a long: the fraction is lost
    EXPECT_EQ(sample.Colour, SampleRecords::HUE_RED);
    EXPECT_EQ(sample.Unsigned, 4294967295u);
}

TEST(SampleRecord, HandWrittenPropertyBagBesideTheGeneratedFrame) {
    SampleRecords::Versioned versioned;
    versioned.Version = "7.2";
    versioned.Revision = 3;
    ExpectTextAndRows(versioned, "\t<Versioned Revision='3' Version='7.2' />",
                      {{"Properties", "Version", 1, "1.0", ""}, {"Properties", "Revision", 8, "3", ""}});
    ObjectInstance instance;
    versioned.ToObjectInstance(instance);
    SampleRecords::Versioned back;
    back.FromObjectInstance(instance);
    EXPECT_EQ(back.Version, "");
    EXPECT_EQ(back.Revision, 3);
}

TEST(MarshallerException, WrapsAParserFailure) {
    const XMLParserException failure(4, "XMLReader::ReadFromBuffer", "Unable to read the file: EOF with open tags");
    const XMLMarshaller::XMLMarshallerException wrapped(failure);
    EXPECT_EQ(wrapped.code, 4);
    EXPECT_EQ(wrapped.function, failure.function);
    EXPECT_EQ(wrapped.message, failure.message);
    const CQorException &base = wrapped;
    EXPECT_EQ(base.message, "");
    EXPECT_EQ(base.source, "");
    EXPECT_EQ(base.code, 0);
}

}  // namespace
