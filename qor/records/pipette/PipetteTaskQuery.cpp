#include "qor/records/pipette/PipetteTaskQuery.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {
namespace {

// The task bits of each kind of task.
constexpr int kFluidTaskBits = 0x6704F;
constexpr int kHeadTaskBits = 0x200;
constexpr int kPumpTaskBits = 0x60808;
constexpr int kTipTaskBits = 0x180B0;
constexpr int kWashTaskBits = 0x40108;

}  // namespace

QOR_DEFINE_RECORD(PipetteTaskQuery,
    enumAttribute("TaskType", &PipetteTaskQuery::TaskType).as("Task type"))

bool PipetteTaskQuery::IsFluidTask(PipetteTaskType type) { return type & kFluidTaskBits; }
bool PipetteTaskQuery::IsHeadTask(PipetteTaskType type) { return type & kHeadTaskBits; }
bool PipetteTaskQuery::IsPumpTask(PipetteTaskType type) { return type & kPumpTaskBits; }
bool PipetteTaskQuery::IsTipTask(PipetteTaskType type) { return type & kTipTaskBits; }
bool PipetteTaskQuery::IsWashTask(PipetteTaskType type) { return type & kWashTaskBits; }

}  // namespace PipetteXMLMarshaller
