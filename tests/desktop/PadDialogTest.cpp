#include "desktop/DesktopStation.h"
#include "desktop/composers/frmPad.h"
#include "desktop/controls/DesktopUpDown.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with a record of two values and the padding dialog over it.
class PadDialogTest : public ::testing::Test
{
protected:
    PadDialogTest()
    {
        SetRecord(Station.Session, {QStringLiteral("Anna"), QStringLiteral("1234")});
        Pad.reset(new frmPad(Station.Session, &Station.Window));
    }

    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(*Pad, name);
    }
    PadResult& Result() { return Station.Session.Pad; }
    /// Shows the dialog with an element's values and runs a routine on it, which closes it.
    template <typename Use>
    void Show(const QString& padChars, std::int16_t padLen, std::int32_t direction, Use use)
    {
        QTimer::singleShot(0, Pad.get(), [this, use] {
            EXPECT_EQ(QApplication::activeModalWidget(), Pad.get());
            use();
            Pad->close();
        });
        Pad->Show_Data(padChars, padLen, direction);
    }
    void ExpectLength(const char* text, const QColor& ink, const QColor& paper)
    {
        const auto& length = Get<QLineEdit>("txtLength");
        EXPECT_EQ(length.text(), QLatin1StringView(text));
        EXPECT_EQ(length.palette().color(QPalette::Text), ink);
        EXPECT_EQ(length.palette().color(QPalette::Base), paper);
    }

    DesktopStation Station;
    std::unique_ptr<frmPad> Pad;
};

TEST_F(PadDialogTest, ShowsTheFieldsOfTheRecordAndItsCaptions)
{
    EXPECT_EQ(Pad->windowTitle(), QStringLiteral("Data Padding"));
    const auto& fields = Get<QTreeWidget>("tvwData");
    ASSERT_EQ(fields.topLevelItemCount(), 2);
    EXPECT_EQ(fields.topLevelItem(1)->text(0), QStringLiteral("Data Field 2"));
    EXPECT_EQ(fields.topLevelItem(1)->data(0, Qt::UserRole), QStringLiteral("KEY=2"));
    EXPECT_EQ(Get<QRadioButton>("optDirection(0)").text(), QStringLiteral("Left"));
    EXPECT_EQ(Get<QRadioButton>("optDirection(1)").text(), QStringLiteral("Right"));
    EXPECT_EQ(Get<QPushButton>("cmdSave").text(), QStringLiteral("&Save"));
    EXPECT_EQ(Get<QPushButton>("cmdCancel").text(), QStringLiteral("&Cancel"));
}

TEST_F(PadDialogTest, ShowsTheValuesItIsGiven)
{
    Show(QStringLiteral("0"), 8, 1, [this] {
        EXPECT_EQ(Get<QLineEdit>("txtData").text(), QStringLiteral("0"));
        EXPECT_FALSE(Get<QRadioButton>("optDirection(0)").isChecked());
        EXPECT_TRUE(Get<QRadioButton>("optDirection(1)").isChecked());
        ExpectLength("8", Qt::black, Qt::white);
        Get<QPushButton>("cmdSave").click();
    });
    EXPECT_EQ(Result().PadChars, QStringLiteral("0"));
    EXPECT_EQ(Result().PadLen, 8);
    EXPECT_EQ(Result().PadDirection, 1);
}

TEST_F(PadDialogTest, ALengthMustBeChosenBeforeItSaves)
{
    Show(QStringLiteral("0"), 0, 0, [this] {
        ExpectLength("BYP", Qt::white, Qt::red);
        EXPECT_FALSE(Get<QPushButton>("cmdSave").isEnabled());
        Get<DesktopUpDown>("udLength").UpButton().click();
        ExpectLength("1", Qt::black, Qt::white);
        EXPECT_TRUE(Get<QPushButton>("cmdSave").isEnabled());
        Get<DesktopUpDown>("udLength").DownButton().click();
        ExpectLength("BYP", Qt::white, Qt::red);
        EXPECT_FALSE(Get<QPushButton>("cmdSave").isEnabled());
    });
}

TEST_F(PadDialogTest, ALengthSetByAScreenReaderIsCheckedLikeATypedOne)
{
    Show(QString(), 8, 0, [this] {
        // A screen reader sets the text like this, without the keyboard.
        Get<QLineEdit>("txtLength").setText(QStringLiteral("many"));
        EXPECT_FALSE(Get<QPushButton>("cmdSave").isEnabled());
        ExpectLength("many", Qt::white, Qt::red);
        Get<QLineEdit>("txtLength").setText(QStringLiteral("12"));
        EXPECT_TRUE(Get<QPushButton>("cmdSave").isEnabled());
        Get<DesktopUpDown>("udLength").UpButton().click();
        ExpectLength("13", Qt::black, Qt::white);
    });
}

TEST_F(PadDialogTest, TheArrowsGoOnFromATypedLength)
{
    Show(QString(), 0, 0, [this] {
        auto& length = Get<QLineEdit>("txtLength");
        length.clear();
        EXPECT_FALSE(Get<QPushButton>("cmdSave").isEnabled());
        length.insert(QStringLiteral("12"));
        ExpectLength("12", Qt::black, Qt::white);
        Get<DesktopUpDown>("udLength").UpButton().click();
        ExpectLength("13", Qt::black, Qt::white);
        Get<QRadioButton>("optDirection(1)").click();
        Get<QPushButton>("cmdSave").click();
    });
    EXPECT_EQ(Result().PadLen, 13);
    EXPECT_EQ(Result().PadDirection, 1);
}

TEST_F(PadDialogTest, ACancelLeavesWhatTheLoadSetAndTheChosenField)
{
    Show(QStringLiteral("0"), 8, 1, [this] {
        auto& fields = Get<QTreeWidget>("tvwData");
        fields.setCurrentItem(fields.topLevelItem(1));
        Get<QPushButton>("cmdCancel").click();
    });
    EXPECT_EQ(Result().PadChars, QString());
    EXPECT_EQ(Result().PadLen, 0);
    EXPECT_EQ(Result().PadDirection, 0);
    EXPECT_EQ(Result().PadField, 2);
    frmPad again(Station.Session, &Station.Window);
    EXPECT_EQ(Result().PadField, 2);
}

TEST_F(PadDialogTest, AnInvalidDirectionStays)
{
    Show(QStringLiteral("0"), 8, 2, [this] {
        EXPECT_FALSE(Get<QRadioButton>("optDirection(0)").isChecked());
        EXPECT_FALSE(Get<QRadioButton>("optDirection(1)").isChecked());
        Get<QPushButton>("cmdSave").click();
    });
    EXPECT_EQ(Result().PadDirection, 2);
}

} // namespace
} // namespace vantrel::test
