#include "qor/controls/report/ReportSort.h"

#include <algorithm>
#include <numeric>
#include <type_traits>
#include <utility>

#include "qor/controls/report/SortKeys.h"

namespace qor {
namespace report_sort_impl {

template <class T>
struct Keyed {
    T value;
    std::uint32_t index;
};

template <class T>
struct ValueLess {
    bool operator()(const T &a, const T &b) const { return a < b; }
};
template <>
struct ValueLess<std::string> {
    bool operator()(const std::string &a, const std::string &b) const { return NaturalLess(a, b); }
};

// The literal algorithm recurses on [low, s - 1] and loops on [s + 1, high];
// the two ranges are disjoint, so a stack of pending ranges gives the same
// result. Each range carries a bound: the index of a settled element (one
// that never moves again) before which no element of the range sorts. A
// pivot equal to its bound has nothing before it, so the scan that would
// find nothing is skipped and only its two exchanges are made.
template <class T, class Before>
void LomutoSort(std::vector<Keyed<T>> &a, Before before) {
    struct Range {
        std::ptrdiff_t low, high, bound;
    };
    std::vector<Range> pending;
    if (a.size() >= 2) pending.push_back({0, static_cast<std::ptrdiff_t>(a.size()) - 1, -1});
    while (!pending.empty()) {
        auto [low, high, bound] = pending.back();
        pending.pop_back();
        while (low < high) {
            std::ptrdiff_t mid = (low + high) / 2;
            std::swap(a[mid], a[high]);
            std::ptrdiff_t s = low;
            if (bound < 0 || !(a[high].value == a[bound].value)) {
                if constexpr (std::is_arithmetic_v<T>) {
                    const T pivot = a[high].value;
                    // The same exchanges without a branch on the comparison,
                    // which is as likely one way as the other.
                    for (std::ptrdiff_t i = low; i < high; ++i) {
                        Keyed<T> x = a[i], y = a[s];
                        bool move = before(x.value, pivot);
                        a[i] = move ? y : x;
                        a[s] = move ? x : y;
                        s += move;
                    }
                } else {
                    const T &pivot = a[high].value;  // a[high] stays put during the scan
                    for (std::ptrdiff_t i = low; i < high; ++i)
                        if (before(a[i].value, pivot)) {
                            if (s != i) std::swap(a[s], a[i]);
                            ++s;
                        }
                }
            }
            std::swap(a[s], a[high]);
            if (low < s - 1) pending.push_back({low, s - 1, bound});
            low = s + 1;
            bound = s;
        }
    }
}

template <class T>
std::vector<std::uint32_t> Quick(std::vector<T> values, bool ascending) {
    std::vector<Keyed<T>> keyed;
    keyed.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        keyed.push_back({std::move(values[i]), static_cast<std::uint32_t>(i)});
    ValueLess<T> less;
    if (ascending)
        LomutoSort(keyed, [&](const T &x, const T &pivot) { return less(x, pivot); });
    else
        LomutoSort(keyed, [&](const T &x, const T &pivot) { return less(pivot, x); });
    std::vector<std::uint32_t> order(keyed.size());
    for (std::size_t k = 0; k < keyed.size(); ++k) order[k] = keyed[k].index;
    return order;
}

template <class T>
std::vector<std::uint32_t> Bubble(const std::vector<T> &values, bool ascending) {
    std::vector<std::uint32_t> order(values.size());
    std::iota(order.begin(), order.end(), 0u);
    if (ascending)
        std::stable_sort(order.begin(), order.end(), [&](auto x, auto y) { return values[x] < values[y]; });
    else
        std::stable_sort(order.begin(), order.end(), [&](auto x, auto y) { return values[y] < values[x]; });
    return order;
}

}  // namespace report_sort_impl

std::vector<std::uint32_t> QuickSortOrder(std::vector<std::string> values, bool ascending) {
    return report_sort_impl::Quick(std::move(values), ascending);
}
std::vector<std::uint32_t> QuickSortOrder(std::vector<std::int32_t> values, bool ascending) {
    return report_sort_impl::Quick(std::move(values), ascending);
}
std::vector<std::uint32_t> QuickSortOrder(std::vector<std::int64_t> values, bool ascending) {
    return report_sort_impl::Quick(std::move(values), ascending);
}
std::vector<std::uint32_t> BubbleSortOrder(const std::vector<std::string> &values, bool ascending) {
    return report_sort_impl::Bubble(values, ascending);
}
std::vector<std::uint32_t> BubbleSortOrder(const std::vector<std::int32_t> &values, bool ascending) {
    return report_sort_impl::Bubble(values, ascending);
}
std::vector<std::uint32_t> BubbleSortOrder(const std::vector<std::int64_t> &values, bool ascending) {
    return report_sort_impl::Bubble(values, ascending);
}

}  // namespace qor
