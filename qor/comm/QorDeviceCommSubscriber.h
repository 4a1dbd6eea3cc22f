// What a driver implements to hear every message of a device (or of one
// command). Called on the link's receive thread with no lock held: a
// subscriber may send commands there, but must never wait for a reply, since
// only that very thread could deliver it.
#pragma once

#include <vector>

class QorDeviceCommSubscriber {
public:
    virtual ~QorDeviceCommSubscriber() = default;
    // A message that came in a long frame (every Ethernet message does).
    virtual void onLongMessage(unsigned char command, const std::vector<unsigned char> &data) = 0;
    // A message that came in a short serial frame.
    virtual void onShortMessage(unsigned char command, const std::vector<unsigned char> &data) = 0;
    // A damaged message arrived (bad checksum on a serial line).
    virtual void onCommError() = 0;
};
