// Pictures of each figure kind: plain, selected, dragged, rotated, and while it
// is drawn.
#include "tests/ui/contour_editor.h"
#include "tests/ui/golden.h"

#include <algorithm>
#include <string>
#include <tuple>

using namespace KvN;
using namespace kv::test;

namespace
{

using Wnd = KvContourWnd;

struct Kind
{
    std::string name;
    KvContour contour;
    std::pair<int, int> body; // a point on the outline, off the handles
};

std::vector<Kind> Kinds()
{
    KvContour square, ellipse, circle;
    square.MakeSquareFromDiagonal(20, 12, 68, 60);
    ellipse.MakeEllipseFromDiagonal(12, 16, 84, 56);
    circle.MakeCircle(48, 36, 24);
    return {{"rectangle", Rect(12, 16, 84, 56), {30, 16}},
            {"polygon", Shape(KvContour::ePolygon, {{14, 14}, {30, 58}, {82, 48}, {50, 36}}), {22, 36}},
            {"polyline", Shape(KvContour::ePolyline, {{14, 14}, {30, 58}, {82, 48}, {60, 20}}), {22, 36}},
            {"square", square, {32, 12}},
            {"ellipse", ellipse, {23, 22}},
            {"circle", circle, {48, 12}}};
}

class EditorPictures : public EditorDrawing, public ::testing::WithParamInterface<std::tuple<int, std::string, double>>
{
};

TEST_P(EditorPictures, FigureLooksAsCommitted)
{
    const auto& [index, state, zoom] = GetParam();
    Kind kind = Kinds()[static_cast<size_t>(index)];
    Open(96, 72, 400, 300, zoom);
    for (int y = 0; y < 72; ++y)
        std::fill_n(aoi->GetRowPointer(y), 96, static_cast<unsigned char>(2 * y + 40));
    editor->SetCatchSize(4);
    editor->SetShowPolylineDirectionOn();
    editor->SetPolylineWidth(5);
    if (state == "rotated")
        kind.contour.Transform(KvVec2d(48, 36), KvVec2d(0, 0), 0.4);
    Give({kind.contour});
    if (state == "selected" || state == "rotated")
        editor->SelectContour(0);
    if (state == "dragged")
    {
        Press(kind.body.first, kind.body.second);
        EXPECT_TRUE(editor->IsEditing());
        Move(kind.body.first + 8, kind.body.second + 8);
    }
    else
    {
        Repaint();
    }
    std::string name = "contour_" + kind.name + "_" + state + "_zoom" + (zoom < 1 ? "05" : zoom > 1 ? "4" : "1");
    EXPECT_TRUE(IsGolden(Shown(), name));
    if (state == "dragged")
        Release(kind.body.first + 8, kind.body.second + 8);
}

INSTANTIATE_TEST_SUITE_P(AllKinds, EditorPictures,
                         ::testing::Combine(::testing::Range(0, 6),
                                            ::testing::Values("plain", "selected", "dragged", "rotated"),
                                            ::testing::Values(0.5, 1.0, 4.0)));

class EditorFigurePictures : public EditorDrawing, public ::testing::WithParamInterface<double>
{
protected:
    EditorFigurePictures()
    {
        Open(96, 72, 400, 300, GetParam());
        editor->SetCatchSize(4);
        editor->SetShowPolylineDirectionOn();
    }
    std::string Named(const std::string& name) const
    {
        return "figure_" + name + "_zoom" + (GetParam() < 1 ? "05" : GetParam() > 1 ? "4" : "1");
    }
};

TEST_P(EditorFigurePictures, PolylineBeingDrawn)
{
    KvSymbolMarker* marker = editor->GetSymbolMarkerList().AddMarker(1, KvString("m"));
    marker->IndexPosition() = 20;
    marker->Color() = RGB(255, 255, 0);
    editor->SetPolylineWidth(3);
    editor->SetTool(Wnd::ToolPolyline);
    Click(14, 14);
    Click(30, 58);
    Move(80, 40);
    EXPECT_TRUE(IsGolden(Shown(), Named("polyline_drawn")));
}

TEST_P(EditorFigurePictures, PolygonBeingDrawn)
{
    editor->SetTool(Wnd::ToolPolygonExcluded);
    Click(14, 14);
    Click(30, 58);
    Move(80, 40);
    EXPECT_TRUE(IsGolden(Shown(), Named("polygon_drawn")));
}

TEST_P(EditorFigurePictures, EllipseBeingDrawn)
{
    editor->SetTool(Wnd::ToolEllipse);
    Press(14, 14);
    Move(80, 50);
    EXPECT_TRUE(IsGolden(Shown(), Named("ellipse_drawn")));
    Release(80, 50);
}

TEST_P(EditorFigurePictures, EllipseBeingTurned)
{
    KvContour ellipse;
    ellipse.MakeEllipseFromDiagonal(12, 16, 84, 56);
    Give({ellipse});
    editor->SelectContour(0);
    Move(84, 56);
    const Held ctrl(VK_CONTROL);
    Press(84, 56);
    Move(66, 70);
    EXPECT_TRUE(editor->IsRotating());
    EXPECT_TRUE(IsGolden(Shown(), Named("ellipse_turned")));
    Release(66, 70);
}

TEST_P(EditorFigurePictures, PointBeingMoved)
{
    Give({Shape(KvContour::ePolygon, {{14, 14}, {30, 58}, {82, 48}, {60, 14}})});
    editor->SelectContour(0);
    editor->SetTool(Wnd::ToolEditPoints);
    Press(30, 58);
    Move(44, 66);
    EXPECT_TRUE(IsGolden(Shown(), Named("point_moved")));
    Release(44, 66);
}

TEST_P(EditorFigurePictures, PointBeingPutIn)
{
    Give({Shape(KvContour::ePolygon, {{14, 14}, {30, 58}, {82, 48}, {60, 14}})});
    editor->SelectContour(0);
    editor->SetTool(Wnd::ToolEditPoints);
    Press(56, 53);
    Move(56, 66);
    EXPECT_TRUE(IsGolden(Shown(), Named("point_put_in")));
    Release(56, 66);
}

TEST_P(EditorFigurePictures, EndOfAPolylineBeingMoved)
{
    Give({Shape(KvContour::ePolyline, {{14, 14}, {30, 58}, {82, 48}})});
    editor->SelectContour(0);
    editor->SetTool(Wnd::ToolEditPoints);
    Press(82, 48);
    Move(84, 20);
    EXPECT_TRUE(IsGolden(Shown(), Named("polyline_end_moved")));
    Release(84, 20);
}

INSTANTIATE_TEST_SUITE_P(AtZooms, EditorFigurePictures, ::testing::Values(0.5, 1.0, 4.0));

} // namespace
