#include "desktop/history/DesktopRecordParts.h"
#include "desktop/controls/Contrast.h"
#include <QEvent>
#include <QFontDatabase>
#include <QTextBlock>

namespace vantrel {

namespace {

constexpr double TintShare = 0.3;
constexpr int BytesInRow = 16;
/// The property of a format that holds its part and value.
constexpr int PartProperty = QTextFormat::UserProperty;
constexpr int ValueProperty = QTextFormat::UserProperty + 1;

QColor TintOf(RecordPart part)
{
    switch (part) {
    case RecordPart::Value:
        return {};
    case RecordPart::Start:
        return {0x2e, 0x9e, 0x4f};
    case RecordPart::Separator:
        return {0x2a, 0x6f, 0xd8};
    case RecordPart::End:
        return {0xd0, 0x40, 0x30};
    case RecordPart::Filtered:
        return {0xd8, 0x9a, 0x00};
    case RecordPart::Dropped:
        break;
    }
    return {0x80, 0x80, 0x80};
}

/// A character as it is shown: control characters as their codes.
QString Shown(QChar character)
{
    if (character.unicode() < 0x20 || character.unicode() == 0x7f)
        return QStringLiteral("[%1]").arg(character.unicode(), 2, 16, QLatin1Char('0')).toUpper();
    return character;
}

QTextCharFormat FormatOfPiece(const RecordPiece& piece, const QPalette& palette)
{
    QTextCharFormat format = DesktopRecordParts::FormatOf(piece.Part, palette);
    format.setProperty(PartProperty, static_cast<int>(piece.Part));
    format.setProperty(ValueProperty, piece.Value);
    return format;
}

} // namespace

QChar MarkOf(RecordPart part)
{
    switch (part) {
    case RecordPart::Value:
        return u'.';
    case RecordPart::Start:
        return u'S';
    case RecordPart::Separator:
        return u'|';
    case RecordPart::End:
        return u'E';
    case RecordPart::Filtered:
        return u'f';
    case RecordPart::Dropped:
        break;
    }
    return u'x';
}

DesktopRecordParts::DesktopRecordParts(Form form, QWidget* parent)
    : QPlainTextEdit(parent), m_form(form)
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setWordWrapMode(form == Form::Text ? QTextOption::WrapAnywhere : QTextOption::NoWrap);
    setTabChangesFocus(true);
}

QTextCharFormat DesktopRecordParts::FormatOf(RecordPart part, const QPalette& palette)
{
    QTextCharFormat format;
    const QColor base = palette.color(QPalette::Base);
    if (const QColor tint = TintOf(part); tint.isValid())
        format.setBackground(Between(tint, base, TintShare));
    format.setForeground(palette.color(QPalette::Text));
    const bool isDelimiter =
        part == RecordPart::Start || part == RecordPart::Separator || part == RecordPart::End;
    format.setFontWeight(isDelimiter ? QFont::Bold : QFont::Normal);
    format.setFontUnderline(part == RecordPart::Separator);
    format.setFontStrikeOut(part == RecordPart::Filtered || part == RecordPart::Dropped);
    format.setFontItalic(part == RecordPart::Dropped);
    return format;
}

void DesktopRecordParts::Show(const std::vector<RecordPiece>& pieces)
{
    m_pieces = pieces;
    Fill();
}

void DesktopRecordParts::Fill()
{
    clear();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    if (m_form == Form::Text)
        ShowText(cursor);
    else
        ShowHex(cursor);
    cursor.endEditBlock();
    moveCursor(QTextCursor::Start);
}

void DesktopRecordParts::ShowText(QTextCursor& cursor)
{
    for (const RecordPiece& piece : m_pieces) {
        QString text;
        for (const QChar character : ShownInput(piece.Text)) {
            text += Shown(character);
            // A line is laid out as a whole, so long records are shown in lines.
            if (character == u'\n')
                text += u'\n';
        }
        cursor.insertText(text, FormatOfPiece(piece, palette()));
    }
}

void DesktopRecordParts::ShowHex(QTextCursor& cursor)
{
    struct Byte
    {
        char Code;
        const RecordPiece* Piece;
    };
    std::vector<Byte> bytes;
    for (const RecordPiece& piece : m_pieces) {
        for (const char code : piece.Bytes)
            bytes.push_back({code, &piece});
    }
    const QTextCharFormat plain = FormatOf(RecordPart::Value, palette());
    for (std::size_t begin = 0; begin < bytes.size(); begin += BytesInRow) {
        if (begin > 0)
            cursor.insertBlock();
        cursor.insertText(QStringLiteral("%1  ").arg(begin, 4, 16, QLatin1Char('0')).toUpper(),
                          plain);
        QString marks;
        for (std::size_t at = begin; at < begin + BytesInRow; ++at) {
            if (at >= bytes.size()) {
                cursor.insertText(QStringLiteral("   "), plain);
                continue;
            }
            const QString code =
                QStringLiteral("%1")
                    .arg(static_cast<unsigned char>(bytes[at].Code), 2, 16, QLatin1Char('0'))
                    .toUpper();
            cursor.insertText(code, FormatOfPiece(*bytes[at].Piece, palette()));
            cursor.insertText(QStringLiteral(" "), plain);
            marks += MarkOf(bytes[at].Piece->Part);
        }
        cursor.insertText(u' ' + marks, plain);
    }
}

QString DesktopRecordParts::ToldAtCursor() const
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::min(cursor.selectionStart() + 1, document()->characterCount() - 1));
    const QTextCharFormat format = cursor.charFormat();
    if (!format.hasProperty(PartProperty))
        return {};
    const QString part = NameOf(static_cast<RecordPart>(format.intProperty(PartProperty)));
    const int value = format.intProperty(ValueProperty);
    return value > 0 ? QStringLiteral("%1, in value %2").arg(part).arg(value) : part;
}

void DesktopRecordParts::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_pieces.empty())
        Fill();
}

} // namespace vantrel
