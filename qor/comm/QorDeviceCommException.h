// The failure that the device layer itself throws: "You must connect ...",
// "Failed to connect to device via Ethernet", and their like.
#pragma once

#include <string>

#include "qor/platform/QorException.h"

class QorDeviceCommException : public CQorException {
public:
    // Copies `message` into both this class's `message` and the base's, with
    // the base's code 0.
    explicit QorDeviceCommException(const std::string &message);

    std::string message;
};
