#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <map>
#include <memory>

class QTcpSocket;

namespace vantrel::test {

/// What came back for a request.
struct HttpAnswer
{
    /// 0 if the connection ended without one.
    int Status = 0;
    /// By their names in small letters.
    std::map<QByteArray, QByteArray> Headers;
    QByteArray Body;

    QByteArray Header(const char* name) const
    {
        const auto found = Headers.find(name);
        return found == Headers.end() ? QByteArray() : found->second;
    }
    QJsonObject Json() const;
};

using HttpHeaders = std::map<QByteArray, QByteArray>;

/// A client of the console on a connection of its own, on a plain socket: what it sends is exactly
/// what the test says.
class HttpClient
{
public:
    explicit HttpClient(int port);
    ~HttpClient();
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    void Send(const QByteArray& bytes);
    /// Reads the next answer, whose length must be told or which ends with the connection.
    /// @param hasBody  false for the answer to HEAD
    HttpAnswer Receive(bool hasBody = true);
    /// Reads until what came so far contains this. @return whether it does
    bool ReceiveUntil(const QByteArray& text);
    /// Reads what has come, and waits a moment for it.
    void ReceiveSome();
    /// Waits for the end of the connection. @return whether it came
    bool WaitForEnd();
    /// What was received and not taken as an answer.
    const QByteArray& Rest() const { return m_received; }

private:
    bool ReadMore();

    std::unique_ptr<QTcpSocket> m_socket;
    QByteArray m_received;
};

/// A request as bytes. A body gets its length.
QByteArray RequestText(const QByteArray& method, const QByteArray& target,
                       const HttpHeaders& headers = {}, const QByteArray& body = {});

/// Asks on a connection of its own.
HttpAnswer Ask(int port, const QByteArray& method, const QByteArray& target,
               const HttpHeaders& headers = {}, const QByteArray& body = {});

} // namespace vantrel::test
