// The other programs on a display: the player that shows its windows, and the example of a host.
#include "tests/realwindow/desk.h"

namespace kv::realwindow
{
namespace
{
class RealPrograms : public Desk
{
protected:
    // How many pixels of the screen have the colour of included figures.
    int Magenta() const
    {
        const QImage shot = screen->Shot();
        int count = 0;
        for (int y = 0; y < shot.height(); ++y)
        {
            const auto* row = reinterpret_cast<const QRgb*>(shot.constScanLine(y));
            count += static_cast<int>(
                std::count_if(row, row + shot.width(), [](QRgb pixel) { return (pixel & 0xFFFFFF) == 0xFF00FF; }));
        }
        return count;
    }
};

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file " + path.toUtf8());
}
} // namespace

TEST_F(RealPrograms, AShownSessionPrintsAndSavesWhatAHiddenOneDoes)
{
    const QString session = KV_SOURCE_ROOT "/examples/session/brick";
    QProcess& shown = Start(KV_SESSION, {session + ".kvs", "--show", "--out", Path("")});
    ASSERT_TRUE(shown.waitForFinished(60000));
    EXPECT_EQ(shown.exitCode(), 0);
    EXPECT_EQ(shown.readAllStandardOutput().toStdString(), ContentOf(session + ".expected").toStdString());
    EXPECT_TRUE(ContentOf(Path("brick.contours.xml")).contains("<Contours>"));
    EXPECT_EQ(QImage(Path("editor.png")).size(), QSize(760, 600));
}

TEST_F(RealPrograms, TheExampleHostDrawsAndUndoesByItsButtons)
{
    Start(KV_EDITOR_HOST, {});
    const QRect place = screen->Geometry(screen->Focus("editor_host"));
    // Two buttons of a row each lie over the editor.
    const QPoint rectangle(place.center().x(), place.top() + 20);
    const QPoint undo = rectangle + QPoint(0, 30);
    const QPoint middle = place.center() + QPoint(0, 40);
    ASSERT_EQ(Magenta(), 0);
    screen->Click(rectangle);
    screen->Drag(middle - QPoint(50, 40), middle + QPoint(50, 40));
    WaitFor("a rectangle", [&] { return Magenta() >= 2 * (100 + 80); });
    screen->Click(undo);
    WaitFor("its end", [&] { return Magenta() == 0; });
}

} // namespace kv::realwindow
