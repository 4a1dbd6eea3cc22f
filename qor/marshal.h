// The marshalling core: the record frame, Convert, Parameter and the
// ObjectInstance property bag.
#pragma once

#include "qor/marshal/AsyncParameter.h"
#include "qor/marshal/BaseObjectDescription.h"
#include "qor/marshal/ChangeRecord.h"
#include "qor/marshal/Convert.h"
#include "qor/marshal/DatabaseBackEndTypes.h"
#include "qor/marshal/ModuleObjectDescription.h"
#include "qor/marshal/ObjectDescription.h"
#include "qor/marshal/ObjectInstance.h"
#include "qor/marshal/ObjectManagerErrors.h"
#include "qor/marshal/ObjectParameterCategory.h"
#include "qor/marshal/Parameter.h"
#include "qor/marshal/ParameterType.h"
#include "qor/marshal/Range.h"
#include "qor/marshal/Record.h"
#include "qor/marshal/RecordFamilies.h"
#include "qor/marshal/RecordType.h"
#include "qor/marshal/XMLMarshallableObject.h"
