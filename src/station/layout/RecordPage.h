#pragma once

#include "station/layout/FormerPrinter.h"
#include "station/layout/OtherLayout.h"
#include "station/layout/PageKey.h"
#include <QString>
#include <memory>
#include <optional>

namespace vantrel {

class Session;
struct LayoutPage;

/// Whether records print behind the surface: with `Options.DesignTools`, but not rows of a file,
/// which nobody designs meanwhile.
bool PrintsBehindSurface(const Session& session);

/// The page that a record prints on, for as long as it prints there.
///
/// Where records print behind the surface it is a page of its own behind the surface, loaded from
/// the store. So the operator goes on with the page on the surface, saved or not, whatever prints
/// meanwhile, and a record that comes within another one has another page again. At the end the
/// printer that was current before is so again.
///
/// Otherwise it is the surface itself, on which the layout is opened as by `OtherLayout`.
class RecordPage
{
public:
    /// On the layout that is open on the surface.
    explicit RecordPage(Session& session);
    /// @param page  if the layout has not as many pages, its last one; nothing is open if no layout
    /// is named or the layout is not stored
    RecordPage(Session& session, const PageKey& page);
    RecordPage(const RecordPage&) = delete;
    RecordPage& operator=(const RecordPage&) = delete;
    ~RecordPage();

    LayoutPage& Page() const { return *m_page; }
    /// Why no layout is open on the page; empty if one is.
    QString WhyNone() const;
    /// Whether a layout is named that is not in the store, though it may be on the surface.
    bool IsMissing() const;

private:
    void Load(const PageKey& key);

    Session& m_session;
    LayoutPage* m_page;
    /// Where records share the surface.
    std::optional<OtherLayout> m_onSurface;
    /// Where they do not.
    std::optional<FormerPrinter> m_printer;
    std::unique_ptr<LayoutPage> m_behind;
    QString m_wanted;
};

/// The page on which a layout that was open at an earlier time is printed: its first one. An empty
/// name, or that of the open layout, gives the open page.
PageKey PageToPrint(const Session& session, const QString& layoutName);

} // namespace vantrel
