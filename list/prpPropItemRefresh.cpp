// Reading of a row: name, states, messages and flags, combined over all collections of the row so that the strictest
// one wins.
#include "list/prpPropItem.h"

#include "core/NumberRules.h"
#include "frame/LanguageStrings.h"
#include "list/FirstFailure.h"
#include "list/PropertyAccess.h"
#include "list/qorODListBox.h"

#include <cmath>
#include <utility>

namespace {

constexpr const char* kSource = ".\\prpPropLBItems";

constexpr UINT kSeveralErrorsString = 32013;
constexpr UINT kErrorFormatString = 32014;

/// @param line  named in the report of a missing string
Text SeveralErrorsText(unsigned line)
{
    Text text;
    if (!LoadLanguageString(kSeveralErrorsString, text))
        ThrowInternal(CallSite{kSource, line});
    return text;
}

Text AsErrorText(const Text& text)
{
    Text format;
    if (!LoadLanguageString(kErrorFormatString, format))
        format = OLESTR("Error: %s");
    return FormatText(format, text);
}

} // namespace

CprpMultiplePropInfo& CprpPropItem::PropInfo() const
{
    constexpr unsigned kLine = 95;
    if (!m_pPropInfo)
        ThrowInternal(CallSite{kSource, kLine});
    return *m_pPropInfo;
}

bool CprpPropItem::IsImperial() const
{
    constexpr unsigned kLine = 661;
    EprpUnitMode mode = E_UNITMODE_NONE;
    Must(FirstCollection().GetUnitMode(&mode));
    if (mode != E_METRIC && mode != E_IMPERIAL)
        ThrowInternal(CallSite{kSource, kLine});
    return mode == E_IMPERIAL;
}

void CprpPropItem::Refresh()
{
    constexpr unsigned kNoInfoLine = 414;
    constexpr unsigned kNoCollectionLine = 416;
    if (!m_pPropInfo)
        ThrowInternal(CallSite{kSource, kNoInfoLine});
    if (m_pPropInfo->m_listCollections.empty())
        ThrowInternal(CallSite{kSource, kNoCollectionLine});

    bool allVisible = true;
    const double tolerance = IsImperial() ? kImperialThreshold : kMetricThreshold;
    bool isFirst = true;
    for (const auto& collection : m_pPropInfo->m_listCollections) {
        const bool found =
            WithProperty(*collection, m_pPropInfo->m_nPropertyID, AtEnd::DropEvents, [&](IqorProperty& property) {
                if (isFirst)
                    ReadIdentity(*collection, property);
                else
                    KeepSmallerLimit(*collection, tolerance);
                allVisible = ReadState(*collection, property) && allVisible;
                ReadValue(property, isFirst);
            });
        if (isFirst && !found)
            return; // removed already, its event is still to come; what the row shows stands until then
        isFirst = false;
    }
    if (!m_bVisibilityForced)
        m_bVisible = allVisible;

    FirstFailure failure;
    for (std::size_t i = 0; i < m_listChildren.size(); ++i)
        failure.Try([&] { m_listChildren[i]->Refresh(); });
    failure.Raise();
}

/// Name and input limit, from the first collection; what the collections take away stands in full as yet.
void CprpPropItem::ReadIdentity(IqorPropertyCollection& first, IqorProperty& property)
{
    Must(first.GetMaxInputValue(&m_dbMaxInputValue));
    m_strName = TextFrom([&](BSTR* name) { return property.GetPropertyName(E_PRP_PROP_NAME_STYLE_FULL, name); });
    m_bInvalid = false;
    m_bReadOnly = false;
    m_bShowExtendedButton = true;
    m_bEditable = true;
    m_strError.clear();
    m_bShowHelpTooltip = m_pListBox->m_bShowHelpTooltips;
}

void CprpPropItem::KeepSmallerLimit(IqorPropertyCollection& collection, double tolerance)
{
    double limit = 0;
    Must(collection.GetMaxInputValue(&limit));
    if (limit < m_dbMaxInputValue && !NearlyEqual(std::fabs(m_dbMaxInputValue - limit), tolerance))
        m_dbMaxInputValue = limit;
}

/// @return true when the property is visible in this collection
bool CprpPropItem::ReadState(IqorPropertyCollection& collection, IqorProperty& property)
{
    VARIANT_BOOL valid = VARIANT_FALSE;
    VARIANT_BOOL visible = VARIANT_FALSE;
    VARIANT_BOOL readOnly = VARIANT_FALSE;
    Must(property.GetDisplayDetails(&valid, &visible, &readOnly));
    VARIANT_BOOL warning = VARIANT_FALSE;
    Must(property.IsInWarning(&warning));
    m_bWarning = warning != VARIANT_FALSE; // the last collection decides
    ReadMessages(collection, property, valid != VARIANT_FALSE, visible != VARIANT_FALSE);
    m_bReadOnly = m_bReadOnly || readOnly != VARIANT_FALSE;
    ReadEditFlags(property);
    return visible != VARIANT_FALSE;
}

void CprpPropItem::ReadMessages(IqorPropertyCollection& collection, IqorProperty& property, bool valid, bool visible)
{
    if (!valid && visible) {
        m_bInvalid = true;
        AddErrorText(TextFrom([&](BSTR* text) { return property.GetErrorString(text); }));
    } else if (m_bShowHelpTooltip && !m_bWarning) {
        LONG resource = 0;
        VARIANT_BOOL success = VARIANT_FALSE;
        const Text help = TextFrom([&](BSTR* text) {
            return collection.GetHelpStringResource(m_pPropInfo->m_nPropertyID, &resource, text, &success);
        });
        if (success != VARIANT_FALSE && !help.empty())
            AddHelpText(help);
    }
    m_strWarning.clear();
    if (m_bWarning)
        m_strWarning = TextFrom([&](BSTR* text) { return property.GetWarningString(text); });
}

void CprpPropItem::AddErrorText(const Text& error)
{
    constexpr unsigned kLine = 489;
    m_strError = AsErrorText(m_strError.empty() ? error : SeveralErrorsText(kLine));
}

/// On purpose: help shares the tip with errors, and two texts that differ count as several errors.
void CprpPropItem::AddHelpText(const Text& help)
{
    constexpr unsigned kLine = 507;
    m_strError = m_strError.empty() || m_strError == help ? help : AsErrorText(SeveralErrorsText(kLine));
}

/// One collection is enough to take a right away.
void CprpPropItem::ReadEditFlags(IqorProperty& property)
{
    LONG flags = 0;
    Must(property.GetEditFlags(&flags));
    if ((flags & E_PROP_EDIT_SHOW_EXTENDED_INFO) == 0 || !m_pListBox->m_bShowExtendedInfo)
        m_bShowExtendedButton = false;
    if ((flags & E_PROP_EDIT_VALUE) == 0)
        m_bEditable = false;
}

void CprpPropItem::KeepIfAllAgree(Text& text, Text read, bool isFirst)
{
    if (isFirst)
        text = std::move(read);
    else if (read != text)
        text.clear(); // for good: no text that follows brings it back
}
