// Plate maps of records. Each record that holds plates has a mapper in one
// table; containers map what they hold, titled by where it stands.
#include "qor/records/pipette/PlateMap.h"

#include <algorithm>

#include "qor/records/pipette.h"
#include "qor/records/pipette/HeadGeometry.h"
#include "qor/records/pipette/WellBits.h"
#include "qor/xml/XMLParserException.h"

namespace qor::pipette {
namespace {

using namespace PipetteXMLMarshaller;
using XMLNode = XMLParser::XMLNode;

constexpr int kStandardPlates[] = {96, 384, 1536, 3456};

PlateMap EmptyMap(int wells) {
    PlateMap map;
    map.wells = wells;
    PipetteHeadMode::WellCountToPlateDimensions(wells, map.rows, map.columns);
    map.marks.assign(static_cast<std::size_t>(map.rows) * static_cast<std::size_t>(map.columns), WellMark::Empty);
    return map;
}

WellMark &MarkAt(PlateMap &map, int row, int column) {
    return map.marks[static_cast<std::size_t>(row * map.columns + column)];
}

// The wells of a list that lie on the plate, each once (so that no list
// makes the work larger than the plate); off counts the others.
WellBits DistinctOnPlate(const HeadOnPlate &head, const std::vector<Well> &wells, int &off) {
    WellBits distinct(head.rows, head.columns);
    for (const Well &well : wells) {
        if (head.OnPlate(well.Row, well.Column)) {
            distinct.Set(well);
        } else {
            ++off;
        }
    }
    return distinct;
}

std::string Quoted(const std::string &text) { return '"' + text + '"'; }

std::string DescribeHead(const PipetteHeadMode &mode) {
    std::string text = "head " + std::to_string(mode.RowCount) + " x " + std::to_string(mode.ColumnCount) + " of " +
                       std::to_string(PipetteHeadMode::GetNumberOfChannels(mode.Channels)) + " channels";
    const std::string subset = PipetteHeadMode::GetSubsetLabel(mode.SubsetType);
    if (!subset.empty()) text += ", " + subset;
    return text;
}

std::string Count(std::size_t n, const char *what) {
    return std::to_string(n) + " " + what + (n == 1 ? "" : "s");
}

// What the mappers share: the plate asked for, and where the maps go.
struct Mapping {
    int wells;  // 0: by PlateForHead
    std::vector<PlateMap> &maps;
    std::string &error;

    bool Selection(const WellSelection &selection, const std::string &title) {
        PlateMap &map = maps.emplace_back(
            MapSelection(selection, wells ? wells : PlateForHead(selection.PipetteHeadMode, selection.Wells)));
        map.title = title;
        return true;
    }
    bool SelectionText(const std::string &text, const std::string &title) {
        if (text.empty()) return true;  // nothing selected yet
        try {
            return Selection(WellSelection(text), title);
        } catch (const XMLParserException &e) {
            error = title + ": the well selection can't be read: " + e.message;
            return false;
        }
    }
    bool Head(const PipetteHeadMode &mode, const std::string &title) {
        PlateMap &map = maps.emplace_back(MapHeadMode(mode, wells ? wells : PlateForHead(mode, {})));
        map.title = title;
        return true;
    }
    bool TipBox(const TipBoxState &box, const std::string &title) {
        PlateMap map;
        if (!MapTipBox(box, map, error)) {
            error = title + ": " + error;
            return false;
        }
        map.title = title;
        maps.push_back(std::move(map));
        return true;
    }
    bool Process(const ProcessTipBox &process, const std::string &title) {
        if (!TipBox(process.TipBoxState, title)) return false;
        for (const TipBoxInstance &instance : process.Instances) {
            if (!TipBox(instance.TipBoxState, title + ", instance " + Quoted(instance.Instance))) return false;
        }
        return true;
    }
    bool Device(const TipBoxDevice &device, const std::string &title) {
        for (const TipBoxLocation &location : device.Locations) {
            if (location.HasTipBox && !TipBox(location.TipBoxState, title + ", location " + Quoted(location.Location)))
                return false;
        }
        return true;
    }
};

template <class Item, class Map>
bool MapEach(const std::vector<Item> &items, const std::string &title, Map map) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!map(items[i], title + " " + std::to_string(i + 1))) return false;
    }
    return true;
}

