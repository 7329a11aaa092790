// Keeps unsaved contours and an unsaved mask where a crash can't reach them: at most two seconds after a change they
// stand in files of the user's state folder, and a later run finds them there.
#pragma once

#include <QLockFile>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

namespace KvN
{
class KvAOI8;
}

namespace kv::workbench
{

class Autosave : public QObject
{
    Q_OBJECT

public:
    // Writes the contours as they are now to the path; false if that failed, which is tried again a second later.
    using Writer = std::function<bool(const QString& path)>;

    explicit Autosave(Writer contours, QObject* parent = nullptr);
    ~Autosave() override;

    // From now on changes belong to this image. Another workbench that has it open keeps its own files to itself.
    void Begin(const QString& image);

    // Contours changed.
    void TouchContours();
    // The mask changed. It is written beside the window's own work, since a large one takes its time: nobody changes
    // it any more.
    void TouchMask(std::shared_ptr<const KvN::KvAOI8> mask);

    // They are saved or given up: nothing is left to recover.
    void DiscardContours();
    void DiscardMask();

    // The files that a run left behind which did not end well; empty where there is none.
    struct LeftOver
    {
        QString contours;
        QString mask;

        bool IsEmpty() const { return contours.isEmpty() && mask.isEmpty(); }
    };
    static LeftOver LeftBehind(const QString& image);
    // An image for which something was left behind; empty if there is none.
    static QString AnyLeftBehind();

private:
    void WriteContours();
    void WriteMask();

    Writer contours;
    std::shared_ptr<const KvN::KvAOI8> mask;
    std::shared_ptr<std::atomic<bool>> maskWanted = std::make_shared<std::atomic<bool>>(true);
    QTimer contoursTimer;
    QTimer maskTimer;
    QString key; // empty while nothing is kept
    std::unique_ptr<QLockFile> lock;
    QThreadPool writing; // of the mask; goes first, and waits for its work
};

} // namespace kv::workbench
