#include "qor/controls/wx/DigistringCtrl.h"

#include <wx/dcbuffer.h>
#include <wx/graphics.h>

namespace qor {

class DigistringCtrl::Bridge : public CDigistring {
public:
    explicit Bridge(wxWindow &window) : window_(window) {}

protected:
    void Invalidate(bool erase) override { window_.Refresh(erase); }

private:
    wxWindow &window_;
};

namespace digistring_ctrl_impl {

wxColour Colour(COLORREF c) { return wxColour(GetRValue(c), GetGValue(c), GetBValue(c)); }

}  // namespace digistring_ctrl_impl

DigistringCtrl::DigistringCtrl(wxWindow *parent, wxWindowID id, const wxPoint &pos, const wxSize &size)
    : wxWindow(parent, id, pos, size, wxFULL_REPAINT_ON_RESIZE), digits_(std::make_unique<Bridge>(*this)) {
    // The paint covers every pixel, from a buffer: no erase, no flicker.
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &DigistringCtrl::OnPaint, this);
}

DigistringCtrl::~DigistringCtrl() = default;

CDigistring &DigistringCtrl::Digits() { return *digits_; }

void DigistringCtrl::Draw(wxDC &dc, const qor::DigiPicture &picture) {
    using digistring_ctrl_impl::Colour;
    dc.SetBackground(wxBrush(Colour(picture.back)));
    dc.Clear();
    std::unique_ptr<wxGraphicsContext> gc(wxGraphicsContext::CreateFromUnknownDC(dc));
    if (!gc) return;
    const wxBrush on(Colour(picture.onBrush)), off(Colour(picture.offBrush));
    const wxPen onPen(Colour(picture.onPen)), offPen(Colour(picture.offPen));
    for (const qor::DigiShape &shape : picture.shapes) {
        if (shape.path.empty()) continue;
        wxGraphicsPath path = gc->CreatePath();
        for (const qor::DigiPathOp &op : shape.path) {
            const auto &p = op.points;
            switch (op.type) {
            case qor::DigiPathOp::Move:
                path.MoveToPoint(p[0].x, p[0].y);
                break;
            case qor::DigiPathOp::Line:
                path.AddLineToPoint(p[0].x, p[0].y);
                break;
            case qor::DigiPathOp::Curve:
                path.AddCurveToPoint(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
                break;
            }
        }
        path.CloseSubpath();
        gc->SetBrush(shape.lit ? on : off);
        gc->SetPen(shape.lit ? onPen : offPen);
        gc->DrawPath(path, wxWINDING_RULE);
    }
}

void DigistringCtrl::OnPaint(wxPaintEvent &) {
    wxAutoBufferedPaintDC dc(this);
    wxSize size = GetClientSize();
    Draw(dc, digits_->Paint(size.x, size.y));
}

}  // namespace qor
