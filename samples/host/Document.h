// What is open: a collection built of a routine file or a measurement plan, and the files it came from. Knows no
// window. Everything throws ToolError with a sentence for people.
#pragma once

#include "tools/lvprop/PropertyTree.h"

#include <string>
#include <vector>

class Document {
public:
    /// @param path  a routine file of lvprop, or a QIF document, told apart by their first character.
    explicit Document(const std::string& path);

    const std::string& Path() const { return m_path; }
    /// The path's last part.
    std::string Name() const;
    const lumevor::Collection& Collection() const { return m_tree.Collection(); }
    /// What the import of a plan could not read, sentence by sentence; empty for a routine.
    const std::vector<std::string>& ImportFaults() const { return m_imported.faults; }

    EprpUnitMode UnitMode() const;
    /// Every length becomes its value in the other unit; without effect in the present one.
    void ConvertTo(EprpUnitMode mode);

    /// Puts the values of a saved line into the tree. Its file is then the one that a save offers.
    LoadOutcome LoadSaved(const std::string& path);
    /// Replaces the file whole, or leaves it as it is.
    void Save(const std::string& path);
    /// Of the last load or save; empty before.
    const std::string& SavedPath() const { return m_savedPath; }

    bool HasChanges() const { return m_hasChanges; }
    void NoteChange() { m_hasChanges = true; }

    /// Ids of all properties, parents ahead of their children.
    std::vector<LONG> Ids() const;
    /// Of them, those with children.
    std::vector<LONG> Parents() const;
    /// Name of a property as the grid shows it, and behind it its error or warning; empty when it is gone.
    lumevor::Text Describe(LONG id) const;

private:
    struct Imported {
        Routine routine;
        std::vector<std::string> faults;
    };
    static Imported ReadRoutineOrPlan(const std::string& path);

    std::string m_path;
    Imported m_imported;
    PropertyTree m_tree;
    std::string m_savedPath;
    bool m_hasChanges = false;
};
