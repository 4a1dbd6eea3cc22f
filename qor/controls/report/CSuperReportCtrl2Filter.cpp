// The grid's filter, its two sorts and its context menu.
#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "qor/controls/report/CSuperReportCtrl2.h"
#include "qor/controls/report/ReportSort.h"
#include "qor/controls/report/SortKeys.h"

using qor::report::Row;

namespace qor::report_filter_impl {

constexpr const char *kRootText = "This is just used to attach the popup context menu";
constexpr const char *kRowFilterText = "Filter by row";
constexpr const char *kColumnFilterText = "Filter by column";
constexpr const char *kEmptyText = "[empty]";

std::vector<Row *> Reordered(const std::vector<Row *> &rows, const std::vector<std::uint32_t> &order) {
    std::vector<Row *> sorted(order.size());
    for (std::size_t k = 0; k < order.size(); ++k) {
        if (k + qor::report::kPrefetchAhead < order.size())
            __builtin_prefetch(&rows[order[k + qor::report::kPrefetchAhead]]);
        sorted[k] = rows[order[k]];
    }
    return sorted;
}

// Calls read(i, cell) for each row's cell of the column, in order.
template <class Read>
void ForEachCell(const std::vector<Row *> &rows, int column, Read &&read) {
    const std::size_t n = rows.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i + qor::report::kPrefetchAhead < n) qor::report::PrefetchCell(rows[i + qor::report::kPrefetchAhead], column);
        if (i + qor::report::kPrefetchTextAhead < n)
            qor::report::PrefetchCellText(rows[i + qor::report::kPrefetchTextAhead], column);
        read(i, rows[i]->Cell(column));
    }
}

std::string FilterItemText(const std::string &heading, const std::string &value) {
    return heading + " = " + (value.empty() ? std::string(kEmptyText) : value);
}

}  // namespace qor::report_filter_impl

// ---- filter ----

void CSuperReportCtrl2::ViewChanged() {
    ++viewVersion_;
    cachedRow_ = -1;
}

bool CSuperReportCtrl2::ViewCurrent() const {
    return viewGeneration_ == rows_.Generation() && !viewReordered_ && filter_ == appliedFilter_;
}

// The view is rebuilt only when the master, the filter or the view's own
// order changed since it was built; otherwise rebuilding would give the
// same rows, and callers that refresh on every read stay cheap.
void CSuperReportCtrl2::ApplyFilter() {
    if (!ViewCurrent()) {
        struct Required {
            int column;
            const std::string *text;
        };
        std::vector<Required> required;
        bool none = false;
        for (const auto &[heading, text] : filter_) {
            int column = ColumnOf(heading);
            if (column >= 0)
                required.push_back({column, &text});
            else if (!text.empty())
                none = true;  // a heading the rows lack reads as empty text
        }
        const std::vector<Row *> &master = rows_.Master();
        rows_.BeginViewRebuild();
        std::vector<Row *> &view = rows_.View();
        if (required.empty() && !none) {
            view = master;
        } else if (!none) {
            const std::size_t n = master.size();
            for (std::size_t i = 0; i < n; ++i) {
                if (i + qor::report::kPrefetchAhead < n)
                    qor::report::PrefetchCell(master[i + qor::report::kPrefetchAhead], required.front().column);
                Row *row = master[i];
                bool pass = true;
                for (const Required &r : required)
                    if (row->Cell(r.column) != *r.text) {
                        pass = false;
                        break;
                    }
                if (pass) view.push_back(row);
            }
        }
        viewGeneration_ = rows_.Generation();
        viewReordered_ = false;
        ViewChanged();
    }
    appliedFilter_ = filter_;
    if (container_) container_->OnViewChanged(this);
    Invalidate();
    SetItemCount(getNumberOfRows());
}

void CSuperReportCtrl2::contextMenuShowByUpdate() { ApplyFilter(); }

