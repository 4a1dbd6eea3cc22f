// Scope guards for locks, flags and counters. Each does one thing on entry
// and undoes it on exit.
#pragma once

#include <string>

#include "qor/platform/CriticalSection.h"
#include "qor/platform/Waitable.h"

// Holds a critical section for its scope. The label is kept for whoever reads
// a debugger's view of the guard; nothing uses it. A copy does not enter the
// section but leaves it when destroyed, so never copy a live guard.
class CCSAutoLock {
public:
    explicit CCSAutoLock(CRITICAL_SECTION &section) : section(&section) { EnterCriticalSection(this->section); }
    CCSAutoLock(CRITICAL_SECTION &section, const std::string &label) : section(&section), label(label) {
        EnterCriticalSection(this->section);
    }
    CCSAutoLock(const CCSAutoLock &) = default;
    ~CCSAutoLock() { LeaveCriticalSection(section); }

private:
    CRITICAL_SECTION *section;
    std::string label;
};

// Holds a critical section for its scope.
class CThreadAutolock {
public:
    explicit CThreadAutolock(CRITICAL_SECTION &section) : section(&section) { EnterCriticalSection(this->section); }
    CThreadAutolock(const CThreadAutolock &) = delete;
    CThreadAutolock &operator=(const CThreadAutolock &) = delete;
    ~CThreadAutolock() { LeaveCriticalSection(section); }

private:
    CRITICAL_SECTION *section;
};

// Holds a CCriticalSection for its scope: enters its section directly and
// leaves through the object's Unlock().
class auto_lock {
public:
    explicit auto_lock(CCriticalSection &lock) : lock(lock) { EnterCriticalSection(&lock.m_sect); }
    auto_lock(const auto_lock &) = delete;
    auto_lock &operator=(const auto_lock &) = delete;
    ~auto_lock() { lock.Unlock(); }

private:
    CCriticalSection &lock;
};

// Owns a mutex handle for its scope, waiting for it without limit.
class auto_mutex {
public:
    explicit auto_mutex(void *mutex) : mutex(mutex) { WaitForSingleObject(mutex, INFINITE); }
    auto_mutex(const auto_mutex &) = delete;
    auto_mutex &operator=(const auto_mutex &) = delete;
    ~auto_mutex() { ReleaseMutex(mutex); }

private:
    void *mutex;
};

// Inverts a flag for its scope (true on entry reads false inside), and
// inverts it back at the end. The lock is held only for each change.
class auto_bool {
public:
    auto_bool(CCriticalSection &lock, bool volatile &flag) : lock(lock), flag(flag) { Invert(); }
    auto_bool(const auto_bool &) = delete;
    auto_bool &operator=(const auto_bool &) = delete;
    ~auto_bool() { Invert(); }

private:
    void Invert() {
        auto_lock hold(lock);
        flag = !flag;
    }
    CCriticalSection &lock;
    bool volatile &flag;
};

// Counts one more for its scope. The lock is held only for each change.
class auto_inc_dec {
public:
    auto_inc_dec(CCriticalSection &lock, unsigned long volatile &counter) : lock(lock), counter(counter) {
        auto_lock hold(lock);
        counter = counter + 1;
    }
    auto_inc_dec(const auto_inc_dec &) = delete;
    auto_inc_dec &operator=(const auto_inc_dec &) = delete;
    ~auto_inc_dec() {
        auto_lock hold(lock);
        counter = counter - 1;
    }

private:
    CCriticalSection &lock;
    unsigned long volatile &counter;
};
