#include "qor/controls/report/ReportRows.h"

#include <algorithm>
#include <new>

namespace qor::report {

static_assert(sizeof(Row) % alignof(std::string) == 0, "cells follow the row header");

Row *Row::Create(std::int64_t key, std::uint32_t width, std::uint64_t born) {
    void *block = ::operator new(sizeof(Row) + width * sizeof(std::string));
    Row *row = new (block) Row(key, width, born);
    std::string *cells = row->Cells();
    for (std::uint32_t c = 0; c < width; ++c) new (cells + c) std::string();
    return row;
}

Row *Row::Copy(const Row &from, std::uint32_t width, std::uint64_t born) {
    if (width < from.width_) width = from.width_;
    Row *row = Create(from.key_, width, born);
    for (std::uint32_t c = 0; c < from.width_; ++c) row->Cells()[c] = from.Cells()[c];
    row->position_ = from.position_;
    return row;
}

void Row::Destroy(Row *row) noexcept {
    if (!row) return;
    std::string *cells = row->Cells();
    for (std::uint32_t c = 0; c < row->width_; ++c) cells[c].~basic_string();
    row->~Row();
    ::operator delete(static_cast<void *>(row));
}

const std::string &Row::EmptyCell() {
    static const std::string empty;
    return empty;
}

RowStore::~RowStore() {
    for (Row *row : master_) Row::Destroy(row);
    for (Row *row : removed_) Row::Destroy(row);
}

const std::vector<Row *> &RowStore::Master() {
    Compact();
    return master_;
}

Row *RowStore::MasterAt(std::size_t position) {
    Compact();
    return position < master_.size() ? master_[position] : nullptr;
}

Row *RowStore::FirstLive(std::int64_t key, const Row *except) {
    for (Row *row : master_)
        if (row && row != except && row->key_ == key) return row;
    return nullptr;
}

Row *RowStore::Find(std::int64_t key) {
    auto it = index_.find(key);
    if (it == index_.end()) return nullptr;
    // With several rows under one key the first by position is meant, and
    // sorting moves positions; such keys are rare, so they are searched.
    return duplicates_.count(key) ? FirstLive(key, nullptr) : it->second;
}

Row &RowStore::Append(std::int64_t key, std::uint32_t width) {
    Row *row = Row::Create(key, width, viewEpoch_);
    row->position_ = static_cast<std::uint32_t>(master_.size());
    // Only allocation can fail here; a failure leaves the store as it was.
    try {
        master_.push_back(row);
        checks_.push_back(false);
        auto [it, fresh] = index_.try_emplace(key, row);
        if (!fresh) ++duplicates_[key];
    } catch (...) {
        if (!master_.empty() && master_.back() == row) master_.pop_back();
        checks_.resize(master_.size());
        Row::Destroy(row);
        throw;
    }
    ++generation_;
    return *row;
}

void RowStore::RefreshPositions() {
    if (positionsCurrent_) return;
    for (std::size_t p = 0; p < master_.size(); ++p)
        if (master_[p]) master_[p]->position_ = static_cast<std::uint32_t>(p);
    positionsCurrent_ = true;
}

std::size_t RowStore::HolesBefore(std::size_t position) const {
    if (holes_ == 0) return 0;
    std::size_t count = 0;
    for (std::size_t i = std::min(position, holeTree_.size() - 1); i > 0; i -= i & (~i + 1)) count += holeTree_[i];
    return count;
}

void RowStore::MarkHole(std::size_t position) {
    for (std::size_t i = position + 1; i < holeTree_.size(); i += i & (~i + 1)) ++holeTree_[i];
}

std::size_t RowStore::PositionOf(Row *row) {
    RefreshPositions();
    return row->position_ - HolesBefore(row->position_);
}

void RowStore::Remove(Row *row) {
    RefreshPositions();
    // Holes are counted in a tree over the slots that existed at the first
    // hole; a row appended since then is removed after closing the holes.
    if (holes_ > 0 && row->position_ + 1 >= holeTree_.size()) Compact();
    if (holes_ == 0) holeTree_.assign(master_.size() + 1, 0);
    std::size_t position = row->position_;
    master_[position] = nullptr;
    MarkHole(position);
    ++holes_;
    auto dup = duplicates_.find(row->key_);
    if (dup == duplicates_.end()) {
        index_.erase(row->key_);
    } else {
        if (--dup->second == 0) duplicates_.erase(dup);
        Row *&entry = index_[row->key_];
        if (entry == row) entry = FirstLive(row->key_, row);
    }
    Retire(row);
    ++generation_;
}

void RowStore::Compact() {
    if (holes_ == 0) return;
    std::size_t kept = 0;
    for (std::size_t p = 0; p < master_.size(); ++p) {
        if (!master_[p]) continue;
        master_[kept] = master_[p];
        master_[kept]->position_ = static_cast<std::uint32_t>(kept);
        checks_[kept] = checks_[p];
        ++kept;
    }
    master_.resize(kept);
    checks_.resize(kept);
    holes_ = 0;
    holeTree_.clear();
    positionsCurrent_ = true;
}

void RowStore::Clear() {
    for (Row *row : master_)
        if (row) Retire(row);
    master_.clear();
    checks_.clear();
    holes_ = 0;
    holeTree_.clear();
    index_.clear();
    duplicates_.clear();
    positionsCurrent_ = true;
    ++generation_;
}

void RowStore::Replace(Row *old, Row *fresh) {
    RefreshPositions();
    master_[old->position_] = fresh;
    fresh->position_ = old->position_;
    auto it = index_.find(old->key_);
    if (it != index_.end() && it->second == old) it->second = fresh;
    Retire(old);
}

Row &RowStore::Writable(Row *row, std::uint32_t column) {
    ++generation_;
    if (row->born_ == viewEpoch_ && column < row->width_) return *row;
    Row *fresh = Row::Copy(*row, column + 1, viewEpoch_);
    Replace(row, fresh);
    return *fresh;
}

void RowStore::ClearCells() {
    RefreshPositions();
    for (Row *&row : master_) {
        if (!row) continue;
        Row *fresh = Row::Create(row->key_, 0, viewEpoch_);
        Replace(row, fresh);
    }
    ++generation_;
}

void RowStore::PermuteMaster(const std::vector<std::uint32_t> &order) {
    Compact();
    if (order.size() != master_.size()) return;
    std::vector<Row *> sorted(master_.size());
    for (std::size_t k = 0; k < order.size(); ++k) sorted[k] = master_[order[k]];
    master_.swap(sorted);
    positionsCurrent_ = false;
    ++generation_;
}

bool RowStore::ViewIsMaster() {
    Compact();
    return view_ == master_;
}

void RowStore::AdoptViewOrder() {
    Compact();
    if (view_.size() != master_.size()) return;
    master_ = view_;
    positionsCurrent_ = false;
    ++generation_;
}

std::vector<bool> &RowStore::Checks() {
    Compact();
    return checks_;
}

void RowStore::Retire(Row *row) { removed_.push_back(row); }

void RowStore::BeginViewRebuild() {
    view_.clear();
    if (holdRemoved_ == 0) {
        for (Row *row : removed_) Row::Destroy(row);
        removed_.clear();
    }
    ++viewEpoch_;
}

}  // namespace qor::report
