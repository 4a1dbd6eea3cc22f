// qor record: show a record document as the property table an editor would
// show, and list the record types the library knows.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "Command.h"
#include "qor/marshal.h"
#include "qor/records/RecordRegistry.h"
#include "qor/xml.h"

namespace qor::cli {
namespace {

const char kRecordHelp[] =
    "usage: qor record show FILE\n"
    "       qor record list\n"
    "\n"
    "show  Reads the XML document FILE, builds the record named by the first\n"
    "      child of its root, and prints the record as a property bag: one row\n"
    "      per Parameter with its category, name, type and value. A document\n"
    "      holding an ObjectInstance prints that instance itself, modules too.\n"
    "list  Prints every record type by element name, with its family.\n"
    "\n"
    "Exit status: 0 on success, 1 when the document can't be read or names no\n"
    "known record, 2 on a usage error.\n";

struct Row {
    std::string category, name, type, value;
};

// Control characters would break the table's lines.
std::string Printable(const std::string &text) {
    std::string out;
    for (char c : text) {
        switch (c) {
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default: out += c;
        }
    }
    return out;
}

std::string TypeName(int type) {
    const char *name = ObjectInstanceXMLMarshaller::ParameterTypeName(type);
    return name ? name : "type " + std::to_string(type);
}

void AddRows(std::vector<Row> &rows, const std::string &prefix,
             const std::vector<ObjectInstanceXMLMarshaller::ObjectParameterCategory> &categories) {
    for (const auto &category : categories) {
        for (const auto &parameter : category.Parameters) {
            rows.push_back({Printable(prefix + category.Name), Printable(parameter.Name),
                            TypeName(parameter.Type), Printable(parameter.Value)});
        }
    }
}

void PrintTable(const std::vector<Row> &rows) {
    Row widths{"Category", "Name", "Type", "Value"};
    std::size_t w[3] = {widths.category.size(), widths.name.size(), widths.type.size()};
    for (const Row &row : rows) {
        w[0] = std::max(w[0], row.category.size());
        w[1] = std::max(w[1], row.name.size());
        w[2] = std::max(w[2], row.type.size());
    }
    auto print = [&](const Row &row) {
        std::printf("%-*s  %-*s  %-*s  %s\n", static_cast<int>(w[0]), row.category.c_str(),
                    static_cast<int>(w[1]), row.name.c_str(), static_cast<int>(w[2]), row.type.c_str(),
                    row.value.c_str());
    };
    print(widths);
    print({std::string(w[0], '-'), std::string(w[1], '-'), std::string(w[2], '-'), "-----"});
    for (const Row &row : rows) print(row);
}

int Show(const std::string &path) {
    XMLReader reader;
    try {
        reader.Read(path.c_str());
    } catch (const XMLParserException &e) {
        std::cerr << "qor record: " << e.message << "\n";
        return 1;
    }
    if (reader.children.empty()) {
        std::cerr << "qor record: " << path << ": the document holds no record\n";
        return 1;
    }
    const XMLParser::XMLNode &element = reader.children.front();
    const qor::RecordType *type = qor::FindRecordType(element.name);
    if (!type) {
        std::cerr << "qor record: " << path << ": no record type is named '" << element.name
                  << "' (see qor record list)\n";
        return 1;
    }
    const auto record = type->fromNode(element);
    ObjectInstanceXMLMarshaller::ObjectInstance instance;
    if (const auto *own = dynamic_cast<const ObjectInstanceXMLMarshaller::ObjectInstance *>(record.get())) {
        instance = *own;  // a bag shows its own contents, not its (empty) view of itself
    } else {
        type->toObjectInstance(*record, instance);
    }
    std::printf("%s (%s)\n\n", type->elementName, type->family);
    std::vector<Row> rows;
    AddRows(rows, "", instance.BaseObjectDescription.Categories);
    for (const auto &module : instance.ModuleObjectDescriptions) {
        AddRows(rows, module.ModuleName + "/", module.Categories);
    }
    PrintTable(rows);
    return 0;
}

int List() {
    for (const qor::RecordType &type : qor::AllRecordTypes()) {
        std::printf("%-32s %s\n", type.elementName, type.family);
    }
    return 0;
}

int RunRecord(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kRecordHelp, stdout);
        return 0;
    }
    if (args.empty()) return UsageError("record: missing sub-verb (see qor record --help)");
    if (args[0] == "show") {
        if (args.size() != 2) return UsageError("record show: expects one FILE (see qor record --help)");
        return Show(args[1]);
    }
    if (args[0] == "list") {
        if (args.size() != 1) return UsageError("record list: takes no arguments");
        return List();
    }
    return UsageError("record: unknown sub-verb '" + args[0] + "' (see qor record --help)");
}

QorCommand record_command({"record", "show a record document as its property table; list record types",
                           kRecordHelp, &RunRecord});

}  // namespace
}  // namespace qor::cli
