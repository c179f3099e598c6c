#pragma once

#include "store/StoreRow.h"
#include <QByteArray>
#include <QVariant>
#include <QVariantList>
#include <libpq-fe.h>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// @file Values on their way to a PostgreSQL server and back.

struct PostgresResultDeleter
{
    void operator()(PGresult* result) const { PQclear(result); }
};

using PostgresResult = std::unique_ptr<PGresult, PostgresResultDeleter>;

/// The values of a statement's placeholders.
class PostgresParameters
{
public:
    /// Whole numbers, reals, texts, bytes and nulls, each of its own type. Fails with
    /// `StatementInvalid` for a text with a null character, which the server cannot hold.
    explicit PostgresParameters(const QVariantList& values = {});
    /// Adds a value for a column of that declared type.
    void Add(const QVariant& value, const QByteArray& type);

    /// Bytes of all values.
    std::size_t Size() const;
    int Count() const { return static_cast<int>(m_types.size()); }
    const Oid* Types() const { return m_types.data(); }
    const int* Formats() const { return m_formats.data(); }
    /// Valid until the next value is added.
    std::vector<const char*> Values() const;
    std::vector<int> Lengths() const;

private:
    void Add(const QVariant& value, Oid type);

    std::vector<Oid> m_types;
    std::vector<int> m_formats;
    std::vector<std::optional<QByteArray>> m_values;
};

/// The value in a row and a column of a result, both counted from 0.
QVariant PostgresValue(const PGresult* result, int row, int column);

/// One row of a result.
class PostgresRow final : public StoreRow
{
public:
    PostgresRow(const PGresult* result, int row) : m_result(result), m_row(row) {}
    QVariant Value(int column) const override { return PostgresValue(m_result, m_row, column); }

private:
    const PGresult* m_result;
    int m_row;
};

} // namespace vantrel
