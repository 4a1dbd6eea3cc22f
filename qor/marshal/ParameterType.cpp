#include "qor/marshal/ParameterType.h"

namespace ObjectInstanceXMLMarshaller {

const char *const ParameterTypeNames[ParameterTypeCount] = {
    "bool",                 // 0
    "string",               // 1
    "string",               // 2
    "string",               // 3
    "fixed_location",       // 4
    "auto_location",        // 5
    "manual_location",      // 6
    "well_select",          // 7
    "integer",              // 8
    "path",                 // 9
    "labware",              // 10
    "liquid",               // 11
    "float",                // 12
    "optional_path",        // 13
    "password",             // 14
    "IP address",           // 15
    "directory",            // 16
    "time",                 // 17
    "javascript object",    // 18
    "date",                 // 19
    "multiline string",     // 20
    "pipette technique",    // 21
    "pipette head mode",    // 22
    "tip position state",   // 23
    "field_composer",       // 24
    "hit pick format",      // 25
    "analog input point",   // 26
    "digital input point",  // 27
    "digital output point", // 28
    "vector string",        // 29
    "duration",             // 30
};

const char *ParameterTypeName(int type) {
    return type >= 0 && type < ParameterTypeCount ? ParameterTypeNames[type] : nullptr;
}

}  // namespace ObjectInstanceXMLMarshaller
