#include "Detection/DiscoveryControl.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/Mutex.h"

#include <vector>

namespace Detection {
namespace {

// Hands every report to the listeners registered at that moment. The list
// is copied out of the lock so that a listener may register or remove
// listeners while it is being called.
class Fanout : public DiscoveryEvent {
public:
    void Add(Toolkit::smart_ptr<DiscoveryEvent> l)
    {
        Toolkit::MutexLocker lock(m_lock);
        m_listeners.push_back(std::move(l));
    }
    void Remove(const Toolkit::smart_ptr<DiscoveryEvent>& l)
    {
        Toolkit::MutexLocker lock(m_lock);
        for (auto it = m_listeners.begin(); it != m_listeners.end(); ++it)
            if (*it == l) {
                m_listeners.erase(it);
                return;
            }
    }
    void OnDeviceArrived(unsigned long long id) override
    {
        for (auto& l : copy())
            l->OnDeviceArrived(id);
    }
    void OnDeviceRemoved(unsigned long long id) override
    {
        for (auto& l : copy())
            l->OnDeviceRemoved(id);
    }
    void OnGhostArrived(unsigned long long id, const TString<wchar_t>& name) override
    {
        for (auto& l : copy())
            l->OnGhostArrived(id, name);
    }
    void OnGhostRemoved(unsigned long long id) override
    {
        for (auto& l : copy())
            l->OnGhostRemoved(id);
    }

private:
    std::vector<Toolkit::smart_ptr<DiscoveryEvent>> copy()
    {
        Toolkit::MutexLocker lock(m_lock);
        return m_listeners;
    }

    Toolkit::Mutex m_lock;
    std::vector<Toolkit::smart_ptr<DiscoveryEvent>> m_listeners;
};

struct State {
    Toolkit::Mutex lock; // guards source and started; held across Start/Stop
    Toolkit::smart_ptr<DiscoverySource> source;
    bool started = false;
    Toolkit::smart_ptr<Fanout> fanout = Toolkit::make_smart<Fanout>();
};

State& state()
{
    static State s;
    return s;
}

} // namespace

bool DiscoveryControl::SetSource(Toolkit::smart_ptr<DiscoverySource> source)
{
    auto& s = state();
    Toolkit::MutexLocker lock(s.lock);
    if (s.started) {
        TK_LOG(Toolkit::LogError) << "discovery runs; its source cannot change";
        return false;
    }
    s.source = std::move(source);
    return true;
}

void DiscoveryControl::AddEventListener(Toolkit::smart_ptr<DiscoveryEvent> listener)
{
    if (listener)
        state().fanout->Add(std::move(listener));
}

void DiscoveryControl::RemoveEventListener(Toolkit::smart_ptr<DiscoveryEvent> listener)
{
    state().fanout->Remove(listener);
}

bool DiscoveryControl::Start(unsigned int features)
{
    auto& s = state();
    Toolkit::MutexLocker lock(s.lock);
    if (s.started)
        return true;
    if (!s.source) {
        TK_LOG(Toolkit::LogError) << "no discovery source installed";
        return false;
    }
    s.started = s.source->Start(features, s.fanout);
    if (!s.started)
        TK_LOG(Toolkit::LogError) << "the discovery source did not start";
    return s.started;
}

void DiscoveryControl::Stop()
{
    auto& s = state();
    Toolkit::smart_ptr<DiscoverySource> source;
    {
        Toolkit::MutexLocker lock(s.lock);
        if (!s.started)
            return;
        s.started = false;
        source = s.source;
    }
    // Outside the lock: the source's threads may still be reporting, and a
    // listener may ask whether discovery runs.
    source->Stop();
}

bool DiscoveryControl::IsStarted()
{
    auto& s = state();
    Toolkit::MutexLocker lock(s.lock);
    return s.started;
}

void DiscoveryControl::Refresh()
{
    auto& s = state();
    Toolkit::smart_ptr<DiscoverySource> source;
    {
        Toolkit::MutexLocker lock(s.lock);
        if (s.started)
            source = s.source;
    }
    if (source)
        source->Refresh();
}

} // namespace Detection
