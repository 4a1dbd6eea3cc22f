// qor registry: list, read, write, delete, export and import settings in the
// registry store.
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "Command.h"
#include "qor/platform/Waitable.h"
#include "qor/settings.h"

namespace {

using qor::cli::UsageError;
namespace reg = qor::registry;

const char kRegistryHelp[] =
    "usage: qor registry ls KEY [-r]\n"
    "       qor registry get KEY NAME\n"
    "       qor registry set KEY NAME VALUE... [--type N]\n"
    "       qor registry rm KEY [NAME]\n"
    "       qor registry export KEY [--file-type TYPE] > FILE.xml\n"
    "       qor registry import FILE.xml PARENT [--name NAME] [--file-type TYPE]\n"
    "\n"
    "Reads and writes the settings that drivers and applications keep in the\n"
    "registry store. KEY is a path of names joined by '\\' (quote it in the\n"
    "shell), below the hive given by --hive or by a first name such as HKLM.\n"
    "\n"
    "  ls      the subkeys (as NAME\\) and values (name, type, data) of KEY;\n"
    "          -r walks the whole tree below it\n"
    "  get     prints one value: text, a decimal number, one line per string\n"
    "          of a list, or hexadecimal bytes\n"
    "  set     writes a value, making KEY when needed; --type is a number or\n"
    "          a name: 1 REG_SZ (default), 2 REG_EXPAND_SZ, 3 REG_BINARY (hex\n"
    "          bytes), 4 REG_DWORD, 5 REG_DWORD_BIG_ENDIAN, 6 REG_LINK,\n"
    "          7 REG_MULTI_SZ (one VALUE per string); numbers may be 0x...\n"
    "  rm      deletes the value NAME, or without NAME the key and its tree\n"
    "  export  writes KEY and its tree as an XML document to standard output;\n"
    "          the entry is named after the last name of KEY\n"
    "  import  reads such a document into PARENT\\ENTRY, ENTRY being --name\n"
    "          or the document's own entry name\n"
    "\n"
    "options:\n"
    "  --hive HIVE       HKCU (default), HKLM, HKCR, HKU, HKCC or a full name\n"
    "  --store FILE      keep the hive in FILE instead of its usual place\n"
    "  --file-type TYPE  the document's file type (default Registry)\n";

// The registry's type names by number.
struct RegistryTypeName {
    unsigned long type;
    const char *name;
};
const RegistryTypeName kRegistryTypeNames[] = {
    {0, "REG_NONE"},         {1, "REG_SZ"},
    {2, "REG_EXPAND_SZ"},    {3, "REG_BINARY"},
    {4, "REG_DWORD"},        {5, "REG_DWORD_BIG_ENDIAN"},
    {6, "REG_LINK"},         {7, "REG_MULTI_SZ"},
    {8, "REG_RESOURCE_LIST"}, {9, "REG_FULL_RESOURCE_DESCRIPTOR"},
    {10, "REG_RESOURCE_REQUIREMENTS_LIST"}, {11, "REG_QWORD"},
};

std::string TypeName(unsigned long type) {
    for (const RegistryTypeName &entry : kRegistryTypeNames)
        if (entry.type == type) return entry.name;
    return "type " + std::to_string(type);
}

bool ParseType(const std::string &text, unsigned long *type) {
    for (const RegistryTypeName &entry : kRegistryTypeNames)
        if (text == entry.name) {
            *type = entry.type;
            return true;
        }
    char *end = nullptr;
    const unsigned long number = std::strtoul(text.c_str(), &end, 0);
    if (text.empty() || *end) return false;
    *type = number;
    return true;
}

// What every subcommand shares: the words left after the options, the hive,
// and the document file type.
struct RegistryCall {
    std::vector<std::string> words;
    HKEY hive = HKEY_CURRENT_USER;
    std::string fileType = "Registry";
    std::string entryName;
    std::string type;
    std::string store;
    bool recursive = false;
};

// Reads the options; returns an empty string or the complaint.
std::string ParseOptions(const std::vector<std::string> &args, RegistryCall *call) {
    std::string &store = call->store;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string &word = args[i];
        auto value = [&](std::string *out) {
            if (i + 1 >= args.size()) return false;
            *out = args[++i];
            return true;
        };
        std::string hiveName;
        if (word == "--hive") {
            if (!value(&hiveName) || !qor::RegistryHiveFromName(hiveName, &call->hive))
                return "--hive wants HKCU, HKLM, HKCR, HKU, HKCC or a full hive name";
        } else if (word == "--store") {
            if (!value(&store)) return "--store wants a file";
        } else if (word == "--file-type") {
            if (!value(&call->fileType)) return "--file-type wants a type";
        } else if (word == "--name") {
            if (!value(&call->entryName)) return "--name wants a name";
        } else if (word == "--type") {
            if (!value(&call->type)) return "--type wants a number or a type name";
        } else if (word == "-r" || word == "--recursive") {
            call->recursive = true;
        } else if (word.size() > 1 && word[0] == '-' && word.rfind("--", 0) == 0) {
            return "unknown option " + word;
        } else {
            call->words.push_back(word);
        }
    }
    if (!store.empty()) qor::SetRegistryHiveFile(call->hive, store);
    return {};
}

