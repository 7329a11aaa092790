// The window in which an operator paints a mask over an image, the mask showing as a see-through checker.
#pragma once

#include "C/uiMaskWndBase.h"

namespace KvN
{

// Bit 7 of the mask AOI is the user mask, shown in red and edited; bit 6 is the system mask, shown in blue and never
// changed. While the window lives the mask is raster: the AOI is read by `Init` and written by `MaskToAOI`.
// A subclassed control; background and mask are not owned and must have the same size.
class KvMaskWnd : public KvMaskWndBase
{
public:
    KvMaskWnd();
    ~KvMaskWnd() override;

    // To be called once, after the window exists. Throws KvGDIException* if a pattern can't be loaded.
    void Init(const KvAOI* background, KvAOI8* mask);

    void SetTool(int newTool) { SelectTool(newTool); }
    int GetTool() const { return SelectedTool(); }

    // Writes bit 7 of the mask AOI; all other bits stay.
    void MaskToAOI() override;

    // Neither repaints.
    void ShowSystemMask() { showSystemMask = 1; }
    void HideSystemMask() { showSystemMask = 0; }

    // Draws the layers, the figure and the open polygon over the image that the view has painted.
    long long PaintHdl(KvAOIBaseViewWnd* source) override;

protected:
    // Builds the display pair of a black-and-white mask: where the mask is set, a checker lets every second pixel of
    // the image through and makes the others `colour`. The outermost ring of pixels never shows the mask.
    void UpdateRasteredDC(CDC& mask, CDC& andDC, CDC& paintDC, CBrush& colour);
    // Shows layers and figure on the view's output device; with `refresh`, repaints the view first.
    void Repaint(int refresh);
    void ShowUserRaster(const CRect& changed) override;

    CBrush hatchBrush;
    KvMaskRaster userAndDC;
    KvMaskRaster userPaintDC;
    KvMaskRaster systemAndDC;
    KvMaskRaster systemPaintDC;

    DECLARE_MESSAGE_MAP()

private:
    void LoadPatterns();
    void ShowLayer(CDC& target, KvMaskRaster& andDC, KvMaskRaster& paintDC) const;
};

} // namespace KvN
