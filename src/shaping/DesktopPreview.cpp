#include "shaping/DesktopPreview.h"
#include "shaping/ComposerElement.h"
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>

namespace vantrel {

QLineEdit* MakePreview(const QString& accessibleName, QWidget* parent)
{
    auto* line = new QLineEdit(parent);
    line->setReadOnly(true);
    line->setFrame(false);
    line->setFocusPolicy(Qt::ClickFocus);
    line->setAccessibleName(accessibleName);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(line->font().pointSizeF());
    line->setFont(font);
    QPalette colors = line->palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    line->setPalette(colors);
    return line;
}

void ShowPreview(QLineEdit& line, const QString& text, const QString& remark)
{
    // The line keeps no more: codes are not made of what it drops.
    line.setText(WithVisibleCodes(text.left(line.maxLength())));
    line.setPlaceholderText(remark);
    line.setCursorPosition(0);
}

QLabel* MakeHint(const QString& text, QWidget* parent)
{
    auto* hint = new QLabel(text, parent);
    hint->setWordWrap(true);
    return hint;
}

} // namespace vantrel
