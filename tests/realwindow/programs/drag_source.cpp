// A window from which files can be dragged into other programs: drag_source FILE...
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

namespace
{
class Source : public QLabel
{
public:
    Source() : QLabel("Drag from here") { setAlignment(Qt::AlignCenter); }

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        QList<QUrl> urls;
        for (const QString& file : QApplication::arguments().mid(1))
            urls << QUrl::fromLocalFile(file);
        auto* data = new QMimeData;
        data->setUrls(urls);
        auto* drag = new QDrag(this); // goes by itself
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    }
};
} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Source window;
    window.setWindowTitle("drag source");
    window.setGeometry(1150, 850, 120, 100);
    window.show();
    return QApplication::exec();
}
