#include "store/LayoutTables.h"
#include "store/StoreDatabase.h"
#include <QStringList>
#include <QVariantList>
#include <algorithm>

namespace vantrel {

namespace {

constexpr auto Text = StoreType::Text;
constexpr auto Whole = StoreType::Whole;
constexpr auto Real = StoreType::Real;
/// Holds 0 or 1.
constexpr auto YesNo = StoreType::Whole;
constexpr auto Counter = StoreType::Counter;

constexpr StoreColumnRow ControlsColumns[] = {
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

constexpr StoreColumnRow LayoutParamsColumns[] = {
    {"ID", Counter},        {"LayoutName", Text},    {"PageIndex", Whole},
    {"Encode", YesNo},      {"PrinterDevice", Text}, {"PrinterOrientation", Whole},
    {"PrinterType", Whole}, {"Track1", Text},        {"Track2", Text},
    {"Track3", Text},       {"Filter", Text},        {"PrinterCopies", Whole},
    {"BackImg1", Text},     {"BackImg2", Text},      {"AutoSpool", YesNo},
};

constexpr StoreColumnRow SerializerColumns[] = {
    {"RowKey", Counter}, {"LayoutName", Text}, {"ElementType", Whole}, {"ElementData", Text}};

constexpr StoreColumnRow MacrosColumns[] = {
    {"RowKey", Counter}, {"ID", Whole}, {"MacroName", Text}};

constexpr StoreColumnRow MacroElementsColumns[] = {
    {"RowKey", Counter}, {"MacroID", Whole}, {"LayoutName", Text}};

constexpr StoreColumnRow PrinterTypesColumns[] = {
    {"RowKey", Counter},     {"DeviceType", Whole}, {"Name", Text},
    {"ColorCapable", YesNo}, {"DualSided", YesNo},  {"VisOrder", Whole},
};

// The columns by which rows are looked up; a table without is always read whole.
constexpr StoreIndex ControlsIndexes[] = {{"ControlsLookup", "LayoutName, Page"}};
constexpr StoreIndex LayoutParamsIndexes[] = {{"LayoutParamsLookup", "LayoutName, PageIndex"}};
constexpr StoreIndex SerializerIndexes[] = {{"SerializerLookup", "LayoutName"}};
constexpr StoreIndex MacroElementsIndexes[] = {{"MacroElementsLookup", "MacroID"}};

constexpr StoreTable Tables[] = {
    {"Controls", ControlsColumns, ControlsIndexes, true},
    {"LayoutParams", LayoutParamsColumns, LayoutParamsIndexes, true},
    {"Serializer", SerializerColumns, SerializerIndexes, true},
    {"Macros", MacrosColumns, {}, true},
    {"MacroElements", MacroElementsColumns, MacroElementsIndexes, true},
    {"PrinterTypes", PrinterTypesColumns, {}, true},
};

constexpr StoreColumnRow ExtrasColumns[] = {
    {"RowKey", Counter}, {"LayoutName", Text}, {"Page", Whole},  {"Kind", Text},
    {"Name", Text},      {"Place", Whole},     {"Extras", Text},
};
constexpr StoreIndex ExtrasIndexes[] = {{"ObjectExtrasLookup", "LayoutName, Page"}};
constexpr StoreTable Extras = {"ObjectExtras", ExtrasColumns, ExtrasIndexes, true};

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

} // namespace

std::span<const StoreTable> LayoutTables()
{
    return Tables;
}

const StoreTable& ExtrasTable()
{
    return Extras;
}

const StoreTable* FindLayoutTable(QStringView name)
{
    const auto isNamed = [&](const StoreTable& table) {
        return name.compare(QLatin1StringView(table.Name), Qt::CaseInsensitive) == 0;
    };
    if (isNamed(Extras))
        return &Extras;
    const auto* table = std::find_if(std::begin(Tables), std::end(Tables), isNamed);
    return table == std::end(Tables) ? nullptr : table;
}

void FillPrinterTypes(StoreDatabase& database)
{
    const QStringList columns{QStringLiteral("DeviceType"), QStringLiteral("Name"),
                              QStringLiteral("ColorCapable"), QStringLiteral("DualSided"),
                              QStringLiteral("VisOrder")};
    for (const PrinterTypeRow& row : PrinterTypes)
        database.InsertRow(QStringLiteral("PrinterTypes"), columns,
                           {row.DeviceType, QString::fromLatin1(row.Name), row.ColorCapable ? 1 : 0,
                            row.DualSided ? 1 : 0, row.VisOrder},
                           nullptr);
}

} // namespace vantrel
