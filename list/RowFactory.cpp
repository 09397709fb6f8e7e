#include "list/RowFactory.h"

#include "list/prpPropCategory.h"
#include "list/prpPropDropList.h"
#include "list/prpPropNumber.h"
#include "list/prpPropPlainText.h"
#include "list/prpPropScanPathList.h"
#include "list/prpPropString.h"

namespace {

using Making = std::unique_ptr<CprpPropItem>(GridHost*, CqorODListBox*, CqorLBItem*);

template <class Row, auto... Settings>
std::unique_ptr<CprpPropItem> Make(GridHost* viewer, CqorODListBox* list, CqorLBItem* parent)
{
    return std::make_unique<Row>(viewer, list, parent, Settings...);
}

constexpr auto kNumber = &Make<CprpPropNumber, EditType::FloatingPoint>;
constexpr auto kAnsi = &Make<CprpPropString, false>;

struct RowClass {
    EprpPropDataType type;
    Making* make;
};

constexpr RowClass kRowClasses[] = {
    {E_PROP_DT_ANGLE, kNumber},
    {E_PROP_DT_LINEAR, kNumber},
    {E_PROP_DT_LONG, &Make<CprpPropNumber, EditType::SignedInteger>},
    {E_PROP_DT_DOUBLE, kNumber},
    {E_PROP_DT_STRING_ANSI, kAnsi},
    {E_PROP_DT_TOLERANCE, &Make<CprpPropPlainText>},
    {E_PROP_DT_POSITION, &Make<CprpPropPlainText>},
    {E_PROP_DT_VECTOR, &Make<CprpPropPlainText>},
    {E_PROP_DT_ENUM, &Make<CprpPropDropList>},
    {E_PROP_DT_FORM, kNumber},
    {E_PROP_DT_STATEMENT, kAnsi},
    {E_PROP_DT_FULL_PRECISION, kNumber},
    {E_PROP_DT_STRING_UNICODE, &Make<CprpPropString, true>},
    {E_PROP_DT_DWORD, &Make<CprpPropNumber, EditType::UnsignedInteger>},
    {E_PROP_DT_SCAN_PATH_LIST, &Make<CprpPropScanPathList>},
    {E_PROP_DT_CATEGORY, &Make<CprpPropCategory>},
};

} // namespace

std::unique_ptr<CprpPropItem> MakePropItem(EprpPropDataType type, GridHost* pViewer, CqorODListBox* pListBox,
                                           CqorLBItem* pParent)
{
    for (const RowClass& row : kRowClasses) {
        if (row.type == type)
            return row.make(pViewer, pListBox, pParent);
    }
    return nullptr;
}
