// The LED's timing and colours, the flat button's click rules and faces.
#include <gtest/gtest.h>

#include <vector>

#include "qor/controls/layout/ButtonState.h"
#include "qor/controls/layout/ColorMix.h"
#include "qor/controls/layout/LedState.h"

namespace layout_test {

using qor::LedState;

TEST(LedStateTest, LitAndNextChangeFollowTheMode) {
    struct Case {
        const char *what;
        qor::LedMode mode;
        unsigned onMs, offMs;
        ULONGLONG at;
        bool lit;
        ULONGLONG next;
    } const cases[] = {
        {"off", qor::LedMode::Off, 0, 0, 5000, false, 0},
        {"on", qor::LedMode::On, 0, 0, 5000, true, 0},
        {"blinking, at the start", qor::LedMode::Blinking, 300, 200, 1000, true, 1300},
        {"blinking, lit", qor::LedMode::Blinking, 300, 200, 1299, true, 1300},
        {"blinking, dark", qor::LedMode::Blinking, 300, 200, 1300, false, 1500},
        {"blinking, second period", qor::LedMode::Blinking, 300, 200, 1750, true, 1800},
        {"blinking, clock before the start", qor::LedMode::Blinking, 300, 200, 10, true, 1300},
        {"no on time: dark", qor::LedMode::Blinking, 0, 200, 1100, false, 0},
        {"no off time: lit", qor::LedMode::Blinking, 300, 0, 1100, true, 0},
        {"a long time on", qor::LedMode::Blinking, 1, 1, 1000 + 2'000'000'001, false, 1000 + 2'000'000'002},
    };
    for (const Case &c : cases) {
        LedState led;
        if (c.mode == qor::LedMode::On) led.SetOn();
        if (c.mode == qor::LedMode::Blinking) led.SetBlinking(1000, c.onMs, c.offMs);
        EXPECT_EQ(led.GetMode(), c.mode) << c.what;
        EXPECT_EQ(led.IsLit(c.at), c.lit) << c.what;
        EXPECT_EQ(led.NextChange(c.at), c.next) << c.what;
    }
}

TEST(LedStateTest, RepeatedBlinkOrdersKeepTheRhythm) {
    LedState led;
    led.SetBlinking(1000, 300, 200);
    led.SetBlinking(1400, 300, 200);  // the same order again: no restart
    EXPECT_FALSE(led.IsLit(1400));
    led.SetBlinking(1400, 100, 100);  // new times restart, lit
    EXPECT_TRUE(led.IsLit(1400));
    led.SetOn();
    led.SetBlinking(1450, 100, 100);  // back from steady: restart
    EXPECT_TRUE(led.IsLit(1450));
    EXPECT_EQ(led.NextChange(1450), 1550u);
}

TEST(LedStateTest, TheDarkColourIsTheLitOneDimmedUntilGiven) {
    LedState led;
    led.SetColor(RGB(255, 0, 0));
    const COLORREF dim = led.GetOffColor();
    EXPECT_GT(GetRValue(dim), GetGValue(dim));  // still reddish
    EXPECT_LT(GetRValue(dim), 160);             // but clearly darker
    EXPECT_EQ(led.ColorAt(0), dim);
    led.SetOffColor(RGB(1, 2, 3));
    EXPECT_EQ(led.ColorAt(0), RGB(1, 2, 3));
    led.SetOn();
    EXPECT_EQ(led.ColorAt(0), RGB(255, 0, 0));
    led.ResetOffColor();
    led.SetOff();
    EXPECT_EQ(led.ColorAt(0), dim);
}

TEST(ColorMixTest, MixesChannelByChannelWithinTheEnds) {
    EXPECT_EQ(qor::MixColor(RGB(0, 100, 200), RGB(255, 0, 100), 0.5), RGB(128, 50, 150));
    EXPECT_EQ(qor::MixColor(RGB(10, 20, 30), RGB(200, 200, 200), -3), RGB(10, 20, 30));
    EXPECT_EQ(qor::MixColor(RGB(10, 20, 30), RGB(200, 200, 200), 7), RGB(200, 200, 200));
    EXPECT_EQ(qor::Darken(RGB(200, 100, 50), 1), RGB(0, 0, 0));
}

// Steps a button through, as a string of events: e enter, l leave, d down,
// u up, k key down, K key up, x pointer taken away, 0 disable, 1 enable.
struct ButtonRun {
    int clicks = 0;
    qor::ButtonState button;
};

ButtonRun PressButton(const char *events, bool checkable) {
    ButtonRun run;
    run.button.SetCheckable(checkable);
    for (const char *e = events; *e; ++e) switch (*e) {
        case 'e': run.button.MouseEnter(); break;
        case 'l': run.button.MouseLeave(); break;
        case 'd': run.button.MouseDown(); break;
        case 'u': run.clicks += run.button.MouseUp(); break;
        case 'k': run.button.KeyDown(); break;
        case 'K': run.clicks += run.button.KeyUp(); break;
        case 'x': run.button.CancelMouse(); break;
        case '0': run.button.SetEnabled(false); break;
        case '1': run.button.SetEnabled(true); break;
        }
    return run;
}

TEST(ButtonStateTest, ClicksOnlyOnAPressAndReleaseOverTheButton) {
    using qor::FlatFace;
    struct Case {
        const char *events;
        int clicks;
        FlatFace face;
    } const cases[] = {
        {"", 0, FlatFace::Normal},       {"e", 0, FlatFace::Hot},
        {"ed", 0, FlatFace::Pressed},    {"edu", 1, FlatFace::Hot},
        {"du", 1, FlatFace::Hot},        {"edl", 0, FlatFace::Normal},
        {"edlu", 0, FlatFace::Normal},   {"edleu", 1, FlatFace::Hot},
        {"edxu", 0, FlatFace::Hot},      {"eduu", 1, FlatFace::Hot},
        {"kK", 1, FlatFace::Normal},     {"k", 0, FlatFace::Pressed},
        {"0edu", 0, FlatFace::Disabled}, {"ed0u", 0, FlatFace::Disabled},
        {"ed01u", 0, FlatFace::Hot},     {"k0K", 0, FlatFace::Disabled},
        {"eduedu", 2, FlatFace::Hot},
    };
    for (const Case &c : cases) {
        ButtonRun run = PressButton(c.events, false);
        EXPECT_EQ(run.clicks, c.clicks) << c.events;
        EXPECT_EQ(run.button.Face(), c.face) << c.events;
        EXPECT_FALSE(run.button.IsChecked()) << c.events;
    }
}

TEST(ButtonStateTest, ACheckableButtonFlipsOnEachClick) {
    EXPECT_TRUE(PressButton("edu", true).button.IsChecked());
    EXPECT_EQ(PressButton("edul", true).button.Face(), qor::FlatFace::Checked);
    EXPECT_FALSE(PressButton("eduedu", true).button.IsChecked());
    EXPECT_TRUE(PressButton("eduedlu", true).button.IsChecked());  // a cancelled click flips nothing
    EXPECT_EQ(PressButton("eduedl", true).button.Face(), qor::FlatFace::Checked);
    EXPECT_EQ(PressButton("edued", true).button.Face(), qor::FlatFace::Pressed);
}

TEST(FlatLookTest, FacesStepForwardAndDisabledTextFades) {
    const COLORREF background = RGB(200, 200, 200), text = RGB(0, 0, 0);
    const auto colors = [&](qor::FlatFace face) { return qor::FlatColorsFor(face, background, text); };
    EXPECT_EQ(colors(qor::FlatFace::Normal).face, background);
    EXPECT_GT(GetRValue(colors(qor::FlatFace::Hot).face), GetRValue(background));
    EXPECT_LT(GetRValue(colors(qor::FlatFace::Pressed).face), GetRValue(colors(qor::FlatFace::Checked).face));
    EXPECT_LT(GetRValue(colors(qor::FlatFace::Hot).border), GetRValue(colors(qor::FlatFace::Normal).border));
    EXPECT_EQ(colors(qor::FlatFace::Hot).text, text);
    EXPECT_GT(GetRValue(colors(qor::FlatFace::Disabled).text), 100);
}

}  // namespace layout_test
