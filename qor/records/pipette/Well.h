// One well of a plate: a row and a column, both counted from 0.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"

namespace PipetteXMLMarshaller {

class Well : public PipetteXMLMarshallerBase {
    QOR_RECORD(Well)
    Well(int row, int column) : Row(row), Column(column) {}

    int Row = 0;
    int Column = 0;

    // operator== (declared above) compares row and column; != follows from it.
    // Wells order row by row: row first, then column.
    bool operator<(const Well &other) const {
        return Row != other.Row ? Row < other.Row : Column < other.Column;
    }

    // Sorts by operator< and keeps one of each run of equal wells.
    static void SortAndCullWells(std::vector<Well> &wells);
};

}  // namespace PipetteXMLMarshaller
