#include "qor/controls/wx/QorCellChoice.h"

#include <wx/grid.h>
#include <wx/renderer.h>

#include <algorithm>

namespace {

// Text with the drop arrow its editor will show, so the cell says that it
// offers a list before it is clicked.
class ChoiceRenderer : public wxGridCellStringRenderer {
public:
    void Draw(wxGrid &grid, wxGridCellAttr &attr, wxDC &dc, const wxRect &rect, int row, int col,
              bool isSelected) override {
        const int arrow = std::min(rect.height, 16);
        wxRect text = rect;
        text.width = std::max(0, rect.width - arrow);
        wxGridCellRenderer::Draw(grid, attr, dc, rect, row, col, isSelected);
        wxGridCellStringRenderer::Draw(grid, attr, dc, text, row, col, isSelected);
        wxRendererNative::Get().DrawDropArrow(grid.GetGridWindow(), dc,
                                              wxRect(rect.GetRight() - arrow + 1, rect.y, arrow, rect.height),
                                              0);
    }

    wxGridCellRenderer *Clone() const override { return new ChoiceRenderer; }
};

}  // namespace

wxGridCellEditor *QorCellChoice::NewEditor() const {
    wxArrayString items;
    for (const std::string &item : rule.Items()) items.Add(wxString::FromUTF8(item));
    return new wxGridCellChoiceEditor(items, false);
}

wxGridCellRenderer *QorCellChoice::NewRenderer() const { return new ChoiceRenderer; }
