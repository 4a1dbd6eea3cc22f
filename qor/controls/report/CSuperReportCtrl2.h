// The report grid: a table of text cells with stable row keys, shown by a
// list in report mode that asks for the rows it draws. It filters, sorts,
// edits cells in place and tells its owner (CSuperReportCtrl2Container)
// what happened. The grid runs without a window: it then keeps the list's
// state itself. A window adapter derives from it and overrides the list
// calls (the protected and public virtuals below) to forward them to a real
// list control. One thread only: the window's.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "qor/controls/report/CSuperReportCtrl2Container.h"
#include "qor/controls/report/ReportRows.h"
#include "qor/controls/report/ReportTypes.h"

class CSuperReportCtrl2 {
public:
    using InPlaceType = ::InPlaceType;

    // A column: its heading (also its key), its index at insertion and how
    // its cells sort and edit.
    struct HeaderInfo {
        std::string name;
        int columnIndex = 0;
        bool visible = true;
        InPlaceType inPlaceType = InPlaceReadOnly;
        bool numeric = false;    // sort by the integer value of the text
        bool time = false;       // sort by the time the container gives
        bool multiLine = false;  // the edit box has several lines
        bool operator<(const HeaderInfo &other) const { return columnIndex < other.columnIndex; }
    };
    // A row as its key and its cells, heading to text.
    struct KeysAndData {
        std::int64_t key = 0;
        std::map<std::string, std::string> data;
    };
    // A selected row: its key, its cells and its checkbox state.
    struct SelectionInfo {
        std::int64_t key = 0;
        std::map<std::string, std::string> data;
        bool checked = false;
    };
    struct DragAndDrop {
        // How rows dragged out of this grid are dropped on another one:
        // copied, or copied and then removed here.
        enum DragStyle : unsigned { NoDrag = 0, DragCopy = 1, DragMove = 2 };
    };
    enum class SortingMethod { bubbleSort = 1, quickSort = 2, stlSort = 3 };
    // Which items the context menu offers.
    enum ContextStyles : unsigned { SelectionItems = 1, FilterItems = 2, ScrollingItem = 4 };

    // The table's columns, heading and column index first, with their cells.
    using Table = std::map<HeaderInfo, std::vector<std::string>>;
    using RowData = std::map<std::string, std::string>;

    // Identifiers and texts of the context menu.
    static constexpr unsigned kSelectAllId = 1, kDeselectAllId = 2, kShowAllId = 3, kInvertSelectionId = 4,
                              kUseLastFilterId = 5, kScrollId = 6;
    static constexpr unsigned kRowFilterBaseId = 3125, kColumnFilterBaseId = 13126;
    static constexpr unsigned kCustomBaseId = 1000000;
    // The message an in-place editor sends its grid when it closes.
    static constexpr unsigned kUpdateFieldMessage = 0x7EA;

    CSuperReportCtrl2(CSuperReportCtrl2Container *container, bool deletesEnabled,
                      CSuperReportCtrl2::DragAndDrop::DragStyle dragStyle);
    CSuperReportCtrl2(const CSuperReportCtrl2 &) = delete;
    CSuperReportCtrl2 &operator=(const CSuperReportCtrl2 &) = delete;
    virtual ~CSuperReportCtrl2();

    // ---- columns ----
    // False when the heading exists or the list refuses the column. Cells of
    // rows already there are empty.
    bool insertHeader(std::string name, InPlaceType type, bool numeric, bool time, bool multiLine);
    bool findHeader(const std::string &name) const;
    std::string getHeader(int column) const;           // empty when out of range
    int getHeaderColumn(const std::string &name) const;  // -1 when absent
    void changeInPlaceType(std::string name, InPlaceType type);
    void deleteAllHeaders();
    void HideColumn(int column, bool hide);
    std::map<int, int> getColumnWidths();
    std::vector<int> getColumnOrderVector();
    // Ignored unless it is an order of all the columns.
    void setColumnOrderVector(std::vector<int> order);
    void resizeColumn(int column, const std::string &text);
    void resizeColumns();
    void SetColumnAutoResize(bool on) { autoResize_ = on; }
    int getNumberOfColumns() const { return static_cast<int>(headers_.size()); }
    int getNumberOfRows() const { return static_cast<int>(rows_.View().size()); }
    const HeaderInfo *getHeaderInfo(int column) const;  // null when out of range

