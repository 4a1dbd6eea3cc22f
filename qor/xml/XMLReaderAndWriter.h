// One document that can be both read and written.
#pragma once

#include <string>

#include "qor/xml/XMLReader.h"
#include "qor/xml/XMLWriter.h"

// A reader and a writer over one shared document; writes with the sum.
class XMLReaderAndWriter : public XMLReader, public XMLWriter {
public:
    XMLReaderAndWriter(const std::string &fileType, const std::string &version);

    XMLReaderAndWriter(const XMLReaderAndWriter &other) = default;
    XMLReaderAndWriter(XMLReaderAndWriter &&other) = default;
    // Assigns the shared document once (the implicit ones may assign a
    // virtual base twice, and a second move would see an emptied source).
    XMLReaderAndWriter &operator=(const XMLReaderAndWriter &other);
    XMLReaderAndWriter &operator=(XMLReaderAndWriter &&other) noexcept;
};
