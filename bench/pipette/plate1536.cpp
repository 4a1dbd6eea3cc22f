// Whole-plate work on a 1536-well plate with a whole 96-channel head (a
// spacing ratio of 4): the library's functions on vectors of Well against
// the same set work on a plain bitset of the plate's wells, and the
// operations per second of the work that has no set peer (the head and
// labware check over every mode, the tip state conversions).
//
// The peers keep their sets as bits and answer in bits; the library takes
// and gives std::vector<Well>, a list of polymorphic records of 16 bytes,
// because that is the type the records and their clients share. Every peer
// is checked to give the library's answer before anything is timed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <bitset>
#include <cstdio>
#include <random>
#include <vector>

#include "support/BenchTimes.h"
#include "qor/records/pipette.h"

using namespace PipetteXMLMarshaller;

namespace {

constexpr int kRows = 32, kColumns = 48, kWells = 1536, kRatio = 4;
using Plate = std::bitset<kWells>;

PipetteHeadMode WholeHead() { return PipetteHeadMode(); }

int Index(int row, int column) { return row * kColumns + column; }

// The wells a whole 96 head touches from A1; from any base it is this
// shifted by the base's index, as a head that fits never crosses a row end.
Plate Footprint() {
    Plate footprint;
    for (int i = 0; i < 8; ++i) {
        for (int j = 0; j < 12; ++j) footprint.set(Index(i * kRatio, j * kRatio));
    }
    return footprint;
}
const Plate kFootprint = Footprint();

// The base formula of the head, on one coordinate.
int BaseCoordinate(int count, int size, int coordinate) {
    const int past = (count - 1) * kRatio - size + coordinate;
    return past < 0 ? coordinate : std::max(0, coordinate - (past / kRatio + 1) * kRatio);
}

Plate Bits(const std::vector<Well> &wells) {
    Plate plate;
    for (const Well &well : wells) plate.set(Index(well.Row, well.Column));
    return plate;
}

// ---- inputs

std::vector<Well> AllWells() {
    std::vector<Well> wells;
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) wells.emplace_back(row, column);
    }
    return wells;
}
Plate AllBits() { return Bits(AllWells()); }

// Every well twice, shuffled.
std::vector<Well> ShuffledWells() {
    std::vector<Well> wells = AllWells();
    wells.insert(wells.end(), wells.begin(), wells.end());
    std::shuffle(wells.begin(), wells.end(), std::mt19937(1536));
    return wells;
}
std::vector<std::pair<int, int>> ShuffledPairs() {
    std::vector<std::pair<int, int>> pairs;
    for (const Well &well : ShuffledWells()) pairs.emplace_back(well.Row, well.Column);
    return pairs;
}

// The 16 positions of the head, which cover the plate.
std::vector<Well> Positions() {
    std::vector<Well> positions;
    PipetteHeadMode::GetSmallestUniqueSet(WholeHead(), kWells, positions);
    return positions;
}
Well LastPosition() { return Positions().back(); }

// A box whose tips are in all four states, a quarter of the positions each.
TipBoxState MixedBox() {
    TipBoxState box;
    box.NumWells = kWells;
    box.TipPositions.resize(4);
    const std::vector<Well> positions = Positions();
    for (std::size_t i = 0; i < positions.size(); ++i) {
        box.TipPositions[i % 4].State = TipPositionState(i % 4);
        box.TipPositions[i % 4].Wells.push_back(positions[i]);
    }
    return box;
}

// Every mode a head can be in: each channel type, subset and tip type.
std::vector<PipetteHeadMode> EveryMode() {
    std::vector<PipetteHeadMode> modes;
    for (int channels = 0; channels < WellSelectionChannelsTypeCount; ++channels) {
        for (int subset = 0; subset <= SUBSET_SINGLE_BARREL; ++subset) {
            for (int tip = 0; tip <= HEAD_TIP_TYPE_1; ++tip) {
                PipetteHeadMode &mode = modes.emplace_back();
                mode.Channels = WellSelectionChannelsType(channels);
                mode.SubsetType = HeadSubsetType(subset);
                mode.TipType = HeadTipType(tip);
                mode.ResetHeadRowColumnCount();
            }
        }
    }
    return modes;
}

