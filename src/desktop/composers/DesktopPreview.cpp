#include "desktop/composers/DesktopPreview.h"
#include "desktop/controls/Contrast.h"
#include "station/compose/ComposerElement.h"
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>

namespace vantrel {

namespace {

constexpr double RemarkShare = 0.7;

/// Has no background of its own, and writes its remark in a muted colour that can still be read on
/// the window's background; the desktop's colour for such remarks is too faint.
class PreviewLine : public QLineEdit
{
public:
    explicit PreviewLine(QWidget* parent) : QLineEdit(parent) { TakeColors(); }

protected:
    void changeEvent(QEvent* event) override
    {
        QLineEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            TakeColors();
    }

private:
    void TakeColors()
    {
        QPalette colors = palette();
        const QColor remark = Between(colors.color(QPalette::WindowText),
                                      colors.color(QPalette::Window), RemarkShare);
        // Setting the palette is a change of colours too and would come back here.
        if (colors.color(QPalette::PlaceholderText) == remark)
            return;
        colors.setColor(QPalette::Base, Qt::transparent);
        colors.setColor(QPalette::PlaceholderText, remark);
        setPalette(colors);
    }
};

} // namespace

QLineEdit* MakePreview(const QString& accessibleName, QWidget* parent)
{
    auto* line = new PreviewLine(parent);
    line->setReadOnly(true);
    line->setFrame(false);
    line->setFocusPolicy(Qt::ClickFocus);
    line->setAccessibleName(accessibleName);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(line->font().pointSizeF());
    line->setFont(font);
    return line;
}

void ShowPreview(QLineEdit& line, const QString& text, const QString& remark)
{
    // The line keeps no more characters, so no codes are made for the rest.
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
