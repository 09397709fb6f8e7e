// The records of the interfaces with their sizes and the places of their fields, as the compiler sees them.
#pragma once

#include "LV_prpPropCollection.h"

#include <cstddef>
#include <string>
#include <vector>

struct FieldPlace {
    std::string name;
    std::size_t offset;
};

struct RecordPlace {
    std::string name;
    std::size_t size;
    std::vector<FieldPlace> fields;
};

inline const std::vector<RecordPlace> kRecords = {
    {"SprpEventInfo",
     sizeof(SprpEventInfo),
     {{"eEventType", offsetof(SprpEventInfo, eEventType)},
      {"nPropID", offsetof(SprpEventInfo, nPropID)},
      {"nPropCollectionID", offsetof(SprpEventInfo, nPropCollectionID)},
      {"nLong1", offsetof(SprpEventInfo, nLong1)},
      {"bVisiblityChanged", offsetof(SprpEventInfo, bVisiblityChanged)},
      {"bDataChanged", offsetof(SprpEventInfo, bDataChanged)}}},
    {"SprpEnumItem",
     sizeof(SprpEnumItem),
     {{"eEnumValue", offsetof(SprpEnumItem, eEnumValue)},
      {"StringResID", offsetof(SprpEnumItem, StringResID)},
      {"bShow", offsetof(SprpEnumItem, bShow)}}},
    {"SprpBoundsInfo",
     sizeof(SprpBoundsInfo),
     {{"eLowerType", offsetof(SprpBoundsInfo, eLowerType)},
      {"eUpperType", offsetof(SprpBoundsInfo, eUpperType)},
      {"nLowerBound", offsetof(SprpBoundsInfo, nLowerBound)},
      {"nUpperBound", offsetof(SprpBoundsInfo, nUpperBound)},
      {"dbLowerBound", offsetof(SprpBoundsInfo, dbLowerBound)},
      {"dbUpperBound", offsetof(SprpBoundsInfo, dbUpperBound)},
      {"eLowerBoundLogic", offsetof(SprpBoundsInfo, eLowerBoundLogic)},
      {"eUpperBoundLogic", offsetof(SprpBoundsInfo, eUpperBoundLogic)}}},
    {"SprpPosition",
     sizeof(SprpPosition),
     {{"X", offsetof(SprpPosition, X)}, {"Y", offsetof(SprpPosition, Y)}, {"Z", offsetof(SprpPosition, Z)}}},
    {"SprgScanPathPoint", sizeof(SprgScanPathPoint), {{"Position", offsetof(SprgScanPathPoint, Position)}}},
    {"SprpVisibilityOverride",
     sizeof(SprpVisibilityOverride),
     {{"nPropertyID", offsetof(SprpVisibilityOverride, nPropertyID)},
      {"bVisible", offsetof(SprpVisibilityOverride, bVisible)}}},
    {"SprpFormTolInfo",
     sizeof(SprpFormTolInfo),
     {{"eTolStatus", offsetof(SprpFormTolInfo, eTolStatus)},
      {"bActive", offsetof(SprpFormTolInfo, bActive)},
      {"dbNominalValue", offsetof(SprpFormTolInfo, dbNominalValue)},
      {"dbCalculatedValue", offsetof(SprpFormTolInfo, dbCalculatedValue)},
      {"dbError", offsetof(SprpFormTolInfo, dbError)},
      {"bAllowEdit", offsetof(SprpFormTolInfo, bAllowEdit)}}},
    {"SprpLinearTolInfo",
     sizeof(SprpLinearTolInfo),
     {{"eTolStatus", offsetof(SprpLinearTolInfo, eTolStatus)},
      {"bActive", offsetof(SprpLinearTolInfo, bActive)},
      {"dbNominalValue", offsetof(SprpLinearTolInfo, dbNominalValue)},
      {"dbUpperBound", offsetof(SprpLinearTolInfo, dbUpperBound)},
      {"dbLowerBound", offsetof(SprpLinearTolInfo, dbLowerBound)},
      {"dbCalculatedValue", offsetof(SprpLinearTolInfo, dbCalculatedValue)},
      {"dbError", offsetof(SprpLinearTolInfo, dbError)},
      {"bAbsoluteBounds", offsetof(SprpLinearTolInfo, bAbsoluteBounds)},
      {"nEditFlags", offsetof(SprpLinearTolInfo, nEditFlags)}}},
    {"SprpGDTInfo",
     sizeof(SprpGDTInfo),
     {{"eTolStatus", offsetof(SprpGDTInfo, eTolStatus)},
      {"bActive", offsetof(SprpGDTInfo, bActive)},
      {"eType", offsetof(SprpGDTInfo, eType)},
      {"eMaterialModifier", offsetof(SprpGDTInfo, eMaterialModifier)},
      {"dbToleranceValue", offsetof(SprpGDTInfo, dbToleranceValue)},
      {"dbCalculatedValue", offsetof(SprpGDTInfo, dbCalculatedValue)},
      {"dbError", offsetof(SprpGDTInfo, dbError)},
      {"bstrDatumPlane1", offsetof(SprpGDTInfo, bstrDatumPlane1)},
      {"bstrDatumPlane2", offsetof(SprpGDTInfo, bstrDatumPlane2)},
      {"bstrDatumPlane3", offsetof(SprpGDTInfo, bstrDatumPlane3)},
      {"bRadial", offsetof(SprpGDTInfo, bRadial)},
      {"bDatum1Active", offsetof(SprpGDTInfo, bDatum1Active)},
      {"bDatum2Active", offsetof(SprpGDTInfo, bDatum2Active)},
      {"bDatum3Active", offsetof(SprpGDTInfo, bDatum3Active)},
      {"nEditFlags", offsetof(SprpGDTInfo, nEditFlags)}}},
    {"SprpTolerance",
     sizeof(SprpTolerance),
     {{"eTolType", offsetof(SprpTolerance, eTolType)},
      {"bMarkAsDefault", offsetof(SprpTolerance, bMarkAsDefault)},
      {"bMarkAsNone", offsetof(SprpTolerance, bMarkAsNone)},
      {"FormTolInfo", offsetof(SprpTolerance, FormTolInfo)},
      {"LinearTolInfo_X", offsetof(SprpTolerance, LinearTolInfo_X)},
      {"LinearTolInfo_Y", offsetof(SprpTolerance, LinearTolInfo_Y)},
      {"LinearTolInfo_Z", offsetof(SprpTolerance, LinearTolInfo_Z)},
      {"GDTInfo_X", offsetof(SprpTolerance, GDTInfo_X)},
      {"GDTInfo_Y", offsetof(SprpTolerance, GDTInfo_Y)},
      {"GDTInfo_Z", offsetof(SprpTolerance, GDTInfo_Z)}}},
};
