// What the windows of this program's tests need before the first of them: the application object, without a display.
#include <QApplication>
#include <gtest/gtest.h>

#include <iostream>
#include <memory>

namespace
{
class QtEnvironment : public ::testing::Environment
{
public:
    void SetUp() override
    {
        // What Qt says of a desktop that lacks this or that is no failure.
        qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext&, const QString& text)
            {
                if (type == QtCriticalMsg || type == QtFatalMsg)
                    std::cerr << text.toStdString() << std::endl;
            });
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        if (!QCoreApplication::instance())
            application = std::make_unique<QApplication>(count, arguments);
    }

    void TearDown() override { application.reset(); }

private:
    int count = 1;
    char name[8] = "test_ui";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);
} // namespace
