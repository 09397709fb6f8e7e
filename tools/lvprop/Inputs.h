// The inputs that commands share: a routine file, and a saved text loaded into its tree.
#pragma once

#include "tools/lvprop/Console.h"
#include "tools/lvprop/PropertyTree.h"
#include "tools/lvprop/SavedFile.h"

#include <CLI/CLI.hpp>

#include <string>

struct TreeInputs {
    std::string routine; ///< file name
    std::string saved;   ///< file name; empty for none
    LONG version = 1;    ///< format of the saved text
};

/// Adds the positional ROUTINE, an optional SAVED and --version.
void AddTreeOptions(CLI::App& command, TreeInputs& inputs);
void AddVersionOption(CLI::App& command, LONG& version);

Routine ReadRoutine(const std::string& name);

/// Opens a saved text; throws ToolError for one that does not begin with the record marker.
SavedFile OpenSaved(const std::string& name);

/// Builds the tree and loads the saved text, if one is given. The faults of the load go to the error stream, one by
/// one. @return whether the load took everything.
struct LoadedTree {
    Routine routine;
    PropertyTree tree;
    bool isComplete = true;
};
LoadedTree OpenTree(const TreeInputs& inputs, const Console& console);
