// The link underneath QorDeviceComm: Ethernet or serial. A link puts frames on
// its wire, and for each good message it reads, stores the payload in
// `lastMessages` and calls comm->notify (comm->notifyError for a damaged one).
#pragma once

#include <map>
#include <string>
#include <vector>

class QorDeviceComm;

class QorDeviceConnection {
public:
    QorDeviceConnection() = default;
    explicit QorDeviceConnection(QorDeviceComm *comm) : comm(comm) {}
    virtual ~QorDeviceConnection();
    QorDeviceConnection(const QorDeviceConnection &) = delete;
    QorDeviceConnection &operator=(const QorDeviceConnection &) = delete;

    // Sends one frame. `longFrame` chooses the serial format; `reconnects`,
    // when not null, counts the reconnections the send needed.
    virtual void send(unsigned char command, const unsigned char *data, unsigned int length,
                      bool longFrame, int *reconnects) = 0;
    // These two are pure, but have the body every link uses: they pass the
    // data and size to the pointer form above, with a null pointer when empty.
    // A link overrides them as `{ QorDeviceConnection::send(...); }`.
    virtual void send(unsigned char command, const std::vector<unsigned char> &data,
                      bool longFrame, int *reconnects) = 0;
    virtual void send(unsigned char command, const std::string &data, bool longFrame,
                      int *reconnects) = 0;
    virtual bool isConnected() const = 0;
    virtual void close() = 0;

    QorDeviceComm *comm = nullptr;
    // The latest payload of each command received on this link; written only
    // by the link's receive thread.
    std::map<unsigned char, std::vector<unsigned char>> lastMessages;
};
