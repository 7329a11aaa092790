// A screen of twice the scale: image pixels stay square and sharp, and the mouse meets them.
#include "tests/realwindow/coordinate_image.h"
#include "tests/realwindow/editor.h"

namespace kv::realwindow
{
namespace
{
class RealScale : public EditorDesk
{
protected:
    int Scale() const override { return 2; }
};
} // namespace

TEST_F(RealScale, EveryImagePixelIsASharpSquare)
{
    At(399, 299); // the last one to be drawn
    const QImage shot = screen->Shot();
    for (const QPoint pixel : {QPoint(0, 0), QPoint(17, 5), QPoint(100, 60), QPoint(399, 299)})
    {
        const QRect shown = ScreenPixels(shot, pixel);
        EXPECT_EQ(shown.size(), QSize(2, 2)) << pixel.x() << ", " << pixel.y();
        EXPECT_EQ(ImagePixel(shot.pixel(shown.topLeft())), ImagePixel(shot.pixel(shown.bottomRight())));
    }
}

TEST_F(RealScale, TheMouseDrawsAndStretchesAtTheSamePixels)
{
    Draw("F5", {20, 30}, {120, 90});
    ExpectSaved({Rectangle(20, 30, 120, 90)});
    screen->Drag(P(120, 90), P(160, 130));
    ExpectSaved({Rectangle(20, 30, 160, 130)});
}

TEST_F(RealScale, TheContextMenuOpensAtThePointer)
{
    const QPoint pointer = At(100, 60);
    screen->Click(pointer, 3);
    EXPECT_LT((OpenedMenu().topLeft() - pointer).manhattanLength(), 16);
    screen->Keys({"Down", "Down", "Right", "Down", "Down", "Down", "Return"});
    ExpectZoom(2.0);
}

} // namespace kv::realwindow
