// Base of the library's run-time exceptions: two strings and a code.
#pragma once

#include <string>

class CQorException {
public:
    CQorException() = default;
    CQorException(std::string message, std::string source, long code)
        : message(std::move(message)), source(std::move(source)), code(code) {}
    virtual ~CQorException() = default;

    std::string message;
    std::string source;
    long code = 0;
};
