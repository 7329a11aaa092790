// KvContourWnd: the interactive editor of contours over an AOI view.
// Defined in uiContourWnd.cpp (life, wiring, options), and by concern in uiContourWnd_store, _interaction, _tools,
// _completion, _matching, _stretching, _rendering, _figure, _cursors, _undo, _markers.
#pragma once

#include "C/syContour.h"
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIWnd.h"
#include "C/uiContourWnd_markers.h"
#include "C/uiContourWnd_state.h"
#include "contracts/image.h"
#include "contracts/undo.h"

#include <array>
#include <cstdint>
#include <memory>

// Shows one AOI and lets an operator draw, select, move, stretch, rotate, invert and delete figures on it.
//
// Words: a contour is a finished figure in the store; the figure is the one being drawn or edited, apart from the store
// until it is completed; the tool says what a press of the left button does; the edit mode says what a drag in the
// select tool is doing.
// Space: logical units, that is AOI pixels, x to the right, y downward.
// Life: constructed, created as a window, `Init`, `SetHandler`, use, `ResetHandler`, destroyed. All of it in the thread
// of the user interface. Signals arrive inside the operation that sends them and may call back into the editor.
class KvContourWnd : public KvN::KvAOIWnd
{
public:
    using Link = KvTools::Link;
    using KvContour = KvN::KvContour;
    using KvVec2d = KvN::KvVec2d;
    using KvVec2i = KvN::KvVec2i;
    using KvAOIBaseViewWnd = KvN::KvAOIBaseViewWnd;
    using Position = KvN::KvTPoint<short>;
    using Pair = KvN::KvTPair<long>;
    using ContourList = KvN::KvTPList<KvContour>;

    // Tools, as `SetTool` and `GetTool` number them; all other numbers mean `ToolSelect`.
    enum eTool : unsigned short
    {
        ToolEllipse = 3,         // by its diagonal; Shift: circle
        ToolRect = 4,            // by its diagonal; Shift: square
        ToolPolygon = 5,         // by clicks, ended by a double click
        ToolPolyline = 6,        // likewise
        ToolEllipseExcluded = 7, // the same four, excluded
        ToolRectExcluded = 8,
        ToolPolygonExcluded = 9,
        ToolPolylineExcluded = 10,
        ToolEditPoints = 11, // moves, adds and deletes points of polygons and polylines
        ToolFullFrame = 12,  // at once: adds a rectangle over the whole AOI
        ToolDeleteAll = 13,  // at once: deletes all contours
        ToolInvertAll = 14,  // at once: inverts all contours
        ToolSelect = 0xFFFF  // selects and edits whole contours
    };

    // What `m_SignalOperation` tells.
    enum eOperation
    {
        OperationChange = 0,    // a contour was moved, stretched, rotated, inverted, or its points or width were edited
        OperationAdd = 1,       // a completion ended, also one that added nothing
        OperationDelete = 3,    // one or all contours were deleted
        OperationSelect = 4,    // the selection was set, or the point tool entered
        OperationInvertAll = 5, // all contours were inverted
        OperationUndo = 6,
        OperationRedo = 7
    };

    KvContourWnd();
    ~KvContourWnd() override;

    // ---- Life and wiring --------------------------------------------------------------------------------------------

    // Shows the AOI, which stays the caller's, loads the cursors and listens to the view's keys and paints. Until
    // `SetHandler` the editor only displays.
    void Init(const KvN::KvAOI* aoi);
    void SetHandler();
    // Display only; contours go on being drawn.
    void ResetHandler();
    // Called with the editor as data when the tool or the editing state changes, and by every `DeleteFigure`.
    void SetChangeModeHdl(const Link& link) { m_ChangeModeHdl = link; }

    static long long LinkStubMouseButtonDownHdl(void* instance, void* data);
    static long long LinkStubMouseButtonUpHdl(void* instance, void* data);
    static long long LinkStubMouseMoveHdl(void* instance, void* data);
    static long long LinkStubPaintHdl(void* instance, void* data);

