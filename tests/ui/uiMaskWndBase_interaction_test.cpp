// The mouse in a mask window: rubber bands, placed figures, polygons.
#include "tests/ui/mask_window.h"

using namespace KvN;
using namespace kv::test;

namespace
{

KvTRectangle<short> FigureOf(const PlainStand& stand)
{
    return stand.window.GetFigure().GetRect();
}

// A plain window over an empty mask of 60 by 50.
class MaskMouse : public ::testing::Test
{
protected:
    void Repaint()
    {
        stand.View().Invalidate(FALSE);
        stand.View().UpdateWindow();
    }
    Rows Stored()
    {
        stand.window.MaskToAOI();
        return Art(*mask);
    }
    bool IsEmpty()
    {
        for (const std::string& row : Stored())
            if (row.find('#') != std::string::npos)
                return false;
        return true;
    }
    bool HasCapture() const { return ::GetCapture() == stand.View().m_hWnd; }

    std::unique_ptr<KvBufferAOI8> mask = Grey(60, 50, 0);
    PlainStand stand{*mask};
};

} // namespace

// ---- Box figures

TEST_F(MaskMouse, DragPlacesAFigureAndTellsTheLink)
{
    stand.Press(10, 12);
    EXPECT_TRUE(stand.window.IsDrawing());
    EXPECT_TRUE(HasCapture());
    EXPECT_EQ(stand.told, 0);
    stand.Release(30, 28);
    EXPECT_FALSE(stand.window.IsDrawing());
    EXPECT_FALSE(HasCapture());
    EXPECT_TRUE(stand.window.IsInChangeMode());
    EXPECT_EQ(stand.told, 1);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 30, 28));
    EXPECT_TRUE(IsEmpty()); // not in the mask yet
}

TEST_F(MaskMouse, PressWithoutAMovePlacesOnePixel)
{
    for (const int tool : {1, 2, 3, 5, 6, 7})
    {
        stand.window.SetTool(tool);
        stand.Click(20, 21);
        EXPECT_TRUE(stand.window.IsInChangeMode()) << tool;
        EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(20, 21, 20, 21)) << tool;
        stand.window.DeleteFigure();
    }
}

TEST_F(MaskMouse, DragUpAndLeftPlacesANormalisedFigure)
{
    stand.Drag(30, 28, 10, 12);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 30, 28));
}

TEST_F(MaskMouse, CircleKeepsItsAnchorAtThePress)
{
    stand.window.SetTool(2);
    stand.Drag(30, 30, 20, 5); // 11 by 26: the side is 11
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(20, 20, 30, 30));
    stand.window.DeleteFigure();
    stand.Drag(10, 10, 40, 20);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 10, 20, 20));
}

TEST_F(MaskMouse, BandsAndFiguresLeaveNoTraceWhenDropped)
{
    const auto before = stand.Screen();
    for (const int tool : {1, 2, 3, 5, 6, 7, 11, 12, 13, 15, 16, 17})
    {
        stand.window.SetTool(tool);
        stand.Press(10, 12);
        stand.Move(40, 20);
        EXPECT_NE(stand.Screen(), before) << tool;
        stand.Move(25, 40);
        stand.Release(30, 28);
        stand.window.DeleteFigure();
        EXPECT_EQ(stand.Screen(), before) << tool;
    }
    EXPECT_TRUE(IsEmpty());
    EXPECT_EQ(stand.told, 12); // dropping is the caller's to tell
}

TEST_F(MaskMouse, BandErasesItself)
{
    const auto before = stand.Screen();
    stand.Press(10, 12);
    stand.Move(40, 20);
    stand.Move(33, 41);
    stand.Move(10, 12);
    // The band of a single pixel draws nothing.
    EXPECT_EQ(stand.Screen(), before);
}

TEST_F(MaskMouse, RepaintDuringABandLeavesAStrayBandBehind)
{
    const auto empty = stand.Screen();
    stand.Press(10, 12);
    stand.Move(30, 28);
    Repaint();
    EXPECT_EQ(stand.Screen(), empty);          // the band gets no care
    stand.Move(45, 40);                        // erases what is not there any more
    EXPECT_EQ(stand.Shown(20, 12), 0x646464u); // both bands touch here
    EXPECT_EQ(stand.Shown(30, 20), 0x9B9B9Bu); // the stray one
    EXPECT_EQ(stand.Shown(45, 20), 0x9B9B9Bu);
    stand.Release(45, 40);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 45, 40));
    EXPECT_EQ(stand.Shown(30, 22), 0x9B9B9Bu);
    Repaint();
    EXPECT_EQ(stand.Shown(30, 22), 0x646464u);
}

