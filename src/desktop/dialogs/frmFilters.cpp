#include "desktop/dialogs/frmFilters.h"
#include "card/ShownValues.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopSample.h"
#include "station/compose/FieldDialogs.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr int CharactersSeen = 28;
constexpr int SampleCharacters = 40;
} // namespace

frmFilters::frmFilters(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_chars(MakeControl<QLineEdit>("txtChars", this))
{
    setObjectName(QStringLiteral("frmFilters"));
    setWindowTitle(QStringLiteral("Filter Characters"));
    setModal(true);
    m_chars->setMinimumWidth(CharactersSeen * fontMetrics().averageCharWidth());
    m_chars->setAccessibleName(windowTitle());
    m_chars->setText(SelectedFilters(session.Document));

    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &frmFilters::Save);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_chars);
    if (m_session.Options.DesignTools) {
        m_sample = MakeControl<DesktopSample>("picSample", SampleCharacters, this);
        column->addWidget(m_sample);
        connect(m_chars, &QLineEdit::textChanged, this, &frmFilters::ShowSample);
        ShowSample();
    }
    column->addLayout(buttons);
    setMinimumWidth(WidthForTitle(windowTitle()));
}

void frmFilters::ShowSample()
{
    m_sample->Show(SampleOfFilters(m_session, m_chars->text()));
}

void frmFilters::Save()
{
    SaveFilters(m_session.Document, m_chars->text());
    if (m_session.Options.DesignTools)
        m_session.Document.Refresh();
    close();
}

} // namespace vantrel
