// CRC_32: the CRC-32 of IEEE 802.3 (reflected polynomial 0x04C11DB7, start
// 0xFFFFFFFF, result complemented) of a buffer, a string or a file.
//
// With a live progress target the work goes to a thread of its own, and the
// call returns that thread's handle (cast to unsigned long; close it with
// CloseHandle). The thread posts to the target, in this order:
//   1026 (0, 0)                 position 0
//   1030 (0, 100)               range 0 to 100
//   1026 (percent, 0)           after each block of 102400 bytes
//   44465 (thread handle, crc)  when done; the message the original sent to
//                               the bar's parent window, here to the target
// The target is asked IsLive() before every post; once it says false no more
// messages come. The target must outlive the thread (wait on the handle); the
// CRC_32 object need not, as the job keeps all it needs.
// Without a live target the CRC is computed on the calling thread and returned.
// Failure, a null or empty buffer, a missing file or a folder give 0.
#pragma once

#include <cstddef>
#include <string>

#include "qor/platform/ProgressTarget.h"
#include "qor/platform/Win32Types.h"

class CRC_32 {
public:
    // Messages posted to a progress target.
    static constexpr unsigned kSetPosition = 1026;  // progress bar position
    static constexpr unsigned kSetRange = 1030;     // progress bar range 0..lParam
    static constexpr unsigned kDone = 44465;        // wParam thread handle, lParam CRC
    static constexpr std::size_t kBlockSize = 102400;

    CRC_32();
    virtual ~CRC_32() = default;

    // The CRC of the text's bytes; an empty text gives 0.
    unsigned long CalcCRC(const std::string &text);
    // The CRC of the buffer, or the thread handle when `progress` is live.
    unsigned long CalcCRC(void *data, unsigned int size, qor::ProgressTarget *progress);
    // The CRC of the file, or the thread handle when `progress` is live.
    unsigned long CalcCRC(const char *path, qor::ProgressTarget *progress);

    // Runs `size` bytes through the CRC register `crc` (start 0xFFFFFFFF,
    // complement at the end). Uses zlib's crc32, which gives the same values
    // as the table loop several times faster.
    void Calculate(const BYTE *buffer, std::size_t size, unsigned long &crc) const;
    // The same, byte by byte through the table: the reference the fast path
    // must match.
    void CalculateByTable(const BYTE *buffer, std::size_t size, unsigned long &crc) const;

    // Mirrors the low `bits` bits of `value`.
    static unsigned long Reflect(unsigned long value, char bits);

    const unsigned long *Table() const { return table_; }

private:
    struct Job;
    static DWORD RunJob(Job *job);
    // Hands the job (owned from here on) to a thread of its own; returns the
    // thread's handle, or 0 when no thread could be started.
    static unsigned long StartJob(Job *job);

    unsigned long table_[256];
};
