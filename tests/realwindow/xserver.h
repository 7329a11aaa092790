// An X server of a test's own, without a screen: what it shows can be read, and a real mouse and keyboard act on it.
#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <string>
#include <vector>

namespace kv::realwindow
{

// Waits until the condition holds. Throws std::runtime_error, which says `what` was waited for, after a minute: long
// enough for a machine that is busy otherwise.
void WaitFor(const std::string& what, const std::function<bool()>& condition);

class XServer
{
public:
    static constexpr int width = 1280;
    static constexpr int height = 960;

    // With so many times the pixels each way. Throws std::runtime_error if the server can't be started.
    explicit XServer(int scale = 1);
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    // As in the variable DISPLAY.
    QString Display() const { return display; }
    // What stands on the screen now.
    QImage Shot() const;

    // ---- The operator, in screen pixels. Each of these has reached the server when it returns.
    void Move(QPoint to) const;
    void Press(int button = 1) const;
    void Release(int button = 1) const;
    void Click(QPoint at, int button = 1) const;
    void DoubleClick(QPoint at) const;
    // Press, moves in steps, release.
    void Drag(QPoint from, QPoint to, int button = 1) const;
    // Turns the wheel by so many notches; up is positive.
    void Wheel(int notches) const;
    // Keys by their X names, such as "ctrl+plus"; pressed and released one after the other.
    void Keys(const QStringList& keys) const;
    void KeyDown(const QString& key) const;
    void KeyUp(const QString& key) const;
    void Type(const QString& text) const;

    // ---- Windows, by a part of their titles or of their programs' names
    // The visible ones, the topmost last.
    std::vector<unsigned long> Windows(const QString& title) const;
    // The topmost one; 0 if there is none.
    unsigned long Window(const QString& title) const;
    // Waits for it and gives it the keyboard, as a window manager does with a new window.
    unsigned long Focus(const QString& title) const;
    void Resize(unsigned long window, QSize size) const;
    // In screen pixels, without a frame.
    QRect Geometry(unsigned long window) const;

private:
    QByteArray Xdotool(const QStringList& arguments) const;

    QTemporaryDir folder;
    QProcess server;
    QString display;
};

} // namespace kv::realwindow
