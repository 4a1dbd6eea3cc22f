// The socket layer against real loopback peers: conditions and their order,
// the read condition coming back while data remain, failed connects, UDP, and
// the exact texts of its failures.
#include <gtest/gtest.h>

#include <arpa/inet.h>

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "CommTestSupport.h"
#include "qor/comm/CSuperSocket.h"
#include "qor/comm/SocketErrors.h"

namespace socket_test {

using comm_test::Bytes;
using comm_test::LoopbackDevice;
using comm_test::Signal;
using comm_test::WaitUntil;

// Records every condition, in order, with its code.
class Recorder : public CSuperSocketContainer {
public:
    struct Event {
        std::string name;
        int code;
        bool connectedThen;
    };

    void OnAccept(CSuperSocket &s, int code, const std::string &) override { Add("accept", s, code); }
    void OnClose(CSuperSocket &s, int code, const std::string &) override {
        Add("close", s, code);
        closed.Set();
    }
    void OnConnect(CSuperSocket &s, int code, const std::string &text) override {
        {
            std::lock_guard<std::mutex> guard(mutex);
            connectText = text;
        }
        Add("connect", s, code);
        connected.Set();
    }
    void OnOutOfBand(CSuperSocket &s, int code, const std::string &) override { Add("oob", s, code); }
    void OnReceive(CSuperSocket &s, int code, const std::string &) override {
        Add("receive", s, code);
        if (readOneByte) {
            unsigned char byte = 0;
            if (s.Receive(&byte, 1) == 1) Append({byte});
        } else if (!s.IsUDPSocket()) {
            std::string data;
            if (s.Receive(data, 0) > 0) Append(Bytes(data.begin(), data.end()));
        } else {
            std::string from, data;
            unsigned short port = 0;
            if (s.ReceiveFrom(from, port, data) > 0) {
                std::lock_guard<std::mutex> guard(mutex);
                senders.push_back(from + ":" + std::to_string(port));
                datagrams.push_back(data);
            }
        }
        if (throwOnce.exchange(false)) throw CSuperSocketException("test::OnReceive::", false);
    }
    void OnSend(CSuperSocket &s, int code, const std::string &) override { Add("send", s, code); }

    std::vector<Event> Events() {
        std::lock_guard<std::mutex> guard(mutex);
        return events;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const Event &e : Events()) names.push_back(e.name);
        return names;
    }
    Bytes Received() {
        std::lock_guard<std::mutex> guard(mutex);
        return received;
    }

    std::atomic<bool> readOneByte{false};
    std::atomic<bool> throwOnce{false};
    Signal connected, closed;
    std::mutex mutex;
    std::string connectText;
    std::vector<std::string> senders, datagrams;

private:
    void Add(const char *name, CSuperSocket &s, int code) {
        std::lock_guard<std::mutex> guard(mutex);
        events.push_back({name, code, s.IsConnected()});
    }
    void Append(const Bytes &bytes) {
        std::lock_guard<std::mutex> guard(mutex);
        received.insert(received.end(), bytes.begin(), bytes.end());
    }
    std::vector<Event> events;
    Bytes received;
};

// Holds connections open until told, writing what it is given.
struct Peer {
    Signal accepted, release;
    Bytes toSend;
    bool resetAtEnd = false;
    bool holdAfterEnd = true;  // after our end of stream, keep the connection until released
    Bytes got;
    std::mutex mutex;

    LoopbackDevice::Session Session() {
        return [this](int &fd, LoopbackDevice &device) {
            accepted.Set();
            comm_test::WriteAll(fd, toSend);
            while (!release.IsSet() && !device.Stopping()) {
                if (device.WaitReadable(fd, 20)) {
                    unsigned char buffer[4096];
                    const ssize_t n = ::recv(fd, buffer, sizeof buffer, 0);
                    if (n <= 0) {
                        while (holdAfterEnd && !release.IsSet() && !device.Stopping())
                            device.WaitReadable(fd, 20);
                        break;
                    }
                    std::lock_guard<std::mutex> guard(mutex);
                    got.insert(got.end(), buffer, buffer + n);
                }
            }
            if (resetAtEnd) {
                comm_test::ResetConnection(fd);
                fd = -1;
            }
        };
    }
    std::size_t Got() {
        std::lock_guard<std::mutex> guard(mutex);
        return got.size();
    }
};

