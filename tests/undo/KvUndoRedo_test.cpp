// The undo manager, over a subject that is one number.
#include "contracts/undo.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

struct Subject
{
    int value = 0;
    int living = 0;
    std::function<void()> onWrite;
};

class NumberState : public KvN::KvState
{
public:
    explicit NumberState(Subject& subject_) : subject(subject_) { ++subject.living; }
    NumberState(const NumberState& other) : KvState(other), subject(other.subject), value(other.value)
    {
        ++subject.living;
    }
    ~NumberState() override { --subject.living; }
    void Read() override { value = subject.value; }
    void Write() override
    {
        subject.value = value;
        if (subject.onWrite)
            subject.onWrite();
    }
    KvState* Clone() override { return cloneable ? new NumberState(*this) : nullptr; }

    bool cloneable = true;

private:
    Subject& subject;
    int value = -1;
};

class UndoManager : public ::testing::Test
{
protected:
    void Change(int value)
    {
        manager.BeginUndoStep("");
        manager.AddState(new NumberState(subject));
        manager.EndUndoStep("");
        subject.value = value;
    }

    Subject subject;
    KvN::KvUndoRedo manager;
};

TEST_F(UndoManager, NewManagerHasNothingToUndoOrRedo)
{
    EXPECT_FALSE(manager.CanUndo());
    EXPECT_FALSE(manager.CanRedo());
    manager.Undo();
    manager.Redo();
    EXPECT_EQ(subject.value, 0);
}

TEST_F(UndoManager, UndoGoesBackAndRedoForwardStepByStep)
{
    Change(1);
    Change(2);
    Change(3);
    manager.Undo();
    EXPECT_EQ(subject.value, 2);
    manager.Undo();
    EXPECT_EQ(subject.value, 1);
    manager.Redo();
    EXPECT_EQ(subject.value, 2);
    manager.Undo();
    manager.Undo();
    EXPECT_EQ(subject.value, 0);
    EXPECT_FALSE(manager.CanUndo());
    manager.Redo();
    manager.Redo();
    manager.Redo();
    EXPECT_EQ(subject.value, 3);
    EXPECT_FALSE(manager.CanRedo());
}

TEST_F(UndoManager, StateTakesItsSnapshotWhenItIsAdded)
{
    subject.value = 7;
    manager.BeginUndoStep("");
    manager.AddState(new NumberState(subject));
    subject.value = 8;
    manager.EndUndoStep("");
    manager.Undo();
    EXPECT_EQ(subject.value, 7);
}

TEST_F(UndoManager, NewStepDropsTheRedoSide)
{
    Change(1);
    manager.Undo();
    EXPECT_TRUE(manager.CanRedo());
    Change(5);
    EXPECT_FALSE(manager.CanRedo());
    EXPECT_EQ(subject.living, 1);
}

TEST_F(UndoManager, EmptyStepLeavesNoTraceAndKeepsTheRedoSide)
{
    Change(1);
    manager.Undo();
    manager.BeginUndoStep("empty");
    manager.EndUndoStep("empty");
    EXPECT_FALSE(manager.CanUndo());
    EXPECT_TRUE(manager.CanRedo());
}

TEST_F(UndoManager, NullStateIsIgnored)
{
    manager.BeginUndoStep("");
    manager.AddState(nullptr);
    manager.EndUndoStep("");
    EXPECT_FALSE(manager.CanUndo());
}

TEST_F(UndoManager, StateOutsideOfAStepIsAStepOfItsOwn)
{
    manager.AddState(new NumberState(subject));
    subject.value = 4;
    manager.Undo();
    EXPECT_EQ(subject.value, 0);
}

TEST_F(UndoManager, NestedStepsAreOneStepNamedByTheOutermost)
{
    manager.BeginUndoStep("outer");
    Change(1);
    Change(2);
    EXPECT_FALSE(manager.CanUndo());
    manager.EndUndoStep("outer");
    EXPECT_EQ(manager.UndoSteps(), 1u);
    EXPECT_EQ(manager.UndoName().Utf8(), "outer");
    manager.Undo();
    EXPECT_EQ(subject.value, 0);
    manager.Redo();
    EXPECT_EQ(subject.value, 2);
}

TEST_F(UndoManager, EndWithoutBeginDoesNothing)
{
    manager.EndUndoStep("");
    Change(1);
    EXPECT_EQ(manager.UndoSteps(), 1u);
}

TEST_F(UndoManager, LimitDropsTheOldestSteps)
{
    for (int value = 1; value <= 5; ++value)
        Change(value);
    manager.SetLimit(2);
    EXPECT_EQ(manager.UndoSteps(), 2u);
    EXPECT_EQ(subject.living, 2);
    Change(6);
    EXPECT_EQ(manager.UndoSteps(), 2u);
    manager.Undo();
    manager.Undo();
    manager.Undo();
    EXPECT_EQ(subject.value, 4);
}

TEST_F(UndoManager, EveryStateIsFreedOnce)
{
    {
        KvN::KvUndoRedo local;
        local.AddState(new NumberState(subject));
        local.AddState(new NumberState(subject));
        local.Undo();
        EXPECT_EQ(subject.living, 2);
    }
    EXPECT_EQ(subject.living, 0);
}

TEST_F(UndoManager, StateThatIsSharedOutlivesTheManager)
{
    auto* shared = new NumberState(subject);
    shared->Ref();
    manager.AddState(shared);
    manager.Clear();
    EXPECT_EQ(subject.living, 1);
    EXPECT_EQ(shared->References(), 1);
    shared->Unref();
    EXPECT_EQ(subject.living, 0);
}

TEST_F(UndoManager, NothingIsWrittenIfThePresentCannotBeKept)
{
    auto* state = new NumberState(subject);
    state->cloneable = false;
    manager.AddState(state);
    subject.value = 9;
    manager.Undo();
    EXPECT_EQ(subject.value, 9);
    EXPECT_TRUE(manager.CanUndo());
    EXPECT_FALSE(manager.CanRedo());
}

TEST_F(UndoManager, ListenerThatSavesOrUndoesDuringAnUndoStartsNoStep)
{
    Change(1);
    Change(2);
    subject.onWrite = [this]
    {
        manager.AddState(new NumberState(subject));
        manager.Undo();
    };
    manager.Undo();
    EXPECT_EQ(subject.value, 1);
    EXPECT_EQ(manager.UndoSteps(), 1u);
    EXPECT_EQ(manager.RedoSteps(), 1u);
}

TEST_F(UndoManager, ListenerMayClearTheManagerDuringAnUndo)
{
    Change(1);
    Change(2);
    subject.onWrite = [this] { manager.Clear(); };
    manager.Undo();
    EXPECT_EQ(subject.value, 1);
    EXPECT_FALSE(manager.CanUndo());
    EXPECT_FALSE(manager.CanRedo());
    EXPECT_EQ(subject.living, 0);
}

TEST_F(UndoManager, CopyOfAStateStartsWithoutReferencesAndAssignmentTakesTheCountOver)
{
    struct Counter : KvN::KvRefCounter
    {
    };
    Counter a;
    a.Ref();
    a.Ref();
    const Counter b(a);
    EXPECT_EQ(b.References(), 0);
    Counter c;
    c = a;
    EXPECT_EQ(c.References(), 2);
}

} // namespace