void CSuperReportCtrl2::SetFilter(const std::map<std::string, std::string> &filter) {
    closeInPlaceControl();
    filter_ = filter;
    contextMenuShowByUpdate();
}

std::vector<std::string> CSuperReportCtrl2::getFilterParameters() const {
    std::vector<std::string> parameters;
    for (const auto &[heading, text] : filter_) parameters.push_back(heading + " = " + text);
    return parameters;
}

void CSuperReportCtrl2::showAll() {
    closeInPlaceControl();
    lastFilter_ = filter_;
    filter_.clear();
    refresh();
}

// ---- sorting ----

// Gathers one sort value per row; false when the container changed the grid
// while it was asked, and the sort must not go on with stale rows.
template <class Collect>
bool CSuperReportCtrl2::CollectSortValues(const std::vector<Row *> &rows, Collect &&collect) {
    std::uint64_t version = viewVersion_, generation = rows_.Generation();
    rows_.HoldRemoved(true);
    for (std::size_t i = 0; i < rows.size(); ++i) collect(i, rows[i]);
    rows_.HoldRemoved(false);
    return version == viewVersion_ && generation == rows_.Generation();
}

void CSuperReportCtrl2::SortTables(bool quick) {
    const HeaderInfo *header = getHeaderInfo(sortColumn_);
    if (!header) return;
    const int column = sortColumn_;
    const bool ascending = ascending_;
    enum class Kind { Text, Numeric, Time } kind = header->numeric ? Kind::Numeric : header->time ? Kind::Time : Kind::Text;

    // The order of a table's rows. Times come from the container by row
    // number; for the master's rows the view shows the master meanwhile, so
    // the numbers the container gets mean the rows it is asked about.
    auto orderOf = [&](const std::vector<Row *> &rows, bool asView, std::vector<std::uint32_t> &order) -> bool {
        switch (kind) {
        case Kind::Numeric: {
            std::vector<std::int32_t> values(rows.size());
            qor::report_filter_impl::ForEachCell(rows, column, [&](std::size_t i, const std::string &cell) {
                values[i] = qor::Atol32(cell);
            });
            order = quick ? qor::QuickSortOrder(std::move(values), ascending) : qor::BubbleSortOrder(values, ascending);
            return true;
        }
        case Kind::Time: {
            std::vector<std::int64_t> values(rows.size());
            std::vector<Row *> shown;
            if (!asView) shown = std::exchange(rows_.View(), rows);
            bool intact = CollectSortValues(rows, [&](std::size_t i, Row *) {
                // The owner reads the cell, most likely: fetch it meanwhile.
                if (i + qor::report::kPrefetchAhead < rows.size())
                    qor::report::PrefetchCell(rows[i + qor::report::kPrefetchAhead], column);
                if (i + qor::report::kPrefetchTextAhead < rows.size())
                    qor::report::PrefetchCellText(rows[i + qor::report::kPrefetchTextAhead], column);
                values[i] = container_ ? container_->GetCellTime(static_cast<int>(i), column) : 0;
            });
            if (!asView) rows_.View() = std::move(shown);
            if (!intact) {
                viewReordered_ = true;  // the next refresh rebuilds whatever the container left
                return false;
            }
            order = quick ? qor::QuickSortOrder(std::move(values), ascending) : qor::BubbleSortOrder(values, ascending);
            return true;
        }
        case Kind::Text: {
            std::vector<std::string> values(rows.size());
            qor::report_filter_impl::ForEachCell(rows, column, [&](std::size_t i, const std::string &cell) {
                values[i] = cell;
            });
            order = quick ? qor::QuickSortOrder(std::move(values), ascending) : qor::BubbleSortOrder(values, ascending);
            return true;
        }
        }
        return false;
    };

    std::vector<std::uint32_t> order;
    std::vector<Row *> view = rows_.View();
    if (view.size() < 2 && !quick) return;
    // When the view is the master row for row, sorting the master gives the
    // same order: it is taken over instead of sorted a second time.
    bool viewIsMaster = quick && rows_.ViewIsMaster();
    if (view.size() >= 2) {
        if (!orderOf(view, true, order)) return;
        rows_.View() = qor::report_filter_impl::Reordered(view, order);
        ViewChanged();
    }
    if (!quick) {
        viewReordered_ = true;
        return;
    }
    if (viewIsMaster) {
        bool current = ViewCurrent();
        rows_.AdoptViewOrder();
        if (current) viewGeneration_ = rows_.Generation();
        return;
    }
    std::vector<Row *> master = rows_.Master();
    if (master.size() >= 2 && orderOf(master, false, order)) rows_.PermuteMaster(order);
}

