#include "desktop/controls/DesktopSample.h"
#include "card/ShownValues.h"
#include "desktop/controls/DesktopControls.h"
#include <QLabel>
#include <QVBoxLayout>

namespace vantrel {

namespace {

QString SourceText(SampleSource source)
{
    switch (source) {
    case SampleSource::Record:
        return QStringLiteral("Last record: ");
    case SampleSource::NextNumber:
        return QStringLiteral("Next number: ");
    case SampleSource::Example:
        break;
    }
    return QStringLiteral("Example: ");
}

void Tell(QLabel& label, const QString& text)
{
    QString line = ShownLine(text);
    line.replace(u'\r', u' ').replace(u'\n', u' ');
    label.setText(label.fontMetrics().elidedText(line, Qt::ElideRight, label.width()));
}

} // namespace

DesktopSample::DesktopSample(int characters, QWidget* parent)
    : QWidget(parent), m_value(MakeControl<QLabel>("lblValue", this)),
      m_printed(MakeControl<QLabel>("lblPrinted", this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (QLabel* label : {m_value, m_printed}) {
        label->setTextFormat(Qt::PlainText);
        label->setFixedWidth(characters * fontMetrics().averageCharWidth());
        column->addWidget(label);
    }
    QFont bold = font();
    bold.setBold(true);
    m_printed->setFont(bold);
}

void DesktopSample::Show(const ValueSample& sample)
{
    Tell(*m_value, SourceText(sample.Source) + sample.Value);
    Tell(*m_printed, sample.Printed.isEmpty()
                         ? QStringLiteral("Prints nothing")
                         : QString(QStringLiteral("Prints as: ") + sample.Printed));
}

} // namespace vantrel
