#include "station/print/EncodeData.h"
#include "station/print/PrintCard.h"
#include "station/session/Session.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <array>
#include <gtest/gtest.h>

// What one track sends to the printer, operation by operation.

namespace vantrel::test {
namespace {

constexpr std::int32_t Fargo = 1;
constexpr std::int32_t Eltron = 2;
constexpr std::int32_t LongNames = 4;
constexpr std::int32_t ShortNames = 5;
constexpr std::int32_t Nisca = 11;
constexpr std::array Families = {Fargo, Eltron, LongNames, ShortNames, Nisca};

class EncodeDataTest : public ::testing::Test
{
protected:
    /// The operations of one track; a failure leaves those before it.
    QStringList Sent(std::int32_t printerType, int track, const QString& formula)
    {
        Session.CurrentParams.PrinterType = printerType;
        Station.Printers.Operations.clear();
        Failed = FailureOf([&] {
            EncodeData(Session.Printers, Session.CurrentParams.PrinterType, Session.FieldValues,
                       formula, track);
        });
        return Station.Printers.Operations;
    }

    void Record(const QStringList& values) { SetRecord(Session, values); }

    static QStringList Prints(const QStringList& texts)
    {
        QStringList operations;
        for (const QString& text : texts)
            operations.append(QStringLiteral("Print(\"%1\")").arg(text));
        return operations;
    }

    static QString FontName(const QString& name)
    {
        return QStringLiteral("FontName = \"%1\"").arg(name);
    }

    static QStringList InFont(const QString& font, const QStringList& texts)
    {
        return QStringList(FontName(font)) + Prints(texts) + QStringList(FontName(Arial));
    }

