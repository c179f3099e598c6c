#include "PrintRun.h"
#include "station/session/Settings.h"
#include "station/session/StoreLocation.h"
#include "station/start/EntryPoint.h"
#include "store/StoreDatabase.h"
#include <QDir>
#include <QFileInfo>

namespace vantrel::print {

namespace {

QString FolderPath(const PrintOptions& options)
{
    return QDir(options.Folder).absolutePath();
}

} // namespace

PrintSession::PrintSession(const PrintOptions& options)
    : Printers(Dry), Session(FolderPath(options), Operator, Printers)
{
    if (!HasStore(Session.ProgramFolder))
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("There is no layout database in %1.").arg(options.Folder));
    if (!options.Images.isEmpty() && !QFileInfo(options.Images).isDir())
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("There is no folder %1.").arg(options.Images));
    Dry.FollowSetup(SettingsPath(Session.ProgramFolder));
    Printers.SetWanted([this] { return Session.CurrentParams.PrinterDevice; });
    QStringList mistakes;
    Session.Options = ReadStationOptions(Session.ProgramFolder, mistakes);
    OpenLayoutDb(Session);
    LoadSettings(Session);
    Session.Pictures.Folder = options.Images.isEmpty()
                                  ? ImagesFolder(Session)
                                  : QFileInfo(options.Images).absoluteFilePath();
    // These belong to a station's windows.
    Session.CurrentLayoutName.clear();
    Session.Settings.MainVisible = false;
    Session.Settings.DynamicFields = false;
}

QString FolderOf(const PrintOptions& options)
{
    if (options.PlaceName.isEmpty())
        return QDir(FolderPath(options)).filePath(QStringLiteral("Printed/Print"));
    return QFileInfo(options.PlaceName).absoluteFilePath();
}

Workers::Work MakeWork(const PrintOptions& options)
{
    struct Tools
    {
        explicit Tools(const PrintOptions& asked)
            : Session(asked), Printer(Session.Session, asked.Target), Plan(Printer.Plan()),
              Folder(FolderOf(asked))
        {
            Folder.FollowSetup(SettingsPath(Session.Session.ProgramFolder));
            Folder.SetDurable(Session.Session.Options.Ledger);
            Printer.NumberFiles([this](qint64 number) { Folder.CountFrom(number); });
            Session.Printers.Use(Folder);
        }

        PrintSession Session;
        RowPrinter Printer;
        RowPlan Plan;
        PdfPrinter Folder;
    };
    const auto tools = std::make_shared<Tools>(options);
    return [tools](const Batch& batch) {
        std::vector<RowResult> results = tools->Printer.Print(
            batch, tools->Plan, [](std::size_t) { return true; },
            [&] { tools->Folder.FinishJobs(); });
        // Other processes print the rows behind this batch, so those that are left fail here.
        QString reason = tools->Session.Session.LayoutDb.Database().Trouble();
        if (reason.isEmpty())
            reason = StoreAway;
        for (std::size_t row = results.size(); row < batch.Rows.size(); ++row)
            results.push_back({.Number = batch.Rows[row].Number,
                               .Line = batch.Rows[row].Line,
                               .Cards = {},
                               .Reason = reason});
        return results;
    };
}

} // namespace vantrel::print
