// A client of the installed library: it must compile and link against the
// installed headers and libraries alone.
#include "qor/platform.h"

#include <cstdio>

int main() {
    HANDLE event = CreateEvent(nullptr, TRUE, TRUE, nullptr);
    DWORD result = WaitForSingleObject(event, 0);
    CloseHandle(event);
    std::printf("client: wait returned %u\n", result);
    return result == WAIT_OBJECT_0 ? 0 : 1;
}
