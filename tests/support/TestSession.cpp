#include "support/TestSession.h"
#include "store/Schema.h"
#include "support/HeldPort.h"
#include <QDir>
#include <QImage>
#include <gtest/gtest.h>
#include <map>

namespace vantrel::test {

namespace {
QString TitleAndText(const QString& title, const QString& text)
{
    return title + QLatin1Char('|') + text;
}

template <typename Answer>
std::optional<Answer> Take(std::deque<Answer>& answers)
{
    if (answers.empty())
        return std::nullopt;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

bool TakeAnswer(std::deque<bool>& answers)
{
    return Take(answers).value_or(false);
}
} // namespace

bool TestOperator::ShowAppMessage(const QString& text, const QString& title,
                                  AppMessageButtons buttons)
{
    AppMessages.append(TitleAndText(title, text));
    MessageButtons.push_back(buttons);
    WhileAsked();
    return buttons == AppMessageButtons::OkOnly || TakeAnswer(Answers);
}

void TestOperator::MessageBox(const QString& text, const QString& title, BoxIcon icon)
{
    Icons.push_back(icon);
    (icon == BoxIcon::Critical ? CriticalBoxes : Boxes).append(TitleAndText(title, text));
    WhileAsked();
}

bool TestOperator::AskYesNo(const QString& text, const QString& title)
{
    Questions.append(TitleAndText(title, text));
    WhileAsked();
    return TakeAnswer(Answers);
}

BoxAnswer TestOperator::AskYesNoCancel(const QString& text, const QString& title)
{
    Questions.append(TitleAndText(title, text));
    WhileAsked();
    return Take(BoxAnswers).value_or(BoxAnswer::No);
}

QString TestOperator::InputBox(const QString& prompt, const QString& title, const QString& present)
{
    InputBoxes.append(TitleAndText(TitleAndText(title, prompt), present));
    WhileAsked();
    return Take(Inputs).value_or(QString());
}

std::optional<Font> TestOperator::AskFont(const Font& present)
{
    FontsShown.push_back(present);
    WhileAsked();
    return Take(Fonts);
}

std::optional<ColorValue> TestOperator::AskColor(ColorValue present)
{
    ColorsShown.push_back(present);
    WhileAsked();
    return Take(Colors);
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
/// A folder of its own within the temporary one: the station also writes a file beside its folder,
/// whose name begins with the folder's.
QString MakeProgramFolder(const QTemporaryDir& folder)
{
    EXPECT_TRUE(folder.isValid());
    QString path = folder.filePath(QStringLiteral("Vantrel"));
    EXPECT_TRUE(QDir().mkpath(path));
    return path;
}

/// The port of each session's settings, for as long as the session lives.
std::map<const TestSession*, HeldPort>& HeldPorts()
{
    static std::map<const TestSession*, HeldPort> ports;
    return ports;
}
} // namespace

TestSession::TestSession(const QStringList& printerNames)
    : Printers(printerNames), Session(MakeProgramFolder(Folder), Operator, Printers)
{
    Session.Settings.Port = HeldPorts()[this].Number();
}

TestSession::~TestSession()
{
    HeldPorts().erase(this);
}

void TestSession::WithDatabase()
{
    LayoutStore =
        std::make_unique<TestStore>(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
    Session.LayoutDb.Open(LayoutStore->Location());
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
