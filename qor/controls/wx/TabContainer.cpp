#include "qor/controls/wx/TabContainer.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include "qor/controls/layout/FlatLook.h"

namespace qor {
// The container's controller: draws the tabs and turns clicks into
// selections and scrolling.
class TabStripWindow : public wxWindow {
public:
    explicit TabStripWindow(QorTabContainer *owner) : owner(owner) {
        Create(owner, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE);
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, &TabStripWindow::OnPaint, this);
        Bind(wxEVT_SIZE, [this](wxSizeEvent &event) {
            layout.SetStripWidth(GetClientSize().x);
            Refresh();
            event.Skip();
        });
        Bind(wxEVT_LEFT_DOWN, &TabStripWindow::OnClick, this);
        Bind(wxEVT_LEFT_DCLICK, &TabStripWindow::OnClick, this);
        Bind(wxEVT_MOTION, [this](wxMouseEvent &event) { SetHot(Hit(event)), event.Skip(); });
        Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent &event) { SetHot(TabStripLayout::kNothing), event.Skip(); });
    }

    bool AcceptsFocus() const override { return false; }

    // The labels changed: measure them again.
    void PagesChanged(const std::vector<wxString> &texts) {
        std::vector<int> widths;
        for (const wxString &text : texts) widths.push_back(GetTextExtent(text).x);
        layout.SetLabelWidths(std::move(widths));
        layout.Select(owner->GetSelection());
        InvalidateBestSize();
        Refresh();
    }

    void SelectionChanged(int selection) {
        layout.Select(selection);
        Refresh();
    }

    TabStripLayout layout;

protected:
    wxSize DoGetBestClientSize() const override { return {layout.GetPreferredWidth(), layout.GetHeight()}; }

private:
    int Hit(const wxMouseEvent &event) const {
        return layout.HitTest({event.GetPosition().x, event.GetPosition().y});
    }

    void SetHot(int tab) {
        if (tab == hot) return;
        hot = tab;
        Refresh();
    }

    void OnClick(wxMouseEvent &event) {
        const int hit = Hit(event);
        if (hit >= 0)
            owner->SetSelection(static_cast<size_t>(hit));
        else if (hit == TabStripLayout::kScrollBack || hit == TabStripLayout::kScrollForward)
            layout.ScrollBy(hit == TabStripLayout::kScrollBack ? -1 : 1), Refresh();
        event.Skip();
    }

    void DrawArrow(wxDC &dc, int direction, bool enabled, COLORREF text) {
        const CRect r = layout.GetArrowRect(direction);
        const int cx = (r.left + r.right) / 2, cy = (r.top + r.bottom) / 2;
        const wxPoint points[] = {{cx - 3 * direction, cy - 4}, {cx + 3 * direction, cy}, {cx - 3 * direction, cy + 4}};
        dc.SetBrush(wxBrush(wxColour(enabled ? text : MixColorOrGrey(text))));
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.DrawPolygon(3, points);
    }

    static COLORREF MixColorOrGrey(COLORREF text) {
        return FlatColorsFor(FlatFace::Disabled, RGB(255, 255, 255), text).text;
    }

    void OnPaint(wxPaintEvent &) {
        wxAutoBufferedPaintDC dc(this);
        const wxColour back = owner->GetBackgroundColour();
        const wxColour page = owner->GetCurrentPage() ? owner->GetCurrentPage()->GetBackgroundColour() : back;
        const COLORREF text = GetForegroundColour().GetRGB();
        const FlatColors rest = FlatColorsFor(FlatFace::Normal, back.GetRGB(), text);
        dc.SetBackground(wxBrush(back));
        dc.Clear();
        const wxSize client = GetClientSize();
        dc.SetPen(wxPen(wxColour(rest.border)));
        dc.DrawLine(0, client.y - 1, client.x, client.y - 1);
        dc.SetFont(GetFont());
        for (int i = layout.GetFirstVisible(); i < layout.GetTabCount(); ++i) {
            const CRect r = layout.GetTabRect(i);
            if (r.IsRectEmpty()) break;
            const bool selected = i == layout.GetSelection();
            const FlatFace face = ChooseFace(IsEnabled(), false, selected, i == hot);
            const FlatColors colors = FlatColorsFor(face, back.GetRGB(), text);
            const wxRect tab(r.left, r.top + (selected ? 0 : 2), r.Width(), r.Height() - (selected ? 0 : 2));
            // The active tab takes its page's colour and opens into it.
            dc.SetBrush(wxBrush(selected ? page : wxColour(colors.face)));
            dc.SetPen(face == FlatFace::Normal ? *wxTRANSPARENT_PEN : wxPen(wxColour(colors.border)));
            dc.DrawRectangle(tab.x, tab.y, tab.width, tab.height + 1);
            dc.SetTextForeground(wxColour(colors.text));
            dc.DrawLabel(owner->GetPageText(static_cast<size_t>(i)), tab, wxALIGN_CENTRE);
        }
        if (layout.HasArrows()) {
            DrawArrow(dc, -1, layout.CanScrollBack(), text);
            DrawArrow(dc, 1, layout.CanScrollForward(), text);
        }
    }

    QorTabContainer *owner;
    int hot = TabStripLayout::kNothing;
};

}  // namespace qor

