// Pictures of windows as shown: Qt renders the widget with its children at one pixel a client pixel.
#include "platform/win/screen.h"

#include "platform/win/native/dispatch.h"

#include <QImage>
#include <QWidget>

namespace kv::win
{
namespace
{
QImage Render(Window& window)
{
    PaintEverything();
    if (!window.widget || window.widget->size().isEmpty())
        return {};
    QImage image(window.widget->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    window.widget->render(&image);
    return image;
}
} // namespace

Picture PictureOf(HWND handle)
{
    Window* window = Find(handle);
    const QImage image = window ? Render(*window) : QImage();
    Picture picture;
    picture.width = image.width();
    picture.height = image.height();
    picture.pixels.reserve(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height));
    for (int y = 0; y < image.height(); ++y)
    {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            picture.pixels.push_back(line[x] & 0xFFFFFF);
    }
    return picture;
}

std::uint32_t ShownPixel(HWND handle, CPoint client)
{
    Window* window = Find(handle);
    const CSize size = window ? window->ClientSize() : CSize();
    if (client.x < 0 || client.y < 0 || client.x >= size.cx || client.y >= size.cy || !window->widget)
        return 0;
    PaintEverything();
    const int border = window->BorderWidth();
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::black);
    window->widget->render(&image, QPoint(), QRegion(client.x + border, client.y + border, 1, 1));
    return image.pixel(0, 0) & 0xFFFFFF;
}

bool SavePicture(const Picture& picture, const std::string& path)
{
    if (picture.width == 0 || picture.height == 0)
        return false;
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                       QImage::Format_RGB32);
    return image.save(QString::fromStdString(path), "PNG");
}
} // namespace kv::win
