// The gallery's grid in a real window: a header click sorts, the context
// menu filters, two clicks open each kind of editor and what it gives back
// lands in the table, and the picture follows.
#include <wx/menu.h>
#include <wx/uiaction.h>

#include <algorithm>

#include "GalleryFrame.h"
#include "controls_support.h"
#include "qor/controls.h"
#include "qor/controls/wx/InPlaceEditors.h"

namespace {

using qor::gallery::GalleryFrame;
namespace Inplace = SuperReportCtrl2Inplace;

class Gallery : public controls_test::WindowTest {
protected:
    // The whole table where the test is about the table; a small one otherwise.
    void SetUp() override {
        WindowTest::SetUp();
        bool whole = std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()).find("Mouse") != std::string::npos;
        gallery = new GalleryFrame(nullptr, whole ? GalleryFrame::kRuns : 500);
        frame = gallery;
        list = gallery->Runs()->List();
        ShowFrame();
    }
    CSuperReportCtrl2 &Grid() { return list->Grid(); }
    wxRect Cell(int row, int column) {
        CRect r = Grid().getCellRect(row, column);
        return wxRect(r.left, r.top, r.Width(), r.Height());
    }
    // Two clicks on a cell: the first makes it current, the second edits.
    void TwoClicks(int row, int column) {
        wxPoint at = Cell(row, column).GetPosition() + wxPoint(4, 4);
        controls_test::Click(list->RowsWindow(), at);
        controls_test::Click(list->RowsWindow(), at);
    }
    // Right-clicks a cell and picks the item with that text from the menu.
    void ChooseFromMenu(int row, int column, const wxString &text) {
        list->SetMenuChooser([text](wxMenu &menu, const wxPoint &) {
            std::function<int(wxMenu &)> find = [&](wxMenu &m) -> int {
                for (wxMenuItem *item : m.GetMenuItems()) {
                    if (item->GetSubMenu()) {
                        if (int id = find(*item->GetSubMenu()); id != wxID_NONE) return id;
                    } else if (item->GetItemLabelText() == text && item->IsEnabled()) {
                        return item->GetId();
                    }
                }
                return wxID_NONE;
            };
            return find(menu);
        });
        wxPoint at = list->RowsWindow()->ClientToScreen(Cell(row, column).GetPosition() + wxPoint(4, 4));
        wxContextMenuEvent event(wxEVT_CONTEXT_MENU, list->RowsWindow()->GetId(), at);
        event.SetEventObject(list->RowsWindow());
        list->RowsWindow()->ProcessWindowEvent(event);
        gui_test::Pump();
    }
    std::string Status() { return qor::wx::FromWx(gallery->GetStatusBar()->GetStatusText()); }

    GalleryFrame *gallery = nullptr;
    qor::ReportListCtrl *list = nullptr;
};

TEST_F(Gallery, SortFilterAndEditWithTheMouse) {
    const int plates = Grid().getHeaderColumn("Plates"), status = Grid().getHeaderColumn("Status");
    wxImage before = controls_test::Snapshot(list->RowsWindow(), "grid-start");

    // A real click on the heading, through the X server.
    int x = 0;
    for (int c = 0; c < plates; ++c) x += list->GetColumnWidth(c);
    wxUIActionSimulator mouse;
    mouse.MouseMove(list->ClientToScreen(wxPoint(x + list->GetColumnWidth(plates) / 2, 8)));
    mouse.MouseClick();
    ASSERT_TRUE(gui_test::PumpUntil([&] { return Grid().getSortColumn() == plates; }));
    std::vector<std::string> sorted = Grid().getViewColumnData(plates);
    EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end(),
                               [](auto &a, auto &b) { return qor::Atol32(a) < qor::Atol32(b); }));
    EXPECT_EQ(Status(), "Sorted by Plates(Ascending)");
    EXPECT_EQ(list->GetItemText(0, plates), "1");
    wxImage afterSort = controls_test::Snapshot(list->RowsWindow(), "grid-sorted");
    EXPECT_GT(controls_test::Difference(before, afterSort), 1.0);

    ChooseFromMenu(2, status, "Status = Failed");
    std::vector<std::string> all = Grid().getMasterColumnData(status);
    auto failed = std::count(all.begin(), all.end(), "Failed");
    ASSERT_EQ(Grid().getNumberOfRows(), failed);
    EXPECT_EQ(list->GetItemCount(), failed);
    for (const std::string &cell : Grid().getViewColumnData(status)) ASSERT_EQ(cell, "Failed");
    wxImage filtered = controls_test::Snapshot(list->RowsWindow(), "grid-filtered");
    ChooseFromMenu(0, status, "Show all");
    EXPECT_EQ(Grid().getNumberOfRows(), GalleryFrame::kRuns);
    ChooseFromMenu(0, status, "Use last filter");
    EXPECT_LT(controls_test::Difference(filtered, controls_test::Snapshot(list->RowsWindow(), "grid-refiltered")), 1.0);

    // Two real clicks on a text cell open the edit box; Return writes it.
    const int protocol = Grid().getHeaderColumn("Protocol");
    wxPoint at = list->RowsWindow()->ClientToScreen(Cell(0, protocol).GetPosition() + wxPoint(6, 6));
    mouse.MouseMove(at);
    mouse.MouseClick();
    ASSERT_TRUE(gui_test::PumpUntil([&] { return Grid().getCurrentCell() == std::pair(protocol, 0); }));
    mouse.MouseClick();
    ASSERT_TRUE(gui_test::PumpUntil([&] { return dynamic_cast<Inplace::CInPlaceEdit *>(list->EditorWindow()); }));
    auto *edit = static_cast<Inplace::CInPlaceEdit *>(list->EditorWindow());
    EXPECT_TRUE(edit->IsShown());
    wxImage editing = controls_test::Snapshot(list->RowsWindow(), "grid-editing");
    EXPECT_GT(controls_test::Difference(editing, filtered), 0.01);
    edit->SetValue("Edited protocol");
    std::int64_t key = Grid().getUniqueKey(0);
    mouse.Char(WXK_RETURN);
    ASSERT_TRUE(gui_test::PumpUntil([&] { return list->EditorWindow() == nullptr; }));
    EXPECT_EQ(Grid().getRowDataFromKey(key).at("Protocol"), "Edited protocol");
    EXPECT_EQ(Status(), "Run " + std::to_string(key) + " edited");
}