// A socket connected to a Peer on a loopback device: set up `peer` and
// `recorder`, then Start().
struct Link {
    Peer peer;
    Recorder recorder;
    std::optional<LoopbackDevice> device;
    std::optional<CSuperSocket> socket;
    void Start() {
        device.emplace(peer.Session());
        socket.emplace(recorder);
        socket->Connect("127.0.0.1", device->Port());
    }
};

TEST(Socket, TranslateErrorCodeTable) {
    struct Case {
        int code;
        const char *text;
    } cases[] = {
        {0, "The operation completed successfully."},
        {10014, "A miscellaneous fault occurred."},
        {10022, "The socket has not been bound with bind."},
        {10038, "The descriptor is not a socket."},
        {10057, "Attempt to send data on a non-connected socket."},
        {10060, "Attempt to connect timed out without establishing a connection."},
        {10061, "The attempt to connect was forcefully rejected."},
        {10065, "The host cannot be reached from this host at this time."},
        {10093, "A successful WSAStartup must occur before using this function."},
    };
    for (const Case &c : cases) EXPECT_EQ(CSuperSocketException::TranslateErrorCode(c.code), c.text);
    EXPECT_EQ(CSuperSocketException::TranslateErrorCode(10048).substr(0, 40),
              "The socket's local address is already in");
    EXPECT_NE(CSuperSocketException::TranslateErrorCode(10048).find("\"committed\""),
              std::string::npos);
    // Outside the table: the system's words for the error behind the number.
    EXPECT_EQ(CSuperSocketException::TranslateErrorCode(10054), std::string(strerror(ECONNRESET)));
    EXPECT_EQ(CSuperSocketException::TranslateErrorCode(987654), "Unknown error");
}

TEST(Socket, ErrnoValuesMapToWinsockNumbers) {
    struct Case {
        int errnum, code;
    } cases[] = {{ECONNREFUSED, 10061}, {ETIMEDOUT, 10060}, {EADDRINUSE, 10048},
                 {EWOULDBLOCK, 10035}, {ECONNRESET, 10054}, {ENOTCONN, 10057}};
    for (const Case &c : cases) {
        EXPECT_EQ(qor::WinsockErrorFromErrno(c.errnum), c.code);
        EXPECT_EQ(qor::ErrnoFromWinsockError(c.code), c.errnum);
    }
    qor::SetLastSocketErrorFromErrno(ECONNREFUSED);
    const CSuperSocketException captured("CSuperSocket::Connect::connect::", true);
    EXPECT_EQ(captured.errorCode, 10061);
    EXPECT_EQ(captured.errorText, "The attempt to connect was forcefully rejected.");
    EXPECT_EQ(captured.CQorException::message, captured.errorText);
}

TEST(Socket, ConnectSendReceiveAndConditionOrder) {
    comm_test::ExpectNoLeak([&] {
        Link link;
        link.peer.toSend = {1, 2, 3};
        link.Start();
        ASSERT_TRUE(link.recorder.connected.Wait());
        EXPECT_TRUE(link.socket->IsConnected());
        EXPECT_EQ(link.socket->GetRemoteAddress(), "127.0.0.1");
        EXPECT_EQ(link.socket->GetIdentifierString(), "127.0.0.1:" + std::to_string(link.device->Port()));
        EXPECT_EQ(link.socket->GetLocalAddress(), "127.0.0.1");
        EXPECT_NE(link.socket->GetLocalPort(), 0);
        ASSERT_TRUE(WaitUntil([&] { return link.recorder.Received().size() == 3; }));
        EXPECT_EQ(link.recorder.Received(), (Bytes{1, 2, 3}));
        // A new connection is writable: the write condition comes before the connect one.
        const auto names = link.recorder.Names();
        ASSERT_GE(names.size(), 2u);
        EXPECT_EQ(names[0], "send");
        EXPECT_EQ(names[1], "connect");
        EXPECT_EQ(link.recorder.Events()[1].code, 0);
        link.socket->Send(std::string("hello"));
        ASSERT_TRUE(WaitUntil([&] { return link.peer.Got() == 5; }));
        link.peer.release.Set();
        // The peer closes: the close condition closes the handle before OnClose.
        ASSERT_TRUE(link.recorder.closed.Wait());
        EXPECT_FALSE(link.socket->IsConnected());
        EXPECT_FALSE(link.recorder.Events().back().connectedThen);
        EXPECT_EQ(link.recorder.Events().back().code, 0);
    });
}

