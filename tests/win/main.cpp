// The application object that every test of the window layer runs in: without a display unless the caller names one.
#include "contracts/basics/KvLibrary.h"
#include "platform/win/input.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QApplication::setCursorFlashTime(0);
    QApplication::setQuitOnLastWindowClosed(false);
    KvN::AttachLibrary();
    const int result = RUN_ALL_TESTS();
    kv::win::Settle();
    return result;
}
