// Waitable objects with Win32 semantics: events (manual and auto reset),
// mutexes (recursive; named ones serialise across processes), and thread
// handles that become signalled when their thread ends. A HANDLE stays valid
// until CloseHandle; a thread keeps its own reference, so closing the handle
// of a running thread is safe, as on Windows.
#pragma once

#include <functional>

#include "qor/platform/Win32Types.h"

// Events. `name` is accepted for the signature's sake; events are process-local.
HANDLE CreateEvent(void *attributes, BOOL manualReset, BOOL initialState, const char *name);
BOOL SetEvent(HANDLE event);
BOOL ResetEvent(HANDLE event);

// Mutexes, recursive within a thread. A named mutex is also an advisory file
// lock derived from the name under the user's runtime directory, so that it
// serialises every process of the user that opens the same name.
HANDLE CreateMutex(void *attributes, BOOL initialOwner, const char *name);
BOOL ReleaseMutex(HANDLE mutex);

// Waits. A successful wait on an auto-reset event consumes its signal; on a
// mutex it takes ownership. Wait-any reports the lowest signalled index as
// WAIT_OBJECT_0 + i; waitAll takes every object at once or none.
DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);
DWORD WaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL waitAll, DWORD milliseconds);

// As WaitForMultipleObjects, but also returns WAIT_OBJECT_0 + count when the
// calling thread's message queue (see Messages.h) holds a message, or when a
// toolkit hook installed on this thread has events to dispatch.
DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL waitAll,
                                DWORD milliseconds, DWORD wakeMask);

BOOL CloseHandle(HANDLE object);

// Threads. The handle becomes signalled when the thread ends. Stack sizes and
// creation flags are accepted and ignored: every thread starts at once.
using LPTHREAD_START_ROUTINE = DWORD (*)(void *);
HANDLE CreateThread(void *attributes, std::size_t stackSize, LPTHREAD_START_ROUTINE start,
                    void *parameter, DWORD flags, DWORD *threadId);
std::uintptr_t _beginthreadex(void *security, unsigned stackSize, unsigned (*start)(void *),
                              void *argument, unsigned flags, unsigned *threadId);
BOOL GetExitCodeThread(HANDLE thread, DWORD *exitCode);
DWORD GetCurrentThreadId();

#define STILL_ACTIVE 259u

namespace qor {

// Starts a thread running `body`; its result becomes the exit code. Returns a
// waitable handle to close with CloseHandle, or nullptr if no thread started.
HANDLE BeginThread(std::function<DWORD()> body, DWORD *threadId = nullptr);

}  // namespace qor