ProcessTipBoxes ProcessBoxes() {
    ProcessTipBoxes boxes;
    boxes.Protocol = "C:\\protocols\\1536.pro";
    for (int i = 0; i < 4; ++i) {
        ProcessTipBox &process = boxes.Processes.emplace_back();
        process.ProcessName = "Tips " + std::to_string(i);
        process.TipBoxState = MixedBox();
    }
    return boxes;
}

// ---- the library's way

std::size_t ValidateGeneric(const std::vector<Well> &wanted) {
    thread_local std::vector<Well> valid;
    valid.clear();
    PipetteHeadMode::ValidateSelection(WholeHead(), kWells, wanted, valid);
    return valid.size();
}

std::size_t ExtendedGeneric(const Well &base) {
    thread_local std::vector<Well> set;
    PipetteHeadMode::GetExtendedSetFromBaseWell(WholeHead(), kWells, base, set);
    return set.size();
}

std::size_t SmallestUniqueGeneric(const int &) {
    thread_local std::vector<Well> set;
    PipetteHeadMode::GetSmallestUniqueSet(WholeHead(), kWells, set);
    return set.size();
}

std::size_t SortAndCullGeneric(const std::vector<Well> &wells) {
    thread_local std::vector<Well> work;
    work = wells;
    Well::SortAndCullWells(work);
    return work.size();
}

bool PerfectGeneric(const std::vector<Well> &wells) {
    return PipetteHeadMode::IsSetPerfect(WholeHead(), kWells, wells);
}

std::size_t SingleBarrelGeneric(const TipBoxState &box) {
    TipBoxState work = box;
    work.ConvertToSingleBarrelHeadMode();
    return work.TipPositions[0].Wells.size() + work.TipPositions[1].Wells.size();
}

int CompatibilityOverEveryMode(const std::vector<PipetteHeadMode> &modes) {
    int compatible = 0, reason = 0;
    for (const PipetteHeadMode &mode : modes) {
        for (int wells : {96, 384, 1536, 3456}) {
            compatible += PipetteHeadMode::AreHeadAndLabwareCompatible(mode, wells, 0, reason, false);
        }
    }
    return compatible;
}

std::size_t TipStatesToObjectInstance(const ProcessTipBoxes &boxes) {
    ObjectInstanceXMLMarshaller::ObjectInstance instance;
    boxes.ConvertToObjectInstance(instance, true, false);
    return instance.BaseObjectDescription.Categories.size();
}

// ---- the same set work on a bitset

Plate ValidateByHand(const Plate &wanted) {
    Plate chosen, covered;
    for (std::size_t i = wanted._Find_first(); i < kWells; i = wanted._Find_next(i)) {
        const int row = static_cast<int>(i) / kColumns, column = static_cast<int>(i) % kColumns;
        const int base = Index(BaseCoordinate(8, kRows, row), BaseCoordinate(12, kColumns, column));
        if (chosen[base] || covered[base]) continue;
        covered |= kFootprint << base;
        chosen.set(base);
    }
    return chosen;
}

Plate ExtendedByHand(const Well &base) { return kFootprint << Index(base.Row, base.Column); }

Plate SmallestUniqueByHand(const int &) {
    Plate positions;
    const int lastRow = kRows - 1 - 7 * kRatio, lastColumn = kColumns - 1 - 11 * kRatio;
    for (int row = 0; row <= lastRow; ++row) {
        for (int column = 0; column <= lastColumn; ++column) positions.set(Index(row, column));
    }
    return positions;
}

