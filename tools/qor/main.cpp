// qor: the command line of the Qor shared class library. Every verb family
// registers itself (see Command.h); this file only dispatches.
#include "Command.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

namespace qor::cli {
namespace {

std::vector<Verb> &Verbs() {
    static std::vector<Verb> verbs;
    return verbs;
}

void PrintUsage(std::FILE *out) {
    std::fprintf(out,
                 "usage: qor VERB [ARGS...]\n"
                 "       qor VERB --help    the verb's own help\n"
                 "\n"
                 "The command line of the Qor shared class library: check and stamp XML\n"
                 "documents, show records and plate maps, talk to instruments, keep settings,\n"
                 "draw 3-D models, issue and check product keys, list host facts.\n"
                 "\n"
                 "verbs:\n");
    auto verbs = Verbs();
    std::sort(verbs.begin(), verbs.end(),
              [](const Verb &a, const Verb &b) { return std::string(a.name) < b.name; });
    for (const Verb &verb : verbs) std::fprintf(out, "  %-10s %s\n", verb.name, verb.summary);
    std::fprintf(out,
                 "\n"
                 "programs beside it (each with --help):\n"
                 "  qor-sim      a simulated instrument on TCP and a pseudo-terminal\n"
                 "  qor-view     models of the 3-D view in a window: turn, zoom, pick\n"
                 "  qor-gallery  the report grid, segment displays and styled widgets\n");
}

}  // namespace

void RegisterVerb(const Verb &verb) { Verbs().push_back(verb); }

bool WantsHelp(const std::vector<std::string> &args) {
    return std::any_of(args.begin(), args.end(),
                       [](const std::string &a) { return a == "-h" || a == "--help"; });
}

int UsageError(const std::string &message) {
    std::cerr << "qor: " << message << "\n";
    return 2;
}

}  // namespace qor::cli

int main(int argc, char **argv) {
    using namespace qor::cli;
    if (argc < 2) {
        PrintUsage(stderr);
        return 2;
    }
    std::string verb = argv[1];
    if (verb == "-h" || verb == "--help" || verb == "help") {
        PrintUsage(stdout);
        return 0;
    }
    std::vector<std::string> args(argv + 2, argv + argc);
    for (const Verb &v : Verbs()) {
        if (verb != v.name) continue;
        if (!args.empty() && (args[0] == "-h" || args[0] == "--help")) {
            std::fputs(v.help, stdout);
            return 0;
        }
        try {
            return v.run(args);
        } catch (const std::exception &e) {
            std::cerr << "qor " << verb << ": " << e.what() << "\n";
            return 1;
        }
    }
    return UsageError("unknown verb '" + verb + "' (see qor --help)");
}
