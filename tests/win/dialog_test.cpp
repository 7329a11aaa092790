// Dialogs from resources: layout, exchange, keys, results, and what leaves OnInitDialog.
#include "tests/win/recording_wnd.h"
#include "tests/win/test_resources.h"

#include "platform/win/modal.h"

#include <stdexcept>

using namespace kv::win;

namespace
{
enum : int
{
    dialogId = 700,
    nameEdit = 101,
    firstRadio = 102,
    secondRadio = 103,
    thirdRadio = 104,
    check = 105,
    plainButton = 106,
    track = 107,
    label = 108
};

struct Control
{
    DWORD style;
    int x, y, cx, cy;
    int id;
    int atom; // 0: by name
    const char16_t* name;
    const char16_t* text;
};

Bytes DialogResource(const std::vector<Control>& controls)
{
    Bytes bytes;
    bytes.Dword(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT).Dword(0);
    bytes.Word(static_cast<int>(controls.size())).Word(10).Word(10).Word(200).Word(100);
    bytes.Word(0).Word(0).Text(u"Maße").Word(8).Text(u"MS Sans Serif");
    for (const Control& control : controls)
    {
        bytes.Align4().Dword(control.style | WS_CHILD | WS_VISIBLE).Dword(0);
        bytes.Word(control.x).Word(control.y).Word(control.cx).Word(control.cy).Word(control.id);
        if (control.atom)
            bytes.Word(0xFFFF).Word(control.atom);
        else
            bytes.Text(control.name);
        bytes.Text(control.text).Word(0);
    }
    return bytes;
}

constexpr int button = 0x80, edit = 0x81, text = 0x82;

std::vector<Control> AllControls()
{
    return {
        {BS_DEFPUSHBUTTON | WS_TABSTOP, 140, 7, 50, 14, IDOK, button, u"", u"OK"},
        {BS_PUSHBUTTON | WS_TABSTOP, 140, 24, 50, 14, IDCANCEL, button, u"", u"Abbrechen"},
        {WS_TABSTOP, 4, 8, 60, 14, nameEdit, edit, u"", u""},
        {BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 4, 24, 60, 10, firstRadio, button, u"", u"Eins"},
        {BS_AUTORADIOBUTTON, 4, 36, 60, 10, secondRadio, button, u"", u"Zwei"},
        {BS_AUTORADIOBUTTON, 4, 48, 60, 10, thirdRadio, button, u"", u"Drei"},
        {BS_AUTOCHECKBOX | WS_GROUP | WS_TABSTOP, 4, 60, 60, 10, check, button, u"", u"Haken"},
        {BS_PUSHBUTTON | WS_TABSTOP, 4, 72, 50, 14, plainButton, button, u"", u"Tu was"},
        {TBS_NOTICKS | WS_TABSTOP, 70, 72, 60, 16, track, 0, u"msctls_trackbar32", u""},
        {BS_GROUPBOX, 2, 20, 70, 60, -1, button, u"", u"Rahmen"},
        {SS_CENTER, 70, 8, 40, 8, label, text, u"", u"Text"},
    };
}

class TestDialog : public CDialog
{
public:
    TestDialog() : CDialog(dialogId) {}

    CString name = "Anna";
    int radio = 1;
    int checked = 1;
    int position = 30;
    CButton ok;
    int commands = 0;
    std::vector<std::pair<UINT, int>> scrolls;
    std::vector<UINT> keys;
    std::function<void(TestDialog&)> onInit;

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        if (onInit)
            onInit(*this);
        return TRUE;
    }

protected:
    void DoDataExchange(CDataExchange* exchange) override
    {
        CDialog::DoDataExchange(exchange);
        DDX_Control(exchange, IDOK, ok);
        DDX_Text(exchange, nameEdit, name);
        DDX_Radio(exchange, firstRadio, radio);
        DDX_Check(exchange, check, checked);
        DDX_Slider(exchange, track, position);
    }
    void OnPlain() { ++commands; }
    void OnHScroll(UINT code, UINT, CScrollBar*)
    {
        scrolls.push_back({code, static_cast<int>(::SendMessageW(::GetDlgItem(m_hWnd, track), TBM_GETPOS, 0, 0))});
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestDialog, CDialog)
ON_BN_CLICKED(plainButton, OnPlain)
ON_WM_HSCROLL()
END_MESSAGE_MAP()
} // namespace

