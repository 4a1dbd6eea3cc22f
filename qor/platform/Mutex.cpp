// Mutexes: owned by one thread at a time, recursive within it. A named mutex
// is one object per name in the process (so every handle of the name shares
// one ownership), and owning it also means holding an advisory lock on a file
// named after it, which serialises every process of the user.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <thread>

#include "qor/platform/SystemError.h"
#include "qor/platform/Waitable.h"
#include "qor/platform/detail/Kernel.h"

namespace qor::kernel {
namespace {

constexpr DWORD kErrorInvalidHandleMutex = 6;
constexpr DWORD kErrorNotOwner = 288;
constexpr DWORD kErrorAlreadyExists = 183;

// Where the lock files of named mutexes live: the user's runtime directory,
// else a private folder under /tmp.
std::string MutexLockDirectory() {
    std::string folder;
    struct stat info {};
    if (const char *runtime = std::getenv("XDG_RUNTIME_DIR");
        runtime && *runtime && stat(runtime, &info) == 0 && S_ISDIR(info.st_mode))
        folder = std::string(runtime) + "/qor";
    else
        folder = "/tmp/qor-" + std::to_string(getuid());
    mkdir(folder.c_str(), 0700);
    return folder + "/";
}

// Any name becomes one safe file name: letters, digits, '-', '_' and '.'
// stand as they are, every other byte as %XX.
std::string MutexLockFileName(const std::string &name) {
    static const char hex[] = "0123456789ABCDEF";
    std::string file;
    for (unsigned char c : name) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == '-' || c == '_' || (c == '.' && !file.empty());
        if (plain) {
            file += static_cast<char>(c);
        } else {
            file += '%';
            file += hex[c >> 4];
            file += hex[c & 15];
        }
    }
    return file + ".lock";
}

class MutexObject final : public Object {
public:
    explicit MutexObject(std::string name = {});
    ~MutexObject() override;

    bool Named() const { return !name.empty(); }
    bool Ready(DWORD thread) const override { return owner == 0 || owner == thread; }
    bool Take(DWORD thread) override {
        if (owner == thread) {
            ++count;
            return false;
        }
        owner = thread;
        count = 1;
        fileLockPending = Named();
        const bool wasAbandoned = abandoned;
        abandoned = false;
        return wasAbandoned;
    }
    bool NeedsCompletion() const override { return fileLockPending; }
    bool Complete(bool infinite, Clock::time_point deadline) override;
    void Untake(DWORD thread) override {
        if (owner != thread || count == 0) return;
        if (--count == 0) {
            owner = 0;
            fileLockPending = false;
            WakeWaiters();
        }
    }
    bool OpenLockFile();
    bool TryFileLock() { return OpenLockFile() && flock(fd, LOCK_EX | LOCK_NB) == 0; }

    const std::string name;
    DWORD owner = 0;
    unsigned count = 0;
    bool abandoned = false;
    // Touched by the owning thread only, between its take and the file lock.
    bool fileLockPending = false;
    int fd = -1;
    pid_t fdProcess = 0;
};

// Every mutex of the process, for the ones a thread leaves behind (under Lock()).
std::set<MutexObject *> &AllMutexes() {
    static auto *all = new std::set<MutexObject *>;
    return *all;
}

// Named mutexes of this process, by name (under Lock()).
std::map<std::string, MutexObject *> &NamedMutexes() {
    static auto *names = new std::map<std::string, MutexObject *>;
    return *names;
}

MutexObject::MutexObject(std::string name) : name(std::move(name)) { AllMutexes().insert(this); }

MutexObject::~MutexObject() {
    AllMutexes().erase(this);
    if (fd >= 0 && fdProcess == getpid()) close(fd);  // also drops a held file lock
    if (Named()) {
        auto found = NamedMutexes().find(name);
        if (found != NamedMutexes().end() && found->second == this) NamedMutexes().erase(found);
    }
}

bool MutexObject::OpenLockFile() {
    // A forked child must not share the parent's open file (flock locks
    // belong to it), so each process opens the file for itself.
    if (fd >= 0 && fdProcess == getpid()) return true;
    const std::string path = MutexLockDirectory() + MutexLockFileName(name);
    fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    fdProcess = getpid();
    if (fd < 0) SetLastError(static_cast<DWORD>(errno));
    return fd >= 0;
}

bool MutexObject::Complete(bool infinite, Clock::time_point deadline) {
    fileLockPending = false;
    if (!OpenLockFile()) return false;
    if (infinite) {
        while (flock(fd, LOCK_EX) != 0)
            if (errno != EINTR) return false;
        return true;
    }
    // Another process gives no signal we could sleep on, so a timed wait
    // looks at the lock in growing steps of at most 10 ms.
    auto step = std::chrono::microseconds(200);
    for (;;) {
        if (flock(fd, LOCK_EX | LOCK_NB) == 0) return true;
        if (errno != EWOULDBLOCK && errno != EINTR) return false;
        const auto now = Clock::now();
        if (now >= deadline) return false;
        std::this_thread::sleep_for(std::min<Clock::duration>(step, deadline - now));
        step = std::min<std::chrono::microseconds>(step * 2, std::chrono::milliseconds(10));
    }
}

}  // namespace

void AbandonMutexesOf(DWORD thread) {
    for (MutexObject *mutex : AllMutexes()) {
        if (mutex->owner != thread || mutex->count == 0) continue;
        if (mutex->Named() && mutex->fd >= 0 && mutex->fdProcess == getpid()) flock(mutex->fd, LOCK_UN);
        mutex->owner = 0;
        mutex->count = 0;
        mutex->fileLockPending = false;
        mutex->abandoned = true;
        mutex->WakeWaiters();
    }
}

}  // namespace qor::kernel

HANDLE CreateMutex(void *, BOOL initialOwner, const char *name) {
    using namespace qor::kernel;
    const DWORD thread = GetCurrentThreadId();
    if (initialOwner) WatchThreadExit();
    Guard guard;
    if (name && *name) {
        auto found = NamedMutexes().find(name);
        if (found != NamedMutexes().end() && found->second->fdProcess == getpid()) {
            ++found->second->references;
            SetLastError(kErrorAlreadyExists);
            return found->second;
        }
        auto *mutex = new MutexObject(name);
        if (!mutex->OpenLockFile()) {
            const DWORD error = GetLastError();
            delete mutex;
            SetLastError(error);
            return nullptr;
        }
        NamedMutexes()[name] = mutex;
        // Another process holding the name means it exists already there,
        // and then the caller does not become its owner.
        if (initialOwner && mutex->TryFileLock()) {
            mutex->owner = thread;
            mutex->count = 1;
        }
        SetLastError(0);
        return Register(mutex);
    }
    auto *mutex = new MutexObject;
    if (initialOwner) mutex->Take(thread);
    SetLastError(0);
    return Register(mutex);
}

BOOL ReleaseMutex(HANDLE handle) {
    using namespace qor::kernel;
    const DWORD thread = GetCurrentThreadId();
    Guard guard;
    auto *mutex = dynamic_cast<MutexObject *>(Find(handle));
    if (!mutex) {
        SetLastError(kErrorInvalidHandleMutex);
        return FALSE;
    }
    if (mutex->owner != thread || mutex->count == 0) {
        SetLastError(kErrorNotOwner);
        return FALSE;
    }
    if (--mutex->count == 0) {
        if (mutex->Named() && mutex->fd >= 0) flock(mutex->fd, LOCK_UN);
        mutex->owner = 0;
        mutex->WakeWaiters();
    }
    return TRUE;
}
