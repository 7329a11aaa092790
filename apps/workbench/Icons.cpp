// Each icon is a few strokes on a square of 24 by 24 units.
#include "apps/workbench/Icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace kv::workbench
{
namespace
{
const QColor included(0xC0, 0x00, 0xC0);
const QColor excludedColor(0x00, 0x8C, 0x8C);
const QColor ink(0x40, 0x40, 0x48);

QPainterPath Lines(std::initializer_list<QPointF> points, bool closed = false)
{
    QPainterPath path;
    for (const QPointF& point : points)
        path.elementCount() ? path.lineTo(point) : path.moveTo(point);
    if (closed)
        path.closeSubpath();
    return path;
}

// An arrow that turns back, as undo and redo have it; redo is its mirror image.
QPainterPath TurnBack()
{
    QPainterPath path;
    path.moveTo(5, 10);
    path.lineTo(14, 10);
    path.arcTo(QRectF(10, 10, 9, 9), 90, -180);
    path.lineTo(9, 19);
    path.addPath(Lines({{9, 6}, {5, 10}, {9, 14}}));
    return path;
}

QPainterPath Magnifier()
{
    QPainterPath path;
    path.addEllipse(QRectF(4, 4, 12, 12));
    path.moveTo(14.5, 14.5);
    path.lineTo(20, 20);
    path.addPath(Lines({{7, 10}, {13, 10}}));
    return path;
}

QPainterPath PathOf(Picture picture)
{
    QPainterPath path;
    switch (picture)
    {
    case Picture::Select:
        return Lines({{6, 3}, {6, 19}, {10, 15}, {13, 21}, {15.5, 20}, {12.5, 14}, {18, 14}}, true);
    case Picture::Rectangle:
        path.addRect(4, 6, 16, 12);
        return path;
    case Picture::Ellipse:
        path.addEllipse(QRectF(3, 6, 18, 12));
        return path;
    case Picture::Polygon:
        return Lines({{4, 10}, {12, 4}, {20, 9}, {17, 19}, {7, 19}}, true);
    case Picture::Polyline:
        return Lines({{3, 18}, {9, 7}, {14, 15}, {21, 5}});
    case Picture::Points:
        path = Lines({{4, 18}, {11, 7}, {20, 14}});
        for (const QPointF& node : {QPointF(4, 18), QPointF(11, 7), QPointF(20, 14)})
            path.addRect(node.x() - 2, node.y() - 2, 4, 4);
        return path;
    case Picture::Undo:
        return TurnBack();
    case Picture::Redo:
        return QTransform(-1, 0, 0, 1, 24, 0).map(TurnBack());
    case Picture::Open:
        return Lines({{3, 19}, {3, 6}, {9, 6}, {11, 8}, {18, 8}, {18, 11}, {21, 11}, {18, 19}}, true);
    case Picture::Save:
        path = Lines({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}}, true);
        path.addRect(8, 4, 7, 5);
        path.addRect(7, 13, 10, 7);
        return path;
    case Picture::Delete:
        path = Lines({{5, 5}, {19, 19}});
        path.addPath(Lines({{19, 5}, {5, 19}}));
        return path;
    case Picture::Invert:
        path.addEllipse(QRectF(4, 4, 16, 16));
        path.moveTo(12, 4);
        path.arcTo(QRectF(4, 4, 16, 16), 90, -180);
        path.lineTo(12, 4);
        return path;
    case Picture::FullFrame:
        path.addRect(3, 5, 18, 14);
        path.addRect(6, 8, 12, 8);
        return path;
    case Picture::ZoomIn:
        path = Magnifier();
        path.addPath(Lines({{10, 7}, {10, 13}}));
        return path;
    case Picture::ZoomOut:
        return Magnifier();
    case Picture::Fit:
        path.addRect(7, 8, 10, 8);
        for (const auto& corner : {Lines({{3, 8}, {3, 4}, {7, 4}}), Lines({{17, 4}, {21, 4}, {21, 8}}),
                                   Lines({{21, 16}, {21, 20}, {17, 20}}), Lines({{7, 20}, {3, 20}, {3, 16}})})
            path.addPath(corner);
        return path;
    case Picture::Mask: // a frame with a hatched region
        path.addRect(3, 4, 18, 16);
        for (const auto& stroke : {Lines({{7, 12}, {12, 7}}), Lines({{7, 17}, {17, 7}}), Lines({{12, 17}, {17, 12}})})
            path.addPath(stroke);
        return path;
    }
    return path;
}

bool IsFigure(Picture picture)
{
    return picture >= Picture::Rectangle && picture <= Picture::Polyline;
}

class StrokeIcon : public QIconEngine
{
public:
    StrokeIcon(Picture picture_, bool excluded_) : picture(picture_), excluded(excluded_) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 24.0, rect.height() / 24.0);
        painter->setOpacity(mode == QIcon::Disabled ? 0.35 : 1.0);
        const QColor color = !IsFigure(picture) ? ink : excluded ? excludedColor : included;
        painter->setPen(QPen(color, 1.8, excluded ? Qt::DashLine : Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        if (picture == Picture::Select || picture == Picture::Points)
            painter->setBrush(Qt::white);
        painter->drawPath(PathOf(picture));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture_(size);
        picture_.fill(Qt::transparent);
        QPainter painter(&picture_);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture_;
    }

    QIconEngine* clone() const override { return new StrokeIcon(*this); }

private:
    Picture picture;
    bool excluded;
};
} // namespace

QIcon IconOf(Picture picture, bool excluded)
{
    return QIcon(new StrokeIcon(picture, excluded));
}

} // namespace kv::workbench
