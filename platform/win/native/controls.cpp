// Qt's own controls as windows: buttons, statics, trackbar, edit, scroll bar.
#include "platform/win/native/classes.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include "platform/win/native/dialog_window.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>

#include <algorithm>

namespace kv::win
{
LRESULT ControlWindow::DefaultProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    QtEvent* current = CurrentQtEvent();
    const bool ours = current && current->window == handle && !current->finished && widget;
    const bool isInput =
        (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || (message >= WM_KEYFIRST && message <= WM_KEYLAST);
    if (ours && message == WM_PAINT)
    {
        current->finished = true;
        update = QRegion();
        return 0;
    }
    if (ours && isInput && current->event->type() != QEvent::Paint)
    {
        current->finished = true;
        static_cast<QObject*>(widget.data())->event(current->event);
        return 0;
    }
    if (message == WM_PAINT && widget)
    {
        update = QRegion();
        widget->update();
        return 0;
    }
    if (message == WM_ERASEBKGND)
        return 1;
    return Window::DefaultProc(message, wParam, lParam);
}

void ControlWindow::FontChanged()
{
    LOGFONTW log{};
    if (!widget || !GetObjectW(font, sizeof log, &log))
        return;
    QFont face = widget->font();
    face.setFamily(QString::fromWCharArray(log.lfFaceName));
    if (log.lfHeight != 0)
        face.setPixelSize(std::abs(log.lfHeight));
    face.setBold(log.lfWeight >= 600);
    face.setItalic(log.lfItalic != 0);
    widget->setFont(face);
}

void ControlWindow::Adopt(QWidget* control)
{
    control->setMouseTracking(true);
    control->setContextMenuPolicy(Qt::PreventContextMenu);
    if (!(style & WS_TABSTOP))
        control->setFocusPolicy(control->focusPolicy() & Qt::TabFocus ? Qt::ClickFocus : Qt::NoFocus);
}

void ControlWindow::NotifyParent(int code)
{
    if (!parent)
        return;
    const HWND to = parent->handle;
    const WPARAM what = MAKEWPARAM(id, code);
    const auto from = reinterpret_cast<LPARAM>(handle);
    Guarded([&] { SendMessageW(to, WM_COMMAND, what, from); });
}

namespace
{
QString ToQString(const CString& text)
{
    return QString::fromStdU16String(text.Units()).replace("\r\n", "\n");
}

// ---- Buttons

DWORD Kind(DWORD style)
{
    return style & 0xF;
}

// Shows what DrawItem drew on the window's backing.
class OwnerDrawnButton : public QAbstractButton
{
public:
    OwnerDrawnButton(QWidget* parentWidget, HWND window_) : QAbstractButton(parentWidget), window(window_) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        Guarded([this] { Draw(); });
        Window* found = Find(window);
        const QImage image = found ? found->backing.Image() : QImage();
        QPainter painter(this);
        if (!image.isNull())
            painter.drawImage(0, 0, image);
    }

private:
    void Draw()
    {
        Window* found = Find(window);
        if (!found || !found->parent)
            return;
        const CSize size = found->ClientSize();
        const HDC dc = found->backing.Acquire(false);
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.CtlID = static_cast<UINT>(found->id);
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState =
            (isDown() ? ODS_SELECTED : 0) | (isEnabled() ? 0 : ODS_DISABLED) | (hasFocus() ? ODS_FOCUS : 0);
        item.hwndItem = window;
        item.hDC = dc;
        item.rcItem = {0, 0, size.cx, size.cy};
        const HBRUSH face = GetSysColorBrush(COLOR_BTNFACE);
        FillRect(dc, &item.rcItem, face);
        SendMessageW(found->parent->handle, WM_DRAWITEM, static_cast<WPARAM>(found->id),
                     reinterpret_cast<LPARAM>(&item));
        if (Window* left = Find(window))
            left->backing.Release(dc, false);
    }

    HWND window;
};

class ButtonWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        if (Kind(style) == BS_GROUPBOX)
        {
            auto* box = new QGroupBox(parentWidget);
            box->setAttribute(Qt::WA_TransparentForMouseEvents);
            Adopt(box);
            return box;
        }
        QAbstractButton* button = MakeButton(parentWidget);
        Adopt(button);
        if (Kind(style) == BS_RADIOBUTTON || Kind(style) == BS_AUTORADIOBUTTON)
            button->setAutoExclusive(false);
        QObject::connect(button, &QAbstractButton::clicked, [this] { Clicked(); });
        return button;
    }

    void Created() override
    {
        if (Kind(style) == BS_AUTORADIOBUTTON)
            JoinGroup();
    }

    bool IsTransparentToMouse() const override { return Kind(style) == BS_GROUPBOX; }

    void TextChanged() override
    {
        if (auto* box = qobject_cast<QGroupBox*>(widget.data()))
            box->setTitle(ToQString(text));
        else if (auto* button = Button())
            button->setText(ToQString(text));
    }

    void StyleChanged() override
    {
        if (auto* push = qobject_cast<QPushButton*>(widget.data()))
            push->setDefault(Kind(style) == BS_DEFPUSHBUTTON);
    }

    LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        QAbstractButton* button = Button();
        if (!button)
            return ControlWindow::DefaultProc(message, wParam, lParam);
        switch (message)
        {
        case BM_GETCHECK:
            return button->isChecked() ? BST_CHECKED : BST_UNCHECKED;
        case BM_SETCHECK:
            SetChecked(*button, wParam != 0);
            return 0;
        case BM_GETSTATE:
            return (button->isChecked() ? 1 : 0) | (button->isDown() ? 4 : 0);
        case BM_SETSTATE:
            button->setDown(wParam != 0);
            return 0;
        case BM_CLICK:
            if (button->isEnabled())
                button->click();
            return 0;
        default:
            return ControlWindow::DefaultProc(message, wParam, lParam);
        }
    }

