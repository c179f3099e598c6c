#include "CommandLine.h"

namespace vantrel::admin {

namespace {
const QString Program = QStringLiteral("vantrel-admin");
const QString SeeHelp = QStringLiteral(" (see %1 --help)").arg(Program);

QString UsageOf(const Command& command)
{
    const QString usage = Program + QLatin1Char(' ') + QLatin1StringView(command.Name) +
                          QLatin1Char(' ') + QLatin1StringView(command.Arguments);
    return usage.trimmed();
}

QString HelpOf(const Command& command)
{
    return QStringLiteral("Usage: ") + UsageOf(command) + QStringLiteral("\n\n") +
           QLatin1StringView(command.Purpose) + QLatin1Char('\n');
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

/// Removes the options from the words. @return false for an unknown option
bool TakeOptions(QStringList& words, bool& help, bool& version, QString& unknown)
{
    QStringList plain;
    bool ended = false;
    for (const QString& word : words) {
        if (ended || !word.startsWith(u'-') || word == QStringLiteral("-"))
            plain.append(word);
        else if (word == QStringLiteral("--"))
            ended = true;
        else if (word == QStringLiteral("--help") || word == QStringLiteral("-h"))
            help = true;
        else if (word == QStringLiteral("--version"))
            version = true;
        else if (unknown.isEmpty())
            unknown = word;
    }
    words = plain;
    return unknown.isEmpty();
}

/// The command whose words start the line, or null. Removes these words.
const Command* FindCommand(QStringList& words)
{
    for (const Command& command : Commands()) {
        const QStringList name = QString::fromLatin1(command.Name).split(u' ');
        if (words.mid(0, name.size()) == name) {
            words.remove(0, name.size());
            return &command;
        }
    }
    return nullptr;
}
} // namespace

Request ReadCommandLine(const QStringList& line)
{
    QStringList words = line;
    bool help = false;
    bool version = false;
    Request request;
    QString unknown;
    if (!TakeOptions(words, help, version, unknown)) {
        request.Mistake = QStringLiteral("unknown option %1").arg(unknown) + SeeHelp;
        return request;
    }
    if (version) {
        request.Help = Program + QStringLiteral(" " VANTREL_VERSION "\n");
        return request;
    }
    if (words.isEmpty()) {
        if (help)
            request.Help = HelpOfProgram();
        else
            request.Mistake = QStringLiteral("a command is missing") + SeeHelp;
        return request;
    }

    const QString asked = words.join(u' ');
    const Command* command = FindCommand(words);
    if (command == nullptr) {
        const QString group = HelpOfGroup(asked + QLatin1Char(' '));
        if (help)
            request.Help = group;
        if (request.Help.isEmpty()) {
            request.Mistake = (group.isEmpty() ? QStringLiteral("unknown command: ")
                                               : QStringLiteral("a word is missing behind: ")) +
                              asked.simplified() + SeeHelp;
        }
        return request;
    }
    if (help) {
        request.Help = HelpOf(*command);
        return request;
    }
    const auto wanted =
        QString::fromLatin1(command->Arguments).split(u' ', Qt::SkipEmptyParts).size();
    if (words.size() != wanted || words.contains(QString())) {
        request.Mistake = QStringLiteral("usage: ") + UsageOf(*command);
        return request;
    }
    request.Chosen = command;
    request.Arguments = words;
    return request;
}

} // namespace vantrel::admin
