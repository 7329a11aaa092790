// Both mask dialogs under a real mouse: a tool from the toolbar, a figure, and the mask's pixels afterwards.
#include "resources/resource.h"
#include "tests/realwindow/coordinate_image.h"
#include "tests/realwindow/desk.h"

#include <map>
#include <sstream>

namespace kv::realwindow
{
namespace
{
constexpr int width = 240; // a multiple of four, as the overlay dialog wants it
constexpr int height = 160;
constexpr uchar user = 0x80;
constexpr uchar system = 0x40;
constexpr uchar others = 0x15; // bits that are nobody's business here

class RealMaskDialog : public Desk
{
protected:
    void SetUp() override
    {
        Desk::SetUp();
        CoordinateImage({width, height}).save(Path("part.png"));
        mask = QImage(width, height, QImage::Format_Grayscale8);
        mask.fill(others);
    }

    // The figures that a test expects.
    static void Fill(QImage& image, QRect pixels, uchar bit)
    {
        for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        {
            for (int x = pixels.left(); x <= pixels.right(); ++x)
                image.scanLine(y)[x] |= bit;
        }
    }

    static void Clear(QImage& image, QRect pixels)
    {
        for (int y = pixels.top(); y <= pixels.bottom(); ++y)
            std::fill_n(image.scanLine(y) + pixels.left(), pixels.width(), others);
    }

    void Open(const QString& kind)
    {
        result.clear();
        told.clear();
        next.clear();
        mask.save(Path("mask.png"));
        host = &Start(KV_MASK_HOST, {kind, Path("part.png"), Path("mask.png"), Path("mask.ini")});
        WaitForLayout();
        dialog = screen->Focus("Maskieren");
        if (kind == "plain")
            origin = At(0, 0);
        else
            origin = Place("view 0"); // which shows the image in grey
    }

    // The view shows the mask at its original size; so a pixel lies here whatever covers it.
    QPoint P(int x, int y) const { return origin + QPoint(x, y); }
    void Drag(QPoint from, QPoint to) const { screen->Drag(P(from.x(), from.y()), P(to.x(), to.y())); }

    void ClickControl(int id) { screen->Click(Place("control " + std::to_string(id))); }
    // Waits until the button is enabled.
    void ClickTool(int id) { screen->Click(Place("button " + std::to_string(id))); }

    // By OK or Cancel, a key or a click; returns what the host has then.
    QString EndBy(const std::function<void()>& act)
    {
        act();
        WaitFor("the dialog's end", [&] { return ReadLayout(), host->state() == QProcess::NotRunning; });
        ReadLayout();
        return QString::fromStdString(result);
    }

    void ExpectMask(const QImage& wanted) const
    {
        const QImage now = QImage(Path("mask.png")).convertToFormat(QImage::Format_Grayscale8);
        ASSERT_EQ(now.size(), wanted.size());
        int wrong = 0;
        QPoint first;
        for (int y = 0; y < height; ++y)
        {
            for (int x = 0; x < width; ++x)
            {
                if (now.constScanLine(y)[x] != wanted.constScanLine(y)[x] && wrong++ == 0)
                    first = QPoint(x, y);
            }
        }
        EXPECT_EQ(wrong, 0) << "pixels, the first at " << first.x() << ", " << first.y() << ": "
                            << int(now.constScanLine(first.y())[first.x()]) << " instead of "
                            << int(wanted.constScanLine(first.y())[first.x()]);
    }

    QImage mask;
    QProcess* host = nullptr;
    unsigned long dialog = 0;

private:
    using Places = std::map<std::string, QPoint>;

    // Takes in what the host has said of late.
    void ReadLayout()
    {
        host->waitForReadyRead(1);
        while (host->canReadLine())
        {
            std::istringstream line(host->readLine().toStdString());
            std::string kind, id;
            QPoint at;
            line >> kind >> id >> at.rx() >> at.ry();
            if (kind == "end")
                told = std::exchange(next, {});
            else if (line)
                next[kind + ' ' + id] = at;
            else
                result += result.empty() ? kind : " " + kind;
        }
    }

    void WaitForLayout()
    {
        WaitFor("the dialog", [&] { return ReadLayout(), !told.empty(); });
    }

    QPoint Place(const std::string& what)
    {
        WaitFor(what + " to be enabled", [&] { return ReadLayout(), told.count(what) != 0; });
        return told.at(what);
    }

