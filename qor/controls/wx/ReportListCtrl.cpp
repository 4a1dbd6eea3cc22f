#include "qor/controls/wx/ReportListCtrl.h"

#include <wx/app.h>
#include <wx/menu.h>
#include <wx/settings.h>
#include <wx/tooltip.h>

#include <algorithm>

#include "qor/controls/wx/InPlaceEditors.h"
#include "qor/controls/wx/WxText.h"

namespace qor {
namespace report_list_impl {

// The grid speaks the framework's item states; the toolkit has its own bits.
constexpr struct {
    unsigned grid;
    long wx;
} kStates[] = {
    {LVIS_SELECTED, wxLIST_STATE_SELECTED},
    {LVIS_FOCUSED, wxLIST_STATE_FOCUSED},
};

long ToWxState(unsigned bits) {
    long state = 0;
    for (const auto &s : kStates)
        if (bits & s.grid) state |= s.wx;
    return state;
}

unsigned FromWxState(long bits) {
    unsigned state = 0;
    for (const auto &s : kStates)
        if (bits & s.wx) state |= s.grid;
    return state;
}

}  // namespace report_list_impl

// The grid, with the list's calls forwarded to the window.
class ReportListCtrl::Bridge : public CSuperReportCtrl2 {
public:
    Bridge(ReportListCtrl &list, CSuperReportCtrl2Container *container, bool deletesEnabled,
           DragAndDrop::DragStyle style)
        : CSuperReportCtrl2(container, deletesEnabled, style), list_(list) {}

