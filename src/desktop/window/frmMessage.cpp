#include "desktop/window/frmMessage.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopWrappedText.h"
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr int Margin = 20;
constexpr int WidestText = 520;
constexpr int ButtonWidth = 88;
constexpr int ButtonGap = 8;

QPushButton* MakeButton(const char* name, const QString& caption, QWidget* parent)
{
    auto* button = MakeControl<QPushButton>(name, caption, parent);
    button->setMinimumWidth(ButtonWidth);
    return button;
}

} // namespace

frmMessage::frmMessage(const QString& text, const QString& title, AppMessageButtons buttons,
                       QWidget* parent)
    : QDialog(parent, DialogWithoutClose), m_hasNo(buttons != AppMessageButtons::OkOnly)
{
    setObjectName(QStringLiteral("frmMessage"));
    setWindowTitle(ShownTitle(title));

    auto* out = MakeControl<DesktopWrappedText>("lblOut", ShownLine(text), WidestText, this);

    auto* ok = MakeButton("cmdOk", m_hasNo ? QStringLiteral("&Yes") : QStringLiteral("&Ok"), this);
    auto* no = MakeButton("cmdNo", QStringLiteral("&No"), this);
    no->setVisible(m_hasNo);
    QPushButton* const first = buttons == AppMessageButtons::NoYes ? no : ok;
    first->setDefault(true);
    // The button that has the focus is the one that Enter presses.
    first->setFocus();
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);

    auto* row = new QHBoxLayout;
    row->setSpacing(ButtonGap);
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(no);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(Margin);
    column->addWidget(out);
    column->addLayout(row);
    column->addStrut(WidthForTitle(title) - 2 * Margin);
    column->setSizeConstraint(QLayout::SetFixedSize);
    // It is placed before it is shown: a window manager would take a later position for that of the
    // window within its frame.
    if (parent != nullptr && parent->isVisible())
        CentreOver(*this, parent);
}

void frmMessage::reject()
{
    if (m_hasNo)
        QDialog::reject();
}

void frmMessage::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace vantrel
