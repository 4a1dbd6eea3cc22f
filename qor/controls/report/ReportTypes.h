// The small value types of the report grid: the in-place types of a column,
// the menu and editor models that a window draws, and the list-state flags.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qor/platform/WinGeometry.h"

// What a click in a cell of the column does. Any other value makes the cell
// read-only, so the type is an open integer, not a closed enumeration.
enum InPlaceType : int {
    InPlaceReadOnly = 0,
    InPlaceEdit = 1,
    InPlaceComboBox = 2,
    InPlaceDate = 3,
    InPlaceDateTime = 4,
    InPlaceButton = 5,
    InPlaceOwnerAction = 6,
};

// Item states of the list, with the framework's values.
#define LVIS_FOCUSED 0x0001u
#define LVIS_SELECTED 0x0002u
#define LVIS_CUT 0x0004u
#define LVIS_DROPHILITED 0x0008u

namespace qor {

// One entry of a menu the grid offers; a window turns the tree into its own
// menus. A separator has no identifier or text; a popup has children.
struct MenuItem {
    unsigned id = 0;
    std::string text;
    bool separator = false;
    bool enabled = true;
    bool isPopup = false;
    std::vector<MenuItem> popup;

    static MenuItem Command(unsigned id, std::string text) {
        MenuItem item;
        item.id = id;
        item.text = std::move(text);
        return item;
    }
    static MenuItem Separator() {
        MenuItem item;
        item.separator = true;
        return item;
    }
    static MenuItem Popup(std::string text) {
        MenuItem item;
        item.text = std::move(text);
        item.isPopup = true;
        return item;
    }
};

// The in-place editor of the moment, as the window is to show it over its
// cell. `rect` is in the list's client coordinates.
struct InPlaceEditor {
    enum class Kind { Edit, ComboBox, Date, Button };

    Kind kind = Kind::Edit;
    int row = -1;
    int column = -1;
    std::string text;                // the edit text, the selected item, the button caption
    std::vector<std::string> items;  // the combo box's list
    int selected = -1;               // index into items, -1 for none
    std::int64_t time = 0;           // the date editor's value, seconds since 1970
    bool showTime = false;           // a date-and-time editor (type 4)
    unsigned long style = 0;         // the window style bits of the framework
    CRect rect;
    int itemHeight = 0;    // combo box: the height of a list item
    int droppedWidth = 0;  // combo box: the width of the dropped list
    int pointSize = 80;    // the font, in tenths of a point
    std::string fontFace = "MS Shell Dlg";
};

// The text a date editor gives back when it closes: "YYYY-MM-DD", with
// " HH:MM:SS" for a date-and-time editor, in local time.
std::string FormatInPlaceTime(std::int64_t time, bool showTime);

}  // namespace qor
