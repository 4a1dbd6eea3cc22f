// The pipetting records: wells, well selections, head modes, tip state,
// techniques and transfers, in namespace PipetteXMLMarshaller.
#pragma once

#include "qor/marshal.h"
