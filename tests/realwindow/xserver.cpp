// Xvfb keeps its screen in a file in the X window dump format; xdotool is mouse and keyboard. The pointer's picture is
// off, since it would hide what lies under it.
#include "tests/realwindow/xserver.h"

#include <QFile>
#include <QHash>
#include <QThread>
#include <QtEndian>

#include <chrono>
#include <stdexcept>

namespace kv::realwindow
{
namespace
{
using Clock = std::chrono::steady_clock;

// The dump begins with big-endian words of 32 bits.
enum DumpWord
{
    HeaderSize = 0,
    Width = 4,
    Height = 5,
    BytesPerLine = 12,
    ColorCount = 19
};
constexpr int bytesPerColor = 12;

QString Number(int value)
{
    return QString::number(value);
}

QStringList MoveTo(QPoint at)
{
    return {"mousemove", Number(at.x()), Number(at.y())};
}
} // namespace

void WaitFor(const std::string& what, const std::function<bool()>& condition)
{
    const auto limit = Clock::now() + std::chrono::seconds(60);
    while (!condition())
    {
        if (Clock::now() > limit)
            throw std::runtime_error("waited in vain for " + what);
        QThread::msleep(15);
    }
}

XServer::XServer(int scale)
{
    server.setProcessChannelMode(QProcess::SeparateChannels);
    server.start(KV_XVFB,
                 {"-displayfd", "1", "-screen", "0", QString("%1x%2x24").arg(scale * width).arg(scale * height),
                  "-nocursor", "-nolisten", "tcp", "-noreset", "-fbdir", folder.path()});
    QByteArray number;
    while (!number.endsWith('\n') && server.waitForReadyRead(60000))
        number += server.readAllStandardOutput();
    if (!number.endsWith('\n'))
        throw std::runtime_error("Xvfb does not start: " + server.readAllStandardError().toStdString());
    display = ":" + number.trimmed();
}

XServer::~XServer()
{
    server.terminate();
    if (!server.waitForFinished(20000))
        server.kill();
    server.waitForFinished();
}

QImage XServer::Shot() const
{
    QFile file(folder.filePath("Xvfb_screen0"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the server's screen can't be read");
    const QByteArray dump = file.readAll();
    const auto word = [&](int index) { return qFromBigEndian<quint32>(dump.constData() + 4 * index); };
    const qsizetype start = word(HeaderSize) + qsizetype(bytesPerColor) * word(ColorCount);
    const QImage shared(reinterpret_cast<const uchar*>(dump.constData()) + start, int(word(Width)), int(word(Height)),
                        word(BytesPerLine), QImage::Format_RGB32);
    return shared.copy();
}

QByteArray XServer::Xdotool(const QStringList& arguments) const
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", display);
    tool.setProcessEnvironment(environment);
    tool.start(KV_XDOTOOL, arguments);
    if (!tool.waitForFinished(60000))
        throw std::runtime_error("xdotool does not end: " + arguments.join(' ').toStdString());
    return tool.readAllStandardOutput();
}

void XServer::Move(QPoint to) const
{
    Xdotool(MoveTo(to));
}

void XServer::Press(int button) const
{
    Xdotool({"mousedown", Number(button)});
}

void XServer::Release(int button) const
{
    Xdotool({"mouseup", Number(button)});
}

void XServer::Click(QPoint at, int button) const
{
    Xdotool(MoveTo(at) + QStringList{"click", Number(button)});
}

void XServer::DoubleClick(QPoint at) const
{
    Xdotool(MoveTo(at) + QStringList{"click", "--repeat", "2", "--delay", "10", "1"});
}

void XServer::Drag(QPoint from, QPoint to, int button) const
{
    constexpr int steps = 4;
    QStringList actions = MoveTo(from) + QStringList{"mousedown", Number(button)};
    for (int i = 1; i <= steps; ++i)
        actions += MoveTo(from + (to - from) * i / steps);
    Xdotool(actions + QStringList{"mouseup", Number(button)});
}

void XServer::Wheel(int notches) const
{
    Xdotool({"click", "--repeat", Number(std::abs(notches)), "--delay", "10", notches > 0 ? "4" : "5"});
}

void XServer::Keys(const QStringList& keys) const
{
    Xdotool(QStringList{"key", "--delay", "10"} + keys);
}

void XServer::KeyDown(const QString& key) const
{
    Xdotool({"keydown", key});
}

void XServer::KeyUp(const QString& key) const
{
    Xdotool({"keyup", key});
}

void XServer::Type(const QString& text) const
{
    Xdotool({"type", "--delay", "10", text});
}

std::vector<unsigned long> XServer::Windows(const QString& title) const
{
    std::vector<unsigned long> windows;
    for (const QByteArray& line : Xdotool({"search", "--onlyvisible", title}).split('\n'))
    {
        if (!line.isEmpty())
            windows.push_back(line.toULong());
    }
    return windows;
}

unsigned long XServer::Window(const QString& title) const
{
    const std::vector<unsigned long> windows = Windows(title);
    return windows.empty() ? 0 : windows.back();
}

unsigned long XServer::Focus(const QString& title) const
{
    unsigned long window = 0;
    WaitFor("the window " + title.toStdString(), [&] { return (window = Window(title)) != 0; });
    const QString id = QString::number(window);
    WaitFor("the keyboard at " + title.toStdString(),
            [&]
            {
                Xdotool({"windowfocus", id});
                return Xdotool({"getwindowfocus"}).trimmed() == id.toUtf8();
            });
    return window;
}

void XServer::Resize(unsigned long window, QSize size) const
{
    Xdotool({"windowsize", QString::number(window), Number(size.width()), Number(size.height())});
}

QRect XServer::Geometry(unsigned long window) const
{
    QHash<QByteArray, int> found; // lines of "X=12"
    for (const QByteArray& line : Xdotool({"getwindowgeometry", "--shell", QString::number(window)}).split('\n'))
        found.insert(line.split('=').first(), line.split('=').last().toInt());
    return QRect(found["X"], found["Y"], found["WIDTH"], found["HEIGHT"]);
}

} // namespace kv::realwindow
