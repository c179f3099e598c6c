#include "station/layout/RecordPage.h"
#include "base/Skip.h"
#include "station/layout/LoadLayout.h"
#include "station/session/Session.h"

namespace vantrel {

bool PrintsBehindSurface(const Session& session)
{
    return session.Options.DesignTools && session.Keeper == nullptr;
}

RecordPage::RecordPage(Session& session) : RecordPage(session, PageOnForm(session)) {}

RecordPage::RecordPage(Session& session, const PageKey& page)
    : m_session(session), m_page(&session.Surface), m_wanted(page.LayoutName)
{
    if (!PrintsBehindSurface(session)) {
        m_onSurface.emplace(session, page.LayoutName);
        return;
    }
    m_printer.emplace(session);
    m_behind = std::move(session.Behind);
    if (!m_behind)
        m_behind = std::make_unique<LayoutPage>();
    m_page = m_behind.get();
    Load(page);
}

RecordPage::~RecordPage()
{
    if (!m_behind)
        return;
    // A record's values may be long.
    m_behind->Document.RemoveContent();
    m_session.Behind = std::move(m_behind);
}

/// A page without parameters of its own has those of the surface, if that shows its layout.
void RecordPage::Load(const PageKey& key)
{
    LayoutParamsRecord& params = m_page->Params;
    if (key.LayoutName == m_session.CurrentLayoutName)
        params = m_session.CurrentParams;
    else
        ResetParams(params, m_session.Printers);
    m_page->LayoutName.clear();
    params.LayoutOpen = false;
    params.AutoSpool = false;
    params.PageIndex = key.Page;
    if (key.LayoutName.isEmpty())
        return;
    const auto load = [&] { LoadLayout(m_session, *m_page, key.LayoutName); };
    Skip("load", load);
    if (!params.LayoutOpen || params.PageIndex <= params.PageCount)
        return;
    // The page on the surface was not saved yet.
    params.PageIndex = params.PageCount;
    Skip("load", load);
}

QString RecordPage::WhyNone() const
{
    if (m_page->Params.LayoutOpen)
        return {};
    if (!IsMissing())
        return QStringLiteral("No layout is open.");
    return QStringLiteral("The layout ") + m_wanted +
           QStringLiteral(" is not in the database: it was not saved yet, or was deleted.");
}

bool RecordPage::IsMissing() const
{
    return m_behind && !m_wanted.isEmpty() && !m_page->Params.LayoutOpen;
}

PageKey PageToPrint(const Session& session, const QString& layoutName)
{
    if (layoutName.isEmpty() || layoutName == session.CurrentLayoutName)
        return PageOnForm(session);
    return {layoutName, 1};
}

} // namespace vantrel
