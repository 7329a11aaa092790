// A contour editor in a window of the tests, with a log of what it tells its host and the operator's input.
#pragma once

#include "C/uiContourWnd.h"
#include "platform/win/input.h"
#include "platform/win/screen.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kv::test
{

using Points = std::vector<std::pair<double, double>>;

// The editor with what its own sources may use.
class Editor : public KvContourWnd
{
public:
    using KvContourWnd::AOIWndFontHeight;
    using KvContourWnd::CompleteContour;
    using KvContourWnd::CreateAOIWndLogFont;
    using KvContourWnd::DeleteContour;
    using KvContourWnd::DeleteFigure;
    using KvContourWnd::GetEffectiveLineWidth;
    using KvContourWnd::GetEffectiveLineWidthThumb;
    using KvContourWnd::GetEffectiveThumbSize;
    using KvContourWnd::GetEffectiveZoomFactor;
    using KvContourWnd::GetNextContourID;
    using KvContourWnd::GetNextContourSequenceID;
    using KvContourWnd::GetZoomFactorFittedToWindow;
    using KvContourWnd::InsertContourPtr;
    using KvContourWnd::IsAOIRect;
    using KvContourWnd::m_CatchSize;
    using KvContourWnd::m_Contours;
    using KvContourWnd::m_ContourSeq;
    using KvContourWnd::m_CursorAddPoint;
    using KvContourWnd::m_CursorArrow;
    using KvContourWnd::m_CursorDeletePoint;
    using KvContourWnd::m_CursorInvertObject;
    using KvContourWnd::m_CursorMoveObject;
    using KvContourWnd::m_CursorMovePoint;
    using KvContourWnd::m_CursorNewPoint;
    using KvContourWnd::m_CursorRotateObject;
    using KvContourWnd::m_CursorSizeAll;
    using KvContourWnd::m_CursorSizeHorizontal;
    using KvContourWnd::m_CursorSizeLeftBottomRightTop;
    using KvContourWnd::m_CursorSizeLeftTopRightBottom;
    using KvContourWnd::m_CursorSizeVertical;
    using KvContourWnd::m_EditMode;
    using KvContourWnd::m_Figure;
    using KvContourWnd::m_FigureActive;
    using KvContourWnd::m_Pair;
    using KvContourWnd::m_Pos;
    using KvContourWnd::m_SelectedID;
    using KvContourWnd::m_Tool;
    using KvContourWnd::m_UsePolylineWidth;
    using KvContourWnd::MatchBoundingRectCornerPoints;
    using KvContourWnd::MatchBoundingRectEdgePoints;
    using KvContourWnd::MatchLineOfPoly;
    using KvContourWnd::MatchObject;
    using KvContourWnd::MatchPointOfPoly;
    using KvContourWnd::OnDeleteObject;
    using KvContourWnd::SelectCursorFromBoundingContour;
    using KvContourWnd::SetContourSelected;
    using KvContourWnd::Stretch;
};

KvN::KvContour Shape(KvN::KvContour::eContourType type, const Points& points);
KvN::KvContour Rect(double left, double top, double right, double bottom);
KvN::KvContour WithID(KvN::KvContour contour, int id);
Points PointsOf(const KvN::KvContour& contour);
// Equal within a millionth of a pixel.
::testing::AssertionResult Near(const Points& actual, const Points& expected);

// A list as a host hands one over. IDs of -1 are numbered in order; sequence numbers likewise.
class Contours
{
public:
    Contours(std::initializer_list<KvN::KvContour> contours);
    const KvN::KvTPList<KvN::KvContour>& List() const { return list; }

private:
    KvN::KvTPList<KvN::KvContour> list;
};

// What the editor tells, one text an event, in the words of the session player.
class EventLog
{
public:
    void Listen(KvContourWnd& editor);
    // The events since the last call, joined by ", ".
    std::string Take();

    bool changeModes = false; // whether calls of the change-mode handler are kept

private:
    void Add(const std::string& name, KvN::KvContour* contour);
    void Add(const std::string& text) { events.push_back(text); }

    std::vector<std::string> events;
};

// An editor over an AOI of 200 by 150 in a host of 400 by 300 at zoom 1, listening, with an undo manager.
class EditorTest : public ::testing::Test
{
protected:
    EditorTest();
    ~EditorTest() override;

    // Makes the host, the editor and its AOI anew.
    void Open(short width, short height, int hostWidth, int hostHeight, double zoom = 1.0);
    void Give(std::initializer_list<KvN::KvContour> contours) { editor->SetContourList(Contours(contours).List()); }

    // Positions are AOI pixels.
    CPoint Client(int x, int y) const;
    void Move(int x, int y);
    void GoTo(int x, int y); // a move, unless the pointer is there already
    // These two go there first.
    void Press(int x, int y);
    void Release(int x, int y);
    void Click(int x, int y);
    void Double(int x, int y);
    // Press at the first point, a move to each further one, release at the last.
    void Drag(const std::vector<std::pair<int, int>>& way);

    KvN::KvContour& Contour(long id);
    std::string Ids() const; // of the store, in ascending order, then of the drawing order

    CWnd host;
    std::unique_ptr<KvN::KvBufferAOI8> aoi;
    KvN::KvUndoRedo undo;
    std::unique_ptr<Editor> editor;
    KvN::KvAOIBaseViewWnd* view = nullptr;
    EventLog log;
};

// The same with a look at what the view shows. Colours are 0xRRGGBB.
class EditorDrawing : public EditorTest
{
protected:
    void Repaint();
    kv::win::Picture Shown() { return kv::win::PictureOf(view->GetSafeHwnd()); }
    std::uint32_t PixelAt(int x, int y); // at an AOI pixel
    long Count(std::uint32_t colour);
};

// A key held for a block.
class Held
{
public:
    explicit Held(UINT key_) : key(key_) { kv::win::PressKey(key); }
    ~Held() { kv::win::ReleaseKey(key); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    UINT key;
};

} // namespace kv::test
