// Message boxes on QMessageBox, with the buttons' texts from the resources.
#include "platform/win/app.h"
#include "platform/win/modal.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/modal_loop.h"
#include "resources/resource_win.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>

namespace kv::win
{
namespace
{
struct OpenBox
{
    MessageBoxText what;
    QMessageBox* shown;
    int result;
};

std::vector<OpenBox*>& OpenBoxes()
{
    static std::vector<OpenBox*> open;
    return open;
}

std::vector<int> ResultsOf(UINT type)
{
    switch (type & 0xF)
    {
    case MB_OKCANCEL:
        return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE:
        return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL:
        return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO:
        return {IDYES, IDNO};
    case MB_RETRYCANCEL:
        return {IDRETRY, IDCANCEL};
    default:
        return {IDOK};
    }
}

QMessageBox::Icon IconOf(UINT type)
{
    switch (type & 0xF0)
    {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QString ToQString(const CString& text)
{
    return QString::fromStdU16String(text.Units());
}

constexpr const char* resultProperty = "result";

// Closing the box by other means counts as Cancel, or as its only button.
void AddButtons(QMessageBox& box, OpenBox& open, UINT type)
{
    const std::vector<int> results = ResultsOf(type);
    size_t preset = (type & 0xF00) / MB_DEFBUTTON2;
    preset = preset < results.size() ? preset : 0;
    for (size_t i = 0; i < results.size(); ++i)
    {
        const int result = results[i];
        const CString text = AfxLoadString(IDS_WIN_BUTTON + static_cast<UINT>(result));
        const auto role = result == IDCANCEL || result == IDNO ? QMessageBox::RejectRole : QMessageBox::AcceptRole;
        QPushButton* button = box.addButton(ToQString(text), role);
        button->setProperty(resultProperty, result);
        QObject::connect(button, &QPushButton::clicked, [&open, result] { open.result = result; });
        if (i == preset)
            box.setDefaultButton(button);
        if (result == IDCANCEL || results.size() == 1)
            box.setEscapeButton(button);
    }
    open.result = results.size() == 1 ? results[0] : IDCANCEL;
}
} // namespace

const MessageBoxText* OpenMessageBox()
{
    return OpenBoxes().empty() ? nullptr : &OpenBoxes().back()->what;
}

bool CloseMessageBox(int result)
{
    if (OpenBoxes().empty())
        return false;
    for (QAbstractButton* button : OpenBoxes().back()->shown->buttons())
    {
        if (button->property(resultProperty).toInt() != result)
            continue;
        button->click();
        return true;
    }
    return false;
}
} // namespace kv::win

using namespace kv::win;

int MessageBoxW(HWND owner, const CString& text, const CString& caption, UINT type)
{
    Window* window = Find(owner);
    QMessageBox box(window ? window->TopLevel().widget.data() : nullptr);
    box.setIcon(IconOf(type));
    box.setWindowTitle(ToQString(caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(text));
    box.setWindowModality(Qt::ApplicationModal);
    OpenBox open{{text, caption, type}, &box, IDCANCEL};
    AddButtons(box, open, type);
    OpenBoxes().push_back(&open);
    struct Scope
    {
        ~Scope() { OpenBoxes().pop_back(); }
    } scope;
    const BlockOthers blocked(AdoptHost(&box));
    box.show();
    RunModal([&box] { return box.isVisible(); });
    return open.result;
}
