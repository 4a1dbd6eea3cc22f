// The styled widgets under a real X server: the recent-entries combo box
// and its completion, number cells, the flat button, the LED's blinking and
// the tab container.
#include <wx/grid.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <string>
#include <vector>

#include "qor/controls/wx/QorCellNumber.h"
#include "qor/controls/wx/QorExtButton.h"
#include "qor/controls/wx/QorExtLed.h"
#include "qor/controls/wx/TabContainer.h"
#include "qor/controls/wx/XTFlatMRUComboBox.h"
#include "widgets_support.h"

namespace widgets_test {

using Entries = std::vector<std::string>;

const char *const kRecentKey = "Software\\Qor Tests\\Recent plates";

TEST_F(WidgetsTest, TheRecentEntriesComboRemembersWhatWasEntered) {
    auto *combo = new CXTFlatMRUComboBox(Host(), wxID_ANY, kRecentKey, 3);
    EXPECT_TRUE(combo->GetItems().empty());
    // Enter in the text field, as the user gives it.
    combo->ChangeValue("Plate 7");
    wxCommandEvent enter(wxEVT_TEXT_ENTER, combo->GetTextCtrl()->GetId());
    enter.SetEventObject(combo->GetTextCtrl());
    enter.SetString("Plate 7");
    combo->GetTextCtrl()->ProcessWindowEvent(enter);
    ASSERT_TRUE(Until([&] { return combo->GetMRU() == Entries{"Plate 7"}; }));
    EXPECT_EQ(combo->GetValue(), "Plate 7");
    combo->Destroy();

    combo = new CXTFlatMRUComboBox(Host(), wxID_ANY, kRecentKey, 3);
    EXPECT_EQ(combo->GetItems(), Entries{"Plate 7"});
    for (const char *entry : {"a", "b", "c", "B", ""}) combo->AddToMRU(entry);
    EXPECT_EQ(combo->GetItems(), (Entries{"B", "c", "a"}));  // Plate 7 fell off the end
    combo->RemoveFromMRU("c");
    combo->Destroy();

    // What left the list stays gone.
    combo = new CXTFlatMRUComboBox(Host(), wxID_ANY, kRecentKey, 3);
    EXPECT_EQ(combo->GetItems(), (Entries{"B", "a"}));
    combo->ClearMRU();
    combo->Destroy();
    RegistryMRU stored(kRecentKey, HKEY_CURRENT_USER, 10, false);
    Entries left{"x"};
    stored.EnumerateMRUs(left);
    EXPECT_TRUE(left.empty());
}

TEST_F(WidgetsTest, TypingCompletesFromTheListAndErasingDoesNot) {
    wxArrayString items;
    for (const char *item : {"Plate 96", "Pipette", "plate 384"}) items.Add(item);
    auto *combo = new CXTFlatComboBox(Host(), wxID_ANY, "", wxDefaultPosition, wxDefaultSize, items);
    wxTextCtrl *field = combo->GetTextCtrl();
    field->SetFocus();
    // A key goes down, then the field changes as that key made it.
    const auto key = [&](int code, auto change) {
        wxKeyEvent down(wxEVT_KEY_DOWN);
        down.m_keyCode = code;
        down.SetEventObject(field);
        field->ProcessWindowEvent(down);
        change();
        Settle();
        return combo->GetValue().utf8_string();
    };
    EXPECT_EQ(key('P', [&] { field->WriteText("p"); }), "plate 96");
    long from = 0, to = 0;
    combo->GetSelection(&from, &to);
    EXPECT_EQ(from, 1);
    EXPECT_EQ(to, 8);
    EXPECT_EQ(key('I', [&] { field->WriteText("i"); }), "pipette");  // replaces the completion
    EXPECT_EQ(key(WXK_DELETE, [&] { field->Remove(2, 7); }), "pi");
    EXPECT_EQ(key(WXK_BACK, [&] { field->Remove(1, 2); }), "p");
    field->SetInsertionPoint(0);
    EXPECT_EQ(key('X', [&] { field->WriteText("x"); }), "xp");  // not at the end
    field->SetValue("Pi");  // the program's own value stays as it is
    Settle();
    EXPECT_EQ(combo->GetValue(), "Pi");
    combo->EnableAutoCompletion(false);
    EXPECT_EQ(key('P', [&] { field->AppendText("p"); }), "Pip");
}

TEST_F(WidgetsTest, ANumberCellRefusesWhatIsOutOfRangeAndStepsWithTheArrowKeys) {
    auto *grid = new wxGrid(Host(), wxID_ANY, wxPoint(0, 0), wxSize(300, 200));
    grid->CreateGrid(2, 1);
    const QorCellNumber volume(0, 100, 0.5, 1);
    volume.ApplyToColumn(*grid, 0);
    ASSERT_TRUE(volume.SetValue(*grid, 0, 0, "5"));
    EXPECT_FALSE(volume.SetValue(*grid, 1, 0, "-1"));
    EXPECT_EQ(grid->GetCellValue(0, 0), "5.0");

    const auto edit = [&](const char *typed, int key = 0) {
        grid->SetGridCursor(0, 0);
        grid->EnableCellEditControl();
        wxGridCellEditor *editor = grid->GetCellEditor(0, 0);
        auto *text = dynamic_cast<wxTextCtrl *>(editor->GetControl());
        editor->DecRef();
        if (!text) return std::string("no text editor");
        text->ChangeValue(typed);
        if (key) {
            wxKeyEvent press(wxEVT_KEY_DOWN);
            press.m_keyCode = key;
            press.SetEventObject(text);
            text->ProcessWindowEvent(press);
        }
        grid->DisableCellEditControl();
        return grid->GetCellValue(0, 0).utf8_string();
    };
    EXPECT_EQ(edit("500"), "5.0");
    EXPECT_EQ(edit("7.5"), "7.5");
    EXPECT_EQ(edit("abc"), "7.5");
    EXPECT_EQ(edit("7.25"), "7.5");  // more places than the cell shows
    EXPECT_EQ(edit("7.5", WXK_UP), "8.0");
    EXPECT_EQ(edit("99.5", WXK_PAGEUP), "100.0");
    EXPECT_EQ(edit("", WXK_DOWN), "0.0");
}

TEST_F(WidgetsTest, TheFlatButtonClicksOnAPressAndReleaseOverIt) {
    auto *button = new QorExtButton(Host(), wxID_ANY, "Go", wxPoint(10, 10), wxSize(80, 30));
    int clicks = 0, toggles = 0, checked = -1;
    button->Bind(wxEVT_BUTTON, [&](wxCommandEvent &) { ++clicks; });
    button->Bind(wxEVT_TOGGLEBUTTON, [&](wxCommandEvent &event) { ++toggles, checked = event.GetInt(); });
    const auto press = [&](wxPoint release) {
        Mouse(button, wxEVT_ENTER_WINDOW, {5, 5});
        Mouse(button, wxEVT_LEFT_DOWN, {5, 5});
        Mouse(button, wxEVT_LEFT_UP, release);
    };
    press({5, 5});
    EXPECT_EQ(clicks, 1);
    press({200, 5});  // released elsewhere
    EXPECT_EQ(clicks, 1);
    button->SetCheckable(true);
    press({5, 5});
    EXPECT_EQ(toggles, 1);
    EXPECT_EQ(checked, 1);
    EXPECT_TRUE(button->IsChecked());
    button->Disable();
    press({5, 5});
    EXPECT_EQ(toggles + clicks, 2);
}

TEST_F(WidgetsTest, ABlinkingLedRepaintsAtEachChangeAndASteadyOneDoesNot) {
    auto *led = new CQorExtLed(Host(), wxID_ANY, "Busy", RGB(255, 170, 0), wxPoint(10, 10));
    int paints = 0;
    led->Bind(wxEVT_PAINT, [&](wxPaintEvent &event) { ++paints, event.Skip(); });
    ASSERT_TRUE(Until([&] { return paints > 0; }));
    led->SetBlinking(15, 15);
    const int before = paints;
    // Each change is a repaint the timer asked for; nothing else touches it.
    EXPECT_TRUE(Until([&] { return paints >= before + 4; }));
    led->SetOn();
    EXPECT_TRUE(led->IsLit());
    const int blinking = paints;
    EXPECT_TRUE(Until([&] { return paints > blinking; }));  // showing it steady
    // Several of its old periods pass without another change.
    const int steady = paints;
    Until([] { return false; }, std::chrono::milliseconds(100));
    EXPECT_EQ(paints, steady);
}

TEST_F(WidgetsTest, TheTabContainerSelectsByClickAndScrollsTabsThatDoNotFit) {
    auto *tabs = new QorTabContainer(Host(), wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
    for (const char *title : {"First", "Second", "A third with a long title"})
        tabs->AddPage(new wxPanel(tabs), title);
    int changed = -1;
    tabs->Bind(wxEVT_BOOKCTRL_PAGE_CHANGED, [&](wxBookCtrlEvent &event) { changed = event.GetSelection(); });
    EXPECT_EQ(tabs->GetSelection(), 0);

    const CRect second = tabs->GetStripLayout().GetTabRect(1);
    const wxPoint inSecond((second.left + second.right) / 2, 5);
    long where = 0;
    EXPECT_EQ(tabs->HitTest(tabs->GetStripRect().GetPosition() + inSecond, &where), 1);
    EXPECT_EQ(where, wxBK_HITTEST_ONLABEL);
    Mouse(tabs->GetTabStrip(), wxEVT_LEFT_DOWN, inSecond);
    EXPECT_EQ(changed, 1);
    EXPECT_TRUE(tabs->GetPage(1)->IsShown());
    EXPECT_FALSE(tabs->GetPage(0)->IsShown());
    EXPECT_EQ(tabs->GetPage(1)->GetRect(), tabs->GetPageRect());

    tabs->SetSize(160, 200);
    ASSERT_TRUE(Until([&] { return tabs->GetStripLayout().HasArrows(); }));
    tabs->SetSelection(2);
    EXPECT_FALSE(tabs->GetStripLayout().GetTabRect(2).IsRectEmpty());
    EXPECT_TRUE(tabs->GetStripLayout().GetTabRect(0).IsRectEmpty());
    tabs->DeletePage(2);
    EXPECT_EQ(tabs->GetStripLayout().GetTabCount(), 2);
    EXPECT_EQ(tabs->GetSelection(), 1);
}

}  // namespace widgets_test
