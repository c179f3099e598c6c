#include "station/session/Session.h"
#include "printers/Printer.h"
#include "station/session/Settings.h"

namespace vantrel {

Session::Session(QString programFolder, vantrel::Operator& stationOperator,
                 vantrel::Printers& printers)
    : ProgramFolder(std::move(programFolder)), Operator(stationOperator), Printers(printers),
      Comm(SettingsPath(ProgramFolder))
{}

// The outcome of jobs under way is noted in this session's ledger.
Session::~Session()
{
    Printers.FinishJobs();
}

QString PathIn(const QString& folder, const QString& name)
{
    return folder + QLatin1Char('/') + name;
}

QString Session::PathInFolder(const QString& name) const
{
    return PathIn(ProgramFolder, name);
}

} // namespace vantrel
