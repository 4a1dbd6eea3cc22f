#include "qor/records/pipette/PipetteHead.h"

#include <algorithm>
#include <string_view>

#include "qor/marshal/RecordDefinition.h"
#include "qor/records/pipette/HeadGeometry.h"

namespace PipetteXMLMarshaller {
namespace {

// Old channel types that stood for one line of a bigger grid.
struct OldLineHead {
    WellSelectionChannelsType old;
    WellSelectionChannelsType grid;
    HeadSubsetType line;
};

constexpr OldLineHead kOldLineHeads[] = {
    {CHANNELS_8, CHANNELS_96, SUBSET_FULL_COLUMN},
    {CHANNELS_16, CHANNELS_384, SUBSET_FULL_COLUMN},
    {CHANNELS_12, CHANNELS_96, SUBSET_FULL_ROW},
    {CHANNELS_24, CHANNELS_384, SUBSET_FULL_ROW},
};

// Heads whose old channel type is their own whole grid.
struct WholeColumnHead {
    std::string_view name;
    WellSelectionChannelsType channels;
};

constexpr WholeColumnHead kWholeColumnHeads[] = {
    {"Vq7", CHANNELS_8},
    {"Zr4Q", CHANNELS_16},
};

}  // namespace

QOR_DEFINE_RECORD(PipetteHead,
    attribute("Name", &PipetteHead::Name),
    child("PipetteHeadMode", &PipetteHead::PipetteHeadMode),
    attribute("MaxRange", &PipetteHead::MaxRange).as("Maximum range"),
    attribute("MinRange", &PipetteHead::MinRange).as("Minimum range"),
    attribute("HasTips", &PipetteHead::HasTips).as("Has tips"),
    attribute("Disposable", &PipetteHead::Disposable),
    attribute("Lorvanic", &PipetteHead::Lorvanic))

bool PipetteHead::IsHeadUpgraded(const XMLParser::XMLNode &node, PipetteHead &head) {
    std::string text;
    if (!__xml_marshaller_get_attribute__(node, "Channels", text)) return false;
    const auto channels = Convert<WellSelectionChannelsType>(text);
    PipetteXMLMarshaller::PipetteHeadMode &mode = head.PipetteHeadMode;
    const bool wholeColumn = std::any_of(std::begin(kWholeColumnHeads), std::end(kWholeColumnHeads),
                                         [&](const WholeColumnHead &entry) {
                                             return entry.name == head.Name && entry.channels == channels;
                                         });
    const auto *line = std::find_if(std::begin(kOldLineHeads), std::end(kOldLineHeads),
                                    [&](const OldLineHead &entry) { return entry.old == channels; });
    if (wholeColumn || line == std::end(kOldLineHeads)) {
        mode.Channels = channels;
        mode.ResetHeadRowColumnCount();
    } else {
        mode.Channels = line->grid;
        mode.ResetHeadRowColumnCount();
        qor::pipette::BecomeLastLine(mode, line->line);
    }
    return true;
}

}  // namespace PipetteXMLMarshaller
