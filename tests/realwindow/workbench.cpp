// The workbench on the desk.
#include "tests/realwindow/workbench.h"

#include "C/syContourXMLImport.h"
#include "tests/realwindow/coordinate_image.h"

#include <cmath>

namespace kv::realwindow
{

QString WorkbenchDesk::MakeImage(const QString& name, QSize size) const
{
    const QString path = Path(name);
    CoordinateImage(size).save(path);
    return path;
}

QProcess& WorkbenchDesk::OpenWorkbench(const QStringList& arguments)
{
    QProcess& program = Start(KV_WORKBENCH, arguments);
    screen->Focus("Arbeitsplatz");
    return program;
}

QProcess& WorkbenchDesk::OpenAtOriginalSize(const QString& image)
{
    QProcess& program = OpenWorkbench({image});
    At(0, 0);
    screen->Keys({"ctrl+0"});
    ExpectZoom(1.0);
    return program;
}

std::vector<KvN::KvContour> WorkbenchDesk::Save(const QString& image) const
{
    const QString path = image + ".contours.xml";
    QFile::remove(path);
    screen->Keys({"ctrl+s"});
    WaitFor("the contours' file", [&] { return QFile::exists(path); });
    KvTList<KvN::KvContour> list;
    KvN::KvContourXMLImport().Execute(KvN::KvString(path.toUtf8().constData()), list);
    std::vector<KvN::KvContour> contours;
    for (int i = 0; i < list.count; ++i)
        contours.push_back(list[i]);
    return contours;
}

void WorkbenchDesk::Answer(const QString& key) const
{
    WaitFor("a message", [&] { return screen->Windows("Arbeitsplatz").size() == 2; });
    screen->Focus("Arbeitsplatz");
    screen->Keys({key});
    WaitFor("the message's end", [&] { return screen->Windows("Arbeitsplatz").size() == 1; });
    screen->Focus("Arbeitsplatz");
}

QRect WorkbenchDesk::OpenedMenu(size_t nested) const
{
    std::vector<unsigned long> windows; // the main window and the menus over it
    WaitFor("a menu", [&] { return (windows = screen->Windows("kvworkbench")).size() == 1 + nested; });
    return screen->Geometry(windows.back());
}

void WorkbenchDesk::ExpectZoom(double wanted, int x, int y) const
{
    WaitFor("a zoom of " + std::to_string(wanted),
            [&] { return std::abs(MeasuredZoom(x, y) - Scale() * wanted) < 0.03 * wanted; });
}

} // namespace kv::realwindow
