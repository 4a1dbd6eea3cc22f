// The portability layer: Win32-shaped handles, events, waits, threads, message
// queues, critical sections, named mutexes, time and error texts on POSIX.
#pragma once

#include "qor/platform/CriticalSection.h"
#include "qor/platform/Files.h"
#include "qor/platform/Messages.h"
#include "qor/platform/ProgressTarget.h"
#include "qor/platform/QorException.h"
#include "qor/platform/SystemError.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"
#include "qor/platform/Win32Types.h"
#include "qor/platform/WinGeometry.h"