void CSuperReportCtrl2::bubbleSort() { SortTables(false); }

void CSuperReportCtrl2::quickSort() {
    SortTables(true);
    refresh();
}

void CSuperReportCtrl2::sortView(int column, bool ascending) {
    sortColumn_ = column;
    ascending_ = ascending;
    closeInPlaceControl();
    selectAllRows(false);
    if (sortingMethod_ == SortingMethod::bubbleSort) bubbleSort();
    if (sortingMethod_ == SortingMethod::quickSort) quickSort();
}

void CSuperReportCtrl2::OnHdnItemclick(int column) {
    if (!container_ || container_->OnHeaderClick(column)) return;
    if (!getHeaderInfo(column)) return;
    ascending_ = column == sortColumn_ ? !ascending_ : true;
    sortColumn_ = column;
    closeInPlaceControl();
    selectAllRows(false);
    SetRedraw(false);
    if (sortingMethod_ == SortingMethod::bubbleSort) bubbleSort();
    if (sortingMethod_ == SortingMethod::quickSort) quickSort();
    SetRedraw(true);
    Invalidate();
    // The container may have gone during the sort's calls; it is asked again.
    if (container_) container_->OnSorted(getHeader(column) + (ascending_ ? "(Ascending)" : "(Descending)"));
}

// ---- context menu ----

void CSuperReportCtrl2::createContextMenus() {
    using namespace qor::report_filter_impl;
    menu_ = qor::MenuItem::Popup(kRootText);
    auto &items = menu_.popup;
    auto item = [&](unsigned id, const char *text) { items.push_back(qor::MenuItem::Command(id, text)); };
    if (contextStyles_ & ScrollingItem) {
        item(kScrollId, scrolling_ ? "Stop scrolling" : "Resume scrolling");
        items.push_back(qor::MenuItem::Separator());
    }
    if ((contextStyles_ & SelectionItems) && !IsSingleSelection()) {
        item(kSelectAllId, "Select all");
        item(kDeselectAllId, "Deselect all");
        item(kInvertSelectionId, "Invert selection");
    }
    if (contextStyles_ & FilterItems) {
        item(kShowAllId, "Show all");
        item(kUseLastFilterId, "Use last filter");
        items.push_back(qor::MenuItem::Popup(kRowFilterText));
        items.push_back(qor::MenuItem::Popup(kColumnFilterText));
    }
    items.insert(items.end(), customItems_.begin(), customItems_.end());
}

void CSuperReportCtrl2::setContextStyle(ContextStyles styles) {
    contextStyles_ = styles;
    createContextMenus();
}

void CSuperReportCtrl2::EnableScrolling(bool on) {
    contextStyles_ = on ? contextStyles_ | ScrollingItem : 0;
    scrolling_ = on;
    createContextMenus();
}

void CSuperReportCtrl2::addContextMenusItem(unsigned id, std::string text, unsigned *newId) {
    auto used = [&](unsigned candidate) {
        return std::any_of(customItems_.begin(), customItems_.end(), [&](auto &i) { return i.id == candidate; });
    };
    // A caller's identifier is kept when it is free and clear of the grid's
    // own; otherwise one is given from the custom range.
    bool own = id == 0 || id <= kScrollId || used(id) ||
               (id >= kRowFilterBaseId && id < kCustomBaseId);
    if (own) {
        id = kCustomBaseId;
        while (used(id)) ++id;
    }
    customItems_.push_back(qor::MenuItem::Command(id, std::move(text)));
    createContextMenus();
    if (newId) *newId = id;
}

