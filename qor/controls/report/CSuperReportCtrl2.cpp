// The grid's tables: columns, rows, keys, reads, bulk loads and refresh,
// and the list's state when there is no window.
#include "qor/controls/report/CSuperReportCtrl2.h"

#include <algorithm>
#include <climits>
#include <sstream>

using qor::report::Row;

std::int64_t CSuperReportCtrl2::keyCounter = -2;

CSuperReportCtrl2::CSuperReportCtrl2(CSuperReportCtrl2Container *container, bool deletesEnabled,
                                     CSuperReportCtrl2::DragAndDrop::DragStyle dragStyle)
    : container_(container), deletesEnabled_(deletesEnabled), dragStyle_(dragStyle) {
    createContextMenus();
}

CSuperReportCtrl2::~CSuperReportCtrl2() = default;

// ---- columns ----

int CSuperReportCtrl2::ColumnOf(const std::string &name) const {
    for (const HeaderInfo &header : headers_)
        if (header.name == name) return header.columnIndex;
    return -1;
}

bool CSuperReportCtrl2::insertHeader(std::string name, InPlaceType type, bool numeric, bool time, bool multiLine) {
    if (findHeader(name)) return false;
    int column = static_cast<int>(headers_.size());
    if (!InsertListColumn(column, name, GetStringWidth(name) + 13)) return false;
    headers_.push_back({std::move(name), column, true, type, numeric, time, multiLine});
    ViewChanged();
    return true;
}

bool CSuperReportCtrl2::findHeader(const std::string &name) const { return ColumnOf(name) >= 0; }

std::string CSuperReportCtrl2::getHeader(int column) const {
    const HeaderInfo *header = getHeaderInfo(column);
    return header ? header->name : std::string();
}

int CSuperReportCtrl2::getHeaderColumn(const std::string &name) const { return ColumnOf(name); }

const CSuperReportCtrl2::HeaderInfo *CSuperReportCtrl2::getHeaderInfo(int column) const {
    return column >= 0 && column < getNumberOfColumns() ? &headers_[column] : nullptr;
}

void CSuperReportCtrl2::changeInPlaceType(std::string name, InPlaceType type) {
    int column = ColumnOf(name);
    if (column >= 0) headers_[column].inPlaceType = type;
}

void CSuperReportCtrl2::deleteAllHeaders() {
    closeInPlaceControl();
    DeleteListColumns();
    headers_.clear();
    hiddenColumns_.clear();
    rows_.ClearCells();
    sortColumn_ = -1;
    ViewChanged();
}

int CSuperReportCtrl2::HeadingWidth(int column) const { return GetStringWidth(getHeader(column)) + 13; }

void CSuperReportCtrl2::HideColumn(int column, bool hide) {
    if (!getHeaderInfo(column)) return;
    if (hide) {
        hiddenColumns_.insert(column);
        SetColumnWidth(column, 0);
    } else {
        hiddenColumns_.erase(column);
        SetColumnWidth(column, HeadingWidth(column));
    }
}

std::map<int, int> CSuperReportCtrl2::getColumnWidths() {
    std::map<int, int> widths;
    for (int c = 0; c < getNumberOfColumns(); ++c) widths[c] = GetColumnWidth(c);
    return widths;
}

std::vector<int> CSuperReportCtrl2::getColumnOrderVector() {
    std::vector<int> order = GetColumnOrder();
    if (order.size() != headers_.size()) {
        order.resize(headers_.size());
        for (std::size_t c = 0; c < order.size(); ++c) order[c] = static_cast<int>(c);
    }
    return order;
}

void CSuperReportCtrl2::setColumnOrderVector(std::vector<int> order) {
    std::vector<int> sorted = order;
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t c = 0; c < sorted.size(); ++c)
        if (sorted[c] != static_cast<int>(c)) return;
    if (sorted.size() == headers_.size()) SetColumnOrder(order);
}

void CSuperReportCtrl2::resizeColumn(int column, const std::string &text) {
    if (!autoResize_ || !getHeaderInfo(column) || hiddenColumns_.count(column)) return;
    int width = GetStringWidth(text) + 13;
    if (width > GetColumnWidth(column)) SetColumnWidth(column, width);
}

void CSuperReportCtrl2::resizeColumns() {
    for (int c = 0; c < getNumberOfColumns(); ++c) resizeColumn(c, headers_[c].name);
}

int CSuperReportCtrl2::OnMinResizeColumn(int column, int width) const {
    if (!getHeaderInfo(column) || hiddenColumns_.count(column)) return width;
    return std::max(width, HeadingWidth(column));
}

