#include "store/Schema.h"
#include "base/Failure.h"
#include "base/PlaceFile.h"
#include "store/StoreDatabase.h"
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QUuid>
#include <span>

namespace vantrel {

namespace {
struct ColumnRow
{
    const char* Name;
    const char* Type;
};

constexpr const char* Text = "TEXT";
constexpr const char* Whole = "INTEGER";
constexpr const char* Real = "REAL";
/// Holds 0 or 1.
constexpr const char* YesNo = "INTEGER";
/// The row key. It ascends and is never reused, so that its order is the order of insertion.
constexpr const char* Counter = "INTEGER PRIMARY KEY AUTOINCREMENT";

constexpr ColumnRow ControlsColumns[] = {
    {"RowKey", Counter},
    {"LayoutName", Text},
    {"Page", Whole},
    {"Control_Type", Text},
    {"C_Param_1", Text},
    {"C_Param_2", Text},
    {"C_Param_3", Text},
    {"C_Value", Text},
    {"C_Alignment", Whole},
    {"C_Top", Real},
    {"C_Left", Real},
    {"C_Width", Real},
    {"C_Height", Real},
    {"C_FontName", Text},
    {"C_FontSize", Real},
    {"C_FontBold", YesNo},
    {"C_FontItalic", YesNo},
    {"C_FontUnderline", YesNo},
    {"C_FontStrikethrough", YesNo},
    {"C_ForeColor", Whole},
    {"C_BackColor", Whole},
    {"C_Prefix", Text},
    {"C_Suffix", Text},
    {"C_UseMod10", YesNo},
    {"C_UseCodaBar", YesNo},
    {"C_UseEBT", YesNo},
    {"C_ImagePath", Text},
};

constexpr ColumnRow LayoutParamsColumns[] = {
    {"ID", Counter},        {"LayoutName", Text},    {"PageIndex", Whole},
    {"Encode", YesNo},      {"PrinterDevice", Text}, {"PrinterOrientation", Whole},
    {"PrinterType", Whole}, {"Track1", Text},        {"Track2", Text},
    {"Track3", Text},       {"Filter", Text},        {"PrinterCopies", Whole},
    {"BackImg1", Text},     {"BackImg2", Text},      {"AutoSpool", YesNo},
};

constexpr ColumnRow SerializerColumns[] = {
    {"RowKey", Counter}, {"LayoutName", Text}, {"ElementType", Whole}, {"ElementData", Text}};

constexpr ColumnRow MacrosColumns[] = {{"RowKey", Counter}, {"ID", Whole}, {"MacroName", Text}};

constexpr ColumnRow MacroElementsColumns[] = {
    {"RowKey", Counter}, {"MacroID", Whole}, {"LayoutName", Text}};

constexpr ColumnRow PrinterTypesColumns[] = {
    {"RowKey", Counter},     {"DeviceType", Whole}, {"Name", Text},
    {"ColorCapable", YesNo}, {"DualSided", YesNo},  {"VisOrder", Whole},
};

struct TableRow
{
    const char* Name;
    std::span<const ColumnRow> Columns;
    /// The columns by which rows are looked up; empty for a table that is always read whole.
    const char* Index;
};

constexpr TableRow Tables[] = {
    {"Controls", ControlsColumns, "[LayoutName], [Page]"},
    {"LayoutParams", LayoutParamsColumns, "[LayoutName], [PageIndex]"},
    {"Serializer", SerializerColumns, "[LayoutName]"},
    {"Macros", MacrosColumns, ""},
    {"MacroElements", MacroElementsColumns, "[MacroID]"},
    {"PrinterTypes", PrinterTypesColumns, ""},
};

struct PrinterTypeRow
{
    int DeviceType;
    const char* Name;
    bool ColorCapable;
    bool DualSided;
    int VisOrder;
};

/// One row for each printer type code that the station supports. The printer selection sorts by the
/// last column: printers without a stripe first, then those that take commands, then those that
/// take fonts.
constexpr PrinterTypeRow PrinterTypes[] = {
    {1, "FARGO command text", true, true, 3},
    {2, "ELTRON command text", true, true, 4},
    {3, "Serialized output (no drawing)", false, false, 8},
    {4, "Magnetic fonts, long names", true, true, 6},
    {5, "Magnetic fonts, short names", true, true, 7},
    {9, "Plain card (no stripe)", true, true, 1},
    {10, "Plain card, fixed size (no stripe)", true, true, 2},
    {11, "NISCA command text", true, true, 5},
};

QString BracketedName(const char* name)
{
    return QLatin1Char('[') + QLatin1StringView(name) + QLatin1Char(']');
}

void MakeTable(StoreDatabase& database, const TableRow& table)
{
    QStringList columns;
    for (const ColumnRow& column : table.Columns)
        columns.append(BracketedName(column.Name) + QLatin1Char(' ') +
                       QLatin1StringView(column.Type));
    const QString name = BracketedName(table.Name);
    database.Execute(QStringLiteral("CREATE TABLE ") + name + QStringLiteral(" (") +
                     columns.join(QStringLiteral(", ")) + QLatin1Char(')'));
    if (*table.Index != '\0')
        database.Execute(QStringLiteral("CREATE INDEX [") + QLatin1StringView(table.Name) +
                         QStringLiteral("Lookup] ON ") + name + QStringLiteral(" (") +
                         QLatin1StringView(table.Index) + QLatin1Char(')'));
}

void FillPrinterTypes(StoreDatabase& database)
{
    for (const PrinterTypeRow& row : PrinterTypes)
        database.Change(QStringLiteral("INSERT INTO [PrinterTypes] ([DeviceType], [Name], "
                                       "[ColorCapable], [DualSided], [VisOrder]) "
                                       "VALUES (?, ?, ?, ?, ?)"),
                        {row.DeviceType, QString::fromLatin1(row.Name), row.ColorCapable ? 1 : 0,
                         row.DualSided ? 1 : 0, row.VisOrder});
}

void MakeContents(const QString& path)
{
    StoreDatabase database(path, StoreDatabase::OpenMode::Create);
    database.Execute(QStringLiteral("BEGIN IMMEDIATE"));
    for (const TableRow& table : Tables)
        MakeTable(database, table);
    FillPrinterTypes(database);
    database.Execute(QStringLiteral("COMMIT"));
}

void RemoveJournals(const QString& path)
{
    for (const QLatin1StringView suffix :
         {QLatin1StringView("-wal"), QLatin1StringView("-shm"), QLatin1StringView("-journal")})
        QFile::remove(path + suffix);
}

[[noreturn]] void FailAsTaken(const QString& path)
{
    throw Failure(FailureNumber::InvalidCall,
                  QStringLiteral("There is a layout database already: ") + path);
}

[[noreturn]] void FailAsUnwritable(const QString& path)
{
    throw Failure(FailureNumber::PathNotFound,
                  QStringLiteral("The layout database cannot be made: ") + path);
}
} // namespace

QStringList LayoutTableNames()
{
    QStringList names;
    for (const TableRow& table : Tables)
        names.append(QString::fromLatin1(table.Name));
    return names;
}

void CreateLayoutDatabase(const QString& path)
{
    // The lock is held from the check for an existing file until the new one is in place.
    QLockFile lock(path + QStringLiteral(".lock"));
    if (!lock.lock())
        FailAsUnwritable(path);
    if (QFileInfo(path).exists() || QFileInfo(path).isSymLink())
        FailAsTaken(path);

    const QString fresh =
        path + QStringLiteral(".new-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    auto result = PlaceResult::Failed;
    try {
        MakeContents(fresh);
        // SQLite would apply the leftover journals of a deleted database to the new one.
        RemoveJournals(path);
        result = PlaceFile(fresh, path);
    } catch (const Failure&) {
        result = PlaceResult::Failed;
    }
    if (result == PlaceResult::Placed)
        return;
    QFile::remove(fresh);
    RemoveJournals(fresh);
    if (result == PlaceResult::NameTaken)
        FailAsTaken(path);
    FailAsUnwritable(path);
}

} // namespace vantrel
