// The working parts of the head mode logic, shared by its files, the tip
// state conversions and the plate map: a head's whole grid, and a head mode
// placed on a plate.
#pragma once

#include <algorithm>

#include "qor/records/pipette/PipetteHeadMode.h"

namespace qor::pipette {

// The whole grid of a channel type; false, with rows and columns untouched,
// for a type the head table doesn't know.
bool FullGrid(PipetteXMLMarshaller::WellSelectionChannelsType channels, int &rows, int &columns);

// Makes mode the last column (SUBSET_FULL_COLUMN) or row (SUBSET_FULL_ROW)
// of its grid: the subset is set, the counts reset, then the other count is 1.
void BecomeLastLine(PipetteXMLMarshaller::PipetteHeadMode &mode, PipetteXMLMarshaller::HeadSubsetType line);

// A head mode on a plate: the plate's size, the spacing ratio and how far the
// head reaches beyond its first barrel.
struct HeadOnPlate {
    int rows = 0;     // the plate's
    int columns = 0;  // the plate's
    int ratio = 1;
    bool ratioKnown = false;
    // (count - 1) * ratio: the distance from the first barrel to the last;
    // negative for a mode with no barrels in that direction.
    long long rowReach = 0;
    long long columnReach = 0;

    bool OnPlate(long long row, long long column) const {
        return row >= 0 && row < rows && column >= 0 && column < columns;
    }

    // The first barrel's position from which a well on the plate is reached,
    // a row and a column at a time.
    int BaseRow(int row) const { return BaseCoordinate(rowReach, rows, row); }
    int BaseColumn(int column) const { return BaseCoordinate(columnReach, columns, column); }
    PipetteXMLMarshaller::Well Base(const PipetteXMLMarshaller::Well &well) const {
        return PipetteXMLMarshaller::Well(BaseRow(well.Row), BaseColumn(well.Column));
    }

    // Calls visit(row, column) for each well the head touches from base, row
    // by row. Bounded by the plate whatever the counts.
    template <class Visit>
    void ForEachTouched(const PipetteXMLMarshaller::Well &base, Visit visit) const {
        const long long touchedRows = TouchedAlong(base.Row, rows, rowReach);
        const long long touchedColumns = TouchedAlong(base.Column, columns, columnReach);
        for (int i = 0, row = base.Row; i < touchedRows; ++i, row += ratio) {
            for (int j = 0, column = base.Column; j < touchedColumns; ++j, column += ratio) visit(row, column);
        }
    }

    // How many wells ForEachTouched visits from base.
    long long TouchedCount(const PipetteXMLMarshaller::Well &base) const {
        return TouchedAlong(base.Row, rows, rowReach) * TouchedAlong(base.Column, columns, columnReach);
    }

private:
    long long TouchedAlong(long long start, int size, long long reach) const {
        if (start < 0 || start >= size || reach < 0) return 0;
        return std::min((size - 1 - start) / ratio, reach / ratio) + 1;
    }

    int BaseCoordinate(long long reach, int size, int coordinate) const {
        const long long past = reach - size + coordinate;  // how far the head would overhang
        if (past < 0) return coordinate;
        const long long shifted = coordinate - (past / ratio + 1) * ratio;
        return shifted < 0 ? 0 : static_cast<int>(shifted);
    }
};

// Places mode on a plate of wells; false when the plate's size is unknown.
// A ratio that fails leaves ratio 1 and ratioKnown false.
bool PlaceHead(const PipetteXMLMarshaller::PipetteHeadMode &mode, int wells, HeadOnPlate &head);

}  // namespace qor::pipette
