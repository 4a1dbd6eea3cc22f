// The enumerations of a pipette head mode. Each travels as its integer; the
// integers are fixed by the head tables, the names are this library's.
#pragma once

namespace PipetteXMLMarshaller {

// A head's whole grid of barrels, named by its channel count. CHANNELS_1 is
// a single barrel (though GetNumberOfChannels counts it as 8), CHANNELS_32 a
// column of 32 (counted as 96).
enum WellSelectionChannelsType : int {
    CHANNELS_96 = 0,    // 8 x 12
    CHANNELS_384 = 1,   // 16 x 24
    CHANNELS_8 = 2,     // 8 x 1
    CHANNELS_1 = 3,     // 1 x 1
    CHANNELS_16 = 4,    // 16 x 1
    CHANNELS_32 = 5,    // 32 x 1
    CHANNELS_12 = 6,    // 1 x 12
    CHANNELS_24 = 7,    // 1 x 24
    CHANNELS_48 = 8,    // 1 x 48
    CHANNELS_1536 = 9,  // 32 x 48
};
inline constexpr int WellSelectionChannelsTypeCount = 10;

// Which barrels of the grid are in use.
enum HeadSubsetType : int {
    SUBSET_ALL_BARRELS = 0,
    SUBSET_FULL_COLUMN = 1,
    SUBSET_FULL_ROW = 2,
    SUBSET_PARTIAL_ROW_COLUMN = 3,
    SUBSET_SINGLE_BARREL = 4,
};

// The corner of the grid a subset is counted from.
enum HeadSubsetOrientation : int {
    ORIENTATION_FRONT_RIGHT = 0,
    ORIENTATION_BACK_RIGHT = 1,
    ORIENTATION_BACK_LEFT = 2,
    ORIENTATION_FRONT_LEFT = 3,
};

// A kind of tip; only the tip box and labware checks look at it.
enum HeadTipType : int {
    HEAD_TIP_TYPE_0 = 0,
    HEAD_TIP_TYPE_1 = 1,
};

}  // namespace PipetteXMLMarshaller