// ---- rows ----

Row *CSuperReportCtrl2::ViewRow(int row) const {
    auto &view = rows_.View();
    return row >= 0 && static_cast<std::size_t>(row) < view.size() ? view[row] : nullptr;
}

CSuperReportCtrl2::RowData CSuperReportCtrl2::RowMap(const Row *row) const {
    RowData data;
    if (!row) return data;
    for (const HeaderInfo &header : headers_) data.emplace(header.name, row->Cell(header.columnIndex));
    return data;
}

void CSuperReportCtrl2::AppendRow(const std::vector<const std::string *> &cells, std::int64_t key) {
    cachedRow_ = -1;
    if (key == -1) {
        do key = generateKey();
        while (!isKeyUnique(key));
    }
    Row &row = rows_.Append(key, static_cast<std::uint32_t>(headers_.size()));
    for (std::size_t c = 0; c < cells.size(); ++c)
        if (cells[c]) row.MutableCell(c) = *cells[c];
}

bool CSuperReportCtrl2::insertRow(const std::vector<std::pair<std::string, std::string>> &cells, std::int64_t key) {
    std::vector<const std::string *> byColumn(headers_.size(), nullptr);
    for (const HeaderInfo &header : headers_)
        for (const auto &[heading, text] : cells)
            if (heading == header.name) {
                byColumn[header.columnIndex] = &text;
                break;
            }
    AppendRow(byColumn, key);
    return true;
}

bool CSuperReportCtrl2::insertRow(const std::map<std::string, std::string> &cells, std::int64_t key) {
    std::vector<const std::string *> byColumn(headers_.size(), nullptr);
    for (const HeaderInfo &header : headers_)
        if (auto it = cells.find(header.name); it != cells.end()) byColumn[header.columnIndex] = &it->second;
    AppendRow(byColumn, key);
    return true;
}

bool CSuperReportCtrl2::deleteRow(int row) {
    // A row equal to the item count passes, as it always has; it finds no key.
    if (row < 0 || headers_.empty() || row > GetItemCount()) return false;
    SetItemState(row, 0, LVIS_SELECTED);
    std::int64_t key = getUniqueKey(row);
    Row *found = row < getNumberOfRows() ? rows_.Find(key) : nullptr;
    if (!found) return false;
    rows_.Remove(found);
    refresh();
    return true;
}

bool CSuperReportCtrl2::deleteRowFromKey(std::int64_t key, bool doRefresh) {
    Row *found = rows_.Find(key);
    if (!found) return false;
    SetItemState(static_cast<int>(rows_.PositionOf(found)), 0, LVIS_SELECTED);
    rows_.Remove(found);
    if (doRefresh) refresh();
    return true;
}

bool CSuperReportCtrl2::deleteAllRows() {
    rows_.Clear();
    appliedFilter_.clear();
    refresh();
    return true;
}

bool CSuperReportCtrl2::deleteSelectedRows() {
    std::vector<int> selected = getSelectionSet();
    bool any = false;
    for (auto it = selected.rbegin(); it != selected.rend(); ++it) {
        Row *row = ViewRow(*it);
        if (row && deleteRowFromKey(row->Key(), false)) {
            SetItemCount(GetItemCount() - 1);
            any = true;
        }
    }
    showAll();
    return any;
}

bool CSuperReportCtrl2::updateCell(int row, int column, const std::string &value, bool notify) {
    Row *viewRow = ViewRow(row);
    return viewRow && updateCellKey(viewRow->Key(), column, value, notify);
}

bool CSuperReportCtrl2::updateCell(std::int64_t key, const std::pair<std::string, std::string> &cell, bool notify) {
    int column = ColumnOf(cell.first);
    return column >= 0 && updateCellKey(key, column, cell.second, notify);
}

bool CSuperReportCtrl2::updateCellKey(std::int64_t key, int column, const std::string &value, bool notify) {
    if (!getHeaderInfo(column)) return false;
    Row *row = rows_.Find(key);
    if (!row) return false;
    bool tell = notify && container_;
    std::string old = tell ? row->Cell(column) : std::string();
    rows_.Writable(row, static_cast<std::uint32_t>(column)).MutableCell(column) = value;
    resizeColumn(column, value);
    if (tell) {
        if (EditorOn(key, column))
            container_->OnCellCommitted(key);
        else
            container_->OnCellEdited(key, old, value);
    }
    return true;
}

std::string CSuperReportCtrl2::getCellData(int row, int column) const { return getCellText(row, column); }

