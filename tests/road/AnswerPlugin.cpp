#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QGenericPlugin>
#include <QMessageBox>
#include <QTimer>

namespace {

constexpr int LookInterval = 5;

/// An operator who is away until a file is there, and then says No to every question.
class Answer : public QObject
{
public:
    explicit Answer(const QString& file) : m_file(file)
    {
        QObject::connect(&m_look, &QTimer::timeout, this, [this] { Look(); });
        m_look.start(LookInterval);
    }

private:
    void Look()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !QFileInfo::exists(m_file))
            return;
        if (QAbstractButton* no = box->button(QMessageBox::No))
            no->click();
    }

    QString m_file;
    QTimer m_look;
};

} // namespace

/// Loaded by a station program whose environment names it: "answer:" and the file's path.
class AnswerPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "AnswerPlugin.json")

public:
    QObject* create(const QString& /*key*/, const QString& file) override
    {
        return new Answer(file);
    }
};

#include "AnswerPlugin.moc"
