#include "drawing/CodePattern.h"
#include <QCache>
#include <algorithm>
#include <array>
#include <cmath>
#include <zint.h>

namespace vantrel {

namespace {

using namespace Qt::StringLiterals;

constexpr QLatin1StringView ShorterText{"a shorter text is wanted"};
constexpr QLatin1StringView Digits{"0123456789"};
constexpr QLatin1StringView Code39Signs{"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%"};
constexpr QLatin1StringView CodabarEnds{"ABCD"};

/// In the order of `CodeKind`.
constexpr std::array<CodeKindRow, CodeKindCount> KindTable = {{
    {CodeKind::QrCode, "QR Code"_L1, BARCODE_QRCODE, false, 4, 4, 4, ShorterText},
    {CodeKind::DataMatrix, "Data Matrix"_L1, BARCODE_DATAMATRIX, false, 1, 1, 1, ShorterText},
    {CodeKind::Pdf417, "PDF417"_L1, BARCODE_PDF417, false, 2, 2, 2, ShorterText},
    {CodeKind::AztecCode, "Aztec Code"_L1, BARCODE_AZTEC, false, 0, 0, 0, ShorterText},
    {CodeKind::Code128, "Code 128"_L1, BARCODE_CODE128, true, 10, 10, 0,
     "letters, digits and signs without accents are wanted"_L1},
    {CodeKind::Code39, "Code 39"_L1, BARCODE_CODE39, true, 10, 10, 0,
     "capital letters, digits, blanks and - . $ / + % are wanted"_L1},
    {CodeKind::Ean13, "EAN-13"_L1, BARCODE_EANX, true, 11, 7, 0, "12 or 13 digits are wanted"_L1},
    {CodeKind::Ean8, "EAN-8"_L1, BARCODE_EANX, true, 7, 7, 0, "7 or 8 digits are wanted"_L1},
    {CodeKind::UpcA, "UPC-A"_L1, BARCODE_UPCA, true, 9, 9, 0, "11 or 12 digits are wanted"_L1},
    {CodeKind::Interleaved2Of5, "Interleaved 2 of 5"_L1, BARCODE_C25INTER, true, 10, 10, 0,
     "digits are wanted"_L1},
    {CodeKind::Codabar, "Codabar"_L1, BARCODE_CODABAR, true, 10, 10, 0,
     "digits and - $ : / . + are wanted, between A, B, C or D"_L1},
}};

/// Bytes of a text; no kind holds more, and longer ones are not even looked at.
constexpr qsizetype LongestText = 7089;
/// The number of UTF-8 among the character sets that a code can name.
constexpr int EciUtf8 = 26;
/// QR Code level M: a seventh of the code may be scratched.
constexpr int QrLevelM = 2;
/// In dark runs and characters.
constexpr int CacheSize = 100'000;

/// PDF417's rows: their height, the modules beside and in their columns, and how many there may be.
constexpr int StackedRowHeight = 3;
constexpr int ModulesBesideColumns = 69;
constexpr int ModulesOfColumn = 17;
constexpr int MostColumns = 30;
constexpr int LeastRows = 3;
constexpr int MostRows = 90;

struct SymbolDeleter
{
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using Symbol = std::unique_ptr<zint_symbol, SymbolDeleter>;

bool HasOnly(QStringView text, QLatin1StringView allowed)
{
    return std::all_of(text.begin(), text.end(),
                       [&](QChar character) { return allowed.contains(character); });
}

bool IsAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character.unicode() < 128; });
}

/// The check digit of EAN and UPC: counted from the right, digits weigh 3, 1, 3 ...
QChar EanCheckDigit(QStringView digits)
{
    int sum = 0;
    int weight = 3;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        sum += weight * digit->digitValue();
        weight = 4 - weight;
    }
    return QChar(u'0' + (10 - sum % 10) % 10);
}

/// What goes into the code, or why the text cannot.
struct Prepared
{
    QString Text;
    QLatin1StringView Trouble;
};

