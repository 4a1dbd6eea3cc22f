// Plate maps: what a record's plates mark, and qor plate show drawing them
// in the terminal and as an SVG that the library's reader takes back.
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "PipetteTestSupport.h"
#include "marshal/MarshalTestSupport.h"
#include "support/RunCommand.h"
#include "qor/xml/XMLReader.h"

namespace {

using namespace pipette_test;
using qor::pipette::PlateMap;
using qor::pipette::WellMark;

std::map<WellMark, int> Census(const PlateMap &map) {
    std::map<WellMark, int> counts;
    for (WellMark mark : map.marks) ++counts[mark];
    return counts;
}

WellSelection Selection(const PipetteHeadMode &mode, std::vector<Well> wells) {
    WellSelection selection;
    selection.PipetteHeadMode = mode;
    selection.Wells = std::move(wells);
    return selection;
}

TEST(PlateMap, SelectionsHeadsAndTheirPlates) {
    const PlateMap whole = qor::pipette::MapSelection(Selection(Mode(CHANNELS_96, 8, 12), Wells({{0, 0}, {8, 0}})), 96);
    EXPECT_EQ(Census(whole), (std::map<WellMark, int>{{WellMark::Selected, 1}, {WellMark::Reached, 95}}));
    EXPECT_EQ(whole.At(0, 0), WellMark::Selected);
    EXPECT_EQ(whole.offPlate, 1);

    const PlateMap head = qor::pipette::MapHeadMode(Mode(CHANNELS_96, 8, 1), 384);
    EXPECT_EQ(Census(head),
              (std::map<WellMark, int>{{WellMark::Empty, 376}, {WellMark::Selected, 1}, {WellMark::Reached, 7}}));
    EXPECT_EQ(head.At(14, 0), WellMark::Reached);

    struct Row {
        PipetteHeadMode mode;
        std::vector<Well> wells;
        int plate;
    };
    const Row plates[] = {
        {Mode(CHANNELS_96, 8, 12), Wells({{7, 11}}), 96},   {Mode(CHANNELS_96, 8, 12), Wells({{20, 0}}), 1536},
        {Mode(CHANNELS_384, 16, 24), {}, 384},              {Mode(CHANNELS_32, 32, 1), {}, 1536},
        {Mode(WellSelectionChannelsType(42), 8, 12), {}, 96}, {Mode(CHANNELS_96, 1, 1), Wells({{40, 70}}), 3456},
    };
    for (const Row &row : plates)
        EXPECT_EQ(qor::pipette::PlateForHead(row.mode, row.wells), row.plate) << Text(row.wells);
    EXPECT_EQ(qor::pipette::RowLabel(0), "A");
    EXPECT_EQ(qor::pipette::RowLabel(31), "AF");
    EXPECT_EQ(qor::pipette::RowLabel(47), "AV");
}

TEST(PlateMap, EveryRecordThatHoldsPlatesTitlesThem) {
    TipBoxState box;
    box.TipPositions.resize(2);
    box.TipPositions[0].State = TIP_POSITION_STATE_2;
    box.TipPositions[0].Wells = Wells({{0, 0}, {9, 9}});
    box.TipPositions[1].State = TipPositionState(9);
    box.TipPositions[1].Wells = Wells({{5, 5}});
    box.PipetteHeadMode = Mode(CHANNELS_96, 1, 1);
    ProcessTipBoxes processes;
    processes.Processes.resize(1);
    processes.Processes[0].ProcessName = "Tips";
    processes.Processes[0].TipBoxState = box;
    processes.Processes[0].Instances.resize(1);
    processes.Processes[0].Instances[0].Instance = "2";
    TipBoxDevices devices;
    devices.Devices.resize(1);
    devices.Devices[0].DeviceName = "Deck";
    devices.Devices[0].AddLocation("Empty nest");
    TipChanges changes;
    changes.AddTipChange(TIP_CHANGE_TYPE_1, 50);
    changes.AddTipChange(TIP_CHANGE_TYPE_1, 50);
    changes.TipChanges_[1].WellSelection = Selection(Mode(CHANNELS_96, 8, 12), {}).ToXMLString();
    TipChange broken;
    broken.WellSelection = "<?xml version='1.0' ?><a>";
    TipBoxState odd = box;
    odd.NumWells = 100;

    struct Row {
        XMLParser::XMLNode element;
        std::vector<std::string> titles;  // empty: the error below
        const char *error;
    };
    const Row table[] = {
        {processes.ToXMLNode(), {"ProcessTipBox \"Tips\"", "ProcessTipBox \"Tips\", instance \"2\""}, ""},
        {changes.ToXMLNode(), {"TipChange 2"}, ""},
        {PipetteHead().ToXMLNode(), {"PipetteHead \"\""}, ""},
        {devices.ToXMLNode(), {}, "the TipBoxDevices holds no plate"},
        {broken.ToXMLNode(), {}, "TipChange: the well selection can't be read: "},
        {odd.ToXMLNode(), {}, "TipBoxState: a box of 100 wells isn't a plate size"},
        {Well().ToXMLNode(), {}, "a Well holds no plate"},
    };
    for (const Row &row : table) {
        std::vector<PlateMap> maps;
        std::string error;
        const bool mapped = qor::pipette::MapRecord(row.element, 0, maps, error);
        EXPECT_EQ(mapped, !row.titles.empty()) << row.element.name;
        EXPECT_EQ(error.rfind(row.error, 0), 0u) << error;
        std::vector<std::string> titles;
        for (const PlateMap &map : maps) titles.push_back(map.title);
        if (mapped) {
            EXPECT_EQ(titles, row.titles);
        }
    }

    std::vector<PlateMap> maps;
    std::string error;
    ASSERT_TRUE(qor::pipette::MapRecord(box.ToXMLNode(), 0, maps, error));
    EXPECT_EQ(Census(maps[0]),
              (std::map<WellMark, int>{{WellMark::Empty, 94}, {WellMark::TipState2, 1}, {WellMark::TipState3, 1}}));
    EXPECT_EQ(maps[0].offPlate, 1);
}

class PlateCommand : public testing::Test {
protected:
    using Outcome = qor_test::Ran;

