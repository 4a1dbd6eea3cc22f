// Results of task execution. They are `long` and keep the numeric values that
// drivers test for (`result == 0x80040001`); the run loops decide on the low
// 16 bits: 0 success, 1 failure, 2 user abort.
#pragma once

namespace qor {

inline constexpr long kTaskSucceeded = 0;
inline constexpr long kTaskFailed = 0x80040001L;    // a failed step or a refused operation
inline constexpr long kTaskUserAbort = 0x00040002L; // a run ended by the user
inline constexpr long kTaskNoThread = 0x80040004L;  // no thread could be started

// The part of a result the run loops act on.
inline constexpr unsigned TaskResultKind(long result) { return static_cast<unsigned>(result) & 0xFFFFu; }

}  // namespace qor
