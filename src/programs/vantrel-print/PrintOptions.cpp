#include "PrintOptions.h"
#include "base/Failure.h"
#include "printers/PdfPrinter.h"
#include <QCommandLineParser>

namespace vantrel::print {

namespace {

constexpr int MostWorkers = 64;
constexpr auto AnyNumber = std::numeric_limits<qint64>::max();

/// A mistake in the command line.
struct Mistake
{
    QString Text;
};

const char* const Purpose =
    "Prints a card for each row of a file: the columns are the values of a record, in their order "
    "or in that of --columns.\n\n"
    "LAYOUT is a layout of the program folder DIR; with --macro it is left out. Without FILE, or "
    "with -, the rows come from standard input. Without --each, --one or --printer the cards go "
    "to DIR/Printed/Print.\n\n"
    "Ends with 0 if all cards are printed, 1 if some or all rows failed, 2 if nothing was begun "
    "because of a mistake in the call, 130 if it was interrupted.";

/// The options, in the order of the help.
struct Options
{
    QCommandLineOption Format{QStringLiteral("format"),
                              QStringLiteral("How the file is written: csv, tsv, or records as "
                                             "hosts send them. Default: by the file's ending, "
                                             "else csv."),
                              QStringLiteral("FORMAT")};
    QCommandLineOption Header{QStringLiteral("header"),
                              QStringLiteral("The first line holds the names of the columns.")};
    QCommandLineOption Columns{QStringLiteral("columns"),
                               QStringLiteral("Takes these columns in this order, by the names "
                                              "of the first line."),
                               QStringLiteral("A,B,...")};
    QCommandLineOption Encoding{QStringLiteral("encoding"),
                                QStringLiteral("utf-8 or cp1252. Default: utf-8 for tables, for "
                                               "records what the station reads."),
                                QStringLiteral("NAME")};
    QCommandLineOption Macro{QStringLiteral("macro"),
                             QStringLiteral("Prints each row on the layouts of this macro."),
                             QStringLiteral("NAME")};
    QCommandLineOption Images{QStringLiteral("images"),
                              QStringLiteral("Folder of the pictures that values name."),
                              QStringLiteral("FOLDER")};
    QCommandLineOption Each{QStringLiteral("each"),
                            QStringLiteral("Each card becomes a PDF in this folder."),
                            QStringLiteral("FOLDER")};
    QCommandLineOption One{QStringLiteral("one"),
                           QStringLiteral("All cards become the pages of this PDF."),
                           QStringLiteral("FILE.pdf")};
    QCommandLineOption Printer{QStringLiteral("printer"),
                               QStringLiteral("The cards go to this printer."),
                               QStringLiteral("NAME")};
    QCommandLineOption First{QStringLiteral("first"),
                             QStringLiteral("Begins with this row, counted from 1."),
                             QStringLiteral("N")};
    QCommandLineOption Count{QStringLiteral("count"), QStringLiteral("Prints so many rows."),
                             QStringLiteral("N")};
    QCommandLineOption Workers{QStringLiteral("workers"),
                               QStringLiteral("So many processes share the rows of --each."),
                               QStringLiteral("N")};
    QCommandLineOption DryRun{QStringLiteral("dry-run"),
                              QStringLiteral("Reads and draws all and prints nothing.")};
    QCommandLineOption Quiet{QStringLiteral("quiet"), QStringLiteral("Tells failures only.")};
    QCommandLineOption Help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Shows this help.")};
    QCommandLineOption Version{QStringLiteral("version"), QStringLiteral("Shows the version.")};

    void AddTo(QCommandLineParser& parser) const
    {
        parser.setApplicationDescription(QString::fromLatin1(Purpose));
        parser.addOptions({Format, Header, Columns, Encoding, Macro, Images, Each, One, Printer,
                           First, Count, Workers, DryRun, Quiet, Help, Version});
        parser.addPositionalArgument(QStringLiteral("DIR"),
                                     QStringLiteral("The program folder of a station."));
        parser.addPositionalArgument(QStringLiteral("LAYOUT"), QStringLiteral("Name of a layout."),
                                     QStringLiteral("[LAYOUT]"));
        parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The rows."),
                                     QStringLiteral("[FILE|-]"));
    }
};

QString Wants(const QCommandLineOption& option, const QString& wanted, const QString& text)
{
    return QStringLiteral("--%1 wants %2, not %3")
        .arg(option.names().constFirst(), wanted,
             text.isEmpty() ? QStringLiteral("an empty text") : text);
}

qint64 NumberOf(const QCommandLineParser& parser, const QCommandLineOption& option, qint64 most)
{
    const QString text = parser.value(option);
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber || number < 1 || number > most) {
        const QString wanted = most == AnyNumber
                                   ? QStringLiteral("a whole number from 1 on")
                                   : QStringLiteral("a whole number from 1 to %1").arg(most);
        throw Mistake{Wants(option, wanted, text)};
    }
    return number;
}

PrintOptions::Format FormatOf(const QCommandLineParser& parser, const Options& options,
                              const QString& file)
{
    using Format = PrintOptions::Format;
    if (!parser.isSet(options.Format)) {
        const bool isTsv = file.endsWith(QStringLiteral(".tsv"), Qt::CaseInsensitive) ||
                           file.endsWith(QStringLiteral(".tab"), Qt::CaseInsensitive);
        return isTsv ? Format::Tsv : Format::Csv;
    }
    const QString name = parser.value(options.Format);
    if (name == QStringLiteral("csv"))
        return Format::Csv;
    if (name == QStringLiteral("tsv"))
        return Format::Tsv;
    if (name == QStringLiteral("records"))
        return Format::Records;
    throw Mistake{Wants(options.Format, QStringLiteral("csv, tsv or records"), name)};
}