    void SetUp() override {
        if (!qor_test::QorToolIsBuilt()) GTEST_SKIP() << "the qor tool isn't built";
    }
    std::string Path(const std::string &name) const { return (dir_.path() / name).string(); }
    std::string Write(const std::string &name, const std::string &text) {
        std::ofstream(Path(name)) << text;
        return Path(name);
    }
    static Outcome Run(const std::string &arguments) { return qor_test::RunQor(arguments); }
    marshal_test::TempDir dir_;
};

TEST_F(PlateCommand, DrawsASelectionInTheTerminal) {
    PipetteHeadMode column = Mode(CHANNELS_96, 8, 1);
    column.SubsetType = SUBSET_FULL_COLUMN;
    const Outcome outcome =
        Run("plate show " + Write("selection.xml", Selection(column, Wells({{0, 0}, {0, 11}})).ToXMLString()));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "WellSelection: 96-well plate\n"
              "2 wells selected, head 8 x 1 of 96 channels, Full column\n"
              "\n"
              "    1  2  3  4  5  6  7  8  9 10 11 12\n"
              "A   #  .  .  .  .  .  .  .  .  .  .  #\n"
              "B   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "C   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "D   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "E   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "F   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "G   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "H   +  .  .  .  .  .  .  .  .  .  .  +\n"
              "\n"
              "# selected   + reached by the head   . empty\n");
    // A 1536-well plate writes its column numbers in two lines.
    const Outcome wide = Run("plate show " + Path("selection.xml") + " --wells 1536");
    EXPECT_NE(wide.out.find("\n                      1 1 1"), std::string::npos) << wide.out;
    EXPECT_NE(wide.out.find("\nAC  + . . . . . . . . . . + . ."), std::string::npos) << wide.out;
}

TEST_F(PlateCommand, WritesATipBoxAsAnSvgPlateMap) {
    TipBoxState box;
    box.NumWells = 384;
    box.TipPositions.resize(2);
    box.TipPositions[0].State = TIP_POSITION_STATE_0;
    box.TipPositions[0].Wells = Wells({{0, 0}});
    box.TipPositions[1].State = TIP_POSITION_STATE_1;
    box.TipPositions[1].Wells = Wells({{1, 1}});
    const Outcome outcome = Run("plate show " + Write("box.xml", box.ToXMLString()) + " --svg " + Path("box.svg"));
    ASSERT_EQ(outcome.status, 0) << outcome.out;

    XMLReader svg;
    svg.Read(Path("box.svg").c_str());
    EXPECT_EQ(svg.name, "svg");
    EXPECT_EQ(svg.attributes["xmlns"], "http://www.w3.org/2000/svg");
    std::map<std::string, int> wellsByFill;
    std::map<std::string, std::string> tipOf;
    std::vector<std::string> texts;
    for (const XMLParser::XMLNode &element : svg.children) {
        if (element.name == "text") texts.push_back(element.text);
        if (element.name != "circle" || element.children.empty()) continue;  // the legend's swatches have no title
        ++wellsByFill[element.attributes.at("fill")];
        tipOf[element.children.front().text] = element.attributes.at("fill");
    }
    EXPECT_EQ(wellsByFill, (std::map<std::string, int>{{"#2ca02c", 96}, {"#ff7f0e", 96}, {"#ffffff", 192}}));
    EXPECT_EQ(tipOf["A1: tip state 0"], "#2ca02c");
    EXPECT_EQ(tipOf["P24: tip state 1"], "#ff7f0e");
    EXPECT_EQ(tipOf["A2: no tip state"], "#ffffff");
    for (const char *label : {"TipBoxState: 384-well plate", "tip state 2", "no tip state", "P", "24"}) {
        EXPECT_NE(std::find(texts.begin(), texts.end(), label), texts.end()) << label;
    }
}

TEST_F(PlateCommand, FailuresSayWhyAndExitNonZero) {
    struct Case {
        std::string arguments;
        int status;
        const char *says;
    };
    const Case cases[] = {
        {"plate show " + Write("well.xml", Well().ToXMLString()), 1, "a Well holds no plate"},
        {"plate show " + Path("missing.xml"), 1, "not found"},
        {"plate show " + Path("well.xml") + " --svg " + Path("no/such/folder.svg"), 1, "a Well holds no plate"},
        {"plate show " + Write("head.xml", PipetteHeadMode().ToXMLString()) + " --svg " + Path("no/such/folder.svg"), 1,
         "No such file or directory"},
        {"plate show " + Path("head.xml") + " --wells 100", 2, "no plate has 100 wells"},
        {"plate show " + Path("head.xml") + " --wells", 2, "--wells needs a value"},
        {"plate show", 2, "expects one FILE"},
        {"plate show a b", 2, "expects one FILE"},
        {"plate show a --frob", 2, "unknown option '--frob'"},
        {"plate paint", 2, "unknown sub-verb"},
        {"plate --help", 0, "usage: qor plate show FILE"},
    };
    for (const Case &c : cases) {
        const Outcome outcome = Run(c.arguments);
        EXPECT_EQ(outcome.status, c.status) << c.arguments;
        EXPECT_NE(outcome.out.find(c.says), std::string::npos) << c.arguments << "\n" << outcome.out;
    }
}

}  // namespace
