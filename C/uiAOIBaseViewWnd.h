// The window that shows one AOI, zoomed and scrolled: its geometry, painting, events and context menus.
// Logic coordinates are AOI pixels, pixel coordinates are client pixels of the view; both travel as 16-bit values.
#pragma once

#include "contracts/apptools.h"
#include "contracts/basics.h"
#include "contracts/image.h"

#include <memory>

namespace KvN
{

// What every later view starts with: the default zoom factor (1.0) and whether pixels keep their aspect ratio (1).
double KvxGetDefaultAOIWndZoomFactor();
void KvxSetDefaultAOIWndZoomFactor(double zoom);
int KvxIsDefaultPixelAspectRatioMaintained();
void KvxSetDefaultMaintainPixelAspectRatioOn();
void KvxSetDefaultMaintainPixelAspectRatioOff();

// Public operations X forward to protected virtual operations FX, which do the work. The view owns neither its AOI nor
// its overlay, mask or list of AOIs; all of them must live as long as they are set. No handler that runs inside a paint
// may change zoom, AOI or fit state.
class KvAOIBaseViewWnd : public KvScrollZoomView
{
    DECLARE_DYNCREATE(KvAOIBaseViewWnd)

public:
    // The hint of CDocument::UpdateAllViews for a changed default zoom.
    static constexpr long lHintDefaultZoom = 1;

    ~KvAOIBaseViewWnd() override;

    BOOL Create(const CString& className, const CString& windowName, DWORD style, const RECT& rect, CWnd* parent,
                UINT id, CCreateContext* context) override;
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnScrollBy(CSize scroll, BOOL doScroll) override;
    void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject) override;
    void OnDraw(CDC* dc) override;

    // --- Geometry ---

    // Device pixels per AOI pixel. While the default rules and is not "fitted", equal factors give way to the default
    // zoom; unequal factors pass unchanged. Throws KvException* if the AOI would be longer than 32767 pixels.
    void SetZoomFactor(double x, double y) override;
    virtual void SetZoomFactor(double zoom);
    double GetZoomFactorX() const { return FGetZoomFactorX(); }
    double GetZoomFactorY() const { return FGetZoomFactorY(); }
    double FGetZoomFactorX() const { return zoomFactorX; }
    double FGetZoomFactorY() const { return zoomFactorY; }

    // The default zoom: applied at once by each setter while the default is on.
    virtual void UpdateDefaultZoom();
    double GetDefaultZoomFactor() const { return defaultZoomFactor; }
    int IsDefaultOn() const { return defaultOn; }
    int IsDefaultFittedToWindow() const { return defaultFitted; }
    int IsDefaultAspectRatioMaintained() const { return defaultAspectRatio; }
    void SetDefaultZoomFactor(double zoom);
    void SetDefaultFittedToWindow(int on);
    void SetDefaultAspectRatioMaintained(int on);
    void SetDefaultOn();
    void SetDefaultOff() { defaultOn = 0; } // the zoom stays as it is

    virtual void FitAOIToWindowOn() { FFitAOIToWindowOn(); }
    virtual void FitAOIToWindowOff() { FFitAOIToWindowOff(); }
    int IsAOIFittedToWindow() const { return FIsAOIFittedToWindow(); }
    int FIsAOIFittedToWindow() const { return fitToWindow; }
    int IsPixelAspectRatioMaintained() const { return maintainAspectRatio; }

    // Pixel to logic, scroll position included for positions. Without an AOI: (0, 0) and the empty rectangle.
    KvTPoint<short> GetLogicPoint(const KvTPoint<short>& pixel) const { return FGetLogicPoint(pixel); }
    KvTRectangle<short> GetLogicRect(const KvTRectangle<short>& pixels) const { return FGetLogicRect(pixels); }
    KvTSize<short> GetLogicSize(const KvTSize<short>& pixels) const { return FGetLogicSize(pixels); }
    KvTPoint<short> FGetLogicPoint(const KvTPoint<short>& pixel) const;
    KvTRectangle<short> FGetLogicRect(const KvTRectangle<short>& pixels) const;
    KvTSize<short> FGetLogicSize(const KvTSize<short>& pixels) const;
    // Lengths, converted in place; no scroll position enters.
    void ConvertLogicToPixel(KvTPair<short>& lengths) const;
    void ConvertPixelToLogic(KvTPair<short>& lengths) const;

