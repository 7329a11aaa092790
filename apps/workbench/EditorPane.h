// The contour editor inside a Qt layout, with what the workbench adds to it: zoom about the pointer, panning, changes
// of a contour's attributes as undo steps. Everything that names the window layer stays behind this class.
#pragma once

#include "C/syContour.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace KvN
{
class KvAOI;
class KvAOI8;
} // namespace KvN

namespace kv::workbench
{

class EditorPane : public QWidget
{
    Q_OBJECT

public:
    using ContourList = std::vector<KvN::KvContour>;

    explicit EditorPane(QWidget* parent = nullptr);
    ~EditorPane() override;

    // Shows the image, which stays the caller's and must outlive its showing, with these contours. Forgets all undo
    // steps.
    void Show(KvN::KvAOI* image, const ContourList& contours);
    // Lays a mask of the image's size over the image, which stays the caller's; null for none.
    void ShowMask(KvN::KvAOI8* mask);
    // Puts contours in place of all that are there, as one undo step.
    void Replace(const ContourList& contours);

    // All contours in ascending order of their numbers.
    ContourList Contours() const;
    int Count() const;
    // The contour at a place of that order.
    const KvN::KvContour* At(int index) const;
    const KvN::KvContour* Selected() const;
    // The number of the contour in that order; -1 if nothing is selected.
    int SelectedIndex() const;
    void Select(int index);
    // Selects the contour behind the selected one among those that lie under the pointer.
    void SelectNextUnderPointer();

    // Changes the attributes of a contour as one undo step.
    void Change(int index, const std::function<void(KvN::KvContour&)>& change);
    // Adds copies with numbers of their own as one undo step, and selects the last.
    void Add(const ContourList& contours);
    void DeleteSelected();
    void InvertSelected();

    unsigned short Tool() const;
    void SetTool(unsigned short tool); // by the editor's tool numbers
    void SetShowHandles(bool on);
    void SetShowDirection(bool on);

    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();

    double Zoom() const; // screen pixels per image pixel
    bool IsFitted() const;
    // Zooms in (above 0) or out by steps, leaving the image point under `about` where it is (client pixels of the
    // view).
    void ZoomBySteps(int steps, std::optional<QPoint> about = std::nullopt);
    void SetZoom(double factor);
    void FitToWindow();

    // The image pixel under the pointer; nothing outside the image.
    std::optional<QPoint> Pointer() const;
    // The figure that is being drawn, if any.
    const KvN::KvContour* FigureInProgress() const;

signals:
    void ContoursShown();   // other contours than before are there, by `Show`
    void ContoursChanged(); // by the operator
    void SelectionChanged();
    void ToolChanged();
    void PointerMoved();
    void ZoomChanged();
    void FilesDropped(const QStringList& paths);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace kv::workbench
