#include "desktop/dialogs/frmRawData.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/dialogs/DesktopRawText.h"
#include "station/capture/RawDataView.h"
#include "station/session/Session.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {

/// How far above the middle of the main window's height the window stands, twips.
constexpr int AboveMiddle = 400;
/// Characters in a row, and rows, that are visible at first.
constexpr int FirstColumns = 72;
constexpr int FirstRows = 16;

} // namespace

frmRawData::frmRawData(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_data(MakeControl<DesktopRawText>("txtData", this))
{
    setObjectName(QStringLiteral("frmRawData"));
    m_data->setAccessibleName(QStringLiteral("Raw input data"));
    LayOut();
    Refresh();
    PlaceBySizeOf(*this, parent, AboveMiddle);
}

void frmRawData::LayOut()
{
    const QFontMetrics metrics(m_data->font());
    m_data->setMinimumSize(metrics.averageCharWidth() * FirstColumns / 2,
                           metrics.lineSpacing() * 4);
    m_data->SetFirstSize(
        {metrics.averageCharWidth() * FirstColumns, metrics.lineSpacing() * FirstRows});

    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& caption, auto&& press) {
        auto* button = MakeControl<QPushButton>(name, caption, this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, press);
        row->addWidget(button);
    };
    add("cmdAscii", QStringLiteral("View &ASCII"), [this] { View(false); });
    add("cmdHex", QStringLiteral("View &Hex"), [this] { View(true); });
    row->addStretch();
    add("cmdRefresh", QStringLiteral("&Refresh"), [this] { Refresh(); });
    add("cmdCopy", QStringLiteral("&Copy"), [this] { Copy(); });
    add("cmdClear", QStringLiteral("&Clear"), [this] { Clear(); });

    auto* column = new QVBoxLayout(this);
    column->addWidget(m_data);
    column->addLayout(row);
}

void frmRawData::View(bool hex)
{
    m_viewHex = hex;
    Refresh();
}

void frmRawData::Refresh()
{
    const QString& raw = m_session.LastRawData;
    m_data->Show(m_viewHex ? HexText(raw, m_session.Options.Encoding) : ShownInput(raw));
    setWindowTitle(m_viewHex ? QStringLiteral(" Viewing : Hex Data")
                             : QStringLiteral(" Viewing : ASCII Data"));
}

void frmRawData::Copy()
{
    QGuiApplication::clipboard()->setText(m_data->Text());
}

void frmRawData::Clear()
{
    ClearInput(m_session);
    m_data->Show(QString());
}

} // namespace vantrel
