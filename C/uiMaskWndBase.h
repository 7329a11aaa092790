// What both mask windows have in common: the tools, the rubber bands, the placed figure, the polygon, and the raster of
// the user mask into which figures are burnt. How the raster comes to the screen is the derived window's business.
// All coordinates are pixels of the mask AOI.
#pragma once

#include "C/uiAOIWnd.h"
#include "C/uiMaskWndFigure.h"
#include "C/uiMaskWndTools.h"

namespace KvN
{

// A memory context that holds a bitmap of its own. What was selected before goes back in the destructor.
class KvMaskRaster : public CDC
{
public:
    KvMaskRaster() = default;
    ~KvMaskRaster() override;

    // Compatible with `reference`; all black.
    void Create(CDC& reference, const KvTSize<short>& size);
    // The pen and brush that stay selected between the drawings.
    void SelectDefaults(const CPen& pen, const CBrush& brush);

private:
    CBitmap bitmap;
    HGDIOBJ formerBitmap = nullptr;
    HGDIOBJ formerPen = nullptr;
    HGDIOBJ formerBrush = nullptr;
};

// The two layers of a mask: bit 7 is the user mask, which the operator edits; bit 6 is the system mask.
class KvMaskWndBase : public KvAOIWnd
{
public:
    static constexpr unsigned char UserBit = 128;
    static constexpr unsigned char SystemBit = 64;

    ~KvMaskWndBase() override;

    // The width of frames in mask pixels, of the rubber band and of the placed figure. 0 is drawn as 1.
    void SetLineWidth(unsigned short width);
    unsigned short GetLineWidth() const { return lineWidth; }
    // Any number. 10, 20 and 21 clear, fill and invert the user mask at once; the others choose what is drawn next.
    void SelectTool(int newTool);
    int SelectedTool() const { return tool; }

    // Burns the placed figure into the user mask. The change-mode link is not told.
    void IntegrateFigure();
    // Drops the placed figure. The change-mode link is not told.
    void DeleteFigure();
    // Writes the raster to the mask AOI. Throws KvGDIException*.
    virtual void MaskToAOI() = 0;

    int IsSystemMaskShown() const { return showSystemMask; }
    // Non-zero while a figure is placed and waits to be accepted or dropped.
    int IsInChangeMode() const { return changeMode; }
    KvAOI8* GetMaskAOI() const { return maskAOI; }
    KvAOI* GetBackgroundAOI() const;
    void SetBackgroundAOI(const KvAOI* background);
    // Told, with this window, when the operator places a figure or accepts it by a double click.
    void SetChangeModeHdl(const KvTools::Link& link) { changeModeHdl = link; }

    // The colours are fixed; both calls do nothing.
    void SetSystemMaskColor(KvColor) {}
    void SetUserMaskColor(KvColor) {}

    // Handlers of the view. The result is always 1.
    long long MouseButtonDownHdl(KvAOIBaseViewWnd* source);
    long long MouseButtonUpHdl(KvAOIBaseViewWnd* source);
    long long MouseMoveHdl(KvAOIBaseViewWnd* source);
    virtual long long PaintHdl(KvAOIBaseViewWnd* source) = 0;
    static long long LinkStubMouseButtonDownHdl(void* instance, void* data);
    static long long LinkStubMouseButtonUpHdl(void* instance, void* data);
    static long long LinkStubMouseMoveHdl(void* instance, void* data);
    static long long LinkStubPaintHdl(void* instance, void* data);

    // Drags the figure by the handle `dragMarker` to `point`, or by its inside from `lastPoint` to it.
    void SetNewSize(const KvTPoint<short>& point);

    // What a session or a test asks about the state between two events.
    int IsDrawing() const { return isDrawing; }
    int IsPolygonOpen() const { return polygonOpen; }
    unsigned short GetDragMarker() const { return dragMarker; }
    const KvSurroundRect& GetFigure() const { return figure; }

protected:
    // Where the failure of a placed rectangle's rubber band is reported from.
    struct FailureSite
    {
        const char* source;
        unsigned long line;
    };

    explicit KvMaskWndBase(FailureSite bandFailure_) : bandFailure(bandFailure_) {}

    // Brings the user raster to the screen; only the pixels of `changed` differ from what was shown before.
    virtual void ShowUserRaster(const CRect& changed) = 0;

    void CallChangeModeHdl();
    // A square inside `rect`, cut at its longer side. Modes 1 to 4 choose the corner that stays: left bottom, left top,
    // right top, right bottom.
    KvTRectangle<short> GetSquare(const KvTRectangle<short>& rect, unsigned short mode) const;

    // ---- Steps of `Init`
    void MakePensAndBrushes();
    void ConnectView();
    void TakeMask(KvAOI8* mask);
    // The mask's layers as pictures: 255 where the bit is set, else 0.
    void DrawLayers(const KvAOI8& mask, CDC& userDC, CDC& systemDC) const;

    // ---- Steps of `PaintHdl`
    // A repaint has wiped the committed edges of an open polygon.
    void RedrawOpenPolygon();

    void InvalidateView(); // at once

    int tool = 1;
    int isDrawing = 0;
    int polygonOpen = 0;
    KvTPoint<short> startPoint;
    KvTPoint<short> currentPoint;
    KvTPoint<short> lastPoint;
    KvPolygon polygon;
    std::unique_ptr<CPen> rubberPen;
    CBrush hollowBrush;
    std::unique_ptr<CPen> polygonPen;
    std::unique_ptr<CPen> nullPen;
    CBrush whiteBrush;
    CPen whitePen{static_cast<int>(PS_SOLID), 0, RGB(255, 255, 255)};
    CBrush blackBrush;
    CPen blackPen{static_cast<int>(PS_SOLID), 0, RGB(0, 0, 0)};
    CBrush userBrush;
    CBrush systemBrush;
    KvMaskRaster userMaskDC;
    KvMaskRaster systemMaskDC;
    KvAOI8* maskAOI = nullptr;
    KvTSize<short> maskSize;
    KvTRectangle<short> maskRect;
    KvAOIBaseViewWnd* view = nullptr;
    KvSurroundRect figure;
    int changeMode = 0;
    KvTools::Link changeModeHdl;
    unsigned short dragMarker = KvSurroundRect::NoMarkerId;
    int showSystemMask = 1;
    int skipRubberErase = 0;
    unsigned short lineWidth = 1;
    HCURSOR viewCursor = nullptr;
    HCURSOR dragCursor = nullptr;
    int initialised = 0;

    DECLARE_MESSAGE_MAP()

private:
    // Draws into the user raster in the colours of the tool: filled without an outline, or an outline of the set width.
    template <class Draw>
    void Burn(Draw draw);
    void ActOnWholeMask();
    // What a figure in these bounds may have changed, its outline included.
    CRect Reach(const CRect& bounds) const;

    BOOL DrawBand(CDC& dc, const KvTPoint<short>& from, const KvTPoint<short>& to) const;
    void DrawRubberLine(CDC& dc, const KvTPoint<short>& to) const;
    void PressOnFigure(const KvTPoint<short>& point, const KvMouseEvent& event);
    void StartBand(CDC& dc, const KvTPoint<short>& point);
    void StartPolygon(CDC& dc, const KvTPoint<short>& point);
    void AddVertex(CDC& dc, const KvTPoint<short>& point);
    void FinishPolygon();
    void PlaceFigure(const KvTPoint<short>& point);
    void ReleaseFigure(const KvTPoint<short>& point);
    void HoverFigure(const KvTPoint<short>& point);
    void MoveRubber(const KvTPoint<short>& point);

    FailureSite bandFailure;
};

} // namespace KvN
