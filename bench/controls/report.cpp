// The report grid on a million rows: sorting by a text, a numeric and a time
// column against std::stable_sort of the same keys with the same comparison;
// applying and clearing a filter against a plain scan of the column; and
// inserting and deleting rows by key against a hash map of rows. Each pair
// runs in this process and the ratios are printed at the end.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "qor/controls.h"
#include "support/BenchTimes.h"

namespace {

constexpr int kRows = 1000000;
constexpr const char *kStatuses[] = {"Done", "Failed", "Running", "Queued", "Aborted"};

// Days since 1970-01-01 of a civil date (proleptic Gregorian).
std::int64_t DaysFromCivil(int y, int m, int d) {
    y -= m <= 2;
    const int era = (y >= 0 ? y : y - 399) / 400;
    const int yoe = y - era * 400;
    const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097LL + doe - 719468;
}

// "YYYY-MM-DD HH:MM:SS" read by hand, as a busy owner would.
std::int64_t ParseStamp(const std::string &s) {
    if (s.size() < 19) return 0;
    auto n = [&](int at, int len) {
        int v = 0;
        for (int i = 0; i < len; ++i) v = v * 10 + (s[at + i] - '0');
        return v;
    };
    return DaysFromCivil(n(0, 4), n(5, 2), n(8, 2)) * 86400 + n(11, 2) * 3600 + n(14, 2) * 60 + n(17, 2);
}

std::string Stamp(std::int64_t t) {
    std::int64_t days = t / 86400, rest = t % 86400;
    // civil from days
    days += 719468;
    const std::int64_t era = days / 146097, doe = days - era * 146097;
    const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100), mp = (5 * doy + 2) / 153;
    const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1), m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    const int y = static_cast<int>(yoe + era * 400 + (m <= 2));
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", y, m, d, int(rest / 3600), int(rest / 60 % 60),
                  int(rest % 60));
    return text;
}

struct Owner : qor::ReportContainer {
    CSuperReportCtrl2 *grid = nullptr;
    std::int64_t GetCellTime(int row, int column) override { return ParseStamp(grid->getCellText(row, column)); }
};

enum Column { Shuffle, Run, Name, Started, Status };

// The table, in random order, with the columns as plain vectors beside it.
struct Data {
    std::vector<std::vector<std::string>> columns;
    Data() {
        std::mt19937_64 random(14);
        columns.assign(5, std::vector<std::string>(kRows));
        std::vector<int> order(kRows);
        for (int i = 0; i < kRows; ++i) order[i] = i;
        std::shuffle(order.begin(), order.end(), random);
        for (int i = 0; i < kRows; ++i) {
            columns[Shuffle][i] = std::to_string(order[i]);
            columns[Run][i] = std::to_string(100000 + random() % 10000000);
            columns[Name][i] = "Sample " + std::to_string(random() % 400000);
            columns[Started][i] = Stamp(1600000000 + static_cast<std::int64_t>(random() % 200000000));
            columns[Status][i] = kStatuses[random() % 5];
        }
    }
};

const Data &TheData() {
    static const Data data;
    return data;
}

struct Grid {
    Owner owner;
    CSuperReportCtrl2 grid{&owner, false, CSuperReportCtrl2::DragAndDrop::NoDrag};
    Grid() {
        owner.grid = &grid;
        grid.insertHeader("Shuffle", InPlaceReadOnly, true, false, false);
        grid.insertHeader("Run", InPlaceReadOnly, true, false, false);
        grid.insertHeader("Name", InPlaceEdit, false, false, false);
        grid.insertHeader("Started", InPlaceDateTime, false, true, false);
        grid.insertHeader("Status", InPlaceComboBox, false, false, false);
        const auto &c = TheData().columns;
        for (int i = 0; i < kRows; ++i)
            grid.insertRow({{"Shuffle", c[Shuffle][i]}, {"Run", c[Run][i]}, {"Name", c[Name][i]},
                            {"Started", c[Started][i]}, {"Status", c[Status][i]}},
                           -1);
        grid.refresh();
    }
};

Grid &TheGrid() {
    static Grid grid;
    return grid;
}

// ---- sorting ----

void GridSort(benchmark::State &state, Column column) {
    Grid &g = TheGrid();
    for (auto _ : state) {
        state.PauseTiming();
        g.grid.sortView(Shuffle, true);  // the same random order each time
        state.ResumeTiming();
        g.grid.sortView(column, true);
    }
}

// Sorts a fresh copy of a column's keys, read from the text with make, by
// sort(keys); the copy is not timed.
template <class Key, class Make, class Sort>
void SortKeys(benchmark::State &state, Column column, Make make, Sort sort) {
    std::vector<Key> keys;
    for (const std::string &cell : TheData().columns[column]) keys.push_back(make(cell));
    std::vector<Key> work;
    for (auto _ : state) {
        state.PauseTiming();
        work = keys;
        state.ResumeTiming();
        sort(work);
    }
}