    int GetItemCount() const override { return list_.GetItemCount(); }
    bool SetItemState(int item, unsigned state, unsigned mask) override {
        if (mask & LVIS_DROPHILITED) dropHighlight_ = (state & LVIS_DROPHILITED) ? item : -1;
        long wxMask = report_list_impl::ToWxState(mask);
        if (!wxMask) return true;
        if (item != -1 && (item < 0 || item >= list_.GetItemCount())) return false;
        return list_.SetItemState(item, report_list_impl::ToWxState(state), wxMask);
    }
    unsigned GetItemState(int item, unsigned mask) const override {
        if (item < 0 || item >= list_.GetItemCount()) return 0;
        unsigned state = report_list_impl::FromWxState(list_.GetItemState(item, report_list_impl::ToWxState(mask)));
        if (item == dropHighlight_) state |= LVIS_DROPHILITED;
        return state & mask;
    }
    bool IsWindowVisible() const override { return list_.IsShown(); }
    bool SetColumnWidth(int column, int width) override {
        return column >= 0 && column < list_.GetColumnCount() && list_.SetColumnWidth(column, width);
    }
    int GetColumnWidth(int column) const override {
        return column >= 0 && column < list_.GetColumnCount() ? list_.GetColumnWidth(column) : 0;
    }
    int GetStringWidth(const std::string &text) const override {
        return list_.GetTextExtent(qor::wx::ToWx(text)).x;
    }
    int GetSelectionMark() const override {
        return static_cast<int>(list_.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED));
    }
    void SetSelectionMark(int row) override {
        if (row >= 0 && row < list_.GetItemCount()) list_.SetItemState(row, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    }
    CPoint GetCursorClientPos() const override { return list_.RowsPoint(wxGetMousePosition()); }
    int DropHighlight() const { return dropHighlight_; }

protected:
    void SetItemCount(int count) override {
        list_.SetItemCount(std::max(0, count));
        list_.Refresh();
    }
    void ShowWindow(bool show) override { list_.Show(show); }
    bool InsertListColumn(int column, const std::string &heading, int width) override {
        return list_.InsertColumn(column, qor::wx::ToWx(heading), wxLIST_FORMAT_LEFT,
                                  std::max(width, list_.GetTextExtent(qor::wx::ToWx(heading)).x + 16)) >= 0;
    }
    void DeleteListColumns() override { list_.DeleteAllColumns(); }
    CRect GetListItemRect(int row) const override {
        wxRect rect;
        if (row < 0 || row >= list_.GetItemCount() || !list_.GetItemRect(row, rect)) return CRect();
        // The list gives its own client coordinates; the grid's are the rows window's.
        wxPoint origin = list_.rows_->ScreenToClient(list_.ClientToScreen(rect.GetPosition()));
        return CRect(origin.x, origin.y, origin.x + rect.width, origin.y + rect.height);
    }
    int GetHorizontalScroll() const override { return list_.CalcUnscrolledPosition(wxPoint(0, 0)).x; }
    int GetCountPerPage() const override { return list_.GetCountPerPage(); }
    int HitTestRow(CPoint point) const override {
        int flags = 0;
        return static_cast<int>(list_.HitTest(wxPoint(point.x, point.y), flags));
    }
    std::vector<int> GetSelectedItems() const override {
        std::vector<int> rows;
        for (long i = list_.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED); i != -1;
             i = list_.GetNextItem(i, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
            rows.push_back(static_cast<int>(i));
        return rows;
    }
    bool IsSingleSelection() const override { return list_.HasFlag(wxLC_SINGLE_SEL); }
    // Where the toolkit cannot reorder columns it reports them in their own
    // order, which is then what the grid sees.
    void SetColumnOrder(const std::vector<int> &order) override {
        wxArrayInt columns;
        for (int c : order) columns.push_back(c);
        list_.SetColumnsOrder(columns);
    }
    std::vector<int> GetColumnOrder() const override {
        std::vector<int> order;
        for (int c : list_.GetColumnsOrder()) order.push_back(c);
        return order;
    }
    void EnableListCheckboxes() override { list_.EnableCheckBoxes(true); }
    void SetRedraw(bool on) override {
        if (!on) {
            list_.Freeze();
            ++list_.frozen_;
        } else if (list_.frozen_ > 0) {
            --list_.frozen_;
            list_.Thaw();
        }
    }
    void Invalidate() override { list_.Refresh(); }
    void RedrawItems(int first, int last) override {
        int count = list_.GetItemCount();
        first = std::max(first, 0), last = std::min(last, count - 1);
        if (first <= last) list_.RefreshItems(first, last);
    }
    void ScrollToBottom() override {
        if (list_.GetItemCount() > 0) list_.EnsureVisible(list_.GetItemCount() - 1);
    }
    void InPlaceEditorChanged() override { list_.SyncEditor(); }

private:
    ReportListCtrl &list_;
    int dropHighlight_ = -1;
};

ReportListCtrl::ReportListCtrl(wxWindow *parent, CSuperReportCtrl2Container *container, bool deletesEnabled,
                               CSuperReportCtrl2::DragAndDrop::DragStyle dragStyle, wxWindowID id, long style)
    : wxListCtrl(parent, id, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL | style) {
    grid_ = std::make_unique<Bridge>(*this, container, deletesEnabled, dragStyle);
    grid_->createContextMenus();  // now that the list's selection style is known
    // The rows are drawn by a child window, which also takes the mouse.
    // Its class is declared only inside the toolkit, so it is known by address.
    rows_ = this;
    for (wxWindow *child : GetChildren())
        if (static_cast<void *>(child) == static_cast<void *>(m_mainWin)) rows_ = child;
    wxToolTip::SetAutoPop(CSuperReportCtrl2::kTipAutoPopMs);
#ifdef __WXMSW__
    wxToolTip::SetMaxWidth(CSuperReportCtrl2::kTipMaxWidth);
#endif
    dropAttr_.SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    dropAttr_.SetTextColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));

