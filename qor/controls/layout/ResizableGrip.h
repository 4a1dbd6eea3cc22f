// The size grip in the bottom-right corner of a resizable window: where it
// sits, whether it shows, the marks drawn on it, and the size a drag on it
// asks for.
#pragma once

#include <vector>

#include "qor/controls/layout/ResizableMinMax.h"
#include "qor/platform/WinGeometry.h"

// The grip shows when its window wants it and is not maximised (a maximised
// window cannot be resized by dragging). A drag is measured in screen
// coordinates from where it began, so the window's own movement under the
// pointer does not feed back into the size.
class CResizableGrip {
public:
    static constexpr CSize kDefaultSize{16, 16};

    void SetGripSize(CSize size);  // negative extents count as 0
    CSize GetGripSize() const { return size; }
    // The grip's rectangle in a client area of `client`.
    CRect GetGripRect(CSize client) const;

    void ShowSizeGrip(bool show) { wanted = show; }
    void SetMaximized(bool maximized) { this->maximized = maximized; }
    bool IsSizeGripVisible() const { return wanted && !maximized; }

    // The dots drawn on the grip, in its own coordinates: a triangle of
    // 2-pixel squares on a 4-pixel pitch filling its bottom-right half.
    std::vector<CRect> GetGripMarks() const;

    // A drag that began with the pointer at `pointer` while the window had
    // the size `windowSize`.
    void BeginDrag(CPoint pointer, CSize windowSize);
    void EndDrag() { dragging = false; }
    bool IsDragging() const { return dragging; }
    // The window size the pointer at `pointer` asks for, within `limits`;
    // the size the drag began with when no drag is under way.
    CSize DragTo(CPoint pointer, const CResizableMinMax &limits) const;

private:
    CSize size = kDefaultSize;
    bool wanted = true;
    bool maximized = false;
    bool dragging = false;
    CPoint dragStart;
    CSize dragStartSize;
};
