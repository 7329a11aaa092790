// The application object of the workbench's tests, without a display and with folders of its own.
#include "apps/workbench/Startup.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    qputenv("XDG_STATE_HOME", home.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    kv::workbench::SetUp(application);
    return RUN_ALL_TESTS();
}
