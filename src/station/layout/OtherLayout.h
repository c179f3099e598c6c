#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class Session;

/// Opens the first page of another layout for as long as it lives, and at the end the page of
/// before; nothing is open then if nothing was. Does nothing for an empty name or the open layout.
class OtherLayout
{
public:
    OtherLayout(Session& session, const QString& layoutName);
    OtherLayout(const OtherLayout&) = delete;
    OtherLayout& operator=(const OtherLayout&) = delete;
    ~OtherLayout();

private:
    Session& m_session;
    QString m_before;
    std::int16_t m_page;
    bool m_changed = false;
};

} // namespace vantrel
