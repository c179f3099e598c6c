#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace vantrel::test {

class PrivatePostgres;

/// A pooler of the test's own in front of a server: it lends few connections to the server to many
/// programs, each for the time of a transaction. All its files are in a temporary folder.
class PrivatePooler
{
public:
    explicit PrivatePooler(const PrivatePostgres& server);
    PrivatePooler(const PrivatePooler&) = delete;
    PrivatePooler& operator=(const PrivatePooler&) = delete;
    ~PrivatePooler();

    /// How many connections to the server it has for each database.
    static constexpr int Connections = 2;

    /// Kills the pooler and with it all the connections that it has.
    void Kill();
    /// Starts it again after that, at the same address.
    void Start();

    /// The same database, through the pooler.
    QString Through(const QString& address) const;

private:
    QTemporaryDir m_folder;
    /// Any database of the server, to ask whether the pooler is ready.
    QByteArray m_address;
    QProcess m_pooler;
};

} // namespace vantrel::test
