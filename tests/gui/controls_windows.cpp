// The controls' windows on their own: the virtual list asks only for the
// rows it shows, and the segment display paints its segments in their
// colours and repaints when they change.
#include <wx/frame.h>

#include <set>

#include "GalleryFrame.h"
#include "controls_support.h"
#include "qor/controls/wx/DigistringCtrl.h"
#include "qor/controls/wx/ReportListCtrl.h"

namespace {

class CountingList : public qor::ReportListCtrl {
public:
    using ReportListCtrl::ReportListCtrl;
    mutable std::set<long> asked;

protected:
    wxString OnGetItemText(long item, long column) const override {
        asked.insert(item);
        return ReportListCtrl::OnGetItemText(item, column);
    }
};

using ControlWindows = controls_test::WindowTest;

TEST_F(ControlWindows, TheListAsksOnlyForTheRowsOnScreen) {
    frame = new wxFrame(nullptr, wxID_ANY, "rows", wxDefaultPosition, wxSize(500, 400));
    auto *list = new CountingList(frame, nullptr);
    CSuperReportCtrl2 &grid = list->Grid();
    for (const char *name : {"Key", "Text", "Number"}) grid.insertHeader(name, InPlaceEdit, false, false, false);
    for (int i = 0; i < 200000; ++i)
        grid.insertRow({{"Key", std::to_string(i)}, {"Text", "row " + std::to_string(i)}, {"Number", "7"}}, -1);
    grid.refresh();
    ShowFrame();
    const long page = list->GetCountPerPage();
    ASSERT_GT(page, 3);
    ASSERT_TRUE(gui_test::PumpUntil([&] { return !list->asked.empty(); }));
    EXPECT_LE(*list->asked.rbegin(), page + 1);

    for (long target : {100000L, 199999L, 5L}) {
        list->asked.clear();
        list->EnsureVisible(target);
        list->Update();
        ASSERT_TRUE(gui_test::PumpUntil([&] { return list->asked.count(target); })) << target;
        gui_test::Pump();
        long top = list->GetTopItem();
        EXPECT_LE(static_cast<long>(list->asked.size()), page + 2) << target;
        EXPECT_GE(*list->asked.begin(), top - 1);
        EXPECT_LE(*list->asked.rbegin(), top + page + 1);
        EXPECT_EQ(list->GetItemText(target, 1), "row " + std::to_string(target));
    }
}

// The colour of the pixel at the middle of a segment's design points.
wxColour SegmentPixel(const wxImage &image, const qor::DigiLayout &layout, int cell, int segment) {
    const qor::DigiCell &c = layout.cells.at(cell);
    double x = 0, y = 0;
    const qor::DigiSegment &s = c.character->GetSegment(segment);
    for (const CPoint &p : s.points) x += p.x, y += p.y;
    x = c.left + x / s.points.size() * layout.xScale;
    y = c.top + y / s.points.size() * layout.yScale;
    return wxColour(image.GetRed(int(x), int(y)), image.GetGreen(int(x), int(y)), image.GetBlue(int(x), int(y)));
}

bool Near(const wxColour &shown, COLORREF wanted) {
    return std::abs(shown.Red() - GetRValue(wanted)) < 10 && std::abs(shown.Green() - GetGValue(wanted)) < 10 &&
           std::abs(shown.Blue() - GetBValue(wanted)) < 10;
}

TEST_F(ControlWindows, TheSegmentDisplayPaintsLitAndUnlitSegments) {
    frame = new wxFrame(nullptr, wxID_ANY, "digits", wxDefaultPosition, wxSize(520, 240));
    auto *display = new qor::DigistringCtrl(frame);
    CDigistring &digits = display->Digits();
    digits.SetText("8-");
    ShowFrame();
    wxSize size = display->GetClientSize();
    qor::DigiLayout layout = digits.Layout(size.x, size.y);
    ASSERT_EQ(layout.cells.size(), 2u);
    wxImage shot = controls_test::Snapshot(display, "digits");
    EXPECT_TRUE(Near(SegmentPixel(shot, layout, 0, 3), digits.GetOnColor()));   // the 8's middle
    EXPECT_TRUE(Near(SegmentPixel(shot, layout, 1, 0), digits.GetOffColor()));  // the minus's top, unlit
    EXPECT_TRUE(Near(SegmentPixel(shot, layout, 1, 3), digits.GetOnColor()));
    wxColour corner(shot.GetRed(1, 1), shot.GetGreen(1, 1), shot.GetBlue(1, 1));
    EXPECT_TRUE(Near(corner, digits.GetBackColor()));

    digits.SetColor(RGB(0, 0, 0), RGB(0, 255, 0));  // a change repaints
    ASSERT_TRUE(gui_test::PumpUntil([&] {
        return Near(SegmentPixel(controls_test::Snapshot(display, "digits-green"), layout, 0, 3), RGB(0, 255, 0));
    }));
}

TEST_F(ControlWindows, TheGalleryCounterRuns) {
    auto *gallery = new qor::gallery::GalleryFrame(nullptr, 10);
    frame = gallery;
    gallery->Pages()->SetSelection(1);
    ShowFrame();
    qor::gallery::SegmentsPage *page = gallery->Segments();
    long start = page->Count();
    ASSERT_TRUE(gui_test::PumpUntil([&] { return page->Count() >= start + 3; }));
    char expected[32];
    std::snprintf(expected, sizeof expected, "%08ld", page->Count() - 1);
    EXPECT_EQ(page->Counter()->Digits().GetString(), expected);
    wxImage shot = controls_test::Snapshot(page->Text(), "gallery-text");
    qor::DigiLayout layout = page->Text()->Digits().Layout(shot.GetWidth(), shot.GetHeight());
    EXPECT_EQ(layout.cells.size(), 14u);  // "QOR 14-SEG *+*"
    EXPECT_TRUE(Near(SegmentPixel(shot, layout, 0, 13), page->Text()->Digits().GetOnColor()));  // Q's top
}

}  // namespace
