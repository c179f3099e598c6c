#include "desktop/dialogs/frmPreSuffix.h"
#include "card/ShownValues.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopSample.h"
#include "station/compose/FieldDialogs.h"
#include "station/session/Session.h"
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace vantrel {

namespace {
constexpr int CharactersSeen = 28;
constexpr int SampleCharacters = 40;
} // namespace

frmPreSuffix::frmPreSuffix(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_prefix(MakeControl<QLineEdit>("txtPrefix", this)),
      m_suffix(MakeControl<QLineEdit>("txtSuffix", this))
{
    setObjectName(QStringLiteral("frmPreSuffix"));
    setWindowTitle(QStringLiteral("Prefix / Suffix"));
    setModal(true);
    m_prefix->setMinimumWidth(CharactersSeen * fontMetrics().averageCharWidth());
    const PreSuffix around = SelectedPreSuffix(session.Document);
    m_prefix->setText(around.Prefix);
    m_suffix->setText(around.Suffix);

    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &frmPreSuffix::Save);
    // The button has no action: the dialog is left by saving or at its frame.
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);

    auto* form = new QFormLayout(this);
    form->addRow(QStringLiteral("Prefix"), m_prefix);
    form->addRow(QStringLiteral("Suffix"), m_suffix);
    if (m_session.Options.DesignTools) {
        m_sample = MakeControl<DesktopSample>("picSample", SampleCharacters, this);
        form->addRow(m_sample);
        connect(m_prefix, &QLineEdit::textChanged, this, &frmPreSuffix::ShowSample);
        connect(m_suffix, &QLineEdit::textChanged, this, &frmPreSuffix::ShowSample);
        ShowSample();
    }
    form->addRow(buttons);
}

void frmPreSuffix::ShowSample()
{
    m_sample->Show(SampleOfPreSuffix(m_session, {m_prefix->text(), m_suffix->text()}));
}

void frmPreSuffix::Save()
{
    SavePreSuffix(m_session.Document, {m_prefix->text(), m_suffix->text()});
    if (m_session.Options.DesignTools)
        m_session.Document.Refresh();
    close();
}

} // namespace vantrel
