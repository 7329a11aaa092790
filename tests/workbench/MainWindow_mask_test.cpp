// The menu of the mask, at the real window: both dialogs, the mask's files, and what can go wrong with them.
#include "C/syContourToMask.h"
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskDlgOverlay.h"
#include "apps/workbench/MaskDialogs.h"
#include "tests/workbench/desk.h"

#include <QDir>
#include <QFile>
#include <QStatusBar>
#include <QTest>

using namespace kv::test;
using kv::workbench::MaskSettingsFile;

namespace
{
// What a filled rectangle from (20, 30) to (59, 49) covers: it ends one pixel before its right and its lower side.
constexpr int paintedPixels = 39 * 19;
bool IsPainted(int x, int y)
{
    return x >= 20 && x <= 58 && y >= 30 && y <= 48;
}

class MaskMenu : public testing::Test
{
protected:
    Desk desk;

    MaskMenu() { RemoveSettings(); }
    ~MaskMenu() override
    {
        RemoveSettings();
        desk.window->setWindowModified(false);
    }

    static void RemoveSettings()
    {
        QFile::remove(MaskSettingsFile());
        QDir(MaskSettingsFile()).removeRecursively();
    }
    static void WriteSettings(const QByteArray& text)
    {
        QDir().mkpath(QFileInfo(MaskSettingsFile()).path());
        QFile file(MaskSettingsFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    // Paints a filled rectangle, which the default tool does, and accepts the dialog.
    void ExpectPainting(int x1, int y1, int x2, int y2)
    {
        desk.ExpectMaskDialog(
            [=](KvN::KvMaskDlgBase& dialog)
            {
                Drag(dialog, x1, y1, x2, y2);
                Click(dialog, IDOK);
            });
    }
    std::unique_ptr<KvN::KvAOI8> Saved(const QString& name)
    {
        desk.ExpectFileDialog(desk.Path(name));
        desk.Do(IDS_WB_MASK_SAVE_AS);
        return LoadGrey(desk.Path(name));
    }
    // Every value of a byte, over and over.
    QString SaveAllValues(const QString& name, int width = 160, int height = 120)
    {
        KvN::KvBufferAOI8 values(KvN::KvTSize<short>(static_cast<short>(width), static_cast<short>(height)));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                values.GetRowPointer(y)[x] = static_cast<unsigned char>(x * 7 + y * 13);
        values.Save(kv::workbench::FromQt(desk.Path(name)));
        return desk.Path(name);
    }
    // The files of that ending from which a crash is recovered.
    static QStringList Kept(const char* ending)
    {
        const QDir states(qEnvironmentVariable("XDG_STATE_HOME") + "/kv/autosave");
        QStringList files;
        for (const QString& name : states.entryList({QString("*") + ending}))
            files << states.filePath(name);
        return files;
    }
    static QStringList WaitForKept(const char* ending)
    {
        EXPECT_TRUE(QTest::qWaitFor([ending] { return !Kept(ending).isEmpty(); }, 30000)) << ending;
        return Kept(ending);
    }
    // What a crash with the given files of recovery leaves, found when the image is opened next.
    void Leave(const QStringList& kept)
    {
        for (const QString& file : kept)
            ASSERT_TRUE(QFile::copy(file, desk.Path(QFileInfo(file).fileName())));
        if (desk.Pane().CanUndo())
            desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Discard);
        desk.ExpectMessage(IDS_WB_ASK_SAVE_MASK, QMessageBox::Discard);
        ASSERT_TRUE(desk.window->OpenImage(desk.SavePicture("anderes.png", 90, 70)));
        for (const QString& file : kept)
        {
            EXPECT_FALSE(QFile::exists(file)) << "given up on purpose";
            ASSERT_TRUE(QFile::copy(desk.Path(QFileInfo(file).fileName()), file));
        }
    }
    void AddCircle()
    {
        KvN::KvContour circle;
        circle.MakeCircle(80, 60, 20);
        desk.Pane().Add({circle});
    }
};
} // namespace

TEST_F(MaskMenu, IsThereOnlyForAnImage)
{
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_PAINT)->isEnabled());
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_PAINT_OVER)->isEnabled());
    desk.OpenPicture();
    EXPECT_TRUE(desk.Action(IDS_WB_MASK_PAINT)->isEnabled());
    EXPECT_TRUE(desk.Action(IDS_WB_MASK_SYSTEM)->isEnabled());
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SHOW)->isEnabled());
}

