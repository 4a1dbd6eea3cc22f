// Small builders the pipetting tests share.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "qor/records/pipette.h"

namespace pipette_test {

using namespace PipetteXMLMarshaller;

// A head mode with these counts, the rest at its defaults.
inline PipetteHeadMode Mode(WellSelectionChannelsType channels, int rows, int columns,
                            HeadTipType tipType = HEAD_TIP_TYPE_0) {
    PipetteHeadMode mode;
    mode.Channels = channels;
    mode.RowCount = rows;
    mode.ColumnCount = columns;
    mode.TipType = tipType;
    return mode;
}

inline std::vector<Well> Wells(std::initializer_list<std::pair<int, int>> cells) {
    std::vector<Well> wells;
    for (const auto &[row, column] : cells) wells.emplace_back(row, column);
    return wells;
}

// Every well of a rows x columns rectangle from (row, column) in steps of
// step, row by row.
inline std::vector<Well> Grid(int row, int column, int rows, int columns, int step = 1) {
    std::vector<Well> wells;
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c) wells.emplace_back(row + r * step, column + c * step);
    }
    return wells;
}

inline std::string Text(const std::vector<Well> &wells) {
    std::string text;
    for (const Well &well : wells) text += "(" + std::to_string(well.Row) + "," + std::to_string(well.Column) + ")";
    return text;
}

}  // namespace pipette_test
