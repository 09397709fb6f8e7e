// The deep copy of a property into another collection.
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"

#include <algorithm>

namespace {

PropertyExtras CopyOf(const PropertyExtras& source)
{
    PropertyExtras copy;
    copy.nameResID = source.nameResID;
    copy.linkedPropID = source.linkedPropID;
    copy.hResModule = source.hResModule;
    copy.position = source.position;
    copy.names = source.names;
    copy.error = source.error;
    if (source.invalidCharacters)
        copy.invalidCharacters = CComBSTR(source.invalidCharacters.View());
    copy.bounds = source.bounds;
    if (source.tolerance)
        copy.tolerance = std::make_unique<CprpTolerance>(*source.tolerance);
    copy.enumItems = source.enumItems;
    copy.scanPath = source.scanPath;
    copy.visibilityInfo = source.visibilityInfo; // rules are shared
    copy.postProcVisibilityInfo = source.postProcVisibilityInfo;
    return copy;
}

} // namespace

void CprpProperty::CopyFrom(const CprpProperty& source, CprpPropertyCollection& target)
{
    // On purpose left out: m_bNoUnitConvert, m_bVisibleForPostProc, m_bWarning and the warning text start anew in a
    // clone; hosts rely on a clone without warnings.
    m_bVisible = source.m_bVisible;
    m_bReadOnly = source.m_bReadOnly;
    m_bValid = source.m_bValid;
    m_bAlwaysSave = source.m_bAlwaysSave;
    m_eDataType = source.m_eDataType;
    m_nEditFlags = source.m_nEditFlags;
    m_nLong = source.m_nLong;
    m_dbDouble = source.m_dbDouble;
    m_Value = source.m_Value;
    if (source.m_pExtras) {
        m_pExtras = std::make_unique<PropertyExtras>(CopyOf(*source.m_pExtras));
        CopyEnumStrings(*source.m_pExtras);
        if (m_pExtras->visibilityInfo || m_pExtras->postProcVisibilityInfo)
            target.NoteRule(*this);
    }
    for (const CprpProperty& child : source.m_ChildList)
        target.AddInternal(child.Id(), Id()).CopyFrom(child, target);
}

void CprpProperty::CopyEnumStrings(const PropertyExtras& source)
{
    for (const auto& [value, text] : source.enumStrings) {
        const auto holds = [wanted = value](const SprpEnumItem& item) { return item.eEnumValue == wanted; };
        const auto item = std::find_if(m_pExtras->enumItems.begin(), m_pExtras->enumItems.end(), holds);
        if (item == m_pExtras->enumItems.end())
            continue; // a text whose value no longer stands in the items is dropped
        m_pExtras->enumStrings[value] = text;
        QueueStateEdit(); // a text entered announces itself, here into the queue of the clone
    }
}