    // ---- rows ----
    // Appends a row; cells under headings the table lacks are dropped, and
    // missing ones are empty. Key -1 makes a fresh key; any other key is
    // taken as given. The view changes at the next refresh.
    bool insertRow(const std::vector<std::pair<std::string, std::string>> &cells, std::int64_t key);
    bool insertRow(const std::map<std::string, std::string> &cells, std::int64_t key);
    // So that a braced list of cells picks neither of the two above.
    bool insertRow(std::initializer_list<std::pair<std::string, std::string>> cells, std::int64_t key) {
        return insertRow(std::vector<std::pair<std::string, std::string>>(cells), key);
    }
    bool deleteRow(int row);
    bool deleteRowFromKey(std::int64_t key, bool refresh);
    bool deleteAllRows();
    bool deleteSelectedRows();
    // Each returns false when the row, key or column does not exist.
    bool updateCell(int row, int column, const std::string &value, bool notify);
    bool updateCell(std::int64_t key, const std::pair<std::string, std::string> &cell, bool notify);
    bool updateCellKey(std::int64_t key, int column, const std::string &value, bool notify);
    std::string getCellData(int row, int column) const;  // as the view shows it
    // The same without a copy, for owners that read many cells (the times of
    // a sort); valid until the view changes.
    const std::string &getCellText(int row, int column) const;
    std::string getRealCellData(int row, int column);    // by the row's master record
    RowData getViewRowData(int row) const;
    RowData getMainRowData(int row);
    RowData getRowDataFromKey(std::int64_t key);
    bool getValidViewRowData(int row, RowData &data) const;
    std::vector<std::string> getViewColumnData(int column) const;
    std::vector<std::string> getViewColumnData(const std::string &name) const;
    std::vector<std::string> getMasterColumnData(int column);
    std::vector<std::string> getMasterColumnData(const std::string &name);
    Table getView() const;

    static std::int64_t generateKey();
    bool isKeyUnique(std::int64_t key) const;
    // Refreshes, then gives the view key of the row; 0 for a row not there.
    std::int64_t getUniqueKey(int row);
    void importTable(const std::vector<KeysAndData> &records);
    void transposeTable(std::vector<KeysAndData> &records);
    // Copy rows into another grid; keys stay unless the target has them.
    int copyKeysToSRC2(CSuperReportCtrl2 &target, const std::vector<std::int64_t> &keys, bool refresh);
    bool copySelectionToSRC2(CSuperReportCtrl2 &target, bool refresh);
    std::string debugPrintView() const;
    std::string printViewTable() const;

    // Brings the view in line with the master table and the filter.
    void refresh();

    // ---- filter, sort, context menu ----
    void SetFilter(const std::map<std::string, std::string> &filter);
    std::map<std::string, std::string> &GetViewFilter() { return filter_; }
    std::vector<std::string> getFilterParameters() const;
    void showAll();
    void contextMenuShowByUpdate();
    void sortView(int column, bool ascending);
    void setSortingMethod(SortingMethod method) { sortingMethod_ = method; }
    SortingMethod getSortingMethod() const { return sortingMethod_; }
    int getSortColumn() const { return sortColumn_; }
    bool isSortAscending() const { return ascending_; }
    void bubbleSort();
    void quickSort();
    void setContextStyle(ContextStyles styles);
    unsigned getContextStyle() const { return contextStyles_; }
    void EnableScrolling(bool on);
    bool isScrolling() const { return scrolling_; }
    void createContextMenus();
    const std::vector<qor::MenuItem> &GetViewContextMenu() const { return menu_.popup; }
    const qor::MenuItem &GetContextMenuRoot() const { return menu_; }
    void addContextMenusItem(unsigned id, std::string text, unsigned *newId);
    // Adds to menu a popup named text whose items are the strings, with
    // identifiers from id upwards.
    void addContextMenusItemPopup(qor::MenuItem &menu, unsigned id, std::string text, std::vector<std::string> &items);
    void populateRowFilterMenu();
    void populateColumnFilterMenu();

