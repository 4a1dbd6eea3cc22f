// One line per hook record: a record that is not listed here cannot be
// built by name (qor record show, transports).
#include "qor/records/hooks/HooksRecordTypes.h"

#include "qor/records/hooks.h"

namespace HooksPluginXMLMarshaller {

std::span<const qor::RecordType> RecordTypes() {
    static constexpr const char family[] = "HooksPluginXMLMarshaller";
    static constexpr qor::RecordType types[] = {
        qor::RecordTypeOf<FutureProtocol>(family),
        qor::RecordTypeOf<ProtocolStarted>(family),
        qor::RecordTypeOf<ProtocolFinished>(family),
        qor::RecordTypeOf<ProtocolPaused>(family),
        qor::RecordTypeOf<Aborted>(family),
        qor::RecordTypeOf<Deadlock>(family),
        qor::RecordTypeOf<FileLoaded>(family),
        qor::RecordTypeOf<FileSaved>(family),
        qor::RecordTypeOf<CompileComplete>(family),
        qor::RecordTypeOf<BarCodeRead>(family),
        qor::RecordTypeOf<BarCodeMisread>(family),
        qor::RecordTypeOf<LiquidTransferComplete>(family),
        qor::RecordTypeOf<ScriptPlateError>(family),
        qor::RecordTypeOf<ProcessStarting>(family),
        qor::RecordTypeOf<ProcessFinishing>(family),
        qor::RecordTypeOf<TaskStarting>(family),
        qor::RecordTypeOf<TaskFinishing>(family),
        qor::RecordTypeOf<Error>(family),
        qor::RecordTypeOf<PauseSchedulerOptionSelected>(family),
        qor::RecordTypeOf<SendTwitter>(family),
        qor::RecordTypeOf<LoginComplete>(family),
        qor::RecordTypeOf<LogoutComplete>(family),
        qor::RecordTypeOf<RobotMove>(family),
        qor::RecordTypeOf<RobotPickComplete>(family),
        qor::RecordTypeOf<RobotPlaceComplete>(family),
        qor::RecordTypeOf<HookResult>(family),
        qor::RecordTypeOf<HookResults>(family),
    };
    return types;
}

}  // namespace HooksPluginXMLMarshaller
