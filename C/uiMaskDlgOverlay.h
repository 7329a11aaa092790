// The resizable mask dialog: the mask shows as an overlay of adjustable strength over a picture chosen from a list.
#pragma once

#include "C/uiMaskDlgBase.h"
#include "C/uiMaskDlgOverlayEntry.h"
#include "C/uiMaskWndOverlay.h"

class KvMaskDlgOverlay;

// A field of the legend, in the colour that the dialog has for it.
class CDrawButtonMask : public CButton
{
public:
    KvMaskDlgOverlay* parent = nullptr; // not owned

    void DrawItem(LPDRAWITEMSTRUCT item) override;

protected:
    DECLARE_MESSAGE_MAP()
};

// Use: constructor, `AddAOI` for further pictures, the setters, `Init`, `DoModal`; then the questions about what the
// operator did. The dialog paints in a copy of the mask: on IDOK bits 7 and 6 of the copy go to the host's mask and the
// settings to group "Mask" of the configuration file; otherwise neither is touched. Failures as in KvN::KvMaskDlg.
class KvMaskDlgOverlay : public KvN::KvMaskDlgBase
{
public:
    KvMaskDlgOverlay(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar);
    ~KvMaskDlgOverlay() override;

    // Background and mask have the same size, stay the caller's, and must live until `DoModal` has returned.
    void Init(const KvN::KvString& config, const KvN::KvAOI* background, KvN::KvAOI8* mask);

    // ---- The list of pictures; not owned. To be filled before `Init`.
    void AddAOI(KvN::KvAOI* aoi);
    int InsertAOI(KvN::KvAOI* aoi, long index);
    void DeleteAOI(long index);
    void ClearAOIList() { aoiList.Resize(0); }
    KvN::KvAOI* GetAt(long index) const;
    // Which picture is in use, by the host's AOI or by the dialog's display of it.
    void Select(KvN::KvAOI* source);
    void SelectDisplay(KvN::KvAOI* display);
    // The display of the picture that the view shows, and the host's AOI of it; null for an empty list.
    KvN::KvAOI* GetSelectedDisplay(KvN::KvAOI** source);
    const KvN::KvString& GetAOIName() const { return aoiName; }
    const KvN::KvString& GetOLutName() const { return oLutName; }
    void SetOLutName(const KvN::KvString& name) { oLutName = name; }

    // ---- Texts and colours, before `DoModal`. An empty text leaves the resource's.
    void SetColors(unsigned long defect, unsigned long surround);
    void GetColors(unsigned long& defect, unsigned long& surround) const;
    void SetHeaderText(const KvN::KvString& text) { headerText = text; }
    void SetTextDefect(const KvN::KvString& text) { textDefect = text; }
    void SetTextSurroundings(const KvN::KvString& text) { textSurroundings = text; }
    void SetTextSystemMask(const KvN::KvString& text) { textSystemMask = text; }
    static KvN::KvString GetResourceTextMaskSurroundings();
    static KvN::KvString GetResourceTextMaskDefect();
    static KvN::KvString GetResourceTextDesignMask();
    static KvN::KvString GetResourceTextIntensityMask();
    static KvN::KvString GetResourceTextThresholdMask();

    // ---- What shows, before `DoModal`
    void SetShowSurroundingOn() { showSurrounding = 1; }
    void SetShowSurroundingOff() { showSurrounding = 0; }
    void SetShowSystemMaskOn() { showSystemMaskOption = 1; }
    void SetShowSystemMaskOff() { showSystemMaskOption = 0; }
    // The threshold group, and the state of its check box.
    void ActivateSegment(int useObject);
    void DeactivateSegment(int useObject);
    int UseObjectAsSegment() const { return objectAsSegment; }
    // Below 65535: in force at the start in place of the stored width.
    void SetExternalLineWidth(unsigned short width) { externalLineWidth = width; }