TEST_F(MaskMouse, RepaintedFigureIsDrawnAgain)
{
    stand.Drag(10, 12, 30, 28);
    const auto placed = stand.Screen();
    Repaint();
    EXPECT_EQ(stand.Screen(), placed);
}

TEST_F(MaskMouse, RightPressDuringALeftDragRestartsTheBand)
{
    stand.View().DisableRightButtonMenu();
    stand.Press(5, 5);
    stand.Move(20, 20);
    stand.Move(10, 10);
    kv::win::PressButton(stand.View().m_hWnd, kv::win::Button::Right, stand.Client(10, 10));
    stand.Release(25, 26);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 10, 25, 26));
    kv::win::ReleaseButton(stand.View().m_hWnd, kv::win::Button::Right, stand.Client(25, 26));
    EXPECT_TRUE(stand.window.IsInChangeMode());
}

TEST_F(MaskMouse, RightButtonAloneDoesNothing)
{
    stand.View().DisableRightButtonMenu();
    kv::win::PressButton(stand.View().m_hWnd, kv::win::Button::Right, stand.Client(10, 10));
    EXPECT_FALSE(stand.window.IsDrawing());
    kv::win::ReleaseButton(stand.View().m_hWnd, kv::win::Button::Right, stand.Client(10, 10));
    EXPECT_FALSE(stand.window.IsInChangeMode());
}

TEST_F(MaskMouse, ToolsOfTheWholeMaskAndUnknownOnesDrawNothing)
{
    for (const int tool : {0, 10, 20, 21, 22, -1})
    {
        stand.window.SetTool(tool);
        stand.Drag(10, 10, 20, 20);
        EXPECT_FALSE(stand.window.IsDrawing()) << tool;
        EXPECT_FALSE(stand.window.IsInChangeMode()) << tool;
        EXPECT_FALSE(HasCapture()) << tool;
    }
}

// ---- The placed figure

TEST_F(MaskMouse, EachHandleMovesItsSides)
{
    const KvTRectangle<short> moved[] = {{13, 16, 30, 28}, {10, 16, 30, 28}, {10, 16, 33, 28}, {13, 12, 30, 28},
                                         {10, 12, 33, 28}, {13, 12, 30, 32}, {10, 12, 30, 32}, {10, 12, 33, 32}};
    const CPoint places[] = {{10, 12}, {20, 12}, {30, 12}, {10, 20}, {30, 20}, {10, 28}, {20, 28}, {30, 28}};
    for (unsigned short id = 0; id < 8; ++id)
    {
        stand.Drag(10, 12, 30, 28);
        stand.Press(places[id].x, places[id].y);
        EXPECT_EQ(stand.window.GetDragMarker(), id);
        EXPECT_TRUE(HasCapture());
        stand.Release(places[id].x + 3, places[id].y + 4);
        EXPECT_FALSE(HasCapture());
        EXPECT_EQ(FigureOf(stand), moved[id]) << id;
        stand.window.DeleteFigure();
    }
}

TEST_F(MaskMouse, InsideMovesTheFigureByThePathOfThePointer)
{
    stand.Drag(10, 12, 30, 28);
    stand.Press(20, 20);
    EXPECT_EQ(stand.window.GetDragMarker(), KvSurroundRect::InsideId);
    stand.Move(23, 18);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(13, 10, 33, 26));
    stand.Release(25, 25);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(15, 17, 35, 33));
}

TEST_F(MaskMouse, HandleDraggedPastItsOppositeInvertsUntilTheRelease)
{
    stand.Drag(10, 12, 30, 28);
    stand.Press(10, 12);
    stand.Move(40, 38);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(40, 38, 30, 28));
    stand.Release(40, 38);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(30, 28, 40, 38));
    // The handles follow: the top left one is now where the pointer came by.
    stand.Press(30, 28);
    EXPECT_EQ(stand.window.GetDragMarker(), 0);
    stand.Release(30, 28);
    const auto drawn = stand.Screen();
    Repaint();
    EXPECT_EQ(stand.Screen(), drawn);
}

