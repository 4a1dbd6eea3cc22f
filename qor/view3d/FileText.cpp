#include "qor/view3d/FileText.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace qor::vrml {
namespace {

// Below this a string is as cheap as anything.
constexpr std::size_t kMapAtLeast = std::size_t{1} << 20;

// read() until count bytes or the end; a failure ends the reading. The count read.
std::size_t ReadUpTo(int fd, char *to, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = ::read(fd, to + done, count - done);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

void ReadRest(int fd, std::string &text) {
    char chunk[1 << 16];
    for (std::size_t got; (got = ReadUpTo(fd, chunk, sizeof chunk)) > 0;) {
        text.append(chunk, got);
        if (got < sizeof chunk) break;
    }
}

}  // namespace

FileText::~FileText() {
    if (mapped_) ::munmap(mapped_, capacity_);
}

bool FileText::Open(const std::string &path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat info {};
    const bool regular = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
    const auto length = regular ? static_cast<std::size_t>(info.st_size) : 0;
    if (length >= kMapAtLeast) {
        // One byte more than the length, so that a file that grew since
        // shows itself by filling it.
        void *memory = ::mmap(nullptr, length + 1, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory != MAP_FAILED) {
            ::madvise(memory, length + 1, MADV_HUGEPAGE);
            mapped_ = static_cast<char *>(memory);
            capacity_ = length + 1;
            size_ = ReadUpTo(fd, mapped_, capacity_);
            if (size_ == capacity_) {
                // Longer than it said: fall back to a string for all of it.
                text_.assign(mapped_, size_);
                ::munmap(mapped_, capacity_);
                mapped_ = nullptr;
                ReadRest(fd, text_);
            }
            ::close(fd);
            return true;
        }
    }
    if (length > 0) text_.reserve(length);
    ReadRest(fd, text_);
    ::close(fd);
    return true;
}

}  // namespace qor::vrml
