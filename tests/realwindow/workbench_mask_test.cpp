// The workbench's way to a mask with a real mouse: the dialog by its key, a figure, and the saved file.
#include "tests/realwindow/workbench.h"

namespace kv::realwindow
{
namespace
{
class RealMaskMenu : public WorkbenchDesk
{
protected:
    // The painted rectangle and nothing else.
    static void ExpectPainted(const QString& mask)
    {
        const QImage saved(mask);
        ASSERT_EQ(saved.size(), QSize(240, 160));
        for (int y = 0; y < 160; ++y)
        {
            for (int x = 0; x < 240; ++x)
            {
                const bool inside = x >= 20 && x < 90 && y >= 30 && y < 70;
                ASSERT_EQ(qGray(saved.pixel(x, y)), inside ? 128 : 0) << x << ", " << y;
            }
        }
    }
    // Opens the dialog and paints that rectangle.
    void Paint()
    {
        HideCorner();
        screen->Keys({"F9"});
        screen->Focus("^Maskieren$");
        const QPoint corner = At(0, 0); // at the original size
        screen->Drag(corner + QPoint(20, 30), corner + QPoint(90, 70));
        screen->Keys({"Return"}); // OK takes what is placed
        WaitFor("the dialog's end", [&] { return screen->Window("^Maskieren$") == 0; });
        screen->Focus("part.png");
    }
    // Saves the mask under the proposed name.
    QString SaveMask(const QString& image)
    {
        screen->Keys({"ctrl+alt+s"});
        screen->Focus("speichern"); // the choice of a file
        screen->Keys({"Return"});
        const QString path = image + ".mask.png";
        WaitFor("the mask's file", [&] { return QFile::exists(path); });
        return path;
    }
    QStringList KeptMasks() const { return QDir(Path(".local/state/kv/autosave")).entryList({"*.mask.png"}); }

private:
    // Scrolls the enlarged image until the window no longer shows its corner: then only a dialog does.
    void HideCorner() const
    {
        screen->Move(At(0, 0));
        screen->Keys(QStringList(10, "ctrl+plus"));
        screen->Wheel(-3);
        WaitFor("the corner to leave", [&] { return !Shows(0, 0); });
    }
};
} // namespace

TEST_F(RealMaskMenu, AMaskIsPaintedInTheDialogAndSaved)
{
    const QString image = MakeImage("part.png", {240, 160});
    OpenAtOriginalSize(image);
    Paint();
    ExpectPainted(SaveMask(image));
}

TEST_F(RealMaskMenu, AMaskSurvivesAKillOnceItIsKept)
{
    const QString image = MakeImage("part.png", {240, 160});
    OpenAtOriginalSize(image);
    Paint();
    WaitFor("the kept mask", [&] { return !KeptMasks().isEmpty(); });
    KillAll();
    OpenWorkbench({});
    Answer("alt+j");
    At(0, 0);
    ExpectPainted(SaveMask(image));
    WaitFor("the end of what is kept", [&] { return KeptMasks().isEmpty(); });
}

TEST_F(RealMaskMenu, AClosedDialogGivesTheKeyboardBack)
{
    OpenAtOriginalSize(MakeImage());
    screen->Keys({"F9"});
    screen->Focus("^Maskieren$");
    screen->Keys({"Escape"});
    WaitFor("the dialog's end", [&] { return screen->Window("^Maskieren$") == 0; });
    screen->Focus("part.png");
    screen->Keys({"ctrl+plus"});
    ExpectZoom(1.25);
}

} // namespace kv::realwindow
