// Grows the routine's properties while a document is imported: ids in blocks, and the few forms that an import makes.
#pragma once

#include "tools/lvprop/Routine.h"

#include <string>

/// Ids of one thing of a document (a characteristic, a feature, a point set) stand together in a block of 16, its
/// category first. The fixed headings have ids below the first block.
class QifTree {
public:
    QifTree() = default;

    Routine routine;

    /// Adds a heading at the top level under a fixed id.
    void AddHeading(LONG id, const std::string& name);

    /// Opens the next block with its category; the Add functions below put their property under it.
    LONG OpenBlock(LONG parent, const std::string& name);

    /// Texts are kept whole: letters outside ASCII need the multi-line type, which the narrow one would drop.
    void AddText(const std::string& name, const std::string& text);
    void AddNumber(EprpPropDataType type, const std::string& name, double value);
    void AddPosition(const std::string& name, const RoutinePoint& point);
    /// Directions have no unit: they stay as they are when the collection's unit changes.
    void AddDirection(const std::string& name, const RoutinePoint& direction);
    void AddPath(const std::string& name, RoutinePath path);
    void AddTolerance(const std::string& name, const RoutineTolerance& tolerance);
    void AddYesNo(const std::string& name, bool yes);

private:
    RoutineProperty& Add(EprpPropDataType type, const std::string& name);

    static constexpr LONG kBlockSize = 16;
    static constexpr LONG kFirstBlock = 1024;

    LONG m_block = 0; ///< id of the open block's category
    LONG m_nextBlock = kFirstBlock;
    LONG m_nextId = 0;
};
