// Persistent settings: the registry store, typed values, key access, the
// settings table of a driver, recent-file lists, and export to XML.
#pragma once

#include "qor/settings/RegVal.h"
#include "qor/settings/Registry.h"
#include "qor/settings/RegistryMRU.h"
#include "qor/settings/RegistryMap.h"
#include "qor/settings/RegistryStore.h"
#include "qor/settings/XMLRegistry.h"
