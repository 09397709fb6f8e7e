// One node of a collection's tree: the value of whichever type it has, its flags, names, children, enumeration
// items, rules and scan path. It keeps no state of transactions or listeners of its own: each check and each event
// goes through the owning collection. The bodies are told by subject in the prpProperty*.cpp files.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/IdIndex.h"
#include "core/NodePool.h"
#include "core/PropertyExtras.h"
#include "core/SiblingList.h"
#include "core/ValueText.h"
#include "frame/MethodFrame.h"
#include "platform/atl/ComObject.h"

#include <cassert>
#include <new>

class CprpPropertyCollection;

class CprpProperty : public CComObjectRootEx<CComSingleThreadModel>,
                     public CComCoClass<&CLSID_prpProperty>,
                     public ISupportErrorInfoImpl<IqorProperty>,
                     public IqorProperty,
                     public SiblingLinks<CprpProperty>,
                     public IdIndexEntry {
public:
    using Interfaces = InterfaceList<IqorProperty, ISupportErrorInfo>;

    CprpProperty() = default;

    // Properties of a collection live in its pool; one that is made bare lives alone.
    static void* operator new([[maybe_unused]] std::size_t bytes, NodePool& pool)
    {
        assert(bytes <= pool.NodeBytes());
        return pool.Allocate();
    }
    static void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept
    {
        return NodePool::AllocateAlone(bytes);
    }
    static void operator delete(void* memory) noexcept { NodePool::Free(memory); }
    static void operator delete(void* memory, NodePool&) noexcept { NodePool::Free(memory); }
    static void operator delete(void* memory, const std::nothrow_t&) noexcept { NodePool::Free(memory); }

    /// Counts on the owning collection as well; the figure is there for a debugger.
    ULONG InternalAddRef();
    ULONG InternalRelease();
    /// Releases the children, leaves the id map and forgets everything.
    void FinalRelease();

    // IqorProperty
    STDMETHODIMP GetNextChildProperty(LONG PropID, LONG* NextPropID, EprpPropError* PropError,
                                      IqorProperty** NextChildProperty) override;
    STDMETHODIMP GetProperty(LONG PropID, EprpPropError* PropError, IqorProperty** Property) override;
    STDMETHODIMP GetPropertyID(LONG* PropertyID) override;
    STDMETHODIMP GetCount(LONG* Count) override;
    STDMETHODIMP GetParentProperty(LONG* ParentPropID) override;
    STDMETHODIMP SetParentProperty(LONG ParentPropID) override;
    STDMETHODIMP GetPropertyName(EprpPropertyNameStyle PropertyNameStyle, BSTR* PropertyName) override;
    STDMETHODIMP SetPropertyName(BSTR PropNameString) override;
    STDMETHODIMP GetPropertyNameResID(LONG* NameResID) override;
    STDMETHODIMP SetPropertyNameResID(LONG NameResID) override;
    STDMETHODIMP GetDataType(EprpPropDataType* DataType) override;
    STDMETHODIMP SetDataType(EprpPropDataType DataType) override;
    STDMETHODIMP GetPropertyLong(EprpPropError* PropError, LONG* LongData) override;
    STDMETHODIMP SetPropertyLong(LONG LongData, EprpPropError* PropError) override;
    STDMETHODIMP GetPropertyDouble(EprpPropError* PropError, double* DoubleData) override;
    STDMETHODIMP SetPropertyDouble(double DoubleData, EprpPropError* PropError) override;
    STDMETHODIMP GetPropertyString(BSTR* PropertyString) override;
    STDMETHODIMP SetPropertyString(BSTR NewPropertyString) override;
    STDMETHODIMP GetPropertyTolerance(SprpTolerance* Tolerance) override;
    STDMETHODIMP SetPropertyTolerance(SprpTolerance* Tolerance) override;
    STDMETHODIMP SetFont(IFontDisp* Font) override;
    STDMETHODIMP IsValid(VARIANT_BOOL* Valid) override;
    STDMETHODIMP SetValid(VARIANT_BOOL Valid) override;
    STDMETHODIMP IsInWarning(VARIANT_BOOL* InWarning) override;
    STDMETHODIMP SetWarning(VARIANT_BOOL InWarning) override;
    STDMETHODIMP IsVisible(VARIANT_BOOL* Visible) override;
    STDMETHODIMP SetVisible(VARIANT_BOOL Visible) override;
    STDMETHODIMP IsVisibleForPostProc(VARIANT_BOOL* Visible) override;
    STDMETHODIMP SetVisibleForPostProc(VARIANT_BOOL Visible) override;
    STDMETHODIMP IsReadOnly(VARIANT_BOOL* ReadOnly) override;
    STDMETHODIMP SetReadOnly(VARIANT_BOOL ReadOnly) override;
    STDMETHODIMP GetLinkedProperty(LONG* LinkedPropertyID) override;
    STDMETHODIMP SetLinkedProperty(LONG LinkedPropertyID) override;
    STDMETHODIMP GetDisplayDetails(VARIANT_BOOL* Valid, VARIANT_BOOL* Visible, VARIANT_BOOL* ReadOnly) override;
    STDMETHODIMP SetDisplayDetails(VARIANT_BOOL Valid, VARIANT_BOOL Visible, VARIANT_BOOL ReadOnly) override;
    STDMETHODIMP SetAlwaysSave(VARIANT_BOOL AlwaysSave) override;
    STDMETHODIMP GetAlwaysSave(VARIANT_BOOL* AlwaysSave) override;
    STDMETHODIMP GetErrorString(BSTR* ErrorString) override;
    STDMETHODIMP SetErrorString(BSTR ErrorString) override;
    STDMETHODIMP GetWarningString(BSTR* WarningString) override;
    STDMETHODIMP SetWarningString(BSTR WarningString) override;
    STDMETHODIMP GetEditFlags(LONG* EditFlags) override;
    STDMETHODIMP SetEditFlags(LONG EditFlags) override;
    STDMETHODIMP GetNoUnitConvert(VARIANT_BOOL* NoUnitConvert) override;
    STDMETHODIMP SetNoUnitConvert(VARIANT_BOOL NoUnitConvert) override;
    STDMETHODIMP GetHResModule(LONG_PTR* hModule) override;
    STDMETHODIMP SetHResModule(LONG_PTR hModule) override;
    STDMETHODIMP GetEnumByIndex(LONG* Index, LONG* Value, BSTR* EnumItemString,
                                VARIANT_BOOL IterateInvisibleProperties) override;
    STDMETHODIMP AddEnumItem(LONG Index, SprpEnumItem* EnumItem) override;
    STDMETHODIMP GetEnumInfo(SprpEnumItem* EnumItem, BSTR* ValueAsString, VARIANT_BOOL* Success) override;
    STDMETHODIMP ShowEnumItem(LONG Index, VARIANT_BOOL Show) override;
    STDMETHODIMP AddEnumItemString(LONG Index, BSTR EnumString) override;
    STDMETHODIMP SetPropertyBounds(SprpBoundsInfo* BoundsInfo) override;
    STDMETHODIMP GetPropertyBounds(SprpBoundsInfo* BoundsInfo) override;
    STDMETHODIMP GetPropertyPosition(SprpPosition* Position) override;
    STDMETHODIMP SetPropertyPosition(SprpPosition Position, VARIANT_BOOL bForce) override;
    STDMETHODIMP SetInvalidCharacters(BSTR InvalidCharacters) override;
    STDMETHODIMP GetInvalidCharacters(BSTR* InvalidCharacters) override;
    STDMETHODIMP SetVisibilityInfo(IprpVisibilityInfo* VisibilityInfo) override;
    STDMETHODIMP GetVisibilityInfo(IprpVisibilityInfo** VisibilityInfo) override;
    STDMETHODIMP SetPostProcVisibilityInfo(IprpVisibilityInfo* VisibilityInfo) override;
    STDMETHODIMP ClearVisibilityInfo() override;
    STDMETHODIMP IsMacroReportProperty(VARIANT_BOOL* MacroReportProperty) override;
    STDMETHODIMP GetScanPathListCount(LONG* Count) override;
    STDMETHODIMP SetScanPathPointAt(LONG Index, SprgScanPathPoint NewScanPathPoint, VARIANT_BOOL vbSupressEditEvents,
                                    VARIANT_BOOL* pvbDataChanged) override;
    STDMETHODIMP GetScanPathPointAt(LONG Index, SprgScanPathPoint* Position) override;
    STDMETHODIMP GetScanPathString(BSTR* PropertyString) override;
    STDMETHODIMP InitialiseScanPathFromString(BSTR PropertyString) override;
    STDMETHODIMP RemoveAllPathPoints() override;

    // What the collection and the rules use; no interface slots.

    /// Id of the parent as it is reported: E_PROP_ID_TOP_LEVEL, a living parent's, or that of a parent that is gone.
    LONG ParentId() const noexcept { return m_nParentID; }
    EprpPropDataType DataType() const noexcept
    {
        return static_cast<EprpPropDataType>(m_eDataType == kUnknownType ? Extras().dataType : m_eDataType);
    }
    bool Visible() const noexcept { return m_bVisible; }
    bool ReadOnly() const noexcept { return m_bReadOnly; }
    bool AlwaysSave() const noexcept { return m_bAlwaysSave; }
    LONG EditFlags() const noexcept { return m_nEditFlags; }
    LONG LinkedId() const noexcept { return Extras().linkedPropID; }
    LONG_PTR ResModule() const noexcept { return Extras().hResModule; }
    LONG LongValue() const noexcept { return m_nLong; }
    IprpVisibilityInfo* VisibilityInfo() const noexcept { return Extras().visibilityInfo; }
    IprpVisibilityInfo* PostProcVisibilityInfo() const noexcept { return Extras().postProcVisibilityInfo; }

    const SiblingList<CprpProperty>& Children() const noexcept { return Extras().children; }
    SiblingList<CprpProperty>& ChildrenToChange() { return MakeExtras().children; }
    /// Whether the property is on the list of that parent, whatever parent it reports.
    bool IsOnListOf(LONG parentId) const noexcept { return IsOnAList() && parentId == ListOwnerId(); }
    /// The parent on whose list the property is, or was last, whatever parent it reports.
    LONG ListOwnerId() const noexcept { return m_bRedirected ? Extras().listOwnerID : m_nParentID; }
    /// The property behind this one in a depth-first walk that does not descend: a sibling, else the parent's.
    /// Raises an internal error when the property is not on the list it should be on.
    CprpProperty* GetNextSiblingOrUp() const;

    /// Gives a new object its id and its reported parent. Lists, index and references are the caller's.
    void Name(LONG id, LONG parentId) noexcept;
    /// From now on the collection answers for it.
    void Enter(CprpPropertyCollection& collection) noexcept { m_pCollection = &collection; }
    // The last steps of adding a property, in this order and without events.
    void Initialise(bool alwaysSave, LONG editFlags, LONG dataType, LONG_PTR hModule, LONG linkedId);
    /// Loads and parses a name resource; 0 leaves the name alone, -1 stands for a name that will be given as text.
    void InitialiseName(LONG nameResID);
    void InitialiseDisplay(bool visible, bool readOnly) noexcept;

    /// Evaluates the rules, at the end of a transaction that queued anything. A rule that fails counts as not visible.
    void ApplyRules();

    /// The collection is going: from now on every need of it is an error.
    void Detach() noexcept { m_pCollection = nullptr; }

    /// Copies what a clone takes over, children excepted. The property belongs to the target collection.
    void CopyFrom(const CprpProperty& source, CprpPropertyCollection& target);
    /// Multiplies the lengths of this property by the factor of the target mode.
    /// @return whether the children are to be converted as well.
    bool ConvertPropertyUnit(EprpUnitMode mode);
    /// The value text at the collection's precision, remembered as the last rendering; rendered only when read.
    const ValueText& RenderValue();
    const ValueText& RenderValue(LONG precision);
    /// Appends the scan path text. The caller has tested the transaction.
    void AppendScanPath(Text& out) const;

    // Bodies of setters without a frame, for callers that stand inside a frame of their own.
    void StoreString(TextView text);
    void StoreLong(LONG value);
    void StoreVisible(bool visible);
    void StoreReadOnly(bool readOnly);
    void StoreEditFlags(LONG flags);
    void StoreScanPathText(TextView text);
    /// Name for a comparison; loads and parses a name that waits in a resource.
    const Text& FullName();

private:
    static const Origin kOrigin;
    /// Stands for a type outside the enumeration, which has no rule; the extras tell which.
    static constexpr uint8_t kUnknownType = 0xFF;

    const PropertyExtras& Extras() const noexcept { return *m_pExtras; }
    PropertyExtras& MakeExtras() { return m_pExtras.Make(); }
    /// Releases what a list owns, each property behind its children. A tree may be of any depth: a property that goes
    /// with this release leaves its children to the list first, so that no release stands inside another.
    static void ReleaseAll(SiblingList<CprpProperty>& list);
    void ReportParent(LONG parentId);
    void PutDataType(LONG type);
    bool InTransaction() const noexcept;
    /// The owning collection; raises an internal error when it is gone.
    CprpPropertyCollection& Owner(CallSite at = CallSite::current()) const;
    struct UnitRule {
        double threshold; ///< two numbers closer than this are the same
        bool imperial;
    };
    /// Threshold of the collection's unit mode; an internal error for a mode that is neither metric nor imperial.
    UnitRule UnitRuleOfMode(CallSite at = CallSite::current()) const;

    void QueueStateEdit(bool visibilityChanged = false);
    void QueueValueEdit(const ValueText& oldText);
    /// The present value text for an event, until the next rendering; raises when no transaction runs.
    const ValueText& RenderForEdit(CallSite at = CallSite::current());

    void SetErrorText(TextView text);
    /// StoreString for a text of numbers that is just what rendering them gives, as every saved one is: it is kept as
    /// numbers. False, with nothing done, for any other text.
    bool StoreRendering(TextView text);
    template <class Store>
    void StoreRead(ValueText value, Store&& store);
    /// Reads a text into the field of the data type. False when it holds no value of that type.
    bool ParseValue(TextView text);
    bool ParsePosition(TextView text);
    void ScaleValue(double factor);
    void ScaleBounds(double factor);
    void CopyExtras(const PropertyExtras& source);
    void CopyEnums(const PropertyEnums& source);

    // Names
    bool LoadResourceString(Text& target, LONG id) const;
    bool LoadParsedResourceString(Text& text, LONG id) const;
    void ParseName();
    void EnsureName();
    Text EnumItemText(const SprpEnumItem& item) const;

    /// Changes the scan path like the interface does, without an event. @return whether anything changed.
    bool PutScanPathPoint(LONG index, const SprpPosition& point);

    LONG m_nParentID = E_PROP_ID_TOP_LEVEL;
    LONG m_nEditFlags = 0;
    LONG m_nLong = 0;

    uint8_t m_eDataType = E_PROP_DT_NONE; ///< or kUnknownType
    bool m_bVisible : 1 = true;
    bool m_bVisibleForPostProc : 1 = true;
    bool m_bReadOnly : 1 = false;
    bool m_bValid : 1 = true;
    bool m_bWarning : 1 = false;
    bool m_bAlwaysSave : 1 = true;
    bool m_bNoUnitConvert : 1 = false;
    bool m_bRedirected : 1 = false; ///< reports another parent than the one on whose list it is

    double m_dbDouble = 0;
    ValueText m_Value; ///< the value of text types; the last rendering of the others
    Lazy<PropertyExtras> m_pExtras;
    CprpPropertyCollection* m_pCollection = nullptr; ///< not counted; null when detached
};
