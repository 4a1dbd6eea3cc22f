// MetaDataManager::Test: a smoke run of the record code that a plug-in can
// call at start-up; it builds, writes and reads back a small device
// description and keeps nothing.
#include "qor/marshal/ObjectInstance.h"
#include "qor/records/metadata/MetaData.h"

void MetaDataManager::Test() {
    for (int round = 0; round < 10; ++round) {
        MetaData description;
        description.Version = "1.0";
        description.Device.Name = "Device " + std::to_string(round);
        description.Device.PreferredTab = PreferredTabs[round % 7];
        description.Device.Locations.emplace_back().Name = "Stage";
        Command &command = description.Commands.emplace_back();
        command.Name = "Command " + std::to_string(round);
        ObjectInstanceXMLMarshaller::Parameter::AddParameterInt(command.Parameters, "Count", long{round});
        const MetaData again(description.ToXMLString());
        ObjectInstanceXMLMarshaller::ObjectInstance instance;
        again.ToObjectInstance(instance);
    }
}
