// Asks a pipetting device about a kind of task.
#pragma once

#include "qor/marshal/Record.h"

namespace PipetteXMLMarshaller {

// A set of task bits; the bits have no names here, only the groups the
// Is*Task functions test.
enum PipetteTaskType : int {};

class PipetteTaskQuery : public PipetteXMLMarshallerBase {
    QOR_RECORD(PipetteTaskQuery)
    PipetteTaskType TaskType = PipetteTaskType{1024};

    static bool IsFluidTask(PipetteTaskType type);  // any bit of 0x6704F
    static bool IsHeadTask(PipetteTaskType type);   // bit 0x200
    static bool IsPumpTask(PipetteTaskType type);   // any bit of 0x60808
    static bool IsTipTask(PipetteTaskType type);    // any bit of 0x180B0
    static bool IsWashTask(PipetteTaskType type);   // any bit of 0x40108
};

}  // namespace PipetteXMLMarshaller
