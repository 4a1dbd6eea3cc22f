// A message queue per thread, created on first use, and the dispatch that
// pumping waits perform. DispatchMessage hands a message to the handler the
// receiving thread installed (or drops it when there is none).
#pragma once

#include <functional>

#include "qor/platform/Win32Types.h"

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
};

BOOL PostThreadMessage(DWORD threadId, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PeekMessage(MSG *msg, HWND window, UINT filterMin, UINT filterMax, UINT removeFlags);
// Blocks until a message arrives; returns 0 for WM_QUIT, as on Windows.
BOOL GetMessage(MSG *msg, HWND window, UINT filterMin, UINT filterMax);
BOOL TranslateMessage(const MSG *msg);
LRESULT DispatchMessage(const MSG *msg);
void PostQuitMessage(int exitCode);

namespace qor {

// What DispatchMessage does with the calling thread's messages.
using MessageHandler = std::function<LRESULT(const MSG &)>;
void SetThreadMessageHandler(MessageHandler handler);

// A GUI toolkit plugs its own event loop into the pumping waits of its thread:
// `pending` says whether the toolkit has events waiting, `dispatch` runs one.
// The waits of that thread then wake for toolkit events too (they look at the
// hook at least every 10 ms) and PeekMessage reports them as WM_NULL messages
// whose dispatch runs the toolkit. Pass empty functions to remove the hook.
void SetThreadEventHook(std::function<bool()> pending, std::function<void()> dispatch);

}  // namespace qor
