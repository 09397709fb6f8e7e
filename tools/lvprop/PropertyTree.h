// A property collection as a host builds it of a routine, driven through the public interfaces alone.
#pragma once

#include "tools/lvprop/ComSession.h"
#include "tools/lvprop/Routine.h"

#include <string>
#include <vector>

/// One property as the interfaces tell it: what a routine holds of it, and what it shows.
struct TreeProperty {
    RoutineProperty property; ///< name, type, value, flags and bounds as read; rules and items are left out
    std::string shown;        ///< the value text
    std::string itemText;     ///< of an enumeration: the text of its item
    bool isValid = true;
    bool isInWarning = false;
    size_t depth = 0; ///< 0 at the top level
};

struct LoadOutcome {
    bool isComplete = false;
    std::vector<std::string> faults; ///< the reasons, in the order of the records
    std::string raised;              ///< of a setter that ended the load at once
};

class PropertyTree {
public:
    enum class Values { Set, LeftOut };

    /// Adds the properties in their order, then values, then errors and rules. Throws ToolError that names the
    /// property whose setting failed.
    explicit PropertyTree(const Routine& routine, Values values = Values::Set);

    const lumevor::Collection& Collection() const { return m_collection; }

    /// The saved text.
    lumevor::Text Save() const;
    /// @param version  0 or 1.
    LoadOutcome Load(lumevor::TextView text, LONG version) const;

    /// All properties in the order of the walk.
    std::vector<TreeProperty> Read() const;

    /// Multiplies lengths by the factor of the mode, also when it is the present one.
    void ConvertTo(EprpUnitMode mode) const;

private:
    void AddProperty(const RoutineProperty& property) const;
    void AttachHelp(const Routine& routine) const;

    lumevor::Collection m_collection;
};

/// "property 12", for messages.
std::string NameForMessages(LONG id);