TEST_F(MaskMouse, CornersOfACircleKeepItSquareAndTheOppositeCornerInPlace)
{
    const CPoint corners[] = {{10, 10}, {30, 10}, {10, 30}, {30, 30}};
    const unsigned short ids[] = {0, 2, 5, 7};
    const CPoint to[] = {{2, 6}, {36, 4}, {6, 36}, {40, 33}};
    // The smaller growth counts: 4, 6, 4, 3.
    const KvTRectangle<short> squares[] = {{6, 6, 30, 30}, {10, 4, 36, 30}, {6, 10, 30, 34}, {10, 10, 33, 33}};
    stand.window.SetTool(6);
    for (int i = 0; i < 4; ++i)
    {
        stand.Drag(10, 10, 30, 30);
        stand.Press(corners[i].x, corners[i].y);
        EXPECT_EQ(stand.window.GetDragMarker(), ids[i]);
        stand.Release(to[i].x, to[i].y);
        EXPECT_EQ(FigureOf(stand), squares[i]) << i;
        stand.window.DeleteFigure();
    }
}

TEST_F(MaskMouse, SideHandlesOfACircleArePressedAndDoNothing)
{
    stand.window.SetTool(2);
    stand.Drag(10, 10, 30, 30);
    const auto drawn = stand.Screen();
    for (const CPoint place : {CPoint(20, 10), CPoint(10, 20), CPoint(30, 20), CPoint(20, 30)})
    {
        stand.Move(place.x, place.y);
        EXPECT_EQ(CursorId(stand.View().GetCurrentCursor()), IDC_SIZEALL);
        stand.Press(place.x, place.y);
        EXPECT_TRUE(stand.window.IsDrawing());
        stand.Release(40, 40);
        EXPECT_FALSE(stand.window.IsDrawing());
        EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 10, 30, 30));
        EXPECT_EQ(stand.Screen(), drawn);
    }
}

TEST_F(MaskMouse, SmallFigureIsTakenByTheHighestHandleInReach)
{
    stand.Drag(20, 20, 22, 22);
    stand.Press(21, 21);
    EXPECT_EQ(stand.window.GetDragMarker(), 7);
    stand.Release(29, 27);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(20, 20, 29, 27));
}

TEST_F(MaskMouse, CursorFollowsWhatLiesUnderThePointer)
{
    stand.Drag(10, 12, 30, 28);
    const std::pair<CPoint, UINT> places[] = {
        {{10, 12}, IDC_SIZENWSE}, {{20, 12}, IDC_SIZENS}, {{30, 12}, IDC_SIZENESW}, {{10, 20}, IDC_SIZEWE},
        {{20, 20}, IDC_SIZEALL},  {{7, 9}, IDC_SIZENWSE}, {{50, 45}, 8883}};
    for (const auto& [place, cursor] : places)
    {
        stand.Move(place.x, place.y);
        EXPECT_EQ(CursorId(stand.View().GetCurrentCursor()), cursor) << place.x << "," << place.y;
    }
    // The handle's cursor is kept through its drag.
    stand.Press(10, 12);
    stand.Move(45, 45);
    EXPECT_EQ(CursorId(stand.View().GetCurrentCursor()), IDC_SIZENWSE);
    stand.Release(45, 45);
    stand.window.DeleteFigure();
    stand.Move(40, 40);
    EXPECT_EQ(CursorId(stand.View().GetCurrentCursor()), 8883u);
}

TEST_F(MaskMouse, DoubleClickOutsideAcceptsAndTellsTheLink)
{
    stand.Drag(10, 12, 30, 28);
    stand.DoubleClick(50, 45);
    EXPECT_FALSE(stand.window.IsInChangeMode());
    EXPECT_EQ(stand.told, 2);
    EXPECT_EQ(Stored()[12].substr(9, 22), ".####################.");
}

TEST_F(MaskMouse, SinglePressOutsideLeavesTheFigure)
{
    stand.Drag(10, 12, 30, 28);
    stand.Click(50, 45);
    EXPECT_TRUE(stand.window.IsInChangeMode());
    EXPECT_EQ(stand.told, 1);
    EXPECT_FALSE(stand.window.IsDrawing());
}

