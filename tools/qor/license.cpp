// qor license: issue product keys (for the vendor), check them, and show what
// this computer offers a key: its installation record and its adapters.
#include <cstdio>
#include <ctime>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "Command.h"
#include "qor/licensing.h"
#include "qor/settings/RegistryStore.h"

namespace qor::cli {
namespace {

constexpr const char *kLicenseHelp =
    "usage: qor license issue --key PRIVATE.pem --product NAME --licensee NAME\n"
    "                         [--edition E] [--expires YYYY-MM-DD] [--bind-adapter MAC]...\n"
    "       qor license check KEY [--public-key PUBLIC.pem] [--product NAME]\n"
    "       qor license info [--registry-key KEY] [--value NAME] [--hive HIVE] [--store FILE]\n"
    "\n"
    "issue  signs a product key with the vendor's private key (an Ed25519 PEM file,\n"
    "       as `openssl genpkey -algorithm ed25519 -out PRIVATE.pem` makes) and\n"
    "       prints its terms, then the key as the last line. The key is valid\n"
    "       through the --expires day (UTC), or forever without it, and with\n"
    "       --bind-adapter only on a computer that has one of the named adapters\n"
    "       (up to 8). Names: product 1 to 32 bytes, edition up to 32, licensee 1\n"
    "       to 64. The private key never ships with a product.\n"
    "check  reads a key (hyphens, blanks and case do not matter; it may be given\n"
    "       as several words), checks its signature with the public key built\n"
    "       into the library or the one given, its expiry, and its binding to\n"
    "       this computer's adapters, and with --product that it is for NAME.\n"
    "       Prints its terms and the verdict; exits 0 only for a valid key.\n"
    "info   this computer's installation record (where it lives, its first-run\n"
    "       and last-seen times, whether its seal holds) and its adapters as a\n"
    "       key would bind them. Changes nothing.\n"
    "\n"
    "options of info:\n"
    "  --registry-key KEY  the key of the record (default Software\\Qor\\Licensing)\n"
    "  --value NAME        the value of the record (default Installation)\n"
    "  --hive HIVE         HKCU (default), HKLM, HKCR, HKU, HKCC or a full name\n"
    "  --store FILE        keep the hive in FILE instead of its usual place\n";

// The words of a subcommand: its options with their values (some may
// repeat), and the rest.
struct Options {
    std::multimap<std::string, std::string> values;
    std::vector<std::string> words;

