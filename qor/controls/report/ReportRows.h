// The grid's rows: the master table of every row and the view of the rows
// that pass the filter, in display order, sharing their cell storage.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace qor::report {

// One row: its key and its cells by column index, in a single block. A
// column added after the row was made reads as an empty cell.
class Row {
public:
    static Row *Create(std::int64_t key, std::uint32_t width, std::uint64_t born);
    // A copy with room for width cells (at least the original's).
    static Row *Copy(const Row &from, std::uint32_t width, std::uint64_t born);
    static void Destroy(Row *row) noexcept;

    std::int64_t Key() const { return key_; }
    std::uint32_t Width() const { return width_; }
    std::uint64_t Born() const { return born_; }
    const std::string &Cell(std::size_t column) const { return column < width_ ? Cells()[column] : EmptyCell(); }
    std::string &MutableCell(std::size_t column) { return Cells()[column]; }  // column < Width()

private:
    friend class RowStore;
    static const std::string &EmptyCell();
    Row(std::int64_t key, std::uint32_t width, std::uint64_t born) : key_(key), born_(born), width_(width) {}
    std::string *Cells() { return reinterpret_cast<std::string *>(this + 1); }
    const std::string *Cells() const { return reinterpret_cast<const std::string *>(this + 1); }

    std::int64_t key_;
    std::uint64_t born_;  // the view epoch the row was made in
    std::uint32_t width_;
    std::uint32_t position_ = 0;  // its slot in the master, while positions are current
};

// Asks the processor to fetch a cell that is about to be read: rows lie
// where they were allocated, not in table order, so a walk over a sorted
// table would wait on memory at every row without it.
inline void PrefetchCell(const Row *row, std::size_t column) {
    __builtin_prefetch(reinterpret_cast<const char *>(row) + sizeof(Row) + column * sizeof(std::string));
}
// A long text lives apart from its row: fetch it once the cell is at hand.
inline void PrefetchCellText(const Row *row, std::size_t column) { __builtin_prefetch(row->Cell(column).data()); }
constexpr std::size_t kPrefetchAhead = 16, kPrefetchTextAhead = 8;

// The master table, with a checkbox bit per position and an index of keys,
// and the view. The view is a snapshot: it keeps showing a row's old cells,
// or a deleted row, until it is rebuilt; so a row that the view may hold is
// never changed in place but copied, and a removed row is kept until the
// next rebuild. Deleting by key leaves a hole that the next positional
// access closes, so deleting many rows costs one pass, not one per row.
class RowStore {
public:
    RowStore() = default;
    RowStore(const RowStore &) = delete;
    RowStore &operator=(const RowStore &) = delete;
    ~RowStore();

    // --- master ---
    std::size_t MasterSize() const { return master_.size() - holes_; }
    // The live rows in order; closes holes first.
    const std::vector<Row *> &Master();
    Row *MasterAt(std::size_t position);  // null when out of range
    // The first row with the key, by position; null when none.
    Row *Find(std::int64_t key);
    bool Contains(std::int64_t key) const { return index_.count(key) != 0; }
    Row &Append(std::int64_t key, std::uint32_t width);
    // The row's position among the live rows.
    std::size_t PositionOf(Row *row);
    void Remove(Row *row);
    void Clear();
    // The row to write column into: the row itself, or a copy that takes its
    // place when the view may hold it or it lacks the column.
    Row &Writable(Row *row, std::uint32_t column);
    // Empties every row's cells, keeping the rows and their keys.
    void ClearCells();
    // Reorders the master: order[k] is the old position of the row now at k.
    void PermuteMaster(const std::vector<std::uint32_t> &order);
    // Makes the master the view's rows, when those are the master's rows.
    void AdoptViewOrder();
    // True when the view holds exactly the master's rows in the master's order.
    bool ViewIsMaster();
    // The checkbox bit of each position; closes holes first.
    std::vector<bool> &Checks();
    // Changes with every change of the master's rows, cells or order.
    std::uint64_t Generation() const { return generation_; }

    // --- view ---
    std::vector<Row *> &View() { return view_; }
    const std::vector<Row *> &View() const { return view_; }
    // Empties the view for a rebuild from the master, releasing removed rows.
    void BeginViewRebuild();
    // While held, removed rows outlive rebuilds (a caller keeps old pointers).
    void HoldRemoved(bool hold) { holdRemoved_ += hold ? 1 : -1; }

private:
    void Retire(Row *row);
    void Compact();
    void RefreshPositions();
    void Replace(Row *old, Row *fresh);
    Row *FirstLive(std::int64_t key, const Row *except);
    std::size_t HolesBefore(std::size_t position) const;
    void MarkHole(std::size_t position);

    std::vector<Row *> master_;  // null where a row was removed
    std::vector<bool> checks_;
    std::size_t holes_ = 0;
    std::vector<std::uint32_t> holeTree_;  // Fenwick tree of holes over the first slots
    bool positionsCurrent_ = true;
    std::unordered_map<std::int64_t, Row *> index_;
    std::unordered_map<std::int64_t, std::uint32_t> duplicates_;  // extra rows per key
    std::uint64_t generation_ = 0;

    std::vector<Row *> view_;
    std::uint64_t viewEpoch_ = 1;
    std::vector<Row *> removed_;
    int holdRemoved_ = 0;
};

}  // namespace qor::report
