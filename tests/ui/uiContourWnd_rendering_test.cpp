// What the editor draws: sizes, colours, labels, handles, markers, and pictures of each figure kind.
#include "tests/ui/contour_editor.h"

#include <algorithm>
#include <cmath>
#include <string>

using namespace KvN;
using namespace kv::test;

namespace
{

using Wnd = KvContourWnd;

constexpr std::uint32_t included = 0xFF00FF; // as shown: 0xRRGGBB
constexpr std::uint32_t excluded = 0x00FFFF;
constexpr std::uint32_t cornerFill = 0x00FF40;
constexpr std::uint32_t edgeFill = 0xC4C4FF;

TEST_F(EditorDrawing, LineWidthsFollowTheClientSizeOnly)
{
    EXPECT_DOUBLE_EQ(editor->GetZoomFactorFittedToWindow(view), 1.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveLineWidth(view), 2.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveThumbSize(view), 6.0);
    view->SetZoomFactor(2.0);
    EXPECT_DOUBLE_EQ(editor->GetZoomFactorFittedToWindow(view), 2.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveLineWidth(view), 1.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveLineWidthThumb(view), 1.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveThumbSize(view), 3.0);
    view->SetZoomFactor(0.5);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveLineWidth(view), 4.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveThumbSize(view), 12.0);
    editor->SetLineWidth(1);
    editor->SetLineWidthThumb(3);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveLineWidth(view), 2.0);
    EXPECT_DOUBLE_EQ(editor->GetEffectiveLineWidthThumb(view), 6.0);
}

TEST_F(EditorDrawing, SizesWithoutAViewOrAnImageAreThoseOfZoomOne)
{
    EXPECT_EQ(editor->GetZoomFactorFittedToWindow(nullptr), 1.0);
    EXPECT_EQ(editor->GetEffectiveZoomFactor(nullptr), 1.0);
    EXPECT_EQ(editor->AOIWndFontHeight(nullptr), 28.0);
    view->SetAOI(nullptr);
    EXPECT_EQ(editor->GetZoomFactorFittedToWindow(view), 1.0);
}

TEST_F(EditorDrawing, FontHeightFollowsTheZoomAndIsNeverBelow28)
{
    const auto heightAt = [&](double zoom)
    {
        view->SetZoomFactor(zoom);
        return editor->AOIWndFontHeight(view);
    };
    EXPECT_DOUBLE_EQ(heightAt(1.0), 28.0);
    EXPECT_DOUBLE_EQ(heightAt(2.0), 56.0);
    EXPECT_DOUBLE_EQ(heightAt(0.75), 28.0);
    EXPECT_DOUBLE_EQ(heightAt(0.25), 56.0);
    EXPECT_DOUBLE_EQ(heightAt(0.05), 140.0);
    const LOGFONTW font = editor->CreateAOIWndLogFont(view);
    EXPECT_EQ(font.lfHeight, 140);
    EXPECT_EQ(font.lfWeight, 400);
    EXPECT_EQ(font.lfPitchAndFamily, 0x20);
    EXPECT_EQ(std::wstring(font.lfFaceName), L"Arial");
}

TEST_F(EditorDrawing, ZoomOfAFittedImageIsThatOfItsHeight)
{
    view->FitAOIToWindowOn();
    EXPECT_DOUBLE_EQ(editor->GetEffectiveZoomFactor(view), 2.0);
}

TEST_F(EditorDrawing, ContourFollowsTheColoursUnlessItHasItsOwn)
{
    KvContour out = Rect(60, 10, 90, 40);
    out.Exclude() = 1;
    KvContour own = Rect(110, 10, 140, 40);
    own.Exclude() = 1;
    own.Color() = RGB(1, 200, 3);
    Give({Rect(10, 10, 40, 40), out, own});
    EXPECT_EQ(PixelAt(10, 25), included);
    EXPECT_EQ(PixelAt(60, 25), excluded);
    EXPECT_EQ(PixelAt(110, 25), 0x01C803u);
    editor->SetColor(RGB(255, 0, 0));
    editor->SetColorExcluded(RGB(0, 0, 255));
    EXPECT_EQ(PixelAt(10, 25), 0xFF0000u);
    EXPECT_EQ(PixelAt(60, 25), 0x0000FFu);
    EXPECT_EQ(PixelAt(110, 25), 0x01C803u);
}

TEST_F(EditorDrawing, ReadOnlyAndInvalidContoursShowNowhere)
{
    KvContour locked = Rect(10, 10, 40, 40);
    locked.ReadOnly() = 1;
    locked.Description() = KvString("Text");
    Give({locked, Shape(KvContour::ePolygon, {{60, 60}, {90, 60}}), Shape(KvContour::eRectangle, {{9, 9}, {50, 9}})});
    editor->SelectContour(0);
    Repaint();
    EXPECT_EQ(Count(included), 0);
    EXPECT_EQ(Count(0), 200 * 150);
}

