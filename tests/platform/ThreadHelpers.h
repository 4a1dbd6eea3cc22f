// Thread helpers shared by the platform and task tests: run work on other
// threads and wait for it, and probe whether a lock is free elsewhere.
#pragma once

#include <vector>

#include "qor/platform.h"

namespace threadtest {

// Waits for every thread in `threads` to end and closes its handle.
inline void JoinThreads(const std::vector<HANDLE> &threads) {
    for (HANDLE thread : threads) {
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }
}

// Runs `body` on `count` threads at once and waits for all of them.
template <typename Body>
void RunOnThreads(int count, Body body) {
    std::vector<HANDLE> threads;
    for (int i = 0; i < count; ++i)
        threads.push_back(qor::BeginThread([&body]() -> DWORD {
            body();
            return 0;
        }));
    JoinThreads(threads);
}

// Runs `body` on one other thread and waits for it.
template <typename Body>
void RunOnOtherThread(Body body) {
    RunOnThreads(1, body);
}

// Whether another thread can take `mutex` without waiting.
inline bool OtherThreadCanTake(HANDLE mutex) {
    DWORD result = WAIT_FAILED;
    RunOnOtherThread([&] {
        result = WaitForSingleObject(mutex, 0);
        if (result == WAIT_OBJECT_0) ReleaseMutex(mutex);
    });
    return result == WAIT_OBJECT_0;
}

// A thread that posts `count` messages to thread `target`, after each waiting
// for `served` (which the target's handler sets), then signals `done`: only a
// wait that serves the target's messages sees it finish.
inline HANDLE StartPoster(DWORD target, UINT message, int count, HANDLE served, HANDLE done) {
    return qor::BeginThread([=]() -> DWORD {
        for (int i = 0; i < count; ++i) {
            PostThreadMessage(target, message, i, 0);
            WaitForSingleObject(served, INFINITE);
        }
        SetEvent(done);
        return 0;
    });
}

}  // namespace threadtest
