#include "qor/records/pipette/Well.h"

#include <algorithm>

#include "qor/marshal/RecordDefinition.h"
#include "qor/records/pipette/WellBits.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(Well,
    attribute("Row", &Well::Row),
    attribute("Column", &Well::Column))

void Well::SortAndCullWells(std::vector<Well> &wells) {
    if (wells.size() < 2) return;
    const auto [rowLow, rowHigh] = std::minmax_element(wells.begin(), wells.end(),
                                                       [](const Well &a, const Well &b) { return a.Row < b.Row; });
    const auto [columnLow, columnHigh] = std::minmax_element(
        wells.begin(), wells.end(), [](const Well &a, const Well &b) { return a.Column < b.Column; });
    const int top = rowLow->Row, left = columnLow->Column;
    const long long rows = static_cast<long long>(rowHigh->Row) - top + 1;
    const long long columns = static_cast<long long>(columnHigh->Column) - left + 1;
    constexpr int most = qor::pipette::WellBits::MaxWells;
    if (rows > most || columns > most || rows * columns > most) {
        std::sort(wells.begin(), wells.end());
        wells.erase(std::unique(wells.begin(), wells.end()), wells.end());
        return;
    }
    // Wells of one plate, the usual case: their bits come out sorted and culled.
    qor::pipette::WellBits bits(static_cast<int>(rows), static_cast<int>(columns));
    for (const Well &well : wells) bits.Set(well.Row - top, well.Column - left);
    qor::pipette::Overwrite(wells, static_cast<std::size_t>(bits.Count()), [&](auto write) {
        bits.ForEach([&](int row, int column) { write(row + top, column + left); });
    });
}

}  // namespace PipetteXMLMarshaller
