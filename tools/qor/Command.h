// The qor command line's verb registry. Each verb family lives in a source of
// its own and registers itself with a static QorCommand object.
#pragma once

#include <string>
#include <vector>

namespace qor::cli {

// Runs a verb with the words after it (the verb itself is not among them). Returns
// the process's exit code.
using VerbHandler = int (*)(const std::vector<std::string> &args);

struct Verb {
    const char *name;     // "xml", "record", "device", ...
    const char *summary;  // one line for `qor --help`
    const char *help;     // the whole text for `qor NAME --help`
    VerbHandler run;
};

// Registers a verb; used through a namespace-scope QorCommand object.
void RegisterVerb(const Verb &verb);

struct QorCommand {
    explicit QorCommand(const Verb &verb) { RegisterVerb(verb); }
};

// True when args (after the verb) ask for help: -h or --help anywhere.
bool WantsHelp(const std::vector<std::string> &args);

// Prints "qor: " + message to stderr and returns 2, the exit code of usage errors.
int UsageError(const std::string &message);

}  // namespace qor::cli
