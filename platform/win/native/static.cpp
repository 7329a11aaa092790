// Statics: texts, frames, and places for other windows.
#include "platform/win/native/controls.h"

#include <QLabel>

namespace kv::win
{
namespace
{
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
} // namespace

std::unique_ptr<Window> MakeStatic(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    return std::make_unique<StaticWindow>(windowClass, create);
}
} // namespace kv::win
