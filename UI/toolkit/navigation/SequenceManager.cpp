#include "navigation/SequenceManager.h"

#include "navigation/EventManager.h"
#include "navigation/PreviousSequenceParameter.h"
#include "navigation/Sequence.h"
#include "navigation/TransitionManager.h"
#include "navigation/TransitionNotice.h"
#include "xml/SymbolicIds.h"

#include <algorithm>
#include <map>

namespace UIKit {
namespace {

Toolkit::smart_ptr<EventTable::Rows> rowsOf(const TString<wchar_t>& sequence, const TString<wchar_t>& state)
{
    const auto events = EventManager::Instance();
    return events ? events->Get(sequence, state) : Toolkit::smart_ptr<EventTable::Rows>();
}

// Asked before switching sequences, so that an unknown transition (logged
// by the registry) leaves the navigation where it is.
bool knowsTransition(const TString<wchar_t>& name)
{
    const auto transitions = TransitionManager::Instance();
    return transitions && transitions->Get(name);
}

// The same for an event row, reported against the file the row came from.
bool knowsRowTransition(const EventDescriptor& row)
{
    const auto transitions = TransitionManager::Instance();
    if (transitions && transitions->Has(row.transition))
        return true;
    ReportUnknownTransition(row);
    return false;
}

} // namespace

const wchar_t* const SequenceManager::c_strAny = L"*";

Toolkit::smart_ptr<Sequence> SequenceManager::GetCurrentSequence() const
{
    Toolkit::MutexLocker stack(m_stackLock);
    return m_stack.empty() ? Toolkit::smart_ptr<Sequence>() : m_stack.back();
}

Toolkit::smart_ptr<Sequence> SequenceManager::GetSequence(const TString<wchar_t>& name)
{
    Toolkit::MutexLocker stack(m_stackLock);
    for (const auto& sequence : m_stack)
        if (sequence->GetName() == name)
            return sequence;
    return Toolkit::make_smart<Sequence>(name);
}

bool SequenceManager::SetCurrentSequence(Toolkit::smart_ptr<Sequence> sequence)
{
    Toolkit::MutexLocker stack(m_stackLock);
    const auto current = GetCurrentSequence();
    if (!sequence || current == sequence)
        return false;
    if (current)
        current->SetVisible(false);
    // A sequence made current again moves to the top; it never appears twice.
    m_stack.erase(std::remove(m_stack.begin(), m_stack.end(), sequence), m_stack.end());
    m_stack.push_back(sequence);
    sequence->SetVisible(true);
    return true;
}

std::vector<Toolkit::smart_ptr<Sequence>> SequenceManager::GetStack() const
{
    Toolkit::MutexLocker stack(m_stackLock);
    return m_stack;
}

bool SequenceManager::DoTransition(const TString<wchar_t>& sequence, const TString<wchar_t>& transition,
                                   Toolkit::smart_ptr<IStateParameter> parameter)
{
    Toolkit::MutexLocker navigation(m_navigationLock);
    NotifyBeforeTransition();
    const auto target = GetSequence(sequence);
    if (!knowsTransition(transition) || !SetCurrentSequence(target))
        return false;
    return target->DoTransition(transition, std::move(parameter));
}

bool SequenceManager::DoEvent(const TString<wchar_t>& sequence, const TString<wchar_t>& state, int id,
                              Toolkit::smart_ptr<IStateParameter> parameter)
{
    Toolkit::MutexLocker navigation(m_navigationLock);
    const auto source = GetSequence(sequence);
    const auto rows = rowsOf(sequence, state);
    if (!source || !rows)
        return false;
    for (const auto& row : *rows) {
        if (row->id != id)
            continue;
        const auto target = row->sequence == sequence ? source : GetSequence(row->sequence);
        // A row into the sequence that is already current does nothing here;
        // the next matching row gets its chance.
        if (!target || target == GetCurrentSequence())
            continue;
        if (!knowsRowTransition(*row))
            return false;
        SetCurrentSequence(target);
        return target->DoTransition(row->transition, parameter);
    }
    return false;
}

bool SequenceManager::DoEvent(int id)
{
    Toolkit::MutexLocker navigation(m_navigationLock);
    const auto current = GetCurrentSequence();
    if (current && current->GetState() &&
        DoEvent(current->GetName(), current->GetState()->GetStateName(), id, {}))
        return true;
    return DoEvent(c_strAny, c_strAny, id, {});
}

void SequenceManager::PreviousSequence(Animation animation)
{
    Toolkit::MutexLocker navigation(m_navigationLock);
    Toolkit::smart_ptr<Sequence> popped;
    {
        Toolkit::MutexLocker stack(m_stackLock);
        NotifyBeforeTransition();
        if (!m_stack.empty()) {
            popped = m_stack.back();
            m_stack.pop_back();
        }
    }
    const auto current = GetCurrentSequence();
    if (!current)
        return;
    current->SetVisible(true);
    const auto state = current->GetState();
    if (state && !state->Activate(true, Toolkit::make_smart<PreviousSequenceParameter>(animation)))
        SetCurrentSequence(popped);
}

void SequenceManager::DoHome()
{
    Toolkit::MutexLocker navigation(m_navigationLock);
    const auto rows = rowsOf(c_strAny, c_strAny);
    if (!rows)
        return;
    // Home is the plug-in with the smallest id; a later row for an id
    // replaces an earlier one. Rows without a readable id (-1) are no home.
    std::map<int, Toolkit::smart_ptr<EventDescriptor>> candidates;
    for (const auto& row : *rows)
        if (row->id >= 0 && row->id < 10)
            candidates[row->id] = row;
    if (candidates.empty())
        return;
    const auto& [id, row] = *candidates.begin();
    DoEvent(c_strAny, row->state, id, {});
}

void SequenceManager::DoSettings()
{
    doFirstGlobalRow(ID_SETTINGS);
}

void SequenceManager::DoLiveUpdate()
{
    doFirstGlobalRow(PIdLiveUpdate);
}

void SequenceManager::doFirstGlobalRow(int id)
{
    Toolkit::MutexLocker navigation(m_navigationLock);
    const auto rows = rowsOf(c_strAny, c_strAny);
    if (!rows)
        return;
    for (const auto& row : *rows)
        if (row->id == id) {
            DoEvent(c_strAny, row->state, id, {});
            return;
        }
}

void SequenceManager::OnApplicationExit()
{
    std::vector<Toolkit::smart_ptr<Sequence>> released;
    {
        Toolkit::MutexLocker stack(m_stackLock);
        released.swap(m_stack);
    }
    // The sequences (and their states) go outside the lock: a state's
    // destructor may still ask for the current sequence.
}

} // namespace UIKit
