#include "station/capture/RawDataView.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

constexpr char16_t CarriageReturn = u'\r';
constexpr char16_t LineFeed = u'\n';
/// Characters of one code with its blanks, such as "[41]  ".
constexpr qsizetype LongestCode = 6;

/// Whether the character starts a new paragraph in a text box.
bool EndsLine(QChar character)
{
    constexpr QStringView lineEnds = u"\r\n\u2029\ufdd0\ufdd1";
    return lineEnds.contains(character);
}

void AddRow(ViewRows& rows, QStringView row, bool goesOn)
{
    if (!rows.GoesOn.empty())
        rows.Text += LineFeed;
    rows.Text += row;
    rows.GoesOn.push_back(goesOn);
}

void AddLine(ViewRows& rows, QStringView line)
{
    bool goesOn = false;
    while (line.size() > LongestViewRow) {
        const qsizetype blank = line.first(LongestViewRow).lastIndexOf(u' ');
        const qsizetype length = blank < 0 ? LongestViewRow : blank + 1;
        AddRow(rows, line.first(length), goesOn);
        line = line.sliced(length);
        goesOn = true;
    }
    AddRow(rows, line, goesOn);
}

} // namespace

QString HexText(const QString& raw, InputEncoding encoding)
{
    constexpr char digits[] = "0123456789ABCDEF";
    const QByteArray bytes = BytesOfInput(raw, encoding);
    QByteArray text;
    text.reserve(bytes.size() * LongestCode);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += '[';
        if (code > 0xF)
            text += digits[code >> 4];
        text += digits[code & 0xF];
        text += "]  ";
    }
    return QString::fromLatin1(text);
}

ViewRows CutIntoRows(const QString& text)
{
    ViewRows rows;
    rows.Text.reserve(text.size());
    const QStringView whole(text);
    qsizetype start = 0;
    for (qsizetype at = 0; at < whole.size(); ++at) {
        if (!EndsLine(whole[at]))
            continue;
        AddLine(rows, whole.sliced(start, at - start));
        if (whole[at] == CarriageReturn && at + 1 < whole.size() && whole[at + 1] == LineFeed)
            ++at;
        start = at + 1;
    }
    AddLine(rows, whole.sliced(start));
    return rows;
}

void ClearInput(InputBuffer& input)
{
    input.Clear();
}

void ClearInput(Session& session)
{
    ClearInput(session.InputBuffer);
    if (session.Inputs)
        session.Inputs->DropIncomplete();
}

} // namespace vantrel