TEST_F(MaskMenu, WhatIsPaintedAndAcceptedIsTheMask)
{
    desk.OpenPicture();
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_TRUE(desk.window->isWindowModified());
    const auto mask = Saved("maske.png");
    ASSERT_TRUE(mask);
    EXPECT_EQ(CountBits(*mask, 128), paintedPixels);
    EXPECT_EQ(mask->GetPoint(20, 30), 128);
    EXPECT_EQ(mask->GetPoint(59, 49), 0);
    EXPECT_FALSE(desk.window->isWindowModified());
}

TEST_F(MaskMenu, WhatIsPaintedAndCancelledIsNot)
{
    desk.OpenPicture();
    desk.ExpectMaskDialog(
        [](KvN::KvMaskDlgBase& dialog)
        {
            Drag(dialog, 20, 30, 59, 49);
            Click(dialog, IDCANCEL);
        });
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
    EXPECT_FALSE(QFile::exists(MaskSettingsFile()));
}

TEST_F(MaskMenu, ToolAndModeAreRememberedBesideTheWorkbenchsSettings)
{
    desk.OpenPicture();
    desk.ExpectMaskDialog(
        [](KvN::KvMaskDlgBase& dialog)
        {
            ClickTool(dialog, ID_MASK_INC_ELLIPSE_FILLED);
            Click(dialog, IDOK);
        });
    desk.Do(IDS_WB_MASK_PAINT);
    desk.ExpectMaskDialog(
        [](KvN::KvMaskDlgBase& dialog)
        {
            EXPECT_EQ(dialog.GetMaskWnd().SelectedTool(), 3);
            Click(dialog, IDCANCEL);
        });
    desk.Do(IDS_WB_MASK_PAINT_OVER);
}

TEST_F(MaskMenu, TheOverlayDialogOffersTheFoldersImagesOfTheSameSize)
{
    desk.SavePicture("teil 1.png", 160, 120);
    desk.SavePicture("teil 3.png", 160, 120);
    desk.SavePicture("teil 4.png", 161, 120);
    desk.SavePicture("teil 10.png", 160, 120);
    ASSERT_TRUE(QFile(desk.Path("teil 5.png")).open(QIODevice::WriteOnly)); // empty, so not readable
    desk.OpenPicture("teil 2.png");
    desk.ExpectMaskDialog(
        [](KvN::KvMaskDlgBase& dialog)
        {
            auto& overlay = dynamic_cast<KvMaskDlgOverlay&>(dialog);
            std::vector<std::string> names;
            for (long i = 0; overlay.GetAt(i); ++i)
                names.push_back(overlay.GetAt(i)->GetUIName().Utf8()); // as the menu shows them
            EXPECT_EQ(names, (std::vector<std::string>{"teil 1.png", "teil 2.png", "teil 3.png", "teil 10.png"}));
            KvN::KvAOI* shown = nullptr;
            overlay.GetSelectedDisplay(&shown);
            EXPECT_EQ(shown->GetAOIName().Utf8(), "teil 2.png");
            Drag(dialog, 20, 30, 59, 49);
            Click(dialog, IDOK);
        });
    desk.Do(IDS_WB_MASK_PAINT_OVER);
    EXPECT_EQ(CountBits(*Saved("maske.tif"), 128), paintedPixels);
}

TEST_F(MaskMenu, AnImageOfAnyWidthHasItsMaskWhereItWasPainted)
{
    for (const int width : {157, 158, 159})
    {
        desk.OpenPicture(QString("breite %1.png").arg(width), width, 120);
        ExpectPainting(20, 30, 59, 49);
        desk.Do(IDS_WB_MASK_PAINT_OVER);
        const auto mask = Saved("maske.png");
        ASSERT_TRUE(mask);
        EXPECT_EQ(mask->AOIWidth(), width);
        EXPECT_EQ(CountBits(*mask, 128), paintedPixels);
        EXPECT_EQ(mask->GetPoint(20, 30), 128);
        EXPECT_EQ(mask->GetPoint(58, 48), 128);
    }
}