private:
    QAbstractButton* Button() const { return qobject_cast<QAbstractButton*>(widget.data()); }

    QAbstractButton* MakeButton(QWidget* parentWidget)
    {
        switch (Kind(style))
        {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
            return new QCheckBox(parentWidget);
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return new QRadioButton(parentWidget);
        case BS_OWNERDRAW:
            return new OwnerDrawnButton(parentWidget, handle);
        default:
        {
            auto* push = new QPushButton(parentWidget);
            push->setAutoDefault(true);
            push->setDefault(Kind(style) == BS_DEFPUSHBUTTON);
            return push;
        }
        }
    }

    // The radio buttons since the last WS_GROUP are one group: the one made before, or a new one.
    void JoinGroup()
    {
        QButtonGroup* group = nullptr;
        if (!(style & WS_GROUP) && parent)
        {
            for (auto at = parent->children.rbegin(); at != parent->children.rend(); ++at)
            {
                Window* before = *at;
                if (before == this)
                    continue;
                auto* radio = qobject_cast<QRadioButton*>(before->widget.data());
                if (!radio)
                    break;
                group = radio->group();
                if (group || (before->style & WS_GROUP))
                    break;
            }
        }
        if (!group)
            group = new QButtonGroup(widget->parentWidget());
        group->addButton(Button());
    }

    static void SetChecked(QAbstractButton& button, bool checked)
    {
        if (!button.isCheckable())
            return;
        QButtonGroup* group = button.group();
        // An exclusive group keeps one checked; the platform allows none.
        if (group && !checked)
            group->setExclusive(false);
        button.setChecked(checked);
        if (group)
            group->setExclusive(true);
    }

    void Clicked() { NotifyParent(BN_CLICKED); }
};

// ---- Statics

class StaticWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        auto* label = new QLabel(parentWidget);
        const DWORD kind = style & 0x1F;
        if (kind >= SS_BLACKFRAME && kind <= SS_WHITEFRAME)
            label->setFrameStyle(QFrame::Box | QFrame::Plain);
        else if (kind == SS_ETCHEDFRAME)
            label->setFrameStyle(QFrame::Box | QFrame::Sunken);
        label->setAlignment(Qt::AlignTop | (kind == SS_CENTER  ? Qt::AlignHCenter
                                            : kind == SS_RIGHT ? Qt::AlignRight
                                                               : Qt::AlignLeft));
        label->setWordWrap(kind <= SS_RIGHT);
        label->setTextFormat(Qt::PlainText);
        label->setMouseTracking(true);
        label->setContextMenuPolicy(Qt::PreventContextMenu);
        return label;
    }

    bool IsTransparentToMouse() const override { return !(style & SS_NOTIFY); }

    void TextChanged() override
    {
        if (auto* label = qobject_cast<QLabel*>(widget.data()))
            label->setText(ToQString(text));
    }
};

// ---- Trackbar

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

// ---- Edit

class EditWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        auto* edit = new QLineEdit(parentWidget);
        Adopt(edit);
        QObject::connect(edit, &QLineEdit::textChanged,
                         [this](const QString& now)
                         {
                             text = CString(std::u16string_view(now.toStdU16String()));
                             if (!setting)
                                 NotifyParent(EN_CHANGE);
                         });
        return edit;
    }

    void TextChanged() override
    {
        auto* edit = qobject_cast<QLineEdit*>(widget.data());
        if (!edit)
            return;
        setting = true;
        edit->setText(ToQString(text));
        setting = false;
    }

private:
    bool setting = false;
};

// ---- Scroll bar control

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

template <class Kind>
std::unique_ptr<Window> Make(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    return std::make_unique<Kind>(windowClass, create);
}
} // namespace

void RegisterStandardControls()
{
    static bool done = false;
    if (std::exchange(done, true))
        return;
    RegisterDialogClass();
    RegisterControlClass("Button", &Make<ButtonWindow>);
    RegisterControlClass("Static", &Make<StaticWindow>);
    RegisterControlClass("msctls_trackbar32", &Make<SliderWindow>);
    RegisterControlClass("Edit", &Make<EditWindow>);
    RegisterControlClass("ScrollBar", &Make<ScrollBarWindow>);
}
} // namespace kv::win
