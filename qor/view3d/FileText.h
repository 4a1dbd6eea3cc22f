// The whole text of a file, held for a reader that walks it once. Large
// regular files go into memory that is mapped and filled in one step rather
// than grown, copied and faulted in page by page, which for a model of a few
// megabytes costs more than reading it; anything else (a pipe, a small file)
// is read into a string.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qor::vrml {

class FileText {
public:
    FileText() = default;
    FileText(const FileText &) = delete;
    FileText &operator=(const FileText &) = delete;
    ~FileText();

    // Reads the file at path to its end. False only when it cannot be
    // opened; a read that fails part way keeps what arrived, and a folder
    // opens and reads as empty, as a stream does.
    bool Open(const std::string &path);

    std::string_view Text() const { return mapped_ ? std::string_view(mapped_, size_) : std::string_view(text_); }

private:
    char *mapped_ = nullptr;  // mapped memory of capacity_ bytes, size_ of them read
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
    std::string text_;
};

}  // namespace qor::vrml
