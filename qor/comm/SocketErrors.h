// Socket error numbers as the socket layer speaks them: Winsock numbers
// (connection refused is 10061, timed out 10060, ...), mapped from the
// system's errno values, with a per-thread "last socket error" and the texts
// callers see.
#pragma once

#include <string>

namespace qor {

// The Winsock number for an errno value; an errno with no Winsock counterpart
// is returned as it is (they never collide: Winsock numbers start at 10000).
int WinsockErrorFromErrno(int errnum);

// The errno value behind a Winsock number, or 0 when there is none.
int ErrnoFromWinsockError(int code);

// The calling thread's last socket error, in Winsock numbers.
int GetLastSocketError();
void SetLastSocketError(int code);
// Records errno (mapped) as the thread's last socket error.
void SetLastSocketErrorFromErrno(int errnum);

// The layer's text for a socket error: the fixed table for its Winsock
// numbers, otherwise the system's own text for the error, otherwise
// "Unknown error".
std::string TranslateSocketError(int code);

}  // namespace qor