TEST_F(MaskMenu, ColourAndFloatImagesArePaintedOnToo)
{
    const KvN::KvTSize<short> size(157, 120);
    KvN::KvBufferAOI32Color colour(size);
    colour.SetPoint({3, 3}, KvN::KvColor(255, 0, 0));
    colour.Save(kv::workbench::FromQt(desk.Path("farbe.png")));
    KvN::KvBufferAOI32Float number(size);
    number.SetPoint({3, 3}, 1.5f);
    number.Save(kv::workbench::FromQt(desk.Path("zahlen.tif")));
    for (const char* name : {"farbe.png", "zahlen.tif"})
    {
        ASSERT_TRUE(desk.window->OpenImage(desk.Path(name)));
        ExpectPainting(20, 30, 59, 49);
        desk.Do(IDS_WB_MASK_PAINT);
        ExpectPainting(20, 50, 59, 69);
        desk.Do(IDS_WB_MASK_PAINT_OVER);
        EXPECT_EQ(CountBits(*Saved("maske.png"), 128), 2 * paintedPixels) << name;
    }
}

TEST_F(MaskMenu, TheOverlayDialogShowsTheImageInItsColourTable)
{
    for (const int width : {160, 159})
    {
        desk.OpenPicture(QString("breite %1.png").arg(width), width, 120);
        dynamic_cast<KvN::KvAOI8&>(*desk.View().GetAOI()).SetOLut(KvN::pOLutMgr->GetLut("Hot"));
        desk.ExpectMaskDialog(
            [](KvN::KvMaskDlgBase& dialog)
            {
                KvN::KvAOI* source = nullptr;
                KvN::KvAOI* display = dynamic_cast<KvMaskDlgOverlay&>(dialog).GetSelectedDisplay(&source);
                EXPECT_EQ(dynamic_cast<KvN::KvOLutContainer&>(*display).GetOLut()->GetName().Utf8(), "Hot");
                Click(dialog, IDCANCEL);
            });
        desk.Do(IDS_WB_MASK_PAINT_OVER);
    }
}

TEST_F(MaskMenu, TheContoursMaskIsTheStartIfWished)
{
    desk.OpenPicture();
    AddCircle();
    KvN::KvBufferAOI8 circle(KvN::KvTSize<short>(160, 120));
    KvTList<KvN::KvContour> contours;
    contours.AddTail(*desk.Pane().At(0));
    KvN::KvContourToMask().Execute(contours, &circle);

    desk.ExpectMessage(IDS_WB_ASK_FROM_CONTOURS, QMessageBox::Cancel);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
    desk.ExpectMessage(IDS_WB_ASK_FROM_CONTOURS, QMessageBox::No);
    desk.ExpectMaskDialog([](KvN::KvMaskDlgBase& dialog) { Click(dialog, IDOK); });
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled()) << "nothing was painted";
    desk.ExpectMessage(IDS_WB_ASK_FROM_CONTOURS, QMessageBox::Yes);
    desk.ExpectMaskDialog([](KvN::KvMaskDlgBase& dialog) { Click(dialog, IDOK); });
    desk.Do(IDS_WB_MASK_PAINT);
    const auto mask = Saved("maske.png");
    ASSERT_TRUE(mask);
    for (short y = 0; y < 120; ++y)
        for (short x = 0; x < 160; ++x)
            ASSERT_EQ(mask->GetPoint(x, y), circle.GetPoint(x, y) ? 128 : 0) << x << ' ' << y;
}

TEST_F(MaskMenu, TheContoursMaskReplacesAPaintedOneOnlyAfterAQuestion)
{
    desk.OpenPicture();
    AddCircle();
    desk.Do(IDS_WB_MASK_FROM_CONTOURS);
    const int circle = CountBits(*Saved("kreis.png"), 128);
    EXPECT_GT(circle, 1000);
    ExpectPainting(0, 0, 159, 119);
    desk.Do(IDS_WB_MASK_PAINT);
    desk.ExpectMessage(IDS_WB_ASK_REPLACE_MASK, QMessageBox::No);
    desk.Do(IDS_WB_MASK_FROM_CONTOURS);
    EXPECT_EQ(CountBits(*Saved("alles.png"), 128), 159 * 119);
    desk.ExpectMessage(IDS_WB_ASK_REPLACE_MASK, QMessageBox::Yes);
    desk.Do(IDS_WB_MASK_FROM_CONTOURS);
    EXPECT_EQ(CountBits(*Saved("kreis.png"), 128), circle);
}