class Dialogs : public WindowTest
{
protected:
    Dialogs()
    {
        module.Add(ResourceKind::Dialog, dialogId, DialogResource(AllControls()));
        module.Load();
    }
    ~Dialogs() override { SetModalHook({}); }

    // Plays the steps one a time while the dialog runs, then fails if it still does.
    INT_PTR Run(TestDialog& dialog, std::vector<std::function<void()>> steps)
    {
        size_t next = 0;
        SetModalHook(
            [&]
            {
                if (next == steps.size())
                {
                    ADD_FAILURE() << "the dialog is still open";
                    dialog.EndDialog(-2);
                    return;
                }
                steps[next++]();
            });
        const INT_PTR result = dialog.DoModal();
        SetModalHook({});
        EXPECT_EQ(next, steps.size());
        return result;
    }

    static CRect PlaceOf(CWnd& dialog, int id)
    {
        CRect rect;
        dialog.GetDlgItem(id)->GetWindowRect(rect);
        dialog.ScreenToClient(rect);
        return rect;
    }
    static void Click(CWnd& dialog, int id)
    {
        const HWND control = ::GetDlgItem(dialog.m_hWnd, id);
        PressButton(control, Button::Left, CPoint(8, 8));
        ReleaseButton(control, Button::Left, CPoint(8, 8));
    }
    static void Key(UINT key)
    {
        PressKey(key);
        ReleaseKey(key);
    }

    TestModule module;
};

TEST_F(Dialogs, UnitsBecomePixelsByTheFixedMeasure)
{
    TestDialog dialog;
    Run(dialog, {[&]
                 {
                     CRect client;
                     dialog.GetClientRect(client);
                     EXPECT_EQ(client, CRect(0, 0, 300, 163));
                     EXPECT_EQ(PlaceOf(dialog, IDOK), CRect(210, 11, 285, 34));
                     EXPECT_EQ(PlaceOf(dialog, firstRadio), CRect(6, 39, 96, 55));
                     CString title;
                     dialog.GetWindowText(title);
                     EXPECT_EQ(title, CString("Maße"));
                     dialog.EndDialog(5);
                 }});
}

TEST_F(Dialogs, MembersGoToControlsAndBackOnOk)
{
    TestDialog dialog;
    const INT_PTR result =
        Run(dialog, {[&]
                     {
                         CString shown;
                         dialog.GetDlgItemText(nameEdit, shown);
                         EXPECT_EQ(shown, CString("Anna"));
                         EXPECT_TRUE(dialog.IsDlgButtonChecked(secondRadio));
                         EXPECT_FALSE(dialog.IsDlgButtonChecked(firstRadio));
                         EXPECT_TRUE(dialog.IsDlgButtonChecked(check));
                     },
                     [&] { Click(dialog, check); }, [&] { Click(dialog, thirdRadio); },
                     [&] { dialog.SetDlgItemText(nameEdit, "Berta"); }, [&] { Click(dialog, IDOK); }});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(dialog.name, CString("Berta"));
    EXPECT_EQ(dialog.radio, 2);
    EXPECT_EQ(dialog.checked, 0);
    EXPECT_EQ(dialog.position, 30);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.ok.m_hWnd, nullptr);
}

TEST_F(Dialogs, CancelLeavesTheMembers)
{
    TestDialog dialog;
    EXPECT_EQ(Run(dialog, {[&] { Click(dialog, check); }, [&] { Click(dialog, IDCANCEL); }}), IDCANCEL);
    EXPECT_EQ(dialog.checked, 1);
}

TEST_F(Dialogs, EscapeIsCancelAndEnterTheDefaultButton)
{
    TestDialog first, second;
    EXPECT_EQ(Run(first, {[] { Key(VK_ESCAPE); }}), IDCANCEL);
    EXPECT_EQ(Run(second, {[&] { second.GotoDlgCtrl(second.GetDlgItem(nameEdit)); }, [] { Key(VK_RETURN); }}), IDOK);
}

TEST_F(Dialogs, EnterPressesThePushButtonWithTheFocus)
{
    TestDialog dialog;
    Run(dialog, {[&] { dialog.GetDlgItem(plainButton)->SetFocus(); }, [] { Key(VK_RETURN); },
                 [&] { EXPECT_EQ(dialog.commands, 1); }, [] { Key(VK_ESCAPE); }});
}

