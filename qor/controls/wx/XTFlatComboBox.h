// A combo box in the suite's flat look, completing what is typed from its
// list.
#pragma once

#include <wx/odcombo.h>

#include <string>
#include <vector>

#include "qor/controls/layout/FlatLook.h"

// Drawn flat at rest, with a thin border and a bare arrow; the border and
// the arrow's button come forward while the pointer is over the box or it
// has the focus. Typing at the end of the text completes it with the rest
// of the first list item that starts with it (ignoring ASCII case; what was
// typed stays as typed), the added part selected so that typing on
// replaces it. Erasing never completes, nor does a value the program sets.
// Otherwise it is a wxOwnerDrawnComboBox: the same items, values and events
// (give it wxTE_PROCESS_ENTER to hear the Enter key).
class CXTFlatComboBox : public wxOwnerDrawnComboBox {
public:
    CXTFlatComboBox() { Init(); }
    CXTFlatComboBox(wxWindow *parent, wxWindowID id, const wxString &value = wxString(),
                    const wxPoint &pos = wxDefaultPosition, const wxSize &size = wxDefaultSize,
                    const wxArrayString &choices = wxArrayString(), long style = 0,
                    const wxValidator &validator = wxDefaultValidator,
                    const wxString &name = wxASCII_STR("flatComboBox"));
    bool Create(wxWindow *parent, wxWindowID id, const wxString &value = wxString(),
                const wxPoint &pos = wxDefaultPosition, const wxSize &size = wxDefaultSize,
                const wxArrayString &choices = wxArrayString(), long style = 0,
                const wxValidator &validator = wxDefaultValidator,
                const wxString &name = wxASCII_STR("flatComboBox"));

    void EnableAutoCompletion(bool enable = true) { autoComplete = enable; }
    bool IsAutoCompletionEnabled() const { return autoComplete; }

    // The items as UTF-8 text, in list order.
    std::vector<std::string> GetItems() const;
    // Whether the pointer is over the box, and the face it shows.
    bool IsHot() const { return hot; }
    qor::FlatFace GetFace() const;

private:
    void Init();
    void OnPaint(wxPaintEvent &event);
    void OnPointer(wxMouseEvent &event);
    void OnFocus(wxFocusEvent &event);
    void OnKeyDown(wxKeyEvent &event);
    void OnText(wxCommandEvent &event);
    void Complete();
    void UpdateHot();

    bool autoComplete = true;
    bool hot = false;
    bool completing = false;
    bool keyTyped = false;
};
