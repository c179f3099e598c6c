#include "store/SelectStatement.h"
#include "base/Failure.h"
#include <algorithm>
#include <optional>

namespace vantrel {

namespace {
[[noreturn]] void Refuse(const char* why)
{
    throw Failure(FailureNumber::StatementInvalid,
                  QStringLiteral("The statement cannot be run: ") + QLatin1StringView(why));
}

enum class TokenKind { End, Word, Bracketed, Literal, Sign };

struct Token
{
    TokenKind Kind = TokenKind::End;
    QStringView Text;

    bool IsWord(QLatin1StringView word) const
    {
        return Kind == TokenKind::Word && Text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool IsSign(QChar sign) const { return Kind == TokenKind::Sign && Text.front() == sign; }
};

bool IsWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('.');
}

/// Reads a statement token by token, so that the contents of a literal are never read as part of
/// the statement.
class Scanner
{
public:
    explicit Scanner(QStringView text) : m_text(text) { Advance(); }

    const Token& Current() const { return m_current; }
    /// Where the current token begins.
    qsizetype Begin() const { return m_begin; }

    void Advance()
    {
        while (m_at < m_text.size() && m_text[m_at].isSpace())
            ++m_at;
        m_begin = m_at;
        if (m_at == m_text.size()) {
            m_current = {};
            return;
        }
        const TokenKind kind = PassToken();
        m_current = {kind, m_text.sliced(m_begin, m_at - m_begin)};
    }

    bool TakeWord(QLatin1StringView word)
    {
        if (!m_current.IsWord(word))
            return false;
        Advance();
        return true;
    }

    bool TakeSign(char sign)
    {
        if (!m_current.IsSign(QLatin1Char(sign)))
            return false;
        Advance();
        return true;
    }

    std::optional<QString> TakeLiteral()
    {
        if (m_current.Kind != TokenKind::Literal)
            return std::nullopt;
        QString text = m_current.Text.sliced(1, m_current.Text.size() - 2).toString();
        Advance();
        return text;
    }

