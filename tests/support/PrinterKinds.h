#pragma once

#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel::test {

/// A row of the store's kinds of printers; a null variant is a null.
inline void AddPrinterKind(vantrel::Session& session, const QVariant& name, const QVariant& code,
                           const QVariant& colorCapable, const QVariant& dualSided, int order)
{
    Recordset row(session.LayoutDb);
    row.Open(QStringLiteral("SELECT * FROM [PrinterTypes]"), CursorLock::Optimistic);
    row.AddNew();
    row.SetValue(QStringLiteral("Name"), name);
    row.SetValue(QStringLiteral("DeviceType"), code);
    row.SetValue(QStringLiteral("ColorCapable"), colorCapable);
    row.SetValue(QStringLiteral("DualSided"), dualSided);
    row.SetValue(QStringLiteral("VisOrder"), order);
    row.Update();
}

} // namespace vantrel::test
