#include "store/sqlite/SqliteStatement.h"
#include "base/Failure.h"
#include <sqlite3.h>

namespace vantrel {

namespace {

constexpr int PrimaryCodeMask = 0xFF;

QString TextAt(sqlite3_stmt* statement, int column)
{
    const auto* utf8 = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    // An empty text must not become a null `QString`.
    return utf8 == nullptr ? QStringLiteral("")
                           : QString::fromUtf8(utf8, sqlite3_column_bytes(statement, column));
}

QByteArray BytesAt(sqlite3_stmt* statement, int column)
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return {bytes, sqlite3_column_bytes(statement, column)};
}

int BindText(sqlite3_stmt* statement, int place, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text64(statement, place, utf8.constData(),
                               static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT,
                               SQLITE_UTF8);
}

int BindBytes(sqlite3_stmt* statement, int place, const QByteArray& bytes)
{
    return sqlite3_bind_blob64(statement, place, bytes.constData(),
                               static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
}

int BindValue(sqlite3_stmt* statement, int place, const QVariant& value)
{
    if (!value.isValid() || value.isNull())
        return sqlite3_bind_null(statement, place);
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return sqlite3_bind_int64(statement, place, value.toLongLong());
    case QMetaType::Double:
        return sqlite3_bind_double(statement, place, value.toDouble());
    case QMetaType::QByteArray:
        return BindBytes(statement, place, value.toByteArray());
    default:
        return BindText(statement, place, value.toString());
    }
}

} // namespace

void FailAsSqlite(sqlite3* database)
{
    const int code = sqlite3_errcode(database) & PrimaryCodeMask;
    const bool busy = code == SQLITE_BUSY || code == SQLITE_LOCKED;
    throw Failure(busy ? FailureNumber::StoreBusy : FailureNumber::StatementInvalid,
                  QStringLiteral("The layout database: ") +
                      QString::fromUtf8(sqlite3_errmsg(database)));
}

void SqliteStatement::Deleter::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(sqlite3* database, const QString& sql) : m_database(database)
{
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v3(m_database, utf8.constData(), static_cast<int>(utf8.size()) + 1,
                           SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    m_statement.reset(statement);
    if (code != SQLITE_OK)
        FailAsSqlite(m_database);
}

void SqliteStatement::Bind(const QVariantList& values)
{
    int place = 0;
    for (const QVariant& value : values) {
        if (BindValue(m_statement.get(), ++place, value) != SQLITE_OK)
            FailAsSqlite(m_database);
    }
}

bool SqliteStatement::Step()
{
    switch (sqlite3_step(m_statement.get())) {
    case SQLITE_ROW:
        return true;
    case SQLITE_DONE:
        return false;
    default:
        FailAsSqlite(m_database);
    }
}

void SqliteStatement::Finish()
{
    // The return value only repeats the error of the last step.
    sqlite3_reset(m_statement.get());
    // The statement is kept, and with it a text of megabytes would be.
    sqlite3_clear_bindings(m_statement.get());
}

QVariant SqliteStatement::Value(int column) const
{
    switch (sqlite3_column_type(m_statement.get(), column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<qlonglong>(sqlite3_column_int64(m_statement.get(), column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(m_statement.get(), column);
    case SQLITE_BLOB:
        return BytesAt(m_statement.get(), column);
    default:
        return TextAt(m_statement.get(), column);
    }
}

} // namespace vantrel
