// What a person checks by eye: the wells of a plate marked by what a record
// says of them. A well selection marks its wells and the wells its head mode
// reaches from them; a head mode its footprint from the first well; a tip
// box the tip state of every well, its base wells spread over the barrels of
// its head mode. qor plate show draws these maps as text and SVG.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qor/xml/XMLParser.h"

namespace PipetteXMLMarshaller {
class PipetteHeadMode;
class TipBoxState;
class Well;
class WellSelection;
}  // namespace PipetteXMLMarshaller

namespace qor::pipette {

enum class WellMark : std::uint8_t {
    Empty,
    Selected,  // a well the record lists: a selected well, the head's first barrel
    Reached,   // a well the head touches from a selected one
    TipState0,
    TipState1,
    TipState2,
    TipState3,
};
inline constexpr int WellMarkCount = 7;

// What a map shows: the marks of a selection and of a head's footprint are
// Empty, Selected and Reached; those of a tip box Empty and the tip states.
enum class PlateKind : std::uint8_t { Selection, HeadMode, TipBox };

struct PlateMap {
    std::string title;   // where the plate stands in the record
    std::string detail;  // the head mode, what is counted
    int wells = 0;  // a size WellCountToPlateDimensions knows
    int rows = 0;
    int columns = 0;
    std::vector<WellMark> marks;  // rows x columns, row by row
    int offPlate = 0;             // listed wells that lie off the plate, not drawn
    PlateKind kind = PlateKind::Selection;

    WellMark At(int row, int column) const { return marks[static_cast<std::size_t>(row * columns + column)]; }
};

// The plate of a selection or head mode when none is given: the smallest
// of 96, 384, 1536 and 3456 wells on which the head has a spacing ratio
// and every well lies; 96 when none is.
int PlateForHead(const PipetteXMLMarshaller::PipetteHeadMode &mode,
                 const std::vector<PipetteXMLMarshaller::Well> &wells);

// wells must be a plate size WellCountToPlateDimensions knows.
PlateMap MapSelection(const PipetteXMLMarshaller::WellSelection &selection, int wells);
PlateMap MapHeadMode(const PipetteXMLMarshaller::PipetteHeadMode &mode, int wells);
// On the box's own NumWells; false, with error set, for a size that isn't a plate.
bool MapTipBox(const PipetteXMLMarshaller::TipBoxState &box, PlateMap &map, std::string &error);

// Every plate that a record element holds (a selection, a head mode or
// head, tip boxes however deeply kept, the selection text of tip and
// volume changes), titled by where it stands. wells gives the plate of
// selections and head modes; 0 picks it by PlateForHead. False, with error
// set, for an element that holds no plate or a plate that can't be drawn.
bool MapRecord(const XMLParser::XMLNode &element, int wells, std::vector<PlateMap> &maps, std::string &error);

// The label of a row, counted from 0: A to Z, then AA, AB, ...
std::string RowLabel(int row);

}  // namespace qor::pipette
