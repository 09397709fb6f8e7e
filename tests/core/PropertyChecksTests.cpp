// The preconditions of every method of a property: which need a transaction, which do not, and which null pointer is
// reported under which name.
#include "tests/core/ModelFixture.h"

namespace {

/// A call with good arguments but for what the case is about.
struct Call {
    const char* method;
    HRESULT (*run)(IqorProperty*);
};

struct NullCall {
    const char* method;
    const char* parameter;
    HRESULT (*run)(IqorProperty*);
};

// Room for what the calls hand out; nobody looks at it.
LONG anyLong;
LONG_PTR anyModule;
double anyDouble;
VARIANT_BOOL anyFlag;
EprpPropError anyError;
EprpPropDataType anyType;
SprpEnumItem anyItem;
SprpBoundsInfo anyBounds;
SprpPosition anyPosition;
SprpTolerance anyTolerance;
SprgScanPathPoint anyPoint;

template <class Getter>
HRESULT WithText(Getter getter)
{
    CComBSTR text;
    return getter(&text);
}
template <class Getter>
HRESULT WithProperty(Getter getter)
{
    CComPtr<IqorProperty> property;
    return getter(&property);
}
/// Any pointer: it is never called.
IFontDisp* AnyFont(IqorProperty* property)
{
    return reinterpret_cast<IFontDisp*>(property);
}

// clang-format off
const Call kGuarded[] = {
    {"GetNextChildProperty", [](IqorProperty* p) { return WithProperty([p](IqorProperty** out) { return p->GetNextChildProperty(-1, &anyLong, &anyError, out); }); }},
    {"GetProperty", [](IqorProperty* p) { return WithProperty([p](IqorProperty** out) { return p->GetProperty(1, &anyError, out); }); }},
    {"GetCount", [](IqorProperty* p) { return p->GetCount(&anyLong); }},
    {"GetParentProperty", [](IqorProperty* p) { return p->GetParentProperty(&anyLong); }},
    {"SetParentProperty", [](IqorProperty* p) { return p->SetParentProperty(1); }},
    {"GetPropertyName", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetPropertyName(E_PRP_PROP_NAME_STYLE_FULL, out); }); }},
    {"GetPropertyNameResID", [](IqorProperty* p) { return p->GetPropertyNameResID(&anyLong); }},
    {"SetPropertyNameResID", [](IqorProperty* p) { return p->SetPropertyNameResID(1); }},
    {"GetDataType", [](IqorProperty* p) { return p->GetDataType(&anyType); }},
    {"SetDataType", [](IqorProperty* p) { return p->SetDataType(E_PROP_DT_LONG); }},
    {"GetPropertyString", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetPropertyString(out); }); }},
    {"SetPropertyString", [](IqorProperty* p) { return p->SetPropertyString(Bstr(OLESTR("1"))); }},
    {"SetFont", [](IqorProperty* p) { return p->SetFont(AnyFont(p)); }},
    {"IsValid", [](IqorProperty* p) { return p->IsValid(&anyFlag); }},
    {"SetValid", [](IqorProperty* p) { return p->SetValid(VARIANT_TRUE); }},
    {"IsInWarning", [](IqorProperty* p) { return p->IsInWarning(&anyFlag); }},
    {"SetWarning", [](IqorProperty* p) { return p->SetWarning(VARIANT_FALSE); }},
    {"IsVisible", [](IqorProperty* p) { return p->IsVisible(&anyFlag); }},
    {"SetVisible", [](IqorProperty* p) { return p->SetVisible(VARIANT_TRUE); }},
    {"IsVisibleForPostProc", [](IqorProperty* p) { return p->IsVisibleForPostProc(&anyFlag); }},
    {"SetVisibleForPostProc", [](IqorProperty* p) { return p->SetVisibleForPostProc(VARIANT_TRUE); }},
    {"IsReadOnly", [](IqorProperty* p) { return p->IsReadOnly(&anyFlag); }},
    {"SetReadOnly", [](IqorProperty* p) { return p->SetReadOnly(VARIANT_FALSE); }},
    {"GetLinkedProperty", [](IqorProperty* p) { return p->GetLinkedProperty(&anyLong); }},
    {"SetLinkedProperty", [](IqorProperty* p) { return p->SetLinkedProperty(0); }},
    {"GetDisplayDetails", [](IqorProperty* p) { return p->GetDisplayDetails(&anyFlag, &anyFlag, &anyFlag); }},
    {"SetDisplayDetails", [](IqorProperty* p) { return p->SetDisplayDetails(VARIANT_TRUE, VARIANT_TRUE, VARIANT_FALSE); }},
    {"SetAlwaysSave", [](IqorProperty* p) { return p->SetAlwaysSave(VARIANT_TRUE); }},
    {"GetAlwaysSave", [](IqorProperty* p) { return p->GetAlwaysSave(&anyFlag); }},
    {"GetErrorString", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetErrorString(out); }); }},
    {"SetErrorString", [](IqorProperty* p) { return p->SetErrorString(nullptr); }},
    {"GetWarningString", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetWarningString(out); }); }},
    {"SetWarningString", [](IqorProperty* p) { return p->SetWarningString(nullptr); }},
    {"GetEditFlags", [](IqorProperty* p) { return p->GetEditFlags(&anyLong); }},
    {"SetEditFlags", [](IqorProperty* p) { return p->SetEditFlags(0); }},
    {"GetNoUnitConvert", [](IqorProperty* p) { return p->GetNoUnitConvert(&anyFlag); }},
    {"SetNoUnitConvert", [](IqorProperty* p) { return p->SetNoUnitConvert(VARIANT_FALSE); }},
    {"GetHResModule", [](IqorProperty* p) { return p->GetHResModule(&anyModule); }},
    {"SetHResModule", [](IqorProperty* p) { return p->SetHResModule(0); }},
    {"GetEnumByIndex", [](IqorProperty* p) { return WithText([p](BSTR* out) { LONG index = 0; return p->GetEnumByIndex(&index, &anyLong, out, VARIANT_TRUE); }); }},
    {"AddEnumItem", [](IqorProperty* p) { return p->AddEnumItem(0, &anyItem); }},
    {"GetEnumInfo", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetEnumInfo(&anyItem, out, &anyFlag); }); }},
    {"ShowEnumItem", [](IqorProperty* p) { return p->ShowEnumItem(0, VARIANT_TRUE); }},
    {"AddEnumItemString", [](IqorProperty* p) { return p->AddEnumItemString(0, nullptr); }},
    {"GetScanPathListCount", [](IqorProperty* p) { return p->GetScanPathListCount(&anyLong); }},
    {"SetScanPathPointAt", [](IqorProperty* p) { return p->SetScanPathPointAt(0, {}, VARIANT_FALSE, &anyFlag); }},
    {"GetScanPathString", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetScanPathString(out); }); }},
    {"InitialiseScanPathFromString", [](IqorProperty* p) { return p->InitialiseScanPathFromString(nullptr); }},
    {"RemoveAllPathPoints", [](IqorProperty* p) { return p->RemoveAllPathPoints(); }},
};

