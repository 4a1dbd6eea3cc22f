#include "qor/controls/wx/QorCellNumber.h"

#include <wx/grid.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace {

// A text editor that stores only what the rule accepts, in its form.
class NumberEditor : public wxGridCellTextEditor {
public:
    explicit NumberEditor(const qor::NumberCellRule &rule) : rule(rule) {}

    void Create(wxWindow *parent, wxWindowID id, wxEvtHandler *handler) override {
        wxGridCellTextEditor::Create(parent, id, handler);
        Text()->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent &event) { OnKey(event); });
    }

    bool EndEdit(int, int, const wxGrid *, const wxString &oldValue, wxString *newValue) override {
        const auto accepted = rule.Accept(Text()->GetValue().utf8_string());
        if (!accepted) {
            wxBell();
            return false;
        }
        value = wxString::FromUTF8(*accepted);
        if (value == oldValue) return false;
        if (newValue) *newValue = value;
        return true;
    }

    void ApplyEdit(int row, int col, wxGrid *grid) override { grid->GetTable()->SetValue(row, col, value); }

    wxGridCellEditor *Clone() const override { return new NumberEditor(rule); }

private:
    void OnKey(wxKeyEvent &event) {
        static constexpr struct {
            int key;
            int steps;
        } kStepKeys[] = {{WXK_UP, 1}, {WXK_DOWN, -1}, {WXK_PAGEUP, 10}, {WXK_PAGEDOWN, -10}};
        for (const auto &entry : kStepKeys)
            if (event.GetKeyCode() == entry.key) {
                // Text that is no number yet steps from the bottom of the range.
                const auto current = rule.Parse(Text()->GetValue().utf8_string());
                const double from = current ? *current : rule.Min() - entry.steps * rule.StepSize();
                Text()->ChangeValue(wxString::FromUTF8(rule.Format(rule.Step(from, entry.steps))));
                Text()->SetInsertionPointEnd();
                return;
            }
        event.Skip();
    }

    qor::NumberCellRule rule;
    wxString value;
};

class NumberRenderer : public wxGridCellStringRenderer {
public:
    explicit NumberRenderer(const qor::NumberCellRule &rule) : rule(rule) {}

    void Draw(wxGrid &grid, wxGridCellAttr &attr, wxDC &dc, const wxRect &rect, int row, int col,
              bool isSelected) override {
        wxGridCellRenderer::Draw(grid, attr, dc, rect, row, col, isSelected);
        SetTextColoursAndFont(grid, attr, dc, isSelected);
        grid.DrawTextRectangle(dc, Shown(grid, row, col), rect.Deflate(2, 0), wxALIGN_RIGHT,
                               wxALIGN_CENTRE_VERTICAL);
    }

    wxSize GetBestSize(wxGrid &grid, wxGridCellAttr &attr, wxDC &dc, int row, int col) override {
        return DoGetBestSize(attr, dc, Shown(grid, row, col) + "  ");
    }

    wxGridCellRenderer *Clone() const override { return new NumberRenderer(rule); }

private:
    wxString Shown(const wxGrid &grid, int row, int col) const {
        const wxString text = grid.GetCellValue(row, col);
        const auto accepted = rule.Accept(text.utf8_string());
        return accepted ? wxString::FromUTF8(*accepted) : text;
    }

    qor::NumberCellRule rule;
};

}  // namespace

wxGridCellEditor *QorCellNumber::NewEditor() const { return new NumberEditor(rule); }

wxGridCellRenderer *QorCellNumber::NewRenderer() const { return new NumberRenderer(rule); }
