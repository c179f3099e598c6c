#pragma once

#include <QStringList>

namespace vantrel {

class Connection;

/// Looks at the rows of several statements at once, in one round trip where a server keeps the
/// database: it is asked which of them were written since this connection has read them, and only
/// statements with such rows are read anew, in a second one. As long as the look exists, and
/// outside transactions, cursors on these statements are given these rows, with what this
/// connection has changed in them since. What others change meanwhile is not seen, so it must end
/// before events run. Within another one only what that has not looked at is looked at. Does
/// nothing on a file, where asking whether anything has changed costs less. What cannot be read
/// ahead is read by its cursor, which fails if that cannot read it either.
class ReadAhead
{
public:
    /// @param connection  must outlive this object
    ReadAhead(Connection& connection, const QStringList& statements);
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    ~ReadAhead();

private:
    Connection& m_connection;
};

} // namespace vantrel
