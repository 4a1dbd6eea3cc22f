// One character cell of the segment display: which of its segments are lit,
// and their shapes for the plain or the smooth style.
#pragma once

#include "qor/controls/digi/DigiShapes.h"

class CDigiChar {
public:
    CDigiChar() = default;
    virtual ~CDigiChar();
    // Takes the segment shapes for the style (bit 1: smooth) and the mask
    // (bit i lights segment i).
    virtual void SetElements(unsigned short mask, unsigned long style);

    int GetWidth() const { return m_Width; }
    unsigned short GetMask() const { return m_Mask; }
    int GetSegmentCount() const { return m_SegmentCount; }
    // An empty segment for an index out of range.
    const qor::DigiSegment &GetSegment(int i) const;
    bool IsLit(int i) const { return i >= 0 && i < 16 && ((m_Mask >> i) & 1u); }

protected:
    explicit CDigiChar(const qor::DigiShapeSet &shapes);

    int m_Width = 0;
    unsigned short m_Mask = 0;
    const qor::DigiSegment *m_Segments = nullptr;
    int m_SegmentCount = 0;

private:
    const qor::DigiShapeSet *m_Shapes = nullptr;
};

class CDigi7Segment : public CDigiChar {
public:
    CDigi7Segment();
};

class CDigi14Segment : public CDigiChar {
public:
    CDigi14Segment();
};

class CDigiColonDotChar : public CDigiChar {
public:
    CDigiColonDotChar();
};
