// qor xml: check and stamp documents of the suite's XML dialect.
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "Command.h"
#include "qor/xml.h"

namespace {

const char kXmlHelp[] =
    "usage: qor xml check FILE...\n"
    "       qor xml stamp FILE...\n"
    "       qor xml SUBVERB --help\n"
    "\n"
    "Documents of the suite's XML dialect carry an MD5 sum on their root\n"
    "(attribute md5sum): the MD5 of the document's text with the sum's own\n"
    "value replaced by thirty-two zeros.\n"
    "\n"
    "  check   parse each document and compare its stored sum with the sum\n"
    "          the library computes for it\n"
    "  stamp   rewrite each document with a fresh sum, replacing the file\n"
    "          safely (a crash leaves the old document or the new one)\n";

const char kCheckHelp[] =
    "usage: qor xml check FILE...\n"
    "\n"
    "Parses each document, recomputes its sum by the MD5 rule and compares it\n"
    "with the stored md5sum attribute. Prints one line per file:\n"
    "  FILE: ok\n"
    "  FILE: sum mismatch: stored S, computed C\n"
    "  FILE: no md5sum attribute, computed C\n"
    "  FILE: empty file\n"
    "  FILE: error CODE in FUNCTION: MESSAGE   (the parse failure; CR and LF\n"
    "        of the message are shown as \\r and \\n)\n"
    "The sum is recomputed from the parsed tree as the library would write it,\n"
    "so a document whose layout was edited by hand (blanks, quotes, attribute\n"
    "order, comments) shows a mismatch even when its content is unchanged.\n"
    "Exits 0 when every file is ok, 1 otherwise, 2 on a usage error.\n";

const char kStampHelp[] =
    "usage: qor xml stamp FILE...\n"
    "\n"
    "Reads each document and writes it back through the library's writer with\n"
    "a fresh md5sum, in the writer's own layout (tabs, single quotes). The file\n"
    "is replaced whole, through a working file in the temporary folder and a\n"
    "copy renamed over it. Prints \"FILE: stamped SUM\" or the failure.\n"
    "Exits 0 when every file was stamped, 1 otherwise, 2 on a usage error.\n";

// The message on one line, CR and LF made visible.
std::string OneLine(const std::string &message) {
    std::string out;
    for (char c : message) {
        if (c == '\r')
            out += "\\r";
        else if (c == '\n')
            out += "\\n";
        else
            out += c;
    }
    return out;
}

std::string Describe(const XMLParserException &e) {
    return "error " + std::to_string(e.code) + " in " + e.function + ": " + OneLine(e.message);
}

bool IsEmptyFile(const std::string &path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) &&
           std::filesystem::file_size(path, error) == 0 && !error;
}

// One file: the line to print and whether it is ok.
bool CheckOne(const std::string &path) {
    if (IsEmptyFile(path)) {
        std::printf("%s: empty file\n", path.c_str());
        return false;
    }
    XMLReader document;
    try {
        document.Read(path.c_str());
    } catch (const XMLParserException &e) {
        std::printf("%s: %s\n", path.c_str(), Describe(e).c_str());
        return false;
    }
    auto stored = document.attributes.find(MD5SUM_ATTRIBUTE);
    const bool hasSum = stored != document.attributes.end();
    const std::string storedSum = hasSum ? stored->second : std::string();
    const std::string computed = document.GetMD5Sum();
    if (!hasSum) {
        std::printf("%s: no md5sum attribute, computed %s\n", path.c_str(), computed.c_str());
        return false;
    }
    if (storedSum != computed) {
        std::printf("%s: sum mismatch: stored %s, computed %s\n", path.c_str(),
                    OneLine(storedSum).c_str(), computed.c_str());
        return false;
    }
    std::printf("%s: ok\n", path.c_str());
    return true;
}

bool StampOne(const std::string &path) {
    if (IsEmptyFile(path)) {
        std::printf("%s: empty file, nothing to stamp\n", path.c_str());
        return false;
    }
    // Reading replaces the whole document, root name and stamps included.
    XMLReaderAndWriter document("MetaData", "1.0");
    try {
        document.Read(path.c_str());
        document.Write(path.c_str());
    } catch (const XMLParserException &e) {
        std::printf("%s: %s\n", path.c_str(), Describe(e).c_str());
        return false;
    }
    std::printf("%s: stamped %s\n", path.c_str(), document.attributes[MD5SUM_ATTRIBUTE].c_str());
    return true;
}

int ForEachFile(const std::vector<std::string> &files, bool (*one)(const std::string &)) {
    bool allOk = true;
    for (const std::string &file : files) allOk = one(file) && allOk;
    std::fflush(stdout);
    return allOk ? 0 : 1;
}

int RunXml(const std::vector<std::string> &args) {
    if (args.empty()) return qor::cli::UsageError("xml: a subverb is needed (see qor xml --help)");
    const std::string &sub = args[0];
    std::vector<std::string> files(args.begin() + 1, args.end());
    struct Subverb {
        const char *name;
        const char *help;
        bool (*one)(const std::string &);
    };
    static const Subverb kSubverbs[] = {
        {"check", kCheckHelp, CheckOne},
        {"stamp", kStampHelp, StampOne},
    };
    for (const Subverb &subverb : kSubverbs) {
        if (sub != subverb.name) continue;
        if (qor::cli::WantsHelp(files)) {
            std::fputs(subverb.help, stdout);
            return 0;
        }
        if (files.empty())
            return qor::cli::UsageError("xml " + sub + ": no FILE given (see qor xml " + sub +
                                        " --help)");
        return ForEachFile(files, subverb.one);
    }
    return qor::cli::UsageError("xml: unknown subverb '" + sub + "' (see qor xml --help)");
}

const qor::cli::QorCommand kXmlCommand({"xml", "check and stamp documents of the XML dialect",
                                        kXmlHelp, RunXml});

}  // namespace
