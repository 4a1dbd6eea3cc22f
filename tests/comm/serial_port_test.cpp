// CSerial on pseudo-terminals: opening and its settings, the read forms with
// push-back, the retrying write, and the history with its exact line format.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <regex>
#include <sstream>
#include <thread>

#include "qor/comm/CSerial.h"
#include "serial_test_support.h"

using serial_test::Bytes;
using serial_test::PtyLine;

namespace serial_port_test {

bool OpenDefault(CSerial &serial, const PtyLine &line) {
    return serial.Open(static_cast<short>(line.port), 9600, 8, 0, 0, 0);
}

// A port opened at 9600 8N1 on a fresh pseudo-terminal.
class OpenLine : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(OpenDefault(serial, line)); }
    PtyLine line;
    CSerial serial;
};
using OpenLineHistory = OpenLine;

TEST(SerialPort, OpensMappedLineExclusivelyAndClosesToPortZero) {
    PtyLine line;
    ASSERT_TRUE(line.Ok());
    CSerial serial, second;
    EXPECT_FALSE(serial.IsOpen());
    ASSERT_TRUE(OpenDefault(serial, line));
    EXPECT_TRUE(serial.IsOpen());
    EXPECT_EQ(serial.GetPort(), static_cast<short>(line.port));
    EXPECT_FALSE(OpenDefault(second, line));
    EXPECT_EQ(second.GetPort(), 0);
    serial.Close();
    EXPECT_FALSE(serial.IsOpen());
    EXPECT_EQ(serial.GetPort(), 0);
    EXPECT_TRUE(OpenDefault(second, line));
}

TEST(SerialPort, RefusesSettingsTheLineCannotTake) {
    struct Case {
        const char *what;
        long baud;
        unsigned char byteSize, parity, stopBits;
        short flow;
    };
    const Case cases[] = {
        {"baud rate", 12345, 8, 0, 0, 0}, {"byte size", 9600, 9, 0, 0, 0},
        {"byte size", 9600, 4, 0, 0, 0},  {"parity", 9600, 8, 5, 0, 0},
        {"stop bits", 9600, 8, 0, 3, 0},  {"flow control", 9600, 8, 0, 0, 5},
        {"flow control", 9600, 8, 0, 0, -1},
    };
    PtyLine line;
    for (const Case &c : cases) {
        CSerial serial;
        EXPECT_FALSE(serial.Open(static_cast<short>(line.port), c.baud, c.byteSize, c.parity,
                                 c.stopBits, c.flow))
            << c.what;
        EXPECT_FALSE(serial.IsOpen()) << c.what;
        EXPECT_EQ(serial.GetPort(), 0) << c.what;
    }
    // and every valid row of each table opens
    for (short flow = 0; flow <= 4; ++flow) {
        CSerial serial;
        EXPECT_TRUE(serial.Open(static_cast<short>(line.port), 115200, 7, 2, 2, flow)) << flow;
    }
}

TEST(SerialPort, UnmappedOrMissingDeviceFailsToOpen) {
    unsigned port = serial_test::NextPort();
    qor::SetSerialPortPath(port, "/nonexistent/tty");
    CSerial serial;
    EXPECT_FALSE(serial.Open(static_cast<short>(port), 9600, 8, 0, 0, 0));
    EXPECT_FALSE(serial.Open(0, 9600, 8, 0, 0, 0));
    qor::SetSerialPortPath(port, "");
    EXPECT_EQ(qor::SerialPortPath(1), "/dev/ttyS0");
}

TEST_F(OpenLine, LineIsRawBothWays) {
    // Bytes a cooked line would eat or change: interrupt, XON/XOFF, CR/LF, NUL, EOF.
    const std::string awkward = Bytes({0x03, 0x11, 0x13, '\r', '\n', 0x00, 0x04, 0x7F, 0xFF, 0x1A});
    ASSERT_TRUE(serial.write(awkward));
    EXPECT_EQ(line.Read(awkward.size()), awkward);
    line.Write(awkward);
    unsigned long received = 0;
    EXPECT_EQ(serial.read(awkward.size(), 2000, received), awkward);
    EXPECT_EQ(received, awkward.size());
}

