#include "TrackModel.h"
#include <cctype>
#include <optional>

namespace vantrel::test {

namespace {

struct Failed
{};

struct Token
{
    int Kind = 0;
    std::string Ref;
    std::string Value;
};

std::vector<std::string> Split(const std::string& text, char at)
{
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == at)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::string Trim(std::string text)
{
    while (!text.empty() && text.front() == ' ')
        text.erase(0, 1);
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

std::string Delete(std::string text, const std::string& word)
{
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at))
        text.erase(at, word.size());
    return text;
}

bool Has(const std::string& text, const std::string& word)
{
    return text.find(word) != std::string::npos;
}

long long Whole(const std::string& text, long long lowest, long long highest)
{
    std::string digits = Trim(text);
    const bool negative = !digits.empty() && digits[0] == '-';
    if (negative || (!digits.empty() && digits[0] == '+'))
        digits.erase(0, 1);
    if (digits.empty() || digits.size() > 15)
        throw Failed();
    long long number = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            throw Failed();
        number = number * 10 + (c - '0');
    }
    if (negative)
        number = -number;
    if (number < lowest || number > highest)
        throw Failed();
    return number;
}

long long Whole16(const std::string& text)
{
    return Whole(text, -32768, 32767);
}

long long Whole32(const std::string& text)
{
    return Whole(text, -2147483648LL, 2147483647LL);
}

std::string Field(long long number, const std::vector<std::string>& values)
{
    if (number < 1 || number > static_cast<long long>(values.size()))
        throw Failed();
    return values[static_cast<std::size_t>(number - 1)];
}

std::string Clean(const std::string& value)
{
    std::string kept;
    for (const char c : Trim(value)) {
        if (std::string("^:;~?><+-!@\"\r\n").find(c) == std::string::npos)
            kept += c;
    }
    return Trim(kept);
}

Token Read(const std::string& text, const std::vector<std::string>& values)
{
    if (Has(text, "DAT")) {
        const long long number = Whole32(Delete(text, "DAT"));
        return {0, std::to_string(number), Clean(Field(number, values))};
    }
    if (Has(text, "MOD"))
        return {3, "-1", ""};
    if (Has(text, "CODABAR"))
        return {4, "-1", ""};
    if (Has(text, "EBT"))
        return {5, "-1", ""};
    if (Has(text, "AUTO"))
        return {6, "-1", ""};
    if (Has(text, "SEP"))
        return {2, "-1", ""};
    if (Has(text, "FD"))
        return {7, Delete(text, "FD"), ""};
    return {1, "-1", text};
}

int Digit(char c)
{
    if (c < '0' || c > '9')
        throw Failed();
    return c - '0';
}

std::string Mod10(const std::string& text)
{
    int odd = 0;
    int even = 0;
    bool isOdd = true;
    for (const char c : Trim(text)) {
        (isOdd ? odd : even) += Digit(c);
        isOdd = !isOdd;
    }
    return std::to_string((10 - (3 * odd + even) % 10) % 10);
}

/// The Luhn digit; of the doubled characters only those before the first one that is no digit
/// count.
std::string Codabar(const std::string& text)
{
    const std::string payload = Delete(text, " ");
    std::string doubled;
    int total = 0;
    for (std::size_t i = 0; i < payload.size(); ++i) {
        if ((payload.size() - 1 - i) % 2 == 0)
            doubled += payload[i];
        else if (payload[i] >= '0' && payload[i] <= '9')
            total += payload[i] - '0';
    }
    for (std::size_t i = 0; i < doubled.size(); ++i) {
        if (i == 0 && (doubled[0] == '-' || doubled[0] == '+'))
            continue;
        if (doubled[i] < '0' || doubled[i] > '9')
            break;
        const int twice = 2 * (doubled[i] - '0');
        total += twice > 9 ? twice - 9 : twice;
    }
    return std::to_string((10 - total % 10) % 10);
}

std::string Ebt(const std::string& text)
{
    int sum = 0;
    bool isOdd = true;
    for (const char c : text) {
        const int weighed = isOdd ? 2 * Digit(c) : Digit(c);
        sum += weighed > 9 ? weighed - 9 : weighed;
        isOdd = !isOdd;
    }
    return std::to_string(10 - sum % 10);
}

std::string Pad(const std::string& ref, const std::vector<std::string>& values)
{
    const std::vector<std::string> parts = Split(ref, '^');
    if (parts.size() < 4)
        throw Failed();
    std::string value = Field(Whole16(parts[3]), values);
    const long long missing = Whole16(parts[1]) - static_cast<long long>(value.size());
    const long long direction = Whole32(parts[2]);
    if (missing <= 0)
        return {};
    for (long long i = 0; i < missing; ++i) {
        if (direction == 0)
            value.insert(0, parts[0]);
        else if (direction == 1)
            value += parts[0];
    }
    return value;
}

std::string Upper(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::string Print(const std::string& text)
{
    return "Print(\"" + text + "\")";
}

std::string FontName(const std::string& name)
{
    return "FontName = \"" + name + "\"";
}

/// The text that the token sends on that printer; none where it sends nothing.
std::optional<std::string> Sent(int printerType, int track, const Token& token,
                                const std::vector<std::string>& values)
{
    const bool isNisca = printerType == 11;
    switch (token.Kind) {
    case 0:
        return Upper(token.Value);
    case 1:
        return isNisca ? std::nullopt : std::optional(Upper(token.Value));
    case 2:
        return track == 1 && printerType != 2 ? "^" : "=";
    case 4:
        return isNisca ? std::nullopt : std::optional(token.Value);
    case 6:
        return std::nullopt;
    case 7:
        return Pad(token.Ref, values);
    default:
        return token.Value;
    }
}

} // namespace

std::vector<std::string> ModelOfTrack(int printerType, int track, const std::string& formula,
                                      const std::vector<std::string>& values)
{
    const bool isFont = printerType == 4 || printerType == 5;
    const std::string number = std::to_string(track);
    std::vector<std::string> operations;
    if (isFont)
        operations.push_back(
            FontName("Track " + number + (printerType == 4 ? " - Magnetic stripe" : "")));
    std::string body;
    try {
        std::string previousText;
        Token previous;
        for (const std::string& text :
             formula.empty() ? std::vector<std::string>() : Split(formula, '~')) {
            if (!previousText.empty())
                previous = Read(previousText, values);
            Token token = Read(text, values);
            if (token.Kind == 3)
                token.Value = Mod10(previous.Value);
            if (token.Kind == 4)
                token.Value = Codabar(previous.Value);
            if (token.Kind == 5)
                token.Value = Ebt(previous.Value);
            const auto sent = Sent(printerType, track, token, values);
            if (isFont && sent)
                operations.push_back(Print(*sent));
            body += sent.value_or("");
            previousText = text;
        }
    } catch (const Failed&) {
        operations.emplace_back("failed");
        return operations;
    }
    std::string line;
    if (isFont)
        operations.push_back(FontName("Arial"));
    else if (printerType == 1)
        line = "~" + number + (track == 1 ? "%" : ";") + body + "?";
    else if (printerType == 2)
        line = "${" + number + body + "}$";
    else if (printerType == 11 && !body.empty())
        line = "~@1," + number + "," + std::to_string(body.size()) + "," + body;
    const std::size_t shortest = printerType == 1 ? 5 : printerType == 2 ? 6 : 1;
    if (line.size() >= shortest)
        operations.push_back(Print(line));
    return operations;
}

} // namespace vantrel::test