const std::string &CSuperReportCtrl2::getCellText(int row, int column) const {
    static const std::string none;
    Row *viewRow = ViewRow(row);
    return viewRow && getHeaderInfo(column) ? viewRow->Cell(column) : none;
}

std::string CSuperReportCtrl2::getRealCellData(int row, int column) {
    Row *viewRow = ViewRow(row);
    if (!viewRow || !getHeaderInfo(column)) return {};
    Row *master = rows_.Find(viewRow->Key());
    return master ? master->Cell(column) : std::string();
}

CSuperReportCtrl2::RowData CSuperReportCtrl2::getViewRowData(int row) const { return RowMap(ViewRow(row)); }

CSuperReportCtrl2::RowData CSuperReportCtrl2::getMainRowData(int row) {
    return row < 0 ? RowData() : RowMap(rows_.MasterAt(static_cast<std::size_t>(row)));
}

CSuperReportCtrl2::RowData CSuperReportCtrl2::getRowDataFromKey(std::int64_t key) { return RowMap(rows_.Find(key)); }

bool CSuperReportCtrl2::getValidViewRowData(int row, RowData &data) const {
    Row *viewRow = ViewRow(row);
    if (!viewRow) return false;
    data = RowMap(viewRow);
    return true;
}

std::vector<std::string> CSuperReportCtrl2::getViewColumnData(int column) const {
    std::vector<std::string> cells;
    if (!getHeaderInfo(column)) return cells;
    const auto &view = rows_.View();
    cells.reserve(view.size());
    for (const Row *row : view) cells.push_back(row->Cell(column));
    return cells;
}

std::vector<std::string> CSuperReportCtrl2::getViewColumnData(const std::string &name) const {
    return getViewColumnData(ColumnOf(name));
}

std::vector<std::string> CSuperReportCtrl2::getMasterColumnData(int column) {
    std::vector<std::string> cells;
    if (!getHeaderInfo(column)) return cells;
    cells.reserve(rows_.MasterSize());
    for (const Row *row : rows_.Master()) cells.push_back(row->Cell(column));
    return cells;
}

std::vector<std::string> CSuperReportCtrl2::getMasterColumnData(const std::string &name) {
    return getMasterColumnData(ColumnOf(name));
}

CSuperReportCtrl2::Table CSuperReportCtrl2::getView() const {
    Table table;
    for (const HeaderInfo &header : headers_) table.emplace(header, getViewColumnData(header.columnIndex));
    return table;
}

std::int64_t CSuperReportCtrl2::generateKey() { return keyCounter--; }

bool CSuperReportCtrl2::isKeyUnique(std::int64_t key) const { return !rows_.Contains(key); }

std::int64_t CSuperReportCtrl2::getUniqueKey(int row) {
    refresh();
    Row *viewRow = ViewRow(row);
    return viewRow ? viewRow->Key() : 0;
}

void CSuperReportCtrl2::importTable(const std::vector<KeysAndData> &records) {
    for (const KeysAndData &record : records) insertRow(record.data, record.key);
    refresh();
    int n = static_cast<int>(std::min<std::size_t>(records.size(), 0x7FFFFFFF));
    int count = GetItemCount();
    for (int i = 0; i < std::min(n, count); ++i) SetItemState(i, 0, LVIS_SELECTED);
    for (int i = std::max(0, count - n); i < count; ++i) SetItemState(i, LVIS_SELECTED, LVIS_SELECTED);
    setDropHighlight(-1);
}

void CSuperReportCtrl2::transposeTable(std::vector<KeysAndData> &records) {
    records.clear();
    records.reserve(rows_.MasterSize());
    for (const Row *row : rows_.Master()) records.push_back({row->Key(), RowMap(row)});
}

int CSuperReportCtrl2::copyKeysToSRC2(CSuperReportCtrl2 &target, const std::vector<std::int64_t> &keys,
                                      bool doRefresh) {
    int copied = 0;
    for (std::int64_t key : keys) {
        Row *row = rows_.Find(key);
        if (!row) continue;
        RowData data = RowMap(row);
        if (container_ && !container_->CanCopyRow(data)) continue;
        target.insertRow(data, target.isKeyUnique(key) ? key : -1);
        ++copied;
    }
    if (doRefresh && copied) target.refresh();
    return copied;
}

