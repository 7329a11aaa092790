// Buttons: push, check, radio and owner-drawn ones, and group boxes.
#include "platform/win/native/controls.h"
#include "platform/win/native/dispatch.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

namespace kv::win
{
namespace
{
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
} // namespace

std::unique_ptr<Window> MakeButton(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    return std::make_unique<ButtonWindow>(windowClass, create);
}
} // namespace kv::win
