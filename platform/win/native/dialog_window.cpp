// Dialog windows: a QDialog whose keys, closing and buttons are driven by messages.
#include "platform/win/native/dialog_window.h"

#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace kv::win
{
namespace
{
// Qt's own closing of dialogs goes the way of the Cancel button.
class DialogWidget : public QDialog
{
public:
    DialogWidget(QWidget* parentWidget, Qt::WindowFlags flags, HWND dialog_)
        : QDialog(parentWidget, flags), dialog(dialog_)
    {
    }

    void accept() override { Command(IDOK); }
    void reject() override { Command(IDCANCEL); }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

private:
    void Command(int id)
    {
        Guarded([&] { SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0); });
    }

    HWND dialog;
};

class DialogWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags flags) override
    {
        auto* made = new DialogWidget(parentWidget, flags, handle);
        made->setMouseTracking(true);
        made->setContextMenuPolicy(Qt::PreventContextMenu);
        return made;
    }

    void TextChanged() override { Window::TextChanged(); }

    LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CLOSE)
            return Send(*this, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
        return ControlWindow::DefaultProc(message, wParam, lParam);
    }
};

// Eight points are eleven pixels, as at the platform's 96 dots an inch, whatever this screen has.
QFont DialogFont(const DialogTemplate& from)
{
    QFont font;
    if (!from.face.IsEmpty())
        font.setFamilies({QString::fromStdU16String(from.face.Units()), "Liberation Sans", "DejaVu Sans"});
    if (from.pointSize > 0)
        font.setPixelSize((from.pointSize * 96 + 36) / 72);
    return font;
}

// The letter that a text marks leads to the control behind it.
void BindMnemonics(const Window& dialog)
{
    QLabel* marked = nullptr;
    for (const Window* control : dialog.children)
    {
        if (auto* label = qobject_cast<QLabel*>(control->widget.data()))
            marked = label->text().contains('&') ? label : nullptr;
        else if (marked && (control->style & WS_TABSTOP))
            std::exchange(marked, nullptr)->setBuddy(control->widget);
    }
}

bool IsTabStop(const Window& control)
{
    return (control.style & WS_TABSTOP) && (control.style & WS_VISIBLE) && !(control.style & WS_DISABLED);
}
} // namespace

CRect DialogUnitsToPixels(const CRect& units)
{
    const auto across = [](int x) { return (x * 6 + (x < 0 ? -2 : 2)) / 4; };
    const auto down = [](int y) { return (y * 13 + (y < 0 ? -4 : 4)) / 8; };
    return CRect(across(units.left), down(units.top), across(units.right), down(units.bottom));
}

void RegisterDialogClass()
{
    RegisterControlClass("#32770", [](const WindowClass& windowClass, const CREATESTRUCT& create)
                         { return std::unique_ptr<Window>(std::make_unique<DialogWindow>(windowClass, create)); });
}

void CreateControls(Window& dialog, const DialogTemplate& from, ResourceImage::Bytes initialData)
{
    if (dialog.widget)
        dialog.widget->setFont(DialogFont(from));
    const HWND handle = dialog.handle;
    for (const DialogItem& item : from.items)
    {
        const CRect place = DialogUnitsToPixels(item.place);
        CREATESTRUCT create{};
        create.hwndParent = handle;
        create.hMenu = reinterpret_cast<HMENU>(static_cast<std::intptr_t>(item.id));
        create.style = item.style | WS_CHILD;
        create.dwExStyle = item.exStyle;
        create.x = place.left;
        create.y = place.top;
        create.cx = place.Width();
        create.cy = place.Height();
        create.lpszName = item.text;
        create.lpszClass = item.className;
        if (!CreateNative(create, nullptr))
            AfxThrowResourceException(CString("Unknown class of control: ") + item.className);
    }
    BindMnemonics(dialog);
    for (const InitialData& initial : ReadDialogInit(initialData))
    {
        SendMessageW(GetDlgItem(handle, initial.id), initControlMessage, initial.data.size(),
                     reinterpret_cast<LPARAM>(initial.data.data()));
    }
}

HWND NextTabStop(const Window& dialog, HWND from, bool backward)
{
    std::vector<const Window*> row(dialog.children.begin(), dialog.children.end());
    if (backward)
        std::reverse(row.begin(), row.end());
    const Window* start = nullptr;
    for (const Window* control : row)
    {
        if (control->handle == from || IsChild(control->handle, from))
            start = control;
    }
    const auto after = start ? std::find(row.begin(), row.end(), start) + 1 : row.begin();
    std::rotate(row.begin(), after, row.end());
    for (const Window* control : row)
    {
        if (IsTabStop(*control))
            return control->handle;
    }
    return nullptr;
}

Window* DefaultButton(const Window& dialog)
{
    for (Window* control : dialog.children)
    {
        const auto* push = qobject_cast<const QPushButton*>(control->widget.data());
        if (push && (control->style & 0xF) == BS_DEFPUSHBUTTON)
            return control;
    }
    return nullptr;
}

void MakeDefaultButton(Window& dialog, int id)
{
    for (Window* control : dialog.children)
    {
        if (!qobject_cast<QPushButton*>(control->widget.data()))
            continue;
        control->style = (control->style & ~DWORD{0xF}) | (control->id == id ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        control->StyleChanged();
    }
}
} // namespace kv::win
