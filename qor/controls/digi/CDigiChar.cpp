#include "qor/controls/digi/CDigiChar.h"

CDigiChar::CDigiChar(const qor::DigiShapeSet &shapes)
    : m_Width(shapes.width), m_Segments(shapes.plain), m_SegmentCount(shapes.count), m_Shapes(&shapes) {}

CDigiChar::~CDigiChar() = default;

void CDigiChar::SetElements(unsigned short mask, unsigned long style) {
    m_Mask = mask;
    if (m_Shapes) m_Segments = (style & 1u) ? m_Shapes->smooth : m_Shapes->plain;
}

const qor::DigiSegment &CDigiChar::GetSegment(int i) const {
    static const qor::DigiSegment none{};
    return i >= 0 && i < m_SegmentCount && m_Segments ? m_Segments[i] : none;
}

CDigi7Segment::CDigi7Segment() : CDigiChar(qor::SevenSegmentShapes()) {}
CDigi14Segment::CDigi14Segment() : CDigiChar(qor::FourteenSegmentShapes()) {}
CDigiColonDotChar::CDigiColonDotChar() : CDigiChar(qor::ColonDotShapes()) {}
