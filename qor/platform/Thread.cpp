// Threads with waitable handles. The thread holds its own reference to its
// object, so its handle may be closed while it runs; the object becomes
// signalled, with the exit code, when the body returns.
#include <system_error>
#include <thread>

#include "qor/platform/SystemError.h"
#include "qor/platform/Waitable.h"
#include "qor/platform/detail/Kernel.h"

namespace qor::kernel {
namespace {

class ThreadObject final : public Object {
public:
    bool Ready(DWORD) const override { return ended; }
    bool ended = false;
    DWORD exitCode = STILL_ACTIVE;
};

}  // namespace
}  // namespace qor::kernel

namespace qor {

HANDLE BeginThread(std::function<DWORD()> body, DWORD *threadId) {
    using namespace qor::kernel;
    auto *object = new ThreadObject;
    object->references = 2;  // the caller's handle and the thread's own
    const DWORD id = NewThreadId();
    std::shared_ptr<ThreadQueue> queue = PrepareQueue(id);
    HANDLE handle;
    {
        Guard guard;
        handle = Register(object);
    }
    try {
        std::thread([object, id, queue, body = std::move(body)]() mutable {
            AdoptThreadId(id);
            AdoptQueue(std::move(queue));
            const DWORD code = body();
            body = nullptr;  // whatever the body captured goes before the handle signals
            Guard guard;
            AbandonMutexesOf(id);  // as the thread ends, not later at its cleanup
            object->exitCode = code;
            object->ended = true;
            object->WakeWaiters();
            Release(object);
        }).detach();
    } catch (const std::system_error &error) {
        Guard guard;
        ForgetQueue(id);
        Release(object);
        Release(object);
        SetLastError(static_cast<DWORD>(error.code().value()));
        return nullptr;
    }
    if (threadId) *threadId = id;
    return handle;
}

}  // namespace qor

HANDLE CreateThread(void *, std::size_t, LPTHREAD_START_ROUTINE start, void *parameter, DWORD,
                    DWORD *threadId) {
    return qor::BeginThread([start, parameter] { return start(parameter); }, threadId);
}

std::uintptr_t _beginthreadex(void *, unsigned, unsigned (*start)(void *), void *argument,
                              unsigned, unsigned *threadId) {
    DWORD id = 0;
    HANDLE handle = qor::BeginThread([start, argument] { return DWORD(start(argument)); }, &id);
    if (threadId) *threadId = id;
    return reinterpret_cast<std::uintptr_t>(handle);
}

BOOL GetExitCodeThread(HANDLE handle, DWORD *exitCode) {
    using namespace qor::kernel;
    Guard guard;
    auto *thread = dynamic_cast<ThreadObject *>(Find(handle));
    if (!thread || !exitCode) {
        SetLastError(6);  // ERROR_INVALID_HANDLE
        return FALSE;
    }
    *exitCode = thread->exitCode;
    return TRUE;
}
