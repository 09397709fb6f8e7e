#include "tools/lvprop/QifTree.h"

#include <algorithm>

namespace {

/// In a property's name "(" opens a note that must end at a ")"; a name that breaks this rule gets other brackets.
std::string PropertyNameOf(std::string text)
{
    const size_t open = text.find('(');
    if (open != std::string::npos && text.find(')', open) == std::string::npos)
        std::ranges::replace(text, '(', '[');
    return text;
}

bool IsAscii(const std::string& text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

void QifTree::AddHeading(LONG id, const std::string& name)
{
    RoutineProperty heading;
    heading.id = id;
    heading.name = name;
    heading.type = E_PROP_DT_CATEGORY;
    heading.editFlags = DefaultEditFlags(heading.type);
    routine.properties.push_back(std::move(heading));
}

LONG QifTree::OpenBlock(LONG parent, const std::string& name)
{
    AddHeading(m_nextBlock, PropertyNameOf(name));
    routine.properties.back().parent = parent;
    m_block = m_nextBlock;
    m_nextId = m_block + 1;
    m_nextBlock += kBlockSize;
    return m_block;
}

RoutineProperty& QifTree::Add(EprpPropDataType type, const std::string& name)
{
    // A thing with more than 15 properties takes the ids of the next block as well.
    if (m_nextId == m_nextBlock)
        m_nextBlock += kBlockSize;
    RoutineProperty& property = routine.properties.emplace_back();
    property.id = m_nextId++;
    property.parent = m_block;
    property.name = PropertyNameOf(name);
    property.type = type;
    return property;
}

void QifTree::AddText(const std::string& name, const std::string& text)
{
    Add(IsAscii(text) ? E_PROP_DT_STRING_ANSI : E_PROP_DT_MULTI_STRING_UNICODE, name).value = text;
}

void QifTree::AddNumber(EprpPropDataType type, const std::string& name, double value)
{
    Add(type, name).value = value;
}

void QifTree::AddPosition(const std::string& name, const RoutinePoint& point)
{
    Add(E_PROP_DT_POSITION, name).value = point;
}

void QifTree::AddDirection(const std::string& name, const RoutinePoint& direction)
{
    RoutineProperty& property = Add(E_PROP_DT_VECTOR, name);
    property.value = direction;
    property.noUnitConvert = true;
}

void QifTree::AddPath(const std::string& name, RoutinePath path)
{
    Add(E_PROP_DT_SCAN_PATH_LIST, name).value = std::move(path);
}

void QifTree::AddTolerance(const std::string& name, const RoutineTolerance& tolerance)
{
    Add(E_PROP_DT_TOLERANCE, name).value = tolerance;
}

void QifTree::AddYesNo(const std::string& name, bool yes)
{
    RoutineProperty& property = Add(E_PROP_DT_ENUM, name);
    property.value = LONG{yes ? 1 : 0};
    property.enumItems = {{0, 0, 0, "No", true}, {1, 1, 0, "Yes", true}};
}
