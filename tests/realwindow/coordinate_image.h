// An image whose pixels name their own coordinates, so that a look at the screen tells what of it shows where.
#pragma once

#include <QImage>

#include <optional>

namespace kv::realwindow
{

// Sides up to 1023.
QImage CoordinateImage(QSize size);
// The image pixel that a screen pixel shows; none if it shows something else.
std::optional<QPoint> ImagePixel(QRgb shown);
// The screen pixels that show the image pixel; empty if it does not show.
QRect ScreenPixels(const QImage& screen, QPoint imagePixel);

} // namespace kv::realwindow
