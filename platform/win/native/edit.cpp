// The edit of one line.
#include "platform/win/native/controls.h"

#include <QLineEdit>

namespace kv::win
{
namespace
{
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
} // namespace

std::unique_ptr<Window> MakeEdit(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    return std::make_unique<EditWindow>(windowClass, create);
}
} // namespace kv::win
