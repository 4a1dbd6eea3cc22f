// Licensing: the checks a product makes at its start. A signed product key
// (CProductKey), its binding to this computer's network adapters
// (LANInfoValidator), and the sealed time of the first run (CInstallationTime).
#pragma once

#include "qor/licensing/Ed25519Key.h"
#include "qor/licensing/InstallationTime.h"
#include "qor/licensing/LANInfoValidator.h"
#include "qor/licensing/LicenceDate.h"
#include "qor/licensing/ProductKey.h"
