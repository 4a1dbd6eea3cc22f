// Walking element trees over memory that no longer fits in the cache.
// Internal to the XML layer.
#pragma once

#include <iterator>
#include <list>

#include "qor/xml/XMLNode.h"

namespace qor::xmltree {

// An element's list node and its attribute nodes are allocated one after the
// other, both by the reader and by a copy, so they usually lie in the
// kilobyte that starts at the element. Asking for that kilobyte while the
// element before it is being worked on hides most of the memory latency of a
// walk over a large tree; for a tree that fits in the cache it costs nothing
// measurable.
inline void PrefetchElement(const XMLNodeData &element) {
    constexpr int kLines = 16;
    const char *at = reinterpret_cast<const char *>(&element);
    for (int line = 0; line < kLines; ++line) __builtin_prefetch(at + 64 * line);
}

// The element after `position` in its list, when there is one.
inline void PrefetchNext(std::list<XMLNodeData>::const_iterator position,
                         std::list<XMLNodeData>::const_iterator end) {
    if (position != end && ++position != end) PrefetchElement(*position);
}

// The element before `position` in its list, when there is one.
inline void PrefetchPrevious(std::list<XMLNodeData>::const_iterator position,
                             std::list<XMLNodeData>::const_iterator begin) {
    if (position != begin) PrefetchElement(*std::prev(position));
}

}  // namespace qor::xmltree
