// The choices of an enumerated property, and what a property only carries along for its host: bounds and the
// characters that editors refuse. An item is addressed by the index that the host chose; its literal text is found by
// the item's value, and a string resource wins over it.
#include "core/VariantBool.h"
#include "core/prpProperty.h"

#include <algorithm>
#include <stdexcept>

namespace {

/// Items that an array may have: as many as fit into 2^31 - 1 bytes.
constexpr std::size_t kMostItems = 0x7FFFFFFF / sizeof(SprpEnumItem);
static_assert(sizeof(SprpEnumItem) == 12);

bool SameItem(const SprpEnumItem& left, const SprpEnumItem& right)
{
    return left.eEnumValue == right.eEnumValue && left.StringResID == right.StringResID && left.bShow == right.bShow;
}

/// The item at an index that the caller has found not negative.
SprpEnumItem& ItemAt(std::vector<SprpEnumItem>& items, LONG index)
{
    if (static_cast<std::size_t>(index) >= items.size())
        throw ComError{E_INVALIDARG, {}};
    return items[static_cast<std::size_t>(index)];
}

} // namespace

/// Walks the items: pass 0, then the index given back plus 1, until the value is -1.
/// @param Index                       in, where to look; out, the item found, or as it came.
/// @param Value                       out, -1 at the end and for an item without a text.
/// @param EnumItemString              out, must come in null; the caller frees it. Null for an item without a text.
/// @param IterateInvisibleProperties  takes hidden items too.
/// Raises, in this order: null index, negative index, non-null out string, null pointers, no open transaction.
STDMETHODIMP CprpProperty::GetEnumByIndex(LONG* Index, LONG* Value, BSTR* EnumItemString,
                                          VARIANT_BOOL IterateInvisibleProperties)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetEnumByIndex"), [&](const Checks& require) {
        require.Pointer(Index, OLESTR("pnIndex"));
        require.NotNegative(*Index);
        if (EnumItemString)
            require.EmptyString(EnumItemString, OLESTR("pbstrEnumString"));
        require.Pointer(EnumItemString, OLESTR("pbstrEnumString"));
        require.Pointer(Value, OLESTR("pnValue"));
        require.Transaction(InTransaction());

        *Value = -1;
        const std::vector<SprpEnumItem>& items = Extras().enums->items;
        auto at = static_cast<std::size_t>(*Index);
        while (at < items.size() && !IterateInvisibleProperties && !items[at].bShow)
            ++at;
        if (at >= items.size())
            return;
        *Index = static_cast<LONG>(at);
        const Text text = EnumItemText(items[at]);
        if (text.empty())
            return; // on purpose such an item ends a walk early
        *Value = items[at].eEnumValue;
        *EnumItemString = NewBstr(text);
    });
}

/// Sets the item at an index; places between the present end and the index become hidden items of value 0. An item
/// equal to the present one announces nothing.
/// Raises, in this order: null pointer, no open transaction, negative index, more items than there is room for.
STDMETHODIMP CprpProperty::AddEnumItem(LONG Index, SprpEnumItem* EnumItem)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::AddEnumItem"), [&](const Checks& require) {
        require.Pointer(EnumItem, OLESTR("pEnumItem"));
        require.Transaction(InTransaction());
        require.NotNegative(Index);

        SprpEnumItem item{};
        item.eEnumValue = EnumItem->eEnumValue;
        item.StringResID = EnumItem->StringResID;
        item.bShow = Out(In(EnumItem->bShow));

        std::vector<SprpEnumItem>& items = MakeExtras().enums.Make().items;
        const auto at = static_cast<std::size_t>(Index);
        if (at >= kMostItems)
            throw std::length_error("enumeration items");
        if (at < items.size() && SameItem(items[at], item))
            return;
        if (at >= items.size())
            items.resize(at + 1);
        items[at] = item;
        QueueStateEdit();
    });
}

