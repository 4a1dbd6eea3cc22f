// Serial port numbers and the device paths behind them, and the list of the
// ports this machine has.
//
// A port is known by its number, as drivers and saved settings name it. Port
// N is /dev/ttyS<N-1> unless SetSerialPortPath maps it to another path (a USB
// adapter, one end of a pseudo-terminal). The map is process-wide and is read
// when a port is opened, so set it before Open.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace qor {

// Maps `port` to `path`; an empty path restores the default.
void SetSerialPortPath(unsigned port, const std::string &path);

// The path that opening `port` uses.
std::string SerialPortPath(unsigned port);

// The numbers of the ports that exist here, ascending. A port counts when its
// device (mapped or default) is a terminal we can open, or when the system
// refuses us because it is busy or not ours, which still means it is there.
// Ports 1 to 255 are tried, and every mapped port besides.
void EnumerateSerialPorts(std::vector<int> &ports);

// Fills any list control that has the CComboBox operations used below:
// clears it, adds "COM %d" for each port with the number as item data, and
// selects the first item when there is one.
template <class ComboBox>
void PopulateSerialPortsCombo(ComboBox &combo) {
    std::vector<int> ports;
    EnumerateSerialPorts(ports);
    combo.ResetContent();
    for (std::size_t i = 0; i < ports.size(); ++i) {
        char text[32];
        std::snprintf(text, sizeof text, "COM %d", ports[i]);
        int index = combo.InsertString(static_cast<int>(i), text);
        combo.SetItemData(index, static_cast<unsigned long>(ports[i]));
    }
    if (combo.GetCount() > 0) combo.SetCurSel(0);
}

}  // namespace qor
