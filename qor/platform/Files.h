// Files and folders the way the library's Windows steps need them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qor {

// The temporary folder with a trailing '/', as GetTempPath gives it:
// $TMPDIR when set and a folder, otherwise /tmp/.
std::string TempDirectory();

// Creates `path` and any missing parents; true when the folder exists after.
bool CreateDirectories(const std::string &path);

// True when `path` names an existing file or folder.
bool PathExists(const std::string &path);

// 0 when `path` names an existing file or folder, otherwise the errno of
// looking it up (ENOENT or ENOTDIR for a path that is not there).
int PathError(const std::string &path);

// Creates a new empty file with a unique name ("XXXXXX.tmp") in `directory`
// (which ends in '/') and returns its path; on failure returns "" and sets
// error to the errno.
std::string CreateUniqueTempFile(const std::string &directory, int &error);

// Reads the whole file. 0, or the errno (EISDIR for a folder).
int ReadWholeFile(const std::string &path, std::string &contents);

// The whole text of a file, held for a reader that walks it once. A large
// regular file goes into memory that is mapped and filled in one step rather
// than grown, copied and faulted in page by page, which for a file of a few
// megabytes costs more than reading it; anything else (a pipe, a small file)
// is read into a string.
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

// A file written in place: created, or truncated when it exists.
class OutputFile {
public:
    OutputFile() = default;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    int Open(const std::string &path);  // 0, or the errno
    int Write(std::string_view data);   // 0, or the errno; all of data or an error
    int Close();                        // 0, or the errno of the close

private:
    int fd_ = -1;
};

// Replaces `destination` by a copy of `source` so that, whatever happens,
// the destination holds either its old or its new contents in full: the copy
// goes to a hidden temporary beside it, is flushed to disk and is renamed
// over it. An existing destination keeps its permission bits; one with no
// write permission at all is refused with EACCES, as a read-only file is.
// 0, or the errno (ENOENT or ENOTDIR when the destination's folder is not
// there).
int ReplaceFileAtomically(const std::string &source, const std::string &destination);

}  // namespace qor