TEST_F(MaskMouse, DoubleClickInsideIsADragOfNoLength)
{
    stand.Drag(10, 12, 30, 28);
    stand.DoubleClick(20, 20);
    EXPECT_TRUE(stand.window.IsInChangeMode());
    EXPECT_EQ(stand.told, 1);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 30, 28));
    EXPECT_TRUE(IsEmpty());
}

TEST_F(MaskMouse, DoubleClickOnAHandlesOuterHalfIsADrag)
{
    stand.Drag(10, 12, 30, 28);
    stand.DoubleClick(8, 10);
    EXPECT_TRUE(stand.window.IsInChangeMode());
    EXPECT_EQ(stand.window.GetDragMarker(), 0);
}

TEST_F(MaskMouse, ToolChosenForAPlacedFigureGivesItsColourAndPen)
{
    stand.window.SetTool(MaskToolFill);
    stand.window.SetTool(1);
    stand.Drag(10, 12, 30, 28);
    const auto placed = stand.Screen();
    stand.window.SetTool(15);
    EXPECT_EQ(stand.Screen(), placed);
    stand.window.IntegrateFigure();
    const Rows rows = Stored();
    EXPECT_EQ(rows[12].substr(9, 23), "#.....................#");
    EXPECT_EQ(rows[13].substr(9, 23), "#.###################.#");
}

TEST_F(MaskMouse, PolygonToolForAPlacedFigureDrawsNothing)
{
    stand.Drag(10, 12, 30, 28);
    stand.window.SetTool(4);
    stand.window.IntegrateFigure();
    EXPECT_FALSE(stand.window.IsInChangeMode());
    EXPECT_TRUE(IsEmpty());
}

TEST_F(MaskMouse, LineWidthOfAPlacedFrameCanStillBeChanged)
{
    stand.window.SetTool(5);
    stand.Drag(10, 12, 30, 28);
    stand.window.SetLineWidth(3);
    stand.window.IntegrateFigure();
    const Rows rows = Stored();
    EXPECT_EQ(rows[20].substr(8, 5), ".###.");
    EXPECT_EQ(rows[20].substr(28, 5), ".###.");
}

// ---- Polygons

TEST_F(MaskMouse, PolygonIsClickedVertexByVertexAndClosedByADoubleClick)
{
    stand.window.SetTool(8);
    stand.Click(10, 10);
    EXPECT_TRUE(stand.window.IsPolygonOpen());
    EXPECT_TRUE(stand.window.IsDrawing());
    EXPECT_TRUE(HasCapture());
    stand.Click(30, 10);
    stand.DoubleClick(30, 30);
    EXPECT_FALSE(stand.window.IsPolygonOpen());
    EXPECT_FALSE(stand.window.IsDrawing());
    EXPECT_FALSE(HasCapture());
    EXPECT_FALSE(stand.window.IsInChangeMode());
    EXPECT_EQ(stand.told, 0); // no adjusting step, and the link isn't told
    const Rows rows = Stored();
    EXPECT_EQ(rows[10].substr(9, 23), ".#####################.");
    EXPECT_EQ(rows[20].substr(9, 23), "...........#.........#.");
    EXPECT_EQ(rows[30].substr(9, 23), ".....................#.");
}

TEST_F(MaskMouse, PolylineStaysOpenAtItsEnd)
{
    stand.window.SetTool(9);
    stand.Click(10, 10);
    stand.Click(30, 10);
    stand.DoubleClick(30, 30);
    const Rows rows = Stored();
    EXPECT_EQ(rows[10].substr(9, 23), ".#####################.");
    EXPECT_EQ(rows[20].substr(9, 23), ".....................#.");
    EXPECT_EQ(rows[30].substr(9, 23), "......................."); // the end point of a thin line is not drawn
}

TEST_F(MaskMouse, FilledPolygonHasNoOutline)
{
    stand.window.SetTool(4);
    stand.Click(10, 10);
    stand.Click(30, 10);
    stand.Click(30, 30);
    stand.DoubleClick(10, 30);
    const Rows rows = Stored();
    EXPECT_EQ(rows[10].substr(9, 23), ".####################..");
    EXPECT_EQ(rows[29].substr(9, 23), ".####################..");
    EXPECT_EQ(rows[30].substr(9, 23), ".......................");
}

