#include "card/StripeFamily.h"

namespace vantrel {

StripeTrack::StripeTrack(const StripeFamily& family, int number)
    : m_family(family), m_index(static_cast<std::size_t>(number - 1))
{
    Q_ASSERT(number >= 1 && number <= 3);
}

std::optional<QString> StripeTrack::Text(TokenKind kind, const QString& text) const
{
    if ((m_family.Dropped & Of(kind)) != 0)
        return std::nullopt;
    switch (kind) {
    case TokenKind::Separator:
        return QString(m_family.Separators[m_index]);
    case TokenKind::DataField:
    case TokenKind::Literal:
        return text.toUpper();
    default:
        return text;
    }
}

QString StripeTrack::Body(const QString& formula, const FieldValues& values,
                          QChar decimalSeparator) const
{
    QString body;
    EvaluateTrack(formula, values, decimalSeparator, [&](TokenKind kind, const QString& text) {
        body += Text(kind, text).value_or(QString());
    });
    return body;
}

QString StripeTrack::Line(const QString& body) const
{
    switch (m_family.Form) {
    case SentAs::Line:
        return Head() + body + m_family.Tail;
    case SentAs::LineWithLength:
        return QStringLiteral("%1,%2,%3").arg(Head(), QString::number(body.size()), body);
    case SentAs::LinePerToken:
        return body;
    }
    return {};
}

} // namespace vantrel