QorTabContainer::QorTabContainer(wxWindow *parent, wxWindowID id, const wxPoint &pos,
                                 const wxSize &size, long style, const wxString &name) {
    Create(parent, id, pos, size, style, name);
}

bool QorTabContainer::Create(wxWindow *parent, wxWindowID id, const wxPoint &pos,
                             const wxSize &size, long style, const wxString &name) {
    if (!wxBookCtrlBase::Create(parent, id, pos, size, (style & ~wxBK_ALIGN_MASK) | wxBK_TOP, name))
        return false;
    SetInternalBorder(0);
    m_bookctrl = new qor::TabStripWindow(this);
    return true;
}

qor::TabStripWindow *QorTabContainer::Strip() const { return static_cast<qor::TabStripWindow *>(m_bookctrl); }

const qor::TabStripLayout &QorTabContainer::GetStripLayout() const { return Strip()->layout; }

wxRect QorTabContainer::GetStripRect() const { return Strip()->GetRect(); }

bool QorTabContainer::InsertPage(size_t n, wxWindow *page, const wxString &text, bool select, int imageId) {
    if (!wxBookCtrlBase::InsertPage(n, page, text, select, imageId)) return false;
    texts.insert(texts.begin() + static_cast<std::ptrdiff_t>(n), text);
    if (!DoSetSelectionAfterInsertion(n, select)) page->Hide();
    Strip()->PagesChanged(texts);
    DoSize();
    return true;
}

wxWindow *QorTabContainer::DoRemovePage(size_t page) {
    wxWindow *const removed = wxBookCtrlBase::DoRemovePage(page);
    if (removed) {
        texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(page));
        DoSetSelectionAfterRemoval(page);
        Strip()->PagesChanged(texts);
    }
    return removed;
}

bool QorTabContainer::SetPageText(size_t n, const wxString &text) {
    if (n >= texts.size()) return false;
    texts[n] = text;
    Strip()->PagesChanged(texts);
    return true;
}

wxString QorTabContainer::GetPageText(size_t n) const { return n < texts.size() ? texts[n] : wxString(); }

int QorTabContainer::HitTest(const wxPoint &point, long *flags) const {
    const wxRect strip = GetStripRect();
    long where = wxBK_HITTEST_NOWHERE;
    int tab = wxNOT_FOUND;
    if (strip.Contains(point)) {
        const int hit = GetStripLayout().HitTest({point.x - strip.x, point.y - strip.y});
        if (hit >= 0) tab = hit, where = wxBK_HITTEST_ONLABEL;
    } else if (GetPageRect().Contains(point)) {
        where = wxBK_HITTEST_ONPAGE;
    }
    if (flags) *flags = where;
    return tab;
}

void QorTabContainer::UpdateSelectedPage(size_t newSelection) {
    Strip()->SelectionChanged(static_cast<int>(newSelection));
}

wxBookCtrlEvent *QorTabContainer::CreatePageChangingEvent() const {
    return new wxBookCtrlEvent(wxEVT_BOOKCTRL_PAGE_CHANGING, GetId());
}

void QorTabContainer::MakeChangedEvent(wxBookCtrlEvent &event) { event.SetEventType(wxEVT_BOOKCTRL_PAGE_CHANGED); }