    // The scroll position in device pixels.
    KvTPoint<short> GetScrollPos() const { return FGetScrollPos(); }
    KvTPoint<short> FGetScrollPos() const;
    // Scrolls the given logic point to the view's corner, as far as the scroll range allows.
    virtual void SetAOIPos(const KvTPoint<short>& position) { FSetAOIPos(position); }

    // The client size that the AOI needs at the current zoom. Throws KvException* beyond 32767.
    KvTSize<short> GetNecessaryOutputSize() const;
    // Lays the view and its frame out anew. Never returns from inside a paint.
    void ResizeBaseWindow() { FResizeBaseWindow(); }
    void FResizeBaseWindow();

    // The hosting window whose client area bounds the view.
    void SetParent(KvBaseFrameWnd* parent) { parentWnd = parent; }

    // --- What is shown ---

    // Not owned. Null hides the frame until the default zoom is applied again.
    virtual void SetAOI(KvAOI* newAOI) { FSetAOI(newAOI); }
    virtual KvAOI* GetAOI() { return aoi; }
    // An overlay of another type than KvAOI8 clears the overlay. The three setters don't repaint.
    void SetOverlayAOI(KvAOI* overlay);
    KvAOI* GetOverlayAOI() const { return overlayAOI; }
    void SetMaskAOI(KvAOI8* mask) { maskAOI = mask; }
    KvAOI8* GetMaskAOI() const { return maskAOI; }
    void SetOverlayStrength(float strength) { overlayStrength = strength; }
    float GetOverlayStrength() const { return overlayStrength; }
    // Display reduction: 1 to 16; any other value is ignored.
    void SetShrink(unsigned short reduction);
    unsigned short GetShrink() const { return shrink; }

    // The AOI's output table by its name in the table manager. Without effect, and empty, for an AOI without tables.
    virtual void SetOutputLut(const KvString& name) { FSetOutputLut(name); }
    virtual KvString GetOutputLut() const { return FGetOutputLut(); }

    // The list of backgrounds. Pointers are not owned; an index outside the list gives null or does nothing.
    void AddAOI(KvAOI* entry);
    int InsertAOI(KvAOI* entry, long index);
    void DeleteAOI(long index);
    KvAOI* GetAt(long index) const;
    void SetAOIList(KvTMem<KvAOI*>* list);
    void ClearAOIList() { aoiList.Resize(0); }
    unsigned GetAOICount() const { return aoiList.size; }

    // --- Painting ---

    virtual void _OnDraw(CDC* dc); // the paint at shrink 1
    void DrawMemDC(CDC* dc);       // the paint through the persistent memory DC
    virtual void Paint(CDC* dc, const KvTRectangle<short>& area) { FPaint(dc, area); }
    void CallPaintHandler(CDC* dc); // nothing while the DC prints
    CDC* GetDCTmp() const { return dcTmp; }
    // Where a handler draws, in logic coordinates: the paint's DC, or outside a paint the window's. Released by nobody.
    CDC* GetOutputDevice();
    bool& UseMemDC() { return useMemDC; }
    int IsInDraw() const { return inDraw; }

    // --- Events ---

    virtual void MouseMove(const KvMouseEvent& event) { FMouseMove(event); }
    virtual void MouseButtonDown(const KvMouseEvent& event) { FMouseButtonDown(event); }
    virtual void MouseButtonUp(const KvMouseEvent& event) { FMouseButtonUp(event); }
    virtual void Move() { FMove(); }
    virtual void Resize() { FResize(); }
    KvMouseEvent GetMouseEvent() const { return mouseEvent; }

