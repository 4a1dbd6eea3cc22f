// Where the objects of a kind are kept. Carried as an integer; the library
// keeps no names for the values beyond the default.
#pragma once

namespace ObjectInstanceXMLMarshaller {

enum DATABASE_BACK_END_TYPES : int {
    DATABASE_BACK_END_DEFAULT = 0,
};

}  // namespace ObjectInstanceXMLMarshaller
