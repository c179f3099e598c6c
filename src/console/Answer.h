#pragma once

#include "console/LiveStream.h"
#include <QByteArray>
#include <QString>
#include <chrono>
#include <utility>
#include <vector>

namespace vantrel::console {

/// What is sent back for a request.
struct Answer
{
    int Status = 200;
    QByteArray Type;
    QByteArray Body;
    /// Further headers, besides those that every answer has.
    std::vector<std::pair<QByteArray, QByteArray>> Headers;
    /// How long the answer is held back.
    std::chrono::milliseconds Delay{0};
    /// Null unless the body is sent bit by bit as it comes.
    LiveStreamPtr Live;
};

/// An answer of JSON in UTF-8.
Answer JsonAnswer(QByteArray json);
/// An answer without a body.
Answer EmptyAnswer(int status);
/// A refusal with its reason, one plain line, as JSON: `{"error": "..."}`.
Answer Refusal(int status, const QString& reason);

/// A text as JSON, with its quotes.
QByteArray JsonText(const QString& text);

} // namespace vantrel::console
