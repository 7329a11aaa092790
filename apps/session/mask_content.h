// The mask windows and dialogs of a session.
#pragma once

#include "C/uiMaskDlg.h"
#include "C/uiMaskDlgOverlay.h"
#include "apps/session/stage.h"

namespace kv::session
{

// A mask window, in the host or in a dialog.
class MaskContent : public Content
{
public:
    KvN::KvAOIWnd* Window() override { return Mask(); }
    // Null while the window isn't there.
    virtual KvN::KvMaskWndBase* Mask() = 0;
    void SetTool(long tool) override;
};

// A mask window that fills the host. It records when its change-mode link is told.
template <class Wnd>
class MaskWindowContent : public MaskContent
{
public:
    MaskWindowContent(CWnd& host, const KvN::KvAOI& background, KvN::KvAOI8& mask)
    {
        window.Create(&host);
        window.Init(&background, &mask);
        window.SetChangeModeHdl(KvTools::Link(this, &MaskWindowContent::OnChangeMode));
    }
    ~MaskWindowContent() override { window.DestroyWindow(); }

    KvN::KvMaskWndBase* Mask() override { return &window; }
    std::vector<std::string> TakeEvents() override { return std::exchange(events, {}); }

private:
    static long long OnChangeMode(void* self, void*)
    {
        static_cast<MaskWindowContent*>(self)->events.push_back("change-mode");
        return 1;
    }

    Wnd window;
    std::vector<std::string> events;
};

// The mask window of an open dialog.
class MaskDialogContent : public MaskContent
{
public:
    explicit MaskDialogContent(KvN::KvMaskDlgBase& dialog_) : dialog(dialog_) {}
    KvN::KvMaskWndBase* Mask() override { return dialog.GetMaskWnd().GetSafeHwnd() ? &dialog.GetMaskWnd() : nullptr; }

private:
    KvN::KvMaskDlgBase& dialog;
};

// What `print dialog` tells: of the open dialog, or of the last one.
struct DialogState
{
    std::string result; // empty before the first dialog
    std::string title;
    CSize client;

    void Look(const CWnd& dialog);
};

// A dialog that leaves its title and size behind when its window goes.
template <class Dialog>
class PlayedDialog : public Dialog
{
public:
    template <class... Arguments>
    explicit PlayedDialog(DialogState& state_, Arguments... arguments) : Dialog(arguments...), state(state_)
    {
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_DESTROY)
            state.Look(*this);
        return Dialog::WindowProc(message, wParam, lParam);
    }

private:
    DialogState& state;
};

} // namespace kv::session
