// A file under /tmp holding the given bytes, removed when the object goes.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace qor::test {

class ScratchFile {
public:
    explicit ScratchFile(const std::vector<std::uint8_t> &bytes) {
        char name[] = "/tmp/qor-host-test-XXXXXX";
        ::close(::mkstemp(name));
        path_ = name;
        std::ofstream(path_, std::ios::binary)
            .write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;
    ~ScratchFile() { std::remove(path_.c_str()); }
    const char *path() const { return path_.c_str(); }

private:
    std::string path_;
};

}  // namespace qor::test
