// What grid cells accept, combo box completion, and the tab strip's geometry.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "qor/controls/layout/AutoComplete.h"
#include "qor/controls/layout/CellRules.h"
#include "qor/controls/layout/TabStripLayout.h"

namespace layout_test {

using Text = std::optional<std::string>;

TEST(NumberCellRuleTest, AcceptsPlainDecimalsInRangeAndRefusesTheRest) {
    const qor::NumberCellRule volume(0, 1000, 0.5, 1);
    const qor::NumberCellRule count(1, 96);
    const qor::NumberCellRule offset(-2.5, 2.5, 0.25, 2);
    struct Case {
        const qor::NumberCellRule &rule;
        const char *typed;
        Text stored;
    } const cases[] = {
        {volume, "12", "12.0"},       {volume, " 12.5 ", "12.5"},   {volume, "+7", "7.0"},
        {volume, ".5", "0.5"},        {volume, "5.", "5.0"},        {volume, "0", "0.0"},
        {volume, "1000", "1000.0"},   {volume, "12.50", "12.5"},    {volume, "-0", "0.0"},
        {volume, "1000.1", {}},       {volume, "-0.1", {}},         {volume, "12.55", {}},
        {volume, "", {}},             {volume, " ", {}},            {volume, ".", {}},
        {volume, "1e3", {}},          {volume, "1,5", {}},          {volume, "inf", {}},
        {volume, "nan", {}},          {volume, "1.2.3", {}},        {volume, "--1", {}},
        {volume, "12abc", {}},        {volume, "0x10", {}},         {volume, "1 000", {}},
        {count, "96", "96"},          {count, "0", {}},             {count, "97", {}},
        {count, "3.0", "3"},          {count, "3.5", {}},           {count, "99999999999999999999999", {}},
        {offset, "-2.5", "-2.50"},    {offset, "-2.51", {}},        {offset, "0.125", {}},
        {offset, "2.49", "2.49"},
    };
    for (const Case &c : cases) EXPECT_EQ(c.rule.Accept(c.typed), c.stored) << '"' << c.typed << '"';
}

TEST(NumberCellRuleTest, StepsStayInRangeAndNormalisesItsSettings) {
    const qor::NumberCellRule rule(0, 10, 0.1, 1);
    EXPECT_EQ(rule.Format(rule.Step(0.2, 1)), "0.3");  // no 0.30000000000000004
    EXPECT_DOUBLE_EQ(rule.Step(9.95, 3), 10);
    EXPECT_DOUBLE_EQ(rule.Step(0.2, -5), 0);
    EXPECT_EQ(rule.Format(-0.01), "0.0");

    const qor::NumberCellRule odd(10, -10, -3, 42);  // limits swapped, step and places repaired
    EXPECT_DOUBLE_EQ(odd.Min(), -10);
    EXPECT_DOUBLE_EQ(odd.Max(), 10);
    EXPECT_EQ(odd.Decimals(), 9);
    EXPECT_DOUBLE_EQ(odd.StepSize(), 1e-9);
    EXPECT_EQ(odd.Accept("-10"), "-10.000000000");
}

TEST(ChoiceAndCheckCellRuleTest, StoreTheCanonicalSpellingOrRefuse) {
    const qor::ChoiceCellRule folded({"Water", "DMSO", "Glycerol 50%"});
    EXPECT_EQ(folded.Accept("dmso"), "DMSO");
    EXPECT_EQ(folded.Accept("Glycerol 50%"), "Glycerol 50%");
    EXPECT_EQ(folded.Accept("Wate"), Text());
    EXPECT_EQ(folded.Accept(""), Text());
    const qor::ChoiceCellRule exact({"Water"}, true);
    EXPECT_EQ(exact.Accept("water"), Text());

    struct Case {
        const char *text;
        std::optional<bool> checked;
    } const cases[] = {{"1", true},   {"TRUE", true},  {" yes ", true}, {"On", true},     {"0", false},
                       {"false", false}, {"NO", false}, {"off", false}, {"", false},     {"  ", false},
                       {"2", {}},      {"y", {}},       {"truee", {}},  {"checked", {}}};
    for (const Case &c : cases) EXPECT_EQ(qor::CheckCellRule::Parse(c.text), c.checked) << '"' << c.text << '"';
}

TEST(AutoCompleteTest, TheFirstLongerItemWithTheTypedPrefix) {
    const std::vector<std::string> items = {"Plate 96", "plate 384", "Pipette", "Plate"};
    struct Case {
        const char *typed;
        bool caseSensitive;
        std::optional<std::size_t> found;
    } const cases[] = {
        {"Pl", true, 0},   {"pl", true, 1},  {"pl", false, 0}, {"Pi", true, 2},   {"Plate 3", false, 1},
        {"Plate", true, 0}, {"x", false, {}}, {"", false, {}},  {"Plate 96", true, {}},
    };
    for (const Case &c : cases) EXPECT_EQ(qor::FindCompletion(items, c.typed, c.caseSensitive), c.found) << c.typed;
}

TEST(TabStripLayoutTest, TabsFitOrScrollByWholeTabs) {
    // Labels of 30, 60 and 300 pixels: tabs 50, 80 and 240 (held to the most) wide.
    qor::TabStripLayout strip;
    strip.SetLabelWidths({30, 60, 300});
    strip.SetStripWidth(400);
    EXPECT_FALSE(strip.HasArrows());
    EXPECT_EQ(strip.GetPreferredWidth(), 370);
    EXPECT_EQ(strip.GetTabRect(0), CRect(0, 0, 50, 26));
    EXPECT_EQ(strip.GetTabRect(2), CRect(130, 0, 370, 26));
    EXPECT_EQ(strip.HitTest({131, 5}), 2);
    EXPECT_EQ(strip.HitTest({380, 5}), qor::TabStripLayout::kNothing);

    // 300 wide: arrows take 32, tabs 0 and 1 fit in 268; the third does not.
    strip.SetStripWidth(300);
    EXPECT_TRUE(strip.HasArrows());
    EXPECT_FALSE(strip.CanScrollBack());
    EXPECT_TRUE(strip.CanScrollForward());
    EXPECT_TRUE(strip.GetTabRect(2).IsRectEmpty());
    EXPECT_EQ(strip.HitTest({270, 5}), qor::TabStripLayout::kScrollBack);
    EXPECT_EQ(strip.HitTest({299, 5}), qor::TabStripLayout::kScrollForward);

    // Selecting the last scrolls until it shows wholly, and no further.
    strip.Select(2);
    EXPECT_EQ(strip.GetFirstVisible(), 2);
    EXPECT_EQ(strip.GetTabRect(2), CRect(0, 0, 240, 26));
    EXPECT_TRUE(strip.CanScrollBack());
    EXPECT_FALSE(strip.CanScrollForward());
    strip.ScrollBy(5);
    EXPECT_EQ(strip.GetFirstVisible(), 2);
    strip.ScrollBy(-1);
    EXPECT_EQ(strip.GetFirstVisible(), 1);
    strip.ScrollBy(-9);
    EXPECT_EQ(strip.GetFirstVisible(), 0);

    // A tab wider than the room shows cut when it is the first in view.
    strip.SetStripWidth(150);
    strip.Select(2);
    EXPECT_EQ(strip.GetTabRect(2), CRect(0, 0, 118, 26));
    EXPECT_EQ(strip.HitTest({117, 5}), 2);
    EXPECT_EQ(strip.HitTest({125, 5}), qor::TabStripLayout::kScrollBack);

    // Growing again scrolls back, wasting no room on the left.
    strip.Select(2);
    strip.SetStripWidth(390);
    EXPECT_FALSE(strip.HasArrows());
    EXPECT_EQ(strip.GetFirstVisible(), 0);

    // Removing tabs drops a selection that no longer exists.
    strip.SetLabelWidths({10});
    EXPECT_EQ(strip.GetSelection(), -1);
    strip.Select(7);
    EXPECT_EQ(strip.GetSelection(), -1);
    strip.SetLabelWidths({});
    strip.SetStripWidth(0);
    EXPECT_EQ(strip.HitTest({0, 0}), qor::TabStripLayout::kNothing);
}

}  // namespace layout_test
