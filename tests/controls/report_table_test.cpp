// The grid's tables: rows and keys, columns, the view as a snapshot, bulk
// loads and copies, and what bad indices give.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "RecordingContainer.h"

namespace {

using Grid = CSuperReportCtrl2;

TEST(ReportTable, RowsTakeTheirCellsByHeadingAndKeysCountDownAcrossGrids) {
    Grid a(nullptr, false, Grid::DragAndDrop::NoDrag), b(nullptr, false, Grid::DragAndDrop::NoDrag);
    Fill(a, {"Name", "Size"}, {});
    b.insertHeader("Name", InPlaceEdit, false, false, false);
    a.insertRow({{"Size", "3"}, {"Colour", "red"}, {"Name", "x"}, {"Name", "ignored"}}, -1);
    a.insertRow(std::map<std::string, std::string>{{"Name", "y"}}, -1);
    b.insertRow({{"Name", "z"}}, -1);
    a.insertRow({{"Name", "w"}}, -1);
    a.refresh();
    b.refresh();
    EXPECT_EQ(Column(a, 0), (std::vector<std::string>{"x", "y", "w"}));
    EXPECT_EQ(Column(a, 1), (std::vector<std::string>{"3", "", ""}));
    std::int64_t k0 = a.getUniqueKey(0), k1 = a.getUniqueKey(1), k2 = a.getUniqueKey(2), kb = b.getUniqueKey(0);
    EXPECT_LT(k0, -1);
    EXPECT_EQ(k1, k0 - 1);
    EXPECT_EQ(kb, k1 - 1);  // one counter for every grid in the process
    EXPECT_EQ(k2, kb - 1);
    EXPECT_EQ(a.getUniqueKey(-1), 0);
    EXPECT_EQ(a.getUniqueKey(3), 0);
}

TEST(ReportTable, ExplicitKeysAreTakenAsGivenAndTheFirstOfTwinsGoes) {
    Grid grid(nullptr, false, Grid::DragAndDrop::NoDrag);
    Fill(grid, {"Name"}, {});
    grid.insertRow({{"Name", "first"}}, 7);
    grid.insertRow({{"Name", "second"}}, 7);
    grid.insertRow({{"Name", "other"}}, 8);
    EXPECT_FALSE(grid.isKeyUnique(7));
    EXPECT_TRUE(grid.deleteRowFromKey(7, true));
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"second", "other"}));
    EXPECT_EQ(grid.getRowDataFromKey(7).at("Name"), "second");
    EXPECT_TRUE(grid.deleteRowFromKey(7, true));
    EXPECT_FALSE(grid.deleteRowFromKey(7, true));
    EXPECT_TRUE(grid.isKeyUnique(7));
}

TEST(ReportTable, HeadersAreUniqueAndAColumnAddedLaterReadsEmpty) {
    Grid grid(nullptr, false, Grid::DragAndDrop::NoDrag);
    Fill(grid, {"A"}, {{"1"}, {"2"}});
    EXPECT_FALSE(grid.insertHeader("A", InPlaceComboBox, true, false, false));
    EXPECT_EQ(grid.getNumberOfColumns(), 1);
    EXPECT_EQ(grid.getHeaderInfo(0)->inPlaceType, InPlaceEdit);
    EXPECT_TRUE(grid.insertHeader("B", InPlaceEdit, false, false, false));
    grid.refresh();
    EXPECT_EQ(grid.getHeaderColumn("B"), 1);
    EXPECT_EQ(Column(grid, 1), (std::vector<std::string>{"", ""}));
    EXPECT_TRUE(grid.updateCell(1, 1, "b2", false));
    EXPECT_EQ(grid.getRealCellData(1, 1), "b2");
    grid.deleteAllHeaders();
    EXPECT_EQ(grid.getNumberOfColumns(), 0);
    grid.refresh();
    EXPECT_FALSE(grid.IsWindowVisible());  // no columns: the window hides
    grid.insertHeader("A", InPlaceEdit, false, false, false);
    grid.refresh();
    EXPECT_TRUE(grid.IsWindowVisible());
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"", ""}));  // the rows stay, their cells went
}

