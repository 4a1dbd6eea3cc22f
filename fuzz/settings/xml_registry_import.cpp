// XMLRegistry::ImportXML on any bytes: it must give one of its error texts or
// the XML layer's exception, never crash, and leave a store that exports.
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "qor/settings/XMLRegistry.h"

namespace {

const std::string kKnownErrors[] = {
    "The file type is incorrect.",
    "The entry name is empty.",
    "The xml file is invalid.",
    "Please make sure you have permission to write at the specified location: ",
};

bool KnownError(const std::string &error) {
    for (const std::string &known : kKnownErrors)
        if (error.rfind(known, 0) == 0) return true;
    return false;
}

void UseScratchStore() {
    // Memory-backed when the machine has it: the store is written on every run.
    const std::filesystem::path base = std::filesystem::exists("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
    std::string pattern = (base / "qor-fuzz-registry-XXXXXX").string();
    static std::string folder = mkdtemp(pattern.data());
    qor::SetRegistryHiveFile(HKEY_CURRENT_USER, folder + "/HKEY_CURRENT_USER.db");
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const bool ready = (UseScratchStore(), true);
    (void)ready;
    const std::string xml(reinterpret_cast<const char *>(data), size);
    XMLRegistry registry(HKEY_CURRENT_USER);
    std::string error;
    // An odd length renames the entry, so both ways of naming it are fuzzed.
    const std::string entryName = size % 2 ? "Renamed" : "";
    try {
        if (!registry.ImportXML("Fuzz\\", xml, "Registry", error, entryName) && !KnownError(error)) std::abort();
    } catch (const XMLParserException &) {
    }
    std::string exported;
    registry.ExportXML("Fuzz", exported, "Registry", "1.0", "Fuzz");
    registry.DeleteKey("Fuzz", nullptr);
    return 0;
}
