#include "base/Convert.h"
#include "base/Skip.h"
#include "desktop/controls/Contrast.h"
#include "desktop/controls/DesktopChoices.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/dialogs/frmWizard.h"
#include "drawing/PageCanvas.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr int MostFields = 99;
constexpr QSize CardIcon{96, 96};
constexpr const char* Sizes[] = {"6",  "7",  "8",  "9",  "10", "11", "12", "14", "16",
                                 "18", "20", "22", "24", "26", "28", "36", "48", "72"};
constexpr const char* FirstSizeEntry = "10";
constexpr double InkShare = 0.6;

/// A card of that orientation, in the colours of the theme.
QIcon CardPicture(int orientation, const QPalette& palette)
{
    QPixmap picture(CardIcon * 2);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QSizeF card = orientation == OrientationLandscape ? QSizeF(162, 102) : QSizeF(102, 162);
    QRectF box({0, 0}, card);
    box.moveCenter(QRectF(picture.rect()).center());
    const QColor ink =
        Between(palette.color(QPalette::Text), palette.color(QPalette::Base), InkShare);
    painter.setPen(QPen(ink, 3));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawRoundedRect(box, 10, 10);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Highlight));
    painter.drawRoundedRect(QRectF(box.topLeft() + QPointF(14, 16), QSizeF(34, 42)), 4, 4);
    painter.setBrush(ink);
    const double textLeft = box.left() + 60;
    for (int line = 0; line < 3; ++line)
        painter.drawRect(
            QRectF(textLeft, box.top() + 20 + line * 14, box.right() - textLeft - 12, 5));
    painter.end();
    picture.setDevicePixelRatio(2);
    return picture;
}

} // namespace

QWidget* frmWizard::MakePage(WizardStep step)
{
    QWidget* page = nullptr;
    switch (step) {
    case WizardStep::Name:
        page = MakeNamePage();
        break;
    case WizardStep::DefaultFont:
        page = MakeFontPage();
        break;
    case WizardStep::Orientation:
        page = MakeOrientationPage();
        break;
    case WizardStep::Printer:
        page = MakePrinterPage();
        break;
    case WizardStep::DataFields:
        page = MakeFieldsPage();
        break;
    default:
        page = MakeSummaryPage();
    }
    page->setProperty("Tag", QString::number(static_cast<int>(step)));
    return page;
}

QWidget* frmWizard::MakeNamePage()
{
    auto* page = new QWidget;
    m_name = MakeControl<QLineEdit>("txtName", page);
    m_name->setAccessibleName(QStringLiteral("Layout name"));
    auto* column = new QVBoxLayout(page);
    column->addWidget(m_name);
    column->addStretch();
    return page;
}

QCheckBox* frmWizard::MakeStyleBox(const char* name, const QString& caption, QWidget* page)
{
    auto* box = MakeControl<QCheckBox>(name, caption, page);
    connect(box, &QCheckBox::toggled, this, &frmWizard::UpdateSample);
    return box;
}

QWidget* frmWizard::MakeFontPage()
{
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    m_fonts = MakeControl<QComboBox>("lstFonts", page);
    m_fonts->setEditable(true);
    m_fonts->addItems(PageCanvas::FontFamilies());
    m_fonts->setAccessibleDescription(QStringLiteral("Font"));
    m_sizes = MakeControl<QComboBox>("cbxFontSizes", page);
    m_sizes->setEditable(true);
    m_sizes->setAccessibleDescription(QStringLiteral("Size in points"));
    for (const char* size : Sizes)
        m_sizes->addItem(QLatin1StringView(size));
    m_sizes->setCurrentText(QLatin1StringView(FirstSizeEntry));
    connect(m_fonts, &QComboBox::currentTextChanged, this, &frmWizard::UpdateSample);
    connect(m_sizes, &QComboBox::currentTextChanged, this, &frmWizard::UpdateSample);
    grid->addWidget(m_fonts, 0, 0);
    grid->addWidget(m_sizes, 0, 1);
    grid->setColumnStretch(0, 1);
    auto* styles = new QHBoxLayout;
    for (std::size_t box = 0; box < std::size(StyleBoxes); ++box) {
        m_styles[box] =
            MakeStyleBox(StyleBoxes[box].Name, QLatin1StringView(StyleBoxes[box].Caption), page);
        styles->addWidget(m_styles[box]);
    }
    styles->addStretch();
    grid->addLayout(styles, 1, 0, 1, 2);
    m_sample = MakeControl<QLabel>(
        "lblFont", QStringLiteral("A Quick Brown Fox Jumps Over the Lazy Dog"), page);
    m_sample->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                            static_cast<int>(QFrame::Sunken));
    m_sample->setAlignment(Qt::AlignCenter);
    m_sample->setWordWrap(true);
    m_sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    grid->addWidget(m_sample, 2, 0, 1, 2);
    grid->setRowStretch(2, 1);
    return page;
}

