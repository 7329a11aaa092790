// Work that may take its time: it runs beside the window, with progress and a way out.
#pragma once

#include <QString>

#include <atomic>
#include <functional>

class QWidget;

namespace kv::workbench
{

// The end of a piece of work.
struct Outcome
{
    bool cancelled = false;
    QString failure; // why it failed; empty otherwise

    bool IsDone() const { return !cancelled && failure.isEmpty(); }
};

// Runs in a thread of its own, on copies of what it needs, since it may outlive the call once it is cancelled. It looks
// at the flag before each step that others would see; what it throws becomes the failure.
using Work = std::function<void(const std::atomic<bool>& cancelled)>;

// Shows `text` with a button to cancel when the work takes longer than half a second.
Outcome RunWithProgress(QWidget* parent, unsigned short text, const Work& work);

// What a failure says: `action` runs, and the text of what it throws is the answer. Empty if it throws nothing.
QString FailureOf(const std::function<void()>& action);

} // namespace kv::workbench