void CSuperReportCtrl2::addContextMenusItemPopup(qor::MenuItem &menu, unsigned id, std::string text,
                                                 std::vector<std::string> &items) {
    qor::MenuItem popup = qor::MenuItem::Popup(std::move(text));
    for (const std::string &label : items) popup.popup.push_back(qor::MenuItem::Command(id++, label));
    menu.popup.push_back(std::move(popup));
}

qor::MenuItem *CSuperReportCtrl2::FindPopup(const char *text) {
    for (qor::MenuItem &item : menu_.popup)
        if (item.isPopup && item.text == text) return &item;
    return nullptr;
}

const std::vector<std::string> &CSuperReportCtrl2::ColumnValues(int column) {
    if (columnValues_.version == viewVersion_ && columnValues_.column == column) return columnValues_.values;
    std::vector<std::string> values;
    if (getHeaderInfo(column)) {
        // Distinct values first, then sorted: a column of few values among
        // many rows sorts only those few.
        std::unordered_set<std::string_view> seen;
        for (const Row *row : rows_.View()) seen.insert(row->Cell(column));
        values.assign(seen.begin(), seen.end());
        std::sort(values.begin(), values.end());
    }
    columnValues_.version = viewVersion_;
    columnValues_.column = column;
    columnValues_.values = std::move(values);
    return columnValues_.values;
}

void CSuperReportCtrl2::populateRowFilterMenu() {
    qor::MenuItem *popup = FindPopup(qor::report_filter_impl::kRowFilterText);
    if (!popup) return;
    popup->popup.clear();
    for (int c = 0; c < getNumberOfColumns(); ++c)
        popup->popup.push_back(qor::MenuItem::Command(kRowFilterBaseId + c,
                                             qor::report_filter_impl::FilterItemText(getHeader(c), getCellData(menuRow_, c))));
}

void CSuperReportCtrl2::populateColumnFilterMenu() {
    qor::MenuItem *popup = FindPopup(qor::report_filter_impl::kColumnFilterText);
    if (!popup) return;
    popup->popup.clear();
    const std::vector<std::string> &values = ColumnValues(menuColumn_);
    std::string heading = getHeader(menuColumn_);
    popup->popup.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        popup->popup.push_back(qor::MenuItem::Command(kColumnFilterBaseId + static_cast<unsigned>(i),
                                             qor::report_filter_impl::FilterItemText(heading, values[i])));
}

bool CSuperReportCtrl2::OnContextMenu(CPoint point, int row, int column) {
    if (contextStyles_ == 0) return false;
    if (container_ && container_->OnContextMenuRequest(point)) return false;
    menuRow_ = row;
    menuColumn_ = column;
    bool valid = ViewRow(row) && getHeaderInfo(column);
    if (!valid && filter_.empty()) return false;
    populateRowFilterMenu();
    populateColumnFilterMenu();
    for (const char *text : {qor::report_filter_impl::kRowFilterText, qor::report_filter_impl::kColumnFilterText})
        if (qor::MenuItem *popup = FindPopup(text)) popup->enabled = valid;
    return true;
}

void CSuperReportCtrl2::OnContextMenuSelectAll() {
    selectAllRows(true);
    if (container_) container_->OnSelectAll(this);
}

void CSuperReportCtrl2::OnContextMenuUnselectAll() {
    selectAllRows(false);
    if (container_) container_->OnDeselectAll(this);
}

void CSuperReportCtrl2::OnContextMenuInvertSelection() {
    for (int i = 0, n = GetItemCount(); i < n; ++i)
        SetItemState(i, GetItemState(i, LVIS_SELECTED) ? 0 : LVIS_SELECTED, LVIS_SELECTED);
    if (container_) container_->OnSelectionChanged(-1);
}

