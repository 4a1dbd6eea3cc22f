// One TCP or UDP socket with an event thread of its own. The socket is
// non-blocking; the thread waits for network conditions and calls back the
// socket's container, one call at a time, in this order within one wake-up:
// accept, out-of-band, read, write, connect, close.
//
// The conditions behave as Winsock's event selection does:
// - read comes once, and again after each Receive while unread data remain;
// - write comes when a connection is made and when sending is possible again
//   after a Send that would have blocked;
// - connect comes once per Connect, with its error code; a failed connect has
//   closed the handle before OnConnect runs, so IsConnected() is false there;
// - close comes once when the peer ends the connection; the handle is closed
//   before OnClose runs.
// A container may call Send and Receive from a callback, but must not destroy
// the socket there: the destructor waits for that very thread.
#pragma once

#include <netinet/in.h>

#include <atomic>
#include <string>

#include "qor/platform/CriticalSection.h"
#include "qor/platform/QorException.h"
#include "qor/platform/Win32Types.h"

class CSuperSocket;

// A failed socket operation: `message` names the call ("CSuperSocket::Listen::bind::"),
// `errorCode` and `errorText` give the socket error when it was captured.
class CSuperSocketException : public CQorException {
public:
    // With useLastError true, errorCode is the thread's last socket error and
    // errorText its translation, which also becomes the base's message. With it
    // false, errorCode is -1, errorText empty and the base's message is
    // `message`. The base's source is always `message`, its code errorCode.
    CSuperSocketException(std::string message, bool useLastError);

    // The text for a Winsock error number; codes outside the fixed table get
    // the system's own text, and "Unknown error" when there is none.
    static std::string TranslateErrorCode(int code);

    std::string message;
    std::string errorText;
    int errorCode = -1;
};

// Whoever owns a CSuperSocket hears its conditions through this. Each call
// carries that condition's own error code (0 for none) and its text.
class CSuperSocketContainer {
public:
    virtual ~CSuperSocketContainer();
    virtual void OnAccept(CSuperSocket &socket, int errorCode, const std::string &errorText) = 0;
    virtual void OnClose(CSuperSocket &socket, int errorCode, const std::string &errorText) = 0;
    virtual void OnConnect(CSuperSocket &socket, int errorCode, const std::string &errorText) = 0;
    virtual void OnOutOfBand(CSuperSocket &socket, int errorCode, const std::string &errorText) = 0;
    virtual void OnReceive(CSuperSocket &socket, int errorCode, const std::string &errorText) = 0;
    virtual void OnSend(CSuperSocket &socket, int errorCode, const std::string &errorText) = 0;
};

// A container that ignores every condition; derive and override what you need.
class CDefaultSuperSocketContainer : public CSuperSocketContainer {
public:
    void OnAccept(CSuperSocket &socket, int errorCode, const std::string &errorText) override {}
    void OnClose(CSuperSocket &socket, int errorCode, const std::string &errorText) override {}
    void OnConnect(CSuperSocket &socket, int errorCode, const std::string &errorText) override {}
    void OnOutOfBand(CSuperSocket &socket, int errorCode, const std::string &errorText) override {}
    void OnReceive(CSuperSocket &socket, int errorCode, const std::string &errorText) override {}
    void OnSend(CSuperSocket &socket, int errorCode, const std::string &errorText) override {}
};

class CSuperSocket {
public:
    // Starts the event thread, which lives as long as the object.
    explicit CSuperSocket(CSuperSocketContainer &container);
    // Shuts sending down, stops and joins the event thread, closes the handle.
    virtual ~CSuperSocket();
    CSuperSocket(const CSuperSocket &) = delete;
    CSuperSocket &operator=(const CSuperSocket &) = delete;

