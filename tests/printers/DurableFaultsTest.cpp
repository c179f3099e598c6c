#include "DiskCalls.h"
#include "DurableCards.h"
#include <QFile>
#include <QScopeGuard>
#include <array>
#include <cerrno>
#include <csignal>
#include <map>
#include <sys/resource.h>
#include <unistd.h>

namespace vantrel::test {

namespace {

class DurableFaults : public DurableCards
{
protected:
    /// Expects that a card is not printed, and leaves nothing in the folder.
    /// @param place  the folder that the reason names, if it is not that of the cards
    void ExpectRefused(const QString& reason, const QString& place = {})
    {
        const QStringList before = Files();
        const JobOutcome outcome = OutcomeOfCard();
        EXPECT_FALSE(outcome.HandedOver);
        EXPECT_EQ(outcome.Reason,
                  QStringLiteral("%1: %2").arg(place.isEmpty() ? Folder() : place, reason));
        EXPECT_EQ(outcome.File, QString());
        EXPECT_EQ(Files(), before);
    }

    void ExpectPrinted(int number)
    {
        const JobOutcome outcome = OutcomeOfCard();
        EXPECT_TRUE(outcome.HandedOver) << outcome.Reason.toStdString();
        EXPECT_EQ(outcome.File, CardName(number));
        EXPECT_TRUE(QFile::exists(CardPath(number)));
    }
};

constexpr auto FullDisk = "No space left on device";

} // namespace

TEST_F(DurableFaults, ADiskThatIsFullWhenACardIsForcedToItTakesNoNumber)
{
    ExpectPrinted(1);
    DiskCalls disk;
    disk.FailBytes(ENOSPC, 1);
    ExpectRefused(QLatin1StringView(FullDisk));
    ExpectPrinted(2);
}

TEST_F(DurableFaults, AFileThatMayNotGrowFailsWithTheSystemsReason)
{
    ExpectPrinted(1);
    {
        rlimit before = {};
        ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
        const auto restore = qScopeGuard([&] {
            ::setrlimit(RLIMIT_FSIZE, &before);
            std::signal(SIGXFSZ, formerHandler);
        });
        const rlimit tight{100, before.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
        ExpectRefused(QStringLiteral("File too large"));
    }
    ExpectPrinted(2);
}

TEST_F(DurableFaults, AFolderThatMayOnlyBeReadFailsWithTheSystemsReason)
{
    ExpectPrinted(1);
    {
        const auto all = QFile::permissions(Folder());
        // The superuser may write everywhere, so the card is printed as somebody else.
        const uid_t superuser = 0;
        const uid_t nobody = 65534;
        const bool changesUser = ::geteuid() == superuser;
        ASSERT_TRUE(QFile::setPermissions(m_program.path(), all | QFile::ReadOther |
                                                                QFile::ExeOther | QFile::ExeGroup));
        ASSERT_TRUE(QFile::setPermissions(Folder(), QFile::ReadOwner | QFile::ExeOwner |
                                                        QFile::ReadOther | QFile::ExeOther));
        const auto restore = qScopeGuard([&] {
            EXPECT_TRUE(!changesUser || ::seteuid(superuser) == 0);
            EXPECT_TRUE(QFile::setPermissions(Folder(), all));
        });
        ASSERT_TRUE(!changesUser || ::seteuid(nobody) == 0);
        ExpectRefused(QStringLiteral("Permission denied"));
    }
    ExpectPrinted(2);
}

TEST_F(DurableFaults, AFileInPlaceOfTheFolderFailsUntilItIsGone)
{
    QFile inTheWay(m_program.filePath(QStringLiteral("Printed")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    ExpectRefused(QStringLiteral("Not a directory"), inTheWay.fileName());
    ASSERT_TRUE(inTheWay.remove());
    ExpectPrinted(1);
}

TEST_F(DurableFaults, AFolderThatWasTakenAwayIsMadeAgain)
{
    ExpectPrinted(1);
    ASSERT_TRUE(QDir(Folder()).removeRecursively());
    ExpectPrinted(2);
}

TEST_F(DurableFaults, AFolderTakenAwayWhileACardIsWrittenCostsThatCard)
{
    ExpectPrinted(1);
    {
        DiskCalls disk;
        disk.BeforeBytes([this] { QDir(Folder()).removeRecursively(); });
        const JobOutcome outcome = OutcomeOfCard();
        EXPECT_FALSE(outcome.HandedOver);
        EXPECT_EQ(outcome.Reason, Folder() + QStringLiteral(": No such file or directory"));
        EXPECT_FALSE(QDir(Folder()).exists());
    }
    ExpectPrinted(2);
}

TEST_F(DurableFaults, ACardWhoseNameDoesNotReachTheDiskIsTakenBack)
{
    ExpectPrinted(1);
    DiskCalls disk;
    disk.FailNames(EIO, 1);
    ExpectRefused(QStringLiteral("Input/output error"));
    ExpectPrinted(3);
}

TEST_F(DurableFaults, AFileSystemThatForcesNoNamesToTheDiskIsGoodEnough)
{
    ASSERT_TRUE(QDir().mkpath(Folder()));
    DiskCalls disk;
    disk.FailNames(EINVAL, 1);
    ExpectPrinted(1);
}

TEST_F(DurableFaults, OneCardThatFailsHarmsNoneOfThoseWrittenWithIt)
{
    ASSERT_TRUE(QDir().mkpath(Folder()));
    DiskCalls disk;
    disk.FailBytes(ENOSPC, 1);
    for (int i = 0; i < 8; ++i)
        PrintCard();
    Printer->FinishJobs();
    ASSERT_EQ(Told.size(), 8);
    QStringList files;
    QStringList reasons;
    for (const JobOutcome& outcome : Told)
        (outcome.HandedOver ? files : reasons).append(outcome.File + outcome.Reason);
    EXPECT_EQ(reasons, QStringList(Folder() + QStringLiteral(": ") + QLatin1StringView(FullDisk)));
    EXPECT_EQ(files.size(), 7);
    EXPECT_EQ(files, Files());
    EXPECT_EQ(files.constLast(), CardName(7));
}

TEST_F(DurableFaults, SessionsThatShareAFolderNeverLoseOrReplaceACard)
{
    constexpr int cardsEach = 40;
    class FilePrinter : public PdfPrinter
    {
    public:
        using PdfPrinter::DeliverLater;
        using PdfPrinter::PdfPrinter;
    };
    std::array<FilePrinter, 2> sessions{FilePrinter(Folder()), FilePrinter(Folder())};
    std::map<QString, QByteArray> cards;
    for (FilePrinter& session : sessions)
        session.SetDurable(true);
    for (int i = 0; i < 2 * cardsEach; ++i) {
        const QByteArray card = QByteArray::number(i);
        sessions.at(i % 2).DeliverLater(
            card, [&cards, card](const JobOutcome& outcome) { cards[outcome.File] = card; });
    }
    for (FilePrinter& session : sessions)
        session.FinishJobs();
    EXPECT_EQ(cards.size(), 2 * cardsEach);
    EXPECT_EQ(Files().size(), 2 * cardsEach);
    for (const auto& [name, bytes] : cards) {
        QFile file(Folder() + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        EXPECT_EQ(file.readAll(), bytes);
    }
}

} // namespace vantrel::test
