// CToolBar: tool buttons of Qt's in one row, from RT_TOOLBAR and its bitmap.
#include "platform/win/toolbar.h"

#include "platform/win/framewnd.h"
#include "platform/win/native/bytes.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/window.h"

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QToolButton>

#include <utility>

using namespace kv::win;

IMPLEMENT_DYNAMIC(CToolBar, CWnd)

namespace
{
constexpr int margin = 2;  // around the row
constexpr int padding = 7; // of a button around its picture, both sides together
constexpr int separatorWidth = 8;

class ToolBarWindow : public ControlWindow
{
public:
    using ControlWindow::ControlWindow;

    QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags) override
    {
        auto* row = new QWidget(parentWidget);
        row->setMouseTracking(true);
        row->setContextMenuPolicy(Qt::PreventContextMenu);
        return row;
    }
};

void RegisterToolBarClass()
{
    static bool done = false;
    if (!std::exchange(done, true))
        RegisterControlClass("ToolbarWindow32", [](const WindowClass& windowClass, const CREATESTRUCT& create)
                             { return std::unique_ptr<Window>(std::make_unique<ToolBarWindow>(windowClass, create)); });
}

// A bitmap resource is a file without its first fourteen bytes. Light grey is the bar's own colour.
QImage StripOf(ResourceImage::Bytes data)
{
    if (data.size() < sizeof(BITMAPINFOHEADER))
        return {};
    BITMAPINFOHEADER header{};
    std::memcpy(&header, data.data(), sizeof header);
    const DWORD entries = header.biBitCount > 8 ? 0 : header.biClrUsed ? header.biClrUsed : 1u << header.biBitCount;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfSize = static_cast<DWORD>(sizeof file + data.size());
    file.bfOffBits = static_cast<DWORD>(sizeof file) + header.biSize + 4 * entries;
    QByteArray bytes(reinterpret_cast<const char*>(&file), sizeof file);
    bytes.append(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()));
    QImage strip = QImage::fromData(bytes, "BMP").convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < strip.height(); ++y)
    {
        auto* line = reinterpret_cast<QRgb*>(strip.scanLine(y));
        for (int x = 0; x < strip.width(); ++x)
            line[x] = (line[x] & 0xFFFFFF) == 0xC0C0C0 ? 0 : line[x];
    }
    return strip;
}

struct Contents
{
    CSize cell;
    std::vector<UINT> ids; // 0 for a separator
};

// The platform's form has words behind a version; our resource compiler writes double words and no version.
Contents ReadToolBar(ResourceImage::Bytes data)
{
    Reader wide(data);
    Contents contents;
    contents.cell.cx = static_cast<LONG>(wide.Next<DWORD>());
    contents.cell.cy = static_cast<LONG>(wide.Next<DWORD>());
    const size_t count = wide.Next<DWORD>();
    if (data.size() == 12 + 4 * count)
    {
        for (size_t i = 0; i < count; ++i)
            contents.ids.push_back(wide.Next<DWORD>());
        return contents;
    }
    Reader reader(data);
    reader.Next<WORD>(); // version
    contents.cell.cx = reader.Next<WORD>();
    contents.cell.cy = reader.Next<WORD>();
    for (int left = reader.Next<WORD>(); left > 0 && !reader.AtEnd(); --left)
        contents.ids.push_back(reader.Next<WORD>());
    return contents;
}

QToolButton* WidgetOfButton(HWND bar, UINT id)
{
    const Window* window = Find(bar);
    return window && window->widget ? window->widget->findChild<QToolButton*>(QString::number(id)) : nullptr;
}

// The text of the button's string resource: the status text, a line break, the tip.
QString TipOf(UINT id)
{
    const QString text = QString::fromStdU16String(AfxLoadString(id).Units());
    return text.section('\n', 1);
}
} // namespace

BOOL CToolBar::Create(CWnd* parent, DWORD style, UINT id)
{
    return CreateEx(parent, 0, style, CRect(0, 0, 0, 0), id);
}