// The selection texts of a list of tip or volume changes.
template <class Change>
bool SelectionTexts(const std::vector<Change> &changes, const std::string &title, Mapping &m) {
    return MapEach(changes, title, [&](const Change &change, const std::string &t) {
        return m.SelectionText(change.WellSelection, t);
    });
}

struct RecordMapper {
    const char *element;
    bool (*map)(const XMLNode &, Mapping &);
};

constexpr RecordMapper kRecordMappers[] = {
    {"WellSelection", [](const XMLNode &n, Mapping &m) { return m.Selection(WellSelection(n), "WellSelection"); }},
    {"DiagnosticsTipOperation",
     [](const XMLNode &n, Mapping &m) {
         const DiagnosticsTipOperation operation(n);
         return m.Selection(operation.WellSelection, "DiagnosticsTipOperation at " + Quoted(operation.Location));
     }},
    {"TipChange",
     [](const XMLNode &n, Mapping &m) { return m.SelectionText(TipChange(n).WellSelection, "TipChange"); }},
    {"TipChanges",
     [](const XMLNode &n, Mapping &m) { return SelectionTexts(TipChanges(n).TipChanges_, "TipChange", m); }},
    {"VolumeChange",
     [](const XMLNode &n, Mapping &m) { return m.SelectionText(VolumeChange(n).WellSelection, "VolumeChange"); }},
    {"VolumeChanges",
     [](const XMLNode &n, Mapping &m) { return SelectionTexts(VolumeChanges(n).VolumeChanges_, "VolumeChange", m); }},
    {"PipetteHeadMode", [](const XMLNode &n, Mapping &m) { return m.Head(PipetteHeadMode(n), "PipetteHeadMode"); }},
    {"PipetteHead",
     [](const XMLNode &n, Mapping &m) {
         const PipetteHead head(n);
         return m.Head(head.PipetteHeadMode, "PipetteHead " + Quoted(head.Name));
     }},
    {"TipBoxState", [](const XMLNode &n, Mapping &m) { return m.TipBox(TipBoxState(n), "TipBoxState"); }},
    {"TipBoxInstance",
     [](const XMLNode &n, Mapping &m) {
         const TipBoxInstance instance(n);
         return m.TipBox(instance.TipBoxState, "TipBoxInstance " + Quoted(instance.Instance));
     }},
    {"TipBoxLocation",
     [](const XMLNode &n, Mapping &m) {
         const TipBoxLocation location(n);
         const std::string title = "TipBoxLocation " + Quoted(location.Location);
         if (location.HasTipBox) return m.TipBox(location.TipBoxState, title);
         m.error = title + ": no tip box stands there";
         return false;
     }},
    {"SingleTipBoxStateQuery",
     [](const XMLNode &n, Mapping &m) {
         const SingleTipBoxStateQuery query(n);
         return m.TipBox(query.TipBoxState, "SingleTipBoxStateQuery " + Quoted(query.ProcessOrDeviceName) + ", " +
                                                Quoted(query.InstanceOrLocationName));
     }},
    {"AllTipBoxStateQuery",
     [](const XMLNode &n, Mapping &m) {
         return MapEach(AllTipBoxStateQuery(n).TipBoxStateQuery, "SingleTipBoxStateQuery",
                        [&](const SingleTipBoxStateQuery &q, const std::string &t) {
                            return m.TipBox(q.TipBoxState, t + " " + Quoted(q.ProcessOrDeviceName) + ", " +
                                                               Quoted(q.InstanceOrLocationName));
                        });
     }},
    {"ProcessTipBox",
     [](const XMLNode &n, Mapping &m) {
         const ProcessTipBox process(n);
         return m.Process(process, "ProcessTipBox " + Quoted(process.ProcessName));
     }},
    {"ProcessTipBoxes",
     [](const XMLNode &n, Mapping &m) {
         for (const ProcessTipBox &process : ProcessTipBoxes(n).Processes) {
             if (!m.Process(process, "ProcessTipBox " + Quoted(process.ProcessName))) return false;
         }
         return true;
     }},
    {"TipBoxDevice",
     [](const XMLNode &n, Mapping &m) {
         const TipBoxDevice device(n);
         return m.Device(device, "TipBoxDevice " + Quoted(device.DeviceName));
     }},
    {"TipBoxDevices",
     [](const XMLNode &n, Mapping &m) {
         for (const TipBoxDevice &device : TipBoxDevices(n).Devices) {
             if (!m.Device(device, "TipBoxDevice " + Quoted(device.DeviceName))) return false;
         }
         return true;
     }},
};

