// Exceptions that reach the borders of the message system.
#include "tests/win/recording_wnd.h"

#include "platform/win/modal.h"

#include <stdexcept>

using namespace kv::win;

class Exceptions : public WindowTest
{
protected:
    Exceptions()
    {
        former = SetExceptionHandler(
            [this](CException* exception)
            {
                ++handled;
                exception->Delete();
            });
    }
    ~Exceptions() override { SetExceptionHandler(former); }

    static void ThrowOn(RecordingWnd& wnd, UINT which)
    {
        wnd.onMessage = [which](RecordingWnd&, UINT message, WPARAM, LPARAM)
        {
            if (message == which)
                AfxThrowResourceException("out of order");
            return false;
        };
    }

    int handled = 0;
    ExceptionHandler former;
};

TEST_F(Exceptions, OfInputGoToTheHandlerAndTheWindowGoesOn)
{
    RecordingWnd top;
    top.CreateTop();
    ThrowOn(top, WM_LBUTTONDOWN);
    PressButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    EXPECT_EQ(handled, 1);
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    EXPECT_EQ(top.Count(WM_LBUTTONUP), 1);
}

TEST_F(Exceptions, OfAPaintGoToTheHandlerAndTheWindowPaintsAgain)
{
    RecordingWnd top;
    top.CreateTop();
    ThrowOn(top, WM_PAINT);
    top.Invalidate();
    Settle();
    EXPECT_EQ(handled, 1);
    top.onMessage = nullptr;
    top.noted.clear();
    top.Invalidate();
    Settle();
    EXPECT_EQ(top.Count(WM_PAINT), 1);
    EXPECT_EQ(handled, 1);
}

TEST_F(Exceptions, OfASentMessageGoToTheSender)
{
    RecordingWnd top;
    top.CreateTop();
    ThrowOn(top, WM_USER);
    CException* caught = nullptr;
    try
    {
        top.SendMessage(WM_USER);
    }
    catch (CException* exception)
    {
        caught = exception;
    }
    ASSERT_NE(caught, nullptr);
    caught->Delete();
    EXPECT_EQ(handled, 0);
    ThrowOn(top, WM_PAINT);
    top.Invalidate();
    EXPECT_THROW(
        {
            try
            {
                top.UpdateWindow();
            }
            catch (CException* exception)
            {
                exception->Delete();
                throw std::runtime_error("paint");
            }
        },
        std::runtime_error);
}

TEST_F(Exceptions, OfOtherKindsComeOutOfTheInputCall)
{
    RecordingWnd top;
    top.CreateTop();
    top.onMessage = [](RecordingWnd&, UINT message, WPARAM, LPARAM) -> bool
    {
        if (message == WM_MOUSEMOVE)
            throw std::runtime_error("move");
        return false;
    };
    EXPECT_THROW(MoveMouse(top.m_hWnd, CPoint(5, 5)), std::runtime_error);
    EXPECT_EQ(handled, 0);
    top.onMessage = nullptr;
    MoveMouse(top.m_hWnd, CPoint(6, 5));
    EXPECT_EQ(top.Last(WM_MOUSEMOVE).lParam, MAKELPARAM(6, 5));
}

TEST_F(Exceptions, AreShownInAMessageBoxWithoutAHandler)
{
    SetExceptionHandler({});
    RecordingWnd top;
    top.CreateTop();
    ThrowOn(top, WM_LBUTTONDOWN);
    std::string shown;
    SetModalHook(
        [&shown]
        {
            shown = OpenMessageBox()->text.Utf8();
            CloseMessageBox(IDOK);
        });
    PressButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    SetModalHook({});
    EXPECT_EQ(shown, "out of order");
}
