// A contour editor that fills the host, with an undo manager, and a log of what it tells.
#pragma once

#include "C/uiContourWnd.h"
#include "apps/session/stage.h"

#include <string>
#include <vector>

namespace kv::session
{

// The editor with the state that sessions print.
class SessionEditor : public KvContourWnd
{
public:
    int EditMode() const { return m_EditMode; }
    int IsFigureActive() const { return m_FigureActive; }
    long SelectedID() const { return m_SelectedID; }
    const KvN::KvContour& Figure() const { return m_Figure; }
};

class EditorContent : public Content
{
public:
    explicit EditorContent(CWnd& host);
    ~EditorContent() override;

    KvN::KvAOIWnd* Window() override { return &editor; }
    SessionEditor& Editor() { return editor; }
    void SetTool(long tool) override { editor.SetTool(static_cast<unsigned short>(tool)); }
    std::vector<std::string> TakeEvents() override;
    // A slot on the cursor request: while there is one, the editor leaves the cursor alone.
    void RequestCursors(bool on);

    // The contour's number, or `null`.
    void Log(const char* event, const KvN::KvContour* contour);
    void Log(std::string event) { events.push_back(std::move(event)); }

private:
    void Listen();

    KvN::KvUndoRedo undo;
    SessionEditor editor;
    std::vector<std::string> events;
};

} // namespace kv::session
