#include "app/Session.h"
#include "app/Settings.h"

namespace vantrel {

Session::Session(QString programFolder, vantrel::Operator& stationOperator,
                 vantrel::Printers& printers)
    : ProgramFolder(std::move(programFolder)), Operator(stationOperator), Printers(printers),
      Comm(SettingsPath(*this))
{}

Session::~Session() = default;

QString Session::PathInFolder(const QString& name) const
{
    return ProgramFolder + QLatin1Char('/') + name;
}

} // namespace vantrel