    // A press on the rows ends an open editor before the press can change
    // the selection its text is written to, as a native list's focus change
    // does; the toolkit would tell of the lost focus only later.
    auto takeFocus = [this](wxMouseEvent &event) {
        event.Skip();
        if (editor_) SuperReportCtrl2Inplace::CommitInPlaceEditor(editor_.get());
    };
    rows_->Bind(wxEVT_LEFT_DOWN, takeFocus);
    rows_->Bind(wxEVT_RIGHT_DOWN, takeFocus);
    rows_->Bind(wxEVT_LEFT_UP, &ReportListCtrl::OnLeftUp, this);
    rows_->Bind(wxEVT_MOTION, &ReportListCtrl::OnMotion, this);
    rows_->Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent &) { dragging_ = false; });
    rows_->Bind(wxEVT_KEY_UP, [this](wxKeyEvent &event) {
        event.Skip();
        grid_->OnKeyUp(static_cast<unsigned>(event.GetKeyCode()));
    });
    Bind(wxEVT_LIST_KEY_DOWN, [this](wxListEvent &event) {
        event.Skip();
        if (event.GetKeyCode() == WXK_DELETE) grid_->OnKeyDown(0x2E);
    });
    Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent &event) { grid_->OnHdnItemclick(event.GetColumn()); });
    Bind(wxEVT_LIST_COL_END_DRAG, [this](wxListEvent &event) {
        int column = event.GetColumn();
        CallAfter([this, column] {
            int width = GetColumnWidth(column), least = grid_->OnNotifyEndTrack(column, width);
            if (least != width) SetColumnWidth(column, least);
        });
    });
    auto checked = [this](wxListEvent &event) {
        int row = static_cast<int>(event.GetIndex());
        grid_->OnNMClick(row, 0, true);
        RefreshItem(row);
    };
    Bind(wxEVT_LIST_ITEM_CHECKED, checked);
    Bind(wxEVT_LIST_ITEM_UNCHECKED, checked);
    Bind(wxEVT_CONTEXT_MENU, &ReportListCtrl::OnContextMenu, this);
    Bind(wxEVT_LIST_BEGIN_DRAG, &ReportListCtrl::OnBeginDrag, this);
}

ReportListCtrl::~ReportListCtrl() {
    if (rows_->HasCapture()) rows_->ReleaseMouse();
    while (frozen_-- > 0) Thaw();
}

CSuperReportCtrl2 &ReportListCtrl::Grid() { return *grid_; }

CPoint ReportListCtrl::RowsPoint(const wxPoint &screen) const {
    wxPoint p = rows_->ScreenToClient(screen);
    return CPoint(p.x, p.y);
}

wxString ReportListCtrl::OnGetItemText(long item, long column) const {
    return qor::wx::ToWx(grid_->OnLvnGetdispinfo(static_cast<int>(item), static_cast<int>(column)));
}

bool ReportListCtrl::OnGetItemIsChecked(long item) const { return grid_->getCheckboxState(static_cast<int>(item)); }

wxItemAttr *ReportListCtrl::OnGetItemAttr(long item) const {
    return item == grid_->DropHighlight() ? &dropAttr_ : nullptr;
}

void ReportListCtrl::OnLeftUp(wxMouseEvent &event) {
    event.Skip();
    if (dragging_) return FinishDrag(rows_->ClientToScreen(event.GetPosition()));
    int flags = 0;
    long row = HitTest(event.GetPosition(), flags);
    if (flags & wxLIST_HITTEST_ONITEMSTATEICON) return;  // the checkbox events handle it
    grid_->OnNMClick(static_cast<int>(row), grid_->getColumnFromX(event.GetPosition().x), false);
}

void ReportListCtrl::OnMotion(wxMouseEvent &event) {
    event.Skip();
    int id = grid_->OnToolHitTest(CPoint(event.GetPosition().x, event.GetPosition().y));
    if (id == tipId_) return;
    tipId_ = id;
    if (id > 0)
        rows_->SetToolTip(qor::wx::ToWx(grid_->getToolTipText(static_cast<unsigned>(id))));
    else
        rows_->UnsetToolTip();
}

void ReportListCtrl::BuildMenu(wxMenu &menu, const std::vector<qor::MenuItem> &items) {
    std::size_t count = 0;
    for (const qor::MenuItem &item : items) {
        if (++count > kMaxMenuItems) {
            menu.Append(wxID_ANY, wxString::FromUTF8("\u2026"))->Enable(false);
            break;
        }
        if (item.separator) {
            menu.AppendSeparator();
        } else if (item.isPopup) {
            auto *sub = new wxMenu;
            BuildMenu(*sub, item.popup);
            menu.AppendSubMenu(sub, qor::wx::ToWx(item.text))->Enable(item.enabled && !item.popup.empty());
        } else {
            menu.Append(static_cast<int>(item.id), qor::wx::ToWx(item.text))->Enable(item.enabled);
        }
    }
}

