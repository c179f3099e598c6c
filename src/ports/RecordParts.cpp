#include "ports/RecordParts.h"
#include "base/HexCodes.h"
#include "base/Text.h"
#include "ports/FilterTable.h"
#include <algorithm>
#include <numeric>

namespace vantrel {

namespace {

/// Delimiters are shorter than this, so that none that begins within the told characters is missed.
constexpr qsizetype LookAhead = 512;

struct Character
{
    RecordPart Part = RecordPart::Dropped;
    int Value = 0;
};

using Places = std::vector<qsizetype>;

/// Follows the steps of framing on the places of the characters instead of on their copies.
class Follower
{
public:
    Follower(const QString& text, qsizetype told)
        : m_text(text), m_characters(static_cast<std::size_t>(std::min(told, text.size())))
    {}

    /// Keeps what stands between the delimiters. @return false if there is no such text
    bool Cut(const Delimiters& delimiters)
    {
        const QString startText = DecodeHexCodes(delimiters.DataStart);
        const QString endText = DecodeHexCodes(delimiters.DataEnd);
        const qsizetype start = InStr(1, m_text, startText) - 1;
        const qsizetype end = InStr(start + 2, m_text, endText) - 1;
        if (start < 0 || end < start)
            return false;
        Mark(start, std::min(start + startText.size(), end), RecordPart::Start);
        Mark(end, end + endText.size(), RecordPart::End);
        Keep(start, end);
        return true;
    }
    void KeepAll() { Keep(0, m_text.size()); }
    /// Removes a delimiter as it is set, which is not decoded.
    void Remove(const QString& delimiter, RecordPart part)
    {
        if (delimiter.isEmpty())
            return;
        const QString kept = Kept();
        Places left;
        qsizetype done = 0;
        for (qsizetype found = kept.indexOf(delimiter); found >= 0;
             found = kept.indexOf(delimiter, done)) {
            left.insert(left.end(), m_kept.begin() + done, m_kept.begin() + found);
            done = found + delimiter.size();
            for (qsizetype at = found; at < done; ++at)
                Of(m_kept[static_cast<std::size_t>(at)]).Part = part;
        }
        left.insert(left.end(), m_kept.begin() + done, m_kept.end());
        m_kept = std::move(left);
    }
    void Split(const QString& separators, const Filters& filters)
    {
        Places value;
        const auto end = [&] {
            if (!value.empty())
                Filter(std::exchange(value, {}), ++m_values, filters);
        };
        for (const qsizetype place : m_kept) {
            if (!separators.contains(m_text[place])) {
                value.push_back(place);
                continue;
            }
            end();
            Of(place).Part = RecordPart::Separator;
        }
        end();
    }
    const std::vector<Character>& Characters() const { return m_characters; }

private:
    Character& Of(qsizetype place) { return m_characters[static_cast<std::size_t>(place)]; }

    void Mark(qsizetype from, qsizetype end, RecordPart part)
    {
        for (qsizetype place = from; place < std::min(end, qsizetype{std::ssize(m_characters)});
             ++place)
            Of(place).Part = part;
    }
    void Keep(qsizetype from, qsizetype end)
    {
        end = std::min(end, qsizetype{std::ssize(m_characters)});
        m_kept.resize(static_cast<std::size_t>(std::max<qsizetype>(end - from, 0)));
        std::iota(m_kept.begin(), m_kept.end(), from);
    }
    QString Kept() const
    {
        QString kept;
        kept.reserve(qsizetype{std::ssize(m_kept)});
        for (const qsizetype place : m_kept)
            kept += m_text[place];
        return kept;
    }
    void Filter(Places value, int number, const Filters& filters)
    {
        QString text;
        for (const qsizetype place : value)
            text += m_text[place];
        for (const FilterRow& row : FilterReplacements) {
            if (filters.*row.Flag)
                Replace(value, text, row);
        }
        const auto isBlank = [&](std::size_t at) {
            return text[static_cast<qsizetype>(at)] == u' ';
        };
        std::size_t first = 0;
        std::size_t last = value.size();
        while (first < last && isBlank(first))
            Of(value[first++]).Part = RecordPart::Filtered;
        while (last > first && isBlank(last - 1))
            Of(value[--last]).Part = RecordPart::Filtered;
        for (std::size_t at = first; at < last; ++at) {
            Character& character = Of(value[at]);
            character.Value = number;
            if (character.Part != RecordPart::Start)
                character.Part = RecordPart::Value;
        }
    }
    void Replace(Places& value, QString& text, const FilterRow& row)
    {
        Places left;
        QString replaced;
        qsizetype at = 0;
        while (at < text.size()) {
            const bool found = QStringView(text).sliced(at).startsWith(row.Wanted);
            const qsizetype taken = found ? row.Wanted.size() : 1;
            const qsizetype kept = found ? row.Replacement.size() : 1;
            for (qsizetype i = 0; i < taken; ++i) {
                const qsizetype place = value[static_cast<std::size_t>(at + i)];
                if (i >= kept) {
                    Of(place).Part = RecordPart::Filtered;
                    continue;
                }
                left.push_back(place);
                replaced += found ? row.Replacement[i] : text[at];
            }
            at += taken;
        }
        value = std::move(left);
        text = std::move(replaced);
    }

    const QString& m_text;
    /// Of the beginning of the text.
    std::vector<Character> m_characters;
    /// The places that no step has removed yet.
    Places m_kept;
    int m_values = 0;
};

} // namespace

QString NameOf(RecordPart part)
{
    switch (part) {
    case RecordPart::Value:
        return QStringLiteral("value");
    case RecordPart::Start:
        return QStringLiteral("start");
    case RecordPart::Separator:
        return QStringLiteral("separator");
    case RecordPart::End:
        return QStringLiteral("end");
    case RecordPart::Filtered:
        return QStringLiteral("filtered away");
    case RecordPart::Dropped:
        break;
    }
    return QStringLiteral("dropped");
}

std::optional<std::vector<RecordPiece>>
PiecesOfRecord(const QByteArray& raw, InputEncoding encoding, const Delimiters& delimiters,
               const Filters& filters, RecordCut cut, qsizetype most)
{
    InputDecoder decoder(encoding);
    const QString text = decoder.Decode(raw);
    Follower follower(text, most + LookAhead);
    if (cut == RecordCut::Whole)
        follower.KeepAll();
    else if (!follower.Cut(delimiters))
        return std::nullopt;
    follower.Remove(delimiters.DataStart, RecordPart::Start);
    follower.Remove(delimiters.DataEnd, RecordPart::End);
    follower.Split(DecodeHexCodes(delimiters.DataSeperator), filters);

    std::vector<RecordPiece> pieces;
    const auto& characters = follower.Characters();
    const qsizetype told = std::min(most, qsizetype{std::ssize(characters)});
    for (qsizetype at = 0; at < told; ++at) {
        const Character& character = characters[static_cast<std::size_t>(at)];
        if (pieces.empty() || pieces.back().Part != character.Part ||
            pieces.back().Value != character.Value)
            pieces.push_back({character.Part, character.Value, {}, {}});
        pieces.back().Text += text[at];
    }
    for (RecordPiece& piece : pieces)
        piece.Bytes = BytesOfInput(piece.Text, encoding);
    return pieces;
}

} // namespace vantrel
