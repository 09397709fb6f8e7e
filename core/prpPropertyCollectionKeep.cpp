// Keeping saved data that no longer fits: each record becomes a property under a category of its own and is written
// again by the next save.
#include "core/SavedRecord.h"
#include "core/prpPropertyCollection.h"
#include "frame/FormatText.h"
#include "frame/LanguageStrings.h"
#include "frame/SupportLog.h"

namespace {

constexpr UINT kMismatchedHelpString = 32037;
constexpr UINT kUnusedHelpString = 32038;
/// Hosts number their own properties from here; help texts show the number that a user knows.
constexpr LONG kFirstHostId = 1024;
constexpr LONG kAnyState = -1;

/// The number below the first host id wraps like every 32-bit number of a saved text.
LONG ShownId(LONG id)
{
    return static_cast<LONG>(static_cast<uint32_t>(id) - static_cast<uint32_t>(kFirstHostId));
}

Text RequiredString(UINT id)
{
    Text text;
    if (!LoadLanguageString(id, text))
        ThrowInternal();
    return text;
}

} // namespace

void CprpPropertyCollection::KeepRecords(TextView text, LONG categoryId, LONG nameResID)
{
    EnsureCategory(categoryId, nameResID);
    for (const TextView untouched : SavedRecords(text)) {
        Text record(untouched);
        UndoEscapes(record);
        KeepRecord(record, categoryId);
    }
}

void CprpPropertyCollection::EnsureCategory(LONG categoryId, LONG nameResID)
{
    // A host's own property with this id serves as the category, whatever its type.
    if (Find(categoryId))
        return;
    EprpPropError error = E_PROP_ERROR_NONE;
    Must(AddProperty(categoryId, E_PROP_ID_TOP_LEVEL, nameResID, 0, LanguageModule(), E_PROP_EDIT_NONE,
                     E_PROP_DT_CATEGORY, VARIANT_TRUE, VARIANT_TRUE, VARIANT_FALSE, &error));
    if (error != E_PROP_ERROR_NONE)
        ThrowInternal();
}

void CprpPropertyCollection::KeepRecord(TextView record, LONG categoryId)
{
    SavedRecord saved;
    if (ParseRecordVersion1(record, saved) != E_PROP_PARSE_ERROR_NONE)
        ThrowInternal();

    const Text help = ReplaceByKept(saved, categoryId);
    if (m_pIHelpInfo) {
        const CComBSTR text(help);
        Must(m_pIHelpInfo->AddHelpString(kAnyState, saved.id, text));
    }
    WriteSupportLog(FormatText(OLESTR("Custom macro error - %s\n"), help), true);

    CprpProperty* kept = Find(saved.id);
    if (!kept || ApplySavedValue(*kept, saved) != E_PROP_PARSE_ERROR_NONE)
        ThrowInternal();
    const CComBSTR name{TextView(DataTypeKeyword(saved.type))};
    Must(kept->SetPropertyName(name));
    RemoveLinkedTo(saved.id);
}

Text CprpPropertyCollection::ReplaceByKept(const SavedRecord& saved, LONG categoryId)
{
    const CprpProperty* old = Find(saved.id);
    const bool mismatched = old != nullptr;
    const LONG oldType = old ? static_cast<LONG>(old->DataType()) : LONG{E_PROP_DT_NONE};
    EprpPropError error = E_PROP_ERROR_NONE;
    if (old)
        Must(RemoveProperty(saved.id, &error));
    Must(AddProperty(saved.id, categoryId, 0, 0, 0, E_PROP_EDIT_NONE, static_cast<EprpPropDataType>(saved.type),
                     saved.flags & kSavedVisible ? VARIANT_TRUE : VARIANT_FALSE, VARIANT_TRUE, VARIANT_TRUE, &error));

    const OLECHAR* savedType = DataTypeKeyword(saved.type);
    if (mismatched) {
        const LONG shown = ShownId(saved.id) >= 1 ? ShownId(saved.id) : saved.id;
        return FormatText(RequiredString(kMismatchedHelpString), shown, DataTypeKeyword(oldType), savedType);
    }
    return FormatText(RequiredString(kUnusedHelpString), ShownId(saved.id), savedType);
}

void CprpPropertyCollection::RemoveLinkedTo(LONG id)
{
    std::vector<LONG> linked;
    m_mapProperties.ForEach([&](const CprpProperty& property) {
        if (property.LinkedId() == id)
            linked.push_back(property.Id());
    });
    for (const LONG gone : linked) {
        EprpPropError error = E_PROP_ERROR_NONE;
        if (Find(gone)) // taking one away may take its children with it
            Must(RemoveProperty(gone, &error));
    }
}
