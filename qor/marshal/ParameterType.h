// The types and styles of a Parameter. Both travel as integers; the types
// have display names, the styles have none.
#pragma once

namespace ObjectInstanceXMLMarshaller {

// Named after the display names of ParameterTypeNames. Values 1 to 3 all
// show as "string".
enum ParameterType : int {
    PARAMETER_TYPE_BOOL = 0,
    PARAMETER_TYPE_STRING = 1,
    PARAMETER_TYPE_STRING_2 = 2,
    PARAMETER_TYPE_STRING_3 = 3,
    PARAMETER_TYPE_FIXED_LOCATION = 4,
    PARAMETER_TYPE_AUTO_LOCATION = 5,
    PARAMETER_TYPE_MANUAL_LOCATION = 6,
    PARAMETER_TYPE_WELL_SELECT = 7,
    PARAMETER_TYPE_INTEGER = 8,
    PARAMETER_TYPE_PATH = 9,
    PARAMETER_TYPE_LABWARE = 10,
    PARAMETER_TYPE_LIQUID = 11,
    PARAMETER_TYPE_FLOAT = 12,
    PARAMETER_TYPE_OPTIONAL_PATH = 13,
    PARAMETER_TYPE_PASSWORD = 14,
    PARAMETER_TYPE_IP_ADDRESS = 15,
    PARAMETER_TYPE_DIRECTORY = 16,
    PARAMETER_TYPE_TIME = 17,
    PARAMETER_TYPE_JAVASCRIPT_OBJECT = 18,
    PARAMETER_TYPE_DATE = 19,
    PARAMETER_TYPE_MULTILINE_STRING = 20,
    PARAMETER_TYPE_PIPETTE_TECHNIQUE = 21,
    PARAMETER_TYPE_PIPETTE_HEAD_MODE = 22,
    PARAMETER_TYPE_TIP_POSITION_STATE = 23,
    PARAMETER_TYPE_FIELD_COMPOSER = 24,
    PARAMETER_TYPE_HIT_PICK_FORMAT = 25,
    PARAMETER_TYPE_ANALOG_INPUT_POINT = 26,
    PARAMETER_TYPE_DIGITAL_INPUT_POINT = 27,
    PARAMETER_TYPE_DIGITAL_OUTPUT_POINT = 28,
    PARAMETER_TYPE_VECTOR_STRING = 29,
    PARAMETER_TYPE_DURATION = 30,
};

// Display names indexed by ParameterType value, 0 to 30.
inline constexpr int ParameterTypeCount = 31;
extern const char *const ParameterTypeNames[ParameterTypeCount];

// The display name of a type, or nullptr for a value the table doesn't hold.
const char *ParameterTypeName(int type);

// An editor's hint, carried as an integer; the library gives the values no
// meaning of its own.
enum ParameterStyle : int {
    PARAMETER_STYLE_0 = 0,
    PARAMETER_STYLE_1 = 1,
    PARAMETER_STYLE_2 = 2,
};

}  // namespace ObjectInstanceXMLMarshaller
