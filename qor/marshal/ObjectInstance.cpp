#include "qor/marshal/ObjectInstance.h"

#include <cstring>

#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(ObjectInstance,
    child("BaseObjectDescription", &ObjectInstance::BaseObjectDescription),
    list("ModuleObjectDescriptions", &ObjectInstance::ModuleObjectDescriptions))

namespace object_instance_paths {

using Categories = std::vector<ObjectParameterCategory>;

ObjectParameterCategory &CategoryNamed(const Categories &categories, const std::string &name) {
    for (const ObjectParameterCategory &category : categories) {
        if (category.Name == name) return const_cast<ObjectParameterCategory &>(category);
    }
    throw ObjectManagerErrors::CATEGORY_NOT_FOUND;
}

Parameter *ParameterNamed(std::vector<Parameter> &parameters, const std::string &name) {
    for (Parameter &parameter : parameters) {
        if (parameter.Name == name) return &parameter;
    }
    return nullptr;
}

ObjectParameterCategory *FindCategory(Categories &categories, const std::string &name) {
    for (ObjectParameterCategory &category : categories) {
        if (category.Name == name) return &category;
    }
    return nullptr;
}

// Merges source's categories into result's by the rule of CopyParameters.
void MergeCategories(Categories &result, const Categories &source, std::vector<ChangeRecord> &changes) {
    for (const ObjectParameterCategory &from : source) {
        ObjectParameterCategory *into = FindCategory(result, from.Name);
        if (!into) {
            result.push_back(from);
            continue;
        }
        for (const Parameter &parameter : from.Parameters) {
            Parameter *existing = ParameterNamed(into->Parameters, parameter.Name);
            if (!existing) {
                into->Parameters.push_back(parameter);
            } else if (existing->Value != parameter.Value) {
                changes.push_back({into->Name, parameter.Name, existing->Value, parameter.Value});
                existing->Value = parameter.Value;
            }
        }
    }
}

}  // namespace object_instance_paths

using namespace object_instance_paths;

Parameter &ObjectInstance::GetParameterRef(const std::vector<std::string> &path, const std::string &name) const {
    if (path.size() != 1) throw ObjectManagerErrors::PATH_NOT_ONE_ELEMENT;
    ObjectParameterCategory &category = CategoryNamed(BaseObjectDescription.Categories, path.front());
    Parameter *parameter = ParameterNamed(category.Parameters, name);
    if (!parameter) throw ObjectManagerErrors::PARAMETER_NOT_IN_CATEGORY;
    return *parameter;
}

unsigned long ObjectInstance::GetValue(const std::vector<std::string> &path, const std::string &name,
                                       std::string &value) const {
    if (path.size() != 1) return static_cast<unsigned long>(ObjectManagerErrors::PATH_NOT_ONE_ELEMENT);
    const ObjectParameterCategory &category = CategoryNamed(BaseObjectDescription.Categories, path.front());
    if (!Parameter::GetParameterString(category.Parameters, name, value)) {
        return static_cast<unsigned long>(ObjectManagerErrors::PARAMETER_NOT_IN_CATEGORY);
    }
    return 0;
}

unsigned long ObjectInstance::SetValue(const std::vector<std::string> &path, const std::string &name,
                                       const std::string &value, bool) {
    ObjectParameterCategory *category = nullptr;
    if (path.size() == 1) {
        category = &CategoryNamed(BaseObjectDescription.Categories, path.front());
    } else if (path.size() == 2) {
        // Module names compare as C strings: up to the first NUL byte.
        ModuleObjectDescription *module = nullptr;
        for (ModuleObjectDescription &candidate : ModuleObjectDescriptions) {
            if (std::strcmp(candidate.ModuleName.c_str(), path.front().c_str()) == 0) {
                module = &candidate;
                break;
            }
        }
        if (!module) return static_cast<unsigned long>(ObjectManagerErrors::SET_MODULE_NOT_FOUND);
        category = &CategoryNamed(module->Categories, path.back());
    } else {
        return static_cast<unsigned long>(ObjectManagerErrors::SET_PATH_NOT_ONE_OR_TWO);
    }
    if (!Parameter::SetParameterString(category->Parameters, name, value)) {
        return static_cast<unsigned long>(ObjectManagerErrors::SET_PARAMETER_NOT_IN_CATEGORY);
    }
    return 0;
}

bool ObjectInstance::RemoveParameter(const std::string &categoryName, const std::string &name) {
    ObjectParameterCategory *category = FindCategory(BaseObjectDescription.Categories, categoryName);
    if (!category) return false;
    auto &parameters = category->Parameters;
    for (auto it = parameters.begin(); it != parameters.end(); ++it) {
        if (it->Name == name) {
            parameters.erase(it);
            return true;
        }
    }
    return false;
}

ObjectInstance ObjectInstance::CopyParameters(const ObjectInstance &target, const ObjectInstance &source,
                                              std::vector<ChangeRecord> &changes) {
    ObjectInstance result = target;
    changes.clear();
    MergeCategories(result.BaseObjectDescription.Categories, source.BaseObjectDescription.Categories, changes);
    for (const ModuleObjectDescription &from : source.ModuleObjectDescriptions) {
        ModuleObjectDescription *into = nullptr;
        for (ModuleObjectDescription &candidate : result.ModuleObjectDescriptions) {
            if (candidate.ModuleName == from.ModuleName) {
                into = &candidate;
                break;
            }
        }
        if (!into) {
            result.ModuleObjectDescriptions.push_back(from);
        } else {
            MergeCategories(into->Categories, from.Categories, changes);
        }
    }
    return result;
}

ObjectInstance ObjectInstance::Templatize(const ObjectInstance &target, const ObjectInstance &source) {
    ObjectInstance result = target;
    Categories &categories = result.BaseObjectDescription.Categories;
    for (ObjectParameterCategory &category : categories) {
        const ObjectParameterCategory *from = nullptr;
        for (const ObjectParameterCategory &candidate : source.BaseObjectDescription.Categories) {
            if (candidate.Name == category.Name) {
                from = &candidate;
                break;
            }
        }
        if (!from) continue;
        for (Parameter &parameter : category.Parameters) {
            for (const Parameter &candidate : from->Parameters) {
                if (candidate.Name == parameter.Name) {
                    parameter.Value = candidate.Value;
                    break;
                }
            }
        }
    }
    return result;
}

ObjectInstance ObjectInstance::TemplateUnion(const ObjectInstance &first, const ObjectInstance &) {
    return first;
}

ObjectInstance ObjectInstance::TemplateIntersection(const ObjectInstance &, const ObjectInstance &) {
    return ObjectInstance();
}

}  // namespace ObjectInstanceXMLMarshaller
