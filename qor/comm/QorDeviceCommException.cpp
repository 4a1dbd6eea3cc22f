#include "qor/comm/QorDeviceCommException.h"

QorDeviceCommException::QorDeviceCommException(const std::string &text)
    : CQorException(text, std::string(), 0), message(text) {}
