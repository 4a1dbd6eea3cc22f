// Task execution: device operations as abortable, retryable state-machine
// tasks on pooled threads, and the scope guards for locks, flags and counters.
#pragma once

#include "qor/platform.h"
#include "qor/task/AlertablePumpingSleep.h"
#include "qor/task/LockGuards.h"
#include "qor/task/StateMachine.h"
#include "qor/task/StateMachineListener.h"
#include "qor/task/StateMachineTask.h"
#include "qor/task/TaskResults.h"
#include "qor/task/ThreadPool.h"
