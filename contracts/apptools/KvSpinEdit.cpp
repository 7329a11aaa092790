// The spin edit on Qt's spin box.
#include "contracts/apptools/KvSpinEdit.h"

#include "platform/win/native/dialog_window.h"
#include "platform/win/native/dispatch.h"

#include <QDoubleSpinBox>
#include <QLocale>

#include <cstring>

namespace KvN
{

IMPLEMENT_DYNCREATE(KvSpinEdit, CWnd)

namespace
{
using kv::win::ControlWindow;
using kv::win::Window;

constexpr const char* className = "{B42FB016-43F2-11D1-80C0-000000000000}";
constexpr double lowest = 1;
constexpr double usualHighest = 100;

// Shows whole numbers as such, and fractions as far as there are any.
class SpinBox : public QDoubleSpinBox
{
public:
    explicit SpinBox(QWidget* parentWidget) : QDoubleSpinBox(parentWidget)
    {
        setDecimals(3);
        setRange(lowest, usualHighest);
        setSingleStep(1);
        setValue(lowest);
        setContextMenuPolicy(Qt::PreventContextMenu);
    }

    QString textFromValue(double value) const override
    {
        QLocale plain = locale();
        plain.setNumberOptions(QLocale::OmitGroupSeparator);
        return plain.toString(value, 'g', 6);
    }
};

class SpinWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        auto* box = new SpinBox(parentWidget);
        QObject::connect(box, &QDoubleSpinBox::valueChanged, [this](double value) { Fire(value); });
        return box;
    }

    // The fourth double of the initial data is the maximum.
    LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != kv::win::initControlMessage)
            return ControlWindow::DefaultProc(message, wParam, lParam);
        double highest = 0;
        if (wParam >= 4 * sizeof highest)
            std::memcpy(&highest, reinterpret_cast<const char*>(lParam) + 3 * sizeof highest, sizeof highest);
        if (highest >= lowest && Box())
        {
            const QSignalBlocker quiet(Box());
            Box()->setMaximum(highest);
        }
        return 0;
    }

    void TextChanged() override {}

    QDoubleSpinBox* Box() const { return qobject_cast<QDoubleSpinBox*>(widget.data()); }

    void Fire(double value)
    {
        CWnd* sink = parent ? parent->object : nullptr;
        const auto control = static_cast<UINT>(id);
        if (sink)
            kv::win::Guarded([&] { sink->FireEvent(control, KvSpinEdit::valueChanged, &value); });
    }
};

// Dialogs make the control by its class before anybody binds it to a member.
[[maybe_unused]] const bool registered = []
{
    kv::win::RegisterControlClass(className,
                                  [](const kv::win::WindowClass& windowClass, const CREATESTRUCT& create) {
                                      return std::unique_ptr<Window>(std::make_unique<SpinWindow>(windowClass, create));
                                  });
    return true;
}();

SpinWindow* SpinOf(HWND handle)
{
    return dynamic_cast<SpinWindow*>(kv::win::Find(handle));
}
} // namespace

double KvSpinEdit::GetValue() const
{
    const SpinWindow* spin = SpinOf(m_hWnd);
    return spin && spin->Box() ? spin->Box()->value() : lowest;
}

void KvSpinEdit::SetValue(double value)
{
    SpinWindow* spin = SpinOf(m_hWnd);
    if (!spin || !spin->Box())
        return;
    {
        const QSignalBlocker quiet(spin->Box());
        spin->Box()->setValue(value);
    }
    if (CWnd* sink = GetParent())
    {
        const double now = spin->Box()->value();
        sink->FireEvent(static_cast<UINT>(GetDlgCtrlID()), valueChanged, &now);
    }
}

} // namespace KvN
