#include "qor/records/pipette/WellSelection.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(WellSelection,
    child("PipetteHeadMode", &WellSelection::PipetteHeadMode),
    list("Wells", &WellSelection::Wells),
    attribute("OnlyOneSelection", &WellSelection::OnlyOneSelection).as("Only one selection"),
    attribute("OverwriteHeadMode", &WellSelection::OverwriteHeadMode).as("Overwrite Head Mode"),
    attribute("CanBeLinked", &WellSelection::CanBeLinked).as("Can be linked"),
    attribute("IsLinked", &WellSelection::IsLinked_).as("Is linked"),
    attribute("LinkedText", &WellSelection::LinkedText).as("Linked text"),
    attribute("CanBeQuadrantPattern", &WellSelection::CanBeQuadrantPattern).as("Can be a quadrant pattern"),
    attribute("CanBe16QuadrantPattern", &WellSelection::CanBe16QuadrantPattern).as("Can be a 16-quadrant pattern"),
    attribute("IsQuadrantPattern", &WellSelection::IsQuadrantPattern).as("Is a quadrant pattern"),
    enumAttribute("QuadrantPattern", &WellSelection::QuadrantPattern).as("Quadrant pattern"),
    attribute("StartingQuadrant", &WellSelection::StartingQuadrant).as("Starting quadrant"))

bool WellSelection::IsWellSelectionUpgraded(const ObjectInstanceXMLMarshaller::Parameter &parameter,
                                            const std::string &xml, std::string &upgraded) {
    if (parameter.Type != ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT) return false;
    XMLReader reader;
    reader.ReadFromBuffer(xml);
    WellSelection selection(parameter.Value);
    selection.Wells.clear();
    bool sawChannels = false, sawQuadrant = false;
    const auto number = [](const XMLParser::XMLNode &node, const char *key) {
        std::string text;
        __xml_marshaller_get_attribute__(node, key, text);
        return Convert<int>(text);
    };
    for (const XMLParser::XMLNode &child : reader.children) {
        if (child.name == "Channels") {
            selection.PipetteHeadMode.Channels = static_cast<WellSelectionChannelsType>(number(child, "Value"));
            selection.PipetteHeadMode.ResetHeadRowColumnCount();
            sawChannels = true;
        } else if (child.name == "Quadrant") {
            selection.Wells.emplace_back(number(child, "Row"), number(child, "Column"));
            sawQuadrant = true;
        }
    }
    if (!sawChannels || !sawQuadrant) return false;
    upgraded = selection.ToXMLString();
    return true;
}

}  // namespace PipetteXMLMarshaller