BOOL CToolBar::CreateEx(CWnd* parent, DWORD, DWORD style, CRect, UINT id)
{
    RegisterToolBarClass();
    return CWnd::CreateEx(0, "ToolbarWindow32", CString(), style | WS_CHILD, CRect(0, 0, 0, 0), parent, id);
}

BOOL CToolBar::LoadToolBar(UINT id)
{
    return LoadToolBarFrom(nullptr, id);
}

BOOL CToolBar::LoadToolBarFrom(const CDynLinkLibrary* module, UINT id)
{
    if (!m_hWnd)
        return FALSE;
    if (!module)
        module = AfxFindResourceHandle(ResourceKind::ToolBar, id);
    const ResourceImage::Bytes data =
        module ? module->Resources().Find(ResourceKind::ToolBar, id) : ResourceImage::Bytes();
    if (data.size() < 8)
        return FALSE;
    const Contents contents = ReadToolBar(data);
    cell = contents.cell;
    buttons.clear();
    int image = 0;
    for (const UINT command : contents.ids)
        buttons.push_back({command, command ? TBBS_BUTTON : TBBS_SEPARATOR, command ? image++ : separatorWidth});
    const QImage strip = StripOf(module->Resources().Find(ResourceKind::Bitmap, id));
    Rebuild(strip.isNull() ? nullptr : &strip);
    return !strip.isNull();
}

void CToolBar::Rebuild(const void* strip)
{
    const Window* window = kv::win::Find(m_hWnd);
    if (!window || !window->widget)
        return;
    const auto* pictures = static_cast<const QImage*>(strip);
    qDeleteAll(window->widget->findChildren<QToolButton*>());
    const HWND bar = m_hWnd;
    for (const Button& button : buttons)
    {
        if (button.id == 0)
            continue;
        auto* made = new QToolButton(window->widget);
        made->setObjectName(QString::number(button.id));
        made->setAutoRaise(true);
        made->setFocusPolicy(Qt::NoFocus);
        made->setIconSize(QSize(cell.cx, cell.cy));
        made->setToolTip(TipOf(button.id));
        made->setAccessibleName(TipOf(button.id));
        if (pictures)
            made->setIcon(QPixmap::fromImage(pictures->copy(button.image * cell.cx, 0, cell.cx, cell.cy)));
        const UINT id = button.id;
        QObject::connect(made, &QToolButton::clicked,
                         [bar, id]
                         {
                             const HWND parent = ::GetParent(bar);
                             const WPARAM command = MAKEWPARAM(static_cast<int>(id), 0);
                             Guarded([&]
                                     { ::SendMessageW(parent, WM_COMMAND, command, reinterpret_cast<LPARAM>(bar)); });
                         });
        Show(button);
    }
    Place();
    for (QToolButton* made : window->widget->findChildren<QToolButton*>())
        made->show();
}

void CToolBar::Place()
{
    for (int i = 0; i < GetCount(); ++i)
    {
        CRect rect;
        GetItemRect(i, rect);
        if (QToolButton* shown = WidgetOfButton(m_hWnd, buttons[static_cast<size_t>(i)].id))
            shown->setGeometry(rect.left, rect.top, rect.Width(), rect.Height());
    }
}

CToolBar::Button* CToolBar::Find(int id)
{
    const int index = CommandToIndex(static_cast<UINT>(id));
    return index < 0 ? nullptr : &buttons[static_cast<size_t>(index)];
}

void CToolBar::Show(const Button& button)
{
    QToolButton* shown = WidgetOfButton(m_hWnd, button.id);
    if (!shown)
        return;
    shown->setCheckable((button.style & TBBS_CHECKBOX) != 0 || (button.style & TBBS_CHECKED) != 0);
    shown->setChecked((button.style & TBBS_CHECKED) != 0);
    shown->setEnabled((button.style & TBBS_DISABLED) == 0);
}

int CToolBar::CommandToIndex(UINT id) const
{
    for (int i = 0; i < GetCount(); ++i)
    {
        if (id != 0 && buttons[static_cast<size_t>(i)].id == id)
            return i;
    }
    return -1;
}

UINT CToolBar::GetItemID(int index) const
{
    return index < 0 || index >= GetCount() ? 0 : buttons[static_cast<size_t>(index)].id;
}

