// One line per pipetting record: a record that is not listed here cannot be
// built by name (qor record show, qor plate show, transports).
#include "qor/records/pipette/PipetteRecordTypes.h"

#include "qor/records/pipette.h"

namespace PipetteXMLMarshaller {

std::span<const qor::RecordType> RecordTypes() {
    static constexpr const char family[] = "PipetteXMLMarshaller";
    static constexpr qor::RecordType types[] = {
        qor::RecordTypeOf<Well>(family),
        qor::RecordTypeOf<SourceWell>(family),
        qor::RecordTypeOf<DestinationWell>(family),
        qor::RecordTypeOf<WellSelection>(family),
        qor::RecordTypeOf<PipetteHead>(family),
        qor::RecordTypeOf<PipetteHeadMode>(family),
        qor::RecordTypeOf<TipPosition>(family),
        qor::RecordTypeOf<TipBoxState>(family),
        qor::RecordTypeOf<TipBoxLocation>(family),
        qor::RecordTypeOf<TipBoxDevice>(family),
        qor::RecordTypeOf<TipBoxDevices>(family),
        qor::RecordTypeOf<TipBoxInstance>(family),
        qor::RecordTypeOf<ProcessTipBox>(family),
        qor::RecordTypeOf<ProcessTipBoxes>(family),
        qor::RecordTypeOf<SingleTipBoxStateQuery>(family),
        qor::RecordTypeOf<AllTipBoxStateQuery>(family),
        qor::RecordTypeOf<TipChange>(family),
        qor::RecordTypeOf<TipChanges>(family),
        qor::RecordTypeOf<DiagnosticsTipOperation>(family),
        qor::RecordTypeOf<PipetteTaskQuery>(family),
        qor::RecordTypeOf<PipetteWizardQuery>(family),
        qor::RecordTypeOf<CherryPickData>(family),
        qor::RecordTypeOf<CherryPickTransfer>(family),
        qor::RecordTypeOf<CherryPickTransfers>(family),
        qor::RecordTypeOf<HighLevelPipetteTechnique>(family),
        qor::RecordTypeOf<PipetteTechniques>(family),
        qor::RecordTypeOf<DevicePipetteTechnique>(family),
        qor::RecordTypeOf<DevicePipetteTechniques>(family),
        qor::RecordTypeOf<VolumeChange>(family),
        qor::RecordTypeOf<VolumeChanges>(family),
        qor::RecordTypeOf<VolumeUpdate>(family),
        qor::RecordTypeOf<VolumeUpdates>(family),
        qor::RecordTypeOf<LiquidTransferPair>(family),
        qor::RecordTypeOf<LiquidTransferCompleteUpdate>(family),
    };
    return types;
}

}  // namespace PipetteXMLMarshaller
