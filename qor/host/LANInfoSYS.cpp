// LANInfo's system-command strategy: ping each address so the kernel learns
// its MAC, then read the neighbour listing a command prints.
#include <arpa/inet.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "qor/host/ArpListing.h"
#include "qor/host/LANInfo.h"
#include "qor/platform/Files.h"

extern char **environ;

namespace {

// The neighbour listings to try, in order: the first that runs is read.
const std::vector<std::vector<std::string>> kNeighbourListings = {
    {"ip", "neigh", "show"},
    {"arp", "-an"},
};

// Finds a program on PATH, or in the system folders where ip and arp live
// even when PATH leaves them out.
std::string FindProgram(const std::string &name) {
    const char *path = std::getenv("PATH");
    std::string folders = std::string(path ? path : "") + ":/usr/sbin:/sbin:/usr/bin:/bin";
    std::istringstream list(folders);
    std::string folder;
    while (std::getline(list, folder, ':')) {
        if (folder.empty()) continue;
        std::string candidate = folder + "/" + name;
        if (::access(candidate.c_str(), X_OK) == 0) return candidate;
    }
    return {};
}

// Runs the command with its standard output into `outFd`, standard input and
// error inherited, and waits for it. False when it could not be started.
bool RunToFile(const std::vector<std::string> &argv, int outFd) {
    std::string program = FindProgram(argv[0]);
    if (program.empty()) {
        errno = ENOENT;
        return false;
    }
    std::vector<char *> args;
    for (const std::string &arg : argv) args.push_back(const_cast<char *>(arg.c_str()));
    args.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, outFd, STDOUT_FILENO);
    pid_t child = 0;
    int error = ::posix_spawn(&child, program.c_str(), &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        errno = error;
        return false;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    return true;
}

// A file in the temporary folder that is removed when it goes out of scope.
// Each call gets its own, so two processes never read each other's listing.
struct ScratchFile {
    std::string path = qor::TempDirectory() + "arpXXXXXX";
    int fd = ::mkstemp(path.data());
    ~ScratchFile() {
        if (fd >= 0) {
            ::close(fd);
            ::unlink(path.c_str());
        }
    }
};

}  // namespace

LANInfo::MACAddresses LANInfo::GetMACAddressesSYS(const std::vector<std::string> &ips) {
    static const char kFunction[] = "LANInfo::GetMACAddressesSYS";
    std::vector<std::string> valid;
    for (const std::string &ip : ips) {
        in_addr address{};
        if (::inet_pton(AF_INET, ip.c_str(), &address) == 1) valid.push_back(ip);
    }

    {
        ScratchFile pingOutput;
        if (pingOutput.fd < 0) throw LANInfoException(kFunction, "Could not create a temporary file", errno, 0);
        for (const std::string &ip : valid) RunToFile({"ping", "-c", "2", "-W", "1", ip}, pingOutput.fd);
    }

    ScratchFile listing;
    if (listing.fd < 0) throw LANInfoException(kFunction, "Could not create a temporary file", errno, 0);
    bool ran = false;
    for (const auto &command : kNeighbourListings)
        if ((ran = RunToFile(command, listing.fd))) break;
    if (!ran) throw LANInfoException(kFunction, "Could not run ip neigh or arp -an", errno, 0);

    std::ifstream file(listing.path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const auto rows = qor::ParseArpListing(text);

    MACAddresses found;
    for (const std::string &ip : valid)
        if (auto row = rows.find(ip); row != rows.end()) found.emplace(ip, row->second);
    return found;
}