TEST(ReportTable, TheViewIsASnapshotUntilRefresh) {
    RecordingContainer owner;
    Grid grid(&owner, false, Grid::DragAndDrop::NoDrag);
    Fill(grid, {"Name"}, {{"a"}, {"b"}, {"c"}});
    std::int64_t keyB = grid.getUniqueKey(1);
    EXPECT_TRUE(grid.updateCellKey(keyB, 0, "B", true));
    EXPECT_EQ(owner.calls.back(), "Edited " + std::to_string(keyB) + " b>B");
    EXPECT_EQ(grid.getCellData(1, 0), "b");
    EXPECT_EQ(grid.getRealCellData(1, 0), "B");
    EXPECT_TRUE(grid.deleteRowFromKey(grid.getUniqueKey(0), false));
    EXPECT_EQ(grid.getNumberOfRows(), 3);
    EXPECT_EQ(grid.getCellData(0, 0), "a");  // deleted, still shown
    EXPECT_EQ(grid.getRealCellData(0, 0), "");
    grid.refresh();
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"B", "c"}));
}

TEST(ReportTable, DeletingByKeyMatchesErasingFromAPlainList) {
    // Deletes by key leave holes that positions must see through: the
    // selection cleared, the checkbox bits kept and the master order must be
    // those of erasing from a list one key at a time.
    Grid grid(nullptr, false, Grid::DragAndDrop::NoDrag);
    Fill(grid, {"N"}, {});
    std::vector<std::int64_t> keys;
    std::vector<bool> checks;
    std::mt19937 random(5);
    for (int i = 0; i < 600; ++i) grid.insertRow({{"N", std::to_string(i)}}, -1);
    grid.refresh();
    for (int i = 0; i < 600; ++i) keys.push_back(grid.getUniqueKey(i));
    for (int i = 0; i < 600; ++i) {
        checks.push_back(random() % 2);
        grid.setCheckboxState(i, checks[i]);
    }
    grid.selectAllRows(true);
    std::vector<bool> selected(600, true);
    for (int round = 0; round < 3; ++round) {
        for (int d = 0; d < 120; ++d) {
            std::int64_t key = keys[random() % keys.size()];
            std::size_t pos = std::find(keys.begin(), keys.end(), key) - keys.begin();
            ASSERT_TRUE(grid.deleteRowFromKey(key, false));
            if (pos < selected.size()) selected[pos] = false;
            keys.erase(keys.begin() + static_cast<long>(pos));
            checks.erase(checks.begin() + static_cast<long>(pos));
        }
        for (int i = 0; i < 40; ++i) {  // rows made after the holes, then deleted among them
            grid.insertRow({{"N", "late"}}, 100000 * (round + 1) + i);
            keys.push_back(100000 * (round + 1) + i);
            checks.push_back(false);
        }
    }
    for (std::size_t i = 0; i < selected.size(); ++i)
        EXPECT_EQ(grid.GetItemState(static_cast<int>(i), LVIS_SELECTED) != 0, selected[i]) << i;
    std::vector<Grid::KeysAndData> records;
    grid.transposeTable(records);
    ASSERT_EQ(records.size(), keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(records[i].key, keys[i]);
        EXPECT_EQ(grid.getCheckboxState(static_cast<int>(i)), checks[i]) << i;
    }
}

TEST(ReportTable, ImportSelectsTheImportedRowsAndTransposeReadsThemBack) {
    Grid grid(nullptr, false, Grid::DragAndDrop::NoDrag);
    Fill(grid, {"Name", "Size"}, {{"old", "1"}});
    grid.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    grid.importTable({{100, {{"Name", "p"}, {"Size", "2"}}}, {101, {{"Name", "q"}}}});
    EXPECT_EQ(grid.getSelectionSet(), (std::vector<int>{1, 2}));
    std::vector<Grid::KeysAndData> records;
    grid.transposeTable(records);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[1].key, 100);
    EXPECT_EQ(records[1].data, (std::map<std::string, std::string>{{"Name", "p"}, {"Size", "2"}}));
    EXPECT_EQ(records[2].data.at("Size"), "");
}

