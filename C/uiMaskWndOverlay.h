// The mask window of the overlay dialog: the raster goes back into the mask AOI on every change, and the view paints
// that AOI as its overlay.
#pragma once

#include "C/uiMaskWndBase.h"

// As KvN::KvMaskWnd for the operator. The mask AOI is written on every change: bit 7 from the user raster, bit 6 from
// the system raster while the system mask is shown, else 0. Background and mask are not owned.
class KvMaskWndOverlay : public KvN::KvMaskWndBase
{
public:
    KvMaskWndOverlay();
    ~KvMaskWndOverlay() override;

    // To be called once, after the window exists.
    void Init(const KvN::KvAOI* background, KvN::KvAOI8* mask);

    void SetTool(unsigned short newTool) { SelectTool(newTool); }
    unsigned short GetTool() const { return static_cast<unsigned short>(SelectedTool()); }

    // Rebuilds both rasters from an AOI of the mask's size. Before `Init` nothing happens.
    void UpdateMaskDC(KvN::KvAOI8* mask);

    // Repaint if the state changes. Hiding clears bit 6 of the mask AOI; showing restores it from the raster.
    void ShowSystemMask();
    void HideSystemMask();

    // Writes bits 7 and 6 of the mask AOI, whether or not the system mask is shown.
    void MaskToAOI() override;

    // Only an open polygon: image and mask have been painted by the view.
    long long PaintHdl(KvN::KvAOIBaseViewWnd* source) override;

protected:
    // White pixels become the colour, coloured and black ones stay.
    void UpdateRasteredDC(CDC& mask, CBrush& colour);
    // Writes the rasters to the AOI and repaints the view.
    void Repaint();
    void ShowUserRaster(const CRect& changed) override;

    DECLARE_MESSAGE_MAP()

private:
    void LoadLayers(const KvN::KvAOI8& mask);
};