bool CSuperReportCtrl2::copySelectionToSRC2(CSuperReportCtrl2 &target, bool doRefresh) {
    std::vector<std::pair<std::int64_t, RowData>> rows;
    for (int r : getSelectionSet())
        if (Row *row = ViewRow(r)) rows.emplace_back(row->Key(), RowMap(row));
    copiedKeys_.clear();
    for (auto &[key, data] : rows) {
        if (container_ && !container_->CanCopyRow(data)) continue;
        target.insertRow(data, target.isKeyUnique(key) ? key : -1);
        copiedKeys_.push_back(key);
    }
    if (doRefresh && !copiedKeys_.empty()) target.refresh();
    return !copiedKeys_.empty();
}

std::string CSuperReportCtrl2::printViewTable() const {
    std::ostringstream out;
    for (const HeaderInfo &header : headers_) out << (header.columnIndex ? "\t" : "") << header.name;
    out << '\n';
    for (const Row *row : rows_.View()) {
        for (const HeaderInfo &header : headers_)
            out << (header.columnIndex ? "\t" : "") << row->Cell(header.columnIndex);
        out << '\n';
    }
    return out.str();
}

std::string CSuperReportCtrl2::debugPrintView() const {
    std::ostringstream out;
    out << "view: " << getNumberOfRows() << " rows, " << getNumberOfColumns() << " columns\n";
    int r = 0;
    for (const Row *row : rows_.View()) {
        out << r++ << " [" << row->Key() << "]";
        for (const HeaderInfo &header : headers_) out << ' ' << header.name << '=' << row->Cell(header.columnIndex);
        out << '\n';
    }
    return out.str();
}

void CSuperReportCtrl2::refresh() {
    if (headers_.empty()) {
        ShowWindow(false);
        return;
    }
    int oldCount = GetItemCount();
    std::size_t masterRows = rows_.MasterSize();
    if (masterRows < static_cast<std::size_t>(std::max(0, GetCountPerPage()))) OnSize(0, 0, 0);
    ShowWindow(true);
    contextMenuShowByUpdate();
    if (static_cast<std::size_t>(std::max(0, oldCount)) < masterRows && scrolling_) ScrollToBottom();
    resizeColumns();
    Invalidate();
}

// ---- the list without a window ----

void CSuperReportCtrl2::SetItemCount(int count) {
    itemCount_ = std::max(0, count);
    itemStates_.resize(static_cast<std::size_t>(itemCount_));
}

bool CSuperReportCtrl2::SetItemState(int item, unsigned state, unsigned mask) {
    auto apply = [&](unsigned char &bits) { bits = static_cast<unsigned char>((bits & ~mask) | (state & mask)); };
    if (item == -1) {
        for (unsigned char &bits : itemStates_) apply(bits);
        return true;
    }
    if (item < 0 || item >= itemCount_) return false;
    apply(itemStates_[item]);
    return true;
}

unsigned CSuperReportCtrl2::GetItemState(int item, unsigned mask) const {
    return item >= 0 && item < itemCount_ ? itemStates_[item] & mask : 0;
}

bool CSuperReportCtrl2::InsertListColumn(int column, const std::string &heading, int width) {
    columnWidths_.insert(columnWidths_.begin() + column, width);
    for (int &c : columnOrder_)
        if (c >= column) ++c;
    columnOrder_.push_back(column);
    return true;
}

bool CSuperReportCtrl2::SetColumnWidth(int column, int width) {
    if (column < 0 || static_cast<std::size_t>(column) >= columnWidths_.size()) return false;
    columnWidths_[column] = std::max(0, width);
    return true;
}

int CSuperReportCtrl2::GetColumnWidth(int column) const {
    return column >= 0 && static_cast<std::size_t>(column) < columnWidths_.size() ? columnWidths_[column] : 0;
}

int CSuperReportCtrl2::GetStringWidth(const std::string &text) const {
    return static_cast<int>(std::min<std::size_t>(text.size(), 0x7FFFFFFF / 6)) * 6;
}

CRect CSuperReportCtrl2::GetListItemRect(int row) const {
    if (row < 0 || row >= itemCount_ || row >= INT_MAX / kRowHeight - 1) return CRect();
    long long width = 0;
    for (int w : columnWidths_) width += w;
    return CRect(0, row * kRowHeight, static_cast<int>(std::min<long long>(width, INT_MAX)), (row + 1) * kRowHeight);
}

void CSuperReportCtrl2::DeleteListColumns() {
    columnWidths_.clear();
    columnOrder_.clear();
}

int CSuperReportCtrl2::HitTestRow(CPoint point) const {
    if (point.y < 0) return -1;
    int row = point.y / kRowHeight;
    return row < itemCount_ ? row : -1;
}