TEST_F(MaskMenu, AllEightBitsSurvivePaintingAndSaving)
{
    desk.OpenPicture();
    const QString values = SaveAllValues("werte.png");
    const auto before = LoadGrey(values);
    for (const char* name : {"maske.png", "maske.tif", "maske.tiff"})
    {
        desk.ExpectFileDialog(values);
        desk.Do(IDS_WB_MASK_OPEN);
        EXPECT_FALSE(desk.window->isWindowModified());
        ExpectPainting(20, 30, 59, 49);
        desk.Do(IDS_WB_MASK_PAINT);
        ExpectPainting(20, 30, 59, 49);
        desk.Do(IDS_WB_MASK_PAINT_OVER);
        const auto after = Saved(name);
        ASSERT_TRUE(after);
        for (short y = 0; y < 120; ++y)
            for (short x = 0; x < 160; ++x)
                ASSERT_EQ(after->GetPoint(x, y), before->GetPoint(x, y) | (IsPainted(x, y) ? 128 : 0)) << x << ' ' << y;
    }
}

TEST_F(MaskMenu, ASystemMaskIsLoadedIntoBitSixAndDeletedInTheOverlayDialog)
{
    desk.OpenPicture();
    KvN::KvBufferAOI8 system(KvN::KvTSize<short>(160, 120));
    std::fill_n(system.GetRowPointer(5), 160, static_cast<unsigned char>(1)); // whatever isn't 0
    system.Save(kv::workbench::FromQt(desk.Path("system.png")));
    desk.ExpectFileDialog(desk.Path("system.png"));
    desk.Do(IDS_WB_MASK_SYSTEM);
    const auto loaded = Saved("maske.png");
    ASSERT_TRUE(loaded);
    EXPECT_EQ(CountBits(*loaded, 64), 160);
    EXPECT_EQ(loaded->GetPoint(3, 5), 64);
    // Hiding it in either dialog leaves it in the mask.
    desk.ExpectMaskDialog([](KvN::KvMaskDlgBase& dialog) { Click(dialog, IDOK); });
    desk.Do(IDS_WB_MASK_PAINT);
    desk.ExpectMaskDialog([](KvN::KvMaskDlgBase& dialog) { Click(dialog, IDOK); });
    desk.Do(IDS_WB_MASK_PAINT_OVER);
    EXPECT_FALSE(desk.window->isWindowModified());
    desk.ExpectMaskDialog(
        [](KvN::KvMaskDlgBase& dialog)
        {
            ClickTool(dialog, ID_MASK_DEL_SYSTEM);
            Click(dialog, IDOK);
        });
    desk.Do(IDS_WB_MASK_PAINT_OVER);
    EXPECT_EQ(CountBits(*Saved("maske.png"), 64), 0);
}

TEST_F(MaskMenu, AMaskOfAnotherSizeIsRefusedWithBothSizes)
{
    desk.OpenPicture();
    desk.SavePicture("klein.png", 80, 60, 255);
    for (const unsigned short command : {IDS_WB_MASK_SYSTEM, IDS_WB_MASK_OPEN})
    {
        desk.ExpectFileDialog(desk.Path("klein.png"));
        desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
        desk.Do(command);
        EXPECT_TRUE(desk.said.contains("80 × 60") && desk.said.contains("160 × 120")) << desk.said.toStdString();
        EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
        EXPECT_FALSE(desk.window->isWindowModified());
    }
}

