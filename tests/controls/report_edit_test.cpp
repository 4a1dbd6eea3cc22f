// Clicks that open editors, what an edit writes, tool tips and the cell
// geometry.
#include <gtest/gtest.h>

#include "RecordingContainer.h"

namespace {

using Grid = CSuperReportCtrl2;
using Kind = qor::InPlaceEditor::Kind;

struct EditGrid : ::testing::Test {
    RecordingContainer owner;
    Grid grid{&owner, true, Grid::DragAndDrop::NoDrag};
    void SetUp() override {
        struct {
            const char *name;
            InPlaceType type;
            bool multiLine;
        } columns[] = {{"Edit", InPlaceEdit, false},        {"Combo", InPlaceComboBox, false}, {"Date", InPlaceDate, false},
                       {"DateTime", InPlaceDateTime, false}, {"Button", InPlaceButton, false},  {"Action", InPlaceOwnerAction, false},
                       {"Fixed", InPlaceType(9), false},     {"Notes", InPlaceEdit, true}};
        for (auto &c : columns) grid.insertHeader(c.name, c.type, false, false, c.multiLine);
        for (const char *text : {"r0", "r1", "r2", "r3"})
            grid.insertRow({{"Edit", text}, {"Combo", "two"}, {"Button", "Go"}, {"Notes", "n"}}, -1);
        grid.refresh();
        owner.comboValues = {"one", "two", "three"};
        owner.cellTime = [](int, int) { return std::int64_t{86400 * 365}; };
    }
    const qor::InPlaceEditor *TwoClicks(int row, int column) {
        grid.OnNMClick(row, column, false);
        grid.OnNMClick(row, column, false);
        return grid.GetInPlaceEditor();
    }
};

TEST_F(EditGrid, TheSecondClickOnACellOpensItsEditor) {
    grid.OnNMClick(1, 0, false);
    EXPECT_EQ(grid.GetInPlaceEditor(), nullptr);
    grid.OnNMClick(1, -1, false);  // no column: the current cell stays
    grid.OnNMClick(-1, 0, false);
    grid.OnNMClick(1, 0, false);
    ASSERT_NE(grid.GetInPlaceEditor(), nullptr);

    struct Case {
        int column;
        bool opens;
        Kind kind;
        const char *text;
        const char *call;
    } cases[] = {
        {0, true, Kind::Edit, "r2", "BeginEdit 2,0"}, {1, true, Kind::ComboBox, "two", "Combo"},
        {2, true, Kind::Date, nullptr, nullptr},      {3, true, Kind::Date, nullptr, nullptr},
        {4, true, Kind::Button, "Go", nullptr},       {5, false, Kind::Edit, nullptr, "Action 2,5"},
        {6, false, Kind::Edit, nullptr, nullptr},     {7, true, Kind::Edit, "n", "BeginEdit 2,7"},
    };
    for (const Case &c : cases) {
        owner.calls.clear();
        const qor::InPlaceEditor *editor = TwoClicks(2, c.column);
        ASSERT_EQ(editor != nullptr, c.opens) << c.column;
        if (c.call) {
            EXPECT_NE(std::find(owner.calls.begin(), owner.calls.end(), c.call), owner.calls.end()) << c.column;
        }
        if (!editor) continue;
        EXPECT_EQ(editor->kind, c.kind);
        if (c.text) {
            EXPECT_EQ(editor->text, c.text);
        }
        EXPECT_EQ(editor->pointSize, 80);
        EXPECT_EQ(editor->fontFace, "MS Shell Dlg");
    }
    const CRect cell = grid.getCellRect(2, 7);
    const qor::InPlaceEditor *notes = TwoClicks(2, 7);
    EXPECT_EQ(notes->style, 0x50A01004u);
    EXPECT_EQ(notes->rect.Height(), 4 * cell.Height());
    const qor::InPlaceEditor *combo = TwoClicks(2, 1);
    EXPECT_EQ(combo->style, 0x50A00803u);
    EXPECT_EQ(combo->selected, 1);
    EXPECT_EQ(combo->rect.Height(), 5 * cell.Height());
    EXPECT_EQ(combo->itemHeight, cell.Height() - 1);
    const qor::InPlaceEditor *dateTime = TwoClicks(2, 3);
    EXPECT_TRUE(dateTime->showTime);
    EXPECT_EQ(dateTime->time, 86400 * 365);
    EXPECT_EQ(TwoClicks(2, 0)->style, 0x50800080u);
    owner.comboValues.clear();
    EXPECT_EQ(TwoClicks(2, 1), nullptr);  // nothing to choose from
}

TEST_F(EditGrid, AnEditWritesEverySelectedRowOnce) {
    for (int row : {0, 2, 3}) grid.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
    std::int64_t k0 = grid.getUniqueKey(0), k2 = grid.getUniqueKey(2), k3 = grid.getUniqueKey(3);
    TwoClicks(2, 0);
    owner.calls.clear();
    grid.OnUpdateFieldValue("new");
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"new", "r1", "new", "new"}));
    EXPECT_EQ(owner.Count("Committed " + std::to_string(k2)), 1);
    EXPECT_EQ(owner.Count("Edited " + std::to_string(k0) + " r0>new"), 1);
    EXPECT_EQ(owner.Count("Edited " + std::to_string(k3) + " r3>new"), 1);
    EXPECT_EQ(owner.Count("Edited " + std::to_string(k2)), 0);
    EXPECT_EQ(grid.GetInPlaceEditor(), nullptr);

    TwoClicks(1, 0);
    owner.calls.clear();
    grid.OnUpdateFieldValue("r1");  // unchanged: nothing written, the editor closes
    EXPECT_EQ(owner.Count("Edited"), 0);
    EXPECT_EQ(grid.GetInPlaceEditor(), nullptr);

    TwoClicks(1, 0);
    grid.sortView(0, true);  // a sort closes the editor unwritten
    EXPECT_EQ(grid.GetInPlaceEditor(), nullptr);
    grid.OnUpdateFieldValue("late");  // the closed editor's message comes too late
    EXPECT_EQ(grid.getViewColumnData(0), (std::vector<std::string>{"new", "new", "new", "r1"}));
    TwoClicks(1, 0);
    grid.SetFilter({{"Edit", "new"}});
    EXPECT_EQ(grid.GetInPlaceEditor(), nullptr);
}

