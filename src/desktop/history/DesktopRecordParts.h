#pragma once

#include "ports/RecordParts.h"
#include <QPlainTextEdit>

class QLabel;

namespace vantrel {

/// The letter that marks a byte of a part, for everybody who does not see its colour.
QChar MarkOf(RecordPart part);

/// A record as it came, each byte coloured and marked by what framing made of it: as text, or as
/// codes with the marks of each row beside them.
class DesktopRecordParts : public QPlainTextEdit
{
    Q_OBJECT

public:
    enum class Form { Text, Hex };

    DesktopRecordParts(Form form, QWidget* parent);

    void Show(const std::vector<RecordPiece>& pieces);
    /// What the text cursor stands on, in words; empty for nothing.
    QString ToldAtCursor() const;
    /// The colour behind a part, on the colours of a palette.
    static QTextCharFormat FormatOf(RecordPart part, const QPalette& palette);

protected:
    void changeEvent(QEvent* event) override;

private:
    void ShowText(QTextCursor& cursor);
    void ShowHex(QTextCursor& cursor);
    void Fill();

    Form m_form;
    std::vector<RecordPiece> m_pieces;
};

} // namespace vantrel
