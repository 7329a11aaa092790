// Exchange of data between a dialog's members and its controls.
#pragma once

#include "platform/win/wnd.h"

class CDataExchange
{
public:
    BOOL m_bSaveAndValidate; // TRUE: from the controls
    CWnd* m_pDlgWnd;

    CDataExchange(CWnd* dialog, BOOL saveAndValidate) : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}
    // Gives the focus to the control last prepared and leaves the exchange by CUserException*.
    [[noreturn]] void Fail();
    // The control; a missing one is a failure of the program and throws CResourceException*.
    HWND PrepareCtrl(int id);

private:
    HWND last = nullptr;
};

// Attaches `control` to the window with that id, the first time.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Check(CDataExchange* exchange, int id, int& value);
// `id` is the first radio button of its group; -1 while none is checked.
void DDX_Radio(CDataExchange* exchange, int id, int& value);
void DDX_Text(CDataExchange* exchange, int id, CString& value);
void DDX_Text(CDataExchange* exchange, int id, int& value);    // text that is no number is refused
void DDX_Text(CDataExchange* exchange, int id, double& value); // likewise
void DDX_Slider(CDataExchange* exchange, int id, int& value);
