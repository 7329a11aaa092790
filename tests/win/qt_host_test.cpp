// Windows in a host's own Qt widgets, and how their pixels reach the screen at its scale.
#include "tests/win/recording_wnd.h"

#include "platform/win/qt_host.h"

#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWidget>

#include <memory>

using namespace kv::win;

class QtHosts : public WindowTest
{
};

TEST_F(QtHosts, AChildFillsTheHostAndFollowsItsSize)
{
    QWidget host;
    host.resize(120, 80);
    RecordingWnd child;
    ASSERT_TRUE(child.Create(AfxRegisterWndClass(CS_DBLCLKS), CString(), WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10),
                             CWnd::FromHandle(HostWindow(&host)), 1));
    FillHost(&host, child);
    host.show();
    Settle();
    EXPECT_EQ(child.Last(WM_SIZE).lParam, MAKELPARAM(120, 80));
    host.resize(200, 90);
    Settle();
    EXPECT_EQ(child.Last(WM_SIZE).lParam, MAKELPARAM(200, 90));
    EXPECT_EQ(HostWindow(&host), child.GetParent()->m_hWnd);
    EXPECT_EQ(WindowOf(WidgetOf(child.m_hWnd)), child.m_hWnd);
}

TEST_F(QtHosts, ALayoutPlacesTheChild)
{
    QWidget host;
    auto* layout = new QVBoxLayout(&host);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* button = new QPushButton("Knopf");
    button->setFixedHeight(30);
    layout->addWidget(button);
    RecordingWnd child;
    ASSERT_TRUE(child.Create(AfxRegisterWndClass(CS_DBLCLKS), CString(), WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10),
                             CWnd::FromHandle(HostWindow(&host)), 1));
    FillHost(&host, child);
    host.resize(150, 130);
    host.show();
    Settle();
    CRect rect;
    child.GetClientRect(rect);
    EXPECT_EQ(rect, CRect(0, 0, 150, 100));
    MoveMouse(child.m_hWnd, CPoint(3, 4));
    EXPECT_EQ(child.Last(WM_MOUSEMOVE).lParam, MAKELPARAM(3, 4));
    PressButton(child.m_hWnd, Button::Left, CPoint(3, 4));
    ReleaseButton(child.m_hWnd, Button::Left, CPoint(3, 4));
    EXPECT_EQ(child.Count(WM_LBUTTONDOWN), 1);
    child.SetFocus();
    PressKey('X');
    ReleaseKey('X');
    EXPECT_EQ(child.Count(WM_KEYDOWN), 1);
}

TEST_F(QtHosts, WindowsMadeInAHiddenHostArePaintedWhenItShows)
{
    QWidget host;
    host.resize(120, 80);
    RecordingWnd child;
    child.onMessage = [](RecordingWnd& self, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_PAINT)
            return false;
        CPaintDC dc(&self);
        dc.FillSolidRect(CRect(0, 0, 120, 80), RGB(255, 0, 0));
        return true;
    };
    ASSERT_TRUE(child.Create(AfxRegisterWndClass(0), CString(), WS_CHILD | WS_VISIBLE, CRect(0, 0, 120, 80),
                             CWnd::FromHandle(HostWindow(&host)), 1));
    child.Invalidate();
    Settle();
    EXPECT_EQ(child.Count(WM_PAINT), 0);
    host.show();
    Settle();
    EXPECT_EQ(child.Count(WM_PAINT), 1);
    EXPECT_EQ(host.grab().toImage().pixelColor(60, 40), QColor(255, 0, 0));
}

TEST_F(QtHosts, AHostThatGoesTakesItsWindowsAlong)
{
    RecordingWnd child;
    HWND handle = nullptr;
    {
        QWidget host;
        ASSERT_TRUE(child.Create(AfxRegisterWndClass(0), CString(), WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10),
                                 CWnd::FromHandle(HostWindow(&host)), 1));
        handle = HostWindow(&host);
        host.show();
        Settle();
    }
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(child.m_hWnd, nullptr);
    EXPECT_EQ(child.Count(WM_NCDESTROY), 1);
}

