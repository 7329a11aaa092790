// Keeps unsaved contours where a crash can't reach them: at most a second after a change they stand in a file of the
// user's state folder, and a later run finds them there.
#pragma once

#include <QLockFile>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

namespace kv::workbench
{

class Autosave : public QObject
{
    Q_OBJECT

public:
    // Writes the contours as they are now to the path; false if that failed, which is tried again at the next change.
    using Writer = std::function<bool(const QString& path)>;

    explicit Autosave(Writer writer, QObject* parent = nullptr);
    ~Autosave() override;

    // From now on changes belong to this image. Another workbench that has it open keeps its own file to itself.
    void Begin(const QString& image);
    // Contours changed.
    void Touch();
    // The contours are saved or given up: nothing is left to recover.
    void Discard();

    // Contours of the image that a run left behind which did not end well; empty if there are none.
    static QString LeftBehind(const QString& image);
    // An image for which contours were left behind; empty if there is none.
    static QString AnyLeftBehind();

private:
    void Write();

    Writer write;
    QTimer timer;
    QString file;
    std::unique_ptr<QLockFile> lock;
};

} // namespace kv::workbench