const Call kFree[] = {
    {"GetPropertyID", [](IqorProperty* p) { return p->GetPropertyID(&anyLong); }},
    {"SetPropertyName", [](IqorProperty* p) { return p->SetPropertyName(Bstr(OLESTR("a"))); }},
    {"GetPropertyLong", [](IqorProperty* p) { return p->GetPropertyLong(&anyError, &anyLong); }},
    {"SetPropertyLong", [](IqorProperty* p) { return p->SetPropertyLong(0, &anyError); }},
    {"GetPropertyDouble", [](IqorProperty* p) { return p->GetPropertyDouble(&anyError, &anyDouble); }},
    {"SetPropertyDouble", [](IqorProperty* p) { return p->SetPropertyDouble(0, &anyError); }},
    {"GetPropertyTolerance", [](IqorProperty* p) {
         SprpTolerance tolerance{};
         const HRESULT hr = p->GetPropertyTolerance(&tolerance);
         for (SprpGDTInfo* part : {&tolerance.GDTInfo_X, &tolerance.GDTInfo_Y, &tolerance.GDTInfo_Z})
             for (const BSTR name : {part->bstrDatumPlane1, part->bstrDatumPlane2, part->bstrDatumPlane3})
                 SysFreeString(name);
         return hr;
     }},
    {"SetPropertyTolerance", [](IqorProperty* p) { return p->SetPropertyTolerance(&anyTolerance); }},
    {"GetPropertyPosition", [](IqorProperty* p) { return p->GetPropertyPosition(&anyPosition); }},
    {"SetPropertyPosition", [](IqorProperty* p) { return p->SetPropertyPosition({}, VARIANT_FALSE); }},
    {"SetPropertyBounds", [](IqorProperty* p) { return p->SetPropertyBounds(&anyBounds); }},
    {"GetPropertyBounds", [](IqorProperty* p) { return p->GetPropertyBounds(&anyBounds); }},
    {"SetInvalidCharacters", [](IqorProperty* p) { return p->SetInvalidCharacters(Bstr(OLESTR(""))); }},
    {"GetInvalidCharacters", [](IqorProperty* p) { return WithText([p](BSTR* out) { return p->GetInvalidCharacters(out); }); }},
    {"GetVisibilityInfo", [](IqorProperty* p) { CComPtr<IprpVisibilityInfo> rule; return p->GetVisibilityInfo(&rule); }},
    {"ClearVisibilityInfo", [](IqorProperty* p) { return p->ClearVisibilityInfo(); }},
    {"IsMacroReportProperty", [](IqorProperty* p) { return p->IsMacroReportProperty(&anyFlag); }},
    {"GetScanPathPointAt", [](IqorProperty* p) { return p->GetScanPathPointAt(0, &anyPoint); }},
};

