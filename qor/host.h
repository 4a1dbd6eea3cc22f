// Host information: the machine's inventory, file and system versions,
// network adapters, CRC-32 and the crypto wrapper.
#pragma once

#include "qor/host/CRC_32.h"
#include "qor/host/Crypto.h"
#include "qor/host/LANInfo.h"
#include "qor/host/LANInfoException.h"
#include "qor/host/OSVersionInfo.h"
#include "qor/host/SysInfo.h"
#include "qor/host/VersionInfo.h"
