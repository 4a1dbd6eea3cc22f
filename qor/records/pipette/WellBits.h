// A set of the wells of one plate as bits, row by row: the working set of
// the head geometry, the tip state conversions and the plate map. Any plate
// WellCountToPlateDimensions knows fits; nothing allocates.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

#include "qor/records/pipette/Well.h"

namespace qor::pipette {

// Makes wells hold count wells, written in order by fill(write) calling
// write(row, column). The elements already there are reused, so a vector
// filled again and again constructs and destroys no records.
template <class Fill>
void Overwrite(std::vector<PipetteXMLMarshaller::Well> &wells, std::size_t count, Fill fill) {
    wells.resize(count);
    auto out = wells.begin();
    fill([&](int row, int column) {
        out->Row = row;
        out->Column = column;
        ++out;
    });
}

class WellBits {
public:
    // The largest plate.
    static constexpr int MaxRows = 48;
    static constexpr int MaxColumns = 72;
    static constexpr int MaxWells = MaxRows * MaxColumns;

    // An empty set on a plate of rows x columns; a plate larger than
    // MaxWells, or with a side below 1, is taken as having no wells.
    WellBits(int rows, int columns)
        : rows_(rows), columns_(columns) {
        if (rows < 1 || columns < 1 || static_cast<long long>(rows) * columns > MaxWells) rows_ = columns_ = 0;
    }

    int Rows() const { return rows_; }
    int Columns() const { return columns_; }
    bool OnPlate(long long row, long long column) const {
        return row >= 0 && row < rows_ && column >= 0 && column < columns_;
    }

    // The well must be on the plate.
    bool Test(int row, int column) const {
        const int i = row * columns_ + column;
        return (words_[i >> 6] >> (i & 63)) & 1u;
    }
    void Set(int row, int column) {
        const int i = row * columns_ + column;
        words_[i >> 6] |= std::uint64_t{1} << (i & 63);
    }
    bool Test(const PipetteXMLMarshaller::Well &well) const { return Test(well.Row, well.Column); }
    void Set(const PipetteXMLMarshaller::Well &well) { Set(well.Row, well.Column); }

    bool Empty() const {
        for (int w = 0; w < Words(); ++w) {
            if (words_[w]) return false;
        }
        return true;
    }
    int Count() const {
        int n = 0;
        for (int w = 0; w < Words(); ++w) n += std::popcount(words_[w]);
        return n;
    }

    // Calls visit(row, column) for each well of the set, in row order.
    template <class Visit>
    void ForEach(Visit visit) const {
        All([&](int row, int column) {
            visit(row, column);
            return true;
        });
    }
    // The same, stopping at the first well for which visit is false; false then.
    template <class Visit>
    bool All(Visit visit) const {
        for (int w = 0; w < Words(); ++w) {
            for (std::uint64_t bits = words_[w]; bits; bits &= bits - 1) {
                const int i = w * 64 + std::countr_zero(bits);
                if (!visit(i / columns_, i % columns_)) return false;
            }
        }
        return true;
    }

    // Appends the set's wells to wells, in row order.
    void AppendTo(std::vector<PipetteXMLMarshaller::Well> &wells) const {
        wells.reserve(wells.size() + static_cast<std::size_t>(Count()));
        ForEach([&](int row, int column) { wells.emplace_back(row, column); });
    }
    // Makes wells the set's wells, in row order, reusing its elements.
    void AssignTo(std::vector<PipetteXMLMarshaller::Well> &wells) const {
        Overwrite(wells, static_cast<std::size_t>(Count()), [&](auto write) { ForEach(write); });
    }

private:
    int Words() const { return (rows_ * columns_ + 63) >> 6; }

    int rows_;
    int columns_;
    std::array<std::uint64_t, MaxWells / 64> words_{};
};

}  // namespace qor::pipette
