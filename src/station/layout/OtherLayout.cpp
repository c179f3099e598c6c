#include "station/layout/OtherLayout.h"
#include "base/Skip.h"
#include "station/layout/LoadLayout.h"
#include "station/session/Session.h"

namespace vantrel {

OtherLayout::OtherLayout(Session& session, const QString& layoutName)
    : m_session(session), m_before(session.CurrentLayoutName),
      m_page(session.CurrentParams.PageIndex)
{
    if (layoutName.isEmpty() || layoutName == m_before)
        return;
    m_changed = true;
    Skip("load", [&] { LoadFirstPage(session, layoutName); });
}

OtherLayout::~OtherLayout()
{
    if (!m_changed)
        return;
    if (m_before.isEmpty()) {
        CloseLayout(m_session);
        return;
    }
    m_session.CurrentParams.PageIndex = m_page;
    Skip("load", [&] { LoadLayout(m_session, m_before); });
}

} // namespace vantrel
