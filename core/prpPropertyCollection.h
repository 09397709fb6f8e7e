// The spine of the model: owns a tree of properties addressed by id, guards it by transactions, queues and publishes
// its changes, saves it as one line of text and loads it back. The bodies are told by subject in the
// prpPropertyCollection*.cpp files.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/EventQueue.h"
#include "core/IdIndex.h"
#include "core/RuleList.h"
#include "core/SiblingList.h"
#include "core/TransactionLock.h"
#include "core/prpCollectionEvents.h"
#include "core/prpProperty.h"
#include "frame/MethodFrame.h"
#include "frame/TextBuffer.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"

#include <atomic>
#include <vector>

struct SavedRecord;

class CprpPropertyCollection : public CComObjectRootEx<CComMultiThreadModel>,
                               public CComCoClass<&CLSID_prpPropertyCollection>,
                               public ISupportErrorInfoImpl<IqorPropertyCollection>,
                               public IqorPropertyCollection,
                               public IConnectionPointContainer {
public:
    using Interfaces = InterfaceList<IqorPropertyCollection, ISupportErrorInfo, IConnectionPointContainer>;

    CprpPropertyCollection();
    HRESULT FinalConstruct();
    void FinalRelease();

    // IqorPropertyCollection
    STDMETHODIMP SetUniqueNumber(GUID Guuid) override;
    STDMETHODIMP StartTransaction(LONG Timeout) override;
    STDMETHODIMP EndTransaction(VARIANT_BOOL FireEvents) override;
    STDMETHODIMP AddProperty(LONG PropID, LONG ParentPropID, LONG NameResID, LONG LinkedID, LONG_PTR hModule,
                             LONG EditFlags, EprpPropDataType DataType, VARIANT_BOOL Visible, VARIANT_BOOL ReadOnly,
                             VARIANT_BOOL AlwaysSave, EprpPropError* PropError) override;
    STDMETHODIMP GetPictureResource(LONG PropID, LONG* ResID, LONG_PTR* ResInstance, VARIANT_BOOL* Success) override;
    STDMETHODIMP GetHelpStringResource(LONG PropID, LONG* ResID, BSTR* ResString, VARIANT_BOOL* Success) override;
    STDMETHODIMP RemoveProperty(LONG PropID, EprpPropError* PropError) override;
    STDMETHODIMP GetNextProperty(LONG PropID, LONG* NextPropID, EprpPropError* PropError,
                                 IqorProperty** NextProperty) override;
    STDMETHODIMP GetNextPropertyAll(LONG* NextPropID, EprpPropError* PropError, IqorProperty** RetVal) override;
    STDMETHODIMP GetProperty(LONG PropID, EprpPropError* PropError, IqorProperty** Property) override;
    STDMETHODIMP GetCount(EprpIterationType IterationType, LONG* Count) override;
    STDMETHODIMP SaveToStream(IqorStream* SaveStream, VARIANT_BOOL* Success) override;
    STDMETHODIMP LoadFromStream(IqorStream* LoadStream, IqorStream* ErrorStream, VARIANT_BOOL* Success) override;
    STDMETHODIMP SetDefaultResourceInstance(LONG_PTR hModule) override;
    STDMETHODIMP GetCollectionID(LONG* PropCollectionID) override;
    STDMETHODIMP SetCollectionID(LONG PropCollectionID) override;
    STDMETHODIMP SetState(LONG NewState) override;
    STDMETHODIMP AttachHelpInfo(IprpHelpInfo* HelpInfo) override;
    STDMETHODIMP Clone(LONG NewCollectionID, IqorPropertyCollection** Clone) override;
    STDMETHODIMP GetPropertyFromName(BSTR PropName, EprpPropError* PropError, IqorProperty** Property) override;
    STDMETHODIMP GetHelpInfo(IprpHelpInfo** HelpInfo) override;
    STDMETHODIMP get_Precision(LONG* Precision) override;
    STDMETHODIMP put_Precision(LONG Precision) override;
    STDMETHODIMP PropertyExists(LONG PropertyID, VARIANT_BOOL* Success) override;
    STDMETHODIMP ConvertUnit(EprpUnitMode UnitMode) override;
    STDMETHODIMP SetMaxInputValue(double MaxValue) override;
    STDMETHODIMP GetMaxInputValue(double* MaxValue) override;
    STDMETHODIMP SetUnitMode(EprpUnitMode UnitMode) override;
    STDMETHODIMP GetUnitMode(EprpUnitMode* UnitMode) override;
    STDMETHODIMP put_LoadVersion(LONG LoadVersion) override;
    STDMETHODIMP get_StartMarker(BSTR* StartMarker) override;
    STDMETHODIMP GetUnusedSaveDataCategoryID(LONG* UnusedCategoryID) override;
    STDMETHODIMP GetMismatchedSaveDataCategoryID(LONG* MismatchedCategoryID) override;
    STDMETHODIMP put_SaveReadOnlyStates(VARIANT_BOOL SaveReadOnlyStates) override;
    STDMETHODIMP get_SaveReadOnlyStates(VARIANT_BOOL* SaveReadOnlyStates) override;
    STDMETHODIMP put_SaveEditFlags(VARIANT_BOOL SaveEditFlags) override;
    STDMETHODIMP get_SaveEditFlags(VARIANT_BOOL* SaveEditFlags) override;

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    // What properties and the event helper use; no interface slots and no method frame.

    bool InTransaction() const noexcept { return m_bInTransaction.load(std::memory_order_relaxed); }
    LONG PrecisionValue() const noexcept { return m_nPrecision; }
    EprpUnitMode UnitMode() const noexcept { return static_cast<EprpUnitMode>(m_eUnitMode); }
    LONG_PTR DefaultResModule() const noexcept { return m_hDefaultResInstance; }

    CprpProperty* Find(LONG id) const noexcept { return m_mapProperties.Find(id); }
    /// Makes a property under a parent without a check of the thread or the transaction, and queues its event.
    CprpProperty& AddInternal(LONG id, LONG parentId);
    /// Called by a property's last release.
    void Forget(CprpProperty& property) noexcept
    {
        m_Rules.Remove(property);
        m_mapProperties.Erase(property);
    }
    /// Called by a property that is given a rule: the end of a transaction evaluates it from now on.
    void NoteRule(CprpProperty& property) { m_Rules.Add(property); }
    const SiblingList<CprpProperty>& TopLevel() const noexcept { return m_listTopLevel; }
    /// Successor in a depth-first walk over the whole tree; null at the end.
    static CprpProperty* NextInWalk(CprpProperty& property);
    /// The same by the lists alone, whatever parents are reported; never fails. The property is on a list.
    CprpProperty* NextOnLists(const CprpProperty& property) const;
    /// The same without a descent into the children.
    CprpProperty* NextBesideOnLists(const CprpProperty& property) const;

    void QueueEvent(LONG id, EprpEventType type, bool visibilityChanged);
    void QueueAddEvent(LONG id, LONG parentId);
    void QueueDataEvent(LONG id, EprpEventType type, const ValueText& text, bool visibilityChanged);
    HRESULT Fire_PropertyEventStream(IqorStream* stream) { return m_Events.Fire_PropertyEventStream(stream); }

    /// Raised by each reference taken on a property of the collection; for a debugger only.
    void CountReference(LONG change) noexcept
    {
        const LONG count = m_nOutstandingRefs.load(std::memory_order_relaxed) + change;
        m_nOutstandingRefs.store(count < 0 ? 0 : count, std::memory_order_relaxed);
    }

private:
    static const Origin kOrigin;

    void RequireMainThread(CallSite at = CallSite::current()) const;

    void ApplyVisibilityRules();
    CComPtr<IqorStream> TakeQueue();
    void Publish(const CComPtr<IqorStream>& stream);
    void CloseTransaction();
    void StampEvent(LONG id, EprpEventType type) noexcept;
    SprpEventInfo EventRecord(LONG id, EprpEventType type, bool visibilityChanged) const;
    void QueueLoadEvent();

    void AppendRecord(TextBuffer& out, CprpProperty& property);
    bool LoadRecords(TextView text, IqorStream* errors);
    /// @param id  out, for the message: the id that a record of version 0 names.
    EprpParseError LoadRecord(TextView record, LONG& id);
    EprpParseError LoadRecordVersion1(TextView record);
    EprpParseError LoadRecordVersion0(TextView record, LONG& id);
    EprpParseError ApplySavedValue(CprpProperty& property, const SavedRecord& saved);
    void StoreSavedValue(CprpProperty& property, TextView value);
    void ApplySavedFlags(CprpProperty& property, const SavedRecord& saved);

    void KeepRecords(TextView text, LONG categoryId, LONG nameResID);
    void EnsureCategory(LONG categoryId, LONG nameResID);
    void KeepRecord(TextView record, LONG categoryId);
    /// Puts a property of the saved type in the place of what has its id. @return the help text about it.
    Text ReplaceByKept(const SavedRecord& saved, LONG categoryId);
    void RemoveLinkedTo(LONG id);

    /// The pool keeps the module loaded while any of them lives, so that not every one has to.
    using PooledProperty = CComObjectNoLock<CprpProperty>;

    TransactionLock m_Mutex;
    std::atomic<DWORD> m_dwTransactionThread{0}; ///< for the text of a failed start only
    std::atomic<bool> m_bInTransaction{false};   ///< says that some thread runs a transaction, not which one
    bool m_bFireEvents = true;
    bool m_bSaveReadOnlyStates = true;
    bool m_bSaveEditFlags = true;

    NodePool m_Pool{sizeof(PooledProperty)};
    IdIndex<CprpProperty> m_mapProperties;    ///< every living property, at any depth
    SiblingList<CprpProperty> m_listTopLevel; ///< one reference each
    RuleList m_Rules;
    EventQueue m_Queue;
    CProxy_IqorPropertyCollectionEvents m_Events{*this};
    CComPtr<IprpHelpInfo> m_pIHelpInfo;

    std::size_t m_nSavedUnits = 0; ///< of the last save; the next one will be about as long
    GUID m_guidUnique{};
    LONG_PTR m_hDefaultResInstance = 0;
    double m_dbMaxInputValue;
    LONG m_nCollectionID = 0;
    LONG m_nState = 0;
    LONG m_nPrecision = 4;
    LONG m_eUnitMode = E_METRIC;
    LONG m_nLoadVersion = -1; ///< a host sets it before its first load
    LONG m_nUnusedCategoryID = E_PROP_ID_INVALID;
    LONG m_nMismatchedCategoryID = E_PROP_ID_INVALID;
    LONG m_nLastEventPropID = E_PROP_ID_INVALID;
    EprpEventType m_eLastEventType = E_PROP_EVENT_NONE;
    std::atomic<LONG> m_nOutstandingRefs{0};
};

/// Thread of the first collection of the process; set once and never reset.
extern std::atomic<DWORD> g_dwMainThreadId;
