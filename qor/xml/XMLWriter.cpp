// Writing a document to a buffer, in place to a file, or safely through a
// working file that then replaces the destination.
#include "qor/xml/XMLWriter.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <limits.h>

#include "qor/platform/Files.h"
#include "qor/platform/SystemError.h"
#include "qor/xml/XMLSerializer.h"

namespace {

// "Error <number>: <the system's text>", as failures of file steps show it.
std::string ErrorText(int error) {
    return "Error " + std::to_string(error) + ": " + qor::SystemErrorText(error);
}

bool IsPathNotFound(int error) { return error == ENOENT || error == ENOTDIR; }

// Everything before the last '/', or npos when there is none.
std::size_t LastSlash(const std::string &path) { return path.find_last_of('/'); }

[[noreturn]] void ThrowWriteDirectly(int code, const char *message) {
    throw XMLParserException(code, "XMLWriter::WriteDirectly", message);
}

[[noreturn]] void ThrowWrite(int code, const std::string &message) {
    throw XMLParserException(code, "XMLWriter::Write", message);
}

// The empty file that reserved the working file's unique name; it goes when
// the write is over, whatever its outcome.
class NameReservation {
public:
    explicit NameReservation(std::string path) : path_(std::move(path)) {}
    NameReservation(const NameReservation &) = delete;
    NameReservation &operator=(const NameReservation &) = delete;
    ~NameReservation() { std::remove(path_.c_str()); }

private:
    std::string path_;
};

}  // namespace

XMLWriter::XMLWriter(const std::string &fileType, const std::string &version, bool writeMD5Sum)
    : writeMD5Sum(writeMD5Sum) {
    name = DEFAULT_ROOT_NAME;
    attributes[FILETYPE_ATTRIBUTE] = fileType;
    attributes[VERSION_ATTRIBUTE] = version;
}

// The sum's pass and the output's pass give the same text but for the sum's
// own 32 characters (the first pass leaves attribute values escaped in the
// tree, the second writes them as they stand), so the output is the hashed
// text with the sum put in the placeholder's place.
void XMLWriter::WriteToBuffer(std::string &out) {
    if (!writeMD5Sum) {
        FillBuffer(out, false, true);
        return;
    }
    std::size_t placeholderAt = 0;
    std::string sum = qor::xmlwrite::SumDocument(*this, out, placeholderAt);
    attributes[MD5SUM_ATTRIBUTE] = sum;
    out.replace(placeholderAt, sum.size(), sum);
}

namespace {

// WriteDirectly's steps; returns the error of writing or closing, which
// WriteDirectly itself does not report.
int WriteFileInPlace(XMLWriter &writer, const char *path) {
    if (!path) ThrowWriteDirectly(0, "Unable to save the file.  \r\nNull path pointer.");
    if (!*path) ThrowWriteDirectly(0, "Unable to save the file.  \r\nEmpty path.");
    std::string target = path;
    std::size_t slash = LastSlash(target);
    // Without a '/', the whole path stands for the folder, as callers pass
    // full paths.
    std::string directory = slash == std::string::npos ? target : target.substr(0, slash);
    if (IsPathNotFound(qor::PathError(directory))) qor::CreateDirectories(directory);

    qor::OutputFile file;
    if (file.Open(target) != 0)
        ThrowWriteDirectly(1,
                           "Unable to save the file.  \r\nPlease make sure that you have "
                           "permissions to save this file at the specified location.");
    std::string buffer;
    writer.WriteToBuffer(buffer);
    int error = file.Write(buffer);
    int closeError = file.Close();
    return error ? error : closeError;
}

}  // namespace

void XMLWriter::WriteDirectly(const char *path) { WriteFileInPlace(*this, path); }

void XMLWriter::Write(const char *path) {
    if (!path) ThrowWrite(0, "Unable to save the file : \r\nNull path pointer");
    if (!*path) ThrowWrite(0, "Unable to save the file: \r\nEmpty path");
    const std::string destination = path;

    std::string tempDirectory = qor::TempDirectory();
    if (tempDirectory.empty() || tempDirectory.size() > PATH_MAX) {
        ThrowWrite(0, "Unable to save the file: \r\nGetTempPath() failed.  \r\n" +
                          ErrorText(tempDirectory.empty() ? ENOENT : ENAMETOOLONG));
    }
    int error = 0;
    std::string uniqueName = qor::CreateUniqueTempFile(tempDirectory, error);
    if (uniqueName.empty())
        ThrowWrite(1, "Unable to save the file: \r\nGetTempFileName() failed.  \r\n" +
                          ErrorText(error));
    NameReservation reservation(uniqueName);

    std::time_t now = std::time(nullptr);
    std::tm local{};
    if (now == static_cast<std::time_t>(-1) || !localtime_r(&now, &local))
        ThrowWrite(1, "Unable to save the file: \r\nGetting local time failed.  ");
    char stamp[80];
    std::strftime(stamp, sizeof stamp, "TP%F_%H%M%S-", &local);

    std::size_t nameAt = LastSlash(uniqueName);
    std::string working =
        uniqueName.substr(0, nameAt) + "/" + stamp + uniqueName.substr(nameAt + 1);

    // A working file that could not be written whole must not replace the
    // destination.
    if (WriteFileInPlace(*this, working.c_str()) != 0)
        ThrowWriteDirectly(1,
                           "Unable to save the file.  \r\nPlease make sure that you have "
                           "permissions to save this file at the specified location.");

    error = qor::ReplaceFileAtomically(working, destination);
    if (error && IsPathNotFound(error)) {
        std::size_t slash = LastSlash(destination);
        if (slash != std::string::npos) {
            std::string directory = destination.substr(0, slash);
            if (IsPathNotFound(qor::PathError(directory)) && !qor::CreateDirectories(directory))
                ThrowWrite(1, "Unable to save the file: \r\nFailed to create directory " +
                                  directory);
            error = qor::ReplaceFileAtomically(working, destination);
        }
    }
    if (error) {
        ThrowWrite(1, "Unable to save the file: \r\nCopyFile() failed to copy " + working +
                          " -> " + destination + "\r\n" + ErrorText(error));
    }
    std::remove(working.c_str());
}