    // Each stores the new link and returns the one that was there. Links are called with the view as data.
    KvTools::Link ChangeMoveHdl(const KvTools::Link& link);
    KvTools::Link ChangeResizeHdl(const KvTools::Link& link);
    KvTools::Link ChangePaintHdl(const KvTools::Link& link);
    KvTools::Link ChangeMousePaintHdl(const KvTools::Link& link);
    KvTools::Link ChangeMouseMoveHdl(const KvTools::Link& link);
    KvTools::Link ChangeMouseButtonDownHdl(const KvTools::Link& link);
    KvTools::Link ChangeMouseButtonUpHdl(const KvTools::Link& link);
    KvTools::Link ChangeVScrollHdl(const KvTools::Link& link);
    KvTools::Link ChangeHScrollHdl(const KvTools::Link& link);
    KvTools::Link ChangeLutMenuHdl(const KvTools::Link& link);
    KvTools::Link ChangeBackgroundMenuHdl(const KvTools::Link& link);

    HCURSOR GetDefaultCursor() const { return defaultCursor; }
    // The current cursor too, so that a cursor chosen during a move shows with that move.
    void SetDefaultCursor(HCURSOR cursor) { defaultCursor = currentCursor = cursor; }
    HCURSOR GetCurrentCursor() const { return currentCursor; }
    // Holds until the next mouse move.
    void SetCurrentCursor(HCURSOR cursor) { currentCursor = cursor; }

    // The focus follows the mouse, without a click.
    void AutoCaptureFocusOn() { autoCaptureFocus = 1; }
    void AutoCaptureFocusOff() { autoCaptureFocus = 0; }
    int IsAutoCapturingFocus() const { return autoCaptureFocus; }

    // --- Context menus ---

    // 1: tables and zoom; 2: with the list of backgrounds; 3: tables and reducing zooms.
    void UseContextMenu(int kind) { contextMenuKind = kind; }
    // 2 needs at least two AOIs in the list; all but 2 and 3 give 1.
    void UseContextMenuWithCheck(int kind);
    void EnableRightButtonMenu() { rightButtonMenu = 1; }
    void DisableRightButtonMenu() { rightButtonMenu = 0; }
    int IsRightButtonMenuEnabled() const { return rightButtonMenu; }
    void EnableMenuZoom() { FEnableMenuZoom(); }
    void DisableMenuZoom() { FDisableMenuZoom(); }
    int IsMenuZoomEnabled() const { return FIsMenuZoomEnabled(); }
    void FEnableMenuZoom() { menuZoom = 1; }
    void FDisableMenuZoom() { menuZoom = 0; }
    int FIsMenuZoomEnabled() const { return menuZoom; }
    void EnableMenuOLut() { FEnableMenuOLut(); }
    void DisableMenuOLut() { FDisableMenuOLut(); }
    int IsMenuOLutEnabled() const { return FIsMenuOLutEnabled(); }
    void FEnableMenuOLut() { menuOLut = 1; }
    void FDisableMenuOLut() { menuOLut = 0; }
    int FIsMenuOLutEnabled() const { return menuOLut; }
    void EnableMenuBackground() { FEnableMenuBackground(); }
    void DisableMenuBackground() { FDisableMenuBackground(); }
    int IsMenuBackgroundEnabled() const { return FIsMenuBackgroundEnabled(); }
    void FEnableMenuBackground() { GEnableMenuBackground(); }
    void FDisableMenuBackground() { GDisableMenuBackground(); }
    int FIsMenuBackgroundEnabled() const { return GIsMenuBackgroundEnabled(); }
    void GEnableMenuBackground() { menuBackground = 1; }
    void GDisableMenuBackground() { menuBackground = 0; }
    int GIsMenuBackgroundEnabled() const { return menuBackground; }
    // The item to check in the zoom popup; 0 for none.
    UINT GetMenuIDFromZoomFactor() const;

protected:
    KvAOIBaseViewWnd();

    // --- The working layer ---

    virtual void FSetAOI(KvAOI* newAOI);
    virtual void FSetZoomFactor(double x, double y);
    virtual void FSetZoomFactor(double zoom);
    virtual void FFitAOIToWindowOn();
    virtual void FFitAOIToWindowOff();
    virtual void FSetOutputLut(const KvString& name);
    virtual KvString FGetOutputLut() const;
    virtual void FSetAOIPos(const KvTPoint<short>& position);
    virtual void FMove();
    virtual void FResize();
    virtual void _FPaint(CDC* dc, const KvTRectangle<short>& area);
    virtual void FPaint(CDC* dc, const KvTRectangle<short>& area);
    virtual void FMouseMove(const KvMouseEvent& event);
    virtual void FMouseButtonDown(const KvMouseEvent& event);
    virtual void FMouseButtonUp(const KvMouseEvent& event);