TEST_F(MaskMouse, ExcludingPolygonsCutOut)
{
    for (const int tool : {14, 18, 19})
    {
        stand.window.SetTool(MaskToolFill);
        stand.window.SetTool(tool);
        stand.Click(10, 10);
        stand.Click(30, 10);
        stand.DoubleClick(30, 30);
        const Rows rows = Stored();
        EXPECT_EQ(rows[10].substr(8, 4), tool == 14 ? "##.." : "##..") << tool;
        EXPECT_EQ(rows[15].substr(24, 3), tool == 14 ? "..." : "###") << tool;
        EXPECT_EQ(rows[15].substr(29, 3), tool == 14 ? ".##" : "#.#") << tool;
    }
}

TEST_F(MaskMouse, PolygonOfOneVertexDrawsNothing)
{
    for (const int tool : {4, 8, 9, 14, 18, 19})
    {
        stand.window.SetTool(tool);
        stand.DoubleClick(20, 20);
        EXPECT_FALSE(stand.window.IsPolygonOpen()) << tool;
        EXPECT_FALSE(HasCapture()) << tool;
        EXPECT_EQ(stand.window.polygon.GetSize(), 1) << tool;
    }
    EXPECT_TRUE(IsEmpty());
}

TEST_F(MaskMouse, PolygonOfTwoVerticesIsALineOrNothing)
{
    stand.window.SetTool(4);
    stand.Click(10, 20);
    stand.DoubleClick(15, 20);
    EXPECT_TRUE(IsEmpty());
    stand.window.SetTool(8);
    stand.Click(10, 20);
    stand.DoubleClick(15, 20);
    EXPECT_EQ(Stored()[20].substr(9, 8), ".######.");
}

TEST_F(MaskMouse, SecondClickOnTheSamePointAddsNoVertex)
{
    stand.window.SetTool(9);
    stand.Click(10, 10);
    stand.Click(20, 10);
    stand.Move(25, 25);
    stand.Click(20, 10);
    EXPECT_EQ(stand.window.polygon.GetSize(), 2);
    stand.DoubleClick(30, 10);
    EXPECT_EQ(stand.window.polygon.GetSize(), 3);
}

TEST_F(MaskMouse, OpenPolygonShowsYellowEdgesAndARubberLine)
{
    stand.window.SetTool(8);
    stand.Click(10, 10);
    stand.Click(30, 10);
    stand.Move(30, 30);
    EXPECT_EQ(stand.Shown(20, 10), 0xFFFF00u);
    EXPECT_EQ(stand.Shown(30, 20), 0x9B9B9Bu);
    stand.Move(40, 10);
    EXPECT_EQ(stand.Shown(30, 20), 0x646464u);
    EXPECT_EQ(stand.Shown(35, 10), 0x9B9B9Bu);
}

TEST_F(MaskMouse, RepaintDuringAnOpenPolygonRedrawsItsEdges)
{
    stand.window.SetTool(8);
    stand.Click(10, 10);
    stand.Click(30, 10);
    stand.Move(30, 30);
    Repaint();
    EXPECT_EQ(stand.Shown(20, 10), 0xFFFF00u);
    EXPECT_EQ(stand.Shown(30, 20), 0x646464u);
    EXPECT_TRUE(stand.window.skipRubberErase);
    EXPECT_TRUE(HasCapture());
    // The rubber line comes back with the next move, and erases itself again.
    stand.Move(50, 30);
    EXPECT_FALSE(stand.window.skipRubberErase);
    EXPECT_EQ(stand.Shown(40, 20), 0x9B9B9Bu);
    stand.Move(30, 45);
    EXPECT_EQ(stand.Shown(40, 20), 0x646464u);
    EXPECT_EQ(stand.Shown(30, 20), 0x9B9B9Bu);
}

TEST_F(MaskMouse, ReleaseBetweenVerticesDoesNothing)
{
    stand.window.SetTool(4);
    stand.Press(10, 10);
    stand.Move(20, 20);
    stand.Release(20, 20);
    EXPECT_TRUE(stand.window.IsPolygonOpen());
    EXPECT_EQ(stand.window.polygon.GetSize(), 1);
}

// ---- Under a zoom

TEST_F(MaskMouse, WorksInPixelsOfTheMaskAtAnyZoom)
{
    stand.View().SetDefaultOff();
    stand.View().SetZoomFactor(2.0);
    stand.Drag(10, 12, 30, 28);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 30, 28));
    stand.Press(30, 28);
    EXPECT_EQ(stand.window.GetDragMarker(), 7);
    stand.Release(33, 32);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 33, 32));
}

