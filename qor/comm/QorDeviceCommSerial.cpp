// The connect overload that opens its own serial link.
#include "qor/comm/QorDeviceComm.h"

#if __has_include("qor/comm/QorSerialConnection.h")
#include "qor/comm/QorSerialConnection.h"

void QorDeviceComm::connect(unsigned int port, unsigned int baud, unsigned char byteSize,
                            unsigned char parity, unsigned char stopBits, short flowControl) {
    delete connection;
    // Never left pointing at the link just destroyed: when opening throws,
    // the object has no connection (a dangling one could only crash later).
    connection = nullptr;
    connection = new QorSerialConnection(static_cast<unsigned short>(port), baud, this, byteSize,
                                         parity, stopBits, flowControl);
}
#else
void QorDeviceComm::connect(unsigned int, unsigned int, unsigned char, unsigned char,
                            unsigned char, short) {
    delete connection;
    connection = nullptr;
    throw QorDeviceCommException("Failed to open the specified serial port");
}
#endif