UINT CToolBar::GetButtonStyle(int index) const
{
    if (index < 0 || index >= GetCount())
        return 0;
    const Button& button = buttons[static_cast<size_t>(index)];
    const QToolButton* shown = WidgetOfButton(m_hWnd, button.id);
    const UINT style = button.style & ~TBBS_CHECKED;
    return shown && shown->isChecked() ? style | TBBS_CHECKED : style;
}

void CToolBar::SetButtonStyle(int index, UINT style)
{
    if (index < 0 || index >= GetCount())
        return;
    buttons[static_cast<size_t>(index)].style = style;
    Show(buttons[static_cast<size_t>(index)]);
}

void CToolBar::GetButtonInfo(int index, UINT& id, UINT& style, int& image) const
{
    id = GetItemID(index);
    style = GetButtonStyle(index);
    image = index < 0 || index >= GetCount() ? 0 : buttons[static_cast<size_t>(index)].image;
}

// The picture stays that of the strip's cell which the button was loaded with.
void CToolBar::SetButtonInfo(int index, UINT id, UINT style, int image)
{
    if (index < 0 || index >= GetCount())
        return;
    Button& button = buttons[static_cast<size_t>(index)];
    if (QToolButton* shown = WidgetOfButton(m_hWnd, button.id))
        shown->setObjectName(QString::number(id));
    button = {id, style, image};
    Show(button);
    Place();
}

BOOL CToolBar::GetItemRect(int index, RECT* rect) const
{
    if (index < 0 || index >= GetCount())
        return FALSE;
    const auto widthOf = [this](const Button& button) { return button.id ? cell.cx + padding : separatorWidth; };
    int x = margin;
    for (int i = 0; i < index; ++i)
        x += widthOf(buttons[static_cast<size_t>(i)]);
    *rect = CRect(CPoint(x, margin), CSize(widthOf(buttons[static_cast<size_t>(index)]), cell.cy + padding));
    return TRUE;
}

CSize CToolBar::CalcFixedLayout(BOOL, BOOL)
{
    CRect last;
    if (!GetItemRect(GetCount() - 1, last))
        return CSize(2 * margin, cell.cy + padding + 2 * margin);
    return CSize(last.right + margin, cell.cy + padding + 2 * margin);
}

BOOL CToolBar::CheckButton(int id, BOOL check)
{
    Button* button = Find(id);
    if (!button)
        return FALSE;
    button->style = check ? button->style | TBBS_CHECKED : button->style & ~TBBS_CHECKED;
    Show(*button);
    return TRUE;
}

BOOL CToolBar::EnableButton(int id, BOOL enable)
{
    Button* button = Find(id);
    if (!button)
        return FALSE;
    // The mark by hand is newer than the one noted here.
    const UINT style = GetButtonStyle(CommandToIndex(static_cast<UINT>(id)));
    button->style = enable ? style & ~TBBS_DISABLED : style | TBBS_DISABLED;
    Show(*button);
    return TRUE;
}

BOOL CToolBar::IsButtonChecked(int id) const
{
    return (GetButtonStyle(CommandToIndex(static_cast<UINT>(id))) & TBBS_CHECKED) != 0;
}

BOOL CToolBar::IsButtonEnabled(int id) const
{
    const int index = CommandToIndex(static_cast<UINT>(id));
    return index >= 0 && !(GetButtonStyle(index) & TBBS_DISABLED);
}

namespace
{
class ButtonUI : public CCmdUI
{
public:
    ButtonUI(CToolBar& bar_, UINT id) : bar(bar_)
    {
        m_pOther = &bar;
        m_nID = id;
    }
    void Enable(BOOL on) override
    {
        enableChanged = true;
        bar.EnableButton(static_cast<int>(m_nID), on);
    }
    void SetCheck(int check) override { bar.CheckButton(static_cast<int>(m_nID), check); }
    void SetText(const CString&) override {}

private:
    CToolBar& bar;
};
} // namespace

void CToolBar::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler)
{
    for (const Button& button : std::vector<Button>(buttons))
    {
        if (button.id != 0)
            ButtonUI(*this, button.id).DoUpdate(target, disableIfNoHandler);
    }
}
