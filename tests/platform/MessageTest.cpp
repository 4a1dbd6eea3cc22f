// Thread message queues and the pumping wait.
#include <gtest/gtest.h>

#include <vector>

#include "ThreadHelpers.h"

namespace {

constexpr UINT kPing = WM_USER + 1;

// Drains the calling thread's queue into `seen` (message numbers).
void Pump(std::vector<UINT> &seen) {
    MSG msg;
    while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
        seen.push_back(msg.message);
        TranslateMessage(&msg);
        DispatchMessage(&msg);
    }
}

TEST(Messages, PostedMessagesArriveInOrderAndDispatchToTheHandler) {
    std::vector<WPARAM> handled;
    qor::SetThreadMessageHandler([&](const MSG &msg) -> LRESULT {
        handled.push_back(msg.wParam);
        return 0;
    });
    const DWORD self = GetCurrentThreadId();
    std::vector<UINT> seen;
    Pump(seen);  // makes sure the queue exists
    for (WPARAM i = 1; i <= 3; ++i) ASSERT_TRUE(PostThreadMessage(self, kPing, i, 0));
    MSG peeked;
    ASSERT_TRUE(PeekMessage(&peeked, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(peeked.wParam, 1u);
    Pump(seen);
    EXPECT_EQ(handled, (std::vector<WPARAM>{1, 2, 3}));
    EXPECT_FALSE(PeekMessage(&peeked, nullptr, 0, 0, PM_REMOVE));
    qor::SetThreadMessageHandler(nullptr);
}

TEST(Messages, PostingToAnUnknownThreadFails) {
    EXPECT_FALSE(PostThreadMessage(0xFFFFFFF0u, kPing, 0, 0));
}

TEST(Messages, PumpingWaitWakesForMessagesAndRunsThemWhileWaiting) {
    HANDLE done = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    const DWORD self = GetCurrentThreadId();
    std::vector<UINT> seen;
    Pump(seen);
    HANDLE served = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    qor::SetThreadMessageHandler([&](const MSG &msg) -> LRESULT {
        if (msg.message == kPing) SetEvent(served);
        return 0;
    });
    HANDLE worker = threadtest::StartPoster(self, kPing, 1, served, done);
    for (;;) {
        const DWORD result = MsgWaitForMultipleObjects(1, &done, FALSE, INFINITE, QS_ALLINPUT);
        if (result == WAIT_OBJECT_0) break;
        ASSERT_EQ(result, WAIT_OBJECT_0 + 1);
        Pump(seen);
    }
    EXPECT_EQ(seen, std::vector<UINT>{kPing});
    qor::SetThreadMessageHandler(nullptr);
    WaitForSingleObject(worker, INFINITE);
    for (HANDLE handle : {worker, served, done}) CloseHandle(handle);
}

TEST(Messages, SignalledObjectWinsOverWaitingInput) {
    HANDLE event = CreateEvent(nullptr, TRUE, TRUE, nullptr);
    std::vector<UINT> seen;
    Pump(seen);
    PostThreadMessage(GetCurrentThreadId(), kPing, 0, 0);
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, 0, QS_ALLINPUT), WAIT_OBJECT_0);
    ResetEvent(event);
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, 0, QS_ALLINPUT), WAIT_OBJECT_0 + 1);
    Pump(seen);
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, 10, QS_ALLINPUT), WAIT_TIMEOUT);
    CloseHandle(event);
}

TEST(Messages, GetMessageRunsAThreadsLoopUntilQuit) {
    std::vector<WPARAM> got;
    DWORD exitCode = 0;
    DWORD id = 0;
    HANDLE thread = qor::BeginThread(
        [&]() -> DWORD {
            MSG msg;
            while (GetMessage(&msg, nullptr, 0, 0)) {
                got.push_back(msg.wParam);
                if (msg.wParam == 2) PostQuitMessage(5);
            }
            return static_cast<DWORD>(msg.wParam);
        },
        &id);
    // Posting works even before the thread runs: its queue exists from the start.
    ASSERT_TRUE(PostThreadMessage(id, kPing, 1, 0));
    ASSERT_TRUE(PostThreadMessage(id, kPing, 2, 0));
    WaitForSingleObject(thread, INFINITE);
    GetExitCodeThread(thread, &exitCode);
    EXPECT_EQ(got, (std::vector<WPARAM>{1, 2}));
    EXPECT_EQ(exitCode, 5u);
    CloseHandle(thread);
}

TEST(Messages, ToolkitHookIsServedByPumpingWaits) {
    int pendingEvents = 3, dispatched = 0;
    qor::SetThreadEventHook([&] { return pendingEvents > 0; },
                            [&] {
                                --pendingEvents;
                                ++dispatched;
                            });
    HANDLE never = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    while (MsgWaitForMultipleObjects(1, &never, FALSE, 50, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG msg;
        while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessage(&msg);
    }
    EXPECT_EQ(dispatched, 3);
    qor::SetThreadEventHook(nullptr, nullptr);
    CloseHandle(never);
}

}  // namespace
