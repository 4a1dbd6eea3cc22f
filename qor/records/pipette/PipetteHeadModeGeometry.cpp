// A head mode on a plate: the spacing ratio, the head's positions, the wells
// it touches from them, and how a wanted selection becomes head positions.
//
// Plates have at most 3456 wells, so the working sets are bits of the plate
// (WellBits): the results are those of the ordered sets and vectors of wells
// the rules speak of, at the cost of a bitset.
#include <algorithm>
#include <array>
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

// Set membership and marks for IsSetPerfect. Wells within the largest
// plate are bits, taken straight from the list (bits are sorted and culled
// by nature); others are a sorted, culled copy searched by halves.
class PlateMembers {
public:
    static bool Fits(const std::vector<Well> &set) {
        return std::all_of(set.begin(), set.end(), [](const Well &well) {
            return well.Row >= 0 && well.Row < WellBits::MaxRows && well.Column >= 0 &&
                   well.Column < WellBits::MaxColumns;
        });
    }
    explicit PlateMembers(const std::vector<Well> &set) {
        for (const Well &well : set) members_.Set(well);
    }
    long long Count() const { return members_.Count(); }
    template <class Visit>
    bool AllInOrder(Visit visit) const {
        return members_.All(visit);
    }
    bool Marked(int row, int column) const { return marked_.Test(row, column); }
    // Marks the well; false when it isn't a member.
    bool Mark(long long row, long long column) {
        if (!members_.OnPlate(row, column) || !members_.Test(int(row), int(column))) return false;
        marked_.Set(int(row), int(column));
        return true;
    }

private:
    WellBits members_{WellBits::MaxRows, WellBits::MaxColumns};
    WellBits marked_{WellBits::MaxRows, WellBits::MaxColumns};
};

class SortedMembers {
public:
    explicit SortedMembers(const std::vector<Well> &set) : set_(set) {
        Well::SortAndCullWells(set_);
        marked_.resize(set_.size());
    }
    long long Count() const { return static_cast<long long>(set_.size()); }
    template <class Visit>
    bool AllInOrder(Visit visit) const {
        return std::all_of(set_.begin(), set_.end(), [&](const Well &well) { return visit(well.Row, well.Column); });
    }
    bool Marked(int row, int column) const { return marked_[Index(row, column)]; }
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
    std::vector<Well> set_;
    std::vector<bool> marked_;
};

// The expansion of a set (each well not yet reached, in order, with every
// well the head touches from it) always holds the set itself, so the set is
// perfect exactly when no expansion leaves it. A mode with more barrels
// than the set has wells expands beyond it (the ratio is at least 1, so its
// wells are distinct).
template <class Members>
bool ExpansionsStayInSet(Members &members, long long rowCount, long long columnCount, int ratio) {
    if (rowCount * columnCount > members.Count()) return false;
    return members.AllInOrder([&](int row, int column) {
        if (members.Marked(row, column)) return true;
        for (long long i = 0; i < rowCount; ++i) {
            for (long long j = 0; j < columnCount; ++j) {
                if (!members.Mark(row + i * ratio, column + j * ratio)) return false;
            }
        }
        return true;
    });
}

}  // namespace
}  // namespace PipetteXMLMarshaller

bool qor::pipette::PlaceHead(const PipetteXMLMarshaller::PipetteHeadMode &mode, int wells, HeadOnPlate &head) {
    using PipetteXMLMarshaller::PipetteHeadMode;
    if (!PipetteHeadMode::WellCountToPlateDimensions(wells, head.rows, head.columns)) return false;
    head.ratioKnown = PipetteHeadMode::GetHeadWellSpacingRatio(mode, wells, head.ratio);
    head.barrelRows = std::clamp(mode.RowCount, 0, head.rows);
    head.barrelColumns = std::clamp(mode.ColumnCount, 0, head.columns);
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
    const int row = head.BaseRow(well.Row), column = head.BaseColumn(well.Column);
    base.Row = row;
    base.Column = column;
    return true;
}

bool PipetteHeadMode::GetExtendedSetFromBaseWell(const PipetteHeadMode &mode, int wells, const Well &base,
                                                 std::vector<Well> &set) {
    HeadOnPlate head;
    if (!qor::pipette::PlaceHead(mode, wells, head) || !head.ratioKnown) {
        set.clear();
        return false;
    }
    const int row = base.Row, column = base.Column;  // base may be a well of set
    const HeadOnPlate::Touched touched = head.TouchedFrom(row, column);
    qor::pipette::Overwrite(set, touched.Count(),
                            [&](auto write) { head.ForEachTouched(row, column, touched, write); });
    return true;
}

bool PipetteHeadMode::GetSmallestUniqueSet(const PipetteHeadMode &mode, int wells, std::vector<Well> &set) {
    HeadOnPlate head;
    if (!qor::pipette::PlaceHead(mode, wells, head) || !head.ratioKnown) {
        set.clear();
        return false;
    }
    // Base positions stay on the plate, also for a mode without barrels.
    const long long rows = std::clamp<long long>(head.rows - head.rowReach, 0, head.rows);
    const long long columns = std::clamp<long long>(head.columns - head.columnReach, 0, head.columns);
    qor::pipette::Overwrite(set, static_cast<std::size_t>(rows * columns), [&](auto write) {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) write(row, column);
        }
    });
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
        // The base of each row and column, worked out once rather than per well.
        std::array<int, WellBits::MaxRows> baseRows;
        std::array<int, WellBits::MaxColumns> baseColumns;
        for (int row = 0; row < head.rows; ++row) baseRows[row] = head.BaseRow(row);
        for (int column = 0; column < head.columns; ++column) baseColumns[column] = head.BaseColumn(column);
        WellBits chosen(head.rows, head.columns);   // the bases in valid
        WellBits covered(head.rows, head.columns);  // every well reached so far
        WellBits added(head.rows, head.columns);
        for (const Well &well : valid) {
            if (chosen.OnPlate(well.Row, well.Column)) chosen.Set(well);
        }
        for (const Well &well : wanted) {
            if (!head.OnPlate(well.Row, well.Column)) continue;
            const int row = baseRows[well.Row], column = baseColumns[well.Column];
            if (chosen.Test(row, column) || covered.Test(row, column)) continue;
            head.ForEachTouched(row, column, [&](int r, int c) { covered.Set(r, c); });
            chosen.Set(row, column);
            added.Set(row, column);
        }
        added.AppendTo(valid);  // already in row order
    }
    std::sort(valid.begin(), valid.begin() + static_cast<std::ptrdiff_t>(held));
    std::inplace_merge(valid.begin(), valid.begin() + static_cast<std::ptrdiff_t>(held), valid.end());
}

bool PipetteHeadMode::IsSetPerfect(const PipetteHeadMode &mode, int wells, const std::vector<Well> &set) {
    if (set.empty()) return true;
    int ratio = 1;
    GetHeadWellSpacingRatio(mode, wells, ratio);
    const long long rowCount = mode.RowCount, columnCount = mode.ColumnCount;
    if (rowCount <= 0 || columnCount <= 0) return false;  // expands to nothing
    if (PlateMembers::Fits(set)) {
        PlateMembers members(set);
        return ExpansionsStayInSet(members, rowCount, columnCount, ratio);
    }
    SortedMembers members(set);
    return ExpansionsStayInSet(members, rowCount, columnCount, ratio);
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
