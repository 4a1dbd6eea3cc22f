#include "qor/xml/XMLReaderAndWriter.h"

XMLReaderAndWriter::XMLReaderAndWriter(const std::string &fileType, const std::string &version)
    : XMLParser(), XMLWriter(fileType, version, true) {}

XMLReaderAndWriter &XMLReaderAndWriter::operator=(const XMLReaderAndWriter &other) {
    XMLParser::operator=(other);
    writeMD5Sum = other.writeMD5Sum;
    return *this;
}

XMLReaderAndWriter &XMLReaderAndWriter::operator=(XMLReaderAndWriter &&other) noexcept {
    XMLParser::operator=(std::move(other));
    writeMD5Sum = other.writeMD5Sum;
    return *this;
}