void ReportListCtrl::OnContextMenu(wxContextMenuEvent &event) {
    // The row is the one clicked (which a right click makes the selection
    // mark); from the keyboard, the selection mark, at its place.
    wxPoint screen = event.GetPosition();
    long row = -1;
    if (screen == wxDefaultPosition) {
        row = grid_->GetSelectionMark();
        CRect mark = grid_->getCellRect(static_cast<int>(row), 0);
        screen = rows_->ClientToScreen(wxPoint(mark.left + 8, mark.bottom));
    } else {
        int flags = 0;
        CPoint at = RowsPoint(screen);
        row = HitTest(wxPoint(at.x, at.y), flags);
        if (row < 0) row = grid_->GetSelectionMark();
    }
    CPoint point = RowsPoint(screen);
    if (!grid_->OnContextMenu(point, static_cast<int>(row), grid_->getColumnFromX(point.x))) return;
    wxMenu menu;
    BuildMenu(menu, grid_->GetViewContextMenu());
    wxPoint at = ScreenToClient(screen);
    int chosen = chooser_ ? chooser_(menu, at) : GetPopupMenuSelectionFromUser(menu, at);
    if (chosen != wxID_NONE && chosen >= 0) grid_->OnContextMenuCommand(static_cast<unsigned>(chosen));
}

void ReportListCtrl::OnBeginDrag(wxListEvent &event) {
    grid_->OnLvnBegindrag(static_cast<int>(event.GetIndex()));
    if (grid_->getDragRow() < 0) return;
    dragging_ = true;
    rows_->CaptureMouse();
}

void ReportListCtrl::FinishDrag(const wxPoint &screen) {
    dragging_ = false;
    if (rows_->HasCapture()) rows_->ReleaseMouse();
    ReportListCtrl *target = nullptr;
    for (wxWindow *w = wxFindWindowAtPoint(screen); w && !target; w = w->GetParent())
        target = dynamic_cast<ReportListCtrl *>(w);
    if (!target || target == this) {
        grid_->OnDropOn(*grid_, -1, -1);  // ends the drag
        return;
    }
    CPoint point = target->RowsPoint(screen);
    int row = -1, column = -1;
    target->Grid().GetItemFromPoint(point, row, column);
    grid_->OnDropOn(target->Grid(), row, column);
}

// Brings the editor window in line with the grid's editor model.
void ReportListCtrl::SyncEditor() {
    const qor::InPlaceEditor *model = grid_->GetInPlaceEditor();
    if (model == editorModel_ && (model == nullptr) == (editor_.get() == nullptr)) return;
    if (wxWindow *old = editor_.get()) {
        // It may be in its own handler now: hide it, delete it afterwards.
        old->Hide();
        editor_ = nullptr;
        wxWeakRef<wxWindow> gone(old);
        CallAfter([gone] {
            if (gone) gone->Destroy();
        });
        // Return or Escape in the editor leaves the keyboard with the list; a
        // click elsewhere keeps it where it went.
        wxWindow *focus = wxWindow::FindFocus();
        if (!IsBeingDeleted() && focus && (focus == old || old->IsDescendant(focus))) rows_->SetFocus();
    }
    editorModel_ = model;
    if (!model) return;
    SuperReportCtrl2Inplace::InPlaceCalls calls;
    calls.commit = [this](const std::string &text) { grid_->OnUpdateFieldValue(text); };
    calls.cancel = [this] { grid_->closeInPlaceControl(); };
    calls.button = [this] { grid_->OnInplaceButtonClick(); };
    editor_ = SuperReportCtrl2Inplace::CreateInPlaceEditor(rows_, *model, std::move(calls));
}

}  // namespace qor