TEST(ReportTable, CopiesAskTheOwnerAndKeepKeysTheTargetLacks) {
    RecordingContainer owner;
    Grid source(&owner, false, Grid::DragAndDrop::DragMove), target(nullptr, false, Grid::DragAndDrop::NoDrag);
    Fill(source, {"Name"}, {{"a"}, {"b"}});
    Fill(target, {"Name", "Extra"}, {});
    std::int64_t keyA = source.getUniqueKey(0), keyB = source.getUniqueKey(1);
    target.insertRow({{"Name", "taken"}}, keyB);
    EXPECT_EQ(source.copyKeysToSRC2(target, {keyA, keyB, 12345}, true), 2);
    EXPECT_EQ(Column(target, 0), (std::vector<std::string>{"taken", "a", "b"}));
    EXPECT_EQ(target.getUniqueKey(1), keyA);
    EXPECT_NE(target.getUniqueKey(2), keyB);
    owner.allowCopy = false;
    EXPECT_EQ(source.copyKeysToSRC2(target, {keyA}, true), 0);

    owner.allowCopy = true;
    source.selectAllRows(true);
    source.OnLvnBegindrag(0);
    EXPECT_TRUE(source.OnDropOn(target, 2, 0));
    EXPECT_EQ(source.getNumberOfRows(), 0);  // moved away
    EXPECT_EQ(target.getNumberOfRows(), 5);
}

TEST(ReportTable, BadIndicesAndAnyBytesGiveClearResults) {
    Grid grid(nullptr, false, Grid::DragAndDrop::NoDrag);
    std::string odd("\0\xff\n\t x", 6), big(1 << 20, 'z');
    Fill(grid, {"A", "B"}, {{odd, big}});
    EXPECT_EQ(grid.getCellData(0, 0), odd);
    EXPECT_EQ(grid.getCellData(0, 1).size(), big.size());
    for (int column : {-1, 2, 1 << 30}) {
        EXPECT_EQ(grid.getCellData(0, column), "");
        EXPECT_EQ(grid.getRealCellData(0, column), "");
        EXPECT_EQ(grid.getHeader(column), "");
        EXPECT_FALSE(grid.updateCell(0, column, "x", true));
        EXPECT_TRUE(grid.getViewColumnData(column).empty());
        EXPECT_TRUE(grid.getCellRect(0, column).IsRectEmpty());
    }
    for (int row : {-2, -1, 1, 1 << 30}) {
        EXPECT_EQ(grid.getCellData(row, 0), "");
        EXPECT_TRUE(grid.getViewRowData(row).empty());
        EXPECT_TRUE(grid.getMainRowData(row).empty());
        EXPECT_FALSE(grid.deleteRow(row));
        EXPECT_FALSE(grid.getCheckboxState(row));
        grid.setCheckboxState(row, true);
        EXPECT_TRUE(grid.getCellRect(row, 0).IsRectEmpty());
    }
    EXPECT_FALSE(grid.updateCellKey(424242, 0, "x", true));
    EXPECT_FALSE(grid.updateCell(424242, {"A", "x"}, true));
    EXPECT_FALSE(grid.updateCell(grid.getUniqueKey(0), {"Nope", "x"}, true));
    EXPECT_TRUE(grid.getRowDataFromKey(424242).empty());
    EXPECT_EQ(grid.getToolTipText(0), "");
    EXPECT_EQ(grid.getToolTipText(0xFFFFFFFFu), "");
    EXPECT_TRUE(grid.deleteRow(0));
    EXPECT_TRUE(grid.deleteAllRows());
    EXPECT_EQ(grid.getNumberOfRows(), 0);
}

}  // namespace
