#include "desktop/controls/DesktopToolTip.h"
#include "desktop/controls/DesktopControls.h"
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace vantrel {

namespace {

const QString ShowerName = QStringLiteral("PlainToolTip");

/// Shows the tip of its control as plain text. Qt would guess from the text whether it is markup.
class PlainToolTip : public QObject
{
public:
    explicit PlainToolTip(QWidget& widget) : QObject(&widget), m_widget(widget)
    {
        setObjectName(ShowerName);
        widget.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip || m_widget.toolTip().isEmpty())
            return QObject::eventFilter(watched, event);
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           Qt::convertFromPlainText(ShownLine(m_widget.toolTip())), &m_widget);
        return true;
    }

private:
    QWidget& m_widget;
};

} // namespace

void SetPlainToolTip(QWidget& widget, const QString& text)
{
    widget.setToolTip(text);
    if (widget.findChild<QObject*>(ShowerName, Qt::FindDirectChildrenOnly) == nullptr)
        new PlainToolTip(widget);
}

} // namespace vantrel
