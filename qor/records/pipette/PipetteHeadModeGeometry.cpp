// A head mode on a plate: the spacing ratio, the head's positions, the wells
// it touches from them, and how a wanted selection becomes head positions.
//
// Plates have at most 3456 wells, so the working sets are bits of the plate
// (WellBits): the results are those of the ordered sets and vectors of wells
// the rules speak of, at the cost of a bitset.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "qor/records/pipette/HeadGeometry.h"
#include "qor/records/pipette/PipetteHeadMode.h"
#include "qor/records/pipette/WellBits.h"

namespace PipetteXMLMarshaller {
namespace {

using qor::pipette::HeadOnPlate;
using qor::pipette::WellBits;

constexpr unsigned ChannelsMask(std::initializer_list<WellSelectionChannelsType> types) {
    unsigned mask = 0;
    for (WellSelectionChannelsType type : types) mask |= 1u << type;
    return mask;
}

// The plates a head goes with, and its ratio on each. A single barrel, and
// the single-barrel head, have the ratio 1 on any plate.
struct SpacingRatio {
    unsigned channels;  // a mask of WellSelectionChannelsType values
    int wells;
    int ratio;
};

constexpr unsigned kNinetySixGrid = ChannelsMask({CHANNELS_96, CHANNELS_8, CHANNELS_12});
constexpr unsigned kThreeEightyFourGrid = ChannelsMask({CHANNELS_384, CHANNELS_16, CHANNELS_24});
constexpr unsigned kFifteenThirtySixGrid = ChannelsMask({CHANNELS_32, CHANNELS_48, CHANNELS_1536});

constexpr SpacingRatio kSpacingRatios[] = {
    {kNinetySixGrid, 96, 1},         {kNinetySixGrid, 384, 2},        {kNinetySixGrid, 1536, 4},
    {kNinetySixGrid, 3456, 6},       {kThreeEightyFourGrid, 384, 1},  {kThreeEightyFourGrid, 1536, 2},
    {kThreeEightyFourGrid, 3456, 3}, {kFifteenThirtySixGrid, 1536, 1},
};

// The integer part of the square root of a non-negative value.
long long IntegerSquareRoot(long long value) {
    auto root = static_cast<long long>(std::sqrt(static_cast<double>(value)));
    while (root * root > value) --root;
    while ((root + 1) * (root + 1) <= value) ++root;
    return root;
}

// What a 32-bit int holds of a wider result.
int Wrap32(long long value) { return static_cast<int>(static_cast<std::uint32_t>(value)); }

// Set membership and marks for IsSetPerfect, over a sorted, culled list:
// bits when the wells lie within the largest plate, a binary search
// otherwise (wells far off any plate still get an answer).
class PlateMembers {
public:
    explicit PlateMembers(const std::vector<Well> &set) {
        for (const Well &well : set) members_.Set(well);
    }
    static bool Fits(const std::vector<Well> &set) {
        return std::all_of(set.begin(), set.end(), [](const Well &well) {
            return well.Row >= 0 && well.Row < kRows && well.Column >= 0 && well.Column < kColumns;
        });
    }
    bool Marked(const Well &well) const { return marked_.Test(well); }
    // Marks the well; false when it isn't a member.
    bool Mark(long long row, long long column) {
        if (!members_.OnPlate(row, column) || !members_.Test(int(row), int(column))) return false;
        marked_.Set(int(row), int(column));
        return true;
    }

private:
    static constexpr int kRows = 48, kColumns = 72;  // the largest plate
    WellBits members_{kRows, kColumns};
    WellBits marked_{kRows, kColumns};
};

class SortedMembers {
public:
    explicit SortedMembers(const std::vector<Well> &set) : set_(set), marked_(set.size()) {}
    bool Marked(const Well &well) const { return marked_[Index(well.Row, well.Column)]; }
    bool Mark(long long row, long long column) {
        if (row < INT32_MIN || row > INT32_MAX || column < INT32_MIN || column > INT32_MAX) return false;
        const std::size_t index = Index(static_cast<int>(row), static_cast<int>(column));
        if (index == set_.size()) return false;
        marked_[index] = true;
        return true;
    }

private:
    // The well's index in the set, or the set's size when it isn't there.
    std::size_t Index(int row, int column) const {
        const Well well(row, column);
        const auto found = std::lower_bound(set_.begin(), set_.end(), well);
        return found != set_.end() && *found == well ? static_cast<std::size_t>(found - set_.begin()) : set_.size();
    }
    const std::vector<Well> &set_;
    std::vector<bool> marked_;
};

// The expansion of a set (each well not yet reached, with every well the
// head touches from it) always holds the set itself, so the set is perfect
// exactly when no expansion leaves it.
template <class Members>
bool ExpansionsStayInSet(const std::vector<Well> &set, long long rowCount, long long columnCount, int ratio,
                         Members &members) {
    for (const Well &well : set) {
        if (members.Marked(well)) continue;
        for (long long i = 0; i < rowCount; ++i) {
            for (long long j = 0; j < columnCount; ++j) {
                if (!members.Mark(well.Row + i * ratio, well.Column + j * ratio)) return false;
            }
        }
    }
    return true;
}

}  // namespace
}  // namespace PipetteXMLMarshaller

