// Which class of row shows a property of which data type.
#pragma once

#include "LV_prpPropCollection.h"

#include <memory>

class CprpPropItem;
class CqorLBItem;
class CqorODListBox;
class GridHost;

/// A new row for a data type, not yet bound to a property; null for types that have no row, whose children have none
/// either.
std::unique_ptr<CprpPropItem> MakePropItem(EprpPropDataType type, GridHost* pViewer, CqorODListBox* pListBox,
                                           CqorLBItem* pParent);
