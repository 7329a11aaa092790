// Each kind of figure drawn with a real mouse, and read from the saved file.
#include "tests/realwindow/editor.h"

namespace kv::realwindow
{
namespace
{
using KvN::KvContour;

class RealDrawing : public EditorDesk
{
protected:
    void DrawWithShift(const QString& toolKey, QPoint from, QPoint to) const
    {
        screen->Keys({toolKey});
        screen->KeyDown("shift");
        screen->Drag(P(from.x(), from.y()), P(to.x(), to.y()));
        screen->KeyUp("shift");
    }

    // Clicks at all points but the last, which gets a double click.
    void Click(const QString& toolKey, const std::vector<QPoint>& points) const
    {
        screen->Keys({toolKey});
        for (size_t i = 0; i + 1 < points.size(); ++i)
            screen->Click(P(points[i].x(), points[i].y()));
        screen->DoubleClick(P(points.back().x(), points.back().y()));
    }

    // Pulls a handle with a key held.
    void DragWith(const QString& key, QPoint from, QPoint to) const
    {
        screen->KeyDown(key);
        screen->Drag(P(from.x(), from.y()), P(to.x(), to.y()));
        screen->KeyUp(key);
    }

    // The leftmost one in a part of the screen; null if there is none.
    QPoint FirstMagenta(QRect part) const
    {
        const QImage shot = screen->Shot();
        for (int x = part.left(); x <= part.right(); ++x)
        {
            for (int y = part.top(); y <= part.bottom(); ++y)
            {
                const QColor shown = shot.pixelColor(x, y);
                if (shown.red() > 150 && shown.green() < 60 && shown.blue() > 150)
                    return {x, y};
            }
        }
        return {};
    }
};

Figure Excluded(Figure figure)
{
    figure.excluded = true;
    return figure;
}
} // namespace

TEST_F(RealDrawing, Rectangle)
{
    Draw("F5", {20, 30}, {120, 90});
    ExpectSaved({Rectangle(20, 30, 120, 90)});
}

TEST_F(RealDrawing, SquareByShift)
{
    DrawWithShift("F5", {100, 60}, {160, 100});
    ExpectSaved({{KvContour::eSquare, {{100, 60}, {100, 120}, {160, 120}, {160, 60}}}});
}

TEST_F(RealDrawing, Ellipse)
{
    Draw("F6", {20, 30}, {80, 70});
    ExpectSaved({{KvContour::eEllipse, {{50, 50}, {80, 50}, {50, 70}}}});
}

TEST_F(RealDrawing, CircleByShift)
{
    DrawWithShift("F6", {20, 30}, {80, 70});
    ExpectSaved({{KvContour::eCircle, {{50, 60}, {80, 60}}}});
}

TEST_F(RealDrawing, PolygonByClicksAndADoubleClick)
{
    Click("F7", {{20, 20}, {20, 180}, {180, 180}, {240, 100}});
    ExpectSaved({{KvContour::ePolygon, {{20, 20}, {20, 180}, {180, 180}, {240, 100}}}});
}

TEST_F(RealDrawing, PolylineByClicksAndADoubleClick)
{
    Click("F8", {{220, 80}, {20, 20}, {60, 220}});
    ExpectSaved({{KvContour::ePolyline, {{220, 80}, {20, 20}, {60, 220}}}});
}

TEST_F(RealDrawing, ExcludedFiguresOfEachTool)
{
    Draw("shift+F5", {20, 30}, {60, 80});
    Draw("shift+F6", {120, 30}, {180, 70});
    Click("shift+F7", {{220, 20}, {220, 80}, {280, 80}});
    Click("shift+F8", {{20, 200}, {120, 220}, {220, 200}});
    ExpectSaved({Excluded(Rectangle(20, 30, 60, 80)),
                 Excluded({KvContour::eEllipse, {{150, 50}, {180, 50}, {150, 70}}}),
                 Excluded({KvContour::ePolygon, {{220, 20}, {220, 80}, {280, 80}}}),
                 Excluded({KvContour::ePolyline, {{20, 200}, {120, 220}, {220, 200}}})});
}

TEST_F(RealDrawing, RectangleIsTurnedAtACornerWithCtrl)
{
    Draw("F5", {50, 50}, {150, 110});
    DragWith("ctrl", {150, 50}, {130, 130});
    ExpectSaved({{KvContour::eRectangle, {{130, 30}, {70, 30}, {70, 130}, {130, 130}}}});
}

TEST_F(RealDrawing, EllipseIsTurnedAtACornerWithAlt)
{
    Draw("F6", {50, 50}, {150, 110});
    DragWith("alt", {150, 50}, {130, 130});
    ExpectSaved({{KvContour::eEllipse, {{100, 80}, {100, 130}, {70, 80}}}});
}

TEST_F(RealDrawing, FullFrame)
{
    screen->Keys({"ctrl+b"});
    ExpectSaved({Rectangle(0, 0, 400, 300)});
}

TEST_F(RealDrawing, InvertingAllPutsAFrameUnderTheRest)
{
    Draw("F5", {20, 30}, {120, 90});
    screen->Keys({"ctrl+shift+i"});
    ExpectSaved({Excluded(Rectangle(20, 30, 120, 90)), Rectangle(0, 0, 400, 300)});
}

TEST_F(RealDrawing, DeletingAllAsksFirst)
{
    Draw("F5", {20, 30}, {120, 90});
    Draw("F6", {150, 30}, {250, 90});
    screen->Keys({"ctrl+shift+Delete"});
    Answer("alt+j"); // "Ja"
    ExpectSaved({});
}

TEST_F(RealDrawing, AtADoubledZoomTheMouseMeetsTheSamePixels)
{
    screen->Click(P(200, 150));
    screen->Keys({"Menu", "Down", "Down", "Right", "Down", "Down", "Down", "Return"}); // "Zoom 200%"
    ExpectZoom(2.0, 100, 100);
    screen->Keys({"F5"});
    const QPoint from = At(130, 140);
    const QPoint to = At(190, 180);
    screen->Drag(from, to);
    ExpectSaved({Rectangle(130, 140, 190, 180)});
}

TEST_F(RealDrawing, ToolIsTakenFromTheToolbarWithTheMouse)
{
    QPoint button;
    WaitFor("the toolbar", [&] { return !(button = FirstMagenta({0, 20, 700, 40})).isNull(); });
    button += QPoint(8, 0); // it belongs to the rectangle's picture
    screen->Click(button);
    screen->Drag(P(20, 30), P(120, 90));
    ExpectSaved({Rectangle(20, 30, 120, 90)});
}

} // namespace kv::realwindow
