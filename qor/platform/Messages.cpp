// One message queue per thread. Posting wakes the owner if it sits in a
// pumping wait; a toolkit hook shows up as WM_NULL messages whose dispatch
// runs the toolkit's own loop for one event.
#include <unordered_map>

#include "qor/platform/Messages.h"
#include "qor/platform/SystemError.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"
#include "qor/platform/detail/Kernel.h"

namespace qor::kernel {
namespace {

std::unordered_map<DWORD, std::shared_ptr<ThreadQueue>> &Queues() {
    static auto *queues = new std::unordered_map<DWORD, std::shared_ptr<ThreadQueue>>;
    return *queues;
}

// Unregisters the thread's queue when the thread ends.
struct QueueHolder {
    std::shared_ptr<ThreadQueue> queue;
    ~QueueHolder() {
        if (!queue) return;
        Guard guard;
        auto found = Queues().find(queue->thread);
        if (found != Queues().end() && found->second == queue) Queues().erase(found);
    }
};
thread_local QueueHolder currentQueue;

// Marks the WM_NULL messages that stand for a toolkit's pending events.
char toolkitEventMarker;
constexpr DWORD kErrorInvalidThreadId = 1444;

bool Matches(const MSG &msg, HWND window, UINT filterMin, UINT filterMax) {
    if (window && msg.hwnd != window) return false;
    if (filterMin == 0 && filterMax == 0) return true;
    return msg.message >= filterMin && msg.message <= filterMax;
}

}  // namespace

std::shared_ptr<ThreadQueue> PrepareQueue(DWORD thread) {
    auto queue = std::make_shared<ThreadQueue>();
    queue->thread = thread;
    Guard guard;
    Queues()[thread] = queue;
    return queue;
}

void AdoptQueue(std::shared_ptr<ThreadQueue> queue) { currentQueue.queue = std::move(queue); }

void ForgetQueue(DWORD thread) { Queues().erase(thread); }

ThreadQueue &CurrentQueue() {
    if (!currentQueue.queue) currentQueue.queue = PrepareQueue(GetCurrentThreadId());
    return *currentQueue.queue;
}

ThreadQueue *FindQueue(DWORD thread) {
    auto found = Queues().find(thread);
    return found == Queues().end() ? nullptr : found->second.get();
}

}  // namespace qor::kernel


BOOL PostThreadMessage(DWORD threadId, UINT message, WPARAM wParam, LPARAM lParam) {
    using namespace qor::kernel;
    const DWORD now = GetTickCount();
    Guard guard;
    ThreadQueue *queue = FindQueue(threadId);
    if (!queue) {
        SetLastError(kErrorInvalidThreadId);
        return FALSE;
    }
    queue->messages.push_back(MSG{nullptr, message, wParam, lParam, now});
    if (queue->waiter) WakeLater(queue->waiter);
    return TRUE;
}

BOOL PeekMessage(MSG *msg, HWND window, UINT filterMin, UINT filterMax, UINT removeFlags) {
    using namespace qor::kernel;
    ThreadQueue &queue = CurrentQueue();
    {
        Guard guard;
        for (auto it = queue.messages.begin(); it != queue.messages.end(); ++it) {
            if (!Matches(*it, window, filterMin, filterMax)) continue;
            if (msg) *msg = *it;
            if (removeFlags & PM_REMOVE) queue.messages.erase(it);
            return TRUE;
        }
    }
    if (queue.hookPending && queue.hookPending()) {
        if (msg) *msg = MSG{&toolkitEventMarker, WM_NULL, 0, 0, GetTickCount()};
        return TRUE;
    }
    return FALSE;
}

BOOL GetMessage(MSG *msg, HWND window, UINT filterMin, UINT filterMax) {
    MSG local{};
    MSG *target = msg ? msg : &local;
    while (!PeekMessage(target, window, filterMin, filterMax, PM_REMOVE))
        MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT);
    return target->message == WM_QUIT ? FALSE : TRUE;
}

BOOL TranslateMessage(const MSG *) { return FALSE; }

LRESULT DispatchMessage(const MSG *msg) {
    using namespace qor::kernel;
    if (!msg) return 0;
    ThreadQueue &queue = CurrentQueue();
    if (msg->hwnd == &toolkitEventMarker && msg->message == WM_NULL) {
        if (queue.hookDispatch) queue.hookDispatch();
        return 0;
    }
    return queue.handler ? queue.handler(*msg) : 0;
}

void PostQuitMessage(int exitCode) {
    using namespace qor::kernel;
    CurrentQueue();
    PostThreadMessage(GetCurrentThreadId(), WM_QUIT, static_cast<WPARAM>(exitCode), 0);
}

namespace qor {

void SetThreadMessageHandler(MessageHandler handler) {
    using namespace qor::kernel;
    CurrentQueue().handler = std::move(handler);
}

void SetThreadEventHook(std::function<bool()> pending, std::function<void()> dispatch) {
    using namespace qor::kernel;
    ThreadQueue &queue = CurrentQueue();
    if (!pending || !dispatch) {
        queue.hookPending = nullptr;
        queue.hookDispatch = nullptr;
        return;
    }
    queue.hookPending = std::move(pending);
    queue.hookDispatch = std::move(dispatch);
}

}  // namespace qor
