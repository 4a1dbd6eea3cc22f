// The machinery under the Win32-shaped waitable objects. Every object's state
// is guarded by one process-wide lock, so that a wait on several objects can
// test and take them atomically, as the Windows kernel does. A waiting thread
// sleeps on its own condition variable and every object it waits on knows it,
// so a signal wakes exactly the threads that could be interested.
//
// Not part of the public interface: only the platform sources include this.
#pragma once

#include <atomic>
#include <chrono>
#include <pthread.h>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "qor/platform/Messages.h"
#include "qor/platform/Win32Types.h"

namespace qor::kernel {

using Clock = std::chrono::steady_clock;

// The lock over every object's state, every waiter list and every queue. Its
// holds are a few hundred nanoseconds, so it spins a little before it sleeps:
// a thread that finds it taken would otherwise pay a sleep and a wake-up, and
// a signal handed to a waking thread would queue behind that.
class KernelMutex {
public:
    KernelMutex();
    KernelMutex(const KernelMutex &) = delete;
    KernelMutex &operator=(const KernelMutex &) = delete;
    void lock() { pthread_mutex_lock(&mutex); }
    void unlock() { pthread_mutex_unlock(&mutex); }
    bool try_lock() { return pthread_mutex_trylock(&mutex) == 0; }
    pthread_mutex_t *native() { return &mutex; }

private:
    pthread_mutex_t mutex;
};
KernelMutex &Lock();
using KernelLock = std::unique_lock<KernelMutex>;

// What a waiting thread sleeps on: a condition over Lock(), timed on the
// monotonic clock.
class WakeSignal {
public:
    WakeSignal();
    WakeSignal(const WakeSignal &) = delete;
    WakeSignal &operator=(const WakeSignal &) = delete;
    void wait(KernelLock &held) { pthread_cond_wait(&condition, held.mutex()->native()); }
    void wait_until(KernelLock &held, std::chrono::steady_clock::time_point until);
    void notify_one() { pthread_cond_signal(&condition); }

private:
    pthread_cond_t condition;
};

// Holds Lock() for its scope. The threads whose waits were satisfied
// meanwhile are woken after the lock is let go, so that they do not wake only
// to block on it.
class Guard {
public:
    Guard();
    ~Guard();
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;
    KernelLock &Held() { return lock; }

private:
    friend void WakeLater(struct Waiter *waiter);
    KernelLock lock;
    std::vector<struct Waiter *> wakes;
};

class Object;

// One per thread, recycled when the thread ends (never freed, so a late
// wake-up reaches a live object and is at worst a spurious one). While the thread waits, the
// objects it waits on know it, and a signal that satisfies the wait takes the
// objects for it at once and leaves the result in `granted` (as the Windows
// kernel hands an auto-reset signal straight to a waiting thread).
struct Waiter {
    static constexpr DWORD kNotGranted = 0xFFFFFFFEu;
    WakeSignal wake;
    const std::vector<Object *> *objects = nullptr;
    bool waitAll = false;
    DWORD thread = 0;
    DWORD granted = kNotGranted;
};
Waiter &CurrentWaiter();
// Wakes `waiter` when the current Guard lets go (under Lock()).
void WakeLater(Waiter *waiter);

// A reference-counted waitable object. A HANDLE is a pointer to one; each
// handle and each running thread that uses an object holds a reference.
class Object {
public:
    Object();
    virtual ~Object();
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;

    // All of these run with Lock() held.
    // Could `thread` take the object now?
    virtual bool Ready(DWORD thread) const = 0;
    // Take it: consume an auto-reset signal, own a mutex. True when what was
    // taken is a mutex that its last owner left behind by ending.
    virtual bool Take(DWORD thread) { return false; }
    // Work a successful take needs done outside the lock (a cross-process
    // file lock); false if it could not be done by `deadline`.
    virtual bool NeedsCompletion() const { return false; }
    // Runs without the lock; `infinite` waits without limit.
    virtual bool Complete(bool infinite, Clock::time_point deadline) { return true; }
    // Give back a take whose completion failed (under the lock).
    virtual void Untake(DWORD thread) {}

    // Call after any change that may make the object ready: satisfies the
    // waits it can, oldest first (under Lock()).
    void WakeWaiters();
    std::vector<Waiter *> waiters;
    unsigned references = 1;
};

// Register a new object as a valid handle (under Lock()).
HANDLE Register(Object *object);
// The object behind a handle, or nullptr for a handle that is not (or no
// longer) open (under Lock()).
Object *Find(HANDLE handle);
// Drops one reference (under Lock()); the last one deletes the object.
void Release(Object *object);

// The message queue of one thread.
struct ThreadQueue {
    DWORD thread = 0;
    std::deque<MSG> messages;
    Waiter *waiter = nullptr;  // set while its thread waits for input
    // Touched by the owning thread only.
    MessageHandler handler;
    std::function<bool()> hookPending;
    std::function<void()> hookDispatch;
};

// The calling thread's queue, created and registered on first use.
ThreadQueue &CurrentQueue();
// Registers a queue for a thread that is about to start, so that messages
// posted to it before it runs are kept; the thread adopts it.
std::shared_ptr<ThreadQueue> PrepareQueue(DWORD thread);
void AdoptQueue(std::shared_ptr<ThreadQueue> queue);
// Drops the queue prepared for a thread that could not start (under Lock()).
void ForgetQueue(DWORD thread);
// The queue of `thread`, or nullptr (under Lock()).
ThreadQueue *FindQueue(DWORD thread);

// Frees the mutexes a thread still owns when it ends; their next owner's
// wait reports WAIT_ABANDONED_0 + i, as on Windows (under Lock()).
void AbandonMutexesOf(DWORD thread);
// Makes sure the calling thread's mutexes are abandoned when it ends.
void WatchThreadExit();

// Thread ids: unique within the process for its whole life.
DWORD NewThreadId();
void AdoptThreadId(DWORD id);

}  // namespace qor::kernel
