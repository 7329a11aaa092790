// Mask windows in a host of the tests, the operator's mouse over them, and masks as text.
#pragma once

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWnd.h"
#include "C/uiMaskWndOverlay.h"
#include "platform/win/input.h"
#include "platform/win/screen.h"
#include "tests/ui/aoi_window.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kv::test
{

using Rows = std::vector<std::string>;

// The pixels with any of `bits` as '#', others as '.', row by row.
Rows Art(const KvN::KvAOI8& mask, unsigned char bits = KvN::KvMaskWndBase::UserBit);
// An AOI from such rows: '#' gives `set`, '.' gives `clear`.
std::unique_ptr<KvN::KvBufferAOI8> FromArt(const Rows& rows, unsigned char set, unsigned char clear = 0);
std::vector<unsigned char> Bytes(const KvN::KvAOI8& aoi);

// The plain window with what its own sources may use.
class OpenMaskWnd : public KvN::KvMaskWnd
{
public:
    using KvMaskWnd::dragCursor;
    using KvMaskWnd::figure;
    using KvMaskWnd::GetSquare;
    using KvMaskWnd::polygon;
    using KvMaskWnd::skipRubberErase;
    using KvMaskWnd::userAndDC;
    using KvMaskWnd::userMaskDC;
    using KvMaskWnd::userPaintDC;
};

class OpenOverlayWnd : public KvMaskWndOverlay
{
public:
    using KvMaskWndOverlay::figure;
    using KvMaskWndOverlay::Repaint;
    using KvMaskWndOverlay::userMaskDC;
};

// A host filled by a mask window over a grey image. All points are AOI pixels; at the start zoom is 1.
template <class Wnd>
class MaskStand
{
public:
    MaskStand(KvN::KvAOI8& mask_, unsigned char background = 100, CSize size = CSize(200, 150))
        : mask(mask_), image(Grey(mask_.AOIWidth(), mask_.AOIHeight(), background))
    {
        kv::win::ResetInput();
        host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(CPoint(0, 0), size), nullptr,
                      0);
        window.Create(&host);
        window.Init(image.get(), &mask);
        window.SetChangeModeHdl(changes.Link());
        kv::win::Settle();
    }
    ~MaskStand()
    {
        window.DestroyWindow();
        host.DestroyWindow();
        kv::win::ResetInput();
    }

    using Picture = std::vector<std::uint32_t>;

    KvN::KvAOIBaseViewWnd& View() const { return *window.GetAOIBaseViewWnd(); }
    CPoint Client(int x, int y) const
    {
        CPoint point(x, y);
        View().ViewLPtoDP(&point, 1);
        return point;
    }
    void Move(int x, int y) { kv::win::MoveMouse(View().m_hWnd, Client(x, y)); }
    void Press(int x, int y)
    {
        Move(x, y);
        kv::win::PressButton(View().m_hWnd, kv::win::Button::Left, Client(x, y));
    }
    void Release(int x, int y)
    {
        Move(x, y);
        kv::win::ReleaseButton(View().m_hWnd, kv::win::Button::Left, Client(x, y));
    }
    void Click(int x, int y)
    {
        Press(x, y);
        Release(x, y);
    }
    void DoubleClick(int x, int y)
    {
        Click(x, y);
        kv::win::DoublePressButton(View().m_hWnd, kv::win::Button::Left, Client(x, y));
        Release(x, y);
    }
    void Drag(int x1, int y1, int x2, int y2)
    {
        Press(x1, y1);
        Release(x2, y2);
    }
    unsigned Shown(int x, int y) const { return kv::win::ShownPixel(View().m_hWnd, Client(x, y)) & 0xFFFFFF; }
    Picture Screen() const { return kv::win::PictureOf(View().m_hWnd).pixels; }

    KvN::KvAOI8& mask;
    std::unique_ptr<KvN::KvBufferAOI8> image;
    CWnd host;
    Wnd window;
    int told = 0; // times that the change-mode link was called
    Handler changes{[this](void*) { ++told; }};
};

using PlainStand = MaskStand<OpenMaskWnd>;
using OverlayStand = MaskStand<OpenOverlayWnd>;

} // namespace kv::test