TEST_F(Dialogs, TabWalksTheControlsInTheirOrder)
{
    TestDialog dialog;
    std::vector<int> visited;
    std::vector<std::function<void()>> steps;
    for (int i = 0; i < 8; ++i)
        steps.push_back(
            [&]
            {
                visited.push_back(::GetDlgCtrlID(::GetFocus()));
                Key(VK_TAB);
            });
    steps.push_back(
        [&]
        {
            PressKey(VK_SHIFT);
            Key(VK_TAB);
            ReleaseKey(VK_SHIFT);
            visited.push_back(::GetDlgCtrlID(::GetFocus()));
            Key(VK_ESCAPE);
        });
    Run(dialog, steps);
    EXPECT_THAT(visited,
                testing::ElementsAre(IDOK, IDCANCEL, nameEdit, firstRadio, check, plainButton, track, IDOK, IDOK));
}

TEST_F(Dialogs, SpacePressesAndTypedTextArrives)
{
    TestDialog dialog;
    Run(dialog, {[&] { dialog.GetDlgItem(plainButton)->SetFocus(); }, [] { Key(VK_SPACE); },
                 [&] { EXPECT_EQ(dialog.commands, 1); },
                 [&]
                 {
                     dialog.SetDlgItemText(nameEdit, "");
                     dialog.GetDlgItem(nameEdit)->SetFocus();
                     Key('A');
                     Key('B');
                     CString typed;
                     dialog.GetDlgItemText(nameEdit, typed);
                     EXPECT_EQ(typed, CString("ab"));
                 },
                 [] { Key(VK_ESCAPE); }});
}

TEST_F(Dialogs, ADisabledButtonTakesNoPress)
{
    TestDialog dialog;
    Run(dialog, {[&]
                 {
                     dialog.GetDlgItem(plainButton)->EnableWindow(FALSE);
                     Click(dialog, plainButton);
                     EXPECT_EQ(dialog.commands, 0);
                 },
                 [] { Key(VK_ESCAPE); }});
}

TEST_F(Dialogs, TheTrackbarTellsOfMovesByHandOnly)
{
    TestDialog dialog;
    Run(dialog, {[&]
                 {
                     const CWnd* bar = dialog.GetDlgItem(track);
                     ::SendMessageW(bar->m_hWnd, TBM_SETPOS, 1, 40);
                     EXPECT_TRUE(dialog.scrolls.empty());
                     ::SetFocus(bar->m_hWnd);
                     Key(VK_RIGHT);
                     ASSERT_EQ(dialog.scrolls.size(), 2u);
                     EXPECT_EQ(dialog.scrolls[0], std::pair(UINT{TB_LINEDOWN}, 41));
                     EXPECT_EQ(dialog.scrolls[1], std::pair(UINT{TB_ENDTRACK}, 41));
                 },
                 [] { Key(VK_ESCAPE); }});
}

TEST_F(Dialogs, OtherWindowsTakeNoInputMeanwhile)
{
    RecordingWnd top;
    top.CreateTop();
    TestDialog dialog;
    Run(dialog, {[&]
                 {
                     top.noted.clear();
                     EXPECT_FALSE(top.IsWindowEnabled());
                     PressButton(top.m_hWnd, Button::Left, CPoint(1, 1));
                     ReleaseButton(top.m_hWnd, Button::Left, CPoint(1, 1));
                     EXPECT_EQ(top.Count(WM_LBUTTONDOWN), 0);
                     EXPECT_EQ(ActiveModal(), dialog.m_hWnd);
                 },
                 [] { Key(VK_ESCAPE); }});
    EXPECT_TRUE(top.IsWindowEnabled());
    EXPECT_EQ(ActiveModal(), nullptr);
    PressButton(top.m_hWnd, Button::Left, CPoint(1, 1));
    EXPECT_EQ(top.Count(WM_LBUTTONDOWN), 1);
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(1, 1));
}

TEST_F(Dialogs, AnExceptionOutOfOnInitDialogClosesItAndReachesTheCaller)
{
    RecordingWnd top;
    top.CreateTop();
    TestDialog dialog;
    dialog.onInit = [](TestDialog&) { AfxThrowResourceException("no"); };
    bool caught = false;
    try
    {
        dialog.DoModal();
    }
    catch (CException* exception)
    {
        caught = true;
        exception->Delete();
    }
    EXPECT_TRUE(caught);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(top.IsWindowEnabled());
    EXPECT_EQ(ActiveModal(), nullptr);
}

