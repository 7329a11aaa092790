// The contour editor of the workbench under a real mouse, over an image at its original size.
#pragma once

#include "tests/realwindow/workbench.h"

#include <ostream>

namespace kv::realwindow
{

// What a contour is, as a test states it.
struct Figure
{
    KvN::KvContour::eContourType type;
    std::vector<QPointF> points;
    bool excluded = false;
};

class EditorDesk : public WorkbenchDesk
{
protected:
    void SetUp() override;

    // The screen pixel of an image pixel at the original size, whatever is drawn over it or lies beside it.
    QPoint P(int x, int y) const { return origin + Scale() * QPoint(x, y); }
    void Draw(const QString& toolKey, QPoint from, QPoint to) const;
    // Saves, and compares the file's contours with these.
    void ExpectSaved(const std::vector<Figure>& figures) const;

    QString image;

private:
    QPoint origin;
};

// The rectangle of a diagonal, with its points in the editor's order.
Figure Rectangle(double left, double top, double right, double bottom);

} // namespace kv::realwindow