// A key written as "HKLM\Software\..." names its hive in front.
std::string KeyPath(const std::string &key, RegistryCall *call) {
    const std::size_t cut = key.find('\\');
    HKEY hive = nullptr;
    if (!qor::RegistryHiveFromName(key.substr(0, cut), &hive)) return key;
    call->hive = hive;
    // --store names the file of the hive the key is in.
    if (!call->store.empty()) qor::SetRegistryHiveFile(hive, call->store);
    return cut == std::string::npos ? std::string() : key.substr(cut + 1);
}

int Failure(const std::string &message) {
    std::string text = "qor registry: " + message;
    const std::string detail = reg::LastStoreError();
    if (!detail.empty()) text += " (" + detail + ")";
    std::cerr << text << "\n";
    return 1;
}

std::string HexBytes(const unsigned char *data, unsigned long size) {
    std::string text;
    char byte[4];
    for (unsigned long i = 0; i < size; ++i) {
        std::snprintf(byte, sizeof byte, i ? " %02x" : "%02x", data[i]);
        text += byte;
    }
    return text;
}

// The value as one line of text, lists joined by " | " when `oneLine`.
std::string ShowValue(CRegVal &value, bool oneLine) {
    std::string text;
    unsigned long number = 0;
    CStringArray strings;
    if (value.GetValue(text)) return text;
    if (value.GetValue(number)) return std::to_string(number);
    if (value.GetValue(strings)) {
        std::string joined;
        for (std::size_t i = 0; i < strings.size(); ++i) joined += (i ? (oneLine ? " | " : "\n") : "") + strings[i];
        return joined;
    }
    return HexBytes(value.GetRawData(), value.GetSize());
}

// Prints values and subkeys as a walk finds them.
class RegistryLister : public CRegistry {
public:
    RegistryLister(HKEY hive, bool recursive) : CRegistry(hive), recursive(recursive) {}

    int OnValueHit(const char *, const char *name, const CRegVal &value, unsigned short depth) override {
        CRegVal copy(value);
        std::printf("%s%-24s %-14s %s\n", Indent(depth).c_str(), *name ? name : "(default)",
                    TypeName(value.GetType()).c_str(), ShowValue(copy, true).c_str());
        return 1;
    }
    int OnKeyHit(const char *name, unsigned short depth) override {
        std::printf("%s%s\\\n", Indent(depth).c_str(), name);
        return 1;
    }

private:
    std::string Indent(unsigned short depth) const { return recursive ? std::string(2u * depth, ' ') : ""; }
    bool recursive;
};

int List(RegistryCall &call) {
    if (call.words.size() != 2) return UsageError("registry ls wants KEY");
    const std::string path = KeyPath(call.words[1], &call);
    HKEY key = nullptr;
    if (reg::OpenKey(call.hive, path.c_str(), reg::kRead, &key) != reg::kSuccess)
        return Failure("no key " + call.words[1]);
    RegistryLister lister(call.hive, call.recursive);
    int listed;
    if (call.recursive) {
        reg::CloseKey(key);
        listed = lister.RegistryTreeWalk(path.c_str(), 3);
    } else {
        // A walk of its root alone stays at the top, and closes that root.
        lister.SetKey(key);
        listed = lister.RegistryTreeWalk(nullptr, 3);
    }
    return listed ? 0 : Failure("cannot list " + call.words[1]);
}

int Get(RegistryCall &call) {
    if (call.words.size() != 3) return UsageError("registry get wants KEY NAME");
    const std::string path = KeyPath(call.words[1], &call);
    CRegistry registry(call.hive);
    CRegVal value;
    if (!registry.LoadKey(path.c_str(), call.words[2].c_str(), value))
        return Failure("no value " + call.words[2] + " under " + call.words[1]);
    std::printf("%s\n", ShowValue(value, false).c_str());
    return 0;
}

bool ParseHexBytes(const std::string &text, std::vector<unsigned char> *bytes) {
    std::string digits;
    for (char c : text)
        if (!std::isspace(static_cast<unsigned char>(c)) && c != ':' && c != ',') digits += c;
    if (digits.size() % 2) return false;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        char *end = nullptr;
        const std::string pair = digits.substr(i, 2);
        const unsigned long byte = std::strtoul(pair.c_str(), &end, 16);
        if (*end) return false;
        bytes->push_back(static_cast<unsigned char>(byte));
    }
    return true;
}

