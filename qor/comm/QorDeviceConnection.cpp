#include "qor/comm/QorDeviceConnection.h"

QorDeviceConnection::~QorDeviceConnection() = default;

// The body every link shares for its vector and string forms.
void QorDeviceConnection::send(unsigned char command, const std::vector<unsigned char> &data,
                               bool longFrame, int *reconnects) {
    send(command, data.empty() ? nullptr : data.data(), static_cast<unsigned int>(data.size()),
         longFrame, reconnects);
}

void QorDeviceConnection::send(unsigned char command, const std::string &data, bool longFrame,
                               int *reconnects) {
    send(command, data.empty() ? nullptr : reinterpret_cast<const unsigned char *>(data.data()),
         static_cast<unsigned int>(data.size()), longFrame, reconnects);
}
