// A window's remembered state in the registry: its placement and the active
// page of its sheet, under a key its program chooses.
#pragma once

#include <string>
#include <vector>

#include "qor/controls/layout/WindowPlacement.h"
#include "qor/settings/Registry.h"

// Under the key (below `root`, the current user's hive unless told
// otherwise) it keeps two values:
//   "WindowPlacement"  string  "left,top,right,bottom,maximized" (see
//                              qor::FormatPlacement), screen coordinates
//   "ActivePage"       number  the index of the sheet's active page
// Each save is one write of one value, so a crash never leaves half a
// placement. A value that is missing, of another type or not in its form
// (edited by hand, say) loads as nothing, and the window opens where its
// program puts it. With an empty key nothing is saved or loaded.
class CResizableState {
public:
    static constexpr const char *kPlacementValue = "WindowPlacement";
    static constexpr const char *kActivePageValue = "ActivePage";

    explicit CResizableState(std::string key = {}, HKEY root = HKEY_CURRENT_USER);

    void SetStateKey(std::string key) { this->key = std::move(key); }
    const std::string &GetStateKey() const { return key; }

    bool SavePlacement(const qor::WindowPlacement &placement) const;
    // As saved; bring it onto today's screens with qor::FitPlacement.
    bool LoadPlacement(qor::WindowPlacement &placement) const;
    bool SaveActivePage(int page) const;
    bool LoadActivePage(int &page) const;

    // The work areas of the screens there are now, the primary first.
    static std::vector<CRect> ScreenWorkAreas();

private:
    std::string key;
    mutable CRegistry registry;
};
