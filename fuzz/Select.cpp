#include "FuzzInput.h"
#include "base/Failure.h"
#include "store/SelectStatement.h"

// For any statement of a cursor: it is refused, or it is one SELECT of one table whose condition
// compares columns with values and cannot reach beyond its text.

namespace {

using namespace vantrel;

bool HasBracket(const QString& name)
{
    return name.contains(u'[') || name.contains(u']');
}

void CheckNames(const SelectStatement& select)
{
    fuzz::Require(!select.Table.contains(u']'), "a table's name ends at its bracket");
    for (const QString& column : select.Columns)
        fuzz::Require(!column.contains(u']'), "a column's name ends at its bracket");
}

void CheckConditions(const SelectStatement& select)
{
    fuzz::Require(select.Where.isEmpty() == select.Conditions.empty(),
                  "a condition is written and read");
    for (const SelectStatement::Comparison& one : select.Conditions) {
        fuzz::Require(!one.Operand.contains(u'\''), "a text ends at its apostrophe");
        bool isNumber = false;
        // A number of any length is one.
        one.Operand.toDouble(&isNumber);
        fuzz::Require(one.IsText || isNumber, "a column is compared with a text or a number");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(fuzz::Input(data, size).Rest());
    try {
        const SelectStatement select = ParseSelect(text);
        CheckNames(select);
        CheckConditions(select);
        if (HasBracket(select.Table))
            return 0;
        // What was read says the same when it is written and read again.
        SelectStatement plain = select;
        plain.OrderBy.clear();
        plain.Distinct = true;
        if (plain.Columns.isEmpty())
            return 0;
        for (const QString& column : select.Columns) {
            if (HasBracket(column))
                return 0;
        }
        QString again = QStringLiteral("SELECT DISTINCT [") +
                        plain.Columns.join(QStringLiteral("],[")) + QStringLiteral("] FROM [") +
                        plain.Table + u']';
        if (!plain.Where.isEmpty())
            again += QStringLiteral(" WHERE ") + plain.Where;
        const SelectStatement read = ParseSelect(again);
        fuzz::Require(read.Columns == plain.Columns && read.Table == plain.Table &&
                          read.Where == plain.Where &&
                          read.Conditions.size() == plain.Conditions.size(),
                      "a statement is read as it was written");
    } catch (const Failure& failure) {
        fuzz::Require(failure.Number() == FailureNumber::StatementInvalid, "a refusal says so");
    }
    return 0;
}
