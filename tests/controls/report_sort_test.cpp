// The two sorts and the natural comparison, each against a literal version
// of the algorithm it stands for, and sorting in the grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "RecordingContainer.h"

namespace {

// The comparison as written: numbers read by a string stream each time.
bool LiteralNaturalLess(const std::string &a, const std::string &b) {
    auto at = [](const std::string &s, std::size_t i) { return i < s.size() ? s[i] : '\0'; };
    auto num = [&](const std::string &s, std::size_t i) {
        std::size_t e = i;
        while (std::isdigit(static_cast<unsigned char>(at(s, e))) || at(s, e) == '.') ++e;
        std::istringstream in(s.substr(i, e - i));
        float f = 0;
        in >> f;
        return f;
    };
    auto upper = [](char c) { int v = static_cast<signed char>(c); return v >= 'a' && v <= 'z' ? v - 32 : v; };
    std::size_t i = 0, j = 0;
    for (;;) {
        while (std::isspace(static_cast<unsigned char>(at(a, i))) && at(a, i)) ++i;
        while (std::isspace(static_cast<unsigned char>(at(b, j))) && at(b, j)) ++j;
        auto isNum = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) || c == '.'; };
        if (isNum(at(a, i)) && isNum(at(b, j))) {
            float x = num(a, i), y = num(b, j);
            if (x < y) return true;
            if (x > y) return false;
        }
        if (i >= a.size() && j >= b.size()) return false;
        if (upper(at(a, i)) > upper(at(b, j))) return false;
        if (upper(at(a, i)) < upper(at(b, j))) return true;
        ++i, ++j;
    }
}

template <class T, class Less>
void LiteralQuick(std::vector<T> &v, std::vector<std::uint32_t> &idx, long low, long high, bool asc, Less less) {
    while (low < high) {
        long mid = (low + high) / 2;
        std::swap(v[mid], v[high]), std::swap(idx[mid], idx[high]);
        long s = low;
        for (long i = low; i < high; ++i)
            if (asc ? less(v[i], v[high]) : less(v[high], v[i])) std::swap(v[s], v[i]), std::swap(idx[s], idx[i]), ++s;
        std::swap(v[s], v[high]), std::swap(idx[s], idx[high]);
        LiteralQuick(v, idx, low, s - 1, asc, less);
        low = s + 1;
    }
}

template <class T, class Less>
std::vector<std::uint32_t> Literal(std::vector<T> v, bool asc, bool quick, Less less) {
    std::vector<std::uint32_t> idx(v.size());
    for (std::uint32_t i = 0; i < idx.size(); ++i) idx[i] = i;
    if (quick) {
        LiteralQuick(v, idx, 0, static_cast<long>(v.size()) - 1, asc, less);
    } else {
        for (std::size_t pass = 0; pass < v.size(); ++pass)
            for (std::size_t j = 0; j + 1 < v.size(); ++j)
                if (asc ? less(v[j + 1], v[j]) : less(v[j], v[j + 1])) std::swap(v[j], v[j + 1]), std::swap(idx[j], idx[j + 1]);
    }
    return idx;
}

std::string RandomText(std::mt19937 &random) {
    static const char alphabet[] = "aAbB 0123456789..-\tz\xe9";
    std::string s(random() % 9, ' ');
    for (char &c : s) c = alphabet[random() % (sizeof alphabet - 1)];
    if (random() % 8 == 0) {  // long numbers, where a float's rounding shows
        s += std::to_string(16777200 + random() % 40);
        for (int i = random() % 16; i > 0; --i) s += static_cast<char>('0' + random() % 10);
    }
    return s;
}

TEST(ReportSort, NaturalComparisonTable) {
    struct Case {
        const char *a, *b;
        bool less;
    } cases[] = {
        {"item2", "item10", true}, {"item10", "item2", false}, {"a 1", "a1", false}, {"a1", "a 1", false},
        {"abc", "ABD", true},      {"ABD", "abc", false},      {"1.5", "1.25", false}, {".5", "0.4", false},
        {"x", "x ", false},        {"x", "xy", true},          {"", "a", true},         {"0100", "100", true},
        {"1.2.3", "1.2.4", true},  {"\xe9", "a", true},        {"run 9", "Run 10", true},
        {"16777217", "16777216", false}, {"16777216", "16777217", true},  // equal as floats: by characters
    };
    for (const Case &c : cases) EXPECT_EQ(qor::NaturalLess(c.a, c.b), c.less) << c.a << " < " << c.b;
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        std::string a = RandomText(random), b = random() % 4 ? RandomText(random) : a + RandomText(random);
        ASSERT_EQ(qor::NaturalLess(a, b), LiteralNaturalLess(a, b)) << '"' << a << "\" \"" << b << '"';
    }
    EXPECT_EQ(qor::Atol32("  -42x"), -42);
    EXPECT_EQ(qor::Atol32("99999999999"), 2147483647);
    EXPECT_EQ(qor::Atol32("-99999999999"), -2147483647 - 1);
    EXPECT_EQ(qor::Atol32("x1"), 0);
}