bool qor::pipette::PlaceHead(const PipetteXMLMarshaller::PipetteHeadMode &mode, int wells, HeadOnPlate &head) {
    using PipetteXMLMarshaller::PipetteHeadMode;
    if (!PipetteHeadMode::WellCountToPlateDimensions(wells, head.rows, head.columns)) return false;
    head.ratioKnown = PipetteHeadMode::GetHeadWellSpacingRatio(mode, wells, head.ratio);
    head.rowReach = (mode.RowCount - 1LL) * head.ratio;
    head.columnReach = (mode.ColumnCount - 1LL) * head.ratio;
    return true;
}

namespace PipetteXMLMarshaller {

bool PipetteHeadMode::GetHeadWellSpacingRatio(const PipetteHeadMode &mode, int wells, int &ratio) {
    ratio = 1;
    if (IsSingleBarrel(mode) || mode.Channels == CHANNELS_1) return true;
    if (mode.Channels < 0 || mode.Channels >= WellSelectionChannelsTypeCount) return false;
    for (const SpacingRatio &entry : kSpacingRatios) {
        if ((entry.channels >> mode.Channels & 1u) && entry.wells == wells) {
            ratio = entry.ratio;
            return true;
        }
    }
    return false;
}

bool PipetteHeadMode::GetBaseSelectionWell(const PipetteHeadMode &mode, int wells, const Well &well, Well &base) {
    HeadOnPlate head;
    if (!qor::pipette::PlaceHead(mode, wells, head) || !head.OnPlate(well.Row, well.Column)) return false;
    const Well found = head.Base(well);
    base.Row = found.Row;
    base.Column = found.Column;
    return true;
}

bool PipetteHeadMode::GetExtendedSetFromBaseWell(const PipetteHeadMode &mode, int wells, const Well &base,
                                                 std::vector<Well> &set) {
    set.clear();
    HeadOnPlate head;
    if (!qor::pipette::PlaceHead(mode, wells, head) || !head.ratioKnown) return false;
    const long long barrels = std::max(0, mode.RowCount) * static_cast<long long>(std::max(0, mode.ColumnCount));
    set.reserve(static_cast<std::size_t>(std::min<long long>(barrels, head.rows * head.columns)));
    head.ForEachTouched(base, [&](int row, int column) { set.emplace_back(row, column); });
    return true;
}

bool PipetteHeadMode::GetSmallestUniqueSet(const PipetteHeadMode &mode, int wells, std::vector<Well> &set) {
    set.clear();
    HeadOnPlate head;
    if (!qor::pipette::PlaceHead(mode, wells, head) || !head.ratioKnown) return false;
    // Base positions stay on the plate, also for a mode without barrels.
    const long long lastRow = std::min<long long>(head.rows - 1 - head.rowReach, head.rows - 1);
    const long long lastColumn = std::min<long long>(head.columns - 1 - head.columnReach, head.columns - 1);
    if (lastRow < 0 || lastColumn < 0) return true;
    set.reserve(static_cast<std::size_t>((lastRow + 1) * (lastColumn + 1)));
    for (int row = 0; row <= lastRow; ++row) {
        for (int column = 0; column <= lastColumn; ++column) set.emplace_back(row, column);
    }
    return true;
}

bool PipetteHeadMode::GetSmallestUniqueValidatedSet(const PipetteHeadMode &mode, int wells, std::vector<Well> &set) {
    std::vector<Well> unique;
    const bool found = GetSmallestUniqueSet(mode, wells, unique);
    ValidateSelection(mode, wells, unique, set);
    return found;
}

void PipetteHeadMode::ValidateSelection(const PipetteHeadMode &mode, int wells, const std::vector<Well> &wanted,
                                        std::vector<Well> &valid) {
    const std::size_t held = valid.size();
    HeadOnPlate head;
    if (qor::pipette::PlaceHead(mode, wells, head) && head.ratioKnown) {
        WellBits chosen(head.rows, head.columns);   // the bases in valid
        WellBits covered(head.rows, head.columns);  // every well reached so far
        WellBits added(head.rows, head.columns);
        for (const Well &well : valid) {
            if (chosen.OnPlate(well.Row, well.Column)) chosen.Set(well);
        }
        for (const Well &well : wanted) {
            if (!head.OnPlate(well.Row, well.Column)) continue;
            const Well base = head.Base(well);
            if (chosen.Test(base) || covered.Test(base)) continue;
            head.ForEachTouched(base, [&](int row, int column) { covered.Set(row, column); });
            chosen.Set(base);
            added.Set(base);
        }
        added.AppendTo(valid);  // already in row order
    }
    std::sort(valid.begin(), valid.begin() + static_cast<std::ptrdiff_t>(held));
    std::inplace_merge(valid.begin(), valid.begin() + static_cast<std::ptrdiff_t>(held), valid.end());
}

bool PipetteHeadMode::IsSetPerfect(const PipetteHeadMode &mode, int wells, const std::vector<Well> &set) {
    if (set.empty()) return true;
    std::vector<Well> sorted = set;
    Well::SortAndCullWells(sorted);
    int ratio = 1;
    GetHeadWellSpacingRatio(mode, wells, ratio);
    // A mode without barrels expands to nothing; one with more barrels than
    // the set has wells expands beyond it (the ratio is at least 1, so its
    // wells are distinct).
    const long long rowCount = mode.RowCount, columnCount = mode.ColumnCount;
    if (rowCount <= 0 || columnCount <= 0) return false;
    if (rowCount * columnCount > static_cast<long long>(sorted.size())) return false;
    if (PlateMembers::Fits(sorted)) {
        PlateMembers members(sorted);
        return ExpansionsStayInSet(sorted, rowCount, columnCount, ratio, members);
    }
    SortedMembers members(sorted);
    return ExpansionsStayInSet(sorted, rowCount, columnCount, ratio, members);
}

bool PipetteHeadMode::WellToQuadrant(const PipetteHeadMode &mode, int wells, const Well &well, int &quadrant) {
    int reason = 0;
    const bool compatible = AreHeadAndLabwareCompatible(mode, wells, 0, reason, true);
    if (compatible && IsAllBarrels(mode)) {
        // Head positions per plate side: the root of positions per plate.
        const long long positions = wells / (static_cast<long long>(mode.RowCount) * mode.ColumnCount);
        const long long perSide = positions > 0 ? IntegerSquareRoot(positions) : 0;
        quadrant = Wrap32(perSide * well.Row + well.Column + 1);
        return true;
    }
    int rows = 0, columns = 12;
    WellCountToPlateDimensions(wells, rows, columns);
    quadrant = Wrap32(static_cast<long long>(well.Row) * columns + well.Column + 1);
    return compatible;
}

}  // namespace PipetteXMLMarshaller
