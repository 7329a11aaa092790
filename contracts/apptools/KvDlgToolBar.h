// A toolbar within a dialog.
#pragma once

#include "platform/win/toolbar.h"

namespace KvN
{

class KvDlgToolBar : public CToolBar
{
    DECLARE_DYNAMIC(KvDlgToolBar)

public:
    // `module` holds the toolbar's resources; null: any that is loaded. The two numbers are kept for callers of the
    // former interface.
    explicit KvDlgToolBar(int = 0, unsigned long = 2048, CDynLinkLibrary* module = nullptr) : library(module) {}

    // The option plays no part. False if there is no such toolbar.
    BOOL LoadToolBar(UINT id, int option);
    // With an id in the place of the name; toolbars have no names here.
    BOOL LoadToolBar(LPCTSTR name, int option);
    BOOL CheckButton(int id, int on) { return CToolBar::CheckButton(id, on); }
    BOOL EnableButton(int id, int on) { return CToolBar::EnableButton(id, on); }

private:
    CDynLinkLibrary* library;
};

} // namespace KvN
