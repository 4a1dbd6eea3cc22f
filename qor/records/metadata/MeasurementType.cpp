#include "qor/records/metadata/MeasurementType.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, MeasurementType,
    attribute("MeasurementName", &MeasurementType::MeasurementName),
    attribute("Unit", &MeasurementType::Unit),
    attribute("PollFrequency", &MeasurementType::PollFrequency),
    attribute("CriticalTime", &MeasurementType::CriticalTime),
    attribute("LowerLimit", &MeasurementType::LowerLimit),
    attribute("UpperLimit", &MeasurementType::UpperLimit),
    enumAttribute("LogAction", &MeasurementType::LogAction),
    enumAttribute("PauseAction", &MeasurementType::PauseAction))