int Set(RegistryCall &call) {
    if (call.words.size() < 4) return UsageError("registry set wants KEY NAME VALUE...");
    unsigned long type = REG_SZ;
    if (!call.type.empty() && !ParseType(call.type, &type)) return UsageError("unknown type " + call.type);
    const std::string path = KeyPath(call.words[1], &call);
    const std::vector<std::string> texts(call.words.begin() + 3, call.words.end());
    if (type != REG_MULTI_SZ && texts.size() != 1) return UsageError("one VALUE, except for REG_MULTI_SZ");
    CRegVal value;
    switch (type) {
    case REG_DWORD:
    case REG_DWORD_BIG_ENDIAN: {
        char *end = nullptr;
        const long long number = std::strtoll(texts[0].c_str(), &end, 0);
        if (texts[0].empty() || *end || number < -2147483648LL || number > 0xFFFFFFFFLL)
            return UsageError("not a 32-bit number: " + texts[0]);
        value.SetValue(static_cast<unsigned long>(static_cast<std::uint32_t>(number)));
        break;
    }
    case REG_MULTI_SZ:
        value.SetValue(texts);
        break;
    case REG_SZ:
    case REG_EXPAND_SZ:
    case REG_LINK:
        value.SetValue(texts[0].c_str(), 0);
        break;
    default: {
        std::vector<unsigned char> bytes;
        if (!ParseHexBytes(texts[0], &bytes)) return UsageError("not hexadecimal bytes: " + texts[0]);
        value.SetValue(bytes.data(), static_cast<unsigned long>(bytes.size()));
        break;
    }
    }
    value.SetType(type);
    CRegistry registry(call.hive);
    if (!registry.SaveKey(path.c_str(), call.words[2].c_str(), value))
        return Failure("cannot write " + call.words[2] + " under " + call.words[1]);
    return 0;
}

int Remove(RegistryCall &call) {
    if (call.words.size() != 2 && call.words.size() != 3) return UsageError("registry rm wants KEY [NAME]");
    const std::string path = KeyPath(call.words[1], &call);
    if (path.empty() && call.words.size() == 2) return UsageError("a whole hive cannot be deleted");
    CRegistry registry(call.hive);
    const char *name = call.words.size() == 3 ? call.words[2].c_str() : nullptr;
    if (!registry.DeleteKey(path.c_str(), name))
        return Failure("cannot delete " + (name ? std::string(name) + " under " : std::string()) + call.words[1]);
    return 0;
}

int Export(RegistryCall &call) {
    if (call.words.size() != 2) return UsageError("registry export wants KEY");
    const std::string path = KeyPath(call.words[1], &call);
    const std::size_t cut = path.find_last_of('\\');
    const std::string entry = cut == std::string::npos ? path : path.substr(cut + 1);
    HKEY key = nullptr;
    if (reg::OpenKey(call.hive, path.c_str(), reg::kRead, &key) != reg::kSuccess)
        return Failure("no key " + call.words[1]);
    reg::CloseKey(key);
    XMLRegistry exporter(call.hive);
    std::string xml;
    exporter.ExportXML(path.c_str(), xml, call.fileType, "1.0", entry);
    std::fwrite(xml.data(), 1, xml.size(), stdout);
    std::fputc('\n', stdout);
    return 0;
}

int Import(RegistryCall &call) {
    if (call.words.size() != 3) return UsageError("registry import wants FILE.xml PARENT");
    std::ifstream file(call.words[1], std::ios::binary);
    if (!file) return Failure("cannot read " + call.words[1]);
    std::stringstream content;
    content << file.rdbuf();
    std::string parent = KeyPath(call.words[2], &call);
    if (!parent.empty() && parent.back() != '\\') parent += '\\';
    XMLRegistry importer(call.hive);
    std::string error;
    try {
        if (!importer.ImportXML(parent.c_str(), content.str(), call.fileType, error, call.entryName)) {
            std::cerr << "qor registry: " << error << "\n";
            return 1;
        }
    } catch (const XMLParserException &e) {
        std::cerr << "qor registry: " << e.function << ": " << e.message << "\n";
        return 1;
    }
    return 0;
}

struct RegistrySubcommand {
    const char *name;
    int (*run)(RegistryCall &);
};
const RegistrySubcommand kRegistrySubcommands[] = {
    {"ls", List}, {"get", Get}, {"set", Set}, {"rm", Remove}, {"export", Export}, {"import", Import},
};

int RunRegistry(const std::vector<std::string> &args) {
    if (args.empty()) return UsageError("registry wants a subcommand (see qor registry --help)");
    if (qor::cli::WantsHelp(args)) {
        std::fputs(kRegistryHelp, stdout);
        return 0;
    }
    RegistryCall call;
    if (std::string complaint = ParseOptions(args, &call); !complaint.empty()) return UsageError(complaint);
    for (const RegistrySubcommand &sub : kRegistrySubcommands)
        if (!call.words.empty() && call.words[0] == sub.name) return sub.run(call);
    const std::string given = call.words.empty() ? std::string() : call.words[0];
    return UsageError("unknown registry subcommand '" + given + "' (see qor registry --help)");
}

const qor::cli::QorCommand kRegistryCommand({"registry", "list, read, write, export and import settings",
                                             kRegistryHelp, RunRegistry});

}  // namespace
