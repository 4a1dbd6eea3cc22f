#include "qor/host/CRC_32.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <zlib.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "qor/platform/Waitable.h"

namespace qor::crcdetail {

// The job's private copy of a buffer. Large copies ask for huge pages: the
// copy is the job's main cost beyond the CRC itself, and most of it is page
// faults, which huge pages cut by a factor of 512.
class CrcJobBuffer {
public:
    CrcJobBuffer() = default;
    CrcJobBuffer(const CrcJobBuffer &) = delete;
    CrcJobBuffer &operator=(const CrcJobBuffer &) = delete;
    ~CrcJobBuffer() {
        if (mapped_) ::munmap(data_, size_);
        else delete[] data_;
    }

    bool Assign(const void *source, std::size_t size) {
        constexpr std::size_t kHugeThreshold = 4u << 20;
        if (size >= kHugeThreshold) {
            void *memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
            if (memory != MAP_FAILED) {
                ::madvise(memory, size, MADV_HUGEPAGE);
                data_ = static_cast<BYTE *>(memory);
                mapped_ = true;
            }
        }
        if (data_ == nullptr) data_ = new (std::nothrow) BYTE[size];
        if (data_ == nullptr) return false;
        size_ = size;
        std::memcpy(data_, source, size);
        return true;
    }
    const BYTE *data() const { return data_; }
    std::size_t size() const { return size_; }

private:
    BYTE *data_ = nullptr;
    std::size_t size_ = 0;
    bool mapped_ = false;
};

}  // namespace qor::crcdetail

// One CRC job: the thread that runs it owns it and frees it.
struct CRC_32::Job {
    const CRC_32 *owner = nullptr;  // who started it; never used once it runs
    std::string path;            // empty for a buffer job
    qor::crcdetail::CrcJobBuffer data;           // private copy of a buffer job's bytes
    qor::ProgressTarget *progress = nullptr;
    HANDLE thread = nullptr;     // set before the thread may run
    HANDLE go = nullptr;         // released once `thread` is known
};

namespace {

constexpr unsigned long kPolynomial = 0x04C11DB7UL;

bool LiveTarget(const qor::ProgressTarget *progress) {
    return progress != nullptr && progress->IsLive();
}

void PostIfLive(qor::ProgressTarget *progress, unsigned message, std::uintptr_t w,
                std::intptr_t l) {
    if (LiveTarget(progress)) progress->Post(message, w, l);
}

}  // namespace

CRC_32::CRC_32() {
    for (unsigned long i = 0; i < 256; ++i) {
        unsigned long value = Reflect(i, 8) << 24;
        for (int step = 0; step < 8; ++step)
            value = ((value << 1) ^ ((value & 0x80000000UL) ? kPolynomial : 0)) & 0xFFFFFFFFUL;
        table_[i] = Reflect(value, 32);
    }
}

unsigned long CRC_32::Reflect(unsigned long value, char bits) {
    unsigned long result = 0;
    for (int bit = 1; bit <= bits; ++bit) {
        if (value & 1) result |= 1UL << (bits - bit);
        value >>= 1;
    }
    return result;
}

void CRC_32::CalculateByTable(const BYTE *buffer, std::size_t size, unsigned long &crc) const {
    for (std::size_t i = 0; i < size; ++i) crc = (crc >> 8) ^ table_[(crc & 0xFF) ^ buffer[i]];
}

namespace {

// zlib keeps the CRC in its finished (complemented) form between calls.
void UpdateCrcRegister(const BYTE *buffer, std::size_t size, unsigned long &crc) {
    crc = ~crc32_z(~crc & 0xFFFFFFFFUL, buffer, size) & 0xFFFFFFFFUL;
}

}  // namespace

void CRC_32::Calculate(const BYTE *buffer, std::size_t size, unsigned long &crc) const {
    UpdateCrcRegister(buffer, size, crc);
}