TEST(Socket, ReadConditionComesBackWhileDataRemain) {
    Link link;
    link.peer.toSend = Bytes(100, 0x5A);
    link.recorder.readOneByte = true;  // one byte per condition: 100 conditions
    link.Start();
    ASSERT_TRUE(WaitUntil([&] { return link.recorder.Received().size() == 100; }));
    const auto names = link.recorder.Names();
    EXPECT_GE(std::count(names.begin(), names.end(), "receive"), 100);
    link.peer.release.Set();
    ASSERT_TRUE(link.recorder.closed.Wait());
}

TEST(Socket, ReceiveOfNothingGivesZeroAndCloseFalseWaitsForThePeer) {
    Link link;
    link.Start();
    ASSERT_TRUE(link.recorder.connected.Wait());
    unsigned char buffer[16];
    EXPECT_EQ(link.socket->Receive(buffer, sizeof buffer), 0u);
    std::string untouched = "keep";
    EXPECT_EQ(link.socket->Receive(untouched, 0), 0u);
    EXPECT_EQ(untouched, "keep");
    // Close(false) keeps the handle until the peer closes.
    link.socket->Close(false);
    EXPECT_TRUE(link.socket->IsConnected());
    // The peer closes too, and the close condition comes.
    link.peer.release.Set();
    ASSERT_TRUE(link.recorder.closed.Wait());
    EXPECT_FALSE(link.socket->IsConnected());
}

TEST(Socket, CloseTrueClosesAtOnceAndTheSocketOpensAgain) {
    comm_test::ExpectNoLeak([&] {
        Link link;
        link.peer.holdAfterEnd = false;
        link.Start();
        ASSERT_TRUE(link.recorder.connected.Wait());
        link.socket->Close(true);
        EXPECT_FALSE(link.socket->IsConnected());
        link.socket->Connect("127.0.0.1", link.device->Port());
        ASSERT_TRUE(WaitUntil([&] { return link.device->Accepted() == 2; }));
        ASSERT_TRUE(WaitUntil([&] {
            const auto names = link.recorder.Names();
            return std::count(names.begin(), names.end(), "connect") == 2;
        }));
        EXPECT_TRUE(link.socket->IsConnected());
    });
}

TEST(Socket, ResetByPeerComesAsCloseWithItsCode) {
    Link link;
    link.peer.resetAtEnd = true;
    link.Start();
    ASSERT_TRUE(link.recorder.connected.Wait());
    link.peer.release.Set();
    ASSERT_TRUE(link.recorder.closed.Wait());
    EXPECT_EQ(link.recorder.Events().back().code, 10054);
    EXPECT_FALSE(link.socket->IsConnected());
}

TEST(Socket, FailedConnectArrivesAsConnectConditionWithItsCode) {
    comm_test::ExpectNoLeak([&] {
        Recorder recorder;
        CSuperSocket socket(recorder);
        socket.Connect("127.0.0.1", comm_test::RefusingPort());
        ASSERT_TRUE(recorder.connected.Wait());
        const auto events = recorder.Events();
        ASSERT_EQ(events.size(), 1u);
        EXPECT_EQ(events[0].name, "connect");
        EXPECT_EQ(events[0].code, 10061);
        EXPECT_FALSE(events[0].connectedThen);  // the handle is gone before OnConnect
        EXPECT_FALSE(socket.IsConnected());
        std::lock_guard<std::mutex> guard(recorder.mutex);
        EXPECT_EQ(recorder.connectText, "The attempt to connect was forcefully rejected.");
    });
}

TEST(Socket, ExceptionInACallbackIsPrintedAndLaterEventsStillCome) {
    Link link;
    link.peer.toSend = {7};
    link.recorder.throwOnce = true;
    testing::internal::CaptureStdout();
    link.Start();
    ASSERT_TRUE(WaitUntil([&] { return link.recorder.Received().size() == 1; }));
    ASSERT_TRUE(WaitUntil([&] { return !link.recorder.throwOnce; }));
    link.peer.release.Set();
    ASSERT_TRUE(link.recorder.closed.Wait());  // a later condition still delivered
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_NE(printed.find("test::OnReceive::\nCSuperSocket::SocketThread::ERROR manually "
                           "resetting network event object\n"),
              std::string::npos)
        << printed;
}