    // Each returns 1. The mouse handlers throw KvException* with the figure dropped and the capture released.
    long long MouseButtonDownHdl(KvAOIBaseViewWnd* view);
    long long MouseButtonUpHdl(KvAOIBaseViewWnd* view);
    long long MouseMoveHdl(KvAOIBaseViewWnd* view);
    long long PaintHdl(KvAOIBaseViewWnd* view);

    // ---- Tools and options ------------------------------------------------------------------------------------------

    // The tool that is set already is not set again. The one-shot tools act at once.
    void SetTool(unsigned short tool);
    unsigned short GetTool() const { return m_Tool; }

    // Flags; none of them repaints.
    void SetEnableDeleteOn() { m_EnableDelete = 1; } // contours and points may be deleted. Default on
    void SetEnableDeleteOff() { m_EnableDelete = 0; }
    void SetEnableInvertOn() { m_EnableInvert = 1; } // a Ctrl press inverts a contour. Default on
    void SetEnableInvertOff() { m_EnableInvert = 0; }
    void SetInteractionOn() { m_Interaction = 1; } // off: nothing can be picked. Default on
    void SetInteractionOff() { m_Interaction = 0; }
    int IsInteractionOn() const { return m_Interaction; }
    void SetShowThumbsOn() { m_ShowThumbs = 1; } // handles are drawn; undrawn ones still catch. Default on
    void SetShowThumbsOff() { m_ShowThumbs = 0; }
    void SetShowPolylineDirectionOn() { m_ShowPolylineDirection = 1; } // arrows at both ends. Default off
    void SetShowPolylineDirectionOff() { m_ShowPolylineDirection = 0; }
    void SetUsePolylineWidthOn() { m_UsePolylineWidth = 1; } // a polyline is drawn at its true width. Default on
    void SetUsePolylineWidthOff() { m_UsePolylineWidth = 0; }

    // Each stores and repaints.
    void SetCatchSize(unsigned short radius); // of a hit, in logical units at every zoom
    void SetThumbSize(unsigned short size);   // of handles, as `SetLineWidth`
    void SetLineWidth(unsigned short width);  // on a client area as large as the AOI
    void SetLineWidthThumb(unsigned short width);
    void SetColor(unsigned long color); // 0x00BBGGRR, of included contours without a colour of their own
    void SetColorExcluded(unsigned long color);
    unsigned short GetLineWidth() const { return m_LineWidth; }
    unsigned short GetLineWidthThumb() const { return m_LineWidthThumb; }
    unsigned short GetPolylineWidth() const { return m_PolylineWidth; }
    // The width of the selected polyline, or without one of the polylines to be drawn. In logical units.
    void SetPolylineWidth(unsigned short width);

    KvSymbolMarkerList& GetSymbolMarkerList() { return m_SymbolMarkerList; }

    // ---- Store; contours stay the editor's --------------------------------------------------------------------------

    // Null if there is none.
    KvContour* GetContour(long id) const;
    KvContour* GetContourByIndex(long index) const;    // by ascending ID
    KvContour* GetContourSeqByIndex(long index) const; // in drawing order
    ContourList* GetContourList() { return &m_Contours; }
    KvContour* GetSelectedContour() const { return GetContour(m_SelectedID); }
    // Selects without a signal and without a repaint. Null, and nothing happens, while a figure is in progress; null
    // and the selection stays if there is no such contour.
    KvContour* SelectContour(long id);
    // Replaces all contours by copies; of several with one ID the first stays. Drops figure and selection, sends no
    // signal, saves no undo state. 0 if a copy can't be made; then nothing is drawn until the next list.
    int SetContourList(const ContourList& list);
    // The same with copies turned and moved about the origin by the matrix.
    int SetContourList(const KvTList<KvContour>& list, const KvN::KvMatrix4& matrix);
    // Restores both orders after a host has changed IDs or sequence numbers.
    void Sort();

