// What the program needs before its first window.
#pragma once

class QApplication;

namespace kv::workbench
{

// Name, version, and German texts for Qt's own buttons and dialogs.
void SetUp(QApplication& application);

} // namespace kv::workbench
