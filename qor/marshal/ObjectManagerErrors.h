// The error results of ObjectInstance's path operations.
#pragma once

namespace ObjectManagerErrors {

// Returned (as unsigned long) by GetValue and SetValue, and thrown by value
// by GetParameterRef and by every category lookup.
enum ERROR_CODES : long {
    OBJECT_MANAGER_SUCCESS = 0,
    PARAMETER_NOT_IN_CATEGORY = -9983,      // the parameter name isn't in the category
    PATH_NOT_ONE_ELEMENT = -9985,           // the path has not exactly one element
    SET_PARAMETER_NOT_IN_CATEGORY = -9986,  // SetValue: the parameter name isn't in the category
    SET_MODULE_NOT_FOUND = -9987,           // SetValue: no module of the given name
    SET_PATH_NOT_ONE_OR_TWO = -9988,        // SetValue: the path has neither one nor two elements
    CATEGORY_NOT_FOUND = -9989,             // the category name doesn't exist
};

}  // namespace ObjectManagerErrors