const NullCall kNullPointers[] = {
    {"GetNextChildProperty", "pnNextPropID", [](IqorProperty* p) { return p->GetNextChildProperty(1, nullptr, nullptr, nullptr); }},
    {"GetNextChildProperty", "pePropError", [](IqorProperty* p) { return p->GetNextChildProperty(1, &anyLong, nullptr, nullptr); }},
    {"GetNextChildProperty", "ppIProperty", [](IqorProperty* p) { return p->GetNextChildProperty(1, &anyLong, &anyError, nullptr); }},
    {"GetProperty", "pePropError", [](IqorProperty* p) { return p->GetProperty(-1, nullptr, nullptr); }},
    {"GetProperty", "ppIProperty", [](IqorProperty* p) { return p->GetProperty(-1, &anyError, nullptr); }},
    {"GetPropertyID", "pnPropertyID", [](IqorProperty* p) { return p->GetPropertyID(nullptr); }},
    {"GetCount", "pnCount", [](IqorProperty* p) { return p->GetCount(nullptr); }},
    {"GetParentProperty", "pnParentPropID", [](IqorProperty* p) { return p->GetParentProperty(nullptr); }},
    {"GetPropertyName", "pbstrPropName", [](IqorProperty* p) { return p->GetPropertyName(E_PRP_PROP_NAME_STYLE_NONE, nullptr); }},
    {"GetPropertyNameResID", "pnNameResID", [](IqorProperty* p) { return p->GetPropertyNameResID(nullptr); }},
    {"GetDataType", "peDataType", [](IqorProperty* p) { return p->GetDataType(nullptr); }},
    {"GetPropertyLong", "pePropError", [](IqorProperty* p) { return p->GetPropertyLong(nullptr, nullptr); }},
    {"GetPropertyLong", "pnLongData", [](IqorProperty* p) { return p->GetPropertyLong(&anyError, nullptr); }},
    {"SetPropertyLong", "pePropError", [](IqorProperty* p) { return p->SetPropertyLong(1, nullptr); }},
    {"GetPropertyDouble", "pePropError", [](IqorProperty* p) { return p->GetPropertyDouble(nullptr, nullptr); }},
    {"GetPropertyDouble", "pdbDoubleData", [](IqorProperty* p) { return p->GetPropertyDouble(&anyError, nullptr); }},
    {"SetPropertyDouble", "pePropError", [](IqorProperty* p) { return p->SetPropertyDouble(1, nullptr); }},
    {"GetPropertyString", "pbstrPropString", [](IqorProperty* p) { return p->GetPropertyString(nullptr); }},
    {"GetPropertyTolerance", "pTolerance", [](IqorProperty* p) { return p->GetPropertyTolerance(nullptr); }},
    {"SetPropertyTolerance", "pTolerance", [](IqorProperty* p) { return p->SetPropertyTolerance(nullptr); }},
    {"SetFont", "pIFont", [](IqorProperty* p) { return p->SetFont(nullptr); }},
    {"IsValid", "pbValid", [](IqorProperty* p) { return p->IsValid(nullptr); }},
    {"IsInWarning", "pbIsInWarning", [](IqorProperty* p) { return p->IsInWarning(nullptr); }},
    {"IsVisible", "pbVisible", [](IqorProperty* p) { return p->IsVisible(nullptr); }},
    {"IsVisibleForPostProc", "pbVisible", [](IqorProperty* p) { return p->IsVisibleForPostProc(nullptr); }},
    {"IsReadOnly", "pbReadOnly", [](IqorProperty* p) { return p->IsReadOnly(nullptr); }},
    {"GetLinkedProperty", "pnLinkedPropertyID", [](IqorProperty* p) { return p->GetLinkedProperty(nullptr); }},
    {"GetDisplayDetails", "pbValid", [](IqorProperty* p) { return p->GetDisplayDetails(nullptr, nullptr, nullptr); }},
    {"GetDisplayDetails", "pbVisible", [](IqorProperty* p) { return p->GetDisplayDetails(&anyFlag, nullptr, nullptr); }},
    {"GetDisplayDetails", "pbReadOnly", [](IqorProperty* p) { return p->GetDisplayDetails(&anyFlag, &anyFlag, nullptr); }},
    {"GetAlwaysSave", "pbAlwaysSave", [](IqorProperty* p) { return p->GetAlwaysSave(nullptr); }},
    {"GetErrorString", "pbstrErrorString", [](IqorProperty* p) { return p->GetErrorString(nullptr); }},
    {"GetWarningString", "pbstrWarningString", [](IqorProperty* p) { return p->GetWarningString(nullptr); }},
    {"GetEditFlags", "pnEditFlags", [](IqorProperty* p) { return p->GetEditFlags(nullptr); }},
    {"GetNoUnitConvert", "pbNoUnitConvert", [](IqorProperty* p) { return p->GetNoUnitConvert(nullptr); }},
    {"GetHResModule", "phModule", [](IqorProperty* p) { return p->GetHResModule(nullptr); }},
    {"AddEnumItem", "pEnumItem", [](IqorProperty* p) { return p->AddEnumItem(-1, nullptr); }},
    {"GetEnumInfo", "pEnumItem", [](IqorProperty* p) { return p->GetEnumInfo(nullptr, nullptr, nullptr); }},
    {"GetEnumInfo", "pvbSuccess", [](IqorProperty* p) { return p->GetEnumInfo(&anyItem, nullptr, nullptr); }},
    {"GetEnumInfo", "pbstrValueAsString", [](IqorProperty* p) { return p->GetEnumInfo(&anyItem, nullptr, &anyFlag); }},
    {"SetPropertyBounds", "psBoundsInfo", [](IqorProperty* p) { return p->SetPropertyBounds(nullptr); }},
    {"GetPropertyBounds", "psBoundsInfo", [](IqorProperty* p) { return p->GetPropertyBounds(nullptr); }},
    {"SetInvalidCharacters", "bstrInvalidCharacters", [](IqorProperty* p) { return p->SetInvalidCharacters(nullptr); }},
    {"GetInvalidCharacters", "bstrInvalidCharacters", [](IqorProperty* p) { return p->GetInvalidCharacters(nullptr); }},
    {"SetVisibilityInfo", "pIVisibilityInfo", [](IqorProperty* p) { return p->SetVisibilityInfo(nullptr); }},
    {"GetVisibilityInfo", "ppIVisibilityInfo", [](IqorProperty* p) { return p->GetVisibilityInfo(nullptr); }},
    {"SetPostProcVisibilityInfo", "pIVisibilityInfo", [](IqorProperty* p) { return p->SetPostProcVisibilityInfo(nullptr); }},
    {"IsMacroReportProperty", "pvbMacroReportProperty", [](IqorProperty* p) { return p->IsMacroReportProperty(nullptr); }},
    {"GetScanPathListCount", "pnCount", [](IqorProperty* p) { return p->GetScanPathListCount(nullptr); }},
    {"GetScanPathPointAt", "PropertyString", [](IqorProperty* p) { return p->GetScanPathPointAt(0, nullptr); }},
    {"GetScanPathString", "PropertyString", [](IqorProperty* p) { return p->GetScanPathString(nullptr); }},
};
// clang-format on

