// What the user chose for one pipetting task: the wells, the head mode that
// reaches them, and how the selection is tied to other selections. It
// travels as the text of a Parameter of type well_select.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/PipetteHeadMode.h"
#include "qor/records/pipette/Well.h"

namespace ObjectInstanceXMLMarshaller {
class Parameter;
}

namespace PipetteXMLMarshaller {

// A pattern over the quadrants of a plate; its integers have no names here.
enum QuadrantPattern : int {};

class WellSelection : public PipetteXMLMarshallerBase {
    QOR_RECORD(WellSelection)
    PipetteXMLMarshaller::PipetteHeadMode PipetteHeadMode;
    std::vector<Well> Wells;
    bool OnlyOneSelection = false;   // one well set at most
    bool OverwriteHeadMode = false;  // this selection's head mode replaces the task's
    bool CanBeLinked = false;
    bool IsLinked_ = false;          // the field; IsLinked() is the answer to trust
    std::string LinkedText;          // what the selection is tied to
    bool CanBeQuadrantPattern = false;
    bool CanBe16QuadrantPattern = false;
    bool IsQuadrantPattern = false;  // the selection stands for a pattern, not a list of wells
    PipetteXMLMarshaller::QuadrantPattern QuadrantPattern{};
    int StartingQuadrant = 1;

    // Linked only when it both says so and may be.
    bool IsLinked() const { return IsLinked_ && CanBeLinked; }

    // Turns a selection of the older form (Channels and Quadrant children of
    // xml's root) into this record's text, starting from the Parameter's
    // value with its wells dropped. False, with upgraded untouched, unless
    // the Parameter is of type well_select and xml has both children.
    // Throws XMLParserException when xml or the Parameter's value isn't a
    // document.
    static bool IsWellSelectionUpgraded(const ObjectInstanceXMLMarshaller::Parameter &parameter,
                                        const std::string &xml, std::string &upgraded);
};

}  // namespace PipetteXMLMarshaller
