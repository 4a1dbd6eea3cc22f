#include <gtest/gtest.h>

#include <mutex>
#include <random>
#include <string>
#include <vector>

#include "ScratchFile.h"
#include "qor/host/CRC_32.h"
#include "qor/platform/Waitable.h"

namespace {

using qor::test::ScratchFile;

struct PostedMessage {
    unsigned message;
    std::uintptr_t wParam;
    std::intptr_t lParam;
};

// A progress target that records what the CRC thread posts; it can be made
// to go away after a number of posts, as a closed window would.
class RecordingTarget : public qor::ProgressTarget {
public:
    explicit RecordingTarget(std::size_t liveFor = SIZE_MAX) : liveFor_(liveFor) {}
    bool IsLive() const override {
        std::lock_guard<std::mutex> lock(mutex_);
        return messages_.size() < liveFor_;
    }
    void Post(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override {
        std::lock_guard<std::mutex> lock(mutex_);
        messages_.push_back({message, wParam, lParam});
    }
    std::vector<PostedMessage> Messages() const {
        std::lock_guard<std::mutex> lock(mutex_);
        return messages_;
    }

private:
    mutable std::mutex mutex_;
    std::vector<PostedMessage> messages_;
    std::size_t liveFor_;
};

std::vector<unsigned char> RandomBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<unsigned char> bytes(size);
    for (auto &b : bytes) b = static_cast<unsigned char>(random());
    return bytes;
}

// The CRC of the bytes, computed on the calling thread.
unsigned long DirectCrc(std::vector<unsigned char> &bytes) {
    return CRC_32().CalcCRC(bytes.data(), static_cast<unsigned>(bytes.size()), nullptr);
}

// Waits for the thread a threaded job returned, closes it, and gives its exit code.
DWORD WaitForJob(unsigned long result) {
    HANDLE thread = reinterpret_cast<HANDLE>(result);
    EXPECT_NE(thread, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    EXPECT_TRUE(GetExitCodeThread(thread, &exitCode));
    CloseHandle(thread);
    return exitCode;
}

// Waits for a threaded job and checks the messages it posted: position 0,
// range 0..100, one rising position per block ending at 100, then the
// result naming the thread. Returns the CRC the thread reported.
// A file job reads until a short block, so a file of whole blocks ends with
// an empty read that posts 100 once more.
unsigned long CheckThreadedJob(unsigned long result, const RecordingTarget &target, std::size_t size,
                               bool fromFile = false) {
    const DWORD exitCode = WaitForJob(result);
    auto messages = target.Messages();
    const std::size_t blocks = fromFile ? size / CRC_32::kBlockSize + 1
                                        : (size + CRC_32::kBlockSize - 1) / CRC_32::kBlockSize;
    EXPECT_EQ(messages.size(), 2 + blocks + 1);
    if (messages.size() != 2 + blocks + 1) return 0;
    EXPECT_EQ(messages[0].message, CRC_32::kSetPosition);
    EXPECT_EQ(messages[0].wParam, 0u);
    EXPECT_EQ(messages[1].message, CRC_32::kSetRange);
    EXPECT_EQ(messages[1].wParam, 0u);
    EXPECT_EQ(messages[1].lParam, 100);
    std::uintptr_t last = 0;
    for (std::size_t i = 2; i < 2 + blocks; ++i) {
        EXPECT_EQ(messages[i].message, CRC_32::kSetPosition);
        EXPECT_GE(messages[i].wParam, last);
        last = messages[i].wParam;
    }
    EXPECT_EQ(last, 100u);
    const PostedMessage &done = messages.back();
    EXPECT_EQ(done.message, CRC_32::kDone);
    EXPECT_EQ(done.wParam, static_cast<std::uintptr_t>(result));
    EXPECT_EQ(static_cast<DWORD>(done.lParam), exitCode);
    return static_cast<unsigned long>(done.lParam);
}

TEST(Crc32, CheckValuesAndTheCallingThreadPath) {
    CRC_32 crc;
    EXPECT_EQ(crc.CalcCRC(std::string("123456789")), 0xCBF43926ul);
    EXPECT_EQ(crc.CalcCRC(std::string("The quick brown fox jumps over the lazy dog")), 0x414FA339ul);
    EXPECT_EQ(crc.CalcCRC(std::string()), 0ul);
    EXPECT_EQ(crc.Table()[1], 0x77073096ul);
    EXPECT_EQ(crc.Table()[255], 0x2D02EF8Dul);
    EXPECT_EQ(CRC_32::Reflect(0x04C11DB7, 32), 0xEDB88320ul);
    char byte = 'a';
    RecordingTarget target;
    EXPECT_EQ(crc.CalcCRC(nullptr, 10, &target), 0ul);
    EXPECT_EQ(crc.CalcCRC(&byte, 0, &target), 0ul);
    EXPECT_TRUE(target.Messages().empty());
    // A target that is not live means the work is done on the calling thread.
    RecordingTarget dead(0);
    EXPECT_EQ(crc.CalcCRC(const_cast<char *>("123456789"), 9, &dead), 0xCBF43926ul);
    EXPECT_EQ(crc.CalcCRC(ScratchFile({'1', '2', '3', '4', '5', '6', '7', '8', '9'}).path(), &dead), 0xCBF43926ul);
    EXPECT_TRUE(dead.Messages().empty());
}

TEST(Crc32, FastPathMatchesTheTableLoop) {
    CRC_32 crc;
    const auto bytes = RandomBytes(70000, 1);
    for (std::size_t size : {1u, 3u, 8u, 15u, 64u, 1000u, 4097u, 69997u}) {
        for (std::size_t offset : {0u, 1u, 3u}) {
            unsigned long fast = 0xFFFFFFFF, table = 0xFFFFFFFF;
            crc.Calculate(bytes.data() + offset, size, fast);
            crc.CalculateByTable(bytes.data() + offset, size, table);
            EXPECT_EQ(fast, table) << size << " at " << offset;
        }
    }
}

TEST(Crc32, FileJobMatchesBufferJob) {
    CRC_32 crc;
    // Sizes around the block boundary: the file reader stops at a short block.
    for (std::size_t size : {std::size_t(1), CRC_32::kBlockSize - 1, CRC_32::kBlockSize,
                             CRC_32::kBlockSize + 1, 3 * CRC_32::kBlockSize + 77}) {
        auto bytes = RandomBytes(size, static_cast<unsigned>(size));
        EXPECT_EQ(crc.CalcCRC(ScratchFile(bytes).path(), nullptr), DirectCrc(bytes)) << size;
    }
    EXPECT_EQ(crc.CalcCRC(ScratchFile({}).path(), nullptr), 0ul);
    EXPECT_EQ(crc.CalcCRC("/nonexistent/qor-crc", nullptr), 0ul);
    EXPECT_EQ(crc.CalcCRC("/tmp", nullptr), 0ul);
    EXPECT_EQ(crc.CalcCRC(static_cast<const char *>(nullptr), nullptr), 0ul);
}

// Eight buffer jobs at once, started by an object that is gone before they
// end, from buffers the caller wipes at once: each job holds its own copy.
TEST(Crc32, ThreadedBufferJobsShareNothingAndOutliveTheirStarter) {
    std::vector<std::vector<unsigned char>> buffers;
    std::vector<unsigned long> expected, results;
    std::vector<RecordingTarget> targets(8);
    for (unsigned i = 0; i < 8; ++i) {
        buffers.push_back(RandomBytes(CRC_32::kBlockSize * (i % 3 + 1) + i * 61, 100 + i));
        expected.push_back(DirectCrc(buffers[i]));
    }
    {
        CRC_32 crc;
        for (unsigned i = 0; i < 8; ++i)
            results.push_back(crc.CalcCRC(buffers[i].data(), static_cast<unsigned>(buffers[i].size()), &targets[i]));
    }
    for (auto &buffer : buffers) std::fill(buffer.begin(), buffer.end(), 0);
    for (unsigned i = 0; i < 8; ++i) EXPECT_EQ(CheckThreadedJob(results[i], targets[i], buffers[i].size()), expected[i]);
}

TEST(Crc32, ThreadedFileJobPostsProgressInOrder) {
    auto bytes = RandomBytes(3 * CRC_32::kBlockSize, 9);
    ScratchFile file(bytes);
    RecordingTarget target;
    EXPECT_EQ(CheckThreadedJob(CRC_32().CalcCRC(file.path(), &target), target, bytes.size(), true), DirectCrc(bytes));
}

TEST(Crc32, TargetThatGoesAwayGetsNoMorePosts) {
    auto bytes = RandomBytes(10 * CRC_32::kBlockSize, 11);
    RecordingTarget target(4);
    EXPECT_EQ(WaitForJob(CRC_32().CalcCRC(bytes.data(), static_cast<unsigned>(bytes.size()), &target)),
              static_cast<DWORD>(DirectCrc(bytes)));
    EXPECT_EQ(target.Messages().size(), 4u);
}

}  // namespace
