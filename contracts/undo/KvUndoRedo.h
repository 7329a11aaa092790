// The undo manager: steps of snapshots to go back to, and the steps undone to go forward to.
#pragma once

#include "contracts/undo/KvState.h"
#include "platform/afx/cstring.h"

#include <cstddef>
#include <deque>
#include <vector>

namespace KvN
{

// The manager of a host. It refers to its states and lets go of them; a state must not be read or written after its
// subject has gone, so the host clears the manager first.
//
// While a step is being undone or redone the manager takes no states and starts no other step: what a listener does
// on the way is part of that step.
class KvUndoRedo
{
public:
    KvUndoRedo() = default;
    KvUndoRedo(const KvUndoRedo&) = delete;
    KvUndoRedo& operator=(const KvUndoRedo&) = delete;

    // Opens a step. Steps nest; the outermost names the whole.
    virtual void BeginUndoStep(const CString& name);
    // Takes a state's snapshot at once and keeps it in the open step, or as a step of its own. Null is ignored.
    virtual void AddState(KvState* state);
    // Closes the step. A step without states leaves no trace; any other drops what could be redone.
    virtual void EndUndoStep(const CString& name);
    // Forgets every step, an open one too.
    virtual void Clear();
    // The name of the step that `Undo` would take back; empty if there is none.
    virtual CString UndoName() const;
    // Takes the last step back: keeps the present content for `Redo`, then writes the step's states, the last first.
    // Without a step, or while one is open, nothing happens. Nothing is written if the present can't be kept.
    virtual void Undo();
    virtual void Redo();
    virtual bool CanUndo() const;
    virtual bool CanRedo() const;
    virtual ~KvUndoRedo();

    // The number of steps kept for undoing, the oldest going first; 0 keeps all of them.
    void SetLimit(std::size_t steps);
    std::size_t Limit() const { return limit; }
    std::size_t UndoSteps() const { return undoSteps.size(); }
    std::size_t RedoSteps() const { return redoSteps.size(); }

private:
    // Refers to a state for as long as it is held.
    class Held
    {
    public:
        explicit Held(KvState* state_) : state(state_) { state->Ref(); }
        Held(Held&& other) noexcept : state(other.state) { other.state = nullptr; }
        Held& operator=(Held&& other) noexcept;
        ~Held();
        KvState* operator->() const { return state; }

    private:
        KvState* state;
    };
    struct Step
    {
        CString name;
        std::vector<Held> states;
    };
    using Steps = std::deque<Step>;

    void Push(Step step);
    void Trim();
    void Exchange(Steps& from, Steps& to);

    Steps undoSteps;
    Steps redoSteps;
    Step open;
    int depth = 0;
    bool exchanging = false;
    std::size_t limit = 0;
};

} // namespace KvN
