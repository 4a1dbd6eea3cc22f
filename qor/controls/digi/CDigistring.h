// A text shown as lit seven- and fourteen-segment characters, as on an
// instrument's panel, with unlit segments faintly visible. The logic of the
// static control: the window that paints it derives from it and overrides
// Invalidate (see qor/controls/wx/DigistringCtrl.h).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qor/controls/digi/CDigiChar.h"
#include "qor/controls/digi/DigiDraw.h"

class CDigistring {
public:
    static constexpr unsigned long DS_SMOOTH = 1;   // curved segments
    static constexpr unsigned long DS_STYLE14 = 2;  // digits with fourteen segments
    static constexpr unsigned long DS_SZ_PROP = 4;  // keep the aspect, centred

    CDigistring();
    virtual ~CDigistring();

    void SetText(const char *text);
    void Format(const char *format, ...) __attribute__((format(printf, 2, 3)));
    const std::string &GetString() const { return m_strText; }
    // Each invalidates, with erase, only when a colour changes.
    void SetColor(COLORREF off, COLORREF on);
    void SetBackColor(COLORREF back);
    // Nonzero when the style changed.
    int ModifyDigiStyle(unsigned long remove, unsigned long add);
    unsigned long GetDigiStyle() const { return m_dwStyle; }
    COLORREF GetOffColor() const { return m_OffColor; }
    COLORREF GetOnColor() const { return m_OnColor; }
    COLORREF GetBackColor() const { return m_BackColor; }

    // Builds the string and places its characters in a w by h client area.
    qor::DigiLayout Layout(int w, int h);
    // What OnPaint draws in a w by h client area.
    qor::DigiPicture Paint(int w, int h);
    // The background is part of the paint.
    bool OnEraseBkgnd() { return true; }

protected:
    virtual void Invalidate(bool erase) {}
    void BuildString();
    // The character for c, or null for one that has no form; the caller owns it.
    CDigiChar *DefineChar(char c);

private:
    std::string m_strText = "EMPTY";
    bool m_Modified = true;
    std::vector<std::unique_ptr<CDigiChar>> m_CharArray;
    COLORREF m_OffColor = 0x00792925;
    COLORREF m_OnColor = 0x00FFFFFF;
    COLORREF m_BackColor = 0x00651511;
    unsigned long m_dwStyle = DS_SZ_PROP;
};
