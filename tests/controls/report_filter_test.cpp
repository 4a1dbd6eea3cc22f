// Filters and the context menu that sets them.
#include <gtest/gtest.h>

#include "RecordingContainer.h"

namespace {

using Grid = CSuperReportCtrl2;

struct FilteredGrid : ::testing::Test {
    RecordingContainer owner;
    Grid grid{&owner, false, Grid::DragAndDrop::NoDrag};
    void SetUp() override {
        Fill(grid, {"Plate", "State"}, {{"p1", "Done"}, {"p2", "Failed"}, {"p3", "Done"}, {"p4", ""}, {"p5", "done"}});
    }
    std::vector<std::string> Plates() { return Column(grid, 0); }
    std::vector<std::string> Texts(const char *popup) {
        std::vector<std::string> texts;
        for (const auto &item : grid.GetViewContextMenu())
            if (item.text == popup)
                for (const auto &child : item.popup) texts.push_back(std::to_string(child.id) + " " + child.text);
        return texts;
    }
};

TEST_F(FilteredGrid, FiltersAreExactConjunctionsThatAccumulate) {
    grid.SetFilter({{"State", "Done"}});
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p1", "p3"}));  // "done" differs in case
    grid.GetViewFilter()["Plate"] = "p3";
    grid.contextMenuShowByUpdate();
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p3"}));
    EXPECT_EQ(grid.getFilterParameters(), (std::vector<std::string>{"Plate = p3", "State = Done"}));
    grid.OnContextMenuShowAll();
    EXPECT_EQ(Plates().size(), 5u);
    grid.OnContextMenuUseLastFilter();
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p3"}));
    grid.SetFilter({{"State", "Nothing like it"}});
    EXPECT_EQ(grid.getNumberOfRows(), 0);
    EXPECT_EQ(grid.GetItemCount(), 0);
    EXPECT_TRUE(grid.IsWindowVisible());
    grid.SetFilter({{"No such column", ""}});  // reads as empty text everywhere
    EXPECT_EQ(grid.getNumberOfRows(), 5);
}

TEST_F(FilteredGrid, FilterByRowAndByColumnFromTheMenu) {
    ASSERT_TRUE(grid.OnContextMenu(CPoint(5, 5), 3, 1));
    EXPECT_EQ(Texts("Filter by row"), (std::vector<std::string>{"3125 Plate = p4", "3126 State = [empty]"}));
    EXPECT_EQ(Texts("Filter by column"), (std::vector<std::string>{"13126 State = [empty]", "13127 State = Done",
                                                                  "13128 State = Failed", "13129 State = done"}));
    EXPECT_TRUE(grid.OnContextMenuCommand(3126));  // "[empty]" filters on the empty text
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p4"}));
    EXPECT_EQ(owner.calls.back(), "FilterByRow");

    grid.showAll();
    ASSERT_TRUE(grid.OnContextMenu(CPoint(), 0, 1));
    EXPECT_TRUE(grid.OnContextMenuCommand(13127));
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p1", "p3"}));
    ASSERT_TRUE(grid.OnContextMenu(CPoint(), 0, 1));  // the list is now of this view only
    EXPECT_EQ(Texts("Filter by column"), (std::vector<std::string>{"13126 State = Done"}));
    grid.showAll();
    ASSERT_TRUE(grid.OnContextMenu(CPoint(), 0, 1));
    EXPECT_TRUE(grid.OnContextMenuCommand(13128));  // a second value of a column replaces the first
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p2"}));
    EXPECT_EQ(owner.calls.back(), "FilterByColumn");
    grid.OnContextMenuShowByColumn(13126 + 99);  // past the list: the empty text
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p4"}));
    EXPECT_FALSE(grid.OnContextMenuCommand(999));
}

TEST_F(FilteredGrid, TheMenuFollowsTheStylesAndTheOwner) {
    auto ids = [&] {
        std::string s;
        for (const auto &item : grid.GetViewContextMenu())
            s += item.separator ? "| " : item.isPopup ? "[" + item.text + "] " : item.text + " ";
        return s;
    };
    EXPECT_EQ(grid.GetContextMenuRoot().text, "This is just used to attach the popup context menu");
    EXPECT_EQ(ids(), "Select all Deselect all Invert selection Show all Use last filter [Filter by row] [Filter by column] ");
    grid.EnableScrolling(true);
    EXPECT_EQ(ids(), "Stop scrolling | Select all Deselect all Invert selection Show all Use last filter "
                     "[Filter by row] [Filter by column] ");
    grid.OnContextMenuCommand(Grid::kScrollId);
    EXPECT_EQ(grid.GetViewContextMenu()[0].text, "Resume scrolling");
    grid.SetSingleSelection(true);
    grid.setContextStyle(Grid::ContextStyles(Grid::SelectionItems | Grid::FilterItems));
    EXPECT_EQ(ids(), "Show all Use last filter [Filter by row] [Filter by column] ");
    unsigned id = 0;
    grid.addContextMenusItem(3, "Report", &id);  // taken by the grid: another is given
    EXPECT_GE(id, Grid::kCustomBaseId);
    grid.EnableScrolling(false);
    EXPECT_EQ(ids(), "Report ");
    EXPECT_FALSE(grid.OnContextMenu(CPoint(), 0, 0));  // styles 0: no menu

    grid.setContextStyle(Grid::FilterItems);
    owner.endContextMenu = true;
    EXPECT_FALSE(grid.OnContextMenu(CPoint(), 0, 0));
    owner.endContextMenu = false;
    EXPECT_FALSE(grid.OnContextMenu(CPoint(), -1, 0));  // no cell and no filter
    grid.SetFilter({{"State", "Done"}});
    EXPECT_TRUE(grid.OnContextMenu(CPoint(), -1, 0));
    EXPECT_FALSE(grid.GetViewContextMenu()[2].enabled);
    owner.endShowAll = true;
    grid.OnContextMenuCommand(Grid::kShowAllId);
    EXPECT_EQ(grid.getNumberOfRows(), 2);
}

TEST_F(FilteredGrid, SelectionItemsAndCustomItemsReachTheOwner) {
    grid.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    grid.OnContextMenuCommand(Grid::kInvertSelectionId);
    EXPECT_EQ(grid.getSelectionSet(), (std::vector<int>{0, 2, 3, 4}));
    EXPECT_EQ(owner.calls.back(), "Selection -1");
    grid.OnContextMenuCommand(Grid::kDeselectAllId);
    EXPECT_TRUE(grid.getSelectionSet().empty());
    grid.OnContextMenuCommand(Grid::kSelectAllId);
    EXPECT_EQ(grid.getSelectionSet().size(), 5u);
    grid.selectAllRows(false);
    grid.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    unsigned id = 0;
    grid.addContextMenusItem(77, "Print", &id);
    EXPECT_EQ(id, 77u);
    EXPECT_TRUE(grid.OnContextMenuCommand(77));
    EXPECT_EQ(owner.calls.back(), "Custom Print");
    ASSERT_EQ(owner.customRows.size(), 1u);
    EXPECT_EQ(owner.customRows[0].at("Plate"), "p3");
    EXPECT_EQ(owner.customRows[0].at("ItemID"), std::to_string(grid.getUniqueKey(2)));
}

TEST_F(FilteredGrid, DeletingTheSelectionShowsAllAndKeepsTheFilterAsLast) {
    grid.SetFilter({{"State", "Done"}});
    grid.selectAllRows(true);
    grid.OnKeyDown(0x2E);  // deletes are off for this grid
    EXPECT_EQ(grid.getNumberOfRows(), 2);
    EXPECT_TRUE(grid.deleteSelectedRows());
    EXPECT_EQ(Plates(), (std::vector<std::string>{"p2", "p4", "p5"}));
    EXPECT_TRUE(grid.GetViewFilter().empty());
    grid.OnContextMenuUseLastFilter();
    EXPECT_EQ(grid.getNumberOfRows(), 0);
}

}  // namespace
