// The working parts of the head mode logic, shared by its files, the tip
// state conversions and the plate map: a head's whole grid, and a head mode
// placed on a plate.
#pragma once

#include <algorithm>
#include <cstddef>

#include "qor/records/pipette/PipetteHeadMode.h"

namespace qor::pipette {

// The whole grid of a channel type; false, with rows and columns untouched,
// for a type the head table doesn't know.
bool FullGrid(PipetteXMLMarshaller::WellSelectionChannelsType channels, int &rows, int &columns);

// Makes mode the last column (SUBSET_FULL_COLUMN) or row (SUBSET_FULL_ROW)
// of its grid: the subset is set, the counts reset, then the other count is 1.
void BecomeLastLine(PipetteXMLMarshaller::PipetteHeadMode &mode, PipetteXMLMarshaller::HeadSubsetType line);

// A head mode on a plate: the plate's size, the spacing ratio, and the
// barrels of the mode along each side, counted as far as the plate goes.
struct HeadOnPlate {
    int rows = 0;     // the plate's
    int columns = 0;  // the plate's
    int ratio = 1;
    bool ratioKnown = false;
    // RowCount and ColumnCount, from none to the plate's size: a document's
    // counts make no walk longer than the plate.
    int barrelRows = 0;
    int barrelColumns = 0;
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

    // The rows and columns of wells the head touches from a base.
    struct Touched {
        int rows;
        int columns;
        std::size_t Count() const { return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns); }
    };
    Touched TouchedFrom(int row, int column) const {
        return {TouchedAlong(row, rows, barrelRows), TouchedAlong(column, columns, barrelColumns)};
    }

    // Calls visit(row, column) for each well the head touches from the base
    // (row, column), row by row.
    template <class Visit>
    void ForEachTouched(int row, int column, Touched touched, Visit visit) const {
        for (int i = 0, r = row; i < touched.rows; ++i, r += ratio) {
            for (int j = 0, c = column; j < touched.columns; ++j, c += ratio) visit(r, c);
        }
    }
    template <class Visit>
    void ForEachTouched(int row, int column, Visit visit) const {
        ForEachTouched(row, column, TouchedFrom(row, column), visit);
    }

private:
    // Barrels from start to the plate's edge, at most barrels of them.
    int TouchedAlong(int start, int size, int barrels) const {
        if (start < 0 || start >= size) return 0;
        return std::min((size - 1 - start) / ratio + 1, barrels);
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
