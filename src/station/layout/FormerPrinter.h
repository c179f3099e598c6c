#pragma once

#include "station/layout/PageKey.h"
#include <QString>

namespace vantrel {

class Session;

/// Makes the printer current again at its end that was current before, so that what prints behind
/// the surface leaves the designer as it was. If the operator has opened another page meanwhile,
/// that page's printer is made current instead. Never fails.
class FormerPrinter
{
public:
    explicit FormerPrinter(Session& session);
    FormerPrinter(const FormerPrinter&) = delete;
    FormerPrinter& operator=(const FormerPrinter&) = delete;
    ~FormerPrinter();

private:
    Session& m_session;
    PageKey m_surface;
    QString m_name;
    int m_orientation = 0;
};

} // namespace vantrel