void CSuperReportCtrl2::OnContextMenuShowAll() {
    if (container_ && container_->OnShowAllRequest()) return;
    showAll();
    if (container_) container_->OnViewChanged(this);
}

void CSuperReportCtrl2::OnContextMenuUseLastFilter() {
    closeInPlaceControl();
    filter_ = lastFilter_;
    refresh();
    if (container_) container_->OnViewChanged(this);
}

void CSuperReportCtrl2::OnContextMenuScroll() {
    scrolling_ = !scrolling_;
    for (qor::MenuItem &item : menu_.popup)
        if (item.id == kScrollId && !item.isPopup) item.text = scrolling_ ? "Stop scrolling" : "Resume scrolling";
}

void CSuperReportCtrl2::OnContextMenuShowByRow(unsigned id) {
    int column = static_cast<int>(id - kRowFilterBaseId);
    if (id < kRowFilterBaseId || !getHeaderInfo(column)) return;
    closeInPlaceControl();
    filter_[getHeader(column)] = getCellData(menuRow_, column);
    contextMenuShowByUpdate();
    if (container_) container_->OnFilterByRow();
}

void CSuperReportCtrl2::OnContextMenuShowByColumn(unsigned id) {
    if (id < kColumnFilterBaseId || !getHeaderInfo(menuColumn_)) return;
    const std::vector<std::string> &values = ColumnValues(menuColumn_);
    std::size_t index = id - kColumnFilterBaseId;
    std::string value = index < values.size() ? values[index] : std::string();
    closeInPlaceControl();
    filter_[getHeader(menuColumn_)] = value;
    contextMenuShowByUpdate();
    if (container_) container_->OnFilterByColumn();
}

void CSuperReportCtrl2::OnContextMenuCustom(unsigned id) {
    auto item = std::find_if(customItems_.begin(), customItems_.end(), [&](auto &i) { return i.id == id; });
    if (item == customItems_.end()) return;
    std::vector<RowData> rows;
    for (int r : getSelectionSet()) {
        Row *row = ViewRow(r);
        if (!row) continue;
        rows.push_back(RowMap(row));
        rows.back()["ItemID"] = std::to_string(row->Key());
    }
    std::string text = item->text;
    if (container_) container_->OnCustomMenu(rows, text);
}

bool CSuperReportCtrl2::OnContextMenuCommand(unsigned id) {
    using Handler = void (CSuperReportCtrl2::*)();
    static constexpr struct {
        unsigned id;
        Handler handler;
    } fixed[] = {
        {kSelectAllId, &CSuperReportCtrl2::OnContextMenuSelectAll},
        {kDeselectAllId, &CSuperReportCtrl2::OnContextMenuUnselectAll},
        {kShowAllId, &CSuperReportCtrl2::OnContextMenuShowAll},
        {kInvertSelectionId, &CSuperReportCtrl2::OnContextMenuInvertSelection},
        {kUseLastFilterId, &CSuperReportCtrl2::OnContextMenuUseLastFilter},
        {kScrollId, &CSuperReportCtrl2::OnContextMenuScroll},
    };
    for (const auto &entry : fixed)
        if (entry.id == id) {
            (this->*entry.handler)();
            return true;
        }
    if (std::any_of(customItems_.begin(), customItems_.end(), [&](auto &i) { return i.id == id; })) {
        OnContextMenuCustom(id);
        return true;
    }
    auto inPopup = [&](const char *text) {
        qor::MenuItem *popup = FindPopup(text);
        return popup && std::any_of(popup->popup.begin(), popup->popup.end(), [&](auto &i) { return i.id == id; });
    };
    if (inPopup(qor::report_filter_impl::kRowFilterText)) {
        OnContextMenuShowByRow(id);
        return true;
    }
    if (inPopup(qor::report_filter_impl::kColumnFilterText)) {
        OnContextMenuShowByColumn(id);
        return true;
    }
    return false;
}
