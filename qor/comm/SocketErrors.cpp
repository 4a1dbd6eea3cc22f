#include "qor/comm/SocketErrors.h"

#include <cerrno>
#include <cstring>

#include "qor/platform/SystemError.h"

namespace qor {
namespace socket_errors {

// errno values and the Winsock numbers that stand for them (WSABASEERR + the
// BSD number, plus the few that Winsock spells differently).
struct ErrnoMapping {
    int errnum;
    int winsock;
};

constexpr ErrnoMapping kErrnoMap[] = {
    {EINTR, 10004},           {EBADF, 10009},          {EACCES, 10013},
    {EFAULT, 10014},          {EINVAL, 10022},         {EMFILE, 10024},
    {ENFILE, 10024},          {EWOULDBLOCK, 10035},    {EINPROGRESS, 10036},
    {EALREADY, 10037},        {ENOTSOCK, 10038},       {EDESTADDRREQ, 10039},
    {EMSGSIZE, 10040},        {EPROTOTYPE, 10041},     {ENOPROTOOPT, 10042},
    {EPROTONOSUPPORT, 10043}, {ESOCKTNOSUPPORT, 10044}, {EOPNOTSUPP, 10045},
    {EPFNOSUPPORT, 10046},    {EAFNOSUPPORT, 10047},   {EADDRINUSE, 10048},
    {EADDRNOTAVAIL, 10049},   {ENETDOWN, 10050},       {ENETUNREACH, 10051},
    {ENETRESET, 10052},       {ECONNABORTED, 10053},   {ECONNRESET, 10054},
    {ENOBUFS, 10055},         {EISCONN, 10056},        {ENOTCONN, 10057},
    {ESHUTDOWN, 10058},       {EPIPE, 10058},          {ETOOMANYREFS, 10059},
    {ETIMEDOUT, 10060},       {ECONNREFUSED, 10061},   {ELOOP, 10062},
    {ENAMETOOLONG, 10063},    {EHOSTDOWN, 10064},      {EHOSTUNREACH, 10065},
    {ENOTEMPTY, 10066},       {EUSERS, 10068},         {EDQUOT, 10069},
    {ESTALE, 10070},          {EREMOTE, 10071},
};

// The socket layer's own texts, keyed by Winsock number.
struct ErrorText {
    int code;
    const char *text;
};

constexpr ErrorText kErrorTexts[] = {
    {0, "The operation completed successfully."},
    {10014, "A miscellaneous fault occurred."},
    {10022, "The socket has not been bound with bind."},
    {10024, "No more socket descriptors are available."},
    {10036, "A blocking Windows Sockets 1.1 call is in progress, or the service provider is "
            "still processing a callback function."},
    {10038, "The descriptor is not a socket."},
    {10041, "The specified protocol is the wrong type for this socket."},
    {10043, "The specified protocol is not supported."},
    {10044, "The specified socket type is not supported in this address family."},
    {10045, "The referenced socket is not of a type that supports the listen operation."},
    {10047, "The specified address family is not supported."},
    {10048, "The socket's local address is already in use and the socket was not marked to "
            "allow address reuse with SO_REUSEADDR. This error usually occurs during execution "
            "of the bind function, but could be delayed until this function if the bind was to "
            "a partially wild-card address (involving ADDR_ANY) and if a specific address needs "
            "to be \"committed\" at the time of this function."},
    {10050, "The network subsystem or the associated service provider has failed."},
    {10051, "The network cannot be reached from this host at this time."},
    {10055, "No buffer space is available. The socket cannot be created."},
    {10056, "The socket is already connected."},
    {10057, "Attempt to send data on a non-connected socket."},
    {10058, "A request to send or receive data was disallowed because the socket had already "
            "been shut down in that direction with a previous shutdown call."},
    {10060, "Attempt to connect timed out without establishing a connection."},
    {10061, "The attempt to connect was forcefully rejected."},
    {10065, "The host cannot be reached from this host at this time."},
    {10093, "A successful WSAStartup must occur before using this function."},
};

thread_local int lastSocketError = 0;

}  // namespace socket_errors

int WinsockErrorFromErrno(int errnum) {
    for (const auto &m : socket_errors::kErrnoMap)
        if (m.errnum == errnum) return m.winsock;
    return errnum;
}

int ErrnoFromWinsockError(int code) {
    for (const auto &m : socket_errors::kErrnoMap)
        if (m.winsock == code) return m.errnum;
    return 0;
}

int GetLastSocketError() { return socket_errors::lastSocketError; }

void SetLastSocketError(int code) { socket_errors::lastSocketError = code; }

void SetLastSocketErrorFromErrno(int errnum) {
    socket_errors::lastSocketError = WinsockErrorFromErrno(errnum);
}

std::string TranslateSocketError(int code) {
    for (const auto &t : socket_errors::kErrorTexts)
        if (t.code == code) return t.text;
    // Outside the table: the system's own words for the error behind it.
    int errnum = ErrnoFromWinsockError(code);
    if (errnum == 0 && code > 0 && code < 10000) errnum = code;
    if (errnum != 0) {
        std::string text = SystemErrorText(errnum);
        if (!text.empty()) return text;
    }
    return "Unknown error";
}

}  // namespace qor
