#include "console/MetricsText.h"
#include <QLocale>

namespace vantrel::console {

namespace {

/// A text as it stands between quotes.
QByteArray Escaped(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    bytes.replace('\\', "\\\\");
    bytes.replace('"', "\\\"");
    bytes.replace('\n', "\\n");
    return bytes;
}

} // namespace

void MetricsText::Begin(const QByteArray& name, const QByteArray& type, const QByteArray& help,
                        const char* unit)
{
    m_name = name;
    m_text += "# TYPE " + name + ' ' + type + '\n';
    if (unit != nullptr)
        m_text += "# UNIT " + name + ' ' + unit + '\n';
    m_text += "# HELP " + name + ' ' + help + '\n';
}

void MetricsText::Add(const QByteArray& ending, const Labels& labels, qlonglong value)
{
    AddText(ending, labels, QByteArray::number(value));
}

void MetricsText::Add(const QByteArray& ending, const Labels& labels, double value)
{
    AddText(ending, labels, Number(value).toLatin1());
}

void MetricsText::AddText(const QByteArray& ending, const Labels& labels, const QByteArray& value)
{
    QByteArray list;
    for (const auto& [name, text] : labels)
        list += (list.isEmpty() ? "" : ",") + name + "=\"" + Escaped(text) + '"';
    m_text +=
        m_name + ending + (list.isEmpty() ? QByteArray() : '{' + list + '}') + ' ' + value + '\n';
}

QByteArray MetricsText::Ended()
{
    return m_text + "# EOF\n";
}

QString MetricsText::Number(double value)
{
    const QString text = QString::number(value, 'g', QLocale::FloatingPointShortest);
    return text.contains(u'.') || text.contains(u'e') ? text : text + QStringLiteral(".0");
}

} // namespace vantrel::console
