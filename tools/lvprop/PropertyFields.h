// A property as a flat list of named fields, each as exact text: what an audit or a conversion compares.
#pragma once

#include "tools/lvprop/PropertyTree.h"

#include <string>
#include <vector>

struct PropertyField {
    std::string name; ///< "value", "X.upper", "point 3", "readOnly"
    std::string text;
};

std::vector<PropertyField> FieldsOf(const TreeProperty& property);

/// One field that differs; a side that lacks it has an empty text.
struct FieldDifference {
    LONG id = 0;
    std::string property; ///< its name
    std::string type;     ///< keyword of its data type
    std::string field;
    std::string before;
    std::string after;
};

/// Properties are paired by id; one that stands on one side only gives the field "property".
std::vector<FieldDifference> CompareTrees(const std::vector<TreeProperty>& before,
                                          const std::vector<TreeProperty>& after);