    int Failed = 0;
    TestSession Station;
    vantrel::Session& Session = Station.Session;
    static inline const QString Arial = QStringLiteral("Arial");
    const QString TwoFields = QStringLiteral("DAT1~SEP~DAT2");
    const QStringList Digits = {QStringLiteral("1234"), QStringLiteral("5678")};
};

struct LineRow
{
    std::int32_t PrinterType;
    int Track;
    const char* Line;
};

} // namespace

TEST_F(EncodeDataTest, EveryCommandFamilySendsOneLineForATrack)
{
    constexpr std::array rows = {
        LineRow{Fargo, 1, "~1%1234^5678?"},     LineRow{Fargo, 2, "~2;1234=5678?"},
        LineRow{Fargo, 3, "~3;1234=5678?"},     LineRow{Eltron, 1, "${11234=5678}$"},
        LineRow{Eltron, 2, "${21234=5678}$"},   LineRow{Eltron, 3, "${31234=5678}$"},
        LineRow{Nisca, 1, "~@1,1,9,1234^5678"}, LineRow{Nisca, 2, "~@1,2,9,1234=5678"},
        LineRow{Nisca, 3, "~@1,3,9,1234=5678"},
    };
    Record(Digits);
    int walked = 0;
    for (const LineRow& row : rows) {
        EXPECT_EQ(Sent(row.PrinterType, row.Track, TwoFields),
                  Prints({QString::fromLatin1(row.Line)}));
        ++walked;
    }
    EXPECT_EQ(walked, 9);
}

TEST_F(EncodeDataTest, EveryMagneticFontTakesALineForEachToken)
{
    Record(Digits);
    for (int track = 1; track <= 3; ++track) {
        const QString separator = track == 1 ? QStringLiteral("^") : QStringLiteral("=");
        const QStringList lines = {Digits[0], separator, Digits[1]};
        EXPECT_EQ(Sent(LongNames, track, TwoFields),
                  InFont(QStringLiteral("Track %1 - Magnetic stripe").arg(track), lines));
        EXPECT_EQ(Sent(ShortNames, track, TwoFields),
                  InFont(QStringLiteral("Track %1").arg(track), lines));
    }
}

TEST_F(EncodeDataTest, OtherTypesEvaluateTheFormulaAndSendNothing)
{
    Record(Digits);
    for (const std::int32_t type : {-1, 0, 3, 6, 7, 8, 9, 10, 12, 65537}) {
        EXPECT_EQ(Sent(type, 1, TwoFields), QStringList());
        EXPECT_EQ(Failed, 0);
        EXPECT_EQ(Sent(type, 1, QStringLiteral("DAT3")), QStringList());
        EXPECT_EQ(Failed, FailureNumber::SubscriptOutOfRange);
    }
}

struct KindRow
{
    const char* Token;
    /// What FARGO and ELTRON append and the fonts print; the fonts print nothing for no text.
    const char* Text;
    bool NiscaTakesIt;
};

TEST_F(EncodeDataTest, EveryKindOfTokenGivesWhatItsFamilyTakes)
{
    // The token stands behind field 1, which is "1234", on track 2. Field 2 is "xY".
    constexpr std::array rows = {
        KindRow{"DAT2", "XY", true},      KindRow{"lit", "LIT", false},
        KindRow{"SEP", "=", true},        KindRow{"MOD10", "2", true},
        KindRow{"CODABAR", "4", false},   KindRow{"EBT", "6", true},
        KindRow{"AUTO1", nullptr, false}, KindRow{"FDq^4^0^2", "qqxY", true},
    };
    Record({QStringLiteral("1234"), QStringLiteral("xY")});
    int kinds = 0;
    for (const KindRow& row : rows) {
        const QString formula = QStringLiteral("DAT1~") + QString::fromLatin1(row.Token);
        const QString text = QString::fromLatin1(row.Text);
        const QString both = QStringLiteral("1234") + text;
        EXPECT_EQ(Sent(Fargo, 2, formula), Prints({QStringLiteral("~2;%1?").arg(both)}));
        EXPECT_EQ(Sent(Eltron, 2, formula), Prints({QStringLiteral("${2%1}$").arg(both)}));
        QStringList lines(QStringLiteral("1234"));
        if (row.Text != nullptr)
            lines.append(text);
        EXPECT_EQ(Sent(ShortNames, 2, formula), InFont(QStringLiteral("Track 2"), lines));
        const QString body = row.NiscaTakesIt ? both : QStringLiteral("1234");
        EXPECT_EQ(Sent(Nisca, 2, formula),
                  Prints({QStringLiteral("~@1,2,%1,%2").arg(body.size()).arg(body)}));
        ++kinds;
    }
    EXPECT_EQ(kinds, 8);
}

TEST_F(EncodeDataTest, AnEmptyFormulaSendsNoText)
{
    EXPECT_EQ(Sent(Fargo, 1, QString()), QStringList());
    EXPECT_EQ(Sent(Eltron, 1, QString()), QStringList());
    EXPECT_EQ(Sent(Nisca, 1, QString()), QStringList());
    // A magnetic font is still selected and deselected.
    EXPECT_EQ(Sent(LongNames, 1, QString()),
              InFont(QStringLiteral("Track 1 - Magnetic stripe"), {}));
}

TEST_F(EncodeDataTest, ATrackOfALoneSeparatorIsSent)
{
    const QString lone = QStringLiteral("DAT1~SEP~DAT2");
    Record({QString(), QString()});
    EXPECT_EQ(Sent(Fargo, 1, lone), Prints({QStringLiteral("~1%^?")}));
    EXPECT_EQ(Sent(Eltron, 1, lone), Prints({QStringLiteral("${1=}$")}));
    EXPECT_EQ(Sent(Nisca, 1, QStringLiteral("SEP")), Prints({QStringLiteral("~@1,1,1,^")}));
}

TEST_F(EncodeDataTest, ATrackThatGivesNoCharactersIsNotSent)
{
    Record({QStringLiteral(" ?? "), QStringLiteral("full")});
    for (const std::int32_t type : {Fargo, Eltron, Nisca})
        EXPECT_EQ(Sent(type, 2, QStringLiteral("DAT1~~AUTO1~FD0^4^0^2")), QStringList());
}

TEST_F(EncodeDataTest, AnAutomaticNumberAloneGivesNothingOnEveryFamily)
{
    for (const std::int32_t type : Families) {
        Sent(type, 1, QStringLiteral("AUTO1"));
        EXPECT_EQ(Station.Printers.Only({QStringLiteral("Print(")}), QStringList());
        EXPECT_EQ(Failed, 0);
    }
}

TEST_F(EncodeDataTest, AnEmptyValueIsAnEmptyLineInAMagneticFont)
{
    Record({QString(), QStringLiteral("1")});
    EXPECT_EQ(Sent(ShortNames, 1, QStringLiteral("DAT1~~DAT2")),
              InFont(QStringLiteral("Track 1"), {QString(), QString(), QStringLiteral("1")}));
}

TEST_F(EncodeDataTest, ADataFieldIsCleanedAndSentInUpperCase)
{
    Record({QStringLiteral("ab-c")});
    EXPECT_EQ(Sent(Fargo, 1, QStringLiteral("DAT1")), Prints({QStringLiteral("~1%ABC?")}));
}

TEST_F(EncodeDataTest, UpperCaseGoesBeyondTheEnglishLetters)
{
    Record({QStringLiteral("Zoë ÿ")});
    EXPECT_EQ(Sent(Fargo, 1, QStringLiteral("DAT1~é")), Prints({QStringLiteral("~1%ZOË ŸÉ?")}));
}

TEST_F(EncodeDataTest, TheNiscaLengthIsThatOfTheTextAsSent)
{
    // Upper case of one letter is two letters here.
    Record({QStringLiteral("Maß")});
    EXPECT_EQ(Sent(Nisca, 1, QStringLiteral("DAT1")), Prints({QStringLiteral("~@1,1,4,MASS")}));
    Record({QString(120, u'7')});
    EXPECT_EQ(Sent(Nisca, 3, QStringLiteral("DAT1")),
              Prints({QStringLiteral("~@1,3,120,") + QString(120, u'7')}));
}

TEST_F(EncodeDataTest, ALiteralNeverReachesANiscaPrinter)
{
    Record({QStringLiteral("1")});
    EXPECT_EQ(Sent(Nisca, 1, QStringLiteral("ACME~SEP~DAT1")),
              Prints({QStringLiteral("~@1,1,2,^1")}));
    // A check digit over a literal does appear.
    EXPECT_EQ(Sent(Nisca, 1, QStringLiteral("12345~MOD10")), Prints({QStringLiteral("~@1,1,1,7")}));
}

TEST_F(EncodeDataTest, AFormattedFieldKeepsItsCaseOnEveryFamily)
{
    Record({QStringLiteral("aB")});
    const QString formula = QStringLiteral("FDx^3^0^1");
    const QString padded = QStringLiteral("xaB");
    EXPECT_EQ(Sent(Fargo, 1, formula), Prints({QStringLiteral("~1%xaB?")}));
    EXPECT_EQ(Sent(Eltron, 1, formula), Prints({QStringLiteral("${1xaB}$")}));
    EXPECT_EQ(Sent(LongNames, 1, formula),
              InFont(QStringLiteral("Track 1 - Magnetic stripe"), {padded}));
    EXPECT_EQ(Sent(ShortNames, 1, formula), InFont(QStringLiteral("Track 1"), {padded}));
    EXPECT_EQ(Sent(Nisca, 1, formula), Prints({QStringLiteral("~@1,1,3,xaB")}));
}

TEST_F(EncodeDataTest, ATrackOfCommandTextThatFailsSendsNothing)
{
    Record(Digits);
    for (const std::int32_t type : {Fargo, Eltron, Nisca}) {
        EXPECT_EQ(Sent(type, 1, QStringLiteral("DAT1~SEP~DAT~DAT2")), QStringList());
        EXPECT_EQ(Failed, FailureNumber::TypeMismatch);
    }
}

TEST_F(EncodeDataTest, AMagneticFontStaysWhereATokenFails)
{
    Record(Digits);
    EXPECT_EQ(Sent(ShortNames, 2, QStringLiteral("DAT1~SEP~DAT9~DAT2")),
              QStringList(FontName(QStringLiteral("Track 2"))) +
                  Prints({Digits[0], QStringLiteral("=")}));
    EXPECT_EQ(Failed, FailureNumber::SubscriptOutOfRange);
}

TEST_F(EncodeDataTest, APrinterThatRefusesEndsTheTrack)
{
    Record(Digits);
    Station.Printers.Get(QStringLiteral("Card Printer")).Failing = {QStringLiteral("Print(\"=")};
    EXPECT_EQ(Sent(ShortNames, 2, TwoFields),
              QStringList(FontName(QStringLiteral("Track 2"))) + Prints({Digits[0]}));
    EXPECT_EQ(Failed, FailureNumber::PrinterError);
}

namespace {

class StripeOnCard : public EncodeDataTest
{
protected:
    /// Prints a card with three tracks and one text. @return from the blank line to the first
    /// operation of the text
    QStringList PrintedCard(std::int32_t printerType, const QStringList& tracks)
    {
        Station.WithDatabase();
        BeginLayout(Session, QStringLiteral("Card"), printerType);
        Session.CurrentParams.Track1 = tracks[0];
        Session.CurrentParams.Track2 = tracks[1];
        Session.CurrentParams.Track3 = tracks[2];
        AddText(Session, QStringLiteral("text"));
        SavePage(Session);
        Station.Printers.Operations.clear();
        PrintCard(Session);
        QStringList operations = Station.Printers.Operations;
        EXPECT_EQ(operations.count(QStringLiteral("Print(\"text\")")), 1);
        EXPECT_EQ(operations.count(QStringLiteral("EndDoc")), 1);
        const qsizetype blank = operations.indexOf(QStringLiteral("Print(\" \")"));
        return operations.mid(blank + 1, operations.indexOf(FirstOfText) - blank - 1);
    }