    bool Has(const std::string &name) const { return values.count(name) > 0; }
    std::string Get(const std::string &name, const std::string &otherwise = {}) const {
        const auto found = values.find(name);
        return found == values.end() ? otherwise : found->second;
    }
    std::vector<std::string> All(const std::string &name) const {
        std::vector<std::string> found;
        for (auto [at, end] = values.equal_range(name); at != end; ++at) found.push_back(at->second);
        return found;
    }
};

// Reads `args` against the options a subcommand knows, each of which takes
// a value; returns the complaint, or "" when they read.
std::string ParseOptions(const std::vector<std::string> &args, std::size_t from,
                         std::initializer_list<const char *> known, Options &options) {
    for (std::size_t i = from; i < args.size(); ++i) {
        const std::string &word = args[i];
        if (word.rfind("--", 0) != 0) {
            options.words.push_back(word);
            continue;
        }
        bool isKnown = false;
        for (const char *name : known) isKnown = isKnown || word == name;
        if (!isKnown) return "unknown option " + word;
        if (i + 1 >= args.size()) return word + " wants a value";
        options.values.emplace(word, args[++i]);
    }
    return {};
}

void PrintTerms(const CProductKey::Terms &terms, const std::string &expiry) {
    std::printf("product:   %s\n", terms.Product.c_str());
    std::printf("edition:   %s\n", terms.Edition.empty() ? "(none)" : terms.Edition.c_str());
    std::printf("licensee:  %s\n", terms.Licensee.c_str());
    std::printf("expires:   %s\n", expiry.c_str());
    std::string bound;
    for (const std::string &mac : terms.Adapters) bound += (bound.empty() ? "" : ", ") + mac;
    std::printf("bound to:  %s\n", bound.empty() ? "any computer" : bound.c_str());
}

int Issue(const std::vector<std::string> &args) {
    Options options;
    std::string complaint = ParseOptions(
        args, 1, {"--key", "--product", "--licensee", "--edition", "--expires", "--bind-adapter"}, options);
    if (complaint.empty() && !options.words.empty()) complaint = "unexpected word '" + options.words[0] + "'";
    for (const char *needed : {"--key", "--product", "--licensee"})
        if (complaint.empty() && !options.Has(needed)) complaint = std::string(needed) + " is needed";
    if (!complaint.empty()) return UsageError("license issue: " + complaint + " (see qor license --help)");

    CProductKey::Terms terms;
    terms.Product = options.Get("--product");
    terms.Licensee = options.Get("--licensee");
    terms.Edition = options.Get("--edition");
    terms.Adapters = options.All("--bind-adapter");
    if (options.Has("--expires") && !qor::ParseLicenceDate(options.Get("--expires"), terms.ExpiryDay))
        return UsageError("license issue: --expires wants a date YYYY-MM-DD");

    std::string error;
    qor::Ed25519Key key;
    if (!key.LoadPemFile(options.Get("--key"), error)) {
        std::cerr << "qor license issue: " << error << "\n";
        return 1;
    }
    std::string text;
    if (!CProductKey::Issue(terms, key, text, error)) {
        std::cerr << "qor license issue: " << error << "\n";
        return 1;
    }
    // Read back with the public half, so what is printed is what a product sees.
    CProductKey issued;
    if (issued.Load(text, key) != CProductKey::Valid) {
        std::cerr << "qor license issue: " << CProductKey::StatusText(issued.GetStatus()) << "\n";
        return 1;
    }
    PrintTerms(issued.GetTerms(), issued.GetExpiryText());
    std::printf("%s\n", issued.GetText().c_str());
    return 0;
}

int Check(const std::vector<std::string> &args) {
    Options options;
    const std::string complaint = ParseOptions(args, 1, {"--public-key", "--product"}, options);
    if (!complaint.empty()) return UsageError("license check: " + complaint);
    if (options.words.empty()) return UsageError("license check: give the key (see qor license --help)");

    qor::Ed25519Key given;
    if (options.Has("--public-key")) {
        std::string error;
        if (!given.LoadPemFile(options.Get("--public-key"), error)) {
            std::cerr << "qor license check: " << error << "\n";
            return 1;
        }
    }
    std::string text;
    for (const std::string &word : options.words) text += word;
    CProductKey key;
    if (key.Load(text, given.IsLoaded() ? given : qor::Ed25519Key::BuiltIn()) != CProductKey::Valid) {
        std::cerr << "qor license check: " << CProductKey::StatusText(key.GetStatus()) << "\n";
        return 1;
    }
    PrintTerms(key.GetTerms(), key.GetExpiryText());
    CProductKey::Status status = options.Has("--product") ? key.Check(options.Get("--product"))
                                                          : key.Check(key.GetTerms().Product);
    if (status == CProductKey::Valid) status = LANInfoValidator().Validate(key);
    std::printf("%s\n", CProductKey::StatusText(status));
    return status == CProductKey::Valid ? 0 : 1;
}

int Info(const std::vector<std::string> &args) {
    Options options;
    std::string complaint =
        ParseOptions(args, 1, {"--registry-key", "--value", "--hive", "--store"}, options);
    if (complaint.empty() && !options.words.empty()) complaint = "unexpected word '" + options.words[0] + "'";
    HKEY hive = HKEY_CURRENT_USER;
    if (complaint.empty() && options.Has("--hive") && !qor::RegistryHiveFromName(options.Get("--hive"), &hive))
        complaint = "--hive wants HKCU, HKLM, HKCR, HKU, HKCC or a full hive name";
    if (!complaint.empty()) return UsageError("license info: " + complaint);
    if (options.Has("--store")) qor::SetRegistryHiveFile(hive, options.Get("--store"));

    CInstallationTime installation(options.Get("--registry-key", CInstallationTime::kDefaultKeyPath),
                                   options.Get("--value", CInstallationTime::kDefaultValueName), hive);
    const CInstallationTime::Status status = installation.Read();
    std::printf("installation record: %s\n  %s\n", installation.GetPlace().c_str(),
                CInstallationTime::StatusText(status));
    if (installation.IsIntact()) {
        const std::time_t now = std::time(nullptr);
        std::printf("  first run: %s (%ld days ago)\n", qor::FormatLicenceTime(installation.GetFirstRun()).c_str(),
                    installation.DaysSinceInstallation(now));
        std::printf("  last seen: %s%s\n", qor::FormatLicenceTime(installation.GetLastSeen()).c_str(),
                    now + CInstallationTime::kDefaultClockTolerance < installation.GetLastSeen()
                        ? " (later than the clock now)"
                        : "");
    }

    const LANInfoValidator adapters;
    std::printf("adapters as a key binds them (--bind-adapter):\n");
    if (adapters.GetAdapters().empty())
        std::printf("  none%s%s\n", adapters.GetError().empty() ? "" : ": ", adapters.GetError().c_str());
    for (const auto &[name, mac] : adapters.GetAdapters()) std::printf("  %-16s %s\n", name.c_str(), mac.c_str());
    return status == CInstallationTime::StoreFailed ? 1 : 0;
}

int RunLicense(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kLicenseHelp, stdout);
        return 0;
    }
    if (args.empty()) return UsageError("license: say which: issue, check or info (see qor license --help)");
    const std::string &what = args[0];
    if (what == "issue") return Issue(args);
    if (what == "check") return Check(args);
    if (what == "info") return Info(args);
    return UsageError("license: unknown subcommand '" + what + "' (see qor license --help)");
}

const QorCommand licenseCommand({
    "license",
    "issue and check product keys; this computer's installation record",
    kLicenseHelp,
    &RunLicense,
});

}  // namespace
}  // namespace qor::cli