TEST_F(EditGrid, ButtonsCheckboxesAndTheDeleteKey) {
    TwoClicks(3, 4);
    grid.OnInplaceButtonClick();
    EXPECT_EQ(owner.calls.back(), "Button Go 3,4");
    grid.enableCheckboxes(true);
    owner.checkboxAnswer = 2;
    grid.OnNMClick(1, 0, true);
    EXPECT_FALSE(grid.getCheckboxState(1));
    owner.checkboxAnswer = 0;
    grid.OnNMClick(1, 0, true);
    EXPECT_TRUE(grid.getCheckboxState(1));
    EXPECT_EQ(owner.calls.back(), "Checkbox 1 on");
    grid.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    grid.OnKeyDown(0x2E);
    EXPECT_EQ(grid.getNumberOfRows(), 3);
}

TEST(ReportTips, WrapTable) {
    std::string blankless(200, 'x');
    std::string words;
    for (int i = 0; i < 30; ++i) words += "word" + std::to_string(i) + " ";
    struct Case {
        std::string text, wrapped;
    } cases[] = {
        {blankless, blankless},
        {"short text", "short text"},
        {std::string(85, 'a') + " tail", std::string(85, 'a') + "\ntail"},
        {std::string(81, 'a') + " " + std::string(100, 'b'), std::string(81, 'a') + "\n" + std::string(100, 'b')},
        {"line one\n" + std::string(100, 'c'), "line one\n" + std::string(100, 'c')},
    };
    for (const Case &c : cases) EXPECT_EQ(qor::WrapTipText(c.text), c.wrapped);
    std::string wrapped = qor::WrapTipText(words);
    for (std::size_t start = 0, end; (end = wrapped.find('\n', start)) != std::string::npos; start = end + 1)
        EXPECT_GE(end - start, 80u);
}

TEST_F(EditGrid, ToolIdsAndColumnsFromPoints) {
    grid.updateCell(2, 7, std::string(90, 'n') + " end", false);
    int id = grid.OnToolHitTest(CPoint(grid.getCellRect(2, 7).left + 1, grid.getCellRect(2, 7).top + 1));
    EXPECT_EQ(id, 7 + 1 + 2 * 1024);
    EXPECT_EQ(grid.getToolTipText(id), std::string(90, 'n') + "\nend");
    EXPECT_EQ(grid.OnToolHitTest(CPoint(1, 100000)), -1);

    // Display order 2, 0, 1, ...; widths by heading; hidden columns take no room.
    std::vector<int> order = grid.getColumnOrderVector();
    std::swap(order[0], order[2]);
    std::swap(order[1], order[2]);
    grid.setColumnOrderVector(order);
    EXPECT_EQ(grid.getColumnOrderVector()[0], 2);
    grid.setColumnOrderVector({0, 0, 1});  // not an order of the columns: ignored
    EXPECT_EQ(grid.getColumnOrderVector()[0], 2);
    int w2 = grid.GetColumnWidth(2), w0 = grid.GetColumnWidth(0);
    EXPECT_EQ(w2, 6 * 4 + 13);
    EXPECT_EQ(grid.getColumnFromX(0), 2);
    EXPECT_EQ(grid.getColumnFromX(w2 - 1), 2);
    EXPECT_EQ(grid.getColumnFromX(w2), 0);
    EXPECT_EQ(grid.getCellRect(1, 0), CRect(w2, 17, w2 + w0, 34));
    grid.HideColumn(0, true);
    EXPECT_EQ(grid.GetColumnWidth(0), 0);
    EXPECT_EQ(grid.getColumnFromX(w2), 1);
    grid.HideColumn(0, false);
    EXPECT_EQ(grid.GetColumnWidth(0), w0);
    EXPECT_EQ(grid.getColumnFromX(1 << 20), -1);
    EXPECT_EQ(grid.OnMinResizeColumn(0, 3), w0);

    grid.SetColumnAutoResize(true);
    grid.updateCell(0, 0, std::string(40, 'w'), false);
    EXPECT_EQ(grid.GetColumnWidth(0), 40 * 6 + 13);
    grid.updateCell(0, 0, "w", false);  // only ever wider
    EXPECT_EQ(grid.GetColumnWidth(0), 40 * 6 + 13);
    EXPECT_EQ(grid.getColumnWidths().size(), 8u);
}

}  // namespace
