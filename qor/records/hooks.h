// The hook event records: what the scheduler hands to hook plug-ins, and
// their answers.
#pragma once

#include "qor/marshal.h"
#include "qor/records/hooks/NotSpecified.h"
#include "qor/records/hooks/ProtocolPaused.h"
