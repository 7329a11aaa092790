// Input that comes while the workbench is at work.
#include "tests/realwindow/workbench.h"

namespace kv::realwindow
{
namespace
{
using RealInput = WorkbenchDesk;
}

// While the folder's images are loaded, nothing blocks the window yet.
TEST_F(RealInput, AKeyTypedWhileTheFolderIsReadDoesNotChangeTheImage)
{
    for (int i = 1; i < 8; ++i)
        MakeImage(QString("part%1.png").arg(i), {1600, 1200});
    OpenWorkbench({MakeImage("part0.png", {1600, 1200})});
    At(1, 1);
    screen->Keys({"shift+F9", "Next"});
    screen->Focus("Maskieren");
    screen->Keys({"Escape"});
    WaitFor("the dialog's end", [&] { return !screen->Window("Maskieren"); });
    EXPECT_TRUE(screen->Window("part0.png"));
    EXPECT_FALSE(screen->Window("part1.png"));
}

} // namespace kv::realwindow