TEST(SerialPort, ClosedPortReadsNothingAndWritesFail) {
    CSerial serial;
    unsigned long received = 7;
    EXPECT_EQ(serial.read(5, 50, received), "");
    EXPECT_EQ(received, 0u);
    EXPECT_EQ(serial.read(50, std::string("OK"), true), "");
    EXPECT_EQ(serial.read("\r", 50, false), "");
    EXPECT_EQ(serial.read(50), "");
    EXPECT_FALSE(serial.write("x"));
    EXPECT_FALSE(serial.WriteChars("x", 0));
    std::string reply = "old";
    EXPECT_FALSE(serial.write("x", "ok", reply, 50));
    EXPECT_EQ(serial.bytesinserialqueue(), 0u);
    EXPECT_FALSE(serial.PurgeRX());
    COMMTIMEOUTS timeouts;
    EXPECT_FALSE(serial.SetCommTimeouts(timeouts));
}

TEST_F(OpenLine, TerminatorReadPushesBackWhatFollowsAndKeepsWhatHasNoTerminator) {
    line.Write("xxOKyy");
    EXPECT_EQ(serial.read(200, std::string("OK"), true), "xxOK");
    EXPECT_EQ(serial.bytesinserialqueue(), 2u);
    unsigned long received = 0;
    EXPECT_EQ(serial.read(2, 200, received), "yy");
    // Without the terminator everything is kept.
    line.Write("xx");
    EXPECT_EQ(serial.read(100, std::string("OK"), true), "");
    line.Write("OKzz");
    // the kept bytes come first, and a terminator split over two arrivals is found
    EXPECT_EQ(serial.read(200, std::string("xO"), true), "xxO");
    EXPECT_EQ(serial.read(200, std::string("zz"), false), "Kzz");
}

TEST_F(OpenLine, CharacterSetRead) {
    line.Write("abc\rdef");
    // Without push-back: all that had arrived, terminator or not.
    EXPECT_EQ(serial.read("\n\r", 200, false), "abc\rdef");
    EXPECT_EQ(serial.bytesinserialqueue(), 0u);
    // With push-back a set of characters stops at any member.
    line.Write("12;34,56");
    EXPECT_EQ(serial.read(",;", 200, true), "12;");
    EXPECT_EQ(serial.read(",;", 200, true), "34,");
    // a null set reads for the whole time and returns all of it
    EXPECT_EQ(serial.read(nullptr, 50, true), "56");
}

TEST_F(OpenLine, CountReadGathersPiecesAndStopsAtTimeout) {
    std::thread device([&] {
        line.Write("abc");
        line.Read(1);  // wait for the host's go
        line.Write("defgh");
    });
    unsigned long received = 0;
    EXPECT_EQ(serial.read(3, 1000, received), "abc");
    serial.write("g");
    EXPECT_EQ(serial.read(4, 1000, received), "defg");
    EXPECT_EQ(received, 4u);
    device.join();
    EXPECT_EQ(serial.read(10, 30, received), "h");
    EXPECT_EQ(received, 1u);
    EXPECT_EQ(serial.read(0, 30, received), "");
    EXPECT_EQ(received, 0u);
}

TEST_F(OpenLine, TimedReadTakesEverythingInTheTime) {
    line.Write("ab");
    EXPECT_EQ(serial.read(30ul, std::string("b"), true), "ab");
    line.Write("cdOKe");
    EXPECT_EQ(serial.read(100, std::string("OK"), true), "cdOK");
    line.Write("fg");
    EXPECT_EQ(serial.read(60), "efg");
}

TEST_F(OpenLine, PurgeRXDropsPushedBackAndWaitingBytes) {
    line.Write("abOKcd");
    EXPECT_EQ(serial.read(200, std::string("OK"), true), "abOK");
    line.Write("ef");
    line.Read(0, 20);
    EXPECT_TRUE(serial.PurgeRX());
    EXPECT_EQ(serial.bytesinserialqueue(), 0u);
    EXPECT_EQ(serial.read(30), "");
}