    // ---- State ------------------------------------------------------------------------------------------------------

    int IsEditing() const; // a figure is in progress
    int IsRotating() const { return m_EditMode == EditRotate; }
    // Whether the host may offer `ToolEditPoints`: a polygon or polyline is selected.
    int IsPointEditModeAllowed() const;

    // ---- Undo -------------------------------------------------------------------------------------------------------

    // Not owned, null allowed. Its states point at this editor: empty the manager before the editor goes.
    void SetUndoRedo(KvN::KvUndoRedo* manager) { m_pUndoRedo = manager; }
    // Gives the manager a snapshot of the store as a step of its own.
    void SaveUndoRedoState();
    int CanUndo() const;
    int CanRedo() const;
    void Undo();
    void Redo();

    // ---- Drawing ----------------------------------------------------------------------------------------------------

    // Everything stored. A null context stands for the view's; without a view nothing happens.
    void DisplayUserDrawnRegions(CDC* pDC, KvAOIBaseViewWnd* view);
    // The direction of a stored polyline, if directions are shown.
    void DisplayCurrentSymbols(CDC* pDC, KvContour* contour);

    // ---- Cursors: each shows at once and stays the view's default ---------------------------------------------------

    void SetCursorSizeAll() { ShowCursor(m_CursorSizeAll); }
    void SetCursorArrow() { ShowCursor(m_CursorArrow); }
    void SetCursorSelect() { ShowCursor(m_CursorArrow); }
    void SetCursorNewPoint() { ShowCursor(m_CursorNewPoint); }
    void SetCursorCross() { ShowCursor(m_CursorNewPoint); }
    void SetCursorMoveObject() { ShowCursor(m_CursorMoveObject); }
    void SetCursorInvertObject() { ShowCursor(m_CursorInvertObject); }
    void SetCursorRotateObject() { ShowCursor(m_CursorRotateObject); }
    void SetCursorDeletePoint() { ShowCursor(m_CursorDeletePoint); }
    void SetCursorAddPoint() { ShowCursor(m_CursorAddPoint); }
    void SetCursorMovePoint() { ShowCursor(m_CursorMovePoint); }
    void SetCursorSizeHorizontal() { ShowCursor(m_CursorSizeHorizontal); }
    void SetCursorSizeVertical() { ShowCursor(m_CursorSizeVertical); }
    void SetCursorSizeLeftTopRightBottom() { ShowCursor(m_CursorSizeLeftTopRightBottom); }
    void SetCursorSizeLeftBottomRightTop() { ShowCursor(m_CursorSizeLeftBottomRightTop); }
    // A cursor of the host's; the next mouse move replaces it.
    void SetCustomCursor(HICON cursor) { ShowCursor(cursor); }

protected:
    // What a drag in the select tool does.
    enum eEditMode
    {
        EditNone = 0,
        EditMove = 1,
        EditStretchEdge = 2,   // `m_Pair`: the edge's corner and the next
        EditStretchCorner = 3, // `m_Pair`: the corner twice
        EditRotate = 4
    };

    // A coordinate of `m_Pos`, `m_Start`, `m_Last` that is not set.
    static constexpr int Unset = 0x7FFFFFFF;

    // ---- Events -----------------------------------------------------------------------------------------------------

    static void Slot_OnKeyDown(void* instance, unsigned int key);
    static void Slot_OnKeyUp(void* instance, unsigned int key);
    void OnKeyDown(unsigned int key);
    void OnKeyUp(unsigned int key);

    void OnRectFrame(const Position& point);
    void OnEllipseFrame(const Position& point);
    void OnPolylineFrame(const Position& point, KvN::KvMouseEvent event);
    void OnEditPoints(const Position& point, KvN::KvMouseEvent event);
    // Starts a drag (`handleHit`: a handle may be meant), or takes the next step of the one that is going on.
    void OnEditObject(const Position& point, int handleHit);
    // 1 when a handle of the selected contour was hit; otherwise selects what the point hits, or nothing.
    int OnSelectFrame(const Position& point);
    void OnDeletePoint(const Position& point);
    void OnDeleteObject(const Position& point);
    void OnInvertFrame(const Position& point);
    void OnFullFrame();
    void OnDeleteAllFrames();
    void OnInvertAllFrames();

