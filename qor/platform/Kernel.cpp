// Handle table, reference counts, thread ids and the one wait engine behind
// WaitForSingleObject, WaitForMultipleObjects and MsgWaitForMultipleObjects.
#include <pthread.h>

#include <algorithm>
#include <unordered_set>

#include "qor/platform/SystemError.h"
#include "qor/platform/Waitable.h"
#include "qor/platform/detail/Kernel.h"

namespace qor::kernel {

namespace {
// Process-lifetime state is never destroyed: detached threads may still be
// ending while static destructors run at exit.
struct KernelState {
    KernelMutex lock;
    std::unordered_set<Object *> handles;
    std::vector<Waiter *> spareWaiters;
};
KernelState &State() {
    static KernelState *state = [] {
        auto *made = new KernelState;
        // A fork in one thread while another holds the lock would leave the
        // child's copy locked for ever; hold it across the fork instead.
        pthread_atfork([] { State().lock.lock(); }, [] { State().lock.unlock(); },
                       [] { State().lock.unlock(); });
        return made;
    }();
    return *state;
}
std::atomic<DWORD> nextThreadId{1};
thread_local DWORD currentThreadId = 0;

constexpr DWORD kMaximumWaitObjects = 64;
constexpr DWORD kErrorInvalidHandle = 6;
constexpr DWORD kErrorInvalidParameter = 87;
// Longest sleep between two looks at a toolkit's event hook.
constexpr auto kHookPollInterval = std::chrono::milliseconds(10);
}  // namespace

KernelMutex::KernelMutex() {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
#ifdef PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_ADAPTIVE_NP);
#endif
    pthread_mutex_init(&mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

WakeSignal::WakeSignal() {
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    pthread_cond_init(&condition, &attributes);
    pthread_condattr_destroy(&attributes);
}

void WakeSignal::wait_until(KernelLock &held, Clock::time_point until) {
    // steady_clock is CLOCK_MONOTONIC on the platforms this layer runs on.
    const auto since = until.time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(since);
    timespec when{};
    when.tv_sec = static_cast<time_t>(seconds.count());
    when.tv_nsec = static_cast<long>(std::chrono::duration_cast<std::chrono::nanoseconds>(since - seconds).count());
    pthread_cond_timedwait(&condition, held.mutex()->native(), &when);
}

KernelMutex &Lock() { return State().lock; }

namespace {
// Hands the thread's waiter back for reuse when the thread ends.
struct WaiterHolder {
    Waiter *waiter = nullptr;
    ~WaiterHolder() {
        if (!waiter) return;
        std::lock_guard<KernelMutex> hold(Lock());
        State().spareWaiters.push_back(waiter);
    }
};
thread_local WaiterHolder currentWaiter;
// The guard this thread holds, which wakes waiters when it lets go.
thread_local Guard *activeGuard = nullptr;
}  // namespace

Waiter &CurrentWaiter() {
    if (!currentWaiter.waiter) {
        std::lock_guard<KernelMutex> hold(Lock());
        auto &spare = State().spareWaiters;
        if (spare.empty()) {
            currentWaiter.waiter = new Waiter;
        } else {
            currentWaiter.waiter = spare.back();
            spare.pop_back();
        }
    }
    return *currentWaiter.waiter;
}

void WakeLater(Waiter *waiter) {
    if (activeGuard)
        activeGuard->wakes.push_back(waiter);
    else
        waiter->wake.notify_one();
}

Guard::Guard() : lock(Lock()) { activeGuard = this; }

Guard::~Guard() {
    activeGuard = nullptr;
    if (lock.owns_lock()) lock.unlock();
    for (Waiter *waiter : wakes) waiter->wake.notify_one();
}

Object::Object() = default;
Object::~Object() = default;


HANDLE Register(Object *object) {
    State().handles.insert(object);
    return object;
}

Object *Find(HANDLE handle) {
    auto *object = static_cast<Object *>(handle);
    return State().handles.count(object) ? object : nullptr;
}

void Release(Object *object) {
    if (--object->references == 0) {
        State().handles.erase(object);
        delete object;
    }
}

DWORD NewThreadId() { return nextThreadId.fetch_add(1, std::memory_order_relaxed); }

void AdoptThreadId(DWORD id) { currentThreadId = id; }

namespace {

// What one pass over the objects found.
constexpr DWORD kNothingYet = Waiter::kNotGranted;

DWORD TryTake(const std::vector<Object *> &objects, bool waitAll, DWORD thread) {
    if (objects.empty()) return kNothingYet;
    if (waitAll) {
        for (Object *object : objects)
            if (!object->Ready(thread)) return kNothingYet;
        DWORD result = WAIT_OBJECT_0;
        for (std::size_t i = 0; i < objects.size(); ++i)
            if (objects[i]->Take(thread) && result == WAIT_OBJECT_0)
                result = WAIT_ABANDONED_0 + static_cast<DWORD>(i);
        return result;
    }
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (objects[i]->Ready(thread)) {
            const bool abandoned = objects[i]->Take(thread);
            return (abandoned ? WAIT_ABANDONED_0 : WAIT_OBJECT_0) + static_cast<DWORD>(i);
        }
    }
    return kNothingYet;
}

// The index of the object a successful result names, or `count` when the
// result names none.
DWORD TakenIndex(DWORD result, DWORD count) {
    if (result < WAIT_OBJECT_0 + count) return result - WAIT_OBJECT_0;
    if (result >= WAIT_ABANDONED_0 && result < WAIT_ABANDONED_0 + count) return result - WAIT_ABANDONED_0;
    return count;
}

// Ends with its thread and abandons the mutexes the thread still owns.
struct ThreadExitWatch {
    bool armed = false;
    ~ThreadExitWatch() {
        if (!armed) return;
        const DWORD thread = GetCurrentThreadId();
        Guard guard;
        AbandonMutexesOf(thread);
    }
};
thread_local ThreadExitWatch exitWatch;

}  // namespace

void WatchThreadExit() { exitWatch.armed = true; }

void Object::WakeWaiters() {
    for (Waiter *waiter : waiters) {
        if (waiter->granted != kNothingYet) continue;
        const DWORD result = TryTake(*waiter->objects, waiter->waitAll, waiter->thread);
        if (result == kNothingYet) continue;
        waiter->granted = result;
        WakeLater(waiter);
    }
}

namespace {

DWORD Wait(DWORD count, const HANDLE *handles, bool waitAll, DWORD milliseconds,
           bool forInput) {
    if ((count == 0 && !forInput) || count > kMaximumWaitObjects ||
        (count > 0 && handles == nullptr)) {
        SetLastError(kErrorInvalidParameter);
        return WAIT_FAILED;
    }
    const DWORD thread = GetCurrentThreadId();
    WatchThreadExit();
    ThreadQueue *queue = forInput ? &CurrentQueue() : nullptr;
    const bool hooked = queue && queue->hookPending;
    const bool infinite = milliseconds == INFINITE;
    const auto deadline = Clock::now() + std::chrono::milliseconds(infinite ? 0 : milliseconds);
    Waiter &waiter = CurrentWaiter();

    Guard held;
    KernelLock &guard = held.Held();
    std::vector<Object *> objects;
    objects.reserve(count);
    for (DWORD i = 0; i < count; ++i) {
        Object *object = Find(handles[i]);
        if (!object) {
            for (Object *held : objects) Release(held);
            SetLastError(kErrorInvalidHandle);
            return WAIT_FAILED;
        }
        ++object->references;  // the wait keeps the object alive if its handle is closed
        objects.push_back(object);
    }

    DWORD result = TryTake(objects, waitAll, thread);
    bool registered = false;
    while (result == kNothingYet) {
        if (waiter.granted != kNothingYet) {
            result = waiter.granted;
            break;
        }
        if (queue && !queue->messages.empty()) {
            result = WAIT_OBJECT_0 + count;
            break;
        }
        if (hooked) {
            guard.unlock();
            const bool pending = queue->hookPending();
            guard.lock();
            if (waiter.granted != kNothingYet) continue;
            if (pending) {
                result = WAIT_OBJECT_0 + count;
                break;
            }
        }
        const auto now = Clock::now();
        if (!infinite && now >= deadline) {
            result = WAIT_TIMEOUT;
            break;
        }
        if (!registered) {
            waiter.objects = &objects;
            waiter.waitAll = waitAll;
            waiter.thread = thread;
            waiter.granted = kNothingYet;
            for (Object *object : objects) object->waiters.push_back(&waiter);
            if (queue) queue->waiter = &waiter;
            registered = true;
        }
        if (hooked) {
            auto until = now + kHookPollInterval;
            if (!infinite) until = std::min(until, deadline);
            waiter.wake.wait_until(guard, until);
        } else if (infinite) {
            waiter.wake.wait(guard);
        } else {
            waiter.wake.wait_until(guard, deadline);
        }
    }
    if (registered) {
        for (Object *object : objects) {
            auto &list = object->waiters;
            list.erase(std::find(list.begin(), list.end(), &waiter));
        }
        if (queue) queue->waiter = nullptr;
        waiter.objects = nullptr;
        waiter.granted = kNothingYet;
    }

    // A cross-process mutex is taken in the process first, then in the file
    // lock, which may block and so runs outside the lock.
    if (const DWORD index = TakenIndex(result, count); index < count) {
        std::vector<Object *> taken;
        if (waitAll) taken = objects;
        else taken.push_back(objects[index]);
        std::vector<Object *> completing;
        for (Object *object : taken)
            if (object->NeedsCompletion()) completing.push_back(object);
        if (!completing.empty()) {
            guard.unlock();
            std::size_t done = 0;
            while (done < completing.size() && completing[done]->Complete(infinite, deadline)) ++done;
            guard.lock();
            if (done < completing.size()) {
                for (Object *object : taken) object->Untake(thread);
                result = WAIT_TIMEOUT;
            }
        }
    }
    for (Object *object : objects) Release(object);
    return result;
}

}  // namespace
}  // namespace qor::kernel


DWORD GetCurrentThreadId() {
    using qor::kernel::currentThreadId;
    if (currentThreadId == 0) currentThreadId = qor::kernel::NewThreadId();
    return currentThreadId;
}

DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds) {
    return qor::kernel::Wait(1, &object, false, milliseconds, false);
}

DWORD WaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL waitAll, DWORD milliseconds) {
    return qor::kernel::Wait(count, objects, waitAll != FALSE, milliseconds, false);
}

DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL waitAll,
                                DWORD milliseconds, DWORD wakeMask) {
    // Every kind of input the layer knows is a queued message, so any mask
    // that asks for input asks for all of it.
    return qor::kernel::Wait(count, objects, waitAll != FALSE, milliseconds, wakeMask != 0);
}

BOOL CloseHandle(HANDLE handle) {
    using namespace qor::kernel;
    Guard guard;
    Object *object = Find(handle);
    if (!object) {
        SetLastError(kErrorInvalidHandle);
        return FALSE;
    }
    Release(object);
    return TRUE;
}
