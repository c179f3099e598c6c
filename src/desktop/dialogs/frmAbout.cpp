#include "desktop/dialogs/frmAbout.h"
#include "desktop/controls/DesktopControls.h"
#include "station/session/MainRuntime.h"
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr QLatin1StringView WebSite{"https://vantrel.example/"};
constexpr int Margin = 24;
constexpr double TitleScale = 1.8;

} // namespace

frmAbout::frmAbout(Session& /*session*/, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About Ostrand Vantrel"));

    auto* title = MakeControl<QLabel>("lblTitle", QStringLiteral("Ostrand Vantrel"), this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * TitleScale);
    large.setBold(true);
    title->setFont(large);
    auto* version = MakeControl<QLabel>("lblVersion", QLatin1Char('v') + VersionText(), this);
    auto* link = MakeControl<QLabel>("lblLink", this);
    link->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(WebSite));
    link->setTextInteractionFlags(Qt::TextBrowserInteraction);
    link->setAccessibleDescription(QStringLiteral("Web site"));
    connect(link, &QLabel::linkActivated, this,
            [](const QString& address) { QDesktopServices::openUrl(QUrl(address)); });
    auto* ok = MakeControl<QPushButton>("cmdOk", QStringLiteral("&Ok"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::close);

    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(ok);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->addWidget(title);
    column->addWidget(version);
    column->addSpacing(Margin / 2);
    column->addWidget(link);
    column->addSpacing(Margin / 2);
    column->addLayout(row);
    column->addStrut(WidthForTitle(windowTitle()) - 2 * Margin);
    column->setSizeConstraint(QLayout::SetFixedSize);
    ok->setFocus();
}

} // namespace vantrel