    // ---- Figure -----------------------------------------------------------------------------------------------------

    // Ends an interaction: the figure goes into the store, as a new contour or back into the one it was copied from.
    // An invalid figure is dropped.
    void CompleteContour();
    // Throws the working state away, whatever it was, releases the capture and repaints.
    void DeleteFigure();
    void DeleteContour(const KvContour& contour);
    // Whether the contour is the frame that covers the whole AOI.
    int IsAOIRect(const KvContour& contour) const;

    // Stretches the figure so that the dragged edge or corner of its bounding rectangle follows the mouse, while the
    // one opposite stays. 0 if the mouse or the rectangle leaves nothing to stretch by; the figure is then unchanged.
    int Stretch(KvContour& figure, const Pair& edge, const KvVec2d& mouse) const;
    int Stretch(KvContour& figure, long corner, int proportional, const KvVec2d& mouse) const;

    // ---- Matching: null, and an index of -1, if nothing is hit ------------------------------------------------------

    KvContour* MatchObject(const Position& point) const;
    // `rect` receives the bounding rectangle whose handle was tested. Both output arguments may be null.
    KvContour* MatchBoundingRectCornerPoints(const Position& point, KvContour* rect, long* index) const;
    KvContour* MatchBoundingRectEdgePoints(const Position& point, KvContour* rect, Pair* edge) const;
    KvContour* MatchPointOfPoly(const Position& point, long& index) const;
    KvContour* MatchLineOfPoly(const Position& point, Pair& line) const;

    // ---- Store ------------------------------------------------------------------------------------------------------

    void SetContourSelected(KvContour* contour);
    KvContour* SelectContourIfMatch(const Position& point);
    void FillContourSeq();
    long GetNextContourID() const; // the smallest free one
    long GetNextContourSequenceID() const;
    // Takes a contour into both orders and returns it. Null if its ID is there already; it stays the caller's then.
    // A contour with the same sequence number leaves the drawing order, which is required.
    KvContour* InsertContourPtr(KvContour* contour);

    // ---- Drawing ----------------------------------------------------------------------------------------------------

    void DrawCurrentFigure() { DrawCurrentFigure(m_Pos, m_Pair); }
    void DrawCurrentFigure(const KvVec2i& position, const Pair& pair);
    void DrawCurrentSymbols(CDC* pDC, const KvVec2i& position);
    void EraseCurrentFigure(); // a full repaint

    // Device pixels per logical unit at which the AOI would fill the client area; 1.0 without an area.
    double GetZoomFactorFittedToWindow(KvAOIBaseViewWnd* view) const;
    double GetEffectiveZoomFactor(KvAOIBaseViewWnd* view) const; // at least 0.1
    double GetEffectiveLineWidth(KvAOIBaseViewWnd* view) const;
    double GetEffectiveLineWidthThumb(KvAOIBaseViewWnd* view) const;
    double GetEffectiveThumbSize(KvAOIBaseViewWnd* view) const;
    double AOIWndFontHeight(KvAOIBaseViewWnd* view) const;
    LOGFONTW CreateAOIWndLogFont(KvAOIBaseViewWnd* view) const;

    // ---- Cursors ----------------------------------------------------------------------------------------------------

    // Shows what a press would do at the mouse position.
    void SelectCursor();
    void SelectCursorFromBoundingContour(const KvContour& rectangle, long corner);
    void SelectCursorFromBoundingContour(const KvContour& rectangle, Pair edge);

    void CallChangeModeHdl();

