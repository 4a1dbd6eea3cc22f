// Waits that keep the calling thread's messages flowing, for user interface
// threads. A signalled handle is reset by the wait, also a manual-reset one.
#pragma once

// Waits up to `milliseconds` (0xFFFFFFFF: no limit) for any of `handles`.
// Returns the index of the signalled handle, -1 on timeout, -2 if the wait
// failed.
long AlertablePumpingSleep(unsigned long milliseconds, unsigned int count, void **handles);
// Waits without limit for `handle`.
void AlertablePumpingSleep(void *handle);
// Waits up to `milliseconds` for `handle`; true if it was signalled.
bool AlertablePumpingSleep(unsigned long milliseconds, void *handle);
