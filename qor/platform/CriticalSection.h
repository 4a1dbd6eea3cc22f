// CRITICAL_SECTION and CCriticalSection: recursive locks. A CRITICAL_SECTION
// holds a pointer to its lock, made by InitializeCriticalSection, so copying
// the struct copies the reference as a bitwise copy does on Windows.
#pragma once

#include "qor/platform/Win32Types.h"

struct CRITICAL_SECTION {
    void *lock = nullptr;
};

void InitializeCriticalSection(CRITICAL_SECTION *section);
void DeleteCriticalSection(CRITICAL_SECTION *section);
void EnterCriticalSection(CRITICAL_SECTION *section);
BOOL TryEnterCriticalSection(CRITICAL_SECTION *section);
void LeaveCriticalSection(CRITICAL_SECTION *section);

class CCriticalSection {
public:
    CCriticalSection();
    virtual ~CCriticalSection();
    CCriticalSection(const CCriticalSection &) = delete;
    CCriticalSection &operator=(const CCriticalSection &) = delete;

    BOOL Lock();
    BOOL Lock(DWORD timeout);
    BOOL Unlock();
    operator CRITICAL_SECTION *() { return &m_sect; }

    CRITICAL_SECTION m_sect;
};
