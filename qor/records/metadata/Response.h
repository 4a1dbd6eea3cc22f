// The answer to a Query: the same Category, and the values in Parameters.
// Written as a document of the file type "QueryResponse".
#pragma once

#include "qor/records/metadata/MessageFields.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Response : public MetaDataManagerBase, public qor::metadata::MessageFields {
    QOR_RECORD(Response)
    // Parameter names.
    static constexpr char ResponseParameterLabware[] = "Labware";
    static constexpr char ResponseParameterVariableValue[] = "VariableValue";
    static constexpr char ResponseDeviceName[] = "DeviceName";
    static constexpr char ResponseParameterPipetteTechniques[] = "PipetteTechniques";
    static constexpr char ResponseParameterPipetteTechniquesPath[] = "PipetteTechniquesPath";
    static constexpr char ResponseParameterApplicationName[] = "ApplicationName";
    static constexpr char ResponseParameterApplicationVersion[] = "ApplicationVersion";
    static constexpr char ResponseShouldScan[] = "ShouldScan";
};
