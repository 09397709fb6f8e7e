// The layout of the records that cross the interfaces: the same in both worlds, natural alignment. Compiled in every
// build, so that a compiler that lays them out otherwise is found at once.
#include "LV_prpPropCollection.h"

#include <cstddef>

static_assert(sizeof(SprpEventInfo) == 20);
static_assert(offsetof(SprpEventInfo, eEventType) == 0);
static_assert(offsetof(SprpEventInfo, nPropID) == 4);
static_assert(offsetof(SprpEventInfo, nPropCollectionID) == 8);
static_assert(offsetof(SprpEventInfo, nLong1) == 12);
static_assert(offsetof(SprpEventInfo, bVisiblityChanged) == 16);
static_assert(offsetof(SprpEventInfo, bDataChanged) == 18);

static_assert(sizeof(SprpEnumItem) == 12);
static_assert(offsetof(SprpEnumItem, eEnumValue) == 0);
static_assert(offsetof(SprpEnumItem, StringResID) == 4);
static_assert(offsetof(SprpEnumItem, bShow) == 8);

static_assert(sizeof(SprpBoundsInfo) == 40);
static_assert(offsetof(SprpBoundsInfo, eLowerType) == 0);
static_assert(offsetof(SprpBoundsInfo, eUpperType) == 4);
static_assert(offsetof(SprpBoundsInfo, nLowerBound) == 8);
static_assert(offsetof(SprpBoundsInfo, nUpperBound) == 12);
static_assert(offsetof(SprpBoundsInfo, dbLowerBound) == 16);
static_assert(offsetof(SprpBoundsInfo, dbUpperBound) == 24);
static_assert(offsetof(SprpBoundsInfo, eLowerBoundLogic) == 32);
static_assert(offsetof(SprpBoundsInfo, eUpperBoundLogic) == 36);

static_assert(sizeof(SprpPosition) == 24);
static_assert(offsetof(SprpPosition, X) == 0);
static_assert(offsetof(SprpPosition, Y) == 8);
static_assert(offsetof(SprpPosition, Z) == 16);

static_assert(sizeof(SprgScanPathPoint) == 24);
static_assert(offsetof(SprgScanPathPoint, Position) == 0);

static_assert(sizeof(SprpVisibilityOverride) == 8);
static_assert(offsetof(SprpVisibilityOverride, nPropertyID) == 0);
static_assert(offsetof(SprpVisibilityOverride, bVisible) == 4);

static_assert(sizeof(SprpFormTolInfo) == 40);
static_assert(offsetof(SprpFormTolInfo, eTolStatus) == 0);
static_assert(offsetof(SprpFormTolInfo, bActive) == 4);
static_assert(offsetof(SprpFormTolInfo, dbNominalValue) == 8);
static_assert(offsetof(SprpFormTolInfo, dbCalculatedValue) == 16);
static_assert(offsetof(SprpFormTolInfo, dbError) == 24);
static_assert(offsetof(SprpFormTolInfo, bAllowEdit) == 32);

static_assert(sizeof(SprpLinearTolInfo) == 56);
static_assert(offsetof(SprpLinearTolInfo, eTolStatus) == 0);
static_assert(offsetof(SprpLinearTolInfo, bActive) == 4);
static_assert(offsetof(SprpLinearTolInfo, dbNominalValue) == 8);
static_assert(offsetof(SprpLinearTolInfo, dbUpperBound) == 16);
static_assert(offsetof(SprpLinearTolInfo, dbLowerBound) == 24);
static_assert(offsetof(SprpLinearTolInfo, dbCalculatedValue) == 32);
static_assert(offsetof(SprpLinearTolInfo, dbError) == 40);
static_assert(offsetof(SprpLinearTolInfo, bAbsoluteBounds) == 48);
static_assert(offsetof(SprpLinearTolInfo, nEditFlags) == 52);

static_assert(sizeof(SprpGDTInfo) == 80);
static_assert(offsetof(SprpGDTInfo, eTolStatus) == 0);
static_assert(offsetof(SprpGDTInfo, bActive) == 4);
static_assert(offsetof(SprpGDTInfo, eType) == 8);
static_assert(offsetof(SprpGDTInfo, eMaterialModifier) == 12);
static_assert(offsetof(SprpGDTInfo, dbToleranceValue) == 16);
static_assert(offsetof(SprpGDTInfo, dbCalculatedValue) == 24);
static_assert(offsetof(SprpGDTInfo, dbError) == 32);
static_assert(offsetof(SprpGDTInfo, bstrDatumPlane1) == 40);
static_assert(offsetof(SprpGDTInfo, bstrDatumPlane2) == 48);
static_assert(offsetof(SprpGDTInfo, bstrDatumPlane3) == 56);
static_assert(offsetof(SprpGDTInfo, bRadial) == 64);
static_assert(offsetof(SprpGDTInfo, bDatum1Active) == 66);
static_assert(offsetof(SprpGDTInfo, bDatum2Active) == 68);
static_assert(offsetof(SprpGDTInfo, bDatum3Active) == 70);
static_assert(offsetof(SprpGDTInfo, nEditFlags) == 72);

static_assert(sizeof(SprpTolerance) == 456);
static_assert(offsetof(SprpTolerance, eTolType) == 0);
static_assert(offsetof(SprpTolerance, bMarkAsDefault) == 4);
static_assert(offsetof(SprpTolerance, bMarkAsNone) == 6);
static_assert(offsetof(SprpTolerance, FormTolInfo) == 8);
static_assert(offsetof(SprpTolerance, LinearTolInfo_X) == 48);
static_assert(offsetof(SprpTolerance, LinearTolInfo_Y) == 104);
static_assert(offsetof(SprpTolerance, LinearTolInfo_Z) == 160);
static_assert(offsetof(SprpTolerance, GDTInfo_X) == 216);
static_assert(offsetof(SprpTolerance, GDTInfo_Y) == 296);
static_assert(offsetof(SprpTolerance, GDTInfo_Z) == 376);