constexpr WellMark kTipStateMarks[] = {WellMark::TipState0, WellMark::TipState1, WellMark::TipState2,
                                       WellMark::TipState3};

}  // namespace

int PlateForHead(const PipetteHeadMode &mode, const std::vector<Well> &wells) {
    for (int plate : kStandardPlates) {
        HeadOnPlate head;
        if (!PlaceHead(mode, plate, head) || !head.ratioKnown) continue;
        if (std::all_of(wells.begin(), wells.end(), [&](const Well &w) { return head.OnPlate(w.Row, w.Column); }))
            return plate;
    }
    return kStandardPlates[0];
}

PlateMap MapSelection(const WellSelection &selection, int wells) {
    PlateMap map = EmptyMap(wells);
    map.detail = Count(selection.Wells.size(), "well") + " selected, " + DescribeHead(selection.PipetteHeadMode);
    HeadOnPlate head;
    const bool placed = PlaceHead(selection.PipetteHeadMode, wells, head) && head.ratioKnown;
    const WellBits selected = DistinctOnPlate(head, selection.Wells, map.offPlate);
    if (placed) {
        selected.ForEach([&](int row, int column) {
            head.ForEachTouched(row, column, [&](int r, int c) { MarkAt(map, r, c) = WellMark::Reached; });
        });
    }
    selected.ForEach([&](int row, int column) { MarkAt(map, row, column) = WellMark::Selected; });
    return map;
}

PlateMap MapHeadMode(const PipetteHeadMode &mode, int wells) {
    WellSelection first;
    first.PipetteHeadMode = mode;
    first.Wells.emplace_back(0, 0);
    PlateMap map = MapSelection(first, wells);
    map.kind = PlateKind::HeadMode;
    map.detail = DescribeHead(mode) + ", from the first well";
    return map;
}

bool MapTipBox(const TipBoxState &box, PlateMap &map, std::string &error) {
    HeadOnPlate head;
    if (!PlaceHead(box.PipetteHeadMode, box.NumWells, head)) {
        error = "a box of " + std::to_string(box.NumWells) + " wells isn't a plate size";
        return false;
    }
    map = EmptyMap(box.NumWells);
    map.kind = PlateKind::TipBox;
    std::size_t listed = 0;
    for (const TipPosition &position : box.TipPositions) {
        // Any state beyond the four is drawn as the last one, as the single
        // barrel conversion files it.
        const int state = position.State >= 0 && position.State < 4 ? position.State : 3;
        const WellMark mark = kTipStateMarks[state];
        listed += position.Wells.size();
        DistinctOnPlate(head, position.Wells, map.offPlate).ForEach([&](int row, int column) {
            if (head.ratioKnown) {
                head.ForEachTouched(row, column, [&](int r, int c) { MarkAt(map, r, c) = mark; });
            } else {
                MarkAt(map, row, column) = mark;
            }
        });
    }
    map.detail = Count(listed, "base well") + " in " + Count(box.TipPositions.size(), "tip position") + ", " +
                 DescribeHead(box.PipetteHeadMode);
    return true;
}

bool MapRecord(const XMLNode &element, int wells, std::vector<PlateMap> &maps, std::string &error) {
    const auto *mapper = std::find_if(std::begin(kRecordMappers), std::end(kRecordMappers),
                                      [&](const RecordMapper &entry) { return element.name == entry.element; });
    if (mapper == std::end(kRecordMappers)) {
        error = "a " + element.name + " holds no plate";
        return false;
    }
    Mapping mapping{wells, maps, error};
    if (!mapper->map(element, mapping)) return false;
    if (maps.empty()) {
        error = "the " + element.name + " holds no plate";
        return false;
    }
    return true;
}

std::string RowLabel(int row) {
    std::string label;
    for (int n = row + 1; n > 0; n = (n - 1) / 26) label.insert(label.begin(), static_cast<char>('A' + (n - 1) % 26));
    return label;
}

}  // namespace qor::pipette