TEST_F(EditorDrawing, LaterSequenceNumbersLieOnTop)
{
    KvContour first = Rect(10, 10, 40, 40);
    first.SequenceID() = 5;
    first.Color() = RGB(255, 0, 0);
    KvContour second = first;
    second.SequenceID() = 1;
    second.Color() = RGB(0, 255, 0);
    Give({first, second});
    EXPECT_EQ(PixelAt(10, 25), 0xFF0000u);
}

TEST_F(EditorDrawing, DescriptionIsDrawnInARing)
{
    KvContour named = Rect(10, 10, 190, 140);
    Give({named});
    const long plain = Count(included);
    named.Description() = KvString("A1");
    Give({named});
    const long labelled = Count(included);
    EXPECT_GT(labelled, plain + 50);

    // The ring's diameter is the diagonal of the text.
    CFont font;
    const LOGFONTW logFont = editor->CreateAOIWndLogFont(view);
    font.CreateFontIndirect(&logFont);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CFont* former = dc.SelectObject(&font);
    const CSize extent = dc.GetTextExtent("A1");
    dc.SelectObject(former);
    const int radius = static_cast<int>(std::hypot(extent.cx, extent.cy) * 0.5 + 0.5);
    EXPECT_TRUE(PixelAt(100 - radius, 75) == included || PixelAt(100 - radius + 1, 75) == included);
}

TEST_F(EditorDrawing, CircleShowsNoLabel)
{
    KvContour circle;
    circle.MakeCircle(100, 75, 60);
    Give({circle});
    const long plain = Count(included);
    circle.Description() = KvString("A1");
    Give({circle});
    EXPECT_EQ(Count(included), plain);
}

TEST_F(EditorDrawing, HandlesBelongToTheSelectedContour)
{
    Give({Rect(40, 40, 140, 100)});
    Repaint();
    EXPECT_EQ(Count(cornerFill), 0);
    editor->SelectContour(0);
    Repaint();
    EXPECT_EQ(PixelAt(40, 40), cornerFill);
    EXPECT_EQ(PixelAt(140, 100), cornerFill);
    EXPECT_EQ(PixelAt(90, 40), edgeFill);
    EXPECT_EQ(PixelAt(140, 70), edgeFill);
    editor->SetShowThumbsOff();
    EXPECT_EQ(PixelAt(40, 40), cornerFill); // no repaint of its own
    Repaint();
    EXPECT_EQ(Count(cornerFill), 0);
    Drag({{140, 100}, {150, 110}}); // and yet they catch the mouse
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {40, 110}, {150, 110}, {150, 40}}));
}

TEST_F(EditorDrawing, PolylineWidthRepaintsWhetherOrNotItChangesAnything)
{
    KvContour line = Shape(KvContour::ePolyline, {{40, 75}, {160, 75}});
    line.LineWidth() = 7;
    Give({line});
    for (const unsigned short width : {7, 8})
        for (const long selected : {0L, -1L})
        {
            Give({line});
            editor->SelectContour(selected);
            editor->SetColor(RGB(255, 0, 0));
            EXPECT_EQ(PixelAt(75, 75), 0xFF0000u);
            Contour(0).Color() = RGB(0, 0, 255);
            EXPECT_EQ(PixelAt(75, 75), 0xFF0000u);
            editor->SetPolylineWidth(width);
            EXPECT_EQ(PixelAt(75, 75), 0x0000FFu) << width << " " << selected;
        }
}

TEST_F(EditorDrawing, LastStepOfAFigureBeingDrawnStaysUntilTheNextRepaint)
{
    editor->SetTool(Wnd::ToolRect);
    Press(20, 20);
    Move(60, 60);
    Move(100, 100);
    EXPECT_EQ(PixelAt(100, 50), included);
    EXPECT_EQ(PixelAt(60, 40), included);
    Move(140, 140);
    EXPECT_EQ(PixelAt(100, 50), included);
    EXPECT_NE(PixelAt(60, 40), included); // only the last one
    Repaint();
    EXPECT_EQ(PixelAt(140, 50), included);
    EXPECT_NE(PixelAt(100, 50), included);
    Release(140, 140);
}

TEST_F(EditorDrawing, LastRubberBandStaysUntilTheNextRepaint)
{
    editor->SetTool(Wnd::ToolPolyline);
    Click(20, 20);
    Move(20, 100);
    Move(100, 20);
    EXPECT_EQ(PixelAt(60, 20), included);
    EXPECT_EQ(PixelAt(20, 60), included);
    Repaint();
    EXPECT_EQ(PixelAt(60, 20), included);
    EXPECT_NE(PixelAt(20, 60), included);
}

