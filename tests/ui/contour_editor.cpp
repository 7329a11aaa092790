// The editor of the tests: windows, input, and the log of events.
#include "tests/ui/contour_editor.h"

#include <algorithm>
#include <cmath>

using namespace KvN;

namespace kv::test
{

KvContour Shape(KvContour::eContourType type, const Points& points)
{
    KvContour contour;
    contour.ContourType() = type;
    for (const auto& [x, y] : points)
        contour.CurvePositions().AddTail(KvVec2d(x, y));
    return contour;
}

KvContour Rect(double left, double top, double right, double bottom)
{
    KvContour contour;
    contour.MakeRectFromDiagonal(left, top, right, bottom);
    return contour;
}

KvContour WithID(KvContour contour, int id)
{
    contour.ID() = id;
    return contour;
}

Points PointsOf(const KvContour& contour)
{
    Points points;
    for (auto* node = contour.CurvePositions().head; node; node = node->next)
        points.emplace_back(node->value.x, node->value.y);
    return points;
}

::testing::AssertionResult Near(const Points& actual, const Points& expected)
{
    bool same = actual.size() == expected.size();
    for (size_t i = 0; same && i < actual.size(); ++i)
        same = std::abs(actual[i].first - expected[i].first) < 1e-6 &&
               std::abs(actual[i].second - expected[i].second) < 1e-6;
    if (same)
        return ::testing::AssertionSuccess();
    auto failure = ::testing::AssertionFailure();
    for (const auto& [x, y] : actual)
        failure << "(" << x << ", " << y << ")";
    failure << " instead of ";
    for (const auto& [x, y] : expected)
        failure << "(" << x << ", " << y << ")";
    return failure;
}

Contours::Contours(std::initializer_list<KvContour> contours)
{
    list.SetClearFunction(&KvContour::ClrFunc);
    list.SetCompareFunction(&KvContour::CmpFunc);
    int number = 0;
    for (const KvContour& contour : contours)
    {
        auto* copy = new KvContour(contour);
        if (copy->ID() == -1)
            copy->ID() = number;
        if (copy->SequenceID() == -1)
            copy->SequenceID() = number;
        ++number;
        list.AddEntry(copy);
    }
}

void EventLog::Add(const std::string& name, KvContour* contour)
{
    Add(name + " " + (contour ? std::to_string(contour->ID()) : "null"));
}

void EventLog::Listen(KvContourWnd& editor)
{
    using Self = EventLog;
    editor.m_SignalContourChanged.Connect(this,
                                          [](void* o, KvContour* c) { static_cast<Self*>(o)->Add("changed", c); });
    editor.m_SignalContourAdded.Connect(this, [](void* o, KvContour* c) { static_cast<Self*>(o)->Add("added", c); });
    editor.m_SignalContourReserved.Connect(this,
                                           [](void* o, KvContour* c) { static_cast<Self*>(o)->Add("reserved", c); });
    editor.m_SignalContourDeleted.Connect(this,
                                          [](void* o, KvContour* c) { static_cast<Self*>(o)->Add("deleted", c); });
    editor.m_SignalContoursInverted.Connect(this, [](void* o, KvContour*) { static_cast<Self*>(o)->Add("inverted"); });
    editor.m_SignalContourSelected.Connect(this,
                                           [](void* o, KvContour* c) { static_cast<Self*>(o)->Add("selected", c); });
    editor.m_SignalOperation.Connect(this, [](void* o, KvContourWnd::eOperation operation)
                                     { static_cast<Self*>(o)->Add("operation " + std::to_string(operation)); });
    editor.m_SignalFigureMoved.Connect(this,
                                       [](void* o, KvContour* c)
                                       {
                                           static_cast<Self*>(o)->Add("figure " + std::to_string(c->ContourType()) +
                                                                      ":" + std::to_string(c->CurvePositions().count));
                                       });
    editor.m_SignalClickNoInteraction.Connect(
        this, [](void* o, KvTPoint<short> p)
        { static_cast<Self*>(o)->Add("click " + std::to_string(p.x) + " " + std::to_string(p.y)); });
    editor.SetChangeModeHdl(KvTools::Link(this,
                                          [](void* o, void*) -> long long
                                          {
                                              if (static_cast<Self*>(o)->changeModes)
                                                  static_cast<Self*>(o)->Add("change-mode");
                                              return 1;
                                          }));
}

std::string EventLog::Take()
{
    std::string text;
    for (const std::string& event : events)
        text += (text.empty() ? "" : ", ") + event;
    events.clear();
    return text;
}

EditorTest::EditorTest()
{
    kv::win::ResetInput();
    Open(200, 150, 400, 300);
}

EditorTest::~EditorTest()
{
    editor->SetUndoRedo(nullptr);
    undo.Clear();
    kv::win::LeaveMouse();
    editor->DestroyWindow();
    host.DestroyWindow();
    kv::win::ResetInput();
}

void EditorTest::Open(short width, short height, int hostWidth, int hostHeight, double zoom)
{
    undo.Clear();
    if (editor)
        editor->DestroyWindow();
    if (host.GetSafeHwnd())
        host.DestroyWindow();
    aoi = std::make_unique<KvBufferAOI8>(KvTSize<short>(width, height), 0);
    host.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, 0, 0, hostWidth, hostHeight, nullptr, nullptr);
    editor = std::make_unique<Editor>();
    editor->Create(&host);
    editor->Init(aoi.get());
    editor->SetHandler();
    editor->SetUndoRedo(&undo);
    log.Listen(*editor);
    view = editor->GetAOIBaseViewWnd();
    view->SetDefaultOff();
    view->SetZoomFactor(zoom, zoom);
    kv::win::Settle();
    log.Take();
}

