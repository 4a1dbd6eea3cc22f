#include "qor/records/metadata/LocationAvailable.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, LocationAvailable,
    attribute("Device", &LocationAvailable::Device),
    attribute("Location", &LocationAvailable::Location),
    attribute("Robot", &LocationAvailable::Robot),
    attribute("RobotObjectName", &LocationAvailable::RobotObjectName),
    attribute("Labware", &LocationAvailable::Labware),
    attribute("TaskName", &LocationAvailable::TaskName).as("Task name"),
    attribute("PlateName", &LocationAvailable::PlateName).as("Plate name"),
    attribute("Name", &LocationAvailable::Name),
    attribute("PlateInstance", &LocationAvailable::PlateInstance)
        .as("Plate instance").parameterType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_INTEGER),
    attribute("PlateLocation", &LocationAvailable::PlateLocation).as("Plate location"),
    attribute("PlateDevice", &LocationAvailable::PlateDevice).as("Plate Device"),
    attribute("IsSourceLocation", &LocationAvailable::IsSourceLocation),
    attribute("IsRelidding", &LocationAvailable::IsRelidding),
    attribute("IsSimulating", &LocationAvailable::IsSimulating),
    child("StorageLocation", &LocationAvailable::StorageLocation),
    child("Command", &LocationAvailable::Command))
