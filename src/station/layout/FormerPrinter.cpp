#include "station/layout/FormerPrinter.h"
#include "base/Skip.h"
#include "printers/Printer.h"
#include "station/session/Session.h"

namespace vantrel {

FormerPrinter::FormerPrinter(Session& session) : m_session(session), m_surface(PageOnForm(session))
{
    Skip("current printer", [&] {
        const Printer& printer = session.Printers.Current();
        m_name = printer.DeviceName();
        m_orientation = printer.Orientation();
    });
}

FormerPrinter::~FormerPrinter()
{
    const LayoutParamsRecord& surface = m_session.CurrentParams;
    const bool isOther = surface.LayoutOpen && !(PageOnForm(m_session) == m_surface);
    const QString& name = isOther ? surface.PrinterDevice : m_name;
    const int orientation = isOther ? surface.PrinterOrientation : m_orientation;
    Printers& printers = m_session.Printers;
    Skip("former printer", [&] {
        if (printers.Current().DeviceName() != name)
            printers.MakeCurrent(name);
        if (printers.Current().Orientation() != orientation)
            printers.Current().SetOrientation(orientation);
    });
}

} // namespace vantrel
