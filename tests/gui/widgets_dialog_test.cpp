// The gallery's resizable dialog under a real X server: its controls follow
// their anchors, the grip and the limits size it, and its placement and
// sheet page come back after it is closed, whatever the registry holds.
#include <wx/display.h>
#include <wx/grid.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <string>

#include "qor/controls/wx/QorExtButton.h"
#include "qor/controls/wx/QorExtLed.h"
#include "qor/controls/wx/ResizableGripWindow.h"
#include "qor/controls/wx/ResizablePage.h"
#include "qor/controls/wx/TabContainer.h"
#include "widgets_support.h"

// The dialog is the gallery's own, linked into this test as the program has it.
#include "WidgetsDialog.h"

namespace widgets_test {

using qor::gallery::ResizableDemoDialog;

const char *const kStateKey = "Software\\Qor Tests\\Demo dialog";
const wxSize kDesignedSize(520, 380);

class ResizableDialogTest : public WidgetsTest {
protected:
    ResizableDemoDialog *Open() {
        auto *dialog = new ResizableDemoDialog(nullptr, kStateKey);
        dialog->Show();
        EXPECT_TRUE(Until([dialog] { return dialog->IsShownOnScreen(); }));
        return dialog;
    }
    void Close(ResizableDemoDialog *dialog) {
        dialog->Close();
        EXPECT_TRUE(Until([dialog] { return !dialog->IsShown(); }));
        dialog->Destroy();
        Settle();
    }
    bool Reaches(wxWindow *window, wxRect wanted) {
        return Until([&] { return window->GetRect() == wanted; }, std::chrono::seconds(3));
    }
};

TEST_F(ResizableDialogTest, ControlsFollowTheirAnchorsAsTheDialogGrows) {
    ResizableDemoDialog *dialog = Open();
    wxWindow *const watched[] = {dialog->heading, dialog->status, dialog->sheet, dialog->help,
                                 dialog->busy,    dialog->ok,     dialog->cancel, dialog->notes,
                                 dialog->clearNotes};
    std::vector<wxRect> before;
    for (wxWindow *window : watched) before.push_back(window->GetRect());

    const int dx = 120, dy = 80;
    dialog->SetSize(dialog->GetSize() + wxSize(dx, dy));
    ASSERT_TRUE(Until([&] { return dialog->clearNotes->GetRect() != before[8]; }));

    // Per control: how its left, top, right and bottom follow dx and dy.
    struct Follow {
        int left, top, right, bottom;  // in halves of the growth
    } const follows[] = {
        {0, 0, 2, 0},  // heading: top left to top right
        {2, 0, 2, 0},  // status: top right
        {0, 0, 2, 2},  // sheet: top left to bottom right
        {0, 2, 0, 2},  // help: bottom left
        {1, 2, 1, 2},  // busy: bottom centre
        {2, 2, 2, 2},  // ok
        {2, 2, 2, 2},  // cancel
        {0, 0, 2, 2},  // notes, in the sheet's page: grows as the sheet does
        {2, 2, 2, 2},  // its button keeps the page's corner
    };
    for (std::size_t i = 0; i < std::size(watched); ++i) {
        const wxRect was = before[i], is = watched[i]->GetRect();
        const Follow &f = follows[i];
        EXPECT_EQ(is.GetLeft(), was.GetLeft() + f.left * dx / 2) << i;
        EXPECT_EQ(is.GetTop(), was.GetTop() + f.top * dy / 2) << i;
        EXPECT_EQ(is.GetRight(), was.GetRight() + f.right * dx / 2) << i;
        EXPECT_EQ(is.GetBottom(), was.GetBottom() + f.bottom * dy / 2) << i;
    }
    Close(dialog);
}

TEST_F(ResizableDialogTest, TheGripSizesTheDialogWithinItsLimits) {
    ResizableDemoDialog *dialog = Open();
    qor::ResizableGripWindow *grip = nullptr;
    for (wxWindow *child : dialog->GetChildren())
        if (auto *found = dynamic_cast<qor::ResizableGripWindow *>(child)) grip = found;
    ASSERT_TRUE(grip);
    EXPECT_TRUE(grip->IsShown());
    EXPECT_EQ(grip->GetRect().GetBottomRight() + wxPoint(1, 1), wxPoint(dialog->GetClientSize().x, dialog->GetClientSize().y));

    const wxSize start = dialog->GetSize();
    Mouse(grip, wxEVT_LEFT_DOWN, {4, 4});
    Mouse(grip, wxEVT_MOTION, {4 + 60, 4 + 40});
    Mouse(grip, wxEVT_LEFT_UP, {4 + 60, 4 + 40});
    EXPECT_TRUE(Until([&] { return dialog->GetSize() == start + wxSize(60, 40); }));
    // Back past where it started: no smaller than it was made.
    Mouse(grip, wxEVT_LEFT_DOWN, {4, 4});
    Mouse(grip, wxEVT_MOTION, {4 - 300, 4 - 300});
    Mouse(grip, wxEVT_LEFT_UP, {4 - 300, 4 - 300});
    EXPECT_TRUE(Until([&] { return dialog->GetSize() == kDesignedSize; }));

    dialog->ShowSizeGrip(false);
    EXPECT_FALSE(grip->IsShown());
    Close(dialog);
}

TEST_F(ResizableDialogTest, PlacementAndPageComeBackAfterClosing) {
    const wxRect placed(150, 120, 640, 480);
    ResizableDemoDialog *dialog = Open();
    dialog->SetSize(placed);
    ASSERT_TRUE(Reaches(dialog, placed));
    dialog->sheet->SetSelection(1);
    Close(dialog);

    std::string saved;
    ASSERT_TRUE(CRegistry().LoadKey(kStateKey, CResizableState::kPlacementValue, saved));
    EXPECT_EQ(saved, "150,120,790,600,0");

    dialog = Open();
    EXPECT_TRUE(Reaches(dialog, placed)) << dialog->GetRect().x << "," << dialog->GetRect().y;
    EXPECT_EQ(dialog->sheet->GetSelection(), 1);
    EXPECT_TRUE(dialog->volumesPage->IsShown());
    Close(dialog);
}

TEST_F(ResizableDialogTest, WhatTheRegistryHoldsNeverKeepsTheDialogOffScreen) {
    const wxRect screen = wxDisplay(0u).GetClientArea();
    struct Case {
        const char *what;
        std::string placement;  // empty: none
        unsigned long placementNumber;  // written as a number instead when not 0
        unsigned long page;
        std::string pageText;  // written as text instead when not empty
        wxSize size;           // what the dialog opens at
        int selection;
    } const cases[] = {
        {"from a monitor that is gone", "9000,9000,9600,9400,0", 0, 1, "", {600, 400}, 1},
        {"larger than the screen", "-100,-100,5000,4000,0", 0, 0, "", screen.GetSize(), 0},
        {"edited into nonsense", "here,there", 0, 0, "", kDesignedSize, 0},
        {"of the wrong type", "", 7, 0, "one", kDesignedSize, 0},
        {"smaller than the dialog may be", "10,10,50,50,0", 0, 99, "", kDesignedSize, 0},
    };
    for (const Case &c : cases) {
        CRegistry registry;
        registry.DeleteKey(kStateKey, nullptr);
        if (!c.placement.empty())
            registry.SaveKey(kStateKey, CResizableState::kPlacementValue, c.placement.c_str());
        if (c.placementNumber)
            registry.SaveKey(kStateKey, CResizableState::kPlacementValue, c.placementNumber);
        if (c.pageText.empty())
            registry.SaveKey(kStateKey, CResizableState::kActivePageValue, c.page);
        else
            registry.SaveKey(kStateKey, CResizableState::kActivePageValue, c.pageText.c_str());

        ResizableDemoDialog *dialog = Open();
        EXPECT_TRUE(Until([&] { return dialog->GetSize() == c.size; })) << c.what;
        EXPECT_TRUE(screen.Contains(dialog->GetRect())) << c.what;
        EXPECT_EQ(dialog->sheet->GetSelection(), c.selection) << c.what;
        Close(dialog);
    }
}

}  // namespace widgets_test
