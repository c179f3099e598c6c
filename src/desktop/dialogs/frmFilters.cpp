#include "desktop/dialogs/frmFilters.h"
#include "desktop/controls/DesktopControls.h"
#include "station/compose/FieldDialogs.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr int CharactersSeen = 28;
}

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
    column->addLayout(buttons);
    setMinimumWidth(WidthForTitle(windowTitle()));
}

void frmFilters::Save()
{
    SaveFilters(m_session.Document, m_chars->text());
    close();
}

} // namespace vantrel