TEST_F(Gallery, EveryEditorGivesItsValueBack) {
    CSuperReportCtrl2 &grid = Grid();
    auto column = [&](const char *name) { return grid.getHeaderColumn(name); };
    std::int64_t key = grid.getUniqueKey(3);
    auto cell = [&](const char *name) { return grid.getRowDataFromKey(key).at(name); };
    list->SetItemState(3, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);

    TwoClicks(3, column("Status"));
    auto *combo = dynamic_cast<Inplace::CInPlaceComboBox *>(list->EditorWindow());
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->GetValue(), qor::wx::ToWx(cell("Status")));
    combo->SetSelection(3);
    wxCommandEvent chosen(wxEVT_COMBOBOX, combo->GetId());
    chosen.SetEventObject(combo);
    combo->ProcessWindowEvent(chosen);
    gui_test::Pump();
    EXPECT_EQ(cell("Status"), qor::gallery::kStatuses[3]);

    for (const char *name : {"Due", "Started"}) {
        TwoClicks(3, column(name));
        auto *date = dynamic_cast<Inplace::CInPlaceDate *>(list->EditorWindow());
        ASSERT_NE(date, nullptr) << name;
        EXPECT_EQ(date->GetTime(), qor::gallery::ParseTime(cell(name))) << name;
        const std::int64_t when = 1750000000;  // its time of day is kept only with a time
        date->SetTime(when);
        // Pressing on another row ends the edit before the row is selected.
        controls_test::Click(list->RowsWindow(), Cell(8, 0).GetPosition() + wxPoint(40, 4));
        ASSERT_TRUE(gui_test::PumpUntil([&] { return list->EditorWindow() == nullptr; })) << name;
        EXPECT_EQ(cell(name), qor::FormatInPlaceTime(when, std::string(name) == "Started")) << name;
    }

    TwoClicks(3, column("Report"));
    auto *button = dynamic_cast<Inplace::CInPlaceButton *>(list->EditorWindow());
    ASSERT_NE(button, nullptr);
    wxCommandEvent pressed(wxEVT_BUTTON, button->GetId());
    pressed.SetEventObject(button);
    button->ProcessWindowEvent(pressed);
    EXPECT_EQ(Status(), "Report of run " + cell("Run") + " (Open)");

    std::string before = cell("Operator");
    TwoClicks(3, column("Operator"));
    EXPECT_NE(cell("Operator"), before);
    EXPECT_EQ(list->EditorWindow(), nullptr);
}

TEST_F(Gallery, TipsCheckboxesAndTheDeleteKey) {
    CSuperReportCtrl2 &grid = Grid();
    const int notes = grid.getHeaderColumn("Notes");
    grid.updateCell(1, notes, std::string(90, 'n') + " more", false);
    wxMouseEvent motion(wxEVT_MOTION);
    motion.SetPosition(Cell(1, notes).GetPosition() + wxPoint(3, 3));
    list->RowsWindow()->ProcessWindowEvent(motion);
    EXPECT_EQ(qor::wx::FromWx(list->RowsWindow()->GetToolTipText()), std::string(90, 'n') + "\nmore");

    wxListEvent checked(wxEVT_LIST_ITEM_CHECKED, list->GetId());
    checked.m_itemIndex = 2;
    list->ProcessWindowEvent(checked);
    EXPECT_TRUE(grid.getCheckboxState(2));
    EXPECT_TRUE(list->IsItemChecked(2));

    std::int64_t gone = grid.getUniqueKey(4);
    list->SetItemState(4, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    wxListEvent key(wxEVT_LIST_KEY_DOWN, list->GetId());
    key.m_code = WXK_DELETE;
    list->ProcessWindowEvent(key);
    EXPECT_EQ(list->GetItemCount(), 499);
    EXPECT_TRUE(grid.getRowDataFromKey(gone).empty());
}

}  // namespace