InputEncoding EncodingOf(const QCommandLineOption& option, const QString& name)
{
    if (name == QStringLiteral("utf-8"))
        return InputEncoding::Utf8;
    if (name == QStringLiteral("cp1252"))
        return InputEncoding::CodePage1252;
    throw Mistake{Wants(option, QStringLiteral("utf-8 or cp1252"), name)};
}

QStringList NamesOf(const QCommandLineOption& option, const QString& list)
{
    try {
        QStringList names = ColumnNames(list);
        if (!names.isEmpty())
            return names;
    } catch (const Failure&) {
        // Told below.
    }
    throw Mistake{Wants(option, QStringLiteral("names with commas between"), list)};
}

void TakeArguments(const QCommandLineParser& parser, const Options& options, PrintOptions& asked)
{
    QStringList words = parser.positionalArguments();
    const bool hasMacro = parser.isSet(options.Macro);
    const qsizetype named = hasMacro ? 1 : 2;
    if (words.size() < named || words.size() > named + 1 || words.contains(QString()))
        throw Mistake{hasMacro ? QStringLiteral("usage: vantrel-print DIR --macro NAME [FILE|-]")
                               : QStringLiteral("usage: vantrel-print DIR LAYOUT [FILE|-]")};
    asked.Folder = words.takeFirst();
    if (hasMacro)
        asked.Target.Macro = parser.value(options.Macro);
    else
        asked.Target.Layout = words.takeFirst();
    if (asked.Target.Name().isEmpty())
        throw Mistake{QStringLiteral("--macro wants a name")};
    if (!words.isEmpty())
        asked.File = words.takeFirst();
}

void TakePlace(const QCommandLineParser& parser, const Options& options, PrintOptions& asked)
{
    const std::pair<const QCommandLineOption&, Place> places[] = {
        {options.Each, Place::Folder},
        {options.One, Place::Book},
        {options.Printer, Place::Printer},
    };
    bool isChosen = false;
    for (const auto& [option, place] : places) {
        if (!parser.isSet(option))
            continue;
        if (isChosen)
            throw Mistake{QStringLiteral("only one of --each, --one and --printer may be given")};
        isChosen = true;
        asked.Place = place;
        asked.PlaceName = parser.value(option);
        if (asked.PlaceName.isEmpty())
            throw Mistake{Wants(option, QStringLiteral("a name"), QString())};
    }
    if (asked.Place == Place::Printer && asked.PlaceName == QLatin1StringView(PdfDeviceName)) {
        asked.Place = Place::Folder;
        asked.PlaceName.clear();
    }
}

/// The parser names the program only where there is an application, which is made later.
QString HelpOf(const QCommandLineParser& parser)
{
    return parser.helpText().replace(QStringLiteral("<executable_name>"),
                                     QStringLiteral("vantrel-print"));
}

PrintOptions OptionsOf(const QCommandLineParser& parser, const Options& options)
{
    PrintOptions asked;
    TakeArguments(parser, options, asked);
    TakePlace(parser, options, asked);
    asked.Written = FormatOf(parser, options, asked.File);
    asked.HasHeader = parser.isSet(options.Header);
    if (parser.isSet(options.Columns)) {
        asked.Columns = NamesOf(options.Columns, parser.value(options.Columns));
        asked.HasHeader = true;
    }
    if (asked.HasHeader && asked.Written == PrintOptions::Format::Records)
        throw Mistake{QStringLiteral("records have no line of names")};
    if (parser.isSet(options.Encoding))
        asked.Encoding = EncodingOf(options.Encoding, parser.value(options.Encoding));
    if (parser.isSet(options.First))
        asked.First = NumberOf(parser, options.First, AnyNumber);
    if (parser.isSet(options.Count))
        asked.Count = NumberOf(parser, options.Count, AnyNumber);
    if (parser.isSet(options.Workers))
        asked.Workers = static_cast<int>(NumberOf(parser, options.Workers, MostWorkers));
    asked.Images = parser.value(options.Images);
    if (parser.isSet(options.Images) && asked.Images.isEmpty())
        throw Mistake{Wants(options.Images, QStringLiteral("a folder"), QString())};
    asked.IsDryRun = parser.isSet(options.DryRun);
    asked.IsQuiet = parser.isSet(options.Quiet);
    return asked;
}

} // namespace

Request ReadCommandLine(const QStringList& line)
{
    const Options options;
    QCommandLineParser parser;
    options.AddTo(parser);
    Request request;
    const bool isUnderstood = parser.parse(line);
    try {
        if (!isUnderstood)
            throw Mistake{parser.errorText()};
        if (parser.isSet(options.Help))
            request.Help = HelpOf(parser);
        else if (parser.isSet(options.Version))
            request.Help = QStringLiteral("vantrel-print " VANTREL_VERSION "\n");
        else
            request.Options = OptionsOf(parser, options);
    } catch (const Mistake& mistake) {
        request.Mistake = mistake.Text + QStringLiteral(" (see vantrel-print --help)");
    }
    return request;
}

} // namespace vantrel::print