unsigned long CRC_32::CalcCRC(const std::string &text) {
    return CalcCRC(const_cast<char *>(text.data()), static_cast<unsigned>(text.size()), nullptr);
}

unsigned long CRC_32::CalcCRC(void *data, unsigned int size, qor::ProgressTarget *progress) {
    if (data == nullptr || size == 0) return 0;
    if (!LiveTarget(progress)) {
        unsigned long crc = 0xFFFFFFFFUL;
        Calculate(static_cast<const BYTE *>(data), size, crc);
        return ~crc & 0xFFFFFFFFUL;
    }
    auto job = std::make_unique<Job>();
    job->owner = this;
    job->progress = progress;
    if (!job->data.Assign(data, size)) return 0;
    return StartJob(job.release());
}

unsigned long CRC_32::CalcCRC(const char *path, qor::ProgressTarget *progress) {
    if (path == nullptr) return 0;
    struct stat info {};
    if (::stat(path, &info) != 0 || S_ISDIR(info.st_mode)) return 0;
    auto job = std::make_unique<Job>();
    job->owner = this;
    job->progress = progress;
    // The original's job held at most 260 characters; Linux paths run longer,
    // and a cut path would name another file, so the whole path is kept.
    job->path = path;
    if (!LiveTarget(progress)) return RunJob(job.release());
    return StartJob(job.release());
}

unsigned long CRC_32::StartJob(Job *raw) {
    std::unique_ptr<Job> job(raw);
    job->go = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    if (job->go == nullptr) return 0;
    HANDLE thread = qor::BeginThread([raw] { return RunJob(raw); });
    if (thread == nullptr) {
        CloseHandle(job->go);
        return 0;
    }
    // The thread waits for its own handle before it starts, as a thread
    // created suspended would, so that its final message can name it.
    raw->thread = thread;
    job.release();
    SetEvent(raw->go);
    return reinterpret_cast<unsigned long>(thread);
}

DWORD CRC_32::RunJob(Job *raw) {
    std::unique_ptr<Job> job(raw);
    if (job->go != nullptr) {
        WaitForSingleObject(job->go, INFINITE);
        CloseHandle(job->go);
        job->go = nullptr;
    }
    qor::ProgressTarget *progress = job->progress;
    PostIfLive(progress, kSetPosition, 0, 0);
    PostIfLive(progress, kSetRange, 0, 100);

    unsigned long crc = 0xFFFFFFFFUL;
    bool ok = true;
    if (job->path.empty()) {
        const std::size_t total = job->data.size();
        for (std::size_t done = 0; done < total;) {
            std::size_t block = std::min(kBlockSize, total - done);
            UpdateCrcRegister(job->data.data() + done, block, crc);
            done += block;
            PostIfLive(progress, kSetPosition, static_cast<std::uintptr_t>(done * 100 / total), 0);
        }
    } else {
        std::FILE *file = std::fopen(job->path.c_str(), "rb");
        if (file == nullptr) {
            ok = false;
        } else {
            long long total = 0;
            if (std::fseek(file, 0, SEEK_END) == 0) total = ftello(file);
            std::fseek(file, 0, SEEK_SET);
            std::vector<BYTE> block(kBlockSize);
            long long done = 0;
            for (;;) {
                std::size_t got = std::fread(block.data(), 1, block.size(), file);
                UpdateCrcRegister(block.data(), got, crc);
                done += static_cast<long long>(got);
                if (total > 0)
                    PostIfLive(progress, kSetPosition,
                               static_cast<std::uintptr_t>(std::min(done, total) * 100 / total), 0);
                if (got < block.size()) break;
            }
            if (std::ferror(file)) ok = false;
            std::fclose(file);
        }
    }
    unsigned long result = ok ? (~crc & 0xFFFFFFFFUL) : 0;
    PostIfLive(progress, kDone, reinterpret_cast<std::uintptr_t>(job->thread),
               static_cast<std::intptr_t>(result));
    return static_cast<DWORD>(result);
}
