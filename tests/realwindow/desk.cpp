// Programs on the desk get an environment of their own, so that nothing of the machine's user shows through.
#include "tests/realwindow/desk.h"

#include "tests/realwindow/coordinate_image.h"

namespace kv::realwindow
{
namespace
{
// The test's name as a file name.
QString PictureName()
{
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    return QString("%1.%2.png").arg(test->test_suite_name(), test->name()).replace('/', '_');
}

bool HasCrashed(const QProcess& program)
{
    return program.state() == QProcess::NotRunning && program.exitStatus() == QProcess::CrashExit;
}

void End(QProcess& program)
{
    program.kill();
    program.waitForFinished();
}
} // namespace

void Desk::SetUp()
{
    screen = std::make_unique<XServer>(Scale());
}

void Desk::TearDown()
{
    if (HasFailure() && QDir().mkpath(KV_PICTURES))
    {
        screen->Shot().save(QDir(KV_PICTURES).filePath(PictureName()));
        std::cerr << "the screen: " << KV_PICTURES << '/' << PictureName().toStdString() << '\n';
    }
    for (const auto& program : programs)
    {
        EXPECT_FALSE(HasCrashed(*program)) << program->program().toStdString();
        End(*program);
        const QByteArray said = program->readAllStandardError();
        EXPECT_FALSE(said.contains("Sanitizer") || said.contains("runtime error"));
        if (HasFailure() && !said.isEmpty())
            std::cerr << program->program().toStdString() << " said:\n" << said.toStdString() << '\n';
    }
    programs.clear();
}

QProcess& Desk::Start(const QString& program, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : environment.keys())
    {
        if (name.startsWith("QT_") || name.startsWith("XDG_") || name.startsWith("LC_"))
            environment.remove(name);
    }
    environment.insert("DISPLAY", screen->Display());
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("QT_SCALE_FACTOR", QString::number(Scale()));
    environment.insert("HOME", home.path());
    environment.insert("LANG", "C.UTF-8");
    programs.push_back(std::make_unique<QProcess>());
    QProcess& started = *programs.back();
    started.setProcessEnvironment(environment);
    started.start(program, arguments);
    if (!started.waitForStarted())
        throw std::runtime_error("can't start " + program.toStdString());
    return started;
}

void Desk::KillAll()
{
    for (const auto& program : programs)
        End(*program);
    programs.clear();
}

QPoint Desk::At(int x, int y) const
{
    QRect found;
    WaitFor("image pixel " + std::to_string(x) + ", " + std::to_string(y) + " on the screen",
            [&] {
                return !(found = ScreenPixels(screen->Shot(), {x, y})).isEmpty();
            });
    return found.center();
}

bool Desk::Shows(int x, int y) const
{
    return !ScreenPixels(screen->Shot(), {x, y}).isEmpty();
}

std::optional<QPoint> Desk::Under(QPoint at) const
{
    return ImagePixel(screen->Shot().pixel(at));
}

double Desk::MeasuredZoom(int x, int y, int over) const
{
    const QImage shot = screen->Shot();
    const QRect from = ScreenPixels(shot, {x, y});
    const QRect to = ScreenPixels(shot, {x + over, y});
    return from.isEmpty() || to.isEmpty() ? 0.0 : double(to.left() - from.left()) / over;
}

} // namespace kv::realwindow