    Places told;
    Places next;
    std::string result;
    QPoint origin;
};
} // namespace

TEST_F(RealMaskDialog, AFilledRectangleIsAcceptedByTheToolbar)
{
    Open("plain");
    ClickTool(ID_MASK_INC_RECT_FILLED);
    Drag({20, 30}, {90, 70});
    ClickTool(ID_MASK_TOOL_OK);
    Drag({120, 30}, {150, 50}); // a second one, dropped
    ClickTool(ID_MASK_TOOL_DEL);
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    Fill(mask, QRect(QPoint(20, 30), QPoint(89, 69)), user);
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, OkTakesAPlacedFrameWithItsWidthFromTheSpinEdit)
{
    Open("plain");
    ClickTool(ID_MASK_INC_RECT_FRAME);
    Drag({40, 40}, {100, 90});
    // The width counts as soon as it is typed.
    ClickControl(IDC_MASK_LINEWIDTH);
    screen->Keys({"ctrl+a", "3"});
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    Fill(mask, QRect(QPoint(39, 39), QPoint(101, 91)), user);
    Clear(mask, QRect(QPoint(42, 42), QPoint(98, 88)));
    for (const QPoint corner : {QPoint(39, 39), QPoint(101, 39), QPoint(39, 91), QPoint(101, 91)})
        mask.scanLine(corner.y())[corner.x()] = others; // the pen is round
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, CancelLeavesTheMaskAsItWas)
{
    Open("plain");
    Drag({20, 30}, {90, 70});
    ClickTool(ID_MASK_TOOL_OK);
    EXPECT_EQ(EndBy([&] { ClickControl(2); }), "cancel");
    ExpectMask(mask);
    EXPECT_FALSE(QFile::exists(Path("mask.ini")));
}

TEST_F(RealMaskDialog, EscapeCancelsAndEnterAccepts)
{
    Open("plain");
    Drag({20, 30}, {90, 70});
    EXPECT_EQ(EndBy([&] { screen->Keys({"Escape"}); }), "cancel");
    ExpectMask(mask);

    Open("plain");
    Drag({20, 30}, {90, 70});
    EXPECT_EQ(EndBy([&] { screen->Keys({"Return"}); }), "ok");
    Fill(mask, QRect(QPoint(20, 30), QPoint(89, 69)), user);
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, APlacedFigureIsResizedAndMovedBeforeADoubleClickBesideItAccepts)
{
    Open("plain");
    Drag({20, 30}, {90, 70});
    Drag({90, 70}, {110, 100}); // the lower right handle
    Drag({50, 50}, {70, 60});   // from its inside
    screen->DoubleClick(P(200, 20));
    ClickTool(ID_MASK_INC_RECT_FILLED); // enabled again
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    Fill(mask, QRect(QPoint(40, 40), QPoint(129, 109)), user);
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, APolygonIsClickedAndClosedByADoubleClick)
{
    Open("plain");
    ClickTool(ID_MASK_INC_POLYGON_FILLED);
    screen->Click(P(40, 30));
    screen->Click(P(40, 110));
    screen->Click(P(160, 110));
    screen->DoubleClick(P(160, 30));
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    Fill(mask, QRect(QPoint(40, 30), QPoint(159, 109)), user);
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, TheRadioButtonExcludesFromTheMask)
{
    Fill(mask, QRect(0, 0, width, height), user);
    Open("plain");
    ClickControl(IDC_MASK_EXCTOOLS);
    ClickTool(ID_MASK_EXC_RECT_FILLED);
    Drag({20, 30}, {90, 70});
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    Clear(mask, QRect(QPoint(20, 30), QPoint(89, 69)));
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, TheCheckBoxShowsTheSystemMaskAndItsBitsStay)
{
    Fill(mask, QRect(100, 50, 60, 40), system);
    Open("plain");
    const QRect region(P(100, 50), QSize(60, 40));
    const auto hidden = [&]
    {
        const QImage shot = screen->Shot();
        int shown = 0;
        for (int y = region.top(); y <= region.bottom(); ++y)
            for (int x = region.left(); x <= region.right(); ++x)
                shown += ImagePixel(shot.pixel(x, y)).has_value();
        return region.width() * region.height() - shown;
    };
    WaitFor("the whole image", [&] { return hidden() == 0; });
    ClickControl(IDC_MASK_SHOWSYSTEM);
    WaitFor("the system mask", [&] { return hidden() >= 1000; }); // a checker of 60 x 40 pixels
    screen->Keys({"space"});                                      // the check box has the keyboard
    WaitFor("its end", [&] { return hidden() == 0; });
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, TheOverlayDialogPaintsAndInverts)
{
    Fill(mask, QRect(100, 50, 60, 40), system);
    Open("overlay");
    ClickTool(ID_MASK_INC_RECT_FILLED);
    Drag({20, 30}, {90, 70});
    ClickTool(ID_MASK_TOOL_OK);
    ClickTool(ID_MASK_INVERT);
    EXPECT_EQ(EndBy([&] { ClickControl(1); }), "ok");
    Fill(mask, QRect(0, 0, width, height), user);
    Clear(mask, QRect(QPoint(20, 30), QPoint(89, 69))); // which the system mask does not touch
    ExpectMask(mask);
}

TEST_F(RealMaskDialog, TheOverlayDialogTellsThatTheSystemMaskWasDeleted)
{
    Fill(mask, QRect(100, 50, 60, 40), system);
    Open("overlay");
    ClickTool(ID_MASK_DEL_SYSTEM);
    EXPECT_EQ(EndBy([&] { screen->Keys({"Return"}); }), "deleted ok");
    ExpectMask(mask); // the host decides
}

TEST_F(RealMaskDialog, TheOverlayDialogLeavesTheMaskWhenItIsClosedByEscape)
{
    Fill(mask, QRect(100, 50, 60, 40), system);
    Open("overlay");
    ClickTool(ID_MASK_INVERT);
    EXPECT_EQ(EndBy([&] { screen->Keys({"Escape"}); }), "cancel");
    ExpectMask(mask);
}

} // namespace kv::realwindow