/// Finds the first item of a value.
/// @param EnumItem       in, the value; out, resource and visibility of the item, untouched without a hit.
/// @param ValueAsString  out, must come in null; the caller frees it. Null for an item without a text.
/// @param Success        out, whether there is such an item.
/// Raises, in this order: null pointers (item, success, text), non-null out string, no open transaction.
STDMETHODIMP CprpProperty::GetEnumInfo(SprpEnumItem* EnumItem, BSTR* ValueAsString, VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetEnumInfo"), [&](const Checks& require) {
        require.Pointer(EnumItem, OLESTR("pEnumItem"));
        require.Pointer(Success, OLESTR("pvbSuccess"));
        require.Pointer(ValueAsString, OLESTR("pbstrValueAsString"));
        require.EmptyString(ValueAsString, OLESTR("pbstrValueAsString"));
        require.Transaction(InTransaction());

        *Success = VARIANT_FALSE;
        const std::vector<SprpEnumItem>& items = Extras().enums->items;
        const auto found = std::find_if(items.begin(), items.end(), [&](const SprpEnumItem& item) {
            return item.eEnumValue == EnumItem->eEnumValue;
        });
        if (found == items.end())
            return;
        EnumItem->bShow = found->bShow;
        EnumItem->StringResID = found->StringResID;
        if (const Text text = EnumItemText(*found); !text.empty())
            *ValueAsString = NewBstr(text);
        *Success = VARIANT_TRUE;
    });
}

/// Shows or hides the item at an index. Nothing is announced.
/// Raises, in this order: no open transaction, negative index, E_INVALIDARG for an index past the end.
STDMETHODIMP CprpProperty::ShowEnumItem(LONG Index, VARIANT_BOOL Show)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::ShowEnumItem"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.NotNegative(Index);
        ItemAt(MakeExtras().enums.Make().items, Index).bShow = Out(In(Show));
    });
}

/// Gives the value of the item at an index a literal text, which all items of that value share; null counts as empty.
/// It outlives the item and serves where the item's string resource gives none. Always announced.
/// Raises, in this order: no open transaction, negative index, E_INVALIDARG for an index past the end.
STDMETHODIMP CprpProperty::AddEnumItemString(LONG Index, BSTR EnumString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::AddEnumItemString"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.NotNegative(Index);
        PropertyEnums& enums = MakeExtras().enums.Make();
        enums.texts[ItemAt(enums.items, Index).eEnumValue] = ViewOf(EnumString);
        QueueStateEdit();
    });
}

Text CprpProperty::EnumItemText(const SprpEnumItem& item) const
{
    Text text;
    if (LoadParsedResourceString(text, item.StringResID))
        return text;
    const std::map<LONG, Text>& texts = Extras().enums->texts;
    const auto literal = texts.find(item.eEnumValue);
    return literal == texts.end() ? Text() : literal->second;
}

/// Limits for the host to apply: kept, cloned, and where custom and of a length scaled by a unit conversion. No setter
/// compares a value against them. Needs no transaction; nothing is announced. Raises: null pointer.
STDMETHODIMP CprpProperty::SetPropertyBounds(SprpBoundsInfo* BoundsInfo)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyBounds"), [&](const Checks& require) {
        require.Pointer(BoundsInfo, OLESTR("psBoundsInfo"));
        MakeExtras().bounds.Make() = *BoundsInfo;
    });
}

/// Limits for the host to apply. Needs no transaction. Raises: null pointer.
STDMETHODIMP CprpProperty::GetPropertyBounds(SprpBoundsInfo* BoundsInfo)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyBounds"), [&](const Checks& require) {
        require.Pointer(BoundsInfo, OLESTR("psBoundsInfo"));
        *BoundsInfo = *Extras().bounds;
    });
}

/// Characters that editors refuse; an empty text means none. The property itself takes every character. Needs no
/// transaction; nothing is announced. Raises: null text.
STDMETHODIMP CprpProperty::SetInvalidCharacters(BSTR InvalidCharacters)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetInvalidCharacters"), [&](const Checks& require) {
        require.Pointer(InvalidCharacters, OLESTR("bstrInvalidCharacters"));
        CComBSTR copy;
        copy.m_str = NewBstr(ViewOf(InvalidCharacters));
        MakeExtras().invalidCharacters = std::move(copy);
    });
}

/// Characters that editors refuse.
/// @param InvalidCharacters  out, must come in null; the caller frees it. Null when none were ever given.
/// Needs no transaction. Raises, in this order: null pointer, non-null out string.
STDMETHODIMP CprpProperty::GetInvalidCharacters(BSTR* InvalidCharacters)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetInvalidCharacters"), [&](const Checks& require) {
        require.Pointer(InvalidCharacters, OLESTR("bstrInvalidCharacters"));
        require.EmptyString(InvalidCharacters, OLESTR("pbstrInvalidCharacters"));
        if (const CComBSTR& stored = Extras().invalidCharacters)
            *InvalidCharacters = NewBstr(stored.View());
    });
}