// The peer: std::stable_sort of the keys with the grid's comparison.
template <class Key, class Make, class Less>
void PeerSort(benchmark::State &state, Column column, Make make, Less less) {
    SortKeys<Key>(state, column, make, [&](std::vector<Key> &keys) {
        std::stable_sort(keys.begin(), keys.end(), less);
        benchmark::DoNotOptimize(keys.data());
    });
}

// The grid's quick sort alone on the same keys: what the sort costs without
// reading the table.
template <class Key, class Make>
void QuickOnly(benchmark::State &state, Column column, Make make) {
    SortKeys<Key>(state, column, make, [](std::vector<Key> &keys) {
        benchmark::DoNotOptimize(qor::QuickSortOrder(std::move(keys), true).data());
    });
}

const auto kText = [](const std::string &s) { return s; };
const auto kNumber = [](const std::string &s) { return qor::Atol32(s); };

void SortText(benchmark::State &state) { GridSort(state, Name); }
void SortNumeric(benchmark::State &state) { GridSort(state, Run); }
void SortTime(benchmark::State &state) { GridSort(state, Started); }
void PeerSortText(benchmark::State &state) {
    PeerSort<std::string>(state, Name, kText, [](const std::string &a, const std::string &b) { return qor::NaturalLess(a, b); });
}
void PeerSortNumeric(benchmark::State &state) { PeerSort<std::int32_t>(state, Run, kNumber, std::less<>()); }
void PeerSortTime(benchmark::State &state) { PeerSort<std::int64_t>(state, Started, ParseStamp, std::less<>()); }
void QuickOnlyText(benchmark::State &state) { QuickOnly<std::string>(state, Name, kText); }
void QuickOnlyNumeric(benchmark::State &state) { QuickOnly<std::int32_t>(state, Run, kNumber); }
void QuickOnlyTime(benchmark::State &state) { QuickOnly<std::int64_t>(state, Started, ParseStamp); }

// ---- filtering ----

// Run first, on rows in the order they were added, and again after the
// sorts have scattered the table's order across memory.
void FilterApply(benchmark::State &state) {
    Grid &g = TheGrid();
    for (auto _ : state) {
        state.PauseTiming();
        g.grid.showAll();
        state.ResumeTiming();
        g.grid.SetFilter({{"Status", "Failed"}});
    }
    state.counters["rows"] = g.grid.getNumberOfRows();
}

void FilterClear(benchmark::State &state) {
    Grid &g = TheGrid();
    for (auto _ : state) {
        state.PauseTiming();
        g.grid.SetFilter({{"Status", "Failed"}});
        state.ResumeTiming();
        g.grid.showAll();
    }
    state.counters["rows"] = g.grid.getNumberOfRows();
}

void PeerScanApply(benchmark::State &state) {
    const auto &cells = TheData().columns[Status];
    std::vector<std::uint32_t> shown;
    for (auto _ : state) {
        shown.clear();
        for (std::uint32_t i = 0; i < cells.size(); ++i)
            if (cells[i] == "Failed") shown.push_back(i);
        benchmark::DoNotOptimize(shown.data());
    }
}

void PeerScanClear(benchmark::State &state) {
    const auto &cells = TheData().columns[Status];
    std::vector<std::uint32_t> shown;
    for (auto _ : state) {
        shown.clear();
        for (std::uint32_t i = 0; i < cells.size(); ++i) shown.push_back(i);
        benchmark::DoNotOptimize(shown.data());
    }
}

// ---- inserting and deleting by key ----

constexpr int kChanged = 100000;

// Times work on a fresh table from make; making and freeing it are not timed.
template <class Make, class Work>
void OnFresh(benchmark::State &state, Make make, Work work) {
    for (auto _ : state) {
        state.PauseTiming();
        auto table = make();
        state.ResumeTiming();
        work(*table);
        state.PauseTiming();
        table.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kChanged);
}

// Every tenth row's key, in random order.
template <class KeyOf>
std::vector<std::int64_t> SpreadKeys(KeyOf keyOf) {
    std::vector<std::int64_t> keys;
    for (int i = 0; i < kRows; i += kRows / kChanged) keys.push_back(keyOf(i));
    std::shuffle(keys.begin(), keys.end(), std::mt19937(3));
    return keys;
}

struct GridAndKeys {
    Grid g;
    std::vector<std::int64_t> keys = SpreadKeys([this](int i) { return g.grid.getUniqueKey(i); });
};

