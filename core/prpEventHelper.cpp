#include "core/prpEventHelper.h"

#include "core/prpPropertyCollection.h"

#include <algorithm>

CprpEventHelperList g_EventHelperList;

namespace {

constexpr const OLECHAR* kWindowTitle = OLESTR("Tolvarin Property Collection - Event Helper Window");

} // namespace

CprpEventHelper::CprpEventHelper()
{
    m_Mutex.Lock();
    m_pWindow = EventWindow::Create(*this, kWindowTitle, WM_PRP_FIRE_EVENTS);
    m_Mutex.Unlock();
}

CprpEventHelper::~CprpEventHelper()
{
    m_Mutex.Lock();
    if (m_pWindow && m_pWindow->Exists())
        m_pWindow->Destroy();
    m_Mutex.Unlock();
}

void CprpEventHelper::Post(CprpPropertyCollection& collection, IqorStream& stream)
{
    if (!m_pWindow)
        return;
    auto* const first = static_cast<IqorPropertyCollection*>(&collection);
    first->AddRef();
    stream.AddRef();
    // On purpose not released when the window is gone: the last release of a collection may not run on this thread.
    (void)m_pWindow->Post(first, &stream);
}

void CprpEventHelper::OnPosted(IUnknown* collection, IUnknown* stream) noexcept
{
    m_Mutex.Lock();
    auto* const source = static_cast<CprpPropertyCollection*>(static_cast<IqorPropertyCollection*>(collection));
    auto* const events = static_cast<IqorStream*>(stream);
    source->Fire_PropertyEventStream(events);
    collection->Release();
    stream->Release();
    m_Mutex.Unlock();
}

bool CprpEventHelper::LivesOnAnotherThread() const noexcept
{
    return m_dwCreatorThread != GetCurrentThreadId() && m_pWindow && m_pWindow->Exists();
}

CprpEventHelper* CprpEventHelperList::Find(const GUID& guid)
{
    const auto found =
        std::find_if(m_list.begin(), m_list.end(), [&](const SprpEventHelperInfo& info) { return info.guid == guid; });
    return found == m_list.end() ? nullptr : found->pHelper.get();
}

void CprpEventHelperList::Register(const GUID& guid)
{
    const std::lock_guard guard(m_gate);
    if (!Find(guid))
        m_list.push_back({guid, std::make_unique<CprpEventHelper>()});
}

void CprpEventHelperList::Post(const GUID& guid, CprpPropertyCollection& collection, IqorStream& stream)
{
    CprpEventHelper* helper = nullptr;
    {
        const std::lock_guard guard(m_gate);
        helper = Find(guid);
    }
    if (helper) // never taken off the list while the module is loaded
        helper->Post(collection, stream);
}

bool CprpEventHelperList::HasHelperOnAnotherThread()
{
    const std::lock_guard guard(m_gate);
    return std::any_of(m_list.begin(), m_list.end(),
                       [](const SprpEventHelperInfo& info) { return info.pHelper->LivesOnAnotherThread(); });
}
