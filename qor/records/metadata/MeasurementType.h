// A value a device reports and the system watches: polled every PollFrequency,
// it must stay within LowerLimit and UpperLimit; LogAction and PauseAction say
// what happens when it leaves them, CriticalTime how long it may. The units of
// the times are the device's and the scheduler's.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::MeasurementType : public MetaDataManagerBase {
    QOR_RECORD(MeasurementType)
    std::string MeasurementName;
    std::string Unit;
    int PollFrequency = 0;
    int CriticalTime = 0;
    double LowerLimit = 0.0;
    double UpperLimit = 0.0;
    LogActionOptions LogAction{};
    PauseActionOptions PauseAction{};
};