    const QString FirstOfText = FontName(QStringLiteral("Font1"));
    const QStringList Tracks = {QStringLiteral("DAT1"), QStringLiteral("UPDATE"),
                                QStringLiteral("DAT2")};
};

} // namespace

TEST_F(StripeOnCard, StandsBelowTheBlankLineAndAFailedTrackIsLeftOut)
{
    Record(Digits);
    EXPECT_EQ(PrintedCard(Fargo, Tracks),
              Prints({QStringLiteral("~1%1234?"), QStringLiteral("~3;5678?")}));
}

TEST_F(StripeOnCard, AFailedTrackLeavesItsFontToTheNextWhichSetsItsOwn)
{
    Record(Digits);
    EXPECT_EQ(PrintedCard(ShortNames, Tracks),
              InFont(QStringLiteral("Track 1"), {Digits[0]}) +
                  QStringList(FontName(QStringLiteral("Track 2"))) +
                  InFont(QStringLiteral("Track 3"), {Digits[1]}));
}

TEST_F(StripeOnCard, APlainPrinterPrintsThePageWithoutStripe)
{
    Record(Digits);
    EXPECT_EQ(PrintedCard(9, Tracks), QStringList());
}

TEST_F(StripeOnCard, ThePageSwitchForEncodingHasNoInfluence)
{
    Record(Digits);
    ASSERT_FALSE(Session.CurrentParams.Encode);
    EXPECT_EQ(PrintedCard(Nisca, Tracks),
              Prints({QStringLiteral("~@1,1,4,1234"), QStringLiteral("~@1,3,4,5678")}));
}

} // namespace vantrel::test
