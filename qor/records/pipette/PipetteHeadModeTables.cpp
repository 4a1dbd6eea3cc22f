// The fixed tables of heads and plates. Two rows of the head table look
// like slips and are kept as the suite has always had them: CHANNELS_1 counts
// 8 channels on its single barrel, and CHANNELS_32 counts 96 (the count of
// every type without one of its own); CHANNELS_1536 has the spacing 9.0.
#include <cstddef>

#include "qor/records/pipette/HeadGeometry.h"
#include "qor/records/pipette/PipetteHeadMode.h"

namespace PipetteXMLMarshaller {
namespace {

struct HeadGrid {
    int rows;
    int columns;
    int channels;
    double spacing;
};

// Indexed by WellSelectionChannelsType.
constexpr HeadGrid kHeadGrids[WellSelectionChannelsTypeCount] = {
    {8, 12, 96, 9.0},   {16, 24, 384, 4.5}, {8, 1, 8, 9.0},   {1, 1, 8, 9.0},  {16, 1, 16, 4.5},
    {32, 1, 96, 2.25},  {1, 12, 12, 9.0},   {1, 24, 24, 4.5}, {1, 48, 48, 2.25}, {32, 48, 1536, 9.0},
};

const HeadGrid *FindHeadGrid(WellSelectionChannelsType channels) {
    const int index = channels;
    return index >= 0 && index < WellSelectionChannelsTypeCount ? &kHeadGrids[index] : nullptr;
}

struct ChannelCountType {
    int channels;
    WellSelectionChannelsType type;
};

constexpr ChannelCountType kChannelCountTypes[] = {
    {8, CHANNELS_8},   {12, CHANNELS_12}, {16, CHANNELS_16}, {24, CHANNELS_24},
    {32, CHANNELS_32}, {48, CHANNELS_48}, {384, CHANNELS_384},
};

struct PlateSize {
    int wells;
    int rows;
    int columns;
};

constexpr PlateSize kPlateSizes[] = {
    {1, 1, 1},     {6, 2, 3},     {12, 3, 4},      {24, 4, 6},       {48, 6, 8},
    {96, 8, 12},   {384, 16, 24}, {1536, 32, 48},  {3456, 48, 72},
};

constexpr const char *kSubsetLabels[] = {"All barrels", "Full column", "Full row", "Partial row/column",
                                         "Single barrel"};
constexpr const char *kOrientationLabels[] = {"Front right", "Back right", "Back left", "Front left"};

template <std::size_t N>
std::string Label(const char *const (&labels)[N], int value) {
    return value >= 0 && static_cast<std::size_t>(value) < N ? labels[value] : "";
}

}  // namespace
}  // namespace PipetteXMLMarshaller

bool qor::pipette::FullGrid(PipetteXMLMarshaller::WellSelectionChannelsType channels, int &rows, int &columns) {
    const auto *grid = PipetteXMLMarshaller::FindHeadGrid(channels);
    if (!grid) return false;
    rows = grid->rows;
    columns = grid->columns;
    return true;
}

namespace PipetteXMLMarshaller {

void PipetteHeadMode::GetHeadRowColumnCount(WellSelectionChannelsType channels, int &rows, int &columns) {
    qor::pipette::FullGrid(channels, rows, columns);
}

int PipetteHeadMode::GetNumberOfChannels(WellSelectionChannelsType channels) {
    const HeadGrid *grid = FindHeadGrid(channels);
    return grid ? grid->channels : 96;
}

double PipetteHeadMode::GetBarrelSpacing(WellSelectionChannelsType channels) {
    const HeadGrid *grid = FindHeadGrid(channels);
    return grid ? grid->spacing : 9.0;
}

WellSelectionChannelsType PipetteHeadMode::NumberOfChannelsToEnum(int channels) {
    for (const ChannelCountType &entry : kChannelCountTypes) {
        if (entry.channels == channels) return entry.type;
    }
    return CHANNELS_96;
}

std::string PipetteHeadMode::GetSubsetLabel(HeadSubsetType subset) { return Label(kSubsetLabels, subset); }

std::string PipetteHeadMode::GetOrientationLabel(HeadSubsetOrientation orientation) {
    return Label(kOrientationLabels, orientation);
}

bool PipetteHeadMode::WellCountToPlateDimensions(int wells, int &rows, int &columns) {
    for (const PlateSize &plate : kPlateSizes) {
        if (plate.wells == wells) {
            rows = plate.rows;
            columns = plate.columns;
            return true;
        }
    }
    return false;
}

}  // namespace PipetteXMLMarshaller