void InsertRows(benchmark::State &state) {
    const auto &c = TheData().columns;
    OnFresh(state, [] { return std::make_unique<Grid>(); }, [&](Grid &g) {
        for (int i = 0; i < kChanged; ++i)
            g.grid.insertRow({{"Run", c[Run][i]}, {"Name", c[Name][i]}, {"Status", c[Status][i]}}, -1);
        g.grid.refresh();
    });
}

void DeleteRows(benchmark::State &state) {
    OnFresh(state, [] { return std::make_unique<GridAndKeys>(); }, [](GridAndKeys &t) {
        for (std::int64_t key : t.keys) t.g.grid.deleteRowFromKey(key, false);
        t.g.grid.refresh();
    });
}

using PeerTable = std::unordered_map<std::int64_t, std::vector<std::string>>;

std::unique_ptr<PeerTable> PeerRows() {
    const auto &c = TheData().columns;
    auto table = std::make_unique<PeerTable>();
    for (int i = 0; i < kRows; ++i)
        table->emplace(-2 - i, std::vector<std::string>{c[Shuffle][i], c[Run][i], c[Name][i], c[Started][i], c[Status][i]});
    return table;
}

void PeerInsertRows(benchmark::State &state) {
    const auto &c = TheData().columns;
    OnFresh(state, PeerRows, [&](PeerTable &table) {
        for (int i = 0; i < kChanged; ++i)
            table.emplace(10000000 + i, std::vector<std::string>{"", c[Run][i], c[Name][i], "", c[Status][i]});
    });
}

void PeerDeleteRows(benchmark::State &state) {
    const std::vector<std::int64_t> keys = SpreadKeys([](int i) { return std::int64_t{-2} - i; });
    OnFresh(state, PeerRows, [&](PeerTable &table) {
        for (std::int64_t key : keys) table.erase(key);
    });
}

#define QOR_BENCH(name, reps) BENCHMARK(name)->Unit(benchmark::kMillisecond)->Repetitions(reps)->ReportAggregatesOnly(false)
QOR_BENCH(PeerScanApply, 3);
QOR_BENCH(FilterApply, 3)->Name("FilterApplyUnsorted");
QOR_BENCH(PeerSortText, 3);
QOR_BENCH(QuickOnlyText, 3);
QOR_BENCH(SortText, 3);
QOR_BENCH(PeerSortNumeric, 3);
QOR_BENCH(QuickOnlyNumeric, 3);
QOR_BENCH(SortNumeric, 3);
QOR_BENCH(PeerSortTime, 3);
QOR_BENCH(QuickOnlyTime, 3);
QOR_BENCH(SortTime, 3);
QOR_BENCH(FilterApply, 3);
QOR_BENCH(PeerScanClear, 3);
QOR_BENCH(FilterClear, 3)->Iterations(40);  // each run pauses for a filter 100 times its length
QOR_BENCH(PeerInsertRows, 1)->Iterations(2);
QOR_BENCH(InsertRows, 1)->Iterations(2);
QOR_BENCH(PeerDeleteRows, 1)->Iterations(2);
QOR_BENCH(DeleteRows, 1)->Iterations(2);

}  // namespace

int main(int argc, char **argv) {
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);
    auto line = [&](const char *what, const char *ours, const char *peer, const char *goal) {
        if (times.CpuRatio(ours, peer) == 0) return;
        std::printf("%-44s %8.1f ms / %8.1f ms = %5.2f  %s\n", what, times.Cpu(ours) * 1e3, times.Cpu(peer) * 1e3,
                    times.CpuRatio(ours, peer), goal);
    };
    std::printf("\n1,000,000 rows, grid / peer (CPU time, best of the runs):\n");
    line("sort by text / stable_sort, natural order", "SortText", "PeerSortText", "(goal: at most 1.5)");
    line("  the quick sort alone / stable_sort", "QuickOnlyText", "PeerSortText", "");
    line("sort by number / stable_sort of atol", "SortNumeric", "PeerSortNumeric", "(goal: at most 1.5)");
    line("  the quick sort alone / stable_sort", "QuickOnlyNumeric", "PeerSortNumeric", "");
    line("sort by time / stable_sort of the times", "SortTime", "PeerSortTime", "(goal: at most 1.5)");
    line("  the quick sort alone / stable_sort", "QuickOnlyTime", "PeerSortTime", "");
    line("apply a filter, rows as added / plain scan", "FilterApplyUnsorted", "PeerScanApply", "(goal: at most 1.5)");
    line("apply a filter, rows sorted / plain scan", "FilterApply", "PeerScanApply", "(goal: at most 1.5)");
    line("clear the filter / plain scan", "FilterClear", "PeerScanClear", "(goal: at most 1.5)");
    line("insert 100,000 rows by key / hash map", "InsertRows", "PeerInsertRows", "(for reference)");
    line("delete 100,000 rows by key / hash map", "DeleteRows", "PeerDeleteRows", "(for reference)");
    return 0;
}
