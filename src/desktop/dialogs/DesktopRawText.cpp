#include "desktop/dialogs/DesktopRawText.h"
#include "station/capture/RawDataView.h"
#include <QFontDatabase>
#include <QMimeData>
#include <QTextBlock>

namespace vantrel {

DesktopRawText::DesktopRawText(QWidget* parent) : QPlainTextEdit(parent)
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(true);
}

void DesktopRawText::Show(const QString& text)
{
    m_text = text;
    ViewRows rows = CutIntoRows(text);
    m_goesOn = std::move(rows.GoesOn);
    setPlainText(rows.Text);
}

QMimeData* DesktopRawText::createMimeDataFromSelection() const
{
    const QTextCursor selection = textCursor();
    QString copied;
    for (QTextBlock row = document()->findBlock(selection.selectionStart());
         row.isValid() && row.position() <= selection.selectionEnd(); row = row.next()) {
        const int from = std::max(0, selection.selectionStart() - row.position());
        const int to = selection.selectionEnd() - row.position();
        const bool first = row.position() <= selection.selectionStart();
        if (!first && !m_goesOn[static_cast<std::size_t>(row.blockNumber())])
            copied += u'\n';
        copied += row.text().mid(from, to - from);
    }
    auto* selected = new QMimeData;
    selected->setText(copied);
    return selected;
}

} // namespace vantrel
