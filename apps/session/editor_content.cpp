// What an editor tells its host, in the words of a session.
#include "apps/session/editor_content.h"

namespace kv::session
{

namespace
{
using KvN::KvContour;

EditorContent& Self(void* object)
{
    return *static_cast<EditorContent*>(object);
}

std::string At(const char* event, const KvN::KvTPoint<short>& point)
{
    return std::string(event) + " " + std::to_string(point.x) + " " + std::to_string(point.y);
}
} // namespace

EditorContent::EditorContent(CWnd& host)
{
    editor.Create(&host);
    editor.SetUndoRedo(&undo);
    Listen();
}

EditorContent::~EditorContent()
{
    editor.SetUndoRedo(nullptr);
    editor.DestroyWindow();
}

void EditorContent::Log(const char* event, const KvContour* contour)
{
    const std::string id = !contour ? "null" : contour->ID() == -1 ? "none" : std::to_string(contour->ID());
    Log(std::string(event) + " " + id);
}

std::vector<std::string> EditorContent::TakeEvents()
{
    return std::exchange(events, {});
}

void EditorContent::RequestCursors(bool on)
{
    editor.m_SignalCursorRequest.Clear();
    if (on)
        editor.m_SignalCursorRequest.Connect(this, [](void* o, KvN::KvTPoint<short> p)
                                             { Self(o).Log(At("cursor-request", p)); });
}

void EditorContent::Listen()
{
    editor.m_SignalContourChanged.Connect(this, [](void* o, KvContour* c) { Self(o).Log("changed", c); });
    editor.m_SignalContourAdded.Connect(this, [](void* o, KvContour* c) { Self(o).Log("added", c); });
    editor.m_SignalContourDeleted.Connect(this, [](void* o, KvContour* c) { Self(o).Log("deleted", c); });
    editor.m_SignalContoursInverted.Connect(this, [](void* o, KvContour*) { Self(o).Log("inverted"); });
    editor.m_SignalContourSelected.Connect(this, [](void* o, KvContour* c) { Self(o).Log("selected", c); });
    editor.m_SignalOperation.Connect(this, [](void* o, KvContourWnd::eOperation operation)
                                     { Self(o).Log("operation " + std::to_string(operation)); });
    editor.m_SignalFigureMoved.Connect(this,
                                       [](void* o, KvContour* c) {
                                           Self(o).Log("figure " + std::to_string(c->ContourType()) + ":" +
                                                       std::to_string(c->CurvePositions().count));
                                       });
    editor.m_SignalClickNoInteraction.Connect(this,
                                              [](void* o, KvN::KvTPoint<short> p) { Self(o).Log(At("click", p)); });
    editor.SetChangeModeHdl(KvTools::Link(this,
                                          [](void* o, void*) -> long long
                                          {
                                              Self(o).Log("change-mode");
                                              return 1;
                                          }));
}

} // namespace kv::session
