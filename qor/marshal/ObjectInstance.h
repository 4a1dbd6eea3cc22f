// The property bag: an object's description with its categories of
// Parameters, and the categories of plug-in modules.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/BaseObjectDescription.h"
#include "qor/marshal/ChangeRecord.h"
#include "qor/marshal/ModuleObjectDescription.h"
#include "qor/marshal/ObjectManagerErrors.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

// Categories and modules are found by exact, bytewise name, the first match
// winning. A category lookup that finds nothing throws
// ObjectManagerErrors::CATEGORY_NOT_FOUND by value, also from GetValue and
// SetValue, which report their other failures as results.
class ObjectInstance : public ObjectDatabaseXMLMarshallableObject {
    QOR_RECORD(ObjectInstance)
    ObjectInstanceXMLMarshaller::BaseObjectDescription BaseObjectDescription;  // always written
    std::vector<ModuleObjectDescription> ModuleObjectDescriptions;

    // The parameter name in the category path[0] of the main categories.
    // Throws PATH_NOT_ONE_ELEMENT, CATEGORY_NOT_FOUND or
    // PARAMETER_NOT_IN_CATEGORY. The reference is into this object.
    Parameter &GetParameterRef(const std::vector<std::string> &path, const std::string &name) const;

    // The value of name in the main category path[0]: 0, or
    // PATH_NOT_ONE_ELEMENT or PARAMETER_NOT_IN_CATEGORY as an unsigned long.
    unsigned long GetValue(const std::vector<std::string> &path, const std::string &name,
                           std::string &value) const;

    // Sets name in the main category path[0], or with a path of two in the
    // category path[1] of the module path[0]: 0, or SET_PATH_NOT_ONE_OR_TWO,
    // SET_MODULE_NOT_FOUND or SET_PARAMETER_NOT_IN_CATEGORY. The flag has no
    // effect.
    unsigned long SetValue(const std::vector<std::string> &path, const std::string &name,
                           const std::string &value, bool flag);

    // Erases name from the main category; false when either is missing.
    bool RemoveParameter(const std::string &category, const std::string &name);

    // target merged with source: categories and parameters that target lacks
    // are appended, and a differing Value is taken over with a ChangeRecord;
    // modules by ModuleName the same way. changes is emptied first.
    static ObjectInstance CopyParameters(const ObjectInstance &target, const ObjectInstance &source,
                                         std::vector<ChangeRecord> &changes);
    // target with the Values of source's namesakes in the main categories;
    // nothing added, modules untouched.
    static ObjectInstance Templatize(const ObjectInstance &target, const ObjectInstance &source);
    // A copy of first; second has no effect.
    static ObjectInstance TemplateUnion(const ObjectInstance &first, const ObjectInstance &second);
    // A default ObjectInstance, whatever the arguments.
    static ObjectInstance TemplateIntersection(const ObjectInstance &first, const ObjectInstance &second);
};

}  // namespace ObjectInstanceXMLMarshaller
