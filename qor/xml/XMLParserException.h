// The one failure type of XML reading and writing.
#pragma once

#include <string>

// Thrown by value by every XML read and write operation. It has no base
// class on purpose: callers catch it by its own name.
//
// code 0  bad path, or a file that cannot be opened for reading
//      1  a file that cannot be saved
//      2  header or stray-tag fault in a document
//      3  no root element
//      4  end of text inside a construct: comment, doctype, tag, open element
//      5  attribute without a quoted value
class XMLParserException {
public:
    XMLParserException(int code, const std::string &function, const std::string &message)
        : code(code), function(function), message(message) {}

    int code;              // the failure class above
    std::string function;  // the operation that threw, e.g. "XMLParser::FindNextTag"
    std::string message;   // the whole text for the user, line breaks included
};