TEST_F(MaskMenu, AColourImageAndADamagedFileAreNoMasks)
{
    desk.OpenPicture();
    KvN::KvBufferAOI32Color colour(KvN::KvTSize<short>(160, 120));
    colour.SetPoint({3, 3}, KvN::KvColor(255, 0, 0));
    colour.Save(kv::workbench::FromQt(desk.Path("farbe.png")));
    desk.ExpectFileDialog(desk.Path("farbe.png"));
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    desk.Do(IDS_WB_MASK_SYSTEM);
    EXPECT_TRUE(desk.said.contains(kv::workbench::Text(IDS_WB_ERROR_MASK_DEPTH)));
    QFile broken(desk.Path("kaputt.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("\x89PNG\r\n\x1a\n and no more");
    broken.close();
    desk.ExpectFileDialog(desk.Path("kaputt.png"));
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    desk.Do(IDS_WB_MASK_OPEN);
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
}

TEST_F(MaskMenu, ATargetThatCantBeWrittenIsToldAndTheMaskStaysUnsaved)
{
    desk.OpenPicture();
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    desk.ExpectFileDialog("/proc/maske.png");
    desk.ExpectMessage(IDS_WB_ERROR_SAVE, QMessageBox::Ok);
    desk.Do(IDS_WB_MASK_SAVE_AS);
    EXPECT_TRUE(desk.window->isWindowModified());
    desk.ExpectFileDialog(desk.Path("maske.jpg"));
    desk.ExpectMessage(IDS_WB_ERROR_SAVE, QMessageBox::Ok);
    desk.Do(IDS_WB_MASK_SAVE_AS);
    EXPECT_TRUE(desk.said.contains(kv::workbench::Text(IDS_WB_ERROR_MASK_FORMAT)));
    EXPECT_FALSE(QFile::exists(desk.Path("maske.jpg")));
    EXPECT_TRUE(desk.window->isWindowModified());
    EXPECT_EQ(QDir(desk.Path(".")).entryList(QDir::Files | QDir::Hidden), QStringList{"teil.png"});
}

TEST_F(MaskMenu, WrongSettingsAreToldAndTheMaskStays)
{
    desk.OpenPicture();
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    const char* const wrong[] = {"ToolId=Pinsel",     "IncTools=JA",          "LineWidth=1.5",
                                 "OverlayStrength=2", "OverlayStrength=viel", "CheckSystemMask=1"};
    for (const char* key : wrong)
    {
        SCOPED_TRACE(key);
        WriteSettings(QByteArray("[Mask]\n") + key + "\n");
        desk.ExpectMessage(IDS_WB_ASK_RESET_SETTINGS, QMessageBox::No);
        desk.Do(IDS_WB_MASK_PAINT_OVER);
        EXPECT_TRUE(desk.said.contains(QString(key).section('=', 0, 0))) << desk.said.toStdString();
    }
    WriteSettings("[Mask]\nToolId=Pinsel\n");
    desk.ExpectMessage(IDS_WB_ASK_RESET_SETTINGS, QMessageBox::No);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_EQ(CountBits(*Saved("maske.png"), 128), paintedPixels);
    desk.ExpectMessage(IDS_WB_ASK_RESET_SETTINGS, QMessageBox::Yes);
    ExpectPainting(20, 50, 59, 69);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_EQ(CountBits(*Saved("maske.png"), 128), 2 * paintedPixels);
}

TEST_F(MaskMenu, ADamagedSettingsFileIsToldAndCanBeReplaced)
{
    desk.OpenPicture();
    WriteSettings("\x01\x02 kein Schluessel\n[halb");
    desk.ExpectMessage(IDS_WB_ASK_RESET_SETTINGS, QMessageBox::No);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
    desk.ExpectMessage(IDS_WB_ASK_RESET_SETTINGS, QMessageBox::Yes);
    desk.ExpectMaskDialog([](KvN::KvMaskDlgBase& dialog) { Click(dialog, IDCANCEL); });
    desk.Do(IDS_WB_MASK_PAINT);
}

TEST_F(MaskMenu, SettingsThatCantBeReadOrWrittenAreTold)
{
    desk.OpenPicture();
    ASSERT_TRUE(QDir().mkpath(MaskSettingsFile()));
    desk.ExpectMessage(IDS_WB_ERROR_SETTINGS, QMessageBox::Ok);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_TRUE(desk.said.contains(MaskSettingsFile()));
    RemoveSettings();
    // A folder in which nobody can write, the system's administrator included.
    const QString folder = QFileInfo(MaskSettingsFile()).path();
    ASSERT_TRUE(QDir().rename(folder, folder + ".away") && QFile::link("/proc", folder));
    desk.ExpectMessage(IDS_WB_ERROR_SETTINGS, QMessageBox::Ok);
    desk.Do(IDS_WB_MASK_PAINT_OVER);
    ASSERT_TRUE(QFile::remove(folder) && QDir().rename(folder + ".away", folder));
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
}

TEST_F(MaskMenu, AnImageBeyondTheDialogsLimitIsTold)
{
    desk.OpenPicture("riese.png", 32767, 2100);
    for (const unsigned short command : {IDS_WB_MASK_PAINT, IDS_WB_MASK_PAINT_OVER})
    {
        desk.ExpectMessage(IDS_WB_ERROR_TOO_LARGE, QMessageBox::Ok);
        desk.Do(command);
        EXPECT_TRUE(desk.said.contains("32767 × 2100")) << desk.said.toStdString();
    }
}

TEST_F(MaskMenu, AnUnsavedMaskIsAskedAboutWhenTheWindowClosesOrAnotherImageOpens)
{
    desk.OpenPicture();
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    desk.ExpectMessage(IDS_WB_ASK_SAVE_MASK, QMessageBox::Cancel);
    EXPECT_FALSE(desk.window->close());
    desk.ExpectMessage(IDS_WB_ASK_SAVE_MASK, QMessageBox::Cancel);
    EXPECT_FALSE(desk.window->OpenImage(desk.SavePicture("anderes.png", 160, 120)));
    AddCircle();
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Discard);
    desk.ExpectMessage(IDS_WB_ASK_SAVE_MASK, QMessageBox::Save);
    desk.ExpectFileDialog(desk.Path("maske.png"));
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("anderes.png")));
    EXPECT_EQ(CountBits(*LoadGrey(desk.Path("maske.png")), 128), paintedPixels);
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled()) << "the mask belongs to the former image";
    EXPECT_TRUE(desk.window->close());
}