QWidget* frmWizard::MakeOrientationPage()
{
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    const auto add = [&](const char* name, const QString& caption, int orientation, int column) {
        auto* card = MakeControl<QToolButton>(name, page);
        card->setText(caption);
        card->setIconSize(CardIcon);
        card->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        card->setFocusPolicy(Qt::StrongFocus);
        connect(card, &QToolButton::clicked, this,
                [this, orientation, caption] { ChooseOrientation(orientation, caption); });
        grid->addWidget(card, 1, column);
        return card;
    };
    m_portrait = add("imgP", QStringLiteral("Portrait"), OrientationPortrait, 1);
    m_landscape = add("imgL", QStringLiteral("Lanscape"), OrientationLandscape, 2);
    DrawCards();
    auto* selected = new QHBoxLayout;
    selected->addStretch();
    selected->addWidget(new QLabel(QStringLiteral("Selected :"), page));
    m_orientation = MakeControl<QLabel>("lblO", QStringLiteral("None"), page);
    selected->addWidget(m_orientation);
    selected->addStretch();
    grid->addLayout(selected, 2, 0, 1, 4);
    for (const int edge : {0, 3}) {
        grid->setColumnStretch(edge, 1);
        grid->setRowStretch(edge, 1);
    }
    return page;
}

void frmWizard::DrawCards()
{
    m_portrait->setIcon(CardPicture(OrientationPortrait, palette()));
    m_landscape->setIcon(CardPicture(OrientationLandscape, palette()));
}

void frmWizard::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_landscape != nullptr)
        DrawCards();
}

QWidget* frmWizard::MakePrinterPage()
{
    auto* page = new QWidget;
    m_printers = MakeControl<DesktopChoices>("lstPrinters", page);
    m_printers->setAccessibleName(QStringLiteral("Printers"));
    m_printers->addItems(WizardPrinters(m_session.Printers));
    m_kinds = MakeControl<DesktopChoices>("lvwTypes", page);
    m_kinds->setAccessibleName(QStringLiteral("Printer types"));
    for (const WizardPrinterKind& kind : WizardPrinterKinds(m_session.LayoutDb)) {
        auto* item = new QListWidgetItem(kind.Name, m_kinds);
        item->setData(Qt::UserRole, kind.DeviceType);
    }
    connect(m_printers, &QListWidget::itemSelectionChanged, this, [this] {
        const auto chosen = m_printers->selectedItems();
        m_answers.PrinterName = chosen.isEmpty() ? QString() : chosen.constFirst()->text();
    });
    connect(m_kinds, &QListWidget::itemSelectionChanged, this, [this] {
        for (const QListWidgetItem* chosen : m_kinds->selectedItems()) {
            m_answers.PrinterKindName = chosen->text();
            Skip("printer kind",
                 [&] { m_answers.PrinterKind = ToLong(chosen->data(Qt::UserRole).toString()); });
        }
    });
    auto* row = new QHBoxLayout(page);
    row->addWidget(m_printers);
    row->addWidget(m_kinds);
    return page;
}

QWidget* frmWizard::MakeFieldsPage()
{
    auto* page = new QWidget;
    m_enableFields =
        MakeControl<QCheckBox>("chkEnableFields", QStringLiteral("Card has data fileds"), page);
    m_autoAdd = MakeControl<QCheckBox>("chkAutoAdd",
                                       QStringLiteral("Dynamically add fields to card"), page);
    const QString howMany = QStringLiteral("How many data fields would you like on you card");
    m_fieldsCaption = MakeControl<QLabel>("lblCaption", howMany, page);
    m_fieldCount = MakeControl<QLabel>("lblFields", QStringLiteral("0"), page);
    m_fields = MakeControl<DesktopUpDown>("udFields", howMany, page);
    m_fields->SetRange(0, MostFields);
    connect(m_enableFields, &QCheckBox::toggled, this, &frmWizard::OnEnableFields);
    connect(m_autoAdd, &QCheckBox::toggled, this, &frmWizard::OnAutoAdd);
    connect(m_fields, &DesktopUpDown::ValueChanged, m_fieldCount,
            [this](int count) { m_fieldCount->setText(QString::number(count)); });
    auto* row = new QHBoxLayout;
    row->addWidget(m_fieldsCaption);
    row->addWidget(m_fieldCount);
    row->addWidget(m_fields);
    row->addStretch();
    auto* column = new QVBoxLayout(page);
    column->addWidget(m_enableFields);
    column->addWidget(m_autoAdd);
    column->addLayout(row);
    column->addStretch();
    return page;
}

QWidget* frmWizard::MakeSummaryPage()
{
    auto* page = MakeControl<QWidget>("pgSummary");
    m_summary = new QGridLayout;
    m_summary->setColumnStretch(1, 1);
    auto* column = new QVBoxLayout(page);
    column->addLayout(m_summary);
    column->addStretch();
    int row = 0;
    for (const SummaryLine& line : SummaryOf(m_answers)) {
        auto* value = new QLabel(page);
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        m_summary->addWidget(new QLabel(QLatin1StringView(line.Caption), page), row, 0);
        m_summary->addWidget(value, row, 1);
        ++row;
    }
    return page;
}

} // namespace vantrel