TEST(Socket, ListenAcceptAndTalk) {
    comm_test::ExpectNoLeak([&] {
        // The listener's container accepts into a second socket.
        struct Acceptor : Recorder {
            CSuperSocket *into = nullptr;
            void OnAccept(CSuperSocket &s, int code, const std::string &text) override {
                Recorder::OnAccept(s, code, text);
                s.Accept(*into);
            }
        } acceptor;
        Recorder serverSide, clientSide;
        CSuperSocket accepted(serverSide);
        acceptor.into = &accepted;
        CSuperSocket listener(acceptor);
        listener.Listen(0);
        const unsigned short port = listener.GetLocalPort();
        CSuperSocket client(clientSide);
        client.Connect("127.0.0.1", port);
        ASSERT_TRUE(clientSide.connected.Wait());
        ASSERT_TRUE(WaitUntil([&] { return accepted.IsConnected(); }));
        EXPECT_EQ(accepted.GetRemoteAddress(), "127.0.0.1");
        EXPECT_EQ(accepted.GetRemotePort(), client.GetLocalPort());
        client.Send(std::string("ping"));
        ASSERT_TRUE(WaitUntil([&] { return serverSide.Received().size() == 4; }));
        accepted.Send(std::string("pong!"));
        ASSERT_TRUE(WaitUntil([&] { return clientSide.Received().size() == 5; }));
        client.Close(false);
        ASSERT_TRUE(serverSide.closed.Wait());
        EXPECT_THROW(listener.Listen(0), CSuperSocketException);
    });
}

TEST(Socket, UdpDatagramsBetweenTwoSockets) {
    comm_test::ExpectNoLeak([&] {
        Recorder a, b;
        CSuperSocket first(a), second(b);
        first.CreateUDPSocket(0);
        second.CreateUDPSocket(0);
        EXPECT_TRUE(first.IsUDPSocket());
        second.SendTo("127.0.0.1", first.GetLocalPort(), std::string("datagram"));
        EXPECT_EQ(second.GetRemotePort(), first.GetLocalPort());
        ASSERT_TRUE(WaitUntil([&] {
            std::lock_guard<std::mutex> guard(a.mutex);
            return !a.datagrams.empty();
        }));
        std::lock_guard<std::mutex> guard(a.mutex);
        EXPECT_EQ(a.datagrams[0], "datagram");
        EXPECT_EQ(a.senders[0], "127.0.0.1:" + std::to_string(second.GetLocalPort()));
    });
}

