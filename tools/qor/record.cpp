// qor record: the record vocabulary from the shell. Shows record documents as
// the property tables an editor would show, stamps a record at its defaults,
// prints a type's field table, and lists the types the library knows.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "Command.h"
#include "qor/marshal.h"
#include "qor/records/RecordRegistry.h"
#include "qor/xml.h"

namespace qor::cli {
namespace {

const char kRecordHelp[] =
    "usage: qor record show FILE\n"
    "       qor record new TYPE\n"
    "       qor record fields TYPE|FAMILY...\n"
    "       qor record list\n"
    "\n"
    "show    Reads the XML document FILE and prints each record among the\n"
    "        children of its root as its property table: one row per Parameter\n"
    "        with its name, type and value. Child records and the items of\n"
    "        record lists follow, indented, under their field; string lists show\n"
    "        their items. A document holding an ObjectInstance prints that\n"
    "        instance itself, categories and modules too.\n"
    "new     Prints a stamped document (header, root with file type, version\n"
    "        and md5sum) holding one record of TYPE at its defaults.\n"
    "fields  Prints the field table of TYPE, or of every type of FAMILY: key,\n"
    "        kind, member type, default, Parameter name and type, and where a\n"
    "        field departs from the rules of its kind.\n"
    "list    Prints every record type, family by family.\n"
    "\n"
    "TYPE is an element name (ProtocolStarted) or FAMILY::NAME\n"
    "(HooksPluginXMLMarshaller::ProtocolStarted), as qor record list shows them.\n"
    "\n"
    "Exit status: 0 on success, 1 when a document can't be read or names no\n"
    "known record, 2 on a usage error.\n";

using Row = std::vector<std::string>;
using ObjectInstanceXMLMarshaller::ObjectInstance;
using ObjectInstanceXMLMarshaller::ObjectParameterCategory;

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

// Columns padded to their widest cell, two blanks apart, a rule under the
// heading; no blanks at the ends of lines.
void PrintColumns(const Row &heading, const std::vector<Row> &rows) {
    std::vector<std::size_t> width(heading.size());
    for (std::size_t c = 0; c < heading.size(); ++c) width[c] = heading[c].size();
    for (const Row &row : rows) {
        for (std::size_t c = 0; c < row.size(); ++c) width[c] = std::max(width[c], row[c].size());
    }
    auto print = [&](const Row &row) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c) {
            line += row[c];
            if (c + 1 < row.size()) line.append(width[c] - row[c].size() + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        std::printf("%s\n", line.c_str());
    };
    print(heading);
    Row rule;
    for (std::size_t c = 0; c < heading.size(); ++c) rule.emplace_back(width[c], '-');
    print(rule);
    for (const Row &row : rows) print(row);
}

// ---- finding types

std::vector<const RecordType *> TypesNamed(std::string_view name) {
    std::vector<const RecordType *> found;
    const std::size_t scope = name.rfind("::");
    if (scope != std::string_view::npos) {
        if (const RecordType *type = FindRecordType(name.substr(0, scope), name.substr(scope + 2))) {
            found.push_back(type);
        }
        return found;
    }
    if (const RecordType *type = FindRecordType(name)) {
        found.push_back(type);
        return found;
    }
    for (const RecordType &type : AllRecordTypes()) {
        if (name == type.family) found.push_back(&type);
    }
    return found;
}

int UnknownType(const std::string &name) {
    std::cerr << "qor record: no record type or family is named '" << name << "' (see qor record list)\n";
    return 1;
}

// ---- show

struct Shown {
    int depth;
    std::string name, type, value;
};

void ShowRecord(std::vector<Shown> &rows, const XMLMarshaller::XMLMarshallableObject &record,
                const RecordDescription &description, int depth);

void ShowCategories(std::vector<Shown> &rows, const std::vector<ObjectParameterCategory> &categories,
                    int depth, bool headings) {
    for (const auto &category : categories) {
        if (headings) rows.push_back({depth, "[" + Printable(category.Name) + "]", "", ""});
        for (const auto &parameter : category.Parameters) {
            rows.push_back({depth + (headings ? 1 : 0), Printable(parameter.Name), TypeName(parameter.Type),
                            Printable(parameter.Value)});
        }
    }
}

void ShowInstance(std::vector<Shown> &rows, const ObjectInstance &instance, int depth) {
    const auto &categories = instance.BaseObjectDescription.Categories;
    // The usual record shows one category, "Properties": no heading for it.
    const bool plain = instance.ModuleObjectDescriptions.empty() && categories.size() == 1 &&
                       categories.front().Name == "Properties";
    ShowCategories(rows, categories, depth, !plain);
    for (const auto &module : instance.ModuleObjectDescriptions) {
        rows.push_back({depth, "module " + Printable(module.ModuleName), "", ""});
        ShowCategories(rows, module.Categories, depth + 1, true);
    }
}

std::string Count(std::size_t n, const char *what) {
    return n == 0 ? "empty" : std::to_string(n) + " " + what + (n == 1 ? "" : "s");
}

// The lists and child records of a record, from its written element: each
// written in table order, a list left out when empty.
void ShowNested(std::vector<Shown> &rows, const XMLParser::XMLNode &node, const RecordDescription &description,
                int depth) {
    auto next = node.children.begin();
    for (const FieldDescription &field : description.fields) {
        if (field.kind != FieldKind::ValueList && field.kind != FieldKind::RecordList &&
            field.kind != FieldKind::ChildRecord) {
            continue;
        }
        const std::string written = field.kind == FieldKind::ChildRecord ? field.item().elementName : field.key;
        static const XMLParser::XMLNode none;
        const bool present = next != node.children.end() && next->name == written;
        const XMLParser::XMLNode &element = present ? *next++ : none;
        if (field.kind == FieldKind::ChildRecord) {
            rows.push_back({depth, field.key, "record", field.item().elementName});
            ShowRecord(rows, *field.item().fromNode(element), field.item(), depth + 1);
            continue;
        }
        const bool records = field.kind == FieldKind::RecordList;
        rows.push_back({depth, field.key, "list", Count(element.children.size(), records ? "record" : "item")});
        int index = 0;
        for (const auto &item : element.children) {
            const std::string label = "[" + std::to_string(++index) + "]";
            if (!records) {
                const auto value = item.attributes.find("Value");
                rows.push_back({depth + 1, label, "", Printable(value == item.attributes.end() ? "" : value->second)});
                continue;
            }
            rows.push_back({depth + 1, label, "record", field.item().elementName});
            ShowRecord(rows, *field.item().fromNode(item), field.item(), depth + 2);
        }
    }
}

void ShowRecord(std::vector<Shown> &rows, const XMLMarshaller::XMLMarshallableObject &record,
                const RecordDescription &description, int depth) {
    if (const auto *own = dynamic_cast<const ObjectInstance *>(&record)) {
        ShowInstance(rows, *own, depth);  // a bag shows its contents, not its (empty) view of itself
        return;
    }
    ObjectInstance instance;
    description.toObjectInstance(record, instance);
    ShowInstance(rows, instance, depth);
    ShowNested(rows, record.ToXMLNode(), description, depth);
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
    int status = 0;
    bool first = true;
    for (const XMLParser::XMLNode &element : reader.children) {
        const RecordType *type = FindRecordType(element.name);
        if (!type) {
            std::fflush(stdout);
            std::cerr << "qor record: " << path << ": no record type is named '" << element.name
                      << "' (see qor record list)\n";
            status = 1;
            continue;
        }
        if (!first) std::printf("\n");
        first = false;
        std::vector<Shown> shown;
        ShowRecord(shown, *type->fromNode(element), type->describe(), 0);
        std::printf("%s (%s)\n\n", type->elementName, type->family);
        std::vector<Row> rows;
        for (const Shown &row : shown) rows.push_back({std::string(2 * row.depth, ' ') + row.name, row.type, row.value});
        PrintColumns({"Name", "Type", "Value"}, rows);
    }
    return status;
}

// ---- new, fields, list

int New(const std::string &name) {
    const auto types = TypesNamed(name);
    if (types.size() != 1) return types.empty() ? UnknownType(name) : UsageError("record new: " + name + " is a family; name one type");
    std::printf("%s\n", types.front()->describe().make()->ToXMLString().c_str());
    return 0;
}

std::string DefaultText(const FieldDescription &field) {
    switch (field.kind) {
    case FieldKind::StringAttribute: return field.defaultValue.empty() ? "empty" : "\"" + Printable(field.defaultValue) + "\"";
    case FieldKind::ValueList:
    case FieldKind::RecordList: return field.defaultValue.empty() ? "empty" : field.defaultValue;
    case FieldKind::ChildRecord: return "default record";
    default: return field.defaultValue;
    }
}

// Where a field departs from the rules of its kind.
std::string Departures(const FieldDescription &field) {
    std::vector<std::string> notes;
    if (field.shownValue) notes.push_back("shows \"" + std::string(field.shownValue) + "\"");
    else if (field.parameterName && !field.readBack) notes.push_back("shown only");
    if (field.parameterName && *field.parameterDescription) {
        notes.push_back("described \"" + std::string(field.parameterDescription) + "\"");
    }
    if (field.kind == FieldKind::NumberAttribute && field.readAsLong) notes.push_back("read as long");
    if (field.wrapperAlways) notes.push_back("wrapper always written");
    if (!field.compared) notes.push_back("not compared");
    std::string joined;
    for (const std::string &note : notes) joined += (joined.empty() ? "" : ", ") + note;
    return joined;
}

void PrintFields(const RecordType &type) {
    const RecordDescription &description = type.describe();
    std::printf("%s%s%s (%s), file type %s\n", description.elementName, description.baseName ? " : " : "",
                description.baseName ? description.baseName : "", type.family, description.fileType);
    if (description.handWrittenObjectInstance) {
        std::printf("ToObjectInstance and FromObjectInstance are written by hand\n");
    }
    std::printf("\n");
    if (description.fields.empty()) {
        std::printf("no fields\n");
        return;
    }
    std::vector<Row> rows;
    bool departures = false;
    for (const FieldDescription &field : description.fields) {
        const bool parameter = field.parameterName != nullptr;
        rows.push_back({field.key, FieldKindName(field.kind), field.memberType, DefaultText(field),
                        parameter ? field.parameterName : "-", parameter ? TypeName(field.parameterType) : "-",
                        Departures(field)});
        departures = departures || !rows.back().back().empty();
    }
    Row heading{"Key", "Kind", "Member type", "Default", "Parameter name", "Parameter type", "Notes"};
    if (!departures) {
        heading.pop_back();
        for (Row &row : rows) row.pop_back();
    }
    PrintColumns(heading, rows);
}

int Fields(const std::vector<std::string> &names) {
    bool first = true;
    for (const std::string &name : names) {
        const auto types = TypesNamed(name);
        if (types.empty()) return UnknownType(name);
        for (const RecordType *type : types) {
            if (!first) std::printf("\n");
            first = false;
            PrintFields(*type);
        }
    }
    return 0;
}

int List() {
    const char *family = nullptr;
    for (const RecordType &type : AllRecordTypes()) {
        if (!family || std::string_view(family) != type.family) {
            std::printf("%s%s\n", family ? "\n" : "", type.family);
            family = type.family;
        }
        const RecordDescription &description = type.describe();
        std::string line = std::string("  ") + type.elementName;
        if (description.baseName) line += std::string(" : ") + description.baseName;
        if (std::string_view(description.fileType) != "MetaData") {
            line += std::string(40 > line.size() ? 40 - line.size() : 1, ' ') + "file type " + description.fileType;
        }
        std::printf("%s\n", line.c_str());
    }
    return 0;
}

int RunRecord(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kRecordHelp, stdout);
        return 0;
    }
    if (args.empty()) return UsageError("record: missing sub-verb (see qor record --help)");
    const std::string &verb = args[0];
    if (verb == "show" || verb == "new") {
        if (args.size() != 2) return UsageError("record " + verb + ": expects one " + (verb == "show" ? "FILE" : "TYPE") + " (see qor record --help)");
        return verb == "show" ? Show(args[1]) : New(args[1]);
    }
    if (verb == "fields") {
        if (args.size() < 2) return UsageError("record fields: expects a TYPE or FAMILY (see qor record --help)");
        return Fields({args.begin() + 1, args.end()});
    }
    if (verb == "list") {
        if (args.size() != 1) return UsageError("record list: takes no arguments");
        return List();
    }
    return UsageError("record: unknown sub-verb '" + verb + "' (see qor record --help)");
}

QorCommand record_command({"record", "show, stamp and describe records; list record types", kRecordHelp,
                           &RunRecord});

}  // namespace
}  // namespace qor::cli
