// Tip states: the single barrel rewrite, the copies from a saved file, and
// the property bag the user edits, both ways.
#include <gtest/gtest.h>

#include "PipetteTestSupport.h"

namespace {

using namespace pipette_test;
using ObjectInstanceXMLMarshaller::ObjectInstance;

TipBoxState Box(int wells, std::initializer_list<std::pair<int, std::vector<Well>>> positions,
                PipetteHeadMode mode = Mode(CHANNELS_96, 8, 12)) {
    TipBoxState box;
    box.NumWells = wells;
    box.PipetteHeadMode = mode;
    for (const auto &[state, baseWells] : positions) {
        TipPosition &position = box.TipPositions.emplace_back();
        position.State = TipPositionState(state);
        position.Wells = baseWells;
    }
    return box;
}

TEST(TipState, SingleBarrelKeepsStatesZeroAndOneSpreadOverTheHead) {
    TipBoxState box = Box(384, {{1, Wells({{1, 1}})}, {2, Wells({{0, 1}})}, {0, Wells({{0, 0}})},
                                {7, Wells({{1, 0}})}, {0, Wells({{15, 23}, {-1, 0}})}});
    box.ConvertToSingleBarrelHeadMode();
    ASSERT_EQ(box.TipPositions.size(), 2u);
    EXPECT_EQ(box.TipPositions[0].State, 0);
    // (15, 23) is no base: its head runs off the plate, and only it is left.
    std::vector<Well> zero = Grid(0, 0, 8, 12, 2);
    zero.emplace_back(15, 23);
    EXPECT_EQ(Text(box.TipPositions[0].Wells), Text(zero));
    EXPECT_EQ(box.TipPositions[1].State, 1);
    EXPECT_EQ(Text(box.TipPositions[1].Wells), Text(Grid(1, 1, 8, 12, 2)));
    PipetteHeadMode single = Mode(CHANNELS_96, 1, 1);
    single.SubsetType = SUBSET_SINGLE_BARREL;
    EXPECT_EQ(box.PipetteHeadMode, single);

    TipBoxState unknown = Box(100, {{0, Wells({{0, 0}})}});
    unknown.ConvertToSingleBarrelHeadMode();
    ASSERT_EQ(unknown.TipPositions.size(), 2u);
    EXPECT_TRUE(unknown.TipPositions[0].Wells.empty());
}

ProcessTipBox Process(const std::string &name, TipBoxState state) {
    ProcessTipBox process;
    process.ProcessName = name;
    process.TipBoxState = std::move(state);
    return process;
}

TEST(TipState, ProcessCopiesNeedTheNameAndTheSize) {
    const TipBoxState used = Box(96, {{1, Wells({{0, 0}})}}, Mode(CHANNELS_96, 1, 12));
    struct Row {
        const char *what;
        ProcessTipBox target;
        bool copied;
    };
    const Row table[] = {
        {"same process", Process("Tips", Box(96, {})), true},
        {"another size", Process("Tips", Box(384, {})), false},
        {"another process", Process("Other", Box(96, {})), false},
    };
    for (Row row : table) {
        ProcessTipBox::CopyTipStates(row.target, Process("Tips", used), false);
        EXPECT_EQ(row.target.TipBoxState == used, row.copied) << row.what;
    }

    ProcessTipBoxes target, source;
    target.Processes = {Process("A", Box(96, {})), Process("A", Box(96, {}))};
    source.Processes = {Process("A", used), Process("C", used)};
    ProcessTipBoxes without = target;
    ProcessTipBoxes::CopyTipStates(without, source, true, false);
    ASSERT_EQ(without.Processes.size(), 2u);
    EXPECT_EQ(without.Processes[0].TipBoxState, used);
    EXPECT_EQ(without.Processes[1].TipBoxState, Box(96, {}));  // the first of a name wins
    ProcessTipBoxes::CopyTipStates(target, source, false, true);
    ASSERT_EQ(target.Processes.size(), 3u);
    EXPECT_EQ(target.Processes[2], source.Processes[1]);

    target.Protocol = source.Protocol = "a.pro";
    EXPECT_TRUE(ProcessTipBoxes::AreProcessesEqual(target, source, false));
    source.Protocol = "b.pro";
    EXPECT_FALSE(ProcessTipBoxes::AreProcessesEqual(target, source, true));
}

TipBoxDevice Device(const std::string &name, std::initializer_list<std::tuple<const char *, bool, int>> locations) {
    TipBoxDevice device;
    device.DeviceName = name;
    for (const auto &[location, hasBox, wells] : locations) {
        device.AddLocation(location);
        device.Locations.back().HasTipBox = hasBox;
        device.Locations.back().TipBoxState.NumWells = wells;
    }
    return device;
}

TEST(TipState, DeviceCopiesNeedTheFileTheDeviceTheLocationBothBoxesAndTheSize) {
    TipBoxDevices target, source;
    target.DeviceFile = source.DeviceFile = "deck.dev";
    target.Devices = {Device("Deck", {{"P1", true, 96}, {"P2", false, 96}, {"P3", true, 384}, {"P4", true, 96}})};
    source.Devices = {Device("Deck", {{"P1", true, 96}, {"P2", true, 96}, {"P3", true, 96}, {"P5", true, 96}}),
                      Device("Elsewhere", {{"P1", true, 96}})};
    for (TipBoxLocation &location : source.Devices[0].Locations) location.TipBoxState.TipPositions.resize(1);

    TipBoxDevices otherFile = target;
    otherFile.DeviceFile = "other.dev";
    TipBoxDevices::CopyTipStates(otherFile, source);
    EXPECT_TRUE(otherFile.Devices[0].Locations[0].TipBoxState.TipPositions.empty());
    EXPECT_TRUE(TipBoxDevices::AreDevicesAndLocationsEqual(target, source));
    EXPECT_FALSE(TipBoxDevices::AreDevicesAndLocationsEqual(otherFile, source));

    TipBoxDevices::CopyTipStates(target, source);
    const auto &locations = target.Devices[0].Locations;
    const bool copied[] = {true, false, false, false};  // P1 only: P2 has no box, P3 another size, P4 no source
    for (int i = 0; i < 4; ++i) EXPECT_EQ(locations[i].TipBoxState.TipPositions.size(), copied[i] ? 1u : 0u) << i;
    EXPECT_FALSE(locations[1].HasTipBox);
}

TEST(TipState, ProcessBoxesAsAPropertyBagAndBack) {
    ProcessTipBoxes boxes;
    boxes.Protocol = "C:\\protocols\\run.pro";
    boxes.Processes = {Process("Tips", Box(96, {{0, Wells({{0, 0}})}})), Process("Once", Box(384, {}))};
    boxes.Processes[0].Instances.resize(1);
    boxes.Processes[0].Instances[0].Instance = "2";
    boxes.Processes[0].Instances[0].TipBoxState = Box(96, {{1, Wells({{0, 0}})}});
    boxes.Processes[1].IsSingleInstance = true;

    ObjectInstance instance;
    instance.BaseObjectDescription.Categories.resize(1);  // replaced with the file
    boxes.ConvertToObjectInstance(instance, true, false);
    const auto &categories = instance.BaseObjectDescription.Categories;
    ASSERT_EQ(categories.size(), 3u);
    EXPECT_EQ(categories[0].Name, "Tip tracking info");
    EXPECT_EQ(categories[0].Parameters.at(0).Name, "Full file path");
    EXPECT_EQ(categories[0].Parameters.at(0).Value, boxes.Protocol);
    EXPECT_EQ(categories[1].Description, "Tip states related to instances of \"Tips\".");
    ASSERT_EQ(categories[1].Parameters.size(), 2u);
    const auto &state = categories[1].Parameters[0];
    EXPECT_EQ(state.Name, "State");
    EXPECT_EQ(state.Type, 23);
    EXPECT_EQ(state.Description,
              "Tip state of all instances of process tipbox \"Tips\" when they are sourced into the system.");
    EXPECT_EQ(state.Value, boxes.Processes[0].TipBoxState.ToXMLString());
    EXPECT_EQ(categories[1].Parameters[1].Name, "2");
    EXPECT_EQ(categories[1].Parameters[1].Description, "Tip state of instance \"2\" of process tipbox \"Tips\".");
    EXPECT_EQ(categories[2].Parameters.at(0).Description, "Tip state of \"Once\".");

    ProcessTipBoxes read;
    read.ConvertFromObjectInstance(instance);
    EXPECT_EQ(read.Protocol, boxes.Protocol);
    ASSERT_EQ(read.Processes.size(), 2u);
    EXPECT_EQ(read.Processes[0].TipBoxState, boxes.Processes[0].TipBoxState);
    EXPECT_EQ(read.Processes[0].Instances, boxes.Processes[0].Instances);

    ObjectInstance without;
    boxes.ConvertToObjectInstance(without, false, true);
    ASSERT_EQ(without.BaseObjectDescription.Categories.size(), 2u);
    EXPECT_EQ(without.BaseObjectDescription.Categories[0].Parameters.size(), 1u);

    // A state that isn't a document changes nothing.
    instance.BaseObjectDescription.Categories[2].Parameters[0].Value = "<broken";
    EXPECT_THROW(read.ConvertFromObjectInstance(instance), XMLParserException);
    EXPECT_EQ(read.Processes.size(), 2u);
}

TEST(TipState, StaticBoxesAsAPropertyBagAndBack) {
    TipBoxDevices devices;
    devices.DeviceFile = "deck.dev";
    devices.Devices = {Device("Deck", {{"P1", true, 384}, {"P2", false, 96}})};

    ObjectInstance instance;
    instance.ModuleObjectDescriptions.resize(2);  // replaced with the one module
    devices.ConvertToObjectInstance(instance, false);
    EXPECT_TRUE(instance.BaseObjectDescription.Categories.empty());
    ASSERT_EQ(instance.ModuleObjectDescriptions.size(), 1u);
    const auto &module = instance.ModuleObjectDescriptions[0];
    EXPECT_EQ(module.ModuleName, "Static Tip Boxes");
    EXPECT_EQ(module.ModuleDescription, "Tip states for statically placed tip boxes.");
    EXPECT_EQ(module.ObjectType, "TipBoxDevices");
    ASSERT_EQ(module.Categories.size(), 1u);
    EXPECT_EQ(module.Categories[0].Description, "Tip states for static tipboxes on \"Deck\".");
    const auto &parameters = module.Categories[0].Parameters;
    ASSERT_EQ(parameters.size(), 2u);
    EXPECT_EQ(parameters[0].Description, "Tip states for static tipboxes on \"P1\".");
    EXPECT_EQ(parameters[0].Type, 23);
    EXPECT_EQ(parameters[1].Type, 1);
    EXPECT_EQ(parameters[1].Value, "No automatic tip selection");

    devices.ConvertToObjectInstance(instance, true);
    TipBoxDevices read;
    read.ConvertFromObjectInstance(instance);
    EXPECT_EQ(read.DeviceFile, "deck.dev");
    ASSERT_EQ(read.Devices.size(), 1u);
    ASSERT_EQ(read.Devices[0].Locations.size(), 2u);
    EXPECT_EQ(read.Devices[0].Locations[0], devices.Devices[0].Locations[0]);
    EXPECT_FALSE(read.Devices[0].Locations[1].HasTipBox);
}

TEST(TipState, HandWrittenMembersOfTheTipAndVolumeRecords) {
    TipChanges changes;
    changes.AddTipChange(TipChangeType(3), 200.0);
    ASSERT_EQ(changes.TipChanges_.size(), 1u);
    EXPECT_EQ(changes.TipChanges_[0].Operation, 3);
    EXPECT_EQ(changes.TipChanges_[0].TipCapacity, 200.0);
    EXPECT_TRUE(changes.TipChanges_[0].MarkTipsOffAsUsed);

    VolumeChanges volumes;
    volumes.AddVolumeChange(VolumeChangeType(2), -5.5, "<selection>", "Plate 1", "dropped");
    ASSERT_EQ(volumes.VolumeChanges_.size(), 1u);
    EXPECT_EQ(volumes.VolumeChanges_[0].VolumeChange_, -5.5);
    EXPECT_EQ(volumes.VolumeChanges_[0].WellSelection, "<selection>");
    EXPECT_EQ(volumes.VolumeChanges_[0].Plate, "Plate 1");

    WellSelection selection;
    selection.IsLinked_ = true;
    EXPECT_FALSE(selection.IsLinked());
    selection.CanBeLinked = true;
    EXPECT_TRUE(selection.IsLinked());
}

}  // namespace
