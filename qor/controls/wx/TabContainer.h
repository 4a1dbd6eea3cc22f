// A book of pages under a strip of tabs in the suite's flat look.
#pragma once

#include <wx/bookctrl.h>
#include <wx/containr.h>

#include <vector>

#include "qor/controls/layout/TabStripLayout.h"

namespace qor {
class TabStripWindow;
}

// A wxBookCtrlBase, so pages are added, removed, selected and heard about
// as in any book control (wxEVT_BOOKCTRL_PAGE_CHANGING and _CHANGED), and a
// CResizableDialog can remember its active page. The tabs sit in a strip
// along the top: flat at rest, lit under the pointer, the active one joined
// to its page. Tabs that do not fit scroll by whole tabs with the strip's
// arrows (see qor::TabStripLayout); selecting a tab scrolls it into view.
// Page images are not shown.
class QorTabContainer : public wxNavigationEnabled<wxBookCtrlBase> {
public:
    QorTabContainer() = default;
    QorTabContainer(wxWindow *parent, wxWindowID id = wxID_ANY, const wxPoint &pos = wxDefaultPosition,
                    const wxSize &size = wxDefaultSize, long style = 0,
                    const wxString &name = wxASCII_STR("qorTabContainer"));
    bool Create(wxWindow *parent, wxWindowID id = wxID_ANY, const wxPoint &pos = wxDefaultPosition,
                const wxSize &size = wxDefaultSize, long style = 0,
                const wxString &name = wxASCII_STR("qorTabContainer"));

    bool InsertPage(size_t n, wxWindow *page, const wxString &text, bool select = false,
                    int imageId = NO_IMAGE) override;
    int SetSelection(size_t n) override { return DoSetSelection(n, SetSelection_SendEvent); }
    int ChangeSelection(size_t n) override { return DoSetSelection(n); }
    bool SetPageText(size_t n, const wxString &text) override;
    wxString GetPageText(size_t n) const override;
    bool SetPageImage(size_t, int) override { return false; }
    int GetPageImage(size_t) const override { return NO_IMAGE; }
    int HitTest(const wxPoint &point, long *flags = nullptr) const override;

    // The strip's window (to give it a font or tips), and its geometry as it
    // stands, in the strip's own coordinates.
    wxWindow *GetTabStrip() const { return m_bookctrl; }
    const qor::TabStripLayout &GetStripLayout() const;
    // Where the tab strip is, and where the pages go, in this window's
    // coordinates: make pages at the page rectangle's size to design them.
    wxRect GetStripRect() const;
    using wxBookCtrlBase::GetPageRect;

protected:
    void UpdateSelectedPage(size_t newSelection) override;
    wxBookCtrlEvent *CreatePageChangingEvent() const override;
    void MakeChangedEvent(wxBookCtrlEvent &event) override;
    wxWindow *DoRemovePage(size_t page) override;

private:
    qor::TabStripWindow *Strip() const;

    std::vector<wxString> texts;
};