/// @param length  digits of the number without its check digit
Prepared PreparedNumber(const QString& text, qsizetype length, QLatin1StringView wanted)
{
    if (!HasOnly(text, Digits) || (text.size() != length && text.size() != length + 1))
        return {{}, wanted};
    QString number = text.left(length);
    if (text.size() > length && text.back() != EanCheckDigit(number))
        return {{}, "the check digit is wrong"_L1};
    return {std::move(number), {}};
}

Prepared PreparedCodabar(const QString& text)
{
    const bool hasEnds = CodabarEnds.contains(text.front()) || CodabarEnds.contains(text.back());
    QString whole = hasEnds ? text : 'A'_L1 + text + 'A'_L1;
    // The library would take small letters for capital ones.
    // Start, stop and something between them.
    constexpr qsizetype shortest = 3;
    const bool allowed = whole.size() >= shortest && HasOnly(whole, "ABCD0123456789-$:/.+"_L1);
    return allowed ? Prepared{std::move(whole), {}} : Prepared{{}, RowOf(CodeKind::Codabar).Wanted};
}

Prepared PreparedText(const CodeKindRow& row, const QString& text)
{
    if (text.size() > LongestText)
        return {{}, ShorterText};
    switch (row.Kind) {
    case CodeKind::Ean13:
        return PreparedNumber(text, 12, row.Wanted);
    case CodeKind::Ean8:
        return PreparedNumber(text, 7, row.Wanted);
    case CodeKind::UpcA:
        return PreparedNumber(text, 11, row.Wanted);
    case CodeKind::Codabar:
        return PreparedCodabar(text);
    case CodeKind::Code39:
        return HasOnly(text, Code39Signs) ? Prepared{text, {}} : Prepared{{}, row.Wanted};
    case CodeKind::Interleaved2Of5:
        return HasOnly(text, Digits) ? Prepared{text, {}} : Prepared{{}, row.Wanted};
    case CodeKind::Code128:
        return IsAscii(text) ? Prepared{text, {}} : Prepared{{}, row.Wanted};
    default:
        return {text, {}};
    }
}

/// @param columns  of PDF417; 0 leaves them to the library
Symbol Encoded(const CodeKindRow& row, const QString& text, int columns, int& error)
{
    Symbol symbol(ZBarcode_Create());
    if (!symbol) {
        error = ZINT_ERROR_MEMORY;
        return symbol;
    }
    symbol->symbology = row.Symbology;
    symbol->input_mode = UNICODE_MODE;
    symbol->show_hrt = 0;
    if (!IsAscii(text))
        symbol->eci = EciUtf8;
    if (row.Kind == CodeKind::QrCode)
        symbol->option_1 = QrLevelM;
    else if (row.Kind == CodeKind::DataMatrix)
        symbol->option_3 = DM_SQUARE;
    else if (row.Kind == CodeKind::Pdf417)
        symbol->option_2 = columns;
    const QByteArray bytes = text.toUtf8();
    error = ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(bytes.constData()),
                            static_cast<int>(bytes.size()));
    // Below are warnings.
    if (error < ZINT_ERROR)
        error = 0;
    return symbol;
}

/// The number of columns with which PDF417 gets the largest modules in a place of this ratio.
int BestColumns(const zint_symbol& automatic, double ratio)
{
    const CodeKindRow& row = RowOf(CodeKind::Pdf417);
    const int columns = (automatic.width - ModulesBesideColumns) / ModulesOfColumn;
    const int words = columns * automatic.rows;
    int best = columns;
    double largest = 0;
    for (int tried = 1; tried <= MostColumns; ++tried) {
        const int rows = std::max(LeastRows, (words + tried - 1) / tried);
        if (rows > MostRows)
            continue;
        const int width =
            ModulesBesideColumns + tried * ModulesOfColumn + row.QuietLeft + row.QuietRight;
        const int height = rows * StackedRowHeight + 2 * row.QuietAboveAndBelow;
        const double module = std::min(ratio / width, 1.0 / height);
        if (module > largest) {
            largest = module;
            best = tried;
        }
    }
    return best;
}