Text Wide(std::string_view ascii)
{
    return Text(ascii.begin(), ascii.end());
}

using PropertyChecks = ModelTest;

} // namespace

TEST_F(PropertyChecks, RefuseEveryGuardedMethodOutsideATransactionAndNoneInside)
{
    const auto property = Add(1, E_PROP_DT_LONG);
    for (const Call& call : kGuarded) {
        SCOPED_TRACE(call.method);
        ExpectNoTransaction(call.run(property));
    }
    InTransaction([&] {
        for (const Call& call : kGuarded) {
            SCOPED_TRACE(call.method);
            EXPECT_EQ(call.run(property), std::string_view(call.method) == "SetFont" ? E_NOTIMPL : S_OK);
        }
    });
}

TEST_F(PropertyChecks, RefuseEveryGuardedMethodOfAPropertyWithoutACollection)
{
    const auto bare = MakeObject<IqorProperty>(CLSID_prpProperty);
    const auto outliving = Add(1, E_PROP_DT_LONG);
    sink.Disconnect();
    collection.Release();
    for (const auto& property : {bare, outliving})
        for (const Call& call : kGuarded) {
            SCOPED_TRACE(call.method);
            ExpectNoTransaction(call.run(property));
        }
}

TEST_F(PropertyChecks, LetTheOtherMethodsRunOutsideATransaction)
{
    const auto property = Add(1, E_PROP_DT_LONG);
    for (const Call& call : kFree) {
        SCOPED_TRACE(call.method);
        EXPECT_EQ(call.run(property), S_OK);
    }
}

TEST_F(PropertyChecks, NameEveryNullPointerAheadOfTheTransaction)
{
    const auto property = Add(1, E_PROP_DT_LONG);
    for (const NullCall& call : kNullPointers) {
        SCOPED_TRACE(call.method);
        ExpectNullPointer(call.run(property), OLESTR("CprpProperty::") + Wide(call.method), Wide(call.parameter));
    }
}

TEST_F(PropertyChecks, ClearTheErrorOutBeforeItsOwnTest)
{
    const auto property = Add(1, E_PROP_DT_LONG);
    EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
    EXPECT_TRUE(FAILED(property->GetProperty(1, &error, nullptr)));
    EXPECT_EQ(error, E_PROP_ERROR_NONE);
}

TEST_F(PropertyChecks, LeaveTheOutsOfAWalkOverChildrenAloneUntilTheTransactionIsSeen)
{
    const auto property = Add(1, E_PROP_DT_LONG);
    LONG next = 77;
    EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
    IqorProperty* child = property;
    ExpectNoTransaction(property->GetNextChildProperty(-1, &next, &error, &child));
    EXPECT_EQ(next, 77);
    EXPECT_EQ(error, E_PROP_ERROR_NO_ACTUALS);
    EXPECT_EQ(child, property.p);
}