    // Opens a UDP socket bound to any address and `port` (0: any port).
    virtual void CreateUDPSocket(unsigned short port);
    // Opens a TCP listener on any address and `port` (0: any port).
    virtual void Listen(unsigned short port);
    // Takes a waiting connection of this listener into `other`.
    virtual void Accept(CSuperSocket &other);
    // Resolves host, waits up to 250 ms for a closing handle to be closed by
    // the event thread, then connects. The outcome comes as OnConnect.
    virtual void Connect(const std::string &host, unsigned short port);
    virtual void Connect(const sockaddr_in &address);
    // Shuts sending down; with closeNow also closes the handle at once,
    // otherwise the close condition closes it when the peer has closed too.
    virtual void Close(bool closeNow);
    virtual void Send(const unsigned char *data, unsigned int length);
    virtual void Send(const std::string &data);
    // Reads what is already there, up to `length`; never waits (0 when none).
    virtual unsigned int Receive(unsigned char *buffer, unsigned int length);
    // The same into a string; `maximum` 0 means no limit. With nothing to
    // read the string stays as it was.
    virtual unsigned int Receive(std::string &data, unsigned int maximum);
    virtual void SendTo(const std::string &host, unsigned short port, const unsigned char *data,
                        unsigned int length);
    virtual void SendTo(const std::string &host, unsigned short port, const std::string &data);
    virtual void SendTo(const sockaddr_in &address, const unsigned char *data, unsigned int length);
    virtual void SendTo(const sockaddr_in &address, const std::string &data);
    // Reads one waiting datagram (0 and nothing changed when none waits).
    virtual unsigned int ReceiveFrom(std::string &address, unsigned short &port, std::string &data);
    virtual unsigned int ReceiveFrom(sockaddr_in &address, std::string &data);
    virtual void JoinMulticastGroup(const std::string &group);
    virtual void JoinMulticastGroup(const in_addr &group);

    // "address:port" of the peer.
    std::string GetIdentifierString();
    std::string GetLocalAddress();
    unsigned short GetLocalPort();
    std::string GetRemoteAddress();
    unsigned short GetRemotePort();
    // The handle is valid.
    bool IsConnected();
    bool IsUDPSocket();

    // Waits up to `milliseconds` until data can be read (or the peer has
    // closed), without consuming anything. False on a timeout, a closed
    // handle, or when the socket is being destroyed. For readers on the event
    // thread that wait for the rest of a message without spinning.
    bool WaitForData(unsigned int milliseconds);
    // True once destruction has begun; a callback still running should return.
    bool IsShuttingDown() const;

    // Number of live CSuperSocket objects in the process.
    static unsigned int LiveSockets();

protected:
    std::string remoteAddress;
    unsigned short remotePort = 0;
    // The handle, -1 while closed. Written by the event thread on the connect
    // and close conditions while the owner may read it.
    std::atomic<int> socket{-1};
    CSuperSocketContainer &container;
    // eventfd signalled once, when destruction begins.
    int shutdownEvent = -1;
    // Conditions recorded for the thread to deliver, and which it may record.
    struct NetworkEvent {
        unsigned selected = 0;      // the selected condition mask (0x01 read ... 0x20 close)
        bool readArmed = false;     // re-armed by each Receive
        bool acceptArmed = false;   // re-armed by each Accept
        bool writeArmed = false;    // after a connect and after a would-block Send
        bool connectPending = false;
        int connectResult = -1;     // a connect that failed at once: its code, for the thread
        bool listening = false;
        unsigned generation = 0;    // changes whenever the handle does
    } networkEvent;
    HANDLE thread = nullptr;
    std::atomic<bool> isUDP{false};

private:
    unsigned int ReceiveInt(unsigned char *buffer, unsigned int length);

    // The event thread and its steps.
    DWORD SocketThread();
    bool WaitForConditions(unsigned &conditions, int (&codes)[6], unsigned &generation);
    bool RecordConditions(int handle, short revents, unsigned &conditions, int (&codes)[6]);
    void DeliverConditions(unsigned conditions, const int (&codes)[6], unsigned generation);
    // Tells the event thread that what it should watch has changed.
    void Wake();
    // Installs a new handle (under lock). `selected` 0 parks a handle that
    // failed to open: it is kept, but the thread does not watch it.
    void Adopt(int handle, unsigned selected, bool listening = false);
    // Opens a non-blocking socket of `type` bound to `port` on every interface
    // (under lock); a failed bind parks the handle and throws `bindFailure`.
    int OpenBoundSocket(int type, unsigned short port, const char *bindFailure);
    // Checks that the socket can Receive, arms the read condition again, and
    // gives the count of bytes waiting (under lock).
    unsigned int WaitingForReceive();
    // The local address and port of the open socket (under lock).
    sockaddr_in LocalName();
    // Closes the handle if it is still that of `generation` (under lock).
    bool CloseHandleOf(unsigned generation);

    CCriticalSection lock;          // guards the handle's life, networkEvent and the remote fields
    int wakeEvent = -1;             // eventfd: the watched conditions changed
    HANDLE handleClosed = nullptr;  // manual-reset: set while no handle is open
    DWORD threadId = 0;
    unsigned generationCounter = 0;
    std::atomic<bool> stopping{false};

    static std::atomic<unsigned int> references;
};

// The address of adapter `adapterIndex` of this host (in the host name's
// address list) with its last octet set to 255, whatever the network mask.
// Empty when the host name can't be resolved or the index is past the end.
std::string GetBroadcastAddress(int adapterIndex);
