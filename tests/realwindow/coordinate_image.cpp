// Red and green hold the low eight bits of x and y, blue the high bits and a mark.
#include "tests/realwindow/coordinate_image.h"

namespace kv::realwindow
{
namespace
{
constexpr int mark = 0xA0;

QRgb Color(int x, int y)
{
    return qRgb(x & 255, y & 255, mark | (x >> 8) << 2 | y >> 8);
}
} // namespace

QImage CoordinateImage(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
    {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, Color(x, y));
    }
    return image;
}

std::optional<QPoint> ImagePixel(QRgb shown)
{
    if ((qBlue(shown) & 0xF0) != mark)
        return std::nullopt;
    return QPoint(qRed(shown) | (qBlue(shown) >> 2 & 3) << 8, qGreen(shown) | (qBlue(shown) & 3) << 8);
}

QRect ScreenPixels(const QImage& screen, QPoint imagePixel)
{
    const QRgb wanted = Color(imagePixel.x(), imagePixel.y());
    QRect found;
    for (int y = 0; y < screen.height(); ++y)
    {
        const auto* row = reinterpret_cast<const QRgb*>(screen.constScanLine(y));
        for (int x = 0; x < screen.width(); ++x)
        {
            if ((row[x] & 0xFFFFFF) == (wanted & 0xFFFFFF))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

} // namespace kv::realwindow
