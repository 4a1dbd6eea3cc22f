// The link to an instrument over TCP. Built connected or not at all (the
// constructor waits about a second); reads Ethernet frames on the socket's
// event thread and hands each to comm->notify as a long message; a failed send
// reconnects quietly and tries again, up to six attempts in all.
#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "qor/comm/CSuperSocket.h"
#include "qor/comm/QorDeviceConnection.h"
#include "qor/platform/Win32Types.h"

class QorEthernetConnection : public QorDeviceConnection, public CDefaultSuperSocketContainer {
public:
    // Connects to host:port (low 16 bits). Throws QorDeviceCommException with
    // "Timed out while trying to connect to device via Ethernet" when nothing
    // answers within about a second, and "Failed to connect to device via
    // Ethernet" when the connection is refused.
    QorEthernetConnection(const std::string &host, unsigned int port, QorDeviceComm *comm);
    // An empty link, no socket; not to be asked isConnected().
    QorEthernetConnection();
    ~QorEthernetConnection() override;

    // Sends one Ethernet frame (`longFrame` has no effect here). A null `data`
    // with a non-zero `length` sends nothing. On a failure: close, reconnect,
    // count it in *reconnects, send again; the sixth failure in a row (counted
    // in sendRetries across all links) throws the CSuperSocketException of
    // that last failure.
    void send(unsigned char command, const unsigned char *data, unsigned int length,
              bool longFrame, int *reconnects) override;
    void send(unsigned char command, const std::vector<unsigned char> &data, bool longFrame,
              int *reconnects) override;
    void send(unsigned char command, const std::string &data, bool longFrame,
              int *reconnects) override;
    bool isConnected() const override;
    // Shuts sending down; the handle goes when the device closes its side.
    void close() override;

    void OnConnect(CSuperSocket &socket, int errorCode, const std::string &errorText) override;
    void OnSend(CSuperSocket &socket, int errorCode, const std::string &errorText) override;
    // Reads one frame, allowing 1000 ms for its header and 1000 ms for its
    // payload; an incomplete frame is dropped without notice.
    void OnReceive(CSuperSocket &socket, int errorCode, const std::string &errorText) override;

    // Consecutive failed sends, shared by every link in the process.
    static std::atomic<signed char> sendRetries;

protected:
    // Waits about a second for the connect condition; false on a timeout.
    bool WaitForConnection();

    CSuperSocket *socket = nullptr;
    HANDLE connectEvent = nullptr;  // auto-reset; set by OnConnect
    HANDLE sendEvent = nullptr;     // auto-reset; set by OnSend, nothing waits on it
    std::string host;
    unsigned int port = 0;

private:
    void shutdown();
};
