// What a device driver holds: one link to an instrument, commands out, and
// every message back routed either to the caller waiting for that command or
// to subscribers.
//
// Threads: notify and notifyError run on the link's receive thread; the
// waiting sendCommand on the caller's. Lock order: replyLock, then sendLock.
// subscribe/unsubscribe take no lock: change subscriptions only while no
// traffic runs.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "qor/comm/QorDeviceCommException.h"
#include "qor/comm/QorDeviceCommSubscriber.h"
#include "qor/comm/QorDeviceConnection.h"
#include "qor/platform/CriticalSection.h"
#include "qor/platform/Win32Types.h"

class QorDeviceComm {
public:
    QorDeviceComm();
    // Deletes the connection without calling close().
    virtual ~QorDeviceComm();
    QorDeviceComm(const QorDeviceComm &) = delete;
    QorDeviceComm &operator=(const QorDeviceComm &) = delete;

    // Replaces the link by a QorEthernetConnection to host:port. Throws
    // QorDeviceCommException when it can't connect, leaving no connection.
    void connect(const std::string &host, unsigned int port);
    // Replaces the link by a QorSerialConnection. When opening throws, the
    // `connection` member is left as it was (already destroyed): connect
    // again before using the object.
    void connect(unsigned int port, unsigned int baud, unsigned char byteSize,
                 unsigned char parity, unsigned char stopBits, short flowControl);
    // Replaces the link by `connection`, which this object then owns.
    void connect(QorDeviceConnection *connection);
    // close(), destroy and forget the link, if any.
    void disconnect();
    bool isConnected() const;

    // Send and return at once. Without a connection they throw
    // QorDeviceCommException("You must connect to the device before sending it commands!").
    // Link failures (CSuperSocketException) pass through.
    void sendCommand(unsigned char command, const std::vector<unsigned char> &data,
                     bool longFrame, int *reconnects);
    void sendCommand(unsigned char command, const unsigned char *data, unsigned int length,
                     bool longFrame, int *reconnects);

    // Send, then wait up to timeoutMs for a message of any of `replyCommands`.
    // On success `reply` holds its payload and, unless it is the same vector as
    // `reply`, `replyCommands` holds the one command that answered. Between
    // looks, `keepWaiting(command, callbackArgument)` is asked; true from it
    // stops the wait. The thread's message queue is dispatched while waiting.
    // Returns false on a timeout or a callback's stop. One message serves one
    // waiter: the one that started waiting for that command first.
    bool sendCommand(unsigned char command, const std::vector<unsigned char> &data,
                     unsigned int timeoutMs, std::vector<unsigned char> &replyCommands,
                     std::vector<unsigned char> &reply, bool longFrame, int *reconnects,
                     bool (*keepWaiting)(int, void *) = nullptr,
                     void *callbackArgument = nullptr);
    // The same with one reply command.
    bool sendCommand(unsigned char command, const std::vector<unsigned char> &data,
                     unsigned int timeoutMs, unsigned char replyCommand,
                     std::vector<unsigned char> &reply, bool longFrame, int *reconnects);
    // Waits for a reply of the same command; the reply replaces `data`.
    bool sendCommand(unsigned char command, std::vector<unsigned char> &data,
                     unsigned int timeoutMs, bool longFrame, int *reconnects);

    // For every command; a subscriber already there is not added twice.
    void subscribe(QorDeviceCommSubscriber &subscriber);
    // For one command; subscribing twice delivers twice.
    void subscribe(unsigned char command, QorDeviceCommSubscriber &subscriber);
    // Removes every occurrence, from both lists.
    void unsubscribe(const QorDeviceCommSubscriber &subscriber);
    // Removes that subscriber's entries for that command only.
    void unsubscribe(unsigned char command, const QorDeviceCommSubscriber &subscriber);

    // Called by a link for each good message. A heartbeat request (0x0E) is
    // answered with 0x0F 01 00 00 00 in a long frame and shown to nobody.
    void notify(unsigned char command, const std::vector<unsigned char> &data, bool longFrame);
    // Called by a link for a damaged message.
    void notifyError();

protected:
    using ReplyTable = std::multimap<unsigned char, std::vector<unsigned char> *>;

    CRITICAL_SECTION sendLock;
    CRITICAL_SECTION replyLock;
    QorDeviceConnection *connection = nullptr;
    std::multimap<unsigned char, QorDeviceCommSubscriber *> commandSubscribers;
    std::vector<QorDeviceCommSubscriber *> subscribers;
    ReplyTable pendingReplies;
    ReplyTable arrivedReplies;

private:
    // Wakes waiting callers as soon as a reply is filed, instead of at their
    // next 10 ms look. One auto-reset event per waiting buffer; under replyLock.
    std::multimap<const std::vector<unsigned char> *, HANDLE> replyWakers;

    void wakeWaiter(const std::vector<unsigned char> *buffer);
};