bool IsDark(const zint_symbol& symbol, int row, int column)
{
    constexpr int bits = 8;
    const unsigned int byte = symbol.encoded_data[row][column / bits];
    return ((byte >> (column % bits)) & 1U) != 0;
}

void CollectRuns(const zint_symbol& symbol, int row, const ModuleRun& band, CodePattern& pattern)
{
    int column = 0;
    while (column < symbol.width) {
        if (!IsDark(symbol, row, column)) {
            ++column;
            continue;
        }
        ModuleRun run = band;
        run.X = column;
        while (column < symbol.width && IsDark(symbol, row, column))
            ++column;
        run.Width = column - run.X;
        pattern.Runs.push_back(run);
    }
}

/// One row of bars, or rows of whole modules below each other.
void TakeModules(const zint_symbol& symbol, const CodeKindRow& row, CodePattern& pattern)
{
    const int rows = row.IsLinear ? 1 : symbol.rows;
    const int height = row.Kind == CodeKind::Pdf417 ? StackedRowHeight : 1;
    for (int number = 0; number < rows; ++number)
        CollectRuns(symbol, number, {.Y = number * height, .Height = height}, pattern);
    pattern.Height = rows * height;
    // Some linear codes end with the gap before a next character.
    for (const ModuleRun& run : pattern.Runs)
        pattern.Width = std::max(pattern.Width, run.X + run.Width);
}

QLatin1StringView TroubleOf(const CodeKindRow& row, int error)
{
    switch (error) {
    case ZINT_ERROR_TOO_LONG:
        return ShorterText;
    case ZINT_ERROR_INVALID_DATA:
        return row.Wanted;
    default:
        return "the code cannot be made"_L1;
    }
}

CodePattern PatternMade(const CodeKindRow& row, const QString& text, double ratio)
{
    CodePattern pattern;
    pattern.Kind = row.Kind;
    const auto refuse = [&](QLatin1StringView why) {
        pattern.Trouble = row.Name + ": "_L1 + why;
        return pattern;
    };
    const Prepared prepared = PreparedText(row, text);
    if (!prepared.Trouble.isEmpty())
        return refuse(prepared.Trouble);
    int error = 0;
    Symbol symbol = Encoded(row, prepared.Text, 0, error);
    if (error != 0)
        return refuse(TroubleOf(row, error));
    if (row.Kind == CodeKind::Pdf417) {
        // The words may need more rows in these columns than there may be.
        Symbol fitted = Encoded(row, prepared.Text, BestColumns(*symbol, ratio), error);
        if (error == 0)
            symbol = std::move(fitted);
    }
    TakeModules(*symbol, row, pattern);
    return pattern;
}

struct PatternKey
{
    CodeKind Kind;
    QString Text;
    double Ratio;

    friend bool operator==(const PatternKey&, const PatternKey&) = default;
    friend std::size_t qHash(const PatternKey& key, std::size_t seed = 0)
    {
        return qHashMulti(seed, static_cast<int>(key.Kind), key.Text, key.Ratio);
    }
};

} // namespace

const CodeKindRow& RowOf(CodeKind kind)
{
    return KindTable.at(static_cast<std::size_t>(kind));
}

std::optional<CodeKind> CodeKindNamed(QStringView name)
{
    for (const CodeKindRow& row : KindTable) {
        if (name == row.Name)
            return row.Kind;
    }
    return std::nullopt;
}

std::shared_ptr<const CodePattern> CodePatternOf(CodeKind kind, const QString& text, double ratio)
{
    using Pattern = std::shared_ptr<const CodePattern>;
    static QCache<PatternKey, Pattern> cache(CacheSize);
    const CodeKindRow& row = RowOf(kind);
    const PatternKey key{kind, text, kind == CodeKind::Pdf417 ? ratio : 0};
    if (const Pattern* known = cache.object(key))
        return *known;
    auto pattern = std::make_shared<const CodePattern>(PatternMade(row, text, ratio));
    const auto cost = static_cast<qsizetype>(pattern->Runs.size()) + text.size();
    cache.insert(key, new Pattern(pattern), cost);
    return pattern;
}

} // namespace vantrel
