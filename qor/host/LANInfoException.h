// LANInfoException: the one failure of LANInfo, thrown by value.
#pragma once

#include <string>

class LANInfoException {
public:
    LANInfoException(std::string function, std::string message, int errorCode, int secondCode)
        : function(std::move(function)),
          message(std::move(message)),
          errorCode(errorCode),
          secondCode(secondCode) {}

    std::string function;  // the failing operation, e.g. "LANInfo::GetSubnetMasksIPH"
    std::string message;   // what failed, e.g. "GetIfTable failed"; may be empty
    int errorCode;         // the system's error number or NetBIOS return code
    int secondCode;        // a further code, 0 when there is none
};
