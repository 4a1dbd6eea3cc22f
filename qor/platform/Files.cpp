// Files and folders on POSIX.
#include "qor/platform/Files.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <random>
#include <cstdlib>
#include <vector>

namespace qor {
namespace {

bool IsDirectory(const std::string &path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Closes a descriptor on every path out.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    int get() const { return fd_; }
    // Closes now and reports the close's own error.
    int Close() {
        int result = ::close(fd_);
        fd_ = -1;
        return result == 0 ? 0 : errno;
    }

private:
    int fd_;
};

// read() until count bytes, the end or an error; the count read.
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

// Appends what is left to read; 0 at the end, or the errno of a failed read
// (what arrived before it stays appended).
int AppendToEnd(int fd, std::string &contents) {
    char chunk[65536];
    for (;;) {
        const ssize_t got = ::read(fd, chunk, sizeof chunk);
        if (got < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        if (got == 0) return 0;
        contents.append(chunk, static_cast<std::size_t>(got));
    }
}

int WriteAll(int fd, const char *data, std::size_t size) {
    while (size > 0) {
        ssize_t written = ::write(fd, data, size);
        if (written < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return 0;
}

std::string ParentOf(const std::string &path) {
    std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

// A name part that no other writer, in this process or another, picks at
// the same time.
std::string UniqueSuffix() {
    static std::atomic<unsigned> counter{0};
    static const unsigned seed = std::random_device{}();
    char text[64];
    std::snprintf(text, sizeof text, "%ld-%x-%u.tmp", static_cast<long>(::getpid()), seed,
                  counter.fetch_add(1));
    return text;
}

// Makes a rename durable: the folder's entry must reach the disk too.
void SyncDirectory(const std::string &directory) {
    Descriptor dir(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.get() >= 0) ::fsync(dir.get());
}

}  // namespace

std::string TempDirectory() {
    const char *env = std::getenv("TMPDIR");
    std::string directory = env && *env && IsDirectory(env) ? env : "/tmp";
    if (directory.back() != '/') directory.push_back('/');
    return directory;
}

bool CreateDirectories(const std::string &path) {
    if (path.empty()) return false;
    std::string partial;
    partial.reserve(path.size());
    std::size_t at = 0;
    while (at <= path.size()) {
        std::size_t slash = path.find('/', at);
        if (slash == std::string::npos) slash = path.size();
        partial.assign(path, 0, slash);
        at = slash + 1;
        if (partial.empty() || partial.back() == '/') continue;
        if (::mkdir(partial.c_str(), 0777) != 0 && errno != EEXIST) return false;
    }
    return IsDirectory(path);
}

bool PathExists(const std::string &path) { return PathError(path) == 0; }

int PathError(const std::string &path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? 0 : errno;
}

std::string CreateUniqueTempFile(const std::string &directory, int &error) {
    std::string pattern = directory + "XXXXXX.tmp";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int fd = ::mkstemps(name.data(), 4);
    if (fd < 0) {
        error = errno;
        return {};
    }
    ::close(fd);
    error = 0;
    return std::string(name.data());
}

int ReadWholeFile(const std::string &path, std::string &contents) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return errno;
    struct stat info {};
    if (::fstat(file.get(), &info) != 0) return errno;
    if (S_ISDIR(info.st_mode)) return EISDIR;
    contents.clear();
    if (info.st_size > 0) contents.reserve(static_cast<std::size_t>(info.st_size));
    return AppendToEnd(file.get(), contents);
}

FileText::~FileText() {
    if (mapped_) ::munmap(mapped_, capacity_);
}

bool FileText::Open(const std::string &path) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return false;
    struct stat info {};
    const bool regular = ::fstat(file.get(), &info) == 0 && S_ISREG(info.st_mode);
    const auto length = regular ? static_cast<std::size_t>(info.st_size) : 0;
    // Below a megabyte a string is as cheap as anything.
    if (length >= (std::size_t{1} << 20)) {
        // One byte more than the length, so that a file that grew since
        // shows itself by filling it.
        void *memory = ::mmap(nullptr, length + 1, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory != MAP_FAILED) {
            ::madvise(memory, length + 1, MADV_HUGEPAGE);
            mapped_ = static_cast<char *>(memory);
            capacity_ = length + 1;
            size_ = ReadUpTo(file.get(), mapped_, capacity_);
            if (size_ < capacity_) return true;
            // Longer than it said: a string for all of it.
            text_.assign(mapped_, size_);
            ::munmap(mapped_, capacity_);
            mapped_ = nullptr;
        }
    } else if (length > 0) {
        text_.reserve(length);
    }
    AppendToEnd(file.get(), text_);  // a failure keeps what arrived; a folder reads nothing
    return true;
}

OutputFile::~OutputFile() {
    if (fd_ >= 0) ::close(fd_);
}

int OutputFile::Open(const std::string &path) {
    if (fd_ >= 0) Close();
    fd_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    return fd_ >= 0 ? 0 : errno;
}

int OutputFile::Write(std::string_view data) {
    if (fd_ < 0) return EBADF;
    return WriteAll(fd_, data.data(), data.size());
}

int OutputFile::Close() {
    if (fd_ < 0) return 0;
    int result = ::close(fd_);
    fd_ = -1;
    return result == 0 ? 0 : errno;
}

int ReplaceFileAtomically(const std::string &source, const std::string &destination) {
    std::string contents;
    if (int error = ReadWholeFile(source, contents)) return error;

    mode_t mode = 0;
    bool keepMode = false;
    struct stat old {};
    if (::stat(destination.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode)) return EISDIR;
        // No write bit at all is what a read-only file looks like here; the
        // access check covers the rest for users other than root.
        if ((old.st_mode & 0222) == 0) return EACCES;
        if (::access(destination.c_str(), W_OK) != 0) return errno;
        mode = old.st_mode & 07777;
        keepMode = true;
    }

    std::string directory = ParentOf(destination);
    std::string base = destination.substr(destination.find_last_of('/') + 1);
    std::string prefix = (directory == "/" ? "" : directory) + "/." + base + ".";
    // Created with 0666 so that a new destination gets the umask's mode.
    int fd = -1;
    std::string temporary;
    for (unsigned attempt = 0; fd < 0; ++attempt) {
        temporary = prefix + UniqueSuffix();
        fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && (errno != EEXIST || attempt > 100)) return errno;
    }
    Descriptor copy(fd);

    int error = WriteAll(copy.get(), contents.data(), contents.size());
    if (!error && keepMode && ::fchmod(copy.get(), mode) != 0) error = errno;
    if (!error && ::fsync(copy.get()) != 0) error = errno;
    if (int closeError = copy.Close(); !error) error = closeError;
    if (!error && ::rename(temporary.c_str(), destination.c_str()) != 0) error = errno;
    if (error) {
        ::unlink(temporary.c_str());
        return error;
    }
    SyncDirectory(directory);
    return 0;
}

}  // namespace qor
