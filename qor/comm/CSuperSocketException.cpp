#include "qor/comm/CSuperSocket.h"
#include "qor/comm/SocketErrors.h"

CSuperSocketException::CSuperSocketException(std::string text, bool useLastError)
    : message(std::move(text)) {
    source = message;
    if (useLastError) {
        errorCode = qor::GetLastSocketError();
        errorText = TranslateErrorCode(errorCode);
        CQorException::message = errorText;
    } else {
        errorCode = -1;
        CQorException::message = message;
    }
    code = errorCode;
}

std::string CSuperSocketException::TranslateErrorCode(int code) {
    return qor::TranslateSocketError(code);
}

CSuperSocketContainer::~CSuperSocketContainer() = default;
