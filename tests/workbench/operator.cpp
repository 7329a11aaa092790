// An operator who never rests: workbench_operator IMAGE LOG opens the image in the workbench's window, adds a contour
// every few milliseconds, and notes in the log when each was there, as "milliseconds number".
#include "apps/workbench/MainWindow.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <fstream>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 3)
        return 2;
    std::ofstream log(argv[2]);
    kv::workbench::MainWindow window;
    window.show();
    if (!window.OpenImage(QString::fromLocal8Bit(argv[1])))
        return 1;
    auto* pane = window.findChild<kv::workbench::EditorPane*>();
    QTimer work;
    QObject::connect(&work, &QTimer::timeout,
                     [&]
                     {
                         const int number = pane->Count();
                         KvN::KvContour contour;
                         contour.MakeCircle(20.0 + number % 400, 30.0, 10.0);
                         contour.Description() = KvN::KvString(std::to_string(number).c_str());
                         pane->Add({contour});
                         const auto now = std::chrono::steady_clock::now().time_since_epoch();
                         log << std::chrono::duration_cast<std::chrono::milliseconds>(now).count() << ' '
                             << pane->Count() << std::endl;
                     });
    work.start(40);
    return QApplication::exec();
}