TEST_F(MaskMenu, TheMaskIsShownOverTheImageIfWished)
{
    desk.OpenPicture();
    const QColor plain = desk.ShownAt(40, 40);
    EXPECT_EQ(plain, QColor(100, 100, 100));
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    EXPECT_TRUE(desk.Action(IDS_WB_MASK_SHOW)->isChecked());
    EXPECT_GT(desk.ShownAt(40, 40).red(), 150);
    EXPECT_EQ(desk.ShownAt(80, 40), plain);
    desk.Do(IDS_WB_MASK_SHOW);
    EXPECT_EQ(desk.ShownAt(40, 40), plain);
    desk.Do(IDS_WB_MASK_SHOW);
    EXPECT_GT(desk.ShownAt(40, 40).red(), 150);
}

// ---- After a crash

TEST_F(MaskMenu, AMaskThatACrashLeftIsOfferedAndComesBackWhole)
{
    desk.OpenPicture();
    desk.ExpectFileDialog(SaveAllValues("alle.png"));
    desk.Do(IDS_WB_MASK_OPEN);
    EXPECT_TRUE(Kept(".mask.png").isEmpty()) << "nothing has changed";
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    Leave(WaitForKept(".mask.png"));
    desk.ExpectMessage(IDS_WB_ASK_RECOVER_MASK, QMessageBox::Yes);
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("teil.png")));
    EXPECT_TRUE(desk.window->isWindowModified());
    EXPECT_TRUE(desk.Action(IDS_WB_MASK_SHOW)->isChecked());
    const auto mask = Saved("maske.png");
    const auto before = LoadGrey(desk.Path("alle.png"));
    ASSERT_TRUE(mask);
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 160; ++x)
            ASSERT_EQ(mask->GetPoint(x, y), before->GetPoint(x, y) | (IsPainted(x, y) ? 128 : 0)) << x << ", " << y;
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_TRUE(Kept(".mask.png").isEmpty()) << "saved";
}

TEST_F(MaskMenu, ContoursAndMaskAreOfferedTogether)
{
    desk.OpenPicture();
    AddCircle();
    desk.Do(IDS_WB_MASK_FROM_CONTOURS);
    Leave(WaitForKept(".xml") + WaitForKept(".mask.png"));
    desk.ExpectMessage(IDS_WB_ASK_RECOVER_BOTH, QMessageBox::Yes);
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("teil.png")));
    EXPECT_EQ(desk.Pane().Count(), 1);
    EXPECT_TRUE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
    desk.Do(IDS_WB_SAVE);
    EXPECT_TRUE(Kept(".xml").isEmpty());
    EXPECT_EQ(WaitForKept(".mask.png").size(), 1) << "the mask is not saved yet";
    EXPECT_TRUE(desk.window->isWindowModified());
    desk.ExpectMessage(IDS_WB_ASK_SAVE_MASK, QMessageBox::Discard);
    EXPECT_TRUE(desk.window->close());
}

TEST_F(MaskMenu, AMaskThatIsNotWantedBackIsNotOfferedAgain)
{
    desk.OpenPicture();
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    Leave(WaitForKept(".mask.png"));
    desk.ExpectMessage(IDS_WB_ASK_RECOVER_MASK, QMessageBox::No);
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("teil.png")));
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_FALSE(desk.Action(IDS_WB_MASK_SAVE)->isEnabled());
    EXPECT_TRUE(Kept(".mask.png").isEmpty());
}

TEST_F(MaskMenu, ADamagedRecoveredMaskIsToldAndTheImageOpens)
{
    desk.OpenPicture();
    ExpectPainting(20, 30, 59, 49);
    desk.Do(IDS_WB_MASK_PAINT);
    const QStringList kept = WaitForKept(".mask.png");
    Leave(kept);
    ASSERT_TRUE(QFile::resize(kept.front(), 40));
    desk.ExpectMessage(IDS_WB_ASK_RECOVER_MASK, QMessageBox::Yes);
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("teil.png")));
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_TRUE(Kept(".mask.png").isEmpty());
}
