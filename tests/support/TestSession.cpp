#include "support/TestSession.h"
#include "platform/Schema.h"
#include <QDir>
#include <QImage>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {
QString TitleAndText(const QString& title, const QString& text)
{
    return title + QLatin1Char('|') + text;
}

bool TakeAnswer(std::deque<bool>& answers)
{
    if (answers.empty())
        return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}
} // namespace

bool TestOperator::ShowAppMessage(const QString& text, const QString& title,
                                  AppMessageButtons buttons)
{
    AppMessages.append(TitleAndText(title, text));
    return buttons == AppMessageButtons::OkOnly || TakeAnswer(Answers);
}

void TestOperator::MessageBox(const QString& text, const QString& title, BoxIcon icon)
{
    Icons.push_back(icon);
    (icon == BoxIcon::Critical ? CriticalBoxes : Boxes).append(TitleAndText(title, text));
}

bool TestOperator::AskYesNo(const QString& text, const QString& title)
{
    Questions.append(TitleAndText(title, text));
    return TakeAnswer(Answers);
}

void TestOperator::LetEventsRun()
{
    ++EventsRuns;
    if (WhileEventsRun.empty())
        return;
    const auto next = std::move(WhileEventsRun.front());
    WhileEventsRun.pop_front();
    next();
}

namespace {
/// A folder of its own inside: the station also writes a file whose name begins with the folder's.
QString MakeProgramFolder(const QTemporaryDir& folder)
{
    EXPECT_TRUE(folder.isValid());
    QString path = folder.filePath(QStringLiteral("Vantrel"));
    EXPECT_TRUE(QDir().mkpath(path));
    return path;
}
} // namespace

TestSession::TestSession(const QStringList& printerNames)
    : Printers(printerNames), Session(MakeProgramFolder(Folder), Operator, Printers)
{}

TestSession::~TestSession() = default;

void TestSession::WithDatabase()
{
    const QString path = Session.PathInFolder(QLatin1StringView(LayoutDatabaseName));
    CreateLayoutDatabase(path);
    Session.LayoutDb.Open(path);
}

QString TestSession::WritePng(const QString& name, int width, int height, QRgb color) const
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QString path = Session.PathInFolder(name);
    EXPECT_TRUE(image.save(path));
    return path;
}

} // namespace vantrel::test
