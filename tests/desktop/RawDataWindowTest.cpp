#include "desktop/DesktopStation.h"
#include "desktop/dialogs/DesktopRawText.h"
#include "desktop/dialogs/frmRawData.h"
#include "station/capture/Pipeline.h"
#include "station/capture/RawDataView.h"
#include <QApplication>
#include <QClipboard>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station whose last raw text is this one, with the raw view open.
class RawDataWindow : public DesktopStation
{
public:
    explicit RawDataWindow(const QString& raw = QStringLiteral("<A+B>"))
    {
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Session.LastRawData = raw;
        Load();
        Choose("cmdRawData");
        Window = &Get<frmRawData>("frmRawData");
        Data = &Get<DesktopRawText>("txtData");
    }

    frmRawData* Window = nullptr;
    DesktopRawText* Data = nullptr;
};

QString Clipboard()
{
    return QApplication::clipboard()->text();
}

TEST(RawDataWindow, ShowsTextAtFirstAndIsPlacedByTheSizeOfTheMainWindow)
{
    RawDataWindow station;
    EXPECT_TRUE(station.Window->isVisible());
    EXPECT_FALSE(station.Window->isModal());
    EXPECT_EQ(station.Window->windowTitle(), QStringLiteral(" Viewing : ASCII Data"));
    EXPECT_EQ(station.Data->toPlainText(), QStringLiteral("<A+B>"));
    const QSize main = station.DesktopStation::Window.frameSize();
    const QSize own = station.Window->size();
    EXPECT_EQ(station.Window->pos(),
              QPoint((main.width() - own.width()) / 2, (main.height() - own.height()) / 2 - 27));
}

TEST(RawDataWindow, ShowsCodesAndTextAlternately)
{
    RawDataWindow station(QStringLiteral("A\r\n"));
    station.Press("cmdHex");
    EXPECT_EQ(station.Window->windowTitle(), QStringLiteral(" Viewing : Hex Data"));
    EXPECT_EQ(station.Data->toPlainText(), QStringLiteral("[41]  [D]  [A]  "));
    station.Press("cmdAscii");
    EXPECT_EQ(station.Window->windowTitle(), QStringLiteral(" Viewing : ASCII Data"));
    EXPECT_EQ(station.Data->Text(), QStringLiteral("A\r\n"));
}

TEST(RawDataWindow, FollowsNewInputOnARefreshOnlyAndInItsOwnView)
{
    RawDataWindow station;
    station.Press("cmdHex");
    const QString before = station.Data->toPlainText();
    TakeArrival(station.Session, QStringLiteral("<C"), {});
    EXPECT_EQ(station.Data->toPlainText(), before);
    station.Press("cmdRefresh");
    // Partial input shows too.
    EXPECT_EQ(station.Data->toPlainText(), QStringLiteral("[3C]  [43]  "));
}

TEST(RawDataWindow, CopiesWhatItShows)
{
    RawDataWindow station(QStringLiteral("A\r\nB"));
    station.Press("cmdCopy");
    EXPECT_EQ(Clipboard(), QStringLiteral("A\r\nB"));
    station.Press("cmdHex");
    station.Press("cmdCopy");
    EXPECT_EQ(Clipboard(), QStringLiteral("[41]  [D]  [A]  [42]  "));
}

TEST(RawDataWindow, ACopyOfALongTextHasNoneOfTheLineBreaksOfTheView)
{
    const QString raw(50000, QLatin1Char('z'));
    RawDataWindow station(raw);
    station.Press("cmdCopy");
    EXPECT_EQ(Clipboard(), raw);
    station.Press("cmdHex");
    station.Press("cmdCopy");
    EXPECT_EQ(Clipboard(), HexText(raw));
    QApplication::clipboard()->clear();
    station.Data->selectAll();
    station.Data->copy();
    EXPECT_EQ(Clipboard(), HexText(raw));
}

TEST(RawDataWindow, ASelectionKeepsTheLineEndsOfTheText)
{
    RawDataWindow station(QStringLiteral("\nab\r\n\ncd"));
    station.Data->selectAll();
    station.Data->copy();
    EXPECT_EQ(Clipboard(), QStringLiteral("\nab\n\ncd"));
    QTextCursor part = station.Data->textCursor();
    part.setPosition(2);
    part.setPosition(6, QTextCursor::KeepAnchor);
    station.Data->setTextCursor(part);
    station.Data->copy();
    EXPECT_EQ(Clipboard(), QStringLiteral("b\n\nc"));
}

TEST(RawDataWindow, AClearThrowsAwayAPartialRecordButNotTheRawText)
{
    RawDataWindow station;
    int records = 0;
    QObject::connect(&station.Session.Face, &StationFace::RecordBegun, station.Window,
                     [&] { ++records; });
    TakeArrival(station.Session, QStringLiteral("<A+B"), {});
    station.Press("cmdClear");
    EXPECT_EQ(station.Data->toPlainText(), QString());
    EXPECT_EQ(station.Session.InputBuffer.Text(), QString());
    station.Press("cmdCopy");
    EXPECT_EQ(Clipboard(), QString());
    station.Press("cmdRefresh");
    EXPECT_EQ(station.Data->toPlainText(), QStringLiteral("<A+B"));
    TakeArrival(station.Session, QStringLiteral("+C>"), {});
    EXPECT_EQ(records, 0);
}

TEST(RawDataWindow, AMegabyteIsShownInFullAsCodes)
{
    const QString raw(1 << 20, QLatin1Char('A'));
    RawDataWindow station(raw);
    station.Press("cmdHex");
    EXPECT_EQ(station.Data->Text(), HexText(raw));
    EXPECT_EQ(station.Data->toPlainText().remove(QLatin1Char('\n')), HexText(raw));
}

TEST(RawDataWindow, ABufferedRecordShowsWithoutItsDelimiters)
{
    RawDataWindow station;
    station.Session.Settings.BufferData = true;
    TakeArrival(station.Session, QStringLiteral("<A+B>"), {});
    station.Press("cmdRefresh");
    EXPECT_EQ(station.Data->toPlainText(), QStringLiteral("A+B"));
}

} // namespace
} // namespace vantrel::test
