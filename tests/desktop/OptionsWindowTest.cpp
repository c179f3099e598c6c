#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/StationOptionsOf.h"
#include "desktop/dialogs/frmOptions.h"
#include "station/session/Settings.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class OptionsWindow : public ::testing::Test
{
protected:
    void Open()
    {
        Station.Choose("cmdStationOptions");
        Dialog = &Station.Get<frmOptions>("frmOptions");
    }
    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(*Dialog, name);
    }
    void Save() { Get<QAbstractButton>("cmdSave").click(); }
    void Write(const QString& key, const QString& value)
    {
        ASSERT_TRUE(WriteProfileValue(SettingsPath(Station.Session.ProgramFolder),
                                      QStringLiteral("Station"), key, value));
    }
    /// The lines of the settings file.
    QStringList Lines()
    {
        QFile file(SettingsPath(Station.Session.ProgramFolder));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QStringList lines;
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (!line.trimmed().isEmpty())
                lines.append(QString::fromLatin1(line.trimmed()));
        }
        return lines;
    }

    DesktopStation Station{true, WithLedger()};
    QPointer<frmOptions> Dialog;
};

TEST_F(OptionsWindow, HasAControlAndAnExplanationForEachOption)
{
    Open();
    for (const StationOptionRow& row : StationOptionRows()) {
        const auto* control =
            Dialog->findChild<QWidget*>(QStringLiteral("opt") + QLatin1StringView(row.Key));
        ASSERT_NE(control, nullptr) << row.Key;
        EXPECT_EQ(control->accessibleName(), QLatin1StringView(row.Caption)) << row.Key;
        QStringList shown;
        for (const auto* label : Dialog->findChildren<QLabel*>())
            shown.append(label->text());
        for (const QString& sentence : OptionExplanation(row).split(u'\n'))
            EXPECT_FALSE(shown.filter(sentence).isEmpty()) << sentence.toStdString();
    }
}

TEST_F(OptionsWindow, ShowsWhatStandsInTheSettingsFile)
{
    Write(QStringLiteral("AnswerHost"), QStringLiteral("True"));
    Write(QStringLiteral("LedgerValues"), QStringLiteral("False"));
    Write(QStringLiteral("LedgerKeepDays"), QStringLiteral("30"));
    Write(QStringLiteral("Encoding"), QStringLiteral("utf-8"));
    Open();
    EXPECT_TRUE(Get<QCheckBox>("optAnswerHost").isChecked());
    EXPECT_FALSE(Get<QCheckBox>("optLedgerValues").isChecked());
    EXPECT_FALSE(Get<QCheckBox>("optUniqueNumbers").isChecked());
    EXPECT_EQ(Get<QSpinBox>("optLedgerKeepDays").value(), 30);
    EXPECT_EQ(Get<QComboBox>("optEncoding").currentText(), QStringLiteral("utf-8"));
}

TEST_F(OptionsWindow, WritesOnlyTheKeysThatWereChanged)
{
    Write(QStringLiteral("AllowFrom"), QStringLiteral("10.0.0.0/8"));
    Write(QStringLiteral("Ledger"), QStringLiteral("True"));
    const QStringList before = Lines();
    Open();
    Get<QCheckBox>("optUniqueNumbers").click();
    Get<QSpinBox>("optLedgerKeepDays").setValue(7);
    // Changed and changed back.
    Get<QCheckBox>("optKeepEveryRecord").click();
    Get<QCheckBox>("optKeepEveryRecord").click();
    Save();
    EXPECT_TRUE(Dialog.isNull() || !Dialog->isVisible());
    EXPECT_EQ(Lines(), before + QStringList({QStringLiteral("LedgerKeepDays=7"),
                                             QStringLiteral("UniqueNumbers=True")}));
}

