// The names of a property: where a name comes from, a string resource or the host, and in which form it is handed
// out. The grammar stands in PropertyNameText.
#include "core/VariantBool.h"
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"
#include "platform/system/ModuleStrings.h"

namespace {

constexpr LONG kNameGivenAsText = -1;
constexpr LONG kLastStringId = 0xFFFF;

/// Null for a style that is none.
const Text* FormOf(const PropertyNameForms& forms, EprpPropertyNameStyle style)
{
    switch (style) {
    case E_PRP_PROP_NAME_STYLE_FULL: return &forms.full;
    case E_PRP_PROP_NAME_STYLE_STRIPPED: return &forms.stripped;
    case E_PRP_PROP_NAME_STYLE_MACRO_POST: return &forms.macroPost;
    case E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT: return &forms.report;
    default: return nullptr;
    }
}

bool LoadString(LONG_PTR module, LONG id, Text& out)
{
    return module != 0 && LoadModuleString(module, static_cast<UINT>(id), out) && !out.empty();
}

} // namespace

/// A form of the name. A name that waits in a resource is loaded and parsed by the first call that asks for it.
/// @param PropertyName  out, must come in null; the caller frees it.
/// Raises, in this order: null pointer, non-null out string, no open transaction; internal errors for a note without
/// an end, where the name is parsed now, and for a style that is none.
STDMETHODIMP CprpProperty::GetPropertyName(EprpPropertyNameStyle PropertyNameStyle, BSTR* PropertyName)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyName"), [&](const Checks& require) {
        require.Pointer(PropertyName, OLESTR("pbstrPropName"));
        require.EmptyString(PropertyName, OLESTR("pbstrPropName"));
        require.Transaction(InTransaction());
        EnsureName();
        const Text* const form = FormOf(Extras().names->forms, PropertyNameStyle);
        if (!form)
            ThrowInternal();
        *PropertyName = NewBstr(*form);
    });
}

/// Names the property by text; null counts as empty. The name's resource id becomes -1. Nothing is announced and no
/// transaction is needed. Raises: an internal error for a note without an end, with the text stored all the same.
STDMETHODIMP CprpProperty::SetPropertyName(BSTR PropNameString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyName"), [&](const Checks&) {
        PropertyExtras& extras = MakeExtras();
        extras.names.Make().raw = ViewOf(PropNameString);
        extras.nameResID = kNameGivenAsText;
        ParseName();
    });
}

/// String resource of the name: 0 none, -1 for a name that was given as text.
/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetPropertyNameResID(LONG* NameResID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyNameResID"), [&](const Checks& require) {
        require.Pointer(NameResID, OLESTR("pnNameResID"));
        require.Transaction(InTransaction());
        *NameResID = Extras().nameResID;
    });
}

/// Names the property by a string resource, which is loaded at once; one that cannot be loaded clears the name, and
/// so does 0. Nothing is announced.
/// Raises, in this order: no open transaction, negative id; an internal error for a note without an end, with the text
/// stored and the id not.
STDMETHODIMP CprpProperty::SetPropertyNameResID(LONG NameResID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyNameResID"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.NotNegative(NameResID);
        PropertyExtras& extras = MakeExtras();
        Text& raw = extras.names.Make().raw;
        raw.clear();
        LoadResourceString(raw, NameResID);
        ParseName();
        extras.nameResID = NameResID;
    });
}

/// Whether the name carries the marker of a macro report property; false until the name has been parsed, which the
/// first GetPropertyName does for a name in a resource. Needs no transaction. Raises: null pointer.
STDMETHODIMP CprpProperty::IsMacroReportProperty(VARIANT_BOOL* MacroReportProperty)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::IsMacroReportProperty"), [&](const Checks& require) {
        require.Pointer(MacroReportProperty, OLESTR("pvbMacroReportProperty"));
        *MacroReportProperty = Out(Extras().names->forms.bMacroReportProperty);
    });
}

void CprpProperty::ParseName()
{
    PropertyNames& names = MakeExtras().names.Make();
    if (!ParseNameText(names.raw, names.forms))
        ThrowInternal();
}

void CprpProperty::EnsureName()
{
    Text loaded;
    if (!Extras().names->raw.empty() || !LoadResourceString(loaded, Extras().nameResID))
        return;
    MakeExtras().names.Make().raw = std::move(loaded);
    ParseName();
}

const Text& CprpProperty::FullName()
{
    EnsureName();
    return Extras().names->forms.full;
}

/// Reads a string of the property's own module, else of the collection's default one. False, with an empty target,
/// when neither holds it.
bool CprpProperty::LoadResourceString(Text& target, LONG id) const
{
    target.clear();
    if (id <= 0 || id > kLastStringId)
        return false;
    return LoadString(Extras().hResModule, id, target) || LoadString(Owner().DefaultResModule(), id, target);
}

/// Reads a string that follows the grammar of names and gives its full form. False when there is no such string or
/// its note has no end.
bool CprpProperty::LoadParsedResourceString(Text& text, LONG id) const
{
    Text raw;
    PropertyNameForms forms;
    if (!LoadResourceString(raw, id) || !ParseNameText(raw, forms))
        return false;
    text = std::move(forms.full);
    return true;
}
