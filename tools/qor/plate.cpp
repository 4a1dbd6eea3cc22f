// qor plate: draw the plates a pipetting record holds (a well selection, a
// head mode's footprint, tip boxes) as a labelled grid in the terminal and
// as an SVG plate map.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "Command.h"
#include "qor/marshal/Convert.h"
#include "qor/platform/Files.h"
#include "qor/records/pipette/PipetteHeadMode.h"
#include "qor/records/pipette/PlateMap.h"
#include "qor/xml/XMLReader.h"

namespace qor::cli {
namespace {

using qor::pipette::PlateMap;
using qor::pipette::WellMark;

const char kPlateHelp[] =
    "usage: qor plate show FILE [--svg OUT.svg] [--wells N]\n"
    "\n"
    "show  Reads the record document FILE and draws every plate it holds as a\n"
    "      grid, rows A, B, ... by columns 1, 2, ...:\n"
    "      - a WellSelection (also the one of a DiagnosticsTipOperation, and the\n"
    "        selection text of TipChange and VolumeChange records) marks its\n"
    "        wells '#' and the wells its head mode reaches from them '+';\n"
    "      - a PipetteHeadMode or PipetteHead marks its footprint from A1;\n"
    "      - a tip box (a TipBoxState and every record that keeps one: tip box\n"
    "        locations, instances, devices, process tip boxes and the state\n"
    "        queries) marks each well with the state of its tip, 0 to 3, each\n"
    "        base well spread over the barrels of the box's head mode; '.' is a\n"
    "        well with no state.\n"
    "      --svg OUT.svg  also writes the maps, one below the other, as an SVG\n"
    "                     image with a legend.\n"
    "      --wells N      the plate of selections and head modes: 96, 384, 1536,\n"
    "                     3456 or another size the library knows. By default the\n"
    "                     smallest standard plate on which the head works and\n"
    "                     every well lies. A tip box has its own size.\n"
    "\n"
    "Exit status: 0 on success, 1 when the document can't be read or holds no\n"
    "plate, 2 on a usage error.\n";

struct MarkStyle {
    char symbol;
    const char *fill;
};

// Indexed by WellMark.
constexpr MarkStyle kMarkStyles[qor::pipette::WellMarkCount] = {
    {'.', "#ffffff"}, {'#', "#1f4e9c"}, {'+', "#9ecae1"}, {'0', "#2ca02c"},
    {'1', "#ff7f0e"}, {'2', "#d62728"}, {'3', "#8c8c8c"},
};

const MarkStyle &StyleOf(WellMark mark) { return kMarkStyles[static_cast<int>(mark)]; }

struct LegendEntry {
    WellMark mark;
    const char *label;
};

// Indexed by PlateKind: what each mark of such a map means, the empty well last.
const std::vector<LegendEntry> kLegends[] = {
    {{WellMark::Selected, "selected"}, {WellMark::Reached, "reached by the head"}, {WellMark::Empty, "empty"}},
    {{WellMark::Selected, "first barrel"}, {WellMark::Reached, "other barrels"}, {WellMark::Empty, "empty"}},
    {{WellMark::TipState0, "tip state 0"},
     {WellMark::TipState1, "tip state 1"},
     {WellMark::TipState2, "tip state 2"},
     {WellMark::TipState3, "tip state 3"},
     {WellMark::Empty, "no tip state"}},
};

const std::vector<LegendEntry> &LegendOf(const PlateMap &map) { return kLegends[static_cast<int>(map.kind)]; }

std::string LegendLabel(const PlateMap &map, WellMark mark) {
    for (const LegendEntry &entry : LegendOf(map)) {
        if (entry.mark == mark) return entry.label;
    }
    return std::string();
}

std::string Heading(const PlateMap &map) { return map.title + ": " + std::to_string(map.wells) + "-well plate"; }

std::string OffPlateNote(const PlateMap &map) {
    return std::to_string(map.offPlate) + (map.offPlate == 1 ? " listed well lies" : " listed wells lie") +
           " off the plate and isn't drawn";
}

// ---- the terminal grid

void PrintGrid(const PlateMap &map) {
    std::printf("%s\n%s\n\n", Heading(map).c_str(), map.detail.c_str());
    const int labelWidth = static_cast<int>(qor::pipette::RowLabel(map.rows - 1).size());
    // Up to 24 columns each has room for its number; wider plates write
    // the tens above the units.
    const bool narrow = map.columns <= 24;
    const int cell = narrow ? 3 : 2;
    std::string tens(static_cast<std::size_t>(labelWidth + 1), ' '), units = tens;
    for (int column = 1; column <= map.columns; ++column) {
        if (narrow) {
            char text[16];
            std::snprintf(text, sizeof text, "%*d", cell, column);
            units += text;
        } else {
            tens += column >= 10 ? ' ' + std::to_string(column / 10) : "  ";
            units += ' ' + std::to_string(column % 10);
        }
    }
    if (!narrow) std::printf("%s\n", tens.c_str());
    std::printf("%s\n", units.c_str());
    for (int row = 0; row < map.rows; ++row) {
        std::string line = qor::pipette::RowLabel(row);
        line.insert(0, static_cast<std::size_t>(labelWidth) - line.size(), ' ');
        line += ' ';
        for (int column = 0; column < map.columns; ++column) {
            line.append(static_cast<std::size_t>(cell - 1), ' ');
            line += StyleOf(map.At(row, column)).symbol;
        }
        std::printf("%s\n", line.c_str());
    }
    std::string legend;
    for (const LegendEntry &entry : LegendOf(map)) {
        legend += std::string(legend.empty() ? "" : "   ") + StyleOf(entry.mark).symbol + ' ' + entry.label;
    }
    std::printf("\n%s\n", legend.c_str());
    if (map.offPlate) std::printf("%s\n", OffPlateNote(map).c_str());
}

// ---- the SVG plate map

constexpr int kMargin = 12;
constexpr int kRowLabelWidth = 28;
constexpr int kHeadingHeight = 40;
constexpr int kColumnLabelHeight = 16;
constexpr int kLegendHeight = 28;
constexpr int kLegendEntrySpace = 40;  // the swatch and the gap to the next entry
constexpr int kLegendCharWidth = 6;   // about, at 11 pixels
constexpr int kGap = 24;

// The pitch of a well: a 96-well plate comes out about 400 pixels wide, and
// no well is drawn smaller than 8.
int Pitch(const PlateMap &map) { return std::clamp(400 / std::max(map.columns, 1), 8, 32); }

std::string Number(double value) {
    return Convert<std::string>(static_cast<double>(static_cast<long long>(value * 10)) / 10);
}

XMLParser::XMLNode &Element(XMLParser::XMLNode &parent, const char *name,
                            std::initializer_list<std::pair<const char *, std::string>> attributes,
                            std::string text = std::string()) {
    XMLParser::XMLNode &node = parent.children.emplace_back();
    node.name = name;
    for (const auto &[key, value] : attributes) node.attributes.emplace(key, value);
    node.text = std::move(text);
    return node;
}

// Draws one map with its top at y; returns its height.
int DrawMap(XMLParser::XMLNode &svg, const PlateMap &map, int y, int &width) {
    const int pitch = Pitch(map);
    const int font = std::clamp(pitch * 6 / 10, 6, 12);
    const int left = kMargin + kRowLabelWidth;
    const int top = y + kHeadingHeight + kColumnLabelHeight;
    Element(svg, "text", {{"x", Number(kMargin)}, {"y", Number(y + 16)}, {"font-size", "14"}, {"font-weight", "bold"}},
            Heading(map));
    Element(svg, "text", {{"x", Number(kMargin)}, {"y", Number(y + 32)}, {"font-size", "11"}},
            map.offPlate ? map.detail + "; " + OffPlateNote(map) : map.detail);
    Element(svg, "rect",
            {{"x", Number(left - 4)}, {"y", Number(top - 4)}, {"width", Number(map.columns * pitch + 8)},
             {"height", Number(map.rows * pitch + 8)}, {"rx", "6"}, {"fill", "#f2f2f2"}, {"stroke", "#999999"}});
    // Numbers too close to read side by side are given for every 2nd or 4th column.
    const int every = pitch >= 14 ? 1 : pitch >= 10 ? 2 : 4;
    for (int column = 0; column < map.columns; ++column) {
        if (column != 0 && (column + 1) % every != 0) continue;
        Element(svg, "text",
                {{"x", Number(left + column * pitch + pitch / 2.0)}, {"y", Number(top - 6)},
                 {"font-size", std::to_string(font)}, {"text-anchor", "middle"}},
                std::to_string(column + 1));
    }
    for (int row = 0; row < map.rows; ++row) {
        const double middle = top + row * pitch + pitch / 2.0;
        Element(svg, "text",
                {{"x", Number(left - 6)}, {"y", Number(middle + font / 3.0)}, {"font-size", std::to_string(font)},
                 {"text-anchor", "end"}},
                qor::pipette::RowLabel(row));
        for (int column = 0; column < map.columns; ++column) {
            const WellMark mark = map.At(row, column);
            XMLParser::XMLNode &well = Element(
                svg, "circle",
                {{"cx", Number(left + column * pitch + pitch / 2.0)}, {"cy", Number(middle)},
                 {"r", Number(pitch * 0.42)}, {"fill", StyleOf(mark).fill}, {"stroke", "#666666"},
                 {"stroke-width", "0.5"}});
            Element(well, "title", {}, qor::pipette::RowLabel(row) + std::to_string(column + 1) + ": " +
                                           LegendLabel(map, mark));
        }
    }
    const int legendTop = top + map.rows * pitch + kGap / 2;
    int x = kMargin;
    for (const LegendEntry &entry : LegendOf(map)) {
        Element(svg, "circle",
                {{"cx", Number(x + 7)}, {"cy", Number(legendTop + 7)}, {"r", "6"}, {"fill", StyleOf(entry.mark).fill},
                 {"stroke", "#666666"}, {"stroke-width", "0.5"}});
        Element(svg, "text", {{"x", Number(x + 18)}, {"y", Number(legendTop + 11)}, {"font-size", "11"}},
                entry.label);
        x += kLegendEntrySpace + kLegendCharWidth * static_cast<int>(std::string_view(entry.label).size());
    }
    width = std::max({width, left + map.columns * pitch + kMargin, x});
    return legendTop + kLegendHeight - y;
}

std::string Svg(const std::vector<PlateMap> &maps) {
    XMLParser svg;
    svg.name = "svg";
    int y = kMargin, width = 0;
    for (const PlateMap &map : maps) y += DrawMap(svg, map, y, width) + kGap;
    svg.attributes = {{"xmlns", "http://www.w3.org/2000/svg"},
                      {"width", Number(width)},
                      {"height", Number(y)},
                      {"viewBox", "0 0 " + Number(width) + " " + Number(y)},
                      {"font-family", "sans-serif"}};
    std::string text;
    svg.FillBuffer(text, true, true);
    return text + "\n";
}

int WriteSvg(const std::string &path, const std::vector<PlateMap> &maps) {
    qor::OutputFile file;
    int error = file.Open(path);
    if (!error) error = file.Write(Svg(maps));
    if (!error) error = file.Close();
    if (error) {
        std::cerr << "qor plate: " << path << ": " << std::strerror(error) << "\n";
        return 1;
    }
    return 0;
}

// ---- the verb

struct ShowOptions {
    std::string file;
    std::string svg;
    int wells = 0;
};

int Show(const ShowOptions &options) {
    XMLReader reader;
    try {
        reader.Read(options.file.c_str());
    } catch (const XMLParserException &e) {
        std::cerr << "qor plate: " << e.message << "\n";
        return 1;
    }
    if (reader.children.empty()) {
        std::cerr << "qor plate: " << options.file << ": the document holds no record\n";
        return 1;
    }
    std::vector<PlateMap> maps;
    std::string error;
    if (!qor::pipette::MapRecord(reader.children.front(), options.wells, maps, error)) {
        std::cerr << "qor plate: " << options.file << ": " << error << "\n";
        return 1;
    }
    for (std::size_t i = 0; i < maps.size(); ++i) {
        if (i) std::printf("\n");
        PrintGrid(maps[i]);
    }
    return options.svg.empty() ? 0 : WriteSvg(options.svg, maps);
}

int RunPlate(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kPlateHelp, stdout);
        return 0;
    }
    if (args.empty()) return UsageError("plate: missing sub-verb (see qor plate --help)");
    if (args[0] != "show") return UsageError("plate: unknown sub-verb '" + args[0] + "' (see qor plate --help)");
    ShowOptions options;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string &arg = args[i];
        if (arg == "--svg" || arg == "--wells") {
            if (i + 1 == args.size()) return UsageError("plate show: " + arg + " needs a value");
            const std::string &value = args[++i];
            if (arg == "--svg") {
                options.svg = value;
            } else {
                int rows = 0, columns = 0;
                options.wells = Convert<int>(value);
                if (!PipetteXMLMarshaller::PipetteHeadMode::WellCountToPlateDimensions(options.wells, rows, columns))
                    return UsageError("plate show: no plate has " + value + " wells");
            }
        } else if (!arg.empty() && arg[0] == '-') {
            return UsageError("plate show: unknown option '" + arg + "'");
        } else if (options.file.empty()) {
            options.file = arg;
        } else {
            return UsageError("plate show: expects one FILE (see qor plate --help)");
        }
    }
    if (options.file.empty()) return UsageError("plate show: expects one FILE (see qor plate --help)");
    return Show(options);
}

QorCommand plate_command({"plate", "draw the well selection, head footprint or tip boxes of a record as a plate map",
                          kPlateHelp, &RunPlate});

}  // namespace
}  // namespace qor::cli
