// One line per device-metadata record: a record that is not listed here
// cannot be built by name (qor record show, transports).
#include "qor/records/metadata/MetaDataRecordTypes.h"

#include "qor/records/metadata.h"

namespace qor {

std::span<const RecordType> MetaDataRecordTypes() {
    static constexpr const char family[] = "MetaDataManager";
    using M = MetaDataManager;
    static constexpr RecordType types[] = {
        RecordTypeOf<M::MetaData>(family),
        RecordTypeOf<M::Version>(family),
        RecordTypeOf<M::Device>(family),
        RecordTypeOf<M::Command>(family),
        RecordTypeOf<M::MeasurementType>(family),
        RecordTypeOf<M::MeasurementTypeVector>(family),
        RecordTypeOf<M::Location>(family),
        RecordTypeOf<M::LocationVector>(family),
        RecordTypeOf<M::LocationAction>(family),
        RecordTypeOf<M::Layout>(family),
        RecordTypeOf<M::LayoutVector>(family),
        RecordTypeOf<M::Teachpoint>(family),
        RecordTypeOf<M::TeachpointsData>(family),
        RecordTypeOf<M::DeviceLocationTeachpoint>(family),
        RecordTypeOf<M::DeviceLocationTeachpoints>(family),
        RecordTypeOf<M::RobotMetaData>(family),
        RecordTypeOf<M::StorageDimension>(family),
        RecordTypeOf<M::StorageDimensions>(family),
        RecordTypeOf<M::StorageLocationCoordinate>(family),
        RecordTypeOf<M::StorageLocation>(family),
        RecordTypeOf<M::IsStackFull>(family),
        RecordTypeOf<M::ScanStackData>(family),
        RecordTypeOf<M::Barcode>(family),
        RecordTypeOf<M::LocationAvailable>(family),
        RecordTypeOf<M::AsyncTaskList>(family),
        RecordTypeOf<M::IRobotDriver_Move_Input>(family),
        RecordTypeOf<M::IRobotDriver_Move_Output>(family),
        RecordTypeOf<M::IRobotDriver_DelidRelid_Input>(family),
        RecordTypeOf<M::IRobotDriver_DelidRelid_Output>(family),
        RecordTypeOf<M::IRobotDriver_CheckPlatePresent_Input>(family),
        RecordTypeOf<M::IRobotDriver_CheckPlatePresent_Output>(family),
        RecordTypeOf<M::IRobotDriver_GetPlatePresentResult_Input>(family),
        RecordTypeOf<M::IRobotDriver_GetPlatePresentResult_Output>(family),
        RecordTypeOf<M::IRobotDriver_CheckBarCode_Input>(family),
        RecordTypeOf<M::IRobotDriver_CheckBarCode_Output>(family),
        RecordTypeOf<M::IRobotDriver_GetSimulationTimes_Input>(family),
        RecordTypeOf<M::IRobotDriver_GetSimulationTimes_Output>(family),
        RecordTypeOf<M::IRobotDriver_GetSpeed_Input>(family),
        RecordTypeOf<M::IRobotDriver_GetSpeed_Output>(family),
        RecordTypeOf<M::IRobotDriver_SetSpeed_Input>(family),
        RecordTypeOf<M::IRobotDriver_SetSpeed_Output>(family),
        RecordTypeOf<M::IRobotDriver_GetTeachpoints_Input>(family),
        RecordTypeOf<M::IRobotDriver_GetTeachpoints_Output>(family),
        RecordTypeOf<M::Query>(family),
        RecordTypeOf<M::Response>(family),
        RecordTypeOf<M::Update>(family),
        RecordTypeOf<M::UpdateParameter>(family),
        RecordTypeOf<M::ObjectDataChanged>(family),
        RecordTypeOf<M::CompileError>(family),
        RecordTypeOf<M::CompileResult>(family),
        RecordTypeOf<M::PrinterFieldMetaData>(family),
        RecordTypeOf<M::PrinterFormatMetaData>(family),
        RecordTypeOf<M::PrinterMetaData>(family),
    };
    return types;
}

}  // namespace qor