    void OnContextMenuSelectAll();
    void OnContextMenuUnselectAll();
    void OnContextMenuInvertSelection();
    void OnContextMenuShowAll();
    void OnContextMenuUseLastFilter();
    void OnContextMenuScroll();
    void OnContextMenuShowByRow(unsigned id);
    void OnContextMenuShowByColumn(unsigned id);
    void OnContextMenuCustom(unsigned id);
    // Runs the handler of a chosen menu item; false when the id is unknown.
    bool OnContextMenuCommand(unsigned id);

    // ---- window events, as plain calls ----
    void OnHdnItemclick(int column);
    void OnNMClick(int row, int column, bool onCheckbox);
    // Asks the container, sets the cell the menu is about, fills both filter
    // submenus; true when the popup is to be shown.
    bool OnContextMenu(CPoint point, int row, int column);
    void OnUpdateFieldValue(const std::string &text);
    void OnInplaceButtonClick();
    // The delete key removes the selected rows when deletes are enabled.
    void OnKeyDown(unsigned virtualKey);
    void OnKeyUp(unsigned virtualKey);
    // The text of a cell for the list; valid until the next call.
    const std::string &OnLvnGetdispinfo(int item, int subItem);
    int OnMinResizeColumn(int column, int width) const;
    int OnNotifyEndTrack(int column, int width) const { return OnMinResizeColumn(column, width); }
    virtual void OnSize(unsigned type, int cx, int cy) {}

    // ---- in-place editing ----
    unsigned long getColumnStyle(int column) const;
    const qor::InPlaceEditor *showInPlaceControl(int row, int column, const std::string &text);
    const qor::InPlaceEditor *showInPlaceControl(int row, int column, std::vector<std::string> items,
                                                 const std::string &text);
    const qor::InPlaceEditor *showInPlaceDateTimeControl(int row, int column, std::int64_t time, bool showTime);
    const qor::InPlaceEditor *showInPlaceButton(int row, int column, const std::string &text);
    const qor::InPlaceEditor *GetInPlaceEditor() const { return editor_.get(); }
    // Closes the editor without writing it and forgets its cell.
    void closeInPlaceControl();
    std::pair<int, int> getCurrentCell() const { return {currentColumn_, currentRow_}; }  // (column, row)
    std::pair<int, int> getLastCell() const { return {lastColumn_, lastRow_}; }

    // ---- geometry, selection, checkboxes, tips ----
    int getSelectedColumn();
    int getColumnFromX(int x);
    CRect getCellRect(int row, int column);
    bool GetItemFromPoint(CPoint point, int &row, int &column);
    std::vector<int> getSelectionSet();
    std::vector<SelectionInfo> getSelectionsAndKeys();
    void selectAllRows(bool select);
    void enableCheckboxes(bool on);
    bool checkboxesEnabled() const { return checkboxes_; }
    void setCheckboxState(int row, bool state);
    bool getCheckboxState(int row);
    // The tool id of the cell under the point, or -1.
    int OnToolHitTest(CPoint point);
    std::string getToolTipText(unsigned toolId);
    static constexpr int kTipMaxWidth = 600, kTipAutoPopMs = 1000;

    // ---- moving rows ----
    void OnLvnBegindrag(int row);
    int getDragRow() const { return dragRow_; }
    // The dragged rows are dropped on target over its cell (row, column).
    bool OnDropOn(CSuperReportCtrl2 &target, int row, int column);
    void moveSelection();
    void setDropHighlight(int row);

