#include "app/frmMessage.h"
#include "app/DesktopControls.h"
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
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
    : QDialog(parent, DialogWithoutClose), m_hasNo(buttons == AppMessageButtons::YesNo)
{
    setObjectName(QStringLiteral("frmMessage"));
    if (!title.isEmpty())
        setWindowTitle(title);

    auto* out = MakeControl<QLabel>("lblOut", this);
    out->setTextFormat(Qt::PlainText);
    out->setText(text);
    // As wide as the text asks for while it stands in its own lines.
    out->setFixedWidth(std::min(out->sizeHint().width(), WidestText));
    out->setWordWrap(true);

    auto* ok = MakeButton("cmdOk", m_hasNo ? QStringLiteral("&Yes") : QStringLiteral("&Ok"), this);
    auto* no = MakeButton("cmdNo", QStringLiteral("&No"), this);
    no->setVisible(m_hasNo);
    ok->setDefault(true);
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
    column->setSizeConstraint(QLayout::SetFixedSize);
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

void frmMessage::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous() || parentWidget() == nullptr || !parentWidget()->isVisible())
        return;
    CentreOver(*this, parentWidget());
}

} // namespace vantrel
