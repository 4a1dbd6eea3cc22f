#include "qor/comm/QorDeviceComm.h"

#include <algorithm>

#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorEthernetConnection.h"
#include "qor/platform/Messages.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"

namespace qor::device_comm {

class SectionGuard {
public:
    explicit SectionGuard(CRITICAL_SECTION &section) : section_(section) {
        EnterCriticalSection(&section_);
    }
    ~SectionGuard() { LeaveCriticalSection(&section_); }
    SectionGuard(const SectionGuard &) = delete;
    SectionGuard &operator=(const SectionGuard &) = delete;

private:
    CRITICAL_SECTION &section_;
};

// The cadence of the reply wait: it looks at least this often, and sooner
// when a reply (or a message for the thread) arrives.
constexpr DWORD kLookIntervalMs = 10;

void DispatchThreadMessages() {
    MSG message;
    while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessage(&message);
    }
}

}  // namespace qor::device_comm

using qor::device_comm::SectionGuard;

QorDeviceComm::QorDeviceComm() {
    InitializeCriticalSection(&sendLock);
    InitializeCriticalSection(&replyLock);
}

QorDeviceComm::~QorDeviceComm() {
    delete connection;
    connection = nullptr;
    for (auto &entry : replyWakers) CloseHandle(entry.second);
    DeleteCriticalSection(&replyLock);
    DeleteCriticalSection(&sendLock);
}

void QorDeviceComm::connect(const std::string &host, unsigned int port) {
    delete connection;
    connection = nullptr;
    connection = new QorEthernetConnection(host, port, this);
}

void QorDeviceComm::connect(QorDeviceConnection *link) {
    if (link == connection) return;  // already ours: deleting it would leave it dangling
    delete connection;
    connection = link;
}

void QorDeviceComm::disconnect() {
    if (connection == nullptr) return;
    connection->close();
    delete connection;
    connection = nullptr;
}

bool QorDeviceComm::isConnected() const {
    return connection != nullptr && connection->isConnected();
}

void QorDeviceComm::sendCommand(unsigned char command, const std::vector<unsigned char> &data,
                                bool longFrame, int *reconnects) {
    if (connection == nullptr)
        throw QorDeviceCommException("You must connect to the device before sending it commands!");
    SectionGuard guard(sendLock);
    connection->send(command, data, longFrame, reconnects);
}

void QorDeviceComm::sendCommand(unsigned char command, const unsigned char *data,
                                unsigned int length, bool longFrame, int *reconnects) {
    if (connection == nullptr)
        throw QorDeviceCommException("You must connect to the device before sending it commands!");
    SectionGuard guard(sendLock);
    connection->send(command, data, length, longFrame, reconnects);
}

bool QorDeviceComm::sendCommand(unsigned char command, const std::vector<unsigned char> &data,
                                unsigned int timeoutMs, std::vector<unsigned char> &replyCommands,
                                std::vector<unsigned char> &reply, bool longFrame,
                                int *reconnects, bool (*keepWaiting)(int, void *),
                                void *callbackArgument) {
    using qor::device_comm::kLookIntervalMs;
    HANDLE waker = nullptr;
    {
        SectionGuard guard(replyLock);
        sendCommand(command, data, longFrame, reconnects);
        // Made only once the send went out: a link failure leaves nothing behind.
        waker = CreateEvent(nullptr, FALSE, FALSE, nullptr);
        reply.clear();
        for (unsigned char expected : replyCommands) pendingReplies.emplace(expected, &reply);
        if (waker != nullptr) replyWakers.emplace(&reply, waker);
    }
    // From here on a filed reply wakes us at once; the waits keep their
    // 10 ms cadence otherwise, for the callback and the message queue.
    auto pause = [&] {
        if (waker != nullptr)
            MsgWaitForMultipleObjects(1, &waker, FALSE, kLookIntervalMs, QS_ALLINPUT);
        else
            Sleep(kLookIntervalMs);
    };
    pause();
    const ULONGLONG start = GetTickCount64();
    ULONGLONG elapsed = 0;
    bool found = false;
    // The reply commands may be rewritten below, so the loop keeps its own list.
    const std::vector<unsigned char> expected = replyCommands;
    while (!found) {
        if (elapsed >= timeoutMs) break;
        qor::device_comm::DispatchThreadMessages();
        {
            SectionGuard guard(replyLock);
            for (unsigned char candidate : expected) {
                auto range = arrivedReplies.equal_range(candidate);
                auto hit = std::find_if(range.first, range.second,
                                        [&](const auto &entry) { return entry.second == &reply; });
                if (hit == range.second) continue;
                found = true;
                if (&replyCommands != &reply) replyCommands.assign(1, candidate);
                arrivedReplies.erase(hit);
                break;
            }
        }
        if (keepWaiting != nullptr && keepWaiting(command, callbackArgument)) break;
        if (found) break;
        pause();
        elapsed = GetTickCount64() - start;
    }
    {
        SectionGuard guard(replyLock);
        for (auto it = pendingReplies.begin(); it != pendingReplies.end();)
            it = it->second == &reply ? pendingReplies.erase(it) : std::next(it);
        auto range = replyWakers.equal_range(&reply);
        for (auto it = range.first; it != range.second; ++it) {
            if (it->second == waker) {
                replyWakers.erase(it);
                break;
            }
        }
    }
    if (waker != nullptr) CloseHandle(waker);
    return found;
}