    // ---- the list, kept here without a window ----
    virtual int GetItemCount() const { return itemCount_; }
    virtual bool SetItemState(int item, unsigned state, unsigned mask);
    virtual unsigned GetItemState(int item, unsigned mask) const;
    virtual bool IsWindowVisible() const { return visible_; }
    virtual bool SetColumnWidth(int column, int width);
    virtual int GetColumnWidth(int column) const;
    // Without a window, six pixels a byte.
    virtual int GetStringWidth(const std::string &text) const;
    virtual int GetSelectionMark() const { return selectionMark_; }
    virtual void SetSelectionMark(int row) { selectionMark_ = row; }
    // The cursor position in client coordinates, for getSelectedColumn.
    virtual CPoint GetCursorClientPos() const { return cursor_; }
    void SetCursorClientPos(CPoint point) { cursor_ = point; }
    void SetSingleSelection(bool single) { singleSelection_ = single; }
    CSuperReportCtrl2Container *GetContainer() const { return container_; }

protected:
    // The rest of the list's calls; a window adapter forwards them.
    virtual void SetItemCount(int count);
    virtual void ShowWindow(bool show) { visible_ = show; }
    virtual bool InsertListColumn(int column, const std::string &heading, int width);
    virtual void DeleteListColumns();
    virtual CRect GetListItemRect(int row) const;  // the row's top and bottom
    virtual int GetHorizontalScroll() const { return 0; }
    virtual int GetCountPerPage() const { return 20; }
    virtual int HitTestRow(CPoint point) const;
    // The selected rows, in any order.
    virtual std::vector<int> GetSelectedItems() const;
    virtual bool IsSingleSelection() const { return singleSelection_; }
    virtual void SetColumnOrder(const std::vector<int> &order) { columnOrder_ = order; }
    virtual std::vector<int> GetColumnOrder() const { return columnOrder_; }
    virtual void EnableListCheckboxes() {}
    virtual void SetRedraw(bool on) {}
    virtual void Invalidate() {}
    virtual void RedrawItems(int first, int last) {}
    virtual void ScrollToBottom() {}
    // The editor opened, changed or closed: GetInPlaceEditor() tells which.
    virtual void InPlaceEditorChanged() {}

    static constexpr int kRowHeight = 17;  // without a window

private:
    struct CellRef {
        qor::report::Row *row = nullptr;
        int column = -1;
    };
    int ColumnOf(const std::string &name) const;
    qor::report::Row *ViewRow(int row) const;
    RowData RowMap(const qor::report::Row *row) const;
    void AppendRow(const std::vector<const std::string *> &cells, std::int64_t key);
    bool RemoveRow(qor::report::Row *row);
    void ApplyFilter();
    bool ViewCurrent() const;
    void ViewChanged();
    void SortTables(bool quick);
    template <class Collect>
    bool CollectSortValues(const std::vector<qor::report::Row *> &rows, Collect &&collect);
    void destroyInPlaceEditor();
    const qor::InPlaceEditor *OpenEditor(std::unique_ptr<qor::InPlaceEditor> editor);
    bool EditorOn(std::int64_t key, int column) const;
    qor::MenuItem *FindPopup(const char *text);
    const std::vector<std::string> &ColumnValues(int column);
    int HeadingWidth(int column) const;

    CSuperReportCtrl2Container *container_;
    bool deletesEnabled_;
    DragAndDrop::DragStyle dragStyle_;
    static std::int64_t keyCounter;

    std::vector<HeaderInfo> headers_;  // by column index
    qor::report::RowStore rows_;

    std::map<std::string, std::string> filter_, lastFilter_, appliedFilter_;
    std::uint64_t viewGeneration_ = ~0ull;  // the master generation the view was built from
    bool viewReordered_ = false;            // the view was sorted on its own since
    std::uint64_t viewVersion_ = 0;         // changes with every change of the view

    SortingMethod sortingMethod_ = SortingMethod::quickSort;
    int sortColumn_ = -1;
    bool ascending_ = true;
    unsigned contextStyles_ = 3;
    bool scrolling_ = false;
    qor::MenuItem menu_;
    std::vector<qor::MenuItem> customItems_;
    int menuRow_ = -1, menuColumn_ = -1;
    struct {
        std::uint64_t version = ~0ull;
        int column = -1;
        std::vector<std::string> values;
    } columnValues_;

    int cachedRow_ = -1;
    std::uint64_t cachedVersion_ = 0;
    RowData cachedData_;
    std::string cellText_;

    std::unique_ptr<qor::InPlaceEditor> editor_;
    std::int64_t editorKey_ = 0;  // the key of the editor's row when it opened
    int currentColumn_ = -1, currentRow_ = -1, lastColumn_ = -1, lastRow_ = -1;
    bool checkboxes_ = false;
    bool autoResize_ = false;
    std::set<int> hiddenColumns_;
    int dragRow_ = -1;
    int dropHighlight_ = -1;
    std::vector<std::int64_t> copiedKeys_;

    // The list's state without a window.
    int itemCount_ = 0;
    std::vector<unsigned char> itemStates_;
    bool visible_ = true;
    std::vector<int> columnWidths_;
    std::vector<int> columnOrder_;
    int selectionMark_ = -1;
    CPoint cursor_;
    bool singleSelection_ = false;
};
