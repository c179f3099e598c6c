#include "ConsoleOptions.h"

namespace vantrel::console {

namespace {

const char* const HelpText =
    "Usage: vantrel-console DIR [--listen ADDRESS:PORT] [--tls CERT KEY]\n"
    "\n"
    "Shows the stations of the program folder DIR in a browser: what they print, and what they\n"
    "printed. It asks for the token in DIR/Console.token, which it makes when it first starts.\n"
    "\n"
    "Options:\n"
    "  --listen ADDRESS:PORT  Listens there instead of on 127.0.0.1:8620. An address that others\n"
    "                         can reach wants --tls.\n"
    "  --tls CERT KEY         Files in PEM format with a certificate and its key.\n"
    "  -h, --help             Shows this help.\n"
    "  --version              Shows the version.\n"
    "\n"
    "Ends with 0 when it is told to, with 1 where it cannot serve, with 2 where the call was not\n"
    "understood.\n";

/// A mistake in the command line.
struct Mistake
{
    QString Text;
};

/// Reads "127.0.0.1:8620" or "[::1]:8620".
void ReadAddress(const QString& text, ListenTerms& terms)
{
    const qsizetype colon = text.lastIndexOf(u':');
    QString address = text.left(colon);
    if (address.startsWith(u'[') && address.endsWith(u']'))
        address = address.sliced(1, address.size() - 2);
    else if (address.contains(u':'))
        address.clear();
    bool isPort = false;
    const ushort port = text.mid(colon + 1).toUShort(&isPort);
    if (colon < 0 || !isPort || !terms.Address.setAddress(address))
        throw Mistake{QStringLiteral("--listen wants an address and a port such as 127.0.0.1:8620 "
                                     "or [::1]:8620, not %1")
                          .arg(text)};
    terms.Port = port;
}

/// The words of the line, one after the other.
class Words
{
public:
    explicit Words(const QStringList& line) : m_line(line) {}

    bool AreLeft() const { return m_next < m_line.size(); }
    const QString& Next() { return m_line.at(m_next++); }
    const QString& ValueOf(const QString& option)
    {
        if (!AreLeft() || m_line.at(m_next).isEmpty() ||
            m_line.at(m_next).startsWith(QStringLiteral("--")))
            throw Mistake{option == QStringLiteral("--tls")
                              ? QStringLiteral("--tls wants two files, a certificate and its key")
                              : option + QStringLiteral(" wants a value")};
        return Next();
    }

private:
    const QStringList& m_line;
    qsizetype m_next = 0;
};

void ReadOption(const QString& word, Words& words, OptionsRequest& request)
{
    ConsoleOptions& options = *request.Options;
    if (word == QStringLiteral("--help") || word == QStringLiteral("-h")) {
        request.Help = QString::fromLatin1(HelpText);
    } else if (word == QStringLiteral("--version")) {
        request.Help = QStringLiteral("vantrel-console " VANTREL_VERSION "\n");
    } else if (word == QStringLiteral("--listen")) {
        ReadAddress(words.ValueOf(word), options.Listen);
    } else if (word.startsWith(QStringLiteral("--listen="))) {
        ReadAddress(word.mid(word.indexOf(u'=') + 1), options.Listen);
    } else if (word == QStringLiteral("--tls")) {
        options.Certificate = words.ValueOf(word);
        options.Key = words.ValueOf(word);
    } else {
        throw Mistake{QStringLiteral("unknown option ") + word};
    }
}

void ReadWords(const QStringList& line, OptionsRequest& request)
{
    ConsoleOptions& options = request.Options.emplace();
    options.Listen.Port = UsualPort;
    QStringList plain;
    bool ended = false;
    for (Words words(line); words.AreLeft() && request.Help.isEmpty();) {
        const QString& word = words.Next();
        if (!ended && word == QStringLiteral("--"))
            ended = true;
        else if (!ended && word.startsWith(u'-'))
            ReadOption(word, words, request);
        else
            plain += word;
    }
    if (!request.Help.isEmpty())
        return;
    if (plain.size() != 1 || plain.at(0).isEmpty())
        throw Mistake{QStringLiteral("one program folder is wanted")};
    if (!options.Listen.Address.isLoopback() && options.Certificate.isEmpty())
        throw Mistake{QStringLiteral("--listen %1 can be reached by others and wants --tls")
                          .arg(options.Listen.Address.toString())};
    options.Folder = plain.at(0);
}

} // namespace

OptionsRequest ReadCommandLine(const QStringList& words)
{
    OptionsRequest request;
    try {
        ReadWords(words, request);
    } catch (const Mistake& mistake) {
        request.Mistake = mistake.Text + QStringLiteral(" (see vantrel-console --help)");
    }
    return request;
}

} // namespace vantrel::console