TEST_F(OptionsWindow, AFolderIsTypedOrChosen)
{
    const QString folder = Station.Session.PathInFolder(QStringLiteral("photos"));
    ASSERT_TRUE(QDir().mkpath(folder));
    Open();
    Get<QLineEdit>("optImagesFrom").setText(QStringLiteral("/srv/photos "));
    int dialogs = 0;
    QTimer::singleShot(0, Dialog, [&] {
        auto* chooser = Dialog->findChild<QFileDialog*>(QStringLiteral("OpenFolder"));
        ASSERT_NE(chooser, nullptr);
        ++dialogs;
        chooser->reject();
    });
    Get<QAbstractButton>("cmdBrowseImagesFrom").click();
    EXPECT_EQ(Get<QLineEdit>("optImagesFrom").text(), QStringLiteral("/srv/photos "));
    QTimer::singleShot(0, Dialog, [&] {
        auto* chooser = Dialog->findChild<QFileDialog*>(QStringLiteral("OpenFolder"));
        ASSERT_NE(chooser, nullptr);
        ++dialogs;
        chooser->setDirectory(Station.Session.ProgramFolder);
        chooser->selectFile(folder);
        chooser->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    Get<QAbstractButton>("cmdBrowseImagesFrom").click();
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(Get<QLineEdit>("optImagesFrom").text(), folder);
    Save();
    EXPECT_TRUE(Lines().contains(QStringLiteral("ImagesFrom=") + folder));
    QStringList mistakes;
    EXPECT_EQ(ReadStationOptions(Station.Session.ProgramFolder, mistakes).ImagesFrom, folder);
}

TEST_F(OptionsWindow, AnEmptiedNumberIsRefused)
{
    const QStringList before = Lines();
    Open();
    auto& days = Get<QSpinBox>("optLedgerKeepDays");
    days.setValue(5);
    days.clear();
    Save();
    ASSERT_FALSE(Dialog.isNull());
    EXPECT_TRUE(Dialog->isVisible());
    EXPECT_EQ(Lines(), before);
    days.setValue(5);
    Save();
    EXPECT_TRUE(Lines().contains(QStringLiteral("LedgerKeepDays=5")));
}

TEST_F(OptionsWindow, CancelWritesNothing)
{
    Write(QStringLiteral("Ledger"), QStringLiteral("True"));
    const QStringList before = Lines();
    Open();
    Get<QCheckBox>("optAnswerHost").click();
    Get<QAbstractButton>("cmdCancel").click();
    EXPECT_EQ(Lines(), before);
    EXPECT_FALSE(Station.Session.Options.AnswerHost);
}

TEST_F(OptionsWindow, AppliesAtOnceOnlyWhatIsSafeInARunningStation)
{
    Open();
    for (const char* tick : {"optLedger", "optLedgerMust", "optLedgerValues", "optKeepEveryRecord",
                             "optAnswerHost", "optUniqueNumbers", "optDesignTools"})
        Get<QCheckBox>(tick).click();
    Get<QSpinBox>("optLedgerKeepDays").setValue(0);
    Get<QComboBox>("optEncoding").setCurrentText(QStringLiteral("utf-8"));
    // The ledger was on in this station and not in its file.
    Save();
    const StationOptions& running = Station.Session.Options;
    EXPECT_TRUE(running.LedgerMust);
    EXPECT_TRUE(running.AnswerHost);
    EXPECT_EQ(running.LedgerKeepDays, 0);
    EXPECT_TRUE(running.LedgerValues);
    EXPECT_FALSE(running.KeepEveryRecord);
    EXPECT_FALSE(running.UniqueNumbers);
    EXPECT_FALSE(running.DesignTools);
    EXPECT_EQ(running.Encoding, InputEncoding::CodePage1252);
    QStringList mistakes;
    const StationOptions stored = ReadStationOptions(Station.Session.ProgramFolder, mistakes);
    EXPECT_TRUE(stored.Ledger && stored.KeepEveryRecord && stored.UniqueNumbers);
    EXPECT_EQ(stored.Encoding, InputEncoding::Utf8);
}

TEST_F(OptionsWindow, SaysWhatTakesEffectWhen)
{
    Open();
    auto& told = Get<QLabel>("lblTold");
    const QString atFirst = told.text();
    Get<QCheckBox>("optAnswerHost").click();
    EXPECT_EQ(told.text(), QStringLiteral("At once: Answer hosts."));
    Get<QCheckBox>("optUniqueNumbers").click();
    EXPECT_EQ(told.text(),
              QStringLiteral("At once: Answer hosts. At the next start of the station: Give each "
                             "number once."));
    Get<QCheckBox>("optAnswerHost").click();
    Get<QCheckBox>("optUniqueNumbers").click();
    EXPECT_EQ(told.text(), atFirst);
}

TEST_F(OptionsWindow, AFileThatCannotBeWrittenIsToldAndNothingIsLost)
{
    // A folder in the place of the file: nobody can write it, not even the machine's administrator.
    const QString path = SettingsPath(Station.Session.ProgramFolder);
    ASSERT_TRUE(QDir().mkpath(path));
    Open();
    Get<QCheckBox>("optAnswerHost").click();
    Save();
    ASSERT_EQ(Station.Operator.CriticalBoxes.size(), 1);
    EXPECT_TRUE(Station.Operator.CriticalBoxes.first().contains(path));
    ASSERT_FALSE(Dialog.isNull());
    EXPECT_TRUE(Dialog->isVisible());
    EXPECT_TRUE(Get<QCheckBox>("optAnswerHost").isChecked());
    EXPECT_FALSE(Station.Session.Options.AnswerHost);
    ASSERT_TRUE(QDir().rmdir(path));
    Save();
    EXPECT_TRUE(Lines().contains(QStringLiteral("AnswerHost=True")));
    EXPECT_TRUE(Station.Session.Options.AnswerHost);
}

} // namespace
} // namespace vantrel::test
