// Every pipetting record from arbitrary text, and the head geometry, tip
// state conversions and plate maps on what was read. A record must write a
// document that reads back to the same text; geometry must answer within
// the plate, sorted and culled where the rules say so.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qor/records/RecordRegistry.h"
#include "qor/records/pipette.h"
#include "qor/records/pipette/PipetteRecordTypes.h"
#include "qor/xml.h"

using namespace PipetteXMLMarshaller;
using ObjectInstanceXMLMarshaller::ObjectInstance;
using ObjectInstanceXMLMarshaller::Parameter;

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// The document of the record that type reads from document.
std::string ReadBack(const qor::RecordType &type, const std::string &document) {
    XMLReader reader;
    reader.ReadFromBuffer(document, false);
    Require(!reader.children.empty());
    return type.fromNode(reader.children.front())->ToXMLString();
}

bool StrictlySorted(const std::vector<Well> &wells) {
    return std::adjacent_find(wells.begin(), wells.end(), [](const Well &a, const Well &b) { return !(a < b); }) ==
           wells.end();
}

void Geometry(const WellSelection &selection) {
    const PipetteHeadMode &mode = selection.PipetteHeadMode;
    const std::vector<Well> &wanted = selection.Wells;
    for (int wells : {96, 384, 1536, 3456, 100}) {
        int rows = 0, columns = 0, ratio = 0, reason = 0, quadrant = 0;
        const bool known = PipetteHeadMode::WellCountToPlateDimensions(wells, rows, columns);
        const bool spaced = PipetteHeadMode::GetHeadWellSpacingRatio(mode, wells, ratio);
        std::vector<Well> valid;
        PipetteHeadMode::ValidateSelection(mode, wells, wanted, valid);
        Require(StrictlySorted(valid));
        Require(known || valid.empty());
        for (const Well &base : valid)
            Require(base.Row >= 0 && base.Row < rows && base.Column >= 0 && base.Column < columns);
        PipetteHeadMode::IsSetPerfect(mode, wells, wanted);
        std::vector<Well> set;
        Require(PipetteHeadMode::GetSmallestUniqueSet(mode, wells, set) == (known && spaced));
        Require(StrictlySorted(set) && set.size() <= static_cast<std::size_t>(rows * columns));
        for (std::size_t i = 0; i < wanted.size() && i < 64; ++i) {
            Well base;
            if (PipetteHeadMode::GetBaseSelectionWell(mode, wells, wanted[i], base)) {
                Require(base.Row >= 0 && base.Row <= wanted[i].Row && base.Column >= 0 &&
                        base.Column <= wanted[i].Column);
            }
            PipetteHeadMode::GetExtendedSetFromBaseWell(mode, wells, wanted[i], set);
            Require(set.size() <= static_cast<std::size_t>(rows * columns));
            PipetteHeadMode::WellToQuadrant(mode, wells, wanted[i], quadrant);
        }
        PipetteHeadMode::AreHeadAndLabwareCompatible(mode, wells, selection.StartingQuadrant, reason,
                                                     selection.OnlyOneSelection);
    }
    std::vector<Well> culled = wanted;
    Well::SortAndCullWells(culled);
    Require(StrictlySorted(culled));
    PipetteHeadMode reset = mode;
    reset.ResetHeadRowColumnCount();
    int rows = reset.RowCount, columns = reset.ColumnCount;
    PipetteHeadMode::OrientHeadRowColumnCount(mode.SubsetConfig, mode.Channels, rows, columns);
}

void TipStates(const XMLParser::XMLNode &element) {
    TipBoxState box(element);
    box.ConvertToSingleBarrelHeadMode();
    TipBoxState again = box;
    again.ConvertToSingleBarrelHeadMode();
    Require(again == box && box.TipPositions.size() == 2);

    ProcessTipBoxes processes(element);
    ObjectInstance instance;
    processes.ConvertToObjectInstance(instance, true, false);
    TipBoxDevices devices(element);
    devices.ConvertToObjectInstance(instance, false);
    ProcessTipBoxes::CopyTipStates(processes, ProcessTipBoxes(processes), false, true);
    TipBoxDevices::CopyTipStates(devices, TipBoxDevices(devices));
    try {
        processes.ConvertFromObjectInstance(instance);
        devices.ConvertFromObjectInstance(instance);
    } catch (const XMLParserException &) {
        // a tip state that isn't a document, as a user may type
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    Parameter parameter;
    parameter.Type = ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT;
    parameter.Value = text;
    std::string upgraded;
    try {
        WellSelection::IsWellSelectionUpgraded(parameter, text, upgraded);
    } catch (const XMLParserException &) {
    }
    parameter.Type = ObjectInstanceXMLMarshaller::PARAMETER_TYPE_PIPETTE_HEAD_MODE;
    try {
        PipetteHeadMode::IsHeadModeUpgraded(parameter, "Use last row of barrels on head", upgraded);
    } catch (const XMLParserException &) {
    }

    XMLReader reader;
    try {
        reader.ReadFromBuffer(text, false);
    } catch (const XMLParserException &) {
        return 0;
    }
    if (reader.children.empty()) return 0;
    const XMLParser::XMLNode &element = reader.children.front();

    // Each record reads whatever element it is given. The one the element
    // names must come back whole from its own document once that document
    // is normal: a string read empty is left out and reads back as its
    // default, so the first document may differ from the second.
    for (const qor::RecordType &type : RecordTypes()) {
        const auto record = type.fromNode(element);
        ObjectInstance shown;
        type.toObjectInstance(*record, shown);
        if (element.name != type.elementName) continue;
        const std::string normal = ReadBack(type, record->ToXMLString());
        Require(ReadBack(type, normal) == normal);
    }
    Geometry(WellSelection(element));
    TipStates(element);
    PipetteHead head(element);
    PipetteHead::IsHeadUpgraded(element, head);
    std::vector<qor::pipette::PlateMap> maps;
    std::string error;
    for (int wells : {0, 1536}) qor::pipette::MapRecord(element, wells, maps, error);
    return 0;
}
