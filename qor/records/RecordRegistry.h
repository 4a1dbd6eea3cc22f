// Every record type by its element name, so that a tool or a transport can
// build the right record from any document or element.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qor/marshal/RecordType.h"
#include "qor/xml/XMLParser.h"

namespace qor {

// Every registered record type, family by family, in table order.
const std::vector<RecordType> &AllRecordTypes();

// The type of the element name, or nullptr. Names are matched exactly; when
// two families use one name, the first family listed wins.
const RecordType *FindRecordType(std::string_view elementName);
// The type of that element name in that family ("MetaDataManager", ...), or nullptr.
const RecordType *FindRecordType(std::string_view family, std::string_view elementName);

// The record an element holds, built by its element name's type; nullptr
// when no record type has that name.
std::shared_ptr<XMLMarshaller::XMLMarshallableObject> MakeRecord(const XMLParser::XMLNode &node);

}  // namespace qor