// A device that answers "ok\r" to the n-th "ping" it hears, counting pings.
struct PingDevice {
    PtyLine &line;
    int answerOn;
    int pings = 0;
    std::atomic<bool> stop{false};
    std::thread thread;
    PingDevice(PtyLine &line, int answerOn) : line(line), answerOn(answerOn) {
        thread = std::thread([this] {
            std::string heard;
            for (;;) {
                std::string got = this->line.Read(4, 20);
                if (got.empty() && stop) return;
                heard += got;
                while (heard.size() >= 4 && heard.compare(0, 4, "ping") == 0) {
                    heard.erase(0, 4);
                    if (++pings == this->answerOn) this->line.Write("ok\r");
                }
            }
        });
    }
    // Everything the host wrote is in the line by now: hear it out, then stop.
    int Finish() {
        stop = true;
        thread.join();
        return pings;
    }
};

TEST_F(OpenLine, WriteWithReplyRepeatsUntilAnsweredThenStops) {
    for (int answerOn : {1, 3}) {
        std::string reply;
        PingDevice device(line, answerOn);
        EXPECT_TRUE(serial.write("ping", "ok", reply, 5000));
        EXPECT_EQ(reply.substr(0, 3), "ok\r");
        EXPECT_EQ(device.Finish(), answerOn);
    }
}

TEST_F(OpenLine, WriteWithReplyGivesFalseWhenNobodyAnswers) {
    std::string reply = "stale";
    EXPECT_FALSE(serial.write("hello", "ok", reply, 150));
    EXPECT_EQ(reply, "");
    std::string heard = line.Read(1000, 50);
    EXPECT_GE(heard.size(), 10u);  // said more than once
    EXPECT_EQ(heard.substr(0, 10), "hellohello");
}

TEST_F(OpenLine, WriteCharsSendsEachCharacter) {
    EXPECT_TRUE(serial.WriteChars("ABC", 1));
    EXPECT_EQ(line.Read(3), "ABC");
}

TEST(SerialPort, ResetReopensWithTheSameSettings) {
    PtyLine line;
    CSerial serial;
    // A pseudo-terminal keeps speed and stop bits, and forces 8 data bits, no parity.
    ASSERT_TRUE(serial.Open(static_cast<short>(line.port), 19200, 8, 0, 2, 0));
    ASSERT_TRUE(serial.Reset());
    EXPECT_EQ(serial.GetPort(), static_cast<short>(line.port));
    termios seen{};
    ASSERT_EQ(::tcgetattr(line.slave, &seen), 0);
    EXPECT_EQ(::cfgetospeed(&seen), static_cast<speed_t>(B19200));
    EXPECT_TRUE(seen.c_cflag & CSTOPB);
    EXPECT_FALSE(seen.c_lflag & (ICANON | ECHO | ISIG));
}

// --- history -----------------------------------------------------------------

TEST(SerialHistory, TimeStampFormat) {
    struct Case {
        int year, month, day, hour, minute, second, millis;
        const char *text;
    };
    const Case cases[] = {
        {2009, 3, 7, 14, 5, 7, 425, "(3/7/09 - 2:05:07.42 PM) "},
        {2000, 1, 1, 0, 0, 0, 0, "(1/1/00 - 12:00:00.00 AM) "},
        {2021, 6, 15, 12, 30, 5, 9, "(6/15/21 - 12:30:05.00 PM) "},
        {2010, 12, 31, 23, 59, 59, 999, "(12/31/10 - 11:59:59.99 PM) "},
        {1999, 10, 10, 9, 9, 9, 90, "(10/10/99 - 9:09:09.09 AM) "},
    };
    for (const Case &c : cases) {
        std::tm time{};
        time.tm_year = c.year - 1900;
        time.tm_mon = c.month - 1;
        time.tm_mday = c.day;
        time.tm_hour = c.hour;
        time.tm_min = c.minute;
        time.tm_sec = c.second;
        EXPECT_EQ(qor::SerialHistoryTimeStamp(time, c.millis), c.text);
    }
}

const std::regex &HistoryLine() {
    static const std::regex line(
        R"(^(SEND|RECV)\(\(\d{1,2}/\d{1,2}/\d\d - \d{1,2}:\d\d:\d\d\.\d\d (AM|PM)\) \)'([\s\S]*)'( \*\*(WRITE|READ)_FAIL\*\*)?\r\n$)");
    return line;
}

