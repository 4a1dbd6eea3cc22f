// The field table that Query, Response and Update share: they differ only in
// their element name, their file type and their constants. Included by their
// sources only.
#pragma once

#include <tuple>

#include "qor/marshal/RecordDefinition.h"

namespace qor::metadata {

template <class R>
constexpr auto MessageFields(const char *documentType) {
    using namespace qor::record::dsl;
    return std::tuple{
        fileType(documentType),
        attribute("Category", &R::Category).describedAs("unspecified category"),
        attribute("Source", &R::Source),
        attribute("Destination", &R::Destination),
        list("Parameters", &R::Parameters),
    };
}

}  // namespace qor::metadata
