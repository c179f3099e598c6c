#pragma once

#include "base/InputText.h"
#include "ports/AnswerLine.h"
#include <QString>
#include <QTcpSocket>

namespace vantrel {

/// One accepted connection. Its handlers run events, during which it may be closed and its element
/// reused for the next host, so it is deleted only after its own handler has returned.
class Line : public QTcpSocket
{
public:
    /// @param index  element of the socket array, from 1
    Line(QObject* parent, int index) : QTcpSocket(parent), Index(index) {}

    const int Index;
    /// Address of the host. Kept here because QTcpSocket clears it when the connection ends, before
    /// the last bytes are read.
    QString Host;
    /// Address and port of the host, such as "192.168.7.10:51234".
    QString Peer;
    InputDecoder Decoder;
    /// The way back to the host; null if hosts get no answers.
    std::shared_ptr<AnswerLine> Answers;
    bool InHandler = false;
    bool Taken = false;
    bool EndedByHost = false;
    bool Dropped = false;
};

} // namespace vantrel
