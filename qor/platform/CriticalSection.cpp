// Critical sections: recursive locks that live on the heap, so that the
// CRITICAL_SECTION struct can be copied as Windows code copies it.
#include <mutex>

#include "qor/platform/CriticalSection.h"

namespace qor::kernel {
namespace {
std::recursive_mutex *SectionLock(CRITICAL_SECTION *section) {
    return static_cast<std::recursive_mutex *>(section->lock);
}
}  // namespace
}  // namespace qor::kernel

void InitializeCriticalSection(CRITICAL_SECTION *section) { section->lock = new std::recursive_mutex; }

void DeleteCriticalSection(CRITICAL_SECTION *section) {
    delete qor::kernel::SectionLock(section);
    section->lock = nullptr;
}

void EnterCriticalSection(CRITICAL_SECTION *section) { qor::kernel::SectionLock(section)->lock(); }

BOOL TryEnterCriticalSection(CRITICAL_SECTION *section) {
    return qor::kernel::SectionLock(section)->try_lock() ? TRUE : FALSE;
}

void LeaveCriticalSection(CRITICAL_SECTION *section) { qor::kernel::SectionLock(section)->unlock(); }

CCriticalSection::CCriticalSection() { InitializeCriticalSection(&m_sect); }

CCriticalSection::~CCriticalSection() { DeleteCriticalSection(&m_sect); }

BOOL CCriticalSection::Lock() {
    EnterCriticalSection(&m_sect);
    return TRUE;
}

// A critical section has no timed wait; the timeout is accepted and the call
// waits as long as it takes, as the MFC class does.
BOOL CCriticalSection::Lock(DWORD) { return Lock(); }

BOOL CCriticalSection::Unlock() {
    LeaveCriticalSection(&m_sect);
    return TRUE;
}
