// What is left after the workbench was killed, at moments that nobody chose.
#include "apps/workbench/Autosave.h"

#include "apps/workbench/ContourFile.h"
#include "apps/workbench/Texts.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <memory>
#include <random>

using namespace kv::workbench;

namespace
{
long long Now()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

struct Victim
{
    QTemporaryDir folder;
    QProcess process;
    QString image;
    long long dueAt = 0;
    long long killedAt = 0;

    explicit Victim(unsigned delay)
    {
        image = folder.filePath("teil.png");
        QFile::copy(KV_SOURCE_ROOT "/examples/data/brick.png", image);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_STATE_HOME", folder.filePath("state"));
        environment.insert("XDG_CONFIG_HOME", folder.filePath("config"));
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(environment);
        process.start(KV_OPERATOR, {image, folder.filePath("log")});
        process.waitForStarted();
        dueAt = Now() + delay;
    }

    void Kill()
    {
        while (Now() < dueAt)
            QThread::msleep(1);
        killedAt = Now();
        process.kill();
        process.waitForFinished();
    }

    // How many contours there were at the moment, by the operator's own notes.
    int DoneBy(long long moment) const
    {
        std::ifstream log(folder.filePath("log").toStdString());
        int done = 0;
        long long at = 0;
        for (int count = 0; log >> at >> count && at <= moment;)
            done = count;
        return done;
    }
};

void ExpectRecovered(const Victim& victim)
{
    qputenv("XDG_STATE_HOME", victim.folder.filePath("state").toUtf8());
    const int least = victim.DoneBy(victim.killedAt - 2000);
    const QString left = Autosave::LeftBehind(victim.image);
    if (left.isEmpty())
    {
        EXPECT_EQ(least, 0) << "nothing to recover";
        return;
    }
    const ContourFile file = ReadContours(left);
    EXPECT_EQ(file.failure.toStdString(), "");
    EXPECT_TRUE(file.skipped.isEmpty());
    EXPECT_GE(static_cast<int>(file.contours.size()), least);
    for (size_t i = 0; i < file.contours.size(); ++i)
        ASSERT_EQ(ToQt(file.contours[i].Description()).toStdString(), std::to_string(i));
}
} // namespace

TEST(Autosaves, AKillLosesAtMostTheLastTwoSeconds)
{
    std::mt19937 random(20260721);
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    int witnesses = 0;
    for (int batch = 0; batch < 10; ++batch)
    {
        std::vector<std::unique_ptr<Victim>> victims;
        for (int i = 0; i < 5; ++i)
            victims.push_back(std::make_unique<Victim>(1500 + random() % 3000));
        std::sort(victims.begin(), victims.end(), [](const auto& a, const auto& b) { return a->dueAt < b->dueAt; });
        for (const auto& victim : victims)
            victim->Kill();
        for (const auto& victim : victims)
        {
            ExpectRecovered(*victim);
            witnesses += victim->DoneBy(victim->killedAt - 2000) > 0;
        }
    }
    EXPECT_GT(witnesses, 5); // enough of them lived longer than they may lose
    qputenv("XDG_STATE_HOME", before);
}

TEST(Autosaves, WhatIsDiscardedIsNotOffered)
{
    QTemporaryDir folder;
    const QString image = folder.filePath("teil.png");
    QFile(image).open(QIODevice::WriteOnly);
    int written = 0;
    Autosave autosave([&](const QString& path) { return ++written && WriteContours(path, {}).isEmpty(); });
    autosave.Begin(image);
    autosave.Touch();
    QElapsedTimer patience;
    patience.start();
    while (!written && patience.elapsed() < 30000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_EQ(written, 1);
    EXPECT_TRUE(Autosave::LeftBehind(image).isEmpty()) << "it is in use";
    autosave.Begin({});
    EXPECT_FALSE(Autosave::LeftBehind(image).isEmpty());
    autosave.Begin(image);
    autosave.Discard();
    autosave.Begin({});
    EXPECT_TRUE(Autosave::LeftBehind(image).isEmpty());
}
