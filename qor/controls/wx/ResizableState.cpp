#include "qor/controls/wx/ResizableState.h"

#include <wx/display.h>

#include <climits>

CResizableState::CResizableState(std::string key, HKEY root) : key(std::move(key)), registry(root) {}

bool CResizableState::SavePlacement(const qor::WindowPlacement &placement) const {
    return !key.empty() &&
           registry.SaveKey(key.c_str(), kPlacementValue, qor::FormatPlacement(placement).c_str());
}

bool CResizableState::LoadPlacement(qor::WindowPlacement &placement) const {
    std::string text;
    if (key.empty() || !registry.LoadKey(key.c_str(), kPlacementValue, text)) return false;
    const auto parsed = qor::ParsePlacement(text);
    if (parsed) placement = *parsed;
    return parsed.has_value();
}

bool CResizableState::SaveActivePage(int page) const {
    const unsigned long value = static_cast<unsigned long>(page);
    return !key.empty() && page >= 0 && registry.SaveKey(key.c_str(), kActivePageValue, value);
}

bool CResizableState::LoadActivePage(int &page) const {
    unsigned long value = 0;
    if (key.empty() || !registry.LoadKey(key.c_str(), kActivePageValue, value) || value > INT_MAX)
        return false;
    page = static_cast<int>(value);
    return true;
}

std::vector<CRect> CResizableState::ScreenWorkAreas() {
    std::vector<CRect> areas;
    const unsigned count = wxDisplay::GetCount();
    for (unsigned i = 0; i < count; ++i) {
        const wxDisplay display(i);
        const wxRect r = display.GetClientArea();
        const CRect area(r.x, r.y, r.x + r.width, r.y + r.height);
        if (display.IsPrimary())
            areas.insert(areas.begin(), area);
        else
            areas.push_back(area);
    }
    return areas;
}
