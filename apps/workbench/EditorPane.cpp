// The editor in its pane: what the workbench does beyond the editor's own interaction.
#include "apps/workbench/EditorPane.h"

#include "C/uiContourWnd.h"
#include "contracts/undo.h"
#include "platform/win/qt_host.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace kv::workbench
{
namespace
{
using KvN::KvAOIBaseViewWnd;
using KvN::KvContour;

constexpr double zoomStep = 1.25;
constexpr double smallestZoom = 0.02;
constexpr double largestZoom = 64.0;
constexpr float maskStrength = 0.4f;    // of a mask over the image
constexpr double longestSide = 32767.0; // of a zoomed image, in screen pixels

// The editor with the store operations that a host of its own kind may use.
class StoreEditor : public KvContourWnd
{
public:
    using KvContourWnd::GetNextContourID;
    using KvContourWnd::GetNextContourSequenceID;
    using KvContourWnd::InsertContourPtr;
    using KvContourWnd::OnDeleteObject;
    using KvContourWnd::SetContourSelected;

    void DeleteStored(KvContour* contour)
    {
        SaveUndoRedoState();
        DeleteContour(*contour);
    }
};
} // namespace

struct EditorPane::Private
{
    explicit Private(EditorPane& pane_) : pane(pane_) {}

    EditorPane& pane;
    KvN::KvUndoRedo undo;
    StoreEditor editor;
    KvN::KvAOI* image = nullptr;
    bool changed = false;
    const KvContour* figure = nullptr; // the one that moved last; the editor's own
    std::optional<QPoint> pointer;
    std::optional<QPoint> panFrom;

    KvAOIBaseViewWnd* View() const { return editor.GetAOIBaseViewWnd(); }
    void Connect();
    void Tell(KvContourWnd::eOperation operation);
    void ShowZoom(double factor, std::optional<QPoint> about);
    double LargestZoom() const;
    void Wheel(const QWheelEvent& event);
    bool Pan(QMouseEvent& event);
    void Track(const QPoint& at);
    void Install(const EditorPane::ContourList& contours);
};

EditorPane::EditorPane(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>(*this))
{
    setAcceptDrops(true);
    CWnd* host = CWnd::FromHandle(kv::win::HostWindow(this));
    d->editor.Create(host);
    kv::win::FillHost(this, d->editor);
    d->editor.SetUndoRedo(&d->undo);
    d->editor.Init(nullptr);
    d->editor.SetHandler();
    d->Connect();
    // Ahead of the window layer, which takes the view's events whole.
    QApplication::instance()->installEventFilter(this);
}

EditorPane::~EditorPane()
{
    QApplication::instance()->removeEventFilter(this);
    d->undo.Clear(); // its states point at the editor
    d->editor.SetUndoRedo(nullptr);
    d->editor.DestroyWindow();
}

// What changed is known before the store has changed; the operation's last signal comes after it.
void EditorPane::Private::Connect()
{
    const auto mark = [](void* self, KvContour*) { static_cast<Private*>(self)->changed = true; };
    editor.m_SignalContourChanged.Connect(this, mark);
    editor.m_SignalContourAdded.Connect(this, mark);
    editor.m_SignalContourDeleted.Connect(this, mark);
    editor.m_SignalContoursInverted.Connect(this, mark);
    editor.m_SignalOperation.Connect(this, [](void* self, KvContourWnd::eOperation operation)
                                     { static_cast<Private*>(self)->Tell(operation); });
    editor.m_SignalFigureMoved.Connect(this,
                                       [](void* self, KvContour* moved)
                                       {
                                           static_cast<Private*>(self)->figure = moved;
                                           emit static_cast<Private*>(self)->pane.PointerMoved();
                                       });
    editor.SetChangeModeHdl({this,
                             [](void* self, void*) -> long long
                             {
                                 emit static_cast<Private*>(self)->pane.ToolChanged();
                                 return 1;
                             }});
    View()->ChangeResizeHdl({this,
                             [](void* self, void*) -> long long
                             {
                                 emit static_cast<Private*>(self)->pane.ZoomChanged();
                                 return 1;
                             }});
}

void EditorPane::Private::Tell(KvContourWnd::eOperation)
{
    figure = nullptr; // the editor counts as editing until its signals are out
    if (std::exchange(changed, false))
        emit pane.ContoursChanged();
    emit pane.SelectionChanged();
    emit pane.ToolChanged();
}

void EditorPane::Private::Install(const EditorPane::ContourList& contours)
{
    KvTList<KvContour> list;
    for (const KvContour& contour : contours)
        list.AddTail(contour);
    editor.SetContourList(list, KvN::KvMatrix4());
}

void EditorPane::Show(KvN::KvAOI* image, const ContourList& contours)
{
    d->image = image;
    d->undo.Clear();
    d->editor.SetTool(KvContourWnd::ToolSelect);
    d->View()->SetAOI(image);
    d->View()->UpdateDefaultZoom();
    d->Install(contours);
    emit ContoursShown();
    emit SelectionChanged();
    emit ZoomChanged();
}

void EditorPane::ShowMask(KvN::KvAOI8* mask)
{
    d->View()->SetOverlayAOI(mask);
    d->View()->SetOverlayStrength(maskStrength);
    d->View()->InvalidateRect(nullptr, FALSE);
}

void EditorPane::Replace(const ContourList& contours)
{
    d->editor.SaveUndoRedoState();
    d->Install(contours);
    emit ContoursChanged();
    emit SelectionChanged();
}

EditorPane::ContourList EditorPane::Contours() const
{
    ContourList contours;
    contours.reserve(static_cast<size_t>(Count()));
    for (int i = 0; i < Count(); ++i)
        contours.push_back(*At(i));
    return contours;
}

int EditorPane::Count() const
{
    return static_cast<int>(d->editor.GetContourList()->NumEntries());
}
const KvContour* EditorPane::At(int index) const
{
    return d->editor.GetContourByIndex(index);
}
const KvContour* EditorPane::Selected() const
{
    return d->editor.GetSelectedContour();
}

int EditorPane::SelectedIndex() const
{
    const KvContour* selected = Selected();
    for (int i = 0; selected && i < Count(); ++i)
    {
        if (At(i) == selected)
            return i;
    }
    return -1;
}

void EditorPane::Select(int index)
{
    KvContour* contour = d->editor.GetContourByIndex(index);
    if (contour != d->editor.GetSelectedContour() && !d->editor.IsEditing())
        d->editor.SetContourSelected(contour);
}

void EditorPane::SelectNextUnderPointer()
{
    if (!d->pointer || d->editor.IsEditing())
        return;
    const KvN::KvVec2d at(d->pointer->x(), d->pointer->y());
    const int count = Count();
    const int from = SelectedIndex();
    for (int step = 1; step <= count; ++step)
    {
        const int index = (from + step) % count;
        if (At(index)->IsMatch(at, 16.0))
            return Select(index);
    }
}

void EditorPane::Change(int index, const std::function<void(KvContour&)>& change)
{
    KvContour* contour = d->editor.GetContourByIndex(index);
    if (!contour || d->editor.IsEditing())
        return;
    d->editor.SaveUndoRedoState();
    change(*contour);
    d->editor.m_SignalContourChanged(contour);
    d->View()->InvalidateRect(nullptr, FALSE);
    d->editor.m_SignalOperation(KvContourWnd::OperationChange);
}

void EditorPane::Add(const ContourList& contours)
{
    if (contours.empty() || d->editor.IsEditing())
        return;
    d->editor.SetTool(KvContourWnd::ToolSelect);
    d->editor.SaveUndoRedoState();
    KvContour* last = nullptr;
    for (const KvContour& contour : contours)
    {
        auto copy = std::make_unique<KvContour>(contour);
        copy->ID() = static_cast<std::int32_t>(d->editor.GetNextContourID());
        copy->SequenceID() = static_cast<std::int32_t>(d->editor.GetNextContourSequenceID());
        d->editor.m_SignalContourAdded(copy.get());
        if ((last = d->editor.InsertContourPtr(copy.get())))
            copy.release();
    }
    d->editor.SetContourSelected(last);
    d->editor.m_SignalOperation(KvContourWnd::OperationAdd);
}

void EditorPane::DeleteSelected()
{
    KvContour* selected = d->editor.GetSelectedContour();
    if (!selected || selected->ReadOnly() || d->editor.IsEditing())
        return;
    d->editor.DeleteStored(selected);
    d->editor.SetContourSelected(nullptr);
    d->editor.m_SignalOperation(KvContourWnd::OperationDelete);
}

void EditorPane::InvertSelected()
{
    if (SelectedIndex() >= 0 && !Selected()->ReadOnly())
        Change(SelectedIndex(), [](KvContour& contour) { contour.Exclude() = !contour.Exclude(); });
}

unsigned short EditorPane::Tool() const
{
    return d->editor.GetTool();
}

void EditorPane::SetTool(unsigned short tool)
{
    d->editor.SetTool(tool);
    emit ToolChanged();
}

void EditorPane::SetShowHandles(bool on)
{
    on ? d->editor.SetShowThumbsOn() : d->editor.SetShowThumbsOff();
    d->View()->InvalidateRect(nullptr, FALSE);
}

void EditorPane::SetShowDirection(bool on)
{
    on ? d->editor.SetShowPolylineDirectionOn() : d->editor.SetShowPolylineDirectionOff();
    d->View()->InvalidateRect(nullptr, FALSE);
}

bool EditorPane::CanUndo() const
{
    return d->editor.CanUndo() && !d->editor.IsEditing();
}
bool EditorPane::CanRedo() const
{
    return d->editor.CanRedo() && !d->editor.IsEditing();
}
void EditorPane::Undo()
{
    d->editor.Undo();
}
void EditorPane::Redo()
{
    d->editor.Redo();
}

double EditorPane::Zoom() const
{
    double x = 1.0;
    double y = 1.0;
    d->View()->CalculateStretchFactors(x, y);
    return x;
}

bool EditorPane::IsFitted() const
{
    return d->View()->IsAOIFittedToWindow();
}

double EditorPane::Private::LargestZoom() const
{
    const double side = image ? std::max<double>(image->AOIWidth(), image->AOIHeight()) : 1.0;
    return std::min(largestZoom, longestSide / std::max(side, 1.0));
}

// The image point under `about` stays there as far as the scroll range allows.
void EditorPane::Private::ShowZoom(double factor, std::optional<QPoint> about)
{
    if (!image)
        return;
    KvAOIBaseViewWnd& view = *View();
    const double zoom = std::clamp(factor, smallestZoom, LargestZoom());
    const QPoint at = about.value_or(QPoint(0, 0));
    const auto before = view.GetLogicPoint({static_cast<short>(at.x()), static_cast<short>(at.y())});
    view.SetDefaultOff();
    view.SetZoomFactor(zoom);
    const auto corner = [zoom](short logic, int pixel)
    { return static_cast<short>(std::lround(logic - pixel / zoom)); };
    view.SetAOIPos({corner(before.x, at.x()), corner(before.y, at.y())});
    emit pane.ZoomChanged();
}

void EditorPane::ZoomBySteps(int steps, std::optional<QPoint> about)
{
    d->ShowZoom(Zoom() * std::pow(zoomStep, steps), about);
}

void EditorPane::SetZoom(double factor)
{
    d->ShowZoom(factor, std::nullopt);
}

void EditorPane::FitToWindow()
{
    if (!d->image)
        return;
    d->View()->SetDefaultOff();
    d->View()->MaintainPixelAspectRatioOn();
    d->View()->FitAOIToWindowOn();
    emit ZoomChanged();
}

std::optional<QPoint> EditorPane::Pointer() const
{
    return d->pointer;
}

const KvContour* EditorPane::FigureInProgress() const
{
    return d->editor.IsEditing() ? d->figure : nullptr;
}

void EditorPane::Private::Wheel(const QWheelEvent& event)
{
    if (event.modifiers().testFlag(Qt::ControlModifier))
    {
        const int steps = event.angleDelta().y() > 0 ? 1 : -1;
        return pane.ZoomBySteps(steps, event.position().toPoint());
    }
    const QPoint delta =
        event.modifiers().testFlag(Qt::ShiftModifier) ? event.angleDelta().transposed() : event.angleDelta();
    View()->OnScrollBy(CSize(-delta.x() / 2, -delta.y() / 2), TRUE);
}

// Dragging with the middle button moves the image with the pointer.
bool EditorPane::Private::Pan(QMouseEvent& event)
{
    if (event.type() == QEvent::MouseButtonPress && event.button() == Qt::MiddleButton)
        panFrom = event.position().toPoint();
    else if (event.type() == QEvent::MouseMove && panFrom)
    {
        const QPoint step = *panFrom - event.position().toPoint();
        panFrom = event.position().toPoint();
        View()->OnScrollBy(CSize(step.x(), step.y()), TRUE);
    }
    else if (event.type() == QEvent::MouseButtonRelease && event.button() == Qt::MiddleButton)
        panFrom.reset();
    else
        return false;
    return true;
}

void EditorPane::Private::Track(const QPoint& at)
{
    pointer.reset();
    if (image)
    {
        const auto logic = View()->GetLogicPoint({static_cast<short>(at.x()), static_cast<short>(at.y())});
        if (logic.x >= 0 && logic.y >= 0 && logic.x < image->AOIWidth() && logic.y < image->AOIHeight())
            pointer = QPoint(logic.x, logic.y);
    }
    emit pane.PointerMoved();
}

bool EditorPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != kv::win::WidgetOf(d->View()->m_hWnd))
        return false;
    switch (event->type())
    {
    case QEvent::Wheel:
        d->Wheel(*static_cast<QWheelEvent*>(event));
        return true;
    case QEvent::MouseMove:
        d->Track(static_cast<QMouseEvent*>(event)->position().toPoint());
        return d->Pan(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        return d->Pan(*static_cast<QMouseEvent*>(event));
    case QEvent::Leave:
        d->pointer.reset();
        emit PointerMoved();
        return false;
    default:
        return false;
    }
}

void EditorPane::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void EditorPane::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
    {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    event->acceptProposedAction();
    emit FilesDropped(paths);
}

} // namespace kv::workbench