TEST_F(EditorDrawing, DraggedContourShowsItsPresentPlaceOnly)
{
    Give({Rect(20, 20, 60, 60)});
    Press(40, 20);
    Move(80, 60);
    Move(120, 70);
    const auto shown = Shown().pixels;
    Repaint();
    EXPECT_EQ(Shown().pixels, shown);
    Release(120, 70);
}

TEST_F(EditorDrawing, DrawingToolsShowNoHandles)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SetTool(Wnd::ToolRect);
    editor->SelectContour(0);
    Repaint();
    EXPECT_EQ(Count(cornerFill), 0);
}

TEST_F(EditorDrawing, PointToolShowsThePointsOfTheSelectedContour)
{
    Give({Shape(KvContour::ePolygon, {{40, 40}, {40, 100}, {140, 100}})});
    editor->SelectContour(0);
    editor->SetTool(Wnd::ToolEditPoints);
    Repaint();
    EXPECT_EQ(PixelAt(40, 100), 0u);
    EXPECT_GT(Count(0xFFFFFF), 20);
    EXPECT_EQ(Count(cornerFill), 0);
}

TEST_F(EditorDrawing, DragShowsTheContourAndTheDashedFigure)
{
    Give({Rect(40, 40, 140, 100)});
    Press(60, 40);
    Move(75, 60);
    EXPECT_EQ(PixelAt(40, 60), included);
    int on = 0, off = 0;
    for (int y = 65; y < 115; ++y)
        (PixelAt(55, y) == included ? on : off) += 1;
    EXPECT_GT(on, 5);
    EXPECT_GT(off, 5);
    Release(75, 60);
}

TEST_F(EditorDrawing, PolylineIsDrawnAtItsTrueWidth)
{
    editor->SetPolylineWidth(10);
    editor->SetTool(Wnd::ToolPolyline);
    Click(20, 50);
    Move(120, 50);
    EXPECT_EQ(PixelAt(70, 46), included);
    EXPECT_EQ(PixelAt(70, 53), included);
    editor->SetUsePolylineWidthOff();
    Move(121, 50);
    EXPECT_NE(PixelAt(70, 46), included);
    Double(121, 50);
    EXPECT_NE(PixelAt(40, 46), included);
    EXPECT_EQ(PixelAt(40, 50), included);
}

TEST_F(EditorDrawing, DirectionShowsAtTheEndsOfPolylines)
{
    Give({Shape(KvContour::ePolyline, {{40, 75}, {160, 75}})});
    Repaint();
    const long plain = Count(included);
    editor->SetShowPolylineDirectionOn();
    Repaint();
    EXPECT_GT(Count(included), plain + 100);
    EXPECT_EQ(PixelAt(146, 73), included); // within the dart, which is filled
    EXPECT_EQ(PixelAt(30, 85), included);  // on the chevron
}

TEST_F(EditorDrawing, MarkersGiveWayToThoseOfAFigureInProgress)
{
    KvSymbolMarker* marker = editor->GetSymbolMarkerList().AddMarker(1, KvString("m"));
    marker->IndexPosition() = 60;
    marker->Color() = RGB(0, 255, 0);
    Give({Shape(KvContour::ePolyline, {{40, 75}, {160, 75}})});
    EXPECT_EQ(PixelAt(100, 70), 0x00FF00u);
    editor->SetTool(Wnd::ToolRect);
    Press(10, 10);
    Move(30, 30);
    EXPECT_NE(PixelAt(100, 70), 0x00FF00u);
    Release(30, 30);
    EXPECT_EQ(PixelAt(100, 70), 0x00FF00u);
}

TEST_F(EditorDrawing, ContextGetsItsObjectsAndModesBack)
{
    KvContour named = Rect(10, 10, 90, 90);
    named.Description() = KvString("A1");
    Give({named});
    editor->SelectContour(0);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HGDIOBJ pen = ::GetCurrentObject(dc.m_hDC, OBJ_PEN);
    const HGDIOBJ brush = ::GetCurrentObject(dc.m_hDC, OBJ_BRUSH);
    const HGDIOBJ font = ::GetCurrentObject(dc.m_hDC, OBJ_FONT);
    dc.SetROP2(R2_XORPEN);
    dc.SetTextColor(RGB(9, 8, 7));
    dc.SetTextAlign(TA_RIGHT);
    dc.SetBkMode(OPAQUE);
    editor->DisplayUserDrawnRegions(&dc, view);
    EXPECT_EQ(::GetCurrentObject(dc.m_hDC, OBJ_PEN), pen);
    EXPECT_EQ(::GetCurrentObject(dc.m_hDC, OBJ_BRUSH), brush);
    EXPECT_EQ(::GetCurrentObject(dc.m_hDC, OBJ_FONT), font);
    EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
    EXPECT_EQ(dc.GetTextColor(), RGB(9, 8, 7));
    EXPECT_EQ(dc.GetTextAlign(), UINT{TA_RIGHT});
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(dc.GetGraphicsMode(), GM_ADVANCED); // left behind on purpose
}

} // namespace
