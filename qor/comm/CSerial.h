// CSerial: a serial port on a termios device.
//
// Opening keeps its settings for a later Reset. Reads go by count, by
// terminator and by time; the terminator reads can push back what they did
// not use, and the next read starts with it. A write can repeat itself until
// the device answers as expected. A history of the traffic, one line per
// read or write, helps diagnosis and can be dumped to a file.
//
// Nothing here throws: operations report by bool, an empty string, or 0.
// Every operation takes the port's recursive lock for its whole length, so a
// timed read blocks every other operation on the same port until it ends.
//
// Port numbers map to device paths through qor::SetSerialPortPath (see
// SerialPorts.h). Open puts the line in raw mode and takes it exclusively.
#pragma once

#include <termios.h>

#include <ctime>
#include <deque>
#include <string>
#include <vector>

#include "qor/comm/SerialPorts.h"
#include "qor/platform/CriticalSection.h"
#include "qor/platform/Win32Types.h"

// The five port timeouts, in milliseconds, with the meaning they have for the
// reads and writes below: a read of n bytes gives up after
// ReadTotalTimeoutMultiplier * n + ReadTotalTimeoutConstant, or once
// ReadIntervalTimeout passes between two bytes; a write of n bytes after
// WriteTotalTimeoutMultiplier * n + WriteTotalTimeoutConstant. A zero total
// means no total limit.
struct COMMTIMEOUTS {
    DWORD ReadIntervalTimeout = 0;
    DWORD ReadTotalTimeoutMultiplier = 0;
    DWORD ReadTotalTimeoutConstant = 0;
    DWORD WriteTotalTimeoutMultiplier = 0;
    DWORD WriteTotalTimeoutConstant = 0;
};

class CSerial {
public:
    CSerial();
    virtual ~CSerial();
    // A CSerial owns its descriptor and its lock; sharing either between two
    // objects would close or free it twice, so copies are refused.
    CSerial(const CSerial &) = delete;
    CSerial &operator=(const CSerial &) = delete;

    // Opens `port` with these settings (baud in bits per second; byteSize 5
    // to 8; parity 0 none, 1 odd, 2 even, 3 mark, 4 space; stopBits 0 one,
    // 1 one and a half, 2 two; flowControl 0 to 4, see CSerial.cpp). An open
    // port is closed first, with a pause of 100 ms.
    bool Open(short port, long baud, unsigned char byteSize, unsigned char parity,
              unsigned char stopBits, short flowControl);
    void Close();
    // Closes and opens the same port again with the stored settings.
    bool Reset();
    bool IsOpen() const;
    short GetPort();

    bool SetCommTimeouts(COMMTIMEOUTS &timeouts);
    bool SetBufferSize(unsigned int input, unsigned int output);
    // Empties what was read and pushed back, and the port's receive side.
    bool PurgeRX();
    // Drops what waits to be sent.
    bool PurgeTX();
    // Bytes waiting on the port plus those pushed back; 0 when the port
    // cannot be asked.
    unsigned long bytesinserialqueue();

    // Everything that arrives within `timeoutMs`; always takes the whole time.
    std::string read(unsigned long timeoutMs);
    // Up to `count` bytes within `timeoutMs`; `received` says how many came.
    std::string read(unsigned long count, unsigned long timeoutMs, unsigned long &received);
    // Reads until `terminator` has arrived or the time is up. With `pushBack`
    // the result ends with the terminator and what came after it is kept for
    // the next read; without a terminator nothing is returned and all is kept.
    std::string read(unsigned long timeoutMs, const std::string &terminator, bool pushBack);
    // The same, stopping at any one character of `terminators`; a null set
    // reads until the time is up.
    std::string read(const char *terminators, unsigned long timeoutMs, bool pushBack);

    // Writes and pauses 10 ms, so that slow devices keep up.
    bool write(const std::string &text);
    bool write(const char *data, unsigned int length);
    // Writes `text` again and again until `reply` contains `expected` or the
    // time is up. True only if the expected answer came within `timeoutMs`.
    bool write(const std::string &text, const std::string &expected, std::string &reply,
               unsigned long timeoutMs);
    // One character at a time, pausing `delayMs` after each.
    bool WriteChars(const std::string &text, unsigned int delayMs);

    // Keeps the latest `limit` lines of traffic; 0 stops recording.
    void BeginRecordHistory(unsigned int limit);
    void EndRecordHistory();
    // Writes the recorded lines, oldest first, to `fileName`, replacing it.
    void DumpHistory(const std::string &fileName);
    // The recorded lines, oldest first.
    std::deque<std::string> GetHistory() const;

    static void EnumerateSerialPorts(std::vector<int> &ports) { qor::EnumerateSerialPorts(ports); }
    template <class ComboBox>
    static void PopulateSerialPortsCombo(ComboBox &combo) { qor::PopulateSerialPortsCombo(combo); }

    // Waits until input arrives or `milliseconds` pass, without the lock held,
    // so that a reader can sleep on the line instead of polling it. Returns
    // at once on a closed or hung-up line only after the full time.
    void WaitForInput(DWORD milliseconds) const;

private:
    bool ReadSerialPort(unsigned long count, unsigned long &received, std::string &out);
    bool ReadSerialPort(unsigned long count, unsigned long &received, std::string &out,
                        ULONGLONG deadline);
    void recordReadHistory(const char *data, unsigned int length, bool ok);
    void recordWriteHistory(const char *data, unsigned int length, bool ok);
    void recordHistory(const char *direction, const char *data, unsigned int length,
                       const char *failure);

    // The port calls: a read and a write bounded by the port timeouts (and a
    // read also by `deadline`, when not 0), and the count of waiting bytes.
    bool ReadFromPort(unsigned long count, unsigned long &got, std::string &out,
                      ULONGLONG deadline);
    bool WriteToPort(const char *data, unsigned int length, unsigned int &written);
    long InputCount() const;
    bool ApplyLineSettings();
    // The terminator reads: stop at `terminator`, or at any character of
    // `terminators`, or (both null) only when the time is up.
    std::string ReadUntil(unsigned long timeoutMs, bool pushBack, const std::string *terminator,
                          const char *terminators);

    mutable CRITICAL_SECTION lock;
    int handle = -1;
    std::deque<std::string> history;
    unsigned int historyLimit = 0;
    short port = 0;
    long baud = 9600;
    unsigned char byteSize = 8;
    unsigned char parity = 0;
    unsigned char stopBits = 1;
    short flowControl = 0;
    COMMTIMEOUTS savedTimeouts;
    std::string readBuffer;

    // The timeouts in force, and the line as it was found, restored at Close.
    COMMTIMEOUTS timeouts;
    termios savedLine{};
    bool haveSavedLine = false;
};

namespace qor {

// The time stamp of a history line: "(3/7/09 - 2:05:07.42 PM) " for
// 14:05:07.425 on 7 March 2009, with the blank at the end.
std::string SerialHistoryTimeStamp(const std::tm &localTime, int milliseconds);

}  // namespace qor