TEST(ReportSort, BothSortsLeaveTheOrderOfTheLiteralAlgorithms) {
    std::mt19937 random(2);
    for (int round = 0; round < 300; ++round) {
        std::size_t n = random() % 60;
        int spread = 1 + static_cast<int>(random() % 12);  // few values: many ties
        std::vector<std::string> texts;
        std::vector<std::int32_t> numbers;
        for (std::size_t i = 0; i < n; ++i) {
            texts.push_back(random() % 3 ? std::to_string(random() % spread) + "x" : RandomText(random));
            numbers.push_back(static_cast<std::int32_t>(random() % spread) - 3);
        }
        for (bool asc : {true, false}) {
            auto natural = [](const std::string &a, const std::string &b) { return LiteralNaturalLess(a, b); };
            auto bytes = [](const std::string &a, const std::string &b) { return a < b; };
            auto less = [](std::int32_t a, std::int32_t b) { return a < b; };
            ASSERT_EQ(qor::QuickSortOrder(texts, asc), Literal(texts, asc, true, natural));
            ASSERT_EQ(qor::QuickSortOrder(numbers, asc), Literal(numbers, asc, true, less));
            ASSERT_EQ(qor::BubbleSortOrder(texts, asc), Literal(texts, asc, false, bytes));
            ASSERT_EQ(qor::BubbleSortOrder(numbers, asc), Literal(numbers, asc, false, less));
        }
    }
    // A million equal values: linear work, and no recursion to run out of.
    std::vector<std::int64_t> same(1000000, 7);
    auto order = qor::QuickSortOrder(same, true);
    EXPECT_EQ(order.size(), same.size());
}

struct SortedGrid : ::testing::Test {
    RecordingContainer owner;
    CSuperReportCtrl2 grid{&owner, false, CSuperReportCtrl2::DragAndDrop::NoDrag};
    void SetUp() override {
        grid.insertHeader("Name", InPlaceEdit, false, false, false);
        grid.insertHeader("Size", InPlaceEdit, true, false, false);
        grid.insertHeader("When", InPlaceDate, false, true, false);
        for (auto [name, size, when] : {std::tuple{"b10", "9", "300"}, {"b9", "10", "100"}, {"a", "-1", "200"}})
            grid.insertRow({{"Name", name}, {"Size", size}, {"When", when}}, -1);
        grid.refresh();
        // Times as an owner gives them: read from the cell the view shows.
        owner.cellTime = [this](int row, int column) { return std::stoll("0" + grid.getCellData(row, column)); };
    }
};

TEST_F(SortedGrid, HeaderClicksSortFlipAndTellTheOwner) {
    grid.OnHdnItemclick(0);
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"a", "b9", "b10"}));
    EXPECT_EQ(owner.calls.back(), "Sorted Name(Ascending)");
    grid.OnHdnItemclick(0);
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"b10", "b9", "a"}));
    EXPECT_EQ(owner.calls.back(), "Sorted Name(Descending)");
    grid.OnHdnItemclick(1);
    EXPECT_EQ(Column(grid, 1), (std::vector<std::string>{"-1", "9", "10"}));
    grid.refresh();  // the quick sort orders the master too
    EXPECT_EQ(Column(grid, 1), (std::vector<std::string>{"-1", "9", "10"}));
    grid.SetFilter({{"Size", "9"}});
    grid.showAll();
    grid.OnHdnItemclick(2);  // by time, with a filtered view beforehand
    EXPECT_EQ(Column(grid, 2), (std::vector<std::string>{"100", "200", "300"}));
    owner.vetoHeader = true;
    grid.OnHdnItemclick(0);
    EXPECT_EQ(Column(grid, 2), (std::vector<std::string>{"100", "200", "300"}));
}

TEST_F(SortedGrid, BubbleSortsOnlyTheViewAndTimeSortsSeeFilteredRowsRight) {
    grid.setSortingMethod(CSuperReportCtrl2::SortingMethod::bubbleSort);
    grid.sortView(0, true);
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"a", "b10", "b9"}));  // byte order
    grid.refresh();
    EXPECT_EQ(Column(grid, 0), (std::vector<std::string>{"b10", "b9", "a"}));  // master order again
    grid.setSortingMethod(CSuperReportCtrl2::SortingMethod::quickSort);
    grid.SetFilter({{"Name", "a"}});
    grid.sortView(2, false);
    grid.showAll();
    EXPECT_EQ(Column(grid, 2), (std::vector<std::string>{"300", "200", "100"}));
}

TEST_F(SortedGrid, WithoutAContainerHeaderClicksDoNothing) {
    CSuperReportCtrl2 lone(nullptr, false, CSuperReportCtrl2::DragAndDrop::NoDrag);
    Fill(lone, {"N"}, {{"b"}, {"a"}});
    lone.OnHdnItemclick(0);
    EXPECT_EQ(Column(lone, 0), (std::vector<std::string>{"b", "a"}));
    lone.sortView(0, true);
    EXPECT_EQ(Column(lone, 0), (std::vector<std::string>{"a", "b"}));
}

}  // namespace