TEST_F(QtHosts, ADialogIsCentredOverTheWholeWindowOfItsHost)
{
    QWidget window; // within a screen of 400 by 400 units, as it is at twice the scale
    window.setGeometry(20, 10, 360, 300);
    QWidget pane(&window);
    pane.setGeometry(10, 20, 100, 50);
    window.show();
    Settle();
    RecordingWnd dialog;
    ASSERT_TRUE(dialog.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP, CRect(0, 0, 200, 100),
                                CWnd::FromHandle(HostWindow(&pane)), 0));
    dialog.CenterWindow();
    CRect place;
    dialog.GetWindowRect(&place);
    EXPECT_EQ(place, CRect(CPoint(20 + 80, 10 + 100), CSize(200, 100)));
}

TEST_F(QtHosts, ADialogAtTheScreensEdgeIsInSight)
{
    QWidget window;
    const QRect screen = window.screen()->availableGeometry();
    const auto placeOver = [&](const QRect& host, CSize size)
    {
        window.setGeometry(host);
        window.show();
        Settle();
        RecordingWnd dialog;
        EXPECT_TRUE(dialog.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP, CRect(CPoint(0, 0), size),
                                    CWnd::FromHandle(HostWindow(&window)), 0));
        dialog.CenterWindow();
        CRect place;
        dialog.GetWindowRect(&place);
        dialog.DestroyWindow();
        return place;
    };
    const QPoint end(screen.x() + screen.width(), screen.y() + screen.height());
    EXPECT_EQ(placeOver(QRect(end.x() - 100, end.y() - 80, 100, 80), CSize(200, 150)),
              CRect(CPoint(end.x() - 200, end.y() - 150), CSize(200, 150)));
    EXPECT_EQ(placeOver(QRect(screen.x(), screen.y(), 100, 80), CSize(200, 150)),
              CRect(CPoint(screen.x(), screen.y()), CSize(200, 150)));
    const CSize large(screen.width() + 50, screen.height() + 70);
    EXPECT_EQ(placeOver(QRect(screen.x() + 300, screen.y() + 300, 100, 80), large),
              CRect(CPoint(screen.x(), screen.y()), large))
        << "its upper left corner";
}

TEST_F(QtHosts, AHostsOwnWidgetKeepsItsInput)
{
    QWidget host;
    host.resize(100, 100);
    QPushButton button("x", &host);
    button.setGeometry(0, 0, 50, 30);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&clicks] { ++clicks; });
    const HWND handle = HostWindow(&host);
    host.show();
    Settle();
    PressButton(handle, Button::Left, CPoint(10, 10));
    ReleaseButton(handle, Button::Left, CPoint(10, 10));
    EXPECT_EQ(clicks, 1);
}

TEST_F(QtHosts, EveryPixelIsASharpSquareAtAnyWholeScale)
{
    RecordingWnd top;
    top.onMessage = [](RecordingWnd& self, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_PAINT)
            return false;
        CPaintDC dc(&self);
        for (int y = 0; y < 20; ++y)
        {
            for (int x = 0; x < 20; ++x)
                ::SetPixel(dc.m_hDC, x, y, (x + y) % 2 ? RGB(255, 255, 255) : RGB(0, 0, 0));
        }
        return true;
    };
    top.CreateTop(20, 20);
    const QImage shown = WidgetOf(top.m_hWnd)->grab().toImage();
    const int scale = qRound(shown.devicePixelRatio());
    ASSERT_EQ(shown.width(), 20 * scale);
    const char* wanted = std::getenv("QT_SCALE_FACTOR");
    ASSERT_EQ(scale, wanted ? std::atoi(wanted) : scale);
    for (int y = 0; y < shown.height(); ++y)
    {
        for (int x = 0; x < shown.width(); ++x)
            ASSERT_EQ(shown.pixel(x, y) & 0xFFFFFF, (x / scale + y / scale) % 2 ? 0xFFFFFFu : 0u) << x << ',' << y;
    }
}
