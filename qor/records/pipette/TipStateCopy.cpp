// Carrying tip states over from a saved file to a changed protocol or
// device list. A copy gives the target the source's head mode, positions
// and well count, which is the whole of a TipBoxState. Targets are found by
// name, the first of a name winning; an index of names keeps long lists
// linear.
#include <string_view>
#include <unordered_map>
#include <vector>

#include "qor/records/pipette/ProcessTipBoxes.h"
#include "qor/records/pipette/TipBoxDevices.h"

namespace PipetteXMLMarshaller {
namespace {

// The first index of each name in items, by the name member.
template <class Item>
class FirstByName {
public:
    FirstByName(const std::vector<Item> &items, std::string Item::*name) : name_(name) {
        index_.reserve(items.size());
        for (std::size_t i = 0; i < items.size(); ++i) Add(items, i);
    }
    void Add(const std::vector<Item> &items, std::size_t i) { index_.try_emplace(items[i].*name_, i); }
    // The index of the first item named name, or npos.
    std::size_t Find(std::string_view name) const {
        const auto found = index_.find(name);
        return found == index_.end() ? npos : found->second;
    }
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

private:
    std::string Item::*name_;
    // Views into the names of items, which stay put while this index lives.
    std::unordered_map<std::string_view, std::size_t> index_;
};

}  // namespace

void ProcessTipBox::CopyTipStates(ProcessTipBox &target, const ProcessTipBox &source, bool) {
    if (target.ProcessName == source.ProcessName && target.TipBoxState.NumWells == source.TipBoxState.NumWells) {
        target.TipBoxState = source.TipBoxState;
    }
}

void ProcessTipBoxes::CopyTipStates(ProcessTipBoxes &target, const ProcessTipBoxes &source, bool flag,
                                    bool addMissing) {
    auto &processes = target.Processes;
    // Appending may move the names the index views: reserve room for every
    // source process first.
    processes.reserve(processes.size() + (addMissing ? source.Processes.size() : 0));
    FirstByName<ProcessTipBox> byName(processes, &ProcessTipBox::ProcessName);
    for (const ProcessTipBox &from : source.Processes) {
        std::size_t i = byName.Find(from.ProcessName);
        if (i == byName.npos) {
            if (!addMissing) continue;
            processes.push_back(from);
            i = processes.size() - 1;
            byName.Add(processes, i);
        }
        ProcessTipBox::CopyTipStates(processes[i], from, flag);
    }
}

void TipBoxDevice::CopyTipStates(TipBoxDevice &target, const TipBoxDevice &source) {
    if (target.DeviceName != source.DeviceName) return;
    const FirstByName<TipBoxLocation> byName(target.Locations, &TipBoxLocation::Location);
    for (const TipBoxLocation &from : source.Locations) {
        const std::size_t i = byName.Find(from.Location);
        if (i == byName.npos) continue;
        TipBoxLocation &to = target.Locations[i];
        if (to.HasTipBox && from.HasTipBox && to.TipBoxState.NumWells == from.TipBoxState.NumWells) {
            to.TipBoxState = from.TipBoxState;
        }
    }
}

void TipBoxDevices::CopyTipStates(TipBoxDevices &target, const TipBoxDevices &source) {
    if (target.DeviceFile != source.DeviceFile) return;
    const FirstByName<TipBoxDevice> byName(target.Devices, &TipBoxDevice::DeviceName);
    for (const TipBoxDevice &from : source.Devices) {
        const std::size_t i = byName.Find(from.DeviceName);
        if (i != byName.npos) TipBoxDevice::CopyTipStates(target.Devices[i], from);
    }
}

}  // namespace PipetteXMLMarshaller
