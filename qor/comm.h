// Device communication: frames, QorDeviceComm, the socket layer and the
// Ethernet and serial links.
#pragma once

#include "qor/comm/CSuperSocket.h"
#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/QorDeviceCommException.h"
#include "qor/comm/QorDeviceCommSubscriber.h"
#include "qor/comm/QorDeviceConnection.h"
#include "qor/comm/QorEthernetConnection.h"
#include "qor/comm/SocketErrors.h"
#if __has_include("qor/comm/CSerial.h")
#include "qor/comm/CSerial.h"
#endif
#if __has_include("qor/comm/QorSerialConnection.h")
#include "qor/comm/QorSerialConnection.h"
#endif
