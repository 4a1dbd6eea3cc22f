// A client of the installed library: it must compile and link against the
// installed headers and libraries alone, and a record must make the round
// trip through its document.
#include "qor/licensing.h"
#include "qor/marshal.h"
#include "qor/platform.h"
#include "qor/records/hooks.h"
#include "qor/xml.h"

#include <cstdio>

int main() {
    HANDLE event = CreateEvent(nullptr, TRUE, TRUE, nullptr);
    DWORD waited = WaitForSingleObject(event, 0);
    CloseHandle(event);

    HooksPluginXMLMarshaller::ProtocolPaused paused;
    paused.Path = "plate & lid";
    paused.PauseType = 3;
    HooksPluginXMLMarshaller::ProtocolPaused back(paused.ToXMLString());

    // A typed key is checked against the public key built into the library.
    CProductKey key;
    const bool refused = key.Load("0448F-NOT-A-KEY") != CProductKey::Valid;

    std::printf("client: wait %u, record %s/%d\n", waited, back.Path.c_str(), back.PauseType);
    return waited == WAIT_OBJECT_0 && back.Path == paused.Path && back.PauseType == 3 && refused ? 0 : 1;
}