TEST_F(OpenLineHistory, RecordsReadsAndWritesInTheLineFormat) {
    serial.BeginRecordHistory(10);
    serial.write("hello");
    line.Write("world\r");
    EXPECT_EQ(serial.read("\r", 500, false), "world\r");
    std::deque<std::string> history = serial.GetHistory();
    ASSERT_EQ(history.size(), 2u);
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(history[0], parts, HistoryLine())) << history[0];
    EXPECT_EQ(parts[1], "SEND");
    EXPECT_EQ(parts[3], "hello");
    ASSERT_TRUE(std::regex_match(history[1], parts, HistoryLine())) << history[1];
    EXPECT_EQ(parts[1], "RECV");
    EXPECT_EQ(parts[3], "world\r");
    // the plain timed read leaves no trace
    line.Write("quiet");
    EXPECT_EQ(serial.read(40), "quiet");
    EXPECT_EQ(serial.GetHistory().size(), 2u);
}

TEST_F(OpenLineHistory, WriteToAVanishedDeviceIsMarked) {
    serial.BeginRecordHistory(10);
    ::close(line.slave);
    line.slave = -1;
    line.CloseMaster();
    EXPECT_FALSE(serial.write("lost"));
    std::deque<std::string> history = serial.GetHistory();
    ASSERT_EQ(history.size(), 1u);
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(history[0], parts, HistoryLine())) << history[0];
    EXPECT_EQ(parts[3], "lost");
    EXPECT_EQ(parts[4], " **WRITE_FAIL**");
}

TEST_F(OpenLineHistory, LimitKeepsTheLatestLinesAndDumpWritesThemAll) {
    serial.BeginRecordHistory(5);
    for (int i = 0; i < 7; ++i) serial.write(std::string(1, static_cast<char>('a' + i)));
    ASSERT_EQ(serial.GetHistory().size(), 5u);
    serial.BeginRecordHistory(2);
    std::deque<std::string> history = serial.GetHistory();
    ASSERT_EQ(history.size(), 2u);
    EXPECT_NE(history[0].find(")'f'\r\n"), std::string::npos);
    EXPECT_NE(history[1].find(")'g'\r\n"), std::string::npos);
    // The dump replaces what the file held and keeps the lines.
    char name[] = "/tmp/qor-serial-history-XXXXXX";
    int fd = ::mkstemp(name);
    ASSERT_GE(fd, 0);
    ::write(fd, "previous content that must go", 30);
    ::close(fd);
    serial.DumpHistory(name);
    serial.DumpHistory("");  // nothing, no crash
    std::ifstream file(name, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    std::remove(name);
    EXPECT_EQ(text.str(), history[0] + history[1]);
    EXPECT_EQ(serial.GetHistory(), history);
    serial.EndRecordHistory();
    EXPECT_TRUE(serial.GetHistory().empty());
    serial.write("x");
    EXPECT_TRUE(serial.GetHistory().empty());
}

// --- enumeration -------------------------------------------------------------

struct ListOfPorts {
    std::vector<std::pair<std::string, unsigned long>> items;
    int selected = -1;
    void ResetContent() { items.clear(), selected = -1; }
    int InsertString(int index, const char *text) {
        items.insert(items.begin() + index, {text, 0});
        return index;
    }
    void SetItemData(int index, unsigned long data) { items[static_cast<std::size_t>(index)].second = data; }
    int GetCount() const { return static_cast<int>(items.size()); }
    void SetCurSel(int index) { selected = index; }
};

TEST(SerialPorts, EnumerationListsMappedLinesAndFillsALists) {
    PtyLine line;
    std::vector<int> ports = {-1};
    CSerial::EnumerateSerialPorts(ports);
    EXPECT_NE(std::find(ports.begin(), ports.end(), static_cast<int>(line.port)), ports.end());
    EXPECT_TRUE(std::is_sorted(ports.begin(), ports.end()));
    EXPECT_EQ(std::find(ports.begin(), ports.end(), -1), ports.end());

    ListOfPorts list;
    list.items.push_back({"stale", 0});
    CSerial::PopulateSerialPortsCombo(list);
    ASSERT_EQ(list.items.size(), ports.size());
    auto mine = std::find_if(list.items.begin(), list.items.end(),
                             [&](const auto &item) { return item.second == line.port; });
    ASSERT_NE(mine, list.items.end());
    EXPECT_EQ(mine->first, "COM " + std::to_string(line.port));
    EXPECT_EQ(list.selected, 0);
}

}  // namespace serial_port_test