bool QorDeviceComm::sendCommand(unsigned char command, const std::vector<unsigned char> &data,
                                unsigned int timeoutMs, unsigned char replyCommand,
                                std::vector<unsigned char> &reply, bool longFrame,
                                int *reconnects) {
    std::vector<unsigned char> replyCommands(1, replyCommand);
    return sendCommand(command, data, timeoutMs, replyCommands, reply, longFrame, reconnects);
}

bool QorDeviceComm::sendCommand(unsigned char command, std::vector<unsigned char> &data,
                                unsigned int timeoutMs, bool longFrame, int *reconnects) {
    std::vector<unsigned char> replyCommands(1, command);
    return sendCommand(command, data, timeoutMs, replyCommands, data, longFrame, reconnects);
}

void QorDeviceComm::subscribe(QorDeviceCommSubscriber &subscriber) {
    if (std::find(subscribers.begin(), subscribers.end(), &subscriber) == subscribers.end())
        subscribers.push_back(&subscriber);
}

void QorDeviceComm::subscribe(unsigned char command, QorDeviceCommSubscriber &subscriber) {
    commandSubscribers.emplace(command, &subscriber);
}

void QorDeviceComm::unsubscribe(const QorDeviceCommSubscriber &subscriber) {
    std::erase(subscribers, &subscriber);
    std::erase_if(commandSubscribers,
                  [&](const auto &entry) { return entry.second == &subscriber; });
}

void QorDeviceComm::unsubscribe(unsigned char command, const QorDeviceCommSubscriber &subscriber) {
    auto range = commandSubscribers.equal_range(command);
    for (auto it = range.first; it != range.second;)
        it = it->second == &subscriber ? commandSubscribers.erase(it) : std::next(it);
}

void QorDeviceComm::wakeWaiter(const std::vector<unsigned char> *buffer) {
    auto range = replyWakers.equal_range(buffer);
    for (auto it = range.first; it != range.second; ++it) SetEvent(it->second);
}

void QorDeviceComm::notify(unsigned char command, const std::vector<unsigned char> &data,
                           bool longFrame) {
    if (command == qor::kHeartbeatRequest) {
        static const std::vector<unsigned char> kHeartbeatPayload = {1, 0, 0, 0};
        sendCommand(qor::kHeartbeatReply, kHeartbeatPayload, true, nullptr);
        return;
    }
    {
        SectionGuard guard(replyLock);
        // The oldest waiter of this command: equal keys keep insertion order.
        auto waiting = pendingReplies.lower_bound(command);
        if (waiting != pendingReplies.end() && waiting->first == command) {
            std::vector<unsigned char> *buffer = waiting->second;
            *buffer = data;
            arrivedReplies.emplace(command, buffer);
            pendingReplies.erase(waiting);
            wakeWaiter(buffer);
        }
    }
    for (QorDeviceCommSubscriber *subscriber : subscribers) {
        if (longFrame)
            subscriber->onLongMessage(command, data);
        else
            subscriber->onShortMessage(command, data);
    }
    auto range = commandSubscribers.equal_range(command);
    for (auto it = range.first; it != range.second; ++it) {
        if (longFrame)
            it->second->onLongMessage(command, data);
        else
            it->second->onShortMessage(command, data);
    }
}

void QorDeviceComm::notifyError() {
    for (QorDeviceCommSubscriber *subscriber : subscribers) subscriber->onCommError();
    std::vector<QorDeviceCommSubscriber *> called;
    for (const auto &entry : commandSubscribers) {
        if (std::find(called.begin(), called.end(), entry.second) != called.end()) continue;
        called.push_back(entry.second);
        entry.second->onCommError();
    }
}
