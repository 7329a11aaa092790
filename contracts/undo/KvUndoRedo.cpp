// The undo manager: collecting steps, exchanging the present for a step's snapshots, keeping to the limit.
#include "contracts/undo/KvUndoRedo.h"

#include <utility>

namespace KvN
{

namespace
{

// Sets a flag for the length of a block.
class FlagScope
{
public:
    explicit FlagScope(bool& flag_) : flag(flag_) { flag = true; }
    ~FlagScope() { flag = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag;
};

} // namespace

KvUndoRedo::Held& KvUndoRedo::Held::operator=(Held&& other) noexcept
{
    std::swap(state, other.state);
    return *this;
}

KvUndoRedo::Held::~Held()
{
    if (state)
        state->Unref();
}

KvUndoRedo::~KvUndoRedo() = default;

void KvUndoRedo::BeginUndoStep(const CString& name)
{
    if (depth++ == 0)
        open = Step{name, {}};
}

void KvUndoRedo::AddState(KvState* state)
{
    if (!state)
        return;
    Held held(state);
    if (exchanging)
        return;
    state->Read();
    if (depth > 0)
    {
        open.states.push_back(std::move(held));
        return;
    }
    Step step;
    step.states.push_back(std::move(held));
    Push(std::move(step));
}

void KvUndoRedo::EndUndoStep(const CString&)
{
    if (depth == 0 || --depth > 0)
        return;
    Step step = std::exchange(open, {});
    if (!step.states.empty())
        Push(std::move(step));
}

void KvUndoRedo::Clear()
{
    undoSteps.clear();
    redoSteps.clear();
    open = {};
    depth = 0;
}

CString KvUndoRedo::UndoName() const
{
    return undoSteps.empty() ? CString() : undoSteps.back().name;
}

void KvUndoRedo::Undo()
{
    Exchange(undoSteps, redoSteps);
}

void KvUndoRedo::Redo()
{
    Exchange(redoSteps, undoSteps);
}

bool KvUndoRedo::CanUndo() const
{
    return !undoSteps.empty() && depth == 0;
}

bool KvUndoRedo::CanRedo() const
{
    return !redoSteps.empty() && depth == 0;
}

void KvUndoRedo::SetLimit(std::size_t steps)
{
    limit = steps;
    Trim();
}

void KvUndoRedo::Push(Step step)
{
    redoSteps.clear();
    undoSteps.push_back(std::move(step));
    Trim();
}

void KvUndoRedo::Trim()
{
    while (limit > 0 && undoSteps.size() > limit)
        undoSteps.pop_front();
}

void KvUndoRedo::Exchange(Steps& from, Steps& to)
{
    if (from.empty() || depth > 0 || exchanging)
        return;
    const FlagScope scope(exchanging);

    Step present{from.back().name, {}};
    for (const Held& held : from.back().states)
    {
        KvState* copy = held->Clone();
        if (!copy)
            return;
        present.states.emplace_back(copy);
        copy->Read();
    }

    // The step leaves the manager before anything is written: a listener may clear the manager on the way.
    const Step step = std::move(from.back());
    from.pop_back();
    to.push_back(std::move(present));
    for (auto held = step.states.rbegin(); held != step.states.rend(); ++held)
        (*held)->Write();
    Trim();
}

} // namespace KvN
