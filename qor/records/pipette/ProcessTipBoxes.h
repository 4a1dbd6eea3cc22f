// The process tip boxes of a protocol; Protocol is the protocol's path.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/ProcessTipBox.h"

namespace PipetteXMLMarshaller {

class ProcessTipBoxes : public PipetteXMLMarshallerBase {
    QOR_RECORD(ProcessTipBoxes)
    std::string Protocol;
    std::string SavedFilename;
    std::vector<ProcessTipBox> Processes;

    // Each process of source copies its state into the first process of
    // target of the same name; with addMissing, a process target lacks is
    // first appended as a copy. The first flag has no effect.
    static void CopyTipStates(ProcessTipBoxes &target, const ProcessTipBoxes &source, bool flag, bool addMissing);
    // Compares Protocol alone; the flag has no effect.
    static bool AreProcessesEqual(const ProcessTipBoxes &first, const ProcessTipBoxes &second, bool flag);

    // The boxes as the user edits them: a category per process with its
    // state, and unless withoutInstances a Parameter per instance, each of
    // type 23 holding a TipBoxState document. withFile first replaces the
    // categories with "Tip tracking info" and the protocol's path.
    void ConvertToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance, bool withFile,
                                 bool withoutInstances) const;
    // Reads back what ConvertToObjectInstance wrote: the path, and a process
    // per other category. Throws XMLParserException, changing nothing, when
    // a state isn't a document.
    void ConvertFromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &instance);
};

}  // namespace PipetteXMLMarshaller
