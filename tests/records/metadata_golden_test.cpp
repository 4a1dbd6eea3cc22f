// The bytes of the device metadata family, pinned by documents: a whole
// device description, a query and its answer, and a robot driver message,
// each built here field by field, must be written exactly as its golden file.
// (RecordGoldenTest reads every golden document back, and checks the family's
// field tables against MetaDataManager.fields.) QOR_UPDATE_GOLDEN=1 rewrites
// the documents from the records: review the diff before committing it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>

#include "qor/records/metadata.h"

using ObjectInstanceXMLMarshaller::Parameter;
using M = MetaDataManager;

namespace {

Parameter MakeParameter(const char *name, ObjectInstanceXMLMarshaller::ParameterType type, const char *value) {
    Parameter parameter;
    parameter.Name = name;
    parameter.Type = type;
    parameter.Value = value;
    return parameter;
}

M::MetaData Sealer() {
    using namespace ObjectInstanceXMLMarshaller;
    M::MetaData description;
    description.Version = "1.0";
    M::Version &version = description.Versions.emplace_back();
    version.Name = "First release";
    version.Date = "2024-03-01";
    version.Author = "R. Okafor";
    version.Version_ = "1.0";
    version.Company = "Lab & Co";

    M::Device &device = description.Device;
    device.Name = "Sealer";
    device.Description = "Heat sealer with a plate stack";
    device.HardwareManufacturer = "Lab & Co";
    device.PreferredTab = M::PreferredTabs[2];
    device.RegistryName = "Sealer 1";
    device.HasBarcodeReader = false;
    device.DynamicLocations = true;
    Parameter port = MakeParameter("Port", PARAMETER_TYPE_INTEGER, "3");
    port.AddRange("1");
    port.AddRange("2");
    port.AddRange("3");
    device.Parameters.push_back(port);
    device.Parameters.push_back(MakeParameter("Simulate", PARAMETER_TYPE_BOOL, "0"));
    M::Location &stage = device.Locations.emplace_back();
    stage.Name = "Stage";
    M::Location &stack = device.Locations.emplace_back();
    stack.Name = "Stack 'A'";
    stack.Type = static_cast<M::LocationType>(M::LOCATION_TYPE_NORMAL | M::LOCATION_TYPE_STACK);
    stack.Group = M::ExclusivityType{2};
    stack.Offset = 1.5;
    stack.MaxStackHeight = 220.25;
    M::MeasurementType &temperature = device.MeasurementTypes.emplace_back();
    temperature.MeasurementName = "Plate temperature";
    temperature.Unit = "\xB0" "C";  // a byte above 127 passes through untouched
    temperature.PollFrequency = 1000;
    temperature.CriticalTime = 60;
    temperature.LowerLimit = -20.5;
    temperature.UpperLimit = 180;
    temperature.LogAction = M::LogActionOptions{1};
    temperature.PauseAction = M::PauseActionOptions{2};
    device.StorageDimensions.Name0 = M::StorageDimensions::Cassette;
    device.StorageDimensions.Name1 = M::StorageDimensions::Slot;
    device.StorageDimensions.Dimensions.emplace_back().Size = 4;
    device.StorageDimensions.Dimensions.emplace_back().Size = 25;
    device.StorageDimensions.DirectStorageAccess = true;
    device.RobotMetaData.ReachesExternalLocations = false;
    device.MiscAttributes = M::MiscAttributes{5};
    device.IsDeviceUnsafe = true;

    M::Command &seal = description.Commands.emplace_back();
    seal.Name = "Seal";
    seal.DisplayName = "Seal plate";
    seal.Description = "Seals a plate with foil <at temperature>";
    seal.PreferredTab = M::PreferredTabs[2];
    seal.ProtocolName = "Seal";
    seal.Editor = static_cast<M::EditorType>(M::EDITOR_TYPE_PRIMARY | M::EDITOR_TYPE_PRE_POST);
    seal.Compiler = M::CompilerAction{1};
    Parameter time = MakeParameter("Time", PARAMETER_TYPE_FLOAT, "2.5");
    time.Units = "s";
    time.Script = "plate.sealTime";
    seal.Parameters.push_back(time);
    Parameter folder = MakeParameter("Log folder", PARAMETER_TYPE_DIRECTORY, "/var/log/sealer");
    folder.Style = PARAMETER_STYLE_1;
    folder.Scriptable = false;
    folder.AllowedLabwareClasses = {"96 well", "384 well"};
    seal.Parameters.push_back(folder);
    M::Layout &layout = seal.Layouts.emplace_back();
    layout.Name = "Default";
    layout.Labware = "96 well PCR";
    seal.Locations = {"Stage", ""};
    seal.AsyncParameters.emplace_back().Name = "Progress";
    seal.NextTaskToExecute = false;
    seal.ProcessName = "Assay";
    seal.Index = 2;

    M::Command &peel = description.Commands.emplace_back();
    peel.Name = "Peel";
    peel.VisibleAvailability = false;
    return description;
}

M::Query LocationQuery() {
    M::Query query;
    query.Category = M::Query::QueryCategoryLocationInformation;
    query.Source = "Scheduler";
    query.Destination = "Sealer";
    Parameter::AddParameterString(query.Parameters, "Location", "Stack 'A'");
    return query;
}

M::Response LocationResponse() {
    M::Response response;
    response.Category = M::Query::QueryCategoryLocationInformation;
    response.Source = "Sealer";
    Parameter::AddParameterInt(response.Parameters, "Type", 3L);
    Parameter::AddParameterFloat(response.Parameters, "MaxStackHeight", 220.25);
    Parameter::AddParameterBool(response.Parameters, "Occupied", true, "a plate stands there");
    return response;
}

M::IRobotDriver_Move_Input Move() {
    M::IRobotDriver_Move_Input move;
    move.PickupDeviceName = "Sealer";
    move.PickupLocationName = "Stage";
    move.PickupLocation = "Sealer - Stage";
    move.PickupLocationOffset = 0.75;
    move.DropoffLocation = "Hotel - 3";
    move.DropoffLeanLocation = "Hotel - lean";
    move.DropoffLocationOffset = -2;
    move.PayloadThickness = 14.35;
    move.PlateSealed = true;
    return move;
}

std::string GoldenPath(const char *file) {
    return std::string(QOR_SOURCE_DIR) + "/tests/records/golden/metadata/" + file;
}

template <class R>
void ExpectGolden(const char *file, const R &record) {
    SCOPED_TRACE(file);
    const std::string written = record.ToXMLString();
    if (std::getenv("QOR_UPDATE_GOLDEN")) std::ofstream(GoldenPath(file), std::ios::binary) << written;
    std::ifstream in(GoldenPath(file), std::ios::binary);
    ASSERT_TRUE(in) << "missing golden file";
    std::stringstream golden;
    golden << in.rdbuf();
    EXPECT_EQ(written, golden.str());
}

TEST(MetaDataGolden, RecordsAreWrittenToTheByte) {
    ExpectGolden("sealer.xml", Sealer());
    ExpectGolden("query.xml", LocationQuery());
    ExpectGolden("response.xml", LocationResponse());
    ExpectGolden("robot-move.xml", Move());
}

}  // namespace
