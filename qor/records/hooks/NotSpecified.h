// The default of a hook event's Path: what such a field holds when the
// attribute is absent, and what it writes out again.
#pragma once

namespace HooksPluginXMLMarshaller {

inline constexpr char NotSpecified[] = "<not specified>";

}  // namespace HooksPluginXMLMarshaller