TEST_F(Dialogs, AnExceptionOfTheHookEndsTheDialog)
{
    TestDialog dialog;
    SetModalHook([] { throw std::runtime_error("line 7"); });
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Dialogs, EndDialogInOnInitDialogNeverShowsIt)
{
    TestDialog dialog;
    dialog.onInit = [](TestDialog& self) { self.EndDialog(42); };
    SetModalHook([] { ADD_FAILURE() << "it ran"; });
    EXPECT_EQ(dialog.DoModal(), 42);
}

TEST_F(Dialogs, AMissingResourceGivesMinusOne)
{
    class Missing : public CDialog
    {
    public:
        Missing() : CDialog(4711) {}
    } dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST_F(Dialogs, AMissingControlIsAFailureOfTheExchange)
{
    class Bad : public TestDialog
    {
    protected:
        void DoDataExchange(CDataExchange* exchange) override
        {
            CString nothing;
            DDX_Text(exchange, 999, nothing);
        }
    } dialog;
    EXPECT_THROW(
        {
            try
            {
                dialog.DoModal();
            }
            catch (CResourceException* exception)
            {
                exception->Delete();
                throw std::runtime_error("exchange");
            }
        },
        std::runtime_error);
}

TEST_F(Dialogs, TheOwnersExceptionsComeThroughARunningDialog)
{
    int handled = 0;
    const ExceptionHandler former = SetExceptionHandler(
        [&](CException* exception)
        {
            ++handled;
            exception->Delete();
        });
    class Throwing : public TestDialog
    {
    protected:
        void OnOK() override { AfxThrowResourceException("later"); }
    } dialog;
    Run(dialog, {[&] { Click(dialog, IDOK); }, [&] { EXPECT_EQ(handled, 1); }, [] { Key(VK_ESCAPE); }});
    SetExceptionHandler(former);
}

TEST_F(Dialogs, TextThatIsNoNumberIsRefused)
{
    class Number : public TestDialog
    {
    public:
        int number = 7;

    protected:
        void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, nameEdit, number); }
    } dialog;
    EXPECT_EQ(Run(dialog, {[&]
                           {
                               dialog.SetDlgItemText(nameEdit, "12x");
                               Click(dialog, IDOK);
                               EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), nameEdit);
                               dialog.SetDlgItemText(nameEdit, "12");
                               Click(dialog, IDOK);
                           }}),
              IDOK);
    EXPECT_EQ(dialog.number, 12);
}

TEST_F(Dialogs, AControlCanBeTakenOverByAWindowThatPaintsItself)
{
    TestDialog dialog;
    RecordingWnd taken;
    Run(dialog, {[&]
                 {
                     ASSERT_TRUE(taken.SubclassDlgItem(label, &dialog));
                     taken.onMessage = [](RecordingWnd& self, UINT message, WPARAM, LPARAM)
                     {
                         if (message != WM_PAINT)
                             return false;
                         CPaintDC dc(&self);
                         return true;
                     };
                     taken.MoveWindow(70, 10, 30, 20);
                     EXPECT_EQ(taken.Count(WM_SIZE), 1);
                     taken.Invalidate();
                     Settle();
                     EXPECT_GE(taken.Count(WM_PAINT), 1);
                 },
                 [] { Key(VK_ESCAPE); }});
    EXPECT_EQ(taken.m_hWnd, nullptr);
}

TEST_F(Dialogs, MessageBoxesShowTheirTextAndGiveTheirButton)
{
    RecordingWnd top;
    top.CreateTop();
    SetModalHook(
        []
        {
            ASSERT_NE(OpenMessageBox(), nullptr);
            EXPECT_EQ(OpenMessageBox()->text, CString("Wirklich?"));
            EXPECT_EQ(OpenMessageBox()->caption, CString("Frage"));
            EXPECT_FALSE(CloseMessageBox(IDCANCEL));
            EXPECT_TRUE(CloseMessageBox(IDNO));
        });
    EXPECT_EQ(top.MessageBox("Wirklich?", "Frage", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(OpenMessageBox(), nullptr);
    EXPECT_FALSE(CloseMessageBox(IDOK));
}