    /// A whole number, with or without a minus sign.
    std::optional<QString> TakeNumber()
    {
        QString number(TakeSign('-') ? QStringLiteral("-") : QString());
        const bool isNumber =
            m_current.Kind == TokenKind::Word &&
            std::all_of(m_current.Text.begin(), m_current.Text.end(),
                        [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
        if (!isNumber)
            return std::nullopt;
        number += m_current.Text;
        Advance();
        return number;
    }

    /// A column or table name without its brackets.
    QString TakeName()
    {
        QStringView name = m_current.Text;
        if (m_current.Kind == TokenKind::Bracketed)
            name = name.sliced(1, name.size() - 2);
        else if (m_current.Kind != TokenKind::Word)
            Refuse("a name is missing.");
        QString taken = name.toString();
        Advance();
        return taken;
    }

private:
    TokenKind PassToken()
    {
        const QChar c = m_text[m_at];
        if (c == QLatin1Char('[')) {
            PassThrough(QLatin1Char(']'), "a bracket is not closed.");
            return TokenKind::Bracketed;
        }
        if (c == QLatin1Char('\'')) {
            PassLiteral();
            return TokenKind::Literal;
        }
        if (IsWordCharacter(c)) {
            while (m_at < m_text.size() && IsWordCharacter(m_text[m_at]))
                ++m_at;
            return TokenKind::Word;
        }
        if (!QStringView(u"*,=>-").contains(c))
            Refuse("it holds a character that has no place there.");
        ++m_at;
        return TokenKind::Sign;
    }

    void PassThrough(QChar last, const char* otherwise)
    {
        const qsizetype end = m_text.indexOf(last, m_at + 1);
        if (end < 0)
            Refuse(otherwise);
        m_at = end + 1;
    }

    void PassLiteral()
    {
        PassThrough(QLatin1Char('\''), "a text is not closed.");
        // SQLite reads two apostrophes in a row as one, so a name that contains two would be stored
        // as it is but looked up as a different name.
        if (m_at < m_text.size() && m_text[m_at] == QLatin1Char('\''))
            Refuse("a text holds an apostrophe.");
    }

    QStringView m_text;
    qsizetype m_at = 0;
    qsizetype m_begin = 0;
    Token m_current;
};

QStringList TakeColumns(Scanner& scanner)
{
    QStringList columns;
    if (scanner.TakeSign('*'))
        return columns;
    do {
        columns.append(scanner.TakeName());
    } while (scanner.TakeSign(','));
    return columns;
}

SelectStatement::Comparison TakeComparison(Scanner& scanner)
{
    SelectStatement::Comparison comparison;
    comparison.Column = scanner.TakeName();
    if (!scanner.TakeSign('=')) {
        if (!scanner.TakeSign('>'))
            Refuse("its condition compares nothing.");
        comparison.IsGreater = true;
    }
    if (const auto text = scanner.TakeLiteral()) {
        comparison.IsText = true;
        comparison.Operand = *text;
    } else if (const auto number = scanner.TakeNumber()) {
        comparison.Operand = *number;
    } else {
        Refuse("a column is compared with neither a text nor a number.");
    }
    return comparison;
}

/// Reads comparisons joined by AND and rejects everything else. Names are inserted into statements
/// unescaped, so a name with an apostrophe must not select the rows of another name.
void TakeCondition(Scanner& scanner, const QString& text, SelectStatement& select)
{
    const qsizetype begin = scanner.Begin();
    do {
        select.Conditions.push_back(TakeComparison(scanner));
    } while (scanner.TakeWord(QLatin1StringView("AND")));
    select.Where = text.sliced(begin, scanner.Begin() - begin).trimmed();
}

QString Bracketed(const QString& name)
{
    return QLatin1Char('[') + name + QLatin1Char(']');
}

QStringList TakeOrder(Scanner& scanner)
{
    QStringList order;
    do {
        QString column = Bracketed(scanner.TakeName());
        if (scanner.TakeWord(QLatin1StringView("DESC")))
            column += QStringLiteral(" DESC");
        else
            scanner.TakeWord(QLatin1StringView("ASC"));
        order.append(column);
    } while (scanner.TakeSign(','));
    return order;
}
} // namespace

QString SelectStatement::Sql() const
{
    QStringList columns;
    QStringList order = OrderBy;
    if (!Distinct)
        columns.append(QStringLiteral("rowid"));
    for (const QString& column : Columns)
        columns.append(Bracketed(column));
    if (Columns.isEmpty())
        columns.append(QStringLiteral("*"));

    if (!Distinct)
        order.append(QStringLiteral("rowid"));
    else
        for (const QString& column : Columns)
            order.append(Bracketed(column));

    QString sql = (Distinct ? QStringLiteral("SELECT DISTINCT ") : QStringLiteral("SELECT ")) +
                  columns.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") + Bracketed(Table);
    if (!Where.isEmpty())
        sql += QStringLiteral(" WHERE (") + Where + QLatin1Char(')');
    if (!order.isEmpty())
        sql += QStringLiteral(" ORDER BY ") + order.join(QStringLiteral(", "));
    if (Limit > 0)
        sql += QStringLiteral(" LIMIT ") + QString::number(Limit);
    return sql;
}

SelectStatement ParseSelect(const QString& text)
{
    Scanner scanner(text);
    SelectStatement select;
    if (!scanner.TakeWord(QLatin1StringView("SELECT")))
        Refuse("it is no SELECT.");
    select.Distinct = scanner.TakeWord(QLatin1StringView("DISTINCT"));
    select.Columns = TakeColumns(scanner);
    if (!scanner.TakeWord(QLatin1StringView("FROM")))
        Refuse("its FROM is missing.");
    select.Table = scanner.TakeName();
    if (scanner.TakeWord(QLatin1StringView("WHERE")))
        TakeCondition(scanner, text, select);
    if (scanner.TakeWord(QLatin1StringView("ORDER"))) {
        if (!scanner.TakeWord(QLatin1StringView("BY")))
            Refuse("its BY is missing.");
        select.OrderBy = TakeOrder(scanner);
    }
    if (scanner.Current().Kind != TokenKind::End)
        Refuse("something follows its end.");
    return select;
}

} // namespace vantrel
