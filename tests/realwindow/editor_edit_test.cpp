// What is done to figures with a real mouse and keyboard: selecting, moving, stretching, deleting, taking back; focus
// and capture.
#include "tests/realwindow/editor.h"

namespace kv::realwindow
{
namespace
{
using KvN::KvContour;

class RealEditing : public EditorDesk
{
protected:
    void Drag(QPoint from, QPoint to) const { screen->Drag(P(from.x(), from.y()), P(to.x(), to.y())); }
    void Click(QPoint at) const { screen->Click(P(at.x(), at.y())); }
};
} // namespace

TEST_F(RealEditing, ADragOnTheOutlineMovesTheFigure)
{
    Draw("F5", {50, 50}, {150, 110});
    Drag({75, 50}, {95, 80});
    ExpectSaved({Rectangle(70, 80, 170, 140)});
}

TEST_F(RealEditing, HandlesStretchTheFigureAndTheOppositeSideStays)
{
    Draw("F5", {50, 50}, {150, 110});
    Drag({150, 110}, {190, 150}); // a corner
    ExpectSaved({Rectangle(50, 50, 190, 150)});
    Drag({50, 100}, {30, 100}); // an edge
    ExpectSaved({Rectangle(30, 50, 190, 150)});
}

TEST_F(RealEditing, APointOfAPolygonFollowsTheMouse)
{
    screen->Keys({"F7"});
    Click({50, 50});
    Click({50, 200});
    screen->DoubleClick(P(200, 200));
    screen->Keys({"F3"});
    Drag({50, 200}, {20, 250});
    ExpectSaved({{KvContour::ePolygon, {{50, 50}, {20, 250}, {200, 200}}}});
}

TEST_F(RealEditing, DeleteKeyDeletesTheSelectedFigure)
{
    Draw("F5", {20, 30}, {120, 90});
    Draw("F6", {200, 30}, {300, 90});
    Click({20, 60}); // selects the rectangle
    screen->Keys({"Delete"});
    ExpectSaved({{KvContour::eEllipse, {{250, 60}, {300, 60}, {250, 90}}}});
}

TEST_F(RealEditing, UndoAndRedoByTheirKeys)
{
    Draw("F5", {20, 30}, {120, 90});
    Drag({45, 30}, {65, 50});
    screen->Keys({"ctrl+z"});
    ExpectSaved({Rectangle(20, 30, 120, 90)});
    screen->Keys({"ctrl+z"});
    ExpectSaved({});
    screen->Keys({"ctrl+y", "ctrl+y"});
    ExpectSaved({Rectangle(40, 50, 140, 110)});
}

TEST_F(RealEditing, EscapeLeavesTheFigureAsItWas)
{
    Draw("F5", {50, 50}, {150, 110});
    screen->Move(P(75, 50));
    screen->Press();
    screen->Move(P(90, 90));
    screen->Keys({"Escape"});
    screen->Move(P(120, 140));
    screen->Release();
    ExpectSaved({Rectangle(50, 50, 150, 110)});
}

TEST_F(RealEditing, ADragGoesOnOutsideTheWindow)
{
    Draw("F5", {100, 100}, {200, 160});
    const QPoint outside(XServer::width - 2, XServer::height - 2);
    ASSERT_FALSE(QRect(0, 0, 1200, 800).contains(outside));
    const QPoint grip = P(200, 160);
    screen->Drag(grip, outside);
    const QPoint reached = QPoint(200, 160) + outside - grip;
    ExpectSaved({Rectangle(100, 100, reached.x(), reached.y())});
    // The mouse is free again: the same goes on with the next figure.
    Draw("F6", {20, 30}, {80, 70});
    ExpectSaved({Rectangle(100, 100, reached.x(), reached.y()), {KvContour::eEllipse, {{50, 50}, {80, 50}, {50, 70}}}});
}

TEST_F(RealEditing, TheMouseOverTheImageTakesTheKeyboardBackFromTheList)
{
    Draw("F5", {20, 30}, {120, 90});
    screen->Click({900, 500}); // into the list, below its rows
    screen->Move(P(200, 200)); // only moves
    screen->Keys({"Delete"});  // the editor's key
    ExpectSaved({});
}

TEST_F(RealEditing, TabSelectsTheNextFigureUnderThePointer)
{
    Draw("F5", {20, 20}, {220, 200});
    Draw("F5", {60, 20}, {180, 100});
    screen->Move(P(120, 21));        // on the upper sides of both
    screen->Keys({"Tab", "Delete"}); // from the second on to the first
    ExpectSaved({Rectangle(60, 20, 180, 100)});
}

TEST_F(RealEditing, InvertingFlipsTheSelectedFigure)
{
    Draw("F5", {20, 30}, {120, 90});
    screen->Keys({"ctrl+i"});
    Figure wanted = Rectangle(20, 30, 120, 90);
    wanted.excluded = true;
    ExpectSaved({wanted});
}

TEST_F(RealEditing, AFigureIsCopiedFromOneWorkbenchToAnother)
{
    Draw("F5", {20, 30}, {120, 90});
    screen->Keys({"ctrl+c"});
    const QString other = MakeImage("other.png", {350, 250});
    Start(KV_WORKBENCH, {other});
    screen->Focus("other.png");
    WaitFor("the other image", [&] { return Shows(349, 249) && !Shows(399, 299); });
    screen->Keys({"ctrl+v"});
    image = other;
    ExpectSaved({Rectangle(20, 30, 120, 90)});
}

TEST_F(RealEditing, AKilledWorkbenchOffersItsContoursAgain)
{
    Draw("F5", {20, 30}, {120, 90});
    const QString autosave = Path(".local/state/kv/autosave");
    WaitFor("the autosave file", [&] { return !QDir(autosave).entryList({"*.xml"}).isEmpty(); });
    KillAll();
    Start(KV_WORKBENCH, {image});
    Answer("alt+j");
    At(399, 299);
    ExpectSaved({Rectangle(20, 30, 120, 90)});
}

} // namespace kv::realwindow