// Sorted and culled is what a bitset is; the work is marking the list and
// reading it back in order.
std::size_t SortAndCullByHand(const std::vector<std::pair<int, int>> &pairs) {
    thread_local std::vector<std::pair<int, int>> work, out;
    work = pairs;
    Plate plate;
    for (const auto &[row, column] : work) plate.set(Index(row, column));
    out.clear();
    for (std::size_t i = plate._Find_first(); i < kWells; i = plate._Find_next(i)) {
        out.emplace_back(static_cast<int>(i) / kColumns, static_cast<int>(i) % kColumns);
    }
    return out.size();
}

bool PerfectByHand(const Plate &set) {
    Plate expansion;
    for (std::size_t i = set._Find_first(); i < kWells; i = set._Find_next(i)) {
        if (!expansion[i]) expansion |= kFootprint << i;
    }
    return expansion == set;
}

std::size_t SingleBarrelByHand(const TipBoxState &box) {
    Plate states[2];
    for (const TipPosition &position : box.TipPositions) {
        if (position.State > 1) continue;
        for (const Well &base : position.Wells) states[position.State] |= kFootprint << Index(base.Row, base.Column);
    }
    return states[0].count() + states[1].count();
}

bool PeersAgree() {
    std::vector<Well> valid;
    PipetteHeadMode::ValidateSelection(WholeHead(), kWells, AllWells(), valid);
    std::vector<Well> extended;
    PipetteHeadMode::GetExtendedSetFromBaseWell(WholeHead(), kWells, LastPosition(), extended);
    std::vector<Well> culled = ShuffledWells();
    Well::SortAndCullWells(culled);
    TipBoxState single = MixedBox();
    single.ConvertToSingleBarrelHeadMode();
    return Bits(valid) == ValidateByHand(AllBits()) && Bits(Positions()) == SmallestUniqueByHand(0) &&
           Bits(extended) == ExtendedByHand(LastPosition()) && culled == AllWells() &&
           SortAndCullByHand(ShuffledPairs()) == culled.size() && PerfectGeneric(AllWells()) &&
           PerfectByHand(AllBits()) && !PerfectGeneric(Positions()) && !PerfectByHand(Bits(Positions())) &&
           SingleBarrelGeneric(MixedBox()) == SingleBarrelByHand(MixedBox()) &&
           Bits(single.TipPositions[0].Wells) == (ExtendedByHand(Positions()[0]) | ExtendedByHand(Positions()[4]) |
                                                  ExtendedByHand(Positions()[8]) | ExtendedByHand(Positions()[12]));
}

int Zero() { return 0; }

using bench::Loop;
#define PAIR(name, input, generic, peerInput, peer)                                                  \
    BENCHMARK(Loop<input, generic>)->Name(name "Generic")->Unit(benchmark::kMicrosecond);            \
    BENCHMARK(Loop<peerInput, peer>)->Name(name "ByHand")->Unit(benchmark::kMicrosecond)

PAIR("ValidateWholePlate", AllWells, ValidateGeneric, AllBits, ValidateByHand);
PAIR("ExtendedSet", LastPosition, ExtendedGeneric, LastPosition, ExtendedByHand);
PAIR("SmallestUniqueSet", Zero, SmallestUniqueGeneric, Zero, SmallestUniqueByHand);
PAIR("SortAndCull3072", ShuffledWells, SortAndCullGeneric, ShuffledPairs, SortAndCullByHand);
PAIR("PerfectWholePlate", AllWells, PerfectGeneric, AllBits, PerfectByHand);
PAIR("SingleBarrelTipBox", MixedBox, SingleBarrelGeneric, MixedBox, SingleBarrelByHand);
BENCHMARK(Loop<EveryMode, CompatibilityOverEveryMode>)
    ->Name("CompatibilityEveryModeEveryPlate")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Loop<ProcessBoxes, TipStatesToObjectInstance>)
    ->Name("TipStatesToObjectInstance")
    ->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char **argv) {
    if (!PeersAgree()) {
        std::fprintf(stderr, "the bitset peers don't give the library's answers\n");
        return 1;
    }
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);
    times.PrintPairs("pipetting on vectors of Well / the same set work on a bitset", 2.0);
    return 0;
}