CPoint EditorTest::Client(int x, int y) const
{
    POINT point{x, y};
    view->ViewLPtoDP(&point, 1);
    return {point.x, point.y};
}

void EditorTest::Move(int x, int y)
{
    kv::win::MoveMouse(view->GetSafeHwnd(), Client(x, y));
}

void EditorTest::GoTo(int x, int y)
{
    if (!kv::win::IsMouseAt(view->GetSafeHwnd(), Client(x, y)))
        Move(x, y);
}

void EditorTest::Press(int x, int y)
{
    GoTo(x, y);
    kv::win::PressButton(view->GetSafeHwnd(), kv::win::Button::Left, Client(x, y));
}

void EditorTest::Release(int x, int y)
{
    GoTo(x, y);
    kv::win::ReleaseButton(view->GetSafeHwnd(), kv::win::Button::Left, Client(x, y));
}

void EditorTest::Click(int x, int y)
{
    Press(x, y);
    Release(x, y);
}

void EditorTest::Double(int x, int y)
{
    Click(x, y);
    kv::win::DoublePressButton(view->GetSafeHwnd(), kv::win::Button::Left, Client(x, y));
    Release(x, y);
}

void EditorTest::Drag(const std::vector<std::pair<int, int>>& way)
{
    Press(way.front().first, way.front().second);
    for (size_t i = 1; i < way.size(); ++i)
        Move(way[i].first, way[i].second);
    Release(way.back().first, way.back().second);
}

KvContour& EditorTest::Contour(long id)
{
    KvContour* contour = editor->GetContour(id);
    EXPECT_NE(contour, nullptr) << "contour " << id;
    static KvContour missing;
    return contour ? *contour : missing;
}

std::string EditorTest::Ids() const
{
    std::string text;
    for (unsigned long i = 0; i < editor->m_Contours.NumEntries(); ++i)
        text += std::to_string(editor->m_Contours.GetEntry(i)->ID()) + " ";
    text += "|";
    for (unsigned long i = 0; i < editor->m_ContourSeq.NumEntries(); ++i)
        text += " " + std::to_string(editor->m_ContourSeq.GetEntry(i)->ID());
    return text;
}

void EditorDrawing::Repaint()
{
    view->InvalidateRect(nullptr, FALSE);
    view->UpdateWindow();
}

std::uint32_t EditorDrawing::PixelAt(int x, int y)
{
    const CPoint at = Client(x, y);
    return Shown().At(at.x, at.y) & 0xFFFFFF;
}

long EditorDrawing::Count(std::uint32_t colour)
{
    const kv::win::Picture picture = Shown();
    return std::count_if(picture.pixels.begin(), picture.pixels.end(),
                         [&](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == colour; });
}

} // namespace kv::test