// ---- Squares

TEST_F(MaskMouse, SquareIsCutAtTheLongerSideTowardsTheCornerOfItsMode)
{
    using Rect = KvTRectangle<short>;
    const Rect wide(10, 10, 20, 14);
    EXPECT_EQ(stand.window.GetSquare(wide, 1), Rect(10, 10, 14, 14));
    EXPECT_EQ(stand.window.GetSquare(wide, 2), Rect(10, 10, 14, 14));
    EXPECT_EQ(stand.window.GetSquare(wide, 3), Rect(16, 10, 20, 14));
    EXPECT_EQ(stand.window.GetSquare(wide, 4), Rect(16, 10, 20, 14));
    const Rect tall(10, 10, 12, 20);
    EXPECT_EQ(stand.window.GetSquare(tall, 1), Rect(10, 18, 12, 20));
    EXPECT_EQ(stand.window.GetSquare(tall, 2), Rect(10, 10, 12, 12));
    EXPECT_EQ(stand.window.GetSquare(tall, 3), Rect(10, 10, 12, 12));
    EXPECT_EQ(stand.window.GetSquare(tall, 4), Rect(10, 18, 12, 20));
    EXPECT_EQ(stand.window.GetSquare({20, 14, 10, 10}, 2), Rect(20, 14, 16, 10));
    EXPECT_EQ(stand.window.GetSquare({20, 20, 10, 18}, 3), Rect(12, 20, 10, 18));
    EXPECT_EQ(stand.window.GetSquare({5, 5, 9, 9}, 2), Rect(5, 5, 9, 9));
}

// ---- Failures

namespace
{

// Releases a band on a context that has gone, and tells what is thrown.
template <class Stand>
std::string ReleasedWithoutAContext(int tool)
{
    struct Release
    {
        Stand& stand;
        std::string told = "no paint";
        static void OnPainted(void* object, KvAOIBaseViewWnd& view)
        {
            auto& self = *static_cast<Release*>(object);
            CDC& dc = *view.GetOutputDevice();
            const HDC handle = dc.Detach();
            self.told = "nothing";
            try
            {
                self.stand.window.MouseButtonUpHdl(&view);
            }
            catch (KvGDIException* failure)
            {
                self.told =
                    failure->Function().Utf8() + " " + failure->File().Utf8() + " " + std::to_string(failure->Line());
                failure->Delete();
            }
            dc.Attach(handle);
        }
    };
    const auto mask = Grey(60, 50, 0);
    Stand stand(*mask);
    stand.window.SetTool(static_cast<unsigned short>(tool));
    stand.Press(10, 12);
    Release release{stand};
    stand.View().postPaintSignal.Connect(&release, &Release::OnPainted);
    stand.View().Invalidate(FALSE);
    stand.View().UpdateWindow();
    stand.View().postPaintSignal.Clear();
    EXPECT_FALSE(stand.window.IsDrawing());
    EXPECT_EQ(::GetCapture(), nullptr);
    stand.Release(10, 12);
    return release.told;
}

} // namespace

TEST(MaskMouseFailures, BandOfTheAddingRectanglesAloneIsChecked)
{
    for (const int tool : {1, 5})
    {
        EXPECT_EQ(ReleasedWithoutAContext<PlainStand>(tool), "CDC::Rectangle C/uiMaskWnd 973");
        EXPECT_EQ(ReleasedWithoutAContext<OverlayStand>(tool), "CDC::Rectangle C/uiMaskWndOverlay 804");
    }
    for (const int tool : {2, 3, 6, 7, 11, 12, 13, 15, 16, 17})
    {
        EXPECT_EQ(ReleasedWithoutAContext<PlainStand>(tool), "nothing") << tool;
        EXPECT_EQ(ReleasedWithoutAContext<OverlayStand>(tool), "nothing") << tool;
    }
}

TEST_F(MaskMouse, NewSizeWithoutAHandleChangesNothing)
{
    stand.Drag(10, 12, 30, 28);
    const auto drawn = stand.Screen();
    stand.window.SetNewSize({1, 1});
    EXPECT_EQ(stand.window.GetDragMarker(), KvSurroundRect::NoMarkerId);
    EXPECT_EQ(FigureOf(stand), KvTRectangle<short>(10, 12, 30, 28));
    EXPECT_EQ(stand.Screen(), drawn);
}
