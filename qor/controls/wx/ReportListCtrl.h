// The report grid in a window: a virtual list in report mode that asks the
// grid for the cells it draws (only the rows on screen), turns clicks, keys,
// header clicks and right clicks into the grid's calls, shows its context
// menu, its in-place editors and its cell tips, and moves rows dragged onto
// another such list.
#pragma once

#include <wx/listctrl.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>

#include "qor/controls/report/CSuperReportCtrl2.h"

class wxMenu;

namespace qor {

class ReportListCtrl : public wxListCtrl {
public:
    // style adds to wxLC_REPORT | wxLC_VIRTUAL (wxLC_SINGLE_SEL, say).
    ReportListCtrl(wxWindow *parent, CSuperReportCtrl2Container *container, bool deletesEnabled = false,
                   CSuperReportCtrl2::DragAndDrop::DragStyle dragStyle = CSuperReportCtrl2::DragAndDrop::NoDrag,
                   wxWindowID id = wxID_ANY, long style = 0);
    ~ReportListCtrl() override;

    CSuperReportCtrl2 &Grid();
    // The window that draws the rows and takes the mouse; the grid's client
    // coordinates are this window's.
    wxWindow *RowsWindow() const { return rows_; }
    // The editor window open over a cell, or null.
    wxWindow *EditorWindow() const { return editor_.get(); }

    // Shows the menu at pos and gives back the chosen identifier, or
    // wxID_NONE. By default the menu pops up; a program or a test may choose
    // otherwise.
    using MenuChooser = std::function<int(wxMenu &menu, const wxPoint &pos)>;
    void SetMenuChooser(MenuChooser chooser) { chooser_ = std::move(chooser); }

    // Builds the toolkit's menu from the grid's model; very long submenus
    // (a column of many values) are cut at kMaxMenuItems.
    static void BuildMenu(wxMenu &menu, const std::vector<qor::MenuItem> &items);
    static constexpr std::size_t kMaxMenuItems = 500;

protected:
    wxString OnGetItemText(long item, long column) const override;
    bool OnGetItemIsChecked(long item) const override;
    wxItemAttr *OnGetItemAttr(long item) const override;

private:
    class Bridge;
    friend class Bridge;

    void OnLeftUp(wxMouseEvent &event);
    void OnMotion(wxMouseEvent &event);
    void OnContextMenu(wxContextMenuEvent &event);
    void OnBeginDrag(wxListEvent &event);
    void FinishDrag(const wxPoint &screen);
    void SyncEditor();
    CPoint RowsPoint(const wxPoint &screen) const;

    std::unique_ptr<Bridge> grid_;
    wxWindow *rows_ = nullptr;
    wxWeakRef<wxWindow> editor_;
    const qor::InPlaceEditor *editorModel_ = nullptr;
    MenuChooser chooser_;
    int tipId_ = -1;
    bool dragging_ = false;
    int frozen_ = 0;
    mutable wxItemAttr dropAttr_;
};

}  // namespace qor
