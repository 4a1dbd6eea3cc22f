// The rest of the metadata family's hand-written logic: labware queries,
// storage slots, compile results and the name tables.
#include <gtest/gtest.h>

#include "qor/records/metadata.h"

using M = MetaDataManager;

namespace {

// A labware answer as devices send it, with a given root, file, response
// element, category and first child.
std::string Answer(const char *root, const char *file, const char *element, const char *category, const char *first) {
    return std::string("<?xml version='1.0' ?><") + root + " file='" + file + "'><" + element + " Category='" +
           category + "'><" + first + "><Parameter Name='Height' Value='14.2' /><Parameter Name='Wells' />" +
           "<Parameter Name='Height' Value='second' /></" + first + "></" + element + "></" + root + ">";
}

TEST(LabwareQuery, AsksForOneLabwareAndReadsOneAttributeOfTheAnswer) {
    std::string text;
    M::GenerateLabwareAttributeQuery("96 PCR", text);
    const M::Query query(text);
    EXPECT_NE(text.find("file='Query'"), std::string::npos);
    EXPECT_EQ(query.Category, "Labware");
    ASSERT_EQ(query.Parameters.size(), 1u);
    EXPECT_EQ(query.Parameters[0].Name, "Labware_Entry");
    EXPECT_EQ(query.Parameters[0].Value, "96 PCR");

    struct Case {
        std::string xml;
        const char *attribute;
        bool ok;
        const char *valueOrError;
    };
    const char *incorrect = "labware query returned incorrect data";
    const Case cases[] = {
        {Answer("Brindlemar", "QueryResponse", "Response", "Labware", "Parameters"), "Height", true, "14.2"},
        {Answer("Brindlemar", "QueryResponse", "Response", "Labware", "Parameters"), "Wells", true, ""},
        {Answer("Brindlemar", "QueryResponse", "Response", "Labware", "Parameters"), "Depth", false,
         "labware query did not return desired data"},
        {Answer("Brindlemar", "QueryResponse", "Response", "Labware", "Parameters"), "height", false,
         "labware query did not return desired data"},
        {Answer("Root", "QueryResponse", "Response", "Labware", "Parameters"), "Height", false, incorrect},
        {Answer("Brindlemar", "Query", "Response", "Labware", "Parameters"), "Height", false, incorrect},
        {Answer("Brindlemar", "QueryResponse", "Query", "Labware", "Parameters"), "Height", false, incorrect},
        {Answer("Brindlemar", "QueryResponse", "Response", "Barcode", "Parameters"), "Height", false, incorrect},
        {Answer("Brindlemar", "QueryResponse", "Response", "Labware", "Values"), "Height", false, incorrect},
        {"<?xml version='1.0' ?><Brindlemar file='QueryResponse' />", "Height", false, incorrect},
        {"<Brindlemar file='QueryResponse' />", "Height", false, "labware query returned invalid xml"},
        {"<?xml version='1.0' ?><Brindlemar><Response", "Height", false, "labware query returned invalid xml"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.xml + " / " + c.attribute);
        std::string value = "untouched", error = "untouched";
        EXPECT_EQ(M::ParseLabwareAttributeResponse(c.xml, "96 PCR", c.attribute, value, error), c.ok);
        EXPECT_EQ(c.ok ? value : error, c.valueOrError);
        EXPECT_EQ(c.ok ? error : value, "untouched");
    }
}

TEST(LabwareQuery, TakesTheLabwareOfAPlate) {
    struct Case {
        const char *xml;
        bool ok;
        const char *labwareOrError;
    };
    const char *incorrect = "plate info contained incorrect data";
    const Case cases[] = {
        {"<?xml version='1.0' ?><Plates file='PlateInfo'><Plate Labware='96 PCR' /><Plate Labware='x' /></Plates>",
         true, "96 PCR"},
        {"<?xml version='1.0' ?><Plates file='PlateInfo'><Plate Labware='' /></Plates>", true, ""},
        {"<?xml version='1.0' ?><Plates file='PlateInfo'><Plate Name='p' /></Plates>", false, incorrect},
        {"<?xml version='1.0' ?><Plates file='PlateInfo'><Lid /><Plate Labware='x' /></Plates>", false, incorrect},
        {"<?xml version='1.0' ?><Plates file='MetaData'><Plate Labware='x' /></Plates>", false, incorrect},
        {"<?xml version='1.0' ?><Brindlemar file='PlateInfo'><Plate Labware='x' /></Brindlemar>", false, incorrect},
        {"<?xml version='1.0' ?><Plates file='PlateInfo' />", false, incorrect},
        {"<Plates file='PlateInfo'><Plate Labware='x' /></Plates>", false, "plate info contained invalid xml"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.xml);
        std::string labware, error;
        EXPECT_EQ(M::ExtractLabwareNameFromPlateInfo(c.xml, labware, error), c.ok);
        EXPECT_EQ(c.ok ? labware : error, c.labwareOrError);
    }
}

TEST(Storage, SlotsAreNamedByTheirCoordinates) {
    M::StorageDimensions dimensions;
    dimensions.Name0 = "Cassette";
    dimensions.Name1 = "Slot";
    const M::StorageLocation slot = dimensions.GetStorageLocation(3, -17);
    ASSERT_EQ(slot.Coordinates.size(), 2u);
    EXPECT_EQ(slot.Coordinates[1].Name, "Slot");
    EXPECT_EQ(slot.GetStorageLocationName(), "Cassette 3, Slot -17");

    M::StorageLocation single;
    EXPECT_EQ(single.GetStorageLocationName(), "");
    single.AddCoordinate("Shelf", 2);
    EXPECT_EQ(single.GetStorageLocationName(), "Shelf 2");
    single.AddCoordinate("", 0);
    EXPECT_EQ(single.GetStorageLocationName(), "Shelf 2,  0");
}

TEST(CompileResult, AddErrorAppendsInOrder) {
    M::CompileResult result;
    result.AddError("no plate at Stage", M::CompilerErrorType{2});
    result.AddError("", M::CompilerErrorType{0});
    ASSERT_EQ(result.CompilerErrors.size(), 2u);
    EXPECT_EQ(result.CompilerErrors[0].Value, "no plate at Stage");
    EXPECT_EQ(result.CompilerErrors[0].ErrorType, 2);
    EXPECT_EQ(result.CompilerErrors[1].ErrorType, 0);
}

TEST(NameTables, KeepTheSuitesTextsQuirksIncluded) {
    // Editor types name their bits, lowest first.
    const char *bits[] = {"hidden", "primary", "secondary", "pre/post", "omnipresent"};
    EXPECT_STREQ(M::EditorTypeNames[0], "none");
    for (int value = 1; value < 32; ++value) {
        std::string name;
        for (int bit = 0; bit < 5; ++bit) {
            if (value & (1 << bit)) name += (name.empty() ? "" : " & ") + std::string(bits[bit]);
        }
        EXPECT_EQ(M::EditorTypeNames[value], name) << value;
    }
    EXPECT_EQ(std::string(M::LocationTypeNames[6]).size(), 53u);
    EXPECT_STREQ(M::LocationTypeNames[7], "incubate access");
    EXPECT_STREQ(M::LocationTypeNames[22], "lidding & storage & stack & normal");
    EXPECT_STREQ(M::LocationTypeNames[30], "lidding & inclubate & storage & stack & normal access");
    EXPECT_STREQ(M::PreferredTabs[6], "All");
}

}  // namespace