    // --- Messages ---

    void OnContextMenu(CWnd* wnd, CPoint point);
    void OnContextMenu1(CWnd* wnd, CPoint point);
    void OnContextMenu2(CWnd* wnd, CPoint point);
    void OnContextMenu3(CWnd* wnd, CPoint point);
    void OnZoom(UINT id);
    void OnOutputLut(UINT id);
    void OnBackground(UINT id);
    void OnUpdateZoom(CCmdUI* item);
    void OnUpdateOutputLut(CCmdUI* item);
    void OnUpdateBackground(CCmdUI* item);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    LRESULT OnMouseLeave();
    BOOL OnSetCursor(CWnd* wnd, UINT hitTest, UINT message);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKeyUp(UINT key, UINT repeat, UINT flags);
    void OnSysKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSysKeyUp(UINT key, UINT repeat, UINT flags);
    void OnMove(int x, int y);
    void OnSize(UINT type, int cx, int cy);
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    void Init();
    void SetAspectRatioMaintained(int on);
    void ReturnToDefaultZoom();
    KvTRectangle<short> WholeArea() const;
    KvTRectangle<short> VisibleArea() const;
    void ShowOverlay(CDC* dc) const;
    template <class Body>
    void RunPaint(CDC* dc, Body body);
    void DrawPlain(CDC* dc);
    KvMemDC& PaintBuffer(CDC* dc);
    void DrawShrunk(CDC* dc);
    void PaintOn(CDC* target, const KvTRectangle<short>& visible, bool printing);
    void CallPrintingHandlers(CDC* dc);
    void OpenContextMenu(UINT resource, bool backgrounds, CPoint point);
    void AddLutPopup(CMenu& menu) const;
    void AddBackgroundPopup(CMenu& menu);

protected:
    // In the order in which the class has always kept them. Editors read and write some of them through the operations
    // above only.
    bool useMemDC = false;
    std::unique_ptr<KvMemDC> memDC;
    int contextMenuKind = 1;
    int inDraw = 0;
    int resizing = 0;
    KvBaseFrameWnd* parentWnd = nullptr;
    KvAOI* aoi = nullptr;
    KvAOI8* overlayAOI = nullptr;
    KvAOI8* maskAOI = nullptr;
    float overlayStrength = 0.0f;
    short aoiWidth = 0;
    short aoiHeight = 0;
    KvTools::Link moveHdl;
    KvTools::Link resizeHdl;
    KvTools::Link paintHdl;
    KvTools::Link mousePaintHdl;
    KvTools::Link mouseMoveHdl;
    KvTools::Link mouseButtonDownHdl;
    KvTools::Link mouseButtonUpHdl;
    KvTools::Link vScrollHdl;
    KvTools::Link hScrollHdl;
    KvMouseEvent mouseEvent;
    CDC* outputDevice = nullptr;
    HCURSOR defaultCursor;
    HCURSOR currentCursor = nullptr;
    int rightButtonMenu = 1;
    int menuZoom = 1;
    int menuOLut = 1;
    int autoCaptureFocus = 0;
    int defaultOn = 1;
    unsigned short shrink = 1;
    KvTools::Link lutMenuHdl;
    KvTools::Link backgroundMenuHdl;
    int menuBackground = 1;
    int defaultFitted = 0;
    int defaultAspectRatio;
    double defaultZoomFactor;
    KvTMem<KvAOI*> aoiList;
    CDC* dcTmp = nullptr;

private:
    std::unique_ptr<KvMemDC> paintBuffer;

public:
    // Virtual key codes; many may listen.
    KvTSignal<unsigned int> keyDownSignal;
    KvTSignal<unsigned int> keyUpSignal;
    // Around every paint that isn't skipped.
    KvTSignal<KvAOIBaseViewWnd&> prePaintSignal;
    KvTSignal<KvAOIBaseViewWnd&> postPaintSignal;
};

} // namespace KvN
