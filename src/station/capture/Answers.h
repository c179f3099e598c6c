#pragma once

#include "base/InputText.h"
#include <QString>
#include <functional>
#include <memory>

namespace vantrel {

class AnswerLine;
class Session;

/// @file Ways back to where records come from, for `ArrivalSource::Answer`. Each takes one line
/// without its line end; line ends within it become blanks.

/// Answers a host, also after it has ended its sending side. The connection stays open while this
/// routine exists. Empty if there is no line.
std::function<void(const QString&)> AnswerHost(std::shared_ptr<AnswerLine> line,
                                               InputEncoding encoding);

/// Answers the device that is open on the serial port now; does nothing once another is. An answer
/// that the device does not take in time is dropped; the first one is logged. Empty if the session
/// does not answer.
std::function<void(const QString&)> AnswerSerial(Session& session);

} // namespace vantrel
