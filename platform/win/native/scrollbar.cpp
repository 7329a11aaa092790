// The scroll bar as a control of its own.
#include "platform/win/native/controls.h"
#include "platform/win/native/dispatch.h"

#include <QScrollBar>

namespace kv::win
{
namespace
{
class ScrollBarWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        const bool vertical = (style & 1) != 0;
        auto* bar = new QScrollBar(vertical ? Qt::Vertical : Qt::Horizontal, parentWidget);
        Adopt(bar);
        QObject::connect(bar, &QScrollBar::valueChanged,
                         [this, vertical](int value)
                         {
                             const HWND to = parent ? parent->handle : nullptr;
                             Guarded(
                                 [&]
                                 {
                                     SendMessageW(to, vertical ? WM_VSCROLL : WM_HSCROLL,
                                                  MAKEWPARAM(SB_THUMBPOSITION, value),
                                                  reinterpret_cast<LPARAM>(handle));
                                 });
                         });
        return bar;
    }
};
} // namespace

std::unique_ptr<Window> MakeScrollBar(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    return std::make_unique<ScrollBarWindow>(windowClass, create);
}
} // namespace kv::win
