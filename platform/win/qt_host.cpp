// Windows in a host's own widgets.
#include "platform/win/qt_host.h"

#include "platform/win/native/window.h"

#include <QEvent>
#include <QLayout>

namespace kv::win
{
namespace
{
// Keeps one widget as large as its parent.
class Filler : public QObject
{
public:
    Filler(QWidget* host, QWidget* child_) : QObject(child_), child(child_) { host->installEventFilter(this); }

    bool eventFilter(QObject* host, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            child->setGeometry(static_cast<QWidget*>(host)->rect());
        return false;
    }

private:
    QWidget* child;
};
} // namespace

QWidget* WidgetOf(HWND handle)
{
    const Window* window = Find(handle);
    return window ? window->widget.data() : nullptr;
}

HWND WindowOf(const QWidget* widget)
{
    const Window* window = FindAbove(widget);
    return window ? window->handle : nullptr;
}

HWND HostWindow(QWidget* widget)
{
    return AdoptHost(widget);
}

void FillHost(QWidget* host, CWnd& child)
{
    QWidget* widget = WidgetOf(child.m_hWnd);
    if (!widget)
        return;
    if (host->layout())
    {
        host->layout()->addWidget(widget);
        return;
    }
    new Filler(host, widget);
    child.MoveWindow(0, 0, host->width(), host->height());
}
} // namespace kv::win
