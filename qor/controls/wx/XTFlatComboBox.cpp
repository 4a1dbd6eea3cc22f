#include "qor/controls/wx/XTFlatComboBox.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <iterator>

#include "qor/controls/layout/AutoComplete.h"

CXTFlatComboBox::CXTFlatComboBox(wxWindow *parent, wxWindowID id, const wxString &value,
                                 const wxPoint &pos, const wxSize &size, const wxArrayString &choices,
                                 long style, const wxValidator &validator, const wxString &name) {
    Init();
    Create(parent, id, value, pos, size, choices, style, validator, name);
}

bool CXTFlatComboBox::Create(wxWindow *parent, wxWindowID id, const wxString &value,
                             const wxPoint &pos, const wxSize &size, const wxArrayString &choices,
                             long style, const wxValidator &validator, const wxString &name) {
    if (!wxOwnerDrawnComboBox::Create(parent, id, value, pos, size, choices, style | wxBORDER_NONE,
                                      validator, name))
        return false;
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    // The pointer crosses between the box and its text field; both count.
    for (wxWindow *window : {static_cast<wxWindow *>(this), static_cast<wxWindow *>(GetTextCtrl())}) {
        if (!window) continue;
        window->Bind(wxEVT_ENTER_WINDOW, &CXTFlatComboBox::OnPointer, this);
        window->Bind(wxEVT_LEAVE_WINDOW, &CXTFlatComboBox::OnPointer, this);
        window->Bind(wxEVT_SET_FOCUS, &CXTFlatComboBox::OnFocus, this);
        window->Bind(wxEVT_KILL_FOCUS, &CXTFlatComboBox::OnFocus, this);
    }
    if (GetTextCtrl()) GetTextCtrl()->Bind(wxEVT_KEY_DOWN, &CXTFlatComboBox::OnKeyDown, this);
    return true;
}

void CXTFlatComboBox::Init() {
    Bind(wxEVT_PAINT, &CXTFlatComboBox::OnPaint, this);
    Bind(wxEVT_TEXT, &CXTFlatComboBox::OnText, this);
}

std::vector<std::string> CXTFlatComboBox::GetItems() const {
    std::vector<std::string> items;
    for (unsigned i = 0; i < GetCount(); ++i) items.push_back(GetString(i).utf8_string());
    return items;
}

qor::FlatFace CXTFlatComboBox::GetFace() const {
    const wxWindow *focus = FindFocus();
    const bool focused = focus && (focus == this || focus == GetTextCtrl());
    return qor::ChooseFace(IsEnabled(), IsPopupShown(), false, hot || focused);
}

void CXTFlatComboBox::UpdateHot() {
    const bool inside = GetScreenRect().Contains(wxGetMousePosition());
    if (inside != hot) {
        hot = inside;
        Refresh();
    }
}

void CXTFlatComboBox::OnPointer(wxMouseEvent &event) {
    UpdateHot();
    event.Skip();
}

void CXTFlatComboBox::OnFocus(wxFocusEvent &event) {
    Refresh();
    event.Skip();
}

void CXTFlatComboBox::OnPaint(wxPaintEvent &) {
    wxAutoBufferedPaintDC dc(this);
    const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    const qor::FlatFace face = GetFace();
    const qor::FlatColors colors =
        qor::FlatColorsFor(face, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE).GetRGB(),
                           GetForegroundColour().GetRGB());
    const wxRect all = GetClientRect();
    dc.SetBrush(wxBrush(IsEnabled() ? window : GetBackgroundColour()));
    dc.SetPen(wxPen(wxColour(colors.border)));
    dc.DrawRectangle(all);

    // At rest the arrow stands bare on the field; brought forward it gets a
    // button face of its own.
    const wxRect button = m_btnArea.Intersect(all.Deflate(1, 1));
    if (face != qor::FlatFace::Normal && face != qor::FlatFace::Disabled) {
        dc.SetBrush(wxBrush(wxColour(colors.face)));
        dc.DrawRectangle(button.x, all.y, button.width + 1, all.height);
    }
    const int half = std::max(2, std::min(button.width, button.height) / 5);
    const wxPoint centre(button.x + button.width / 2, button.y + button.height / 2);
    const wxPoint arrow[] = {{centre.x - half, centre.y - half / 2},
                             {centre.x + half, centre.y - half / 2},
                             {centre.x, centre.y + half / 2 + 1}};
    dc.SetBrush(wxBrush(wxColour(colors.text)));
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.DrawPolygon(3, arrow);
}

void CXTFlatComboBox::OnKeyDown(wxKeyEvent &event) {
    static constexpr int kErasingKeys[] = {WXK_BACK, WXK_DELETE, WXK_NUMPAD_DELETE};
    const int key = event.GetKeyCode();
    keyTyped = std::find(std::begin(kErasingKeys), std::end(kErasingKeys), key) == std::end(kErasingKeys);
    event.Skip();
}

void CXTFlatComboBox::OnText(wxCommandEvent &event) {
    event.Skip();
    if (completing) return;
    // Only a change the keyboard made completes: not an erasing key, and not
    // a value the program set.
    const bool typed = keyTyped;
    keyTyped = false;
    // The field moves its cursor only after it has reported the change, so
    // whether the typing was at the end is known once the event is over.
    if (autoComplete && typed) CallAfter(&CXTFlatComboBox::Complete);
}

void CXTFlatComboBox::Complete() {
    const wxString typed = GetValue();
    long from = 0, to = 0;
    GetSelection(&from, &to);
    if (from != to || GetInsertionPoint() != GetLastPosition()) return;
    const auto found = qor::FindCompletion(GetItems(), typed.utf8_string(), false);
    if (!found) return;
    const wxString completed = GetString(static_cast<unsigned>(*found));
    completing = true;
    ChangeValue(typed + completed.Mid(typed.length()));
    SetSelection(static_cast<long>(typed.length()), static_cast<long>(completed.length()));
    completing = false;
}