    DECLARE_MESSAGE_MAP()

private:
    friend class KvN::KvContourWndState;
    using MakeFromDiagonal = void (KvContour::*)(double, double, double, double);

    void ShowCursor(HCURSOR cursor);
    void ShowSizeCursor(const KvVec2d& direction);
    void SelectPointCursor(const Position& point, bool ctrl);
    void SelectObjectCursor(const Position& point, bool ctrl, bool alt);
    Position MousePosition() const;
    KvN::KvTSize<short> AOISize() const;
    // The view, as long as its window is there: it goes with the window, before the editor does.
    KvAOIBaseViewWnd* View() const { return m_pView && ::IsWindow(m_ViewWnd) ? m_pView : nullptr; }
    void Repaint() { EraseCurrentFigure(); }
    void ResetToSelect();

    template <class Work>
    void Guarded(Work work);
    void PressTool(KvAOIBaseViewWnd& view, const Position& point, const KvN::KvMouseEvent& event);
    bool MoveTool(const Position& point, const KvN::KvMouseEvent& event);
    bool EndsWithRelease() const;
    void NewFigure(KvContour::eContourType type, int exclude);
    void DragDiagonal(const Position& point, MakeFromDiagonal make);
    void StartPolyline(const Position& point);
    void ContinuePolyline(const Position& point, const KvN::KvMouseEvent& event);
    void DragPoint(const Position& point, const KvN::KvMouseEvent& event);
    void HoldPoint(const KvContour& contour, const Position& point);
    void StartEdit(const Position& point, int handleHit, bool turn, bool invert);
    KvContour* TakeHandle(const Position& point, bool turn);
    void ContinueEdit(const Position& point, bool proportional);
    bool EditStep(KvContour& figure, bool proportional) const;
    void AddWholeFrameBeneath();
    void DeleteSelectedByKey();
    void LeavePointTool(const Position& point);

    void CompleteNewFigure();
    void CompletePoints();
    void CompleteEdit();

    template <class Hit>
    KvContour* FirstHit(Hit hit) const;
    KvContour* SelectedWithHandles() const;
    int InsertCopy(std::unique_ptr<KvContour> copy);
    void RemoveFromSequence(KvContour& contour);
    template <class Fill>
    int ReplaceContours(Fill fill);

    COLORREF ColorOf(const KvContour& contour) const;
    void DisplayContour(CDC& dc, int width, KvContour& contour);
    bool IsOutOfSight(const KvContour& contour, const CRect& visible, int width) const;
    void DisplayShape(CDC& dc, KvContour& contour);
    void DisplayLabel(CDC& dc, const KvContour& contour) const;
    void DisplayHandles(CDC& dc, KvAOIBaseViewWnd& view);
    void DisplayBoundingHandles(CDC& dc, KvAOIBaseViewWnd& view, const KvContour& contour) const;
    void DisplayPointHandles(CDC& dc, KvAOIBaseViewWnd& view, const KvContour& contour) const;
    void DrawFigure(CDC& dc, const KvVec2i& position, const Pair& pair);
    void DrawFigureShape(CDC& dc, const KvVec2i& position);
    void DrawFigureLine(CDC& dc, const KvVec2i& position);
    void DrawFigurePoints(CDC& dc, const Pair& pair, int width, COLORREF color);
    int FigureWidth() const;

    KvN::KvContourKeeper m_Keeper;
    HWND m_ViewWnd = nullptr;

