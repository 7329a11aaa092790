// The trackbar, and the scroll messages that it sends.
#include "platform/win/native/controls.h"
#include "platform/win/native/dispatch.h"

#include <QSlider>

namespace kv::win
{
namespace
{
class SliderWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        auto* slider = new QSlider((style & TBS_VERT) ? Qt::Vertical : Qt::Horizontal, parentWidget);
        slider->setRange(0, 100);
        slider->setPageStep(20);
        if (!(style & TBS_NOTICKS))
            slider->setTickPosition(QSlider::TicksBelow);
        Adopt(slider);
        QObject::connect(slider, &QSlider::actionTriggered, [this](int action) { lastAction = action; });
        QObject::connect(slider, &QSlider::valueChanged, [this](int value) { Moved(value); });
        return slider;
    }

    LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        auto* slider = qobject_cast<QSlider*>(widget.data());
        if (!slider)
            return ControlWindow::DefaultProc(message, wParam, lParam);
        if (message < WM_USER)
            return ControlWindow::DefaultProc(message, wParam, lParam);
        const QSignalBlocker quiet(slider);
        const int value = static_cast<int>(lParam);
        switch (message)
        {
        case TBM_GETPOS:
            return slider->value();
        case TBM_GETRANGEMIN:
            return slider->minimum();
        case TBM_GETRANGEMAX:
            return slider->maximum();
        case TBM_SETPOS:
            slider->setValue(value);
            slider->update();
            return 0;
        case TBM_SETRANGE:
            slider->setRange(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return 0;
        case TBM_SETRANGEMIN:
            slider->setMinimum(value);
            return 0;
        case TBM_SETRANGEMAX:
            slider->setMaximum(value);
            return 0;
        case TBM_SETTICFREQ:
            slider->setTickInterval(static_cast<int>(wParam));
            return 0;
        case TBM_SETPAGESIZE:
            slider->setPageStep(value);
            return 0;
        case TBM_SETLINESIZE:
            slider->setSingleStep(value);
            return 0;
        default:
            return 0;
        }
    }

private:
    void Moved(int value)
    {
        const UINT message = (style & TBS_VERT) ? WM_VSCROLL : WM_HSCROLL;
        const int code = Code();
        const HWND to = parent ? parent->handle : nullptr;
        const auto from = reinterpret_cast<LPARAM>(handle);
        Guarded(
            [&]
            {
                SendMessageW(to, message, MAKEWPARAM(code, code == TB_THUMBTRACK ? value : 0), from);
                SendMessageW(to, message, MAKEWPARAM(TB_ENDTRACK, 0), from);
            });
    }

    int Code()
    {
        switch (std::exchange(lastAction, 0))
        {
        case QAbstractSlider::SliderSingleStepAdd:
            return TB_LINEDOWN;
        case QAbstractSlider::SliderSingleStepSub:
            return TB_LINEUP;
        case QAbstractSlider::SliderPageStepAdd:
            return TB_PAGEDOWN;
        case QAbstractSlider::SliderPageStepSub:
            return TB_PAGEUP;
        case QAbstractSlider::SliderToMinimum:
            return TB_TOP;
        case QAbstractSlider::SliderToMaximum:
            return TB_BOTTOM;
        default:
            return TB_THUMBTRACK;
        }
    }

    int lastAction = 0;
};
} // namespace

std::unique_ptr<Window> MakeTrackbar(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    return std::make_unique<SliderWindow>(windowClass, create);
}
} // namespace kv::win
