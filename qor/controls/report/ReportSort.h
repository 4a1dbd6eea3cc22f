// The grid's two sorts as permutations of a column's sort values, so a table
// can apply one order to all its columns at once.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qor {

// The quick sort of the grid: Lomuto partitions around the middle element,
// unstable. The result is the order in which the literal algorithm leaves
// the elements: order[k] is the index of the value that ends at position k.
// Text compares by NaturalLess, numbers by value. Runs of equal values cost
// linear time where the literal algorithm takes quadratic time, and the
// recursion is a loop, so no input exhausts the stack.
std::vector<std::uint32_t> QuickSortOrder(std::vector<std::string> values, bool ascending);
std::vector<std::uint32_t> QuickSortOrder(std::vector<std::int32_t> values, bool ascending);
std::vector<std::uint32_t> QuickSortOrder(std::vector<std::int64_t> values, bool ascending);

// The bubble sort of the grid: neighbours out of order for the direction are
// exchanged until none are, which is a stable sort. Text compares byte by
// byte, numbers by value.
std::vector<std::uint32_t> BubbleSortOrder(const std::vector<std::string> &values, bool ascending);
std::vector<std::uint32_t> BubbleSortOrder(const std::vector<std::int32_t> &values, bool ascending);
std::vector<std::uint32_t> BubbleSortOrder(const std::vector<std::int64_t> &values, bool ascending);

}  // namespace qor
