// The contour editor in a Qt program of one's own, with its signals and with undo: editor-host [--check]. With --check
// it marks the whole picture, takes that back, does it again, prints what the host was told, and quits.
#include "C/uiContourWnd.h"
#include "contracts/image.h"
#include "contracts/undo.h"
#include "platform/win/qt_host.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <iostream>

namespace
{
// What a host keeps of its editor.
struct Host
{
    KvContourWnd editor;
    KvN::KvUndoRedo undo;
    int added = 0;
    int operations = 0;

    void Wire()
    {
        // Null tells that all contours may have changed, as they do by undo and redo.
        editor.m_SignalContourAdded.Connect(this, [](void* self, KvN::KvContour* contour)
                                            { static_cast<Host*>(self)->added += contour != nullptr; });
        // The last signal of each operation: the store is as it will stay.
        editor.m_SignalOperation.Connect(this, [](void* self, KvContourWnd::eOperation)
                                         { ++static_cast<Host*>(self)->operations; });
    }
};

void Check(Host& host)
{
    const auto report = [&host](const char* what)
    {
        std::cout << what << ": contours " << host.editor.GetContourList()->NumEntries() << ", undo "
                  << host.editor.CanUndo() << ", redo " << host.editor.CanRedo() << '\n';
    };
    host.editor.SetTool(KvContourWnd::ToolFullFrame);
    report("marked");
    host.editor.Undo();
    report("undone");
    host.editor.Redo();
    report("redone");
    std::cout << "told of " << host.added << " added, " << host.operations << " operations" << std::endl;
    QApplication::quit();
}
} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    KvN::KvBufferAOI8 image(KvN::KvTSize<short>(320, 240));

    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* rectangle = new QPushButton("Rectangle");
    auto* back = new QPushButton("Undo");
    auto* place = new QWidget;
    place->setMinimumSize(320, 240);
    for (QWidget* part : {static_cast<QWidget*>(rectangle), static_cast<QWidget*>(back), place})
        layout->addWidget(part);

    Host host;
    host.editor.Create(CWnd::FromHandle(kv::win::HostWindow(place)));
    kv::win::FillHost(place, host.editor);
    host.editor.SetUndoRedo(&host.undo);
    host.editor.Init(&image);
    host.editor.SetHandler();
    host.Wire();
    QObject::connect(rectangle, &QPushButton::clicked, [&] { host.editor.SetTool(KvContourWnd::ToolRect); });
    QObject::connect(back, &QPushButton::clicked, [&] { host.editor.Undo(); });

    window.show();
    if (QApplication::arguments().contains("--check"))
        QTimer::singleShot(0, [&host] { Check(host); });
    const int result = QApplication::exec();
    host.undo.Clear();
    host.editor.SetUndoRedo(nullptr);
    host.editor.DestroyWindow();
    return result;
}
