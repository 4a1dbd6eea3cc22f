// The field table that Query, Response and Update share. For the sources of
// those records only: it brings in the record-definition machinery.
#pragma once

#include <tuple>

#include "qor/marshal/RecordDefinition.h"
#include "qor/records/metadata/MessageFields.h"

namespace qor::metadata {

constexpr auto MessageTable() {
    using namespace qor::record::dsl;
    return std::tuple{
        attribute("Category", &MessageFields::Category).describedAs("unspecified category"),
        attribute("Source", &MessageFields::Source),
        attribute("Destination", &MessageFields::Destination),
        list("Parameters", &MessageFields::Parameters),
    };
}

}  // namespace qor::metadata
