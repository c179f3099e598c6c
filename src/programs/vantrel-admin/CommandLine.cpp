#include "CommandLine.h"
#include <algorithm>

namespace vantrel::admin {

namespace {
const QString Program = QStringLiteral("vantrel-admin");
const QString End = QStringLiteral("--");

QString UsageOf(const Command& command)
{
    const QString usage = Program + QLatin1Char(' ') + QLatin1StringView(command.Name) +
                          QLatin1Char(' ') + QLatin1StringView(command.Arguments);
    return usage.trimmed() +
           (command.Options.empty() ? QString() : QStringLiteral(" [OPTION ...]"));
}

QString HelpOf(std::span<const Option> options)
{
    QString help;
    for (const Option& option : options)
        help += QStringLiteral("  ") +
                QString(QLatin1StringView(option.Name) + QLatin1Char(' ') +
                        QLatin1StringView(option.Value))
                    .leftJustified(20) +
                QLatin1StringView(option.Purpose) + QLatin1Char('\n');
    return help.isEmpty() ? help : QStringLiteral("\nOptions:\n") + help;
}

QString HelpOf(const Command& command)
{
    return QStringLiteral("Usage: ") + UsageOf(command) + QStringLiteral("\n\n") +
           QLatin1StringView(command.Purpose) + QLatin1Char('\n') + HelpOf(command.Options);
}

/// The help of all commands that begin with these words; empty if there are none.
QString HelpOfGroup(const QString& beginning)
{
    QString help;
    for (const Command& command : Commands())
        if (QLatin1StringView(command.Name).startsWith(beginning))
            help += QStringLiteral("  ") + UsageOf(command) + QStringLiteral("\n      ") +
                    QLatin1StringView(command.Purpose) + QLatin1Char('\n');
    return help.isEmpty() ? help : QStringLiteral("Usage:\n") + help;
}

QString HelpOfProgram()
{
    return QStringLiteral("Tends the program folder of a card station.\n\n") +
           HelpOfGroup(QString()) +
           QStringLiteral("\n  %1 --help, %1 COMMAND --help, %1 --version\n"
                          "\nEnds with 0, with 1 where a command failed, with 2 where it was not "
                          "understood.\n")
               .arg(Program);
}

bool IsOption(const QString& word)
{
    return word.startsWith(u'-') && word != QStringLiteral("-");
}

/// The words of a line that are no options, the values of options among them.
QStringList PlainWords(const QStringList& line)
{
    QStringList plain;
    bool ended = false;
    for (const QString& word : line) {
        if (ended || !IsOption(word))
            plain.append(word);
        else if (word == End)
            ended = true;
    }
    return plain;
}

/// The command whose words start the line, or null.
const Command* FindCommand(const QStringList& plain)
{
    for (const Command& command : Commands()) {
        const QStringList name = QString::fromLatin1(command.Name).split(u' ');
        if (plain.mid(0, name.size()) == name)
            return &command;
    }
    return nullptr;
}

const Option* FindOption(const Command* command, const QString& name)
{
    if (command != nullptr)
        for (const Option& option : command->Options)
            if (name == QLatin1StringView(option.Name))
                return &option;
    return nullptr;
}

/// Separates a line into words and options.
class Reader
{
public:
    /// @param command  the one whose options are known; null for none
    Reader(const QStringList& line, const Command* command) : m_line(line), m_command(command)
    {
        while (m_next < m_line.size() && Mistake.isEmpty())
            Take(m_line.at(m_next++));
    }

    Words Given;
    bool Help = false;
    bool Version = false;
    QString Mistake;

private:
    void Take(const QString& word)
    {
        if (m_ended || !IsOption(word))
            Given.Arguments.append(word);
        else if (word == End)
            m_ended = true;
        else if (word == QStringLiteral("--help") || word == QStringLiteral("-h"))
            Help = true;
        else if (word == QStringLiteral("--version"))
            Version = true;
        else
            TakeOption(word);
    }

    void TakeOption(const QString& word)
    {
        const auto equals = word.indexOf(u'=');
        const QString name = word.left(equals);
        const Option* option = FindOption(m_command, name);
        if (option == nullptr) {
            Mistake = QStringLiteral("unknown option %1").arg(word) + HintOfHelp();
            return;
        }
        const bool takesValue = *option->Value != '\0';
        if (takesValue && equals < 0 && m_next == m_line.size())
            Mistake = QStringLiteral("%1 wants a value").arg(name) + HintOfHelp();
        else if (!takesValue && equals >= 0)
            Mistake = QStringLiteral("%1 takes no value").arg(name) + HintOfHelp();
        else if (!takesValue)
            Given.Options[name] = QString();
        else
            Given.Options[name] = equals < 0 ? m_line.at(m_next++) : word.mid(equals + 1);
    }

    const QStringList& m_line;
    const Command* m_command;
    qsizetype m_next = 0;
    bool m_ended = false;
};

bool HasTheArgumentsOf(const Command& command, const QStringList& arguments)
{
    const QStringList names =
        QString::fromLatin1(command.Arguments).split(u' ', Qt::SkipEmptyParts);
    const auto required = std::count_if(names.begin(), names.end(),
                                        [](const QString& name) { return !name.startsWith(u'['); });
    const bool anyMore = !names.isEmpty() && names.last().contains(QStringLiteral("..."));
    return arguments.size() >= required && (anyMore || arguments.size() <= names.size()) &&
           !arguments.contains(QString());
}

/// Fills in the help or the mistake of a line that begins with no whole command.
void ReadWithoutCommand(const QString& asked, bool help, Request& request)
{
    if (asked.isEmpty()) {
        if (help)
            request.Help = HelpOfProgram();
        else
            request.Mistake = QStringLiteral("a command is missing") + HintOfHelp();
        return;
    }
    const QString group = HelpOfGroup(asked + QLatin1Char(' '));
    if (help)
        request.Help = group;
    if (request.Help.isEmpty()) {
        request.Mistake = (group.isEmpty() ? QStringLiteral("unknown command: ")
                                           : QStringLiteral("a word is missing behind: ")) +
                          asked.simplified() + HintOfHelp();
    }
}
} // namespace

QString HintOfHelp()
{
    return QStringLiteral(" (see %1 --help)").arg(Program);
}

Request ReadCommandLine(const QStringList& line)
{
    Request request;
    const QStringList plain = PlainWords(line);
    const Command* command = FindCommand(plain);
    const Reader reader(line, command);
    if (!reader.Mistake.isEmpty()) {
        request.Mistake = reader.Mistake;
    } else if (reader.Version) {
        request.Help = Program + QStringLiteral(" " VANTREL_VERSION "\n");
    } else if (command == nullptr) {
        ReadWithoutCommand(plain.join(u' '), reader.Help, request);
    } else if (reader.Help) {
        request.Help = HelpOf(*command);
    } else {
        request.Given = reader.Given;
        request.Given.Arguments.remove(0, QString::fromLatin1(command->Name).count(u' ') + 1);
        if (HasTheArgumentsOf(*command, request.Given.Arguments))
            request.Chosen = command;
        else
            request.Mistake = QStringLiteral("usage: ") + UsageOf(*command);
    }
    return request;
}

} // namespace vantrel::admin