    // Hides the system mask for good. Bit 6 comes back to the host's mask at OK all the same: the host asks
    // `IsSystemMaskDeleted` and clears it.
    void DeleteSystemMask();
    int IsSystemMaskDeleted() const { return systemMaskDeleted; }

    // ---- The view's default zoom, given to it at the start
    void SetDefaultZoomFactor(double zoom) { defaultZoomFactor = zoom; }
    double GetDefaultZoomFactor() const { return defaultZoomFactor; }
    void SetDefaultFittedToWindow(int on) { defaultFitted = on; }
    int IsDefaultFittedToWindow() const { return defaultFitted; }
    void SetDefaultAspectRatioMaintained(int on) { defaultAspect = on; }
    int IsDefaultAspectRatioMaintained() const { return defaultAspect; }
    // Stored only.
    void SetZoomFactor(double zoom) { zoomFactor = zoom; }
    void FitAOIToWindowOn() { fitToWindow = 1; }
    void FitAOIToWindowOff() { fitToWindow = 0; }
    void MaintainAspectRatioOn() { maintainAspectRatio = 1; }
    void MaintainAspectRatioOff() { maintainAspectRatio = 0; }

    virtual void OnDelSys();

protected:
    // Where a control was when the layout was captured, in client coordinates of the dialog.
    struct SzControl
    {
        RECT rect;
        HWND handle;
    };

    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    void CheckAOIList(KvN::KvAOI* aoi);
    void FillListDisplay();
    void DeleteListDisplay();
    KvN::KvAOI* CheckSelectedDisplay(KvN::KvAOI** source);

    void OnCheckSegment();
    void OnChecksystemmask();
    void OnHScroll(unsigned int code, unsigned int position, CScrollBar* bar);
    void OnSize(unsigned int type, int cx, int cy);
    void OnDeleteSystemCommand() { OnDelSys(); }

    KvN::KvString oLutName;
    KvN::KvString aoiName;
    KvN::KvBufferAOI8 workBuffer{KvN::KvTSize<short>(1, 1), 0};
    KvN::KvAOI8* workMask = nullptr;
    KvN::KvBufferAOI8 savedBuffer{KvN::KvTSize<short>(1, 1), 0};
    KvN::KvAOI8* savedMask = nullptr;
    KvN::KvTMem<KvN::KvAOI*> aoiList;
    KvN::KvTMem<KvN::KvAOIListEntry*> entryList;
    KvN::KvTMem<KvN::KvAOI*> displayList;
    double zoomFactor = 1.0;
    int fitToWindow = 0;
    int maintainAspectRatio = 1;
    int showSystemCheck = 1;
    KvMaskWndOverlay maskWnd;
    KvN::KvAOI8* hostMaskAOI = nullptr;
    int systemMaskDeleted = 0;
    int showSurrounding = 0;
    int showSystemMaskOption = 1;
    CDrawButtonMask defectButton;
    CDrawButtonMask surroundButton;
    unsigned long defectColor = 0;
    unsigned long surroundColor = 0;
    KvN::KvString headerText;
    KvN::KvString textDefect;
    KvN::KvString textSurroundings;
    KvN::KvString textSystemMask;
    int segmentActive = 0;
    unsigned short externalLineWidth = 65535;
    double overlayStrength = 0.3;
    int layoutReady = 0;
    RECT initialWindowRect{};
    short minimumScaleBottom = 0;
    short scaleTop = 0;
    KvTList<SzControl> controls;
    int defaultFitted = 1;
    int defaultAspect = 1;
    double defaultZoomFactor = 1.0;
    int objectAsSegment = 0;

    DECLARE_MESSAGE_MAP()

private:
    // ---- Steps of `OnInitDialog`
    void RestoreStrength(const KvN::KvString& text);
    void RestoreSystemMask(const KvN::KvString& text);
    void ReplaceTexts();
    void ShowSlider();
    void SetUpView();
    void ShowLegend();
    void ShowSegmentGroup();
    void CaptureLayout();

    void ShowControl(int id, int show);
    void MoveControl(const SzControl& control, int dW, int dH);
    void RememberView();
};