// Every failure the layer can be led into, with its exact text and whether
// it carried a socket error.
TEST(Socket, FailureTexts) {
    CDefaultSuperSocketContainer none;
    CSuperSocket closed(none), udp(none), tcp(none), listener(none), busy(none);
    udp.CreateUDPSocket(0);
    listener.Listen(0);
    Peer peer;
    LoopbackDevice device(peer.Session());
    tcp.Connect("127.0.0.1", device.Port());
    ASSERT_TRUE(WaitUntil([&] { return peer.accepted.IsSet(); }));
    std::string text;
    unsigned short port = 0;
    sockaddr_in address{};
    unsigned char byte = 0;
    struct Case {
        const char *message;
        bool captured;
        std::function<void()> run;
    } cases[] = {
        {"CSuperSocket::CreateUDPSocket::socket already open", false, [&] { udp.CreateUDPSocket(0); }},
        {"CSuperSocket::Listen::socket already open", false, [&] { listener.Listen(0); }},
        {"CSuperSocket::Connect::socket already open", false, [&] { tcp.Connect(address); }},
        {"CSuperSocket::Accept::socket not open", false, [&] { closed.Accept(busy); }},
        {"CSuperSocket::Accept::can't Accept on UDP socket", false, [&] { udp.Accept(busy); }},
        {"CSuperSocket::Send::socket not open", false, [&] { closed.Send(std::string("x")); }},
        {"CSuperSocket::Send::can't Send on UDP socket : use SendTo", false,
         [&] { udp.Send(std::string("x")); }},
        {"CSuperSocket::SendTo::socket not open", false, [&] { closed.SendTo(address, "x"); }},
        {"CSuperSocket::SendTo::can't SendTo on non-UDP socket : use Send", false,
         [&] { tcp.SendTo(address, "x"); }},
        {"CSuperSocket::Receive::socket not open", false, [&] { closed.Receive(&byte, 1); }},
        {"CSuperSocket::Receive::can't Receive on UDP socket : use ReceiveFrom", false,
         [&] { udp.Receive(&byte, 1); }},
        {"CSuperSocket::ReceiveFrom::socket not open", false,
         [&] { closed.ReceiveFrom(text, port, text); }},
        {"CSuperSocket::ReceiveFrom::can't ReceiveFrom on non-UDP socket : use Receive", false,
         [&] { tcp.ReceiveFrom(address, text); }},
        {"CSuperSocket::JoinMulticastGroup::socket not open", false,
         [&] { closed.JoinMulticastGroup("239.1.2.3"); }},
        {"CSuperSocket::JoinMulticastGroup::can't multicast on non-UDP socket", false,
         [&] { tcp.JoinMulticastGroup("239.1.2.3"); }},
        {"CSuperSocket::JoinMulticastGroup::recv::", true,
         [&] { udp.JoinMulticastGroup("10.1.2.3"); }},  // not a multicast group
        {"CSuperSocket::GetLocalPort::socket not open", false, [&] { closed.GetLocalPort(); }},
        {"CSuperSocket::GetLocalPort::socket not open", false, [&] { closed.GetLocalAddress(); }},
        {"CSuperSocket::Listen::bind::", true, [&] { busy.Listen(listener.GetLocalPort()); }},
        // A failed bind keeps its handle.
        {"CSuperSocket::Listen::socket already open", false, [&] { busy.Listen(0); }},
    };
    for (const Case &c : cases) {
        try {
            c.run();
            ADD_FAILURE() << "no exception for " << c.message;
        } catch (const CSuperSocketException &e) {
            EXPECT_EQ(e.message, c.message);
            EXPECT_EQ(e.errorCode != -1, c.captured) << c.message;
        }
    }
    try {
        CSuperSocket another(none);
        another.Listen(listener.GetLocalPort());
    } catch (const CSuperSocketException &e) {
        EXPECT_EQ(e.errorCode, 10048);
        EXPECT_EQ(e.errorText, CSuperSocketException::TranslateErrorCode(10048));
    }
    for (auto resolve : {std::function<void()>([&] { closed.Connect("no-such-host.invalid", 1); }),
                         std::function<void()>([&] { udp.SendTo("no-such-host.invalid", 1, "x"); })}) {
        try {
            resolve();
            ADD_FAILURE() << "resolved a name that does not exist";
        } catch (const CSuperSocketException &e) {
            EXPECT_TRUE(e.message.rfind("CSuperSocket::Connect::getaddrinfo::", 0) == 0 ||
                        e.message.rfind("CSuperSocket::SendTo::getaddrinfo::", 0) == 0)
                << e.message;
            EXPECT_GT(e.message.size(), 36u);
            EXPECT_EQ(e.errorCode, -1);
        }
    }
    peer.release.Set();
}

TEST(Socket, SendAfterThePeerResetReportsItsCode) {
    Peer peer;
    peer.resetAtEnd = true;
    LoopbackDevice device(peer.Session());
    struct Quiet : CDefaultSuperSocketContainer {} quiet;  // never reads: no close condition handled early
    CSuperSocket socket(quiet);
    socket.Connect("127.0.0.1", device.Port());
    ASSERT_TRUE(WaitUntil([&] { return peer.accepted.IsSet(); }));
    peer.release.Set();
    // Until the event thread closes the handle, Send fails with the reset's code.
    bool sawFailure = WaitUntil([&] {
        try {
            socket.Send(std::string("x"));
            return false;
        } catch (const CSuperSocketException &e) {
            if (e.message == "CSuperSocket::Send::socket not open") return true;
            EXPECT_EQ(e.message.rfind("CSuperSocket::Send() error: code ", 0), 0u) << e.message;
            EXPECT_EQ(e.message, "CSuperSocket::Send() error: code " + std::to_string(e.errorCode) + ": ");
            return true;
        }
    });
    EXPECT_TRUE(sawFailure);
}

TEST(Socket, BroadcastAddressEndsIn255) {
    const std::string address = GetBroadcastAddress(0);
    if (address.empty()) GTEST_SKIP() << "this host's name does not resolve";
    in_addr parsed{};
    ASSERT_EQ(::inet_pton(AF_INET, address.c_str(), &parsed), 1) << address;
    EXPECT_EQ(address.substr(address.rfind('.')), ".255");
    EXPECT_EQ(GetBroadcastAddress(1000), "");
}

}  // namespace socket_test
