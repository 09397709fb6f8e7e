// The copy of a property into another collection.
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"

#include <algorithm>

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
    if (source.m_pExtras)
        CopyExtras(source.Extras());
    if (VisibilityInfo() || PostProcVisibilityInfo())
        target.NoteRule(*this);
}

void CprpProperty::CopyExtras(const PropertyExtras& source)
{
    PropertyExtras& extras = MakeExtras();
    extras.nameResID = source.nameResID;
    extras.linkedPropID = source.linkedPropID;
    extras.dataType = source.dataType;
    extras.hResModule = source.hResModule;
    extras.position = source.position;
    extras.error = source.error;
    if (source.invalidCharacters)
        extras.invalidCharacters = CComBSTR(source.invalidCharacters.View());
    extras.names = source.names;
    extras.bounds = source.bounds;
    extras.tolerance = source.tolerance;
    extras.scanPath = source.scanPath;
    extras.visibilityInfo = source.visibilityInfo; // rules are shared
    extras.postProcVisibilityInfo = source.postProcVisibilityInfo;
    if (source.enums)
        CopyEnums(*source.enums);
}

void CprpProperty::CopyEnums(const PropertyEnums& source)
{
    PropertyEnums& enums = MakeExtras().enums.Make();
    enums.items = source.items;
    for (const auto& [value, text] : source.texts) {
        const auto holds = [wanted = value](const SprpEnumItem& item) { return item.eEnumValue == wanted; };
        if (std::none_of(enums.items.begin(), enums.items.end(), holds))
            continue; // a text whose value no longer stands in the items is dropped
        enums.texts[value] = text;
    }
}
