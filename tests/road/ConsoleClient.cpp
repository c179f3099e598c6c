#include "road/ConsoleClient.h"
#include <QHostAddress>
#include <QJsonDocument>
#include <QTcpSocket>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {
/// Only ends a test that has failed.
constexpr int LimitMs = 60'000;
} // namespace

QJsonObject HttpAnswer::Json() const
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(Body, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << Body.left(1000).toStdString();
    return document.object();
}

HttpClient::HttpClient(int port) : m_socket(std::make_unique<QTcpSocket>())
{
    m_socket->connectToHost(QHostAddress::LocalHost, static_cast<quint16>(port));
    EXPECT_TRUE(m_socket->waitForConnected(LimitMs));
}

HttpClient::~HttpClient() = default;

void HttpClient::Send(const QByteArray& bytes)
{
    m_socket->write(bytes);
    // The console may refuse the rest.
    while (m_socket->bytesToWrite() > 0 && m_socket->waitForBytesWritten(LimitMs))
        continue;
}

bool HttpClient::ReadMore()
{
    if (m_socket->bytesAvailable() == 0 && !m_socket->waitForReadyRead(LimitMs) &&
        m_socket->bytesAvailable() == 0)
        return false;
    m_received += m_socket->readAll();
    return true;
}

HttpAnswer HttpClient::Receive(bool hasBody)
{
    while (!m_received.contains("\r\n\r\n")) {
        if (!ReadMore())
            return {};
    }
    HttpAnswer answer;
    const qsizetype end = m_received.indexOf("\r\n\r\n");
    const QList<QByteArray> lines = m_received.left(end).replace("\r\n", "\n").split('\n');
    m_received.remove(0, end + 4);
    answer.Status = lines.at(0).split(' ').value(1).toInt();
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        answer.Headers[line.left(colon).toLower()] = line.mid(colon + 1).trimmed();
    }
    if (!hasBody || answer.Status == 204)
        return answer;
    const QByteArray told = answer.Header("content-length");
    const qsizetype length =
        told.isEmpty() ? std::numeric_limits<qsizetype>::max() : told.toLongLong();
    while (m_received.size() < length && ReadMore())
        continue;
    answer.Body = m_received.left(length);
    m_received.remove(0, answer.Body.size());
    return answer;
}

bool HttpClient::ReceiveUntil(const QByteArray& text)
{
    while (!m_received.contains(text)) {
        if (!ReadMore())
            return false;
    }
    return true;
}

void HttpClient::ReceiveSome()
{
    constexpr int momentMs = 50;
    m_socket->waitForReadyRead(momentMs);
    m_received += m_socket->readAll();
}

bool HttpClient::WaitForEnd()
{
    while (ReadMore())
        continue;
    return m_socket->state() == QAbstractSocket::UnconnectedState;
}

QByteArray RequestText(const QByteArray& method, const QByteArray& target,
                       const HttpHeaders& headers, const QByteArray& body)
{
    QByteArray text = method + ' ' + target + " HTTP/1.1\r\n";
    if (!headers.contains("Host"))
        text += "Host: 127.0.0.1\r\n";
    for (const auto& [name, value] : headers)
        text += name + ": " + value + "\r\n";
    if (!body.isEmpty() || method == "POST")
        text += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    return text + "\r\n" + body;
}

HttpAnswer Ask(int port, const QByteArray& method, const QByteArray& target,
               const HttpHeaders& headers, const QByteArray& body)
{
    HttpClient client(port);
    client.Send(RequestText(method, target, headers, body));
    return client.Receive(method != "HEAD");
}

} // namespace vantrel::test