    static bool IsSet(const KvVec2i& position) { return position.x != Unset && position.y != Unset; }

protected:
    int m_EditMode = EditNone;
    KvSymbolMarkerList m_SymbolMarkerList;
    KvN::KvUndoRedo* m_pUndoRedo = nullptr;
    HCURSOR m_CursorSizeAll = nullptr;
    HCURSOR m_CursorArrow = nullptr;
    HCURSOR m_CursorNewPoint = nullptr;
    HCURSOR m_CursorMoveObject = nullptr;
    HCURSOR m_CursorInvertObject = nullptr;
    HCURSOR m_CursorRotateObject = nullptr;
    HCURSOR m_CursorDeletePoint = nullptr;
    HCURSOR m_CursorAddPoint = nullptr;
    HCURSOR m_CursorMovePoint = nullptr;
    HCURSOR m_CursorSizeHorizontal = nullptr;
    HCURSOR m_CursorSizeVertical = nullptr;
    HCURSOR m_CursorSizeLeftTopRightBottom = nullptr;
    HCURSOR m_CursorSizeLeftBottomRightTop = nullptr;
    int m_HandlersSet = 0;
    int m_FigureActive = 0; // a figure is being drawn with a tool, or a point is held
    long m_SelectedID = -1; // negative means none; may name a contour that is gone
    unsigned short m_Tool = ToolSelect;
    KvAOIBaseViewWnd* m_pView = nullptr;
    KvN::KvTRectangle<short> m_AOIRect;
    unsigned short m_CatchSize = 16;
    unsigned short m_ThumbSize = 6;
    unsigned short m_LineWidth = 2;
    unsigned short m_LineWidthThumb = 2;
    unsigned short m_PolylineWidth = 2;
    int m_UsePolylineWidth = 1;
    int m_EnableInvert = 1;
    int m_EnableDelete = 1;
    int m_ShowPolylineDirection = 0;
    int m_ShowThumbs = 1;
    int m_Interaction = 1;
    COLORREF m_Color = 0xFF00FF;
    COLORREF m_ColorExcluded = 0xFFFF00;
    COLORREF m_ColorCornerThumbFill = 0x40FF00;
    COLORREF m_ColorCornerThumbLine = 0x000000;
    COLORREF m_ColorEdgeThumbFill = 0xFFC4C4;
    COLORREF m_ColorEdgeThumbLine = 0x000000;
    COLORREF m_ColorPointThumbFill = 0x000000;
    COLORREF m_ColorPointThumbLine = 0xFFFFFF;
    ContourList m_Contours;   // by ascending ID; owns the contours
    ContourList m_ContourSeq; // the same pointers by ascending sequence number, which is the drawing order
    KvContour m_Figure;
    KvContour m_FigurePreview;   // the figure with the mouse position appended
    Pair m_Pair{-1, -1};         // the handle, point or edge that the edit holds
    KvVec2i m_Pos{Unset, Unset}; // current position of the edit
    KvVec2i m_Start{Unset, Unset};
    KvVec2i m_Last{Unset, Unset};
    Link m_ChangeModeHdl;

    // Drawn at the ends of polylines, in logical units at every zoom, along the direction of growing x.
    static const std::array<KvVec2d, 3> m_SymbolArrowStart;
    static const std::array<KvVec2d, 5> m_SymbolArrowHead;

public:
    // ---- Signals, in the order that hosts know ----------------------------------------------------------------------

    KvN::KvTSignal<KvContour*> m_SignalContourChanged;   // the contour, after the change
    KvN::KvTSignal<KvContour*> m_SignalContourAdded;     // the contour, before it enters the store; null: all changed
    KvN::KvTSignal<KvContour*> m_SignalContourReserved;  // never sent; it keeps its place
    KvN::KvTSignal<KvContour*> m_SignalContourDeleted;   // the contour, still alive; null: all were deleted
    KvN::KvTSignal<KvContour*> m_SignalContoursInverted; // null
    KvN::KvTSignal<KvContour*> m_SignalContourSelected;  // the selected contour or null
    KvN::KvTSignal<eOperation> m_SignalOperation;        // the last step of each operation
    KvN::KvTSignal<KvContour*> m_SignalFigureMoved;      // the figure, or the preview while it is rubber-banded
    KvN::KvTSignal<Position> m_SignalClickNoInteraction; // a press while interaction is off
    KvN::KvTSignal<Position> m_SignalCursorRequest;      // with a member slot: the host sets the cursor by itself
};
