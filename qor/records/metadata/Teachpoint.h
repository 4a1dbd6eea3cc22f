// A point a robot was taught. Its coordinates are the robot's own, so they
// travel as free Parameters.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Parameter.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Teachpoint : public MetaDataManagerBase {
    QOR_RECORD(Teachpoint)
    std::string Name;
    std::vector<ObjectInstanceXMLMarshaller::Parameter> Parameters;
};
