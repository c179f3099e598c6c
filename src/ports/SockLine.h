#pragma once

#include <QString>
#include <QTcpSocket>

namespace vantrel {

/// One accepted connection. Its handlers let events run, in which it may be closed and its element
/// given to the next host; so it lives on until its own handler has left the stack.
class Line : public QTcpSocket
{
public:
    Line(QObject* parent, int index) : QTcpSocket(parent), Index(index) {}

    const int Index;
    /// The socket forgets its host when the connection ends, and then the last bytes still come.
    QString Host;
    bool InHandler = false;
    bool Taken = false;
    bool EndedByHost = false;
    bool Dropped = false;
};

} // namespace vantrel
