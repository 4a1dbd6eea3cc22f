// The device metadata records: what a device declares about itself, and the
// messages between the scheduler, devices and robot drivers, all nested in
// class MetaDataManager.
#pragma once

#include "qor/marshal.h"
