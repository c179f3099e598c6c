#include "desktop/composers/frmPad.h"
#include "base/Convert.h"
#include "card/ShownValues.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopSample.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/RunTimeError.h"
#include "station/compose/FieldDialogs.h"
#include "station/session/Session.h"
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <limits>

namespace vantrel {

namespace {

constexpr int LongestLength = std::numeric_limits<std::int16_t>::max();
constexpr int FewestFieldsSeen = 6;
constexpr int SampleCharacters = 48;

/// The two directions by their numbers.
constexpr const char* DirectionNames[] = {"optDirection(0)", "optDirection(1)"};
constexpr const char* DirectionCaptions[] = {"Left", "Right"};

} // namespace

frmPad::frmPad(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_fields(MakeControl<QTreeWidget>("tvwData", this)),
      m_data(MakeControl<QLineEdit>("txtData", this)),
      m_length(MakeControl<QLineEdit>("txtLength", this)),
      m_arrows(MakeControl<DesktopUpDown>("udLength", QStringLiteral("Final Length"), this)),
      m_save(MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this))
{
    setObjectName(QStringLiteral("frmPad"));
    setWindowTitle(QStringLiteral("Data Padding"));
    BeginPad(session.Pad);
    BuildFields();
    BuildControls();
    ShowLength(0);
}

void frmPad::BuildFields()
{
    m_fields->setAccessibleName(QStringLiteral("Data Fields"));
    m_fields->setHeaderHidden(true);
    m_fields->setRootIsDecorated(false);
    m_fields->setMinimumHeight(FewestFieldsSeen * fontMetrics().lineSpacing() * 3 / 2);
    int number = 0;
    for (const QString& text : PadFieldTexts(m_session.FieldValues)) {
        auto* node = new QTreeWidgetItem(m_fields, {text});
        node->setData(0, Qt::UserRole, QStringLiteral("KEY=%1").arg(++number));
    }
    connect(m_fields, &QTreeWidget::itemSelectionChanged, this, &frmPad::ChooseField);
}

void frmPad::BuildControls()
{
    auto* length = new QHBoxLayout;
    length->setSpacing(0);
    length->addWidget(m_length);
    length->addWidget(m_arrows);
    m_arrows->StandBeside(*m_length);
    m_length->setAccessibleName(m_arrows->accessibleName());
    m_arrows->SetRange(0, LongestLength);
    connect(m_arrows, &DesktopUpDown::ValueChanged, this, &frmPad::ShowLength);
    connect(m_length, &QLineEdit::textChanged, this, &frmPad::FollowLengthText);

    auto* group = new QGroupBox(QStringLiteral("Direction"), this);
    auto* sides = new QHBoxLayout(group);
    for (std::size_t side = 0; side < std::size(DirectionNames); ++side) {
        m_directions[side] = MakeControl<QRadioButton>(
            DirectionNames[side], QLatin1StringView(DirectionCaptions[side]), group);
        sides->addWidget(m_directions[side]);
    }
    m_directions[0]->setChecked(true);
    setTabOrder(m_directions[std::size(m_directions) - 1], m_save);

    m_save->setDefault(true);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    connect(m_save, &QPushButton::clicked, this, [this] { RunOrEnd([this] { Save(); }); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_save);
    buttons->addWidget(cancel);

    auto* entries = new QFormLayout;
    entries->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    entries->addRow(QStringLiteral("Data"), m_data);
    auto* lengthLabel = new QLabel(QStringLiteral("Final Length"), this);
    lengthLabel->setBuddy(m_length);
    lengthLabel->setMinimumHeight(m_arrows->sizeHint().height());
    entries->addRow(lengthLabel, length);
    auto* right = new QVBoxLayout;
    right->addLayout(entries);
    right->addWidget(group);
    right->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(m_fields);
    top->addLayout(right);
    auto* column = new QVBoxLayout(this);
    column->addLayout(top);
    if (m_session.Options.DesignTools)
        column->addWidget(MakeSample());
    column->addLayout(buttons);
    // The focus is not given to the list, where its frame would look like a chosen line.
    m_data->setFocus();
}

QWidget* frmPad::MakeSample()
{
    m_sample = MakeControl<DesktopSample>("picSample", SampleCharacters, this);
    connect(m_data, &QLineEdit::textChanged, this, &frmPad::ShowSample);
    connect(m_length, &QLineEdit::textChanged, this, &frmPad::ShowSample);
    connect(m_fields, &QTreeWidget::itemSelectionChanged, this, &frmPad::ShowSample);
    for (const QRadioButton* side : m_directions)
        connect(side, &QRadioButton::toggled, this, &frmPad::ShowSample);
    return m_sample;
}

void frmPad::ShowSample()
{
    m_sample->Show(SampleOfPad(m_session, m_data->text(), m_length->text(), Direction()));
}

void frmPad::Show_Data(const QString& padChars, std::int16_t padLen, std::int32_t padDirection)
{
    m_data->setText(padChars);
    m_arrows->SetValue(padLen);
    ShowLength(m_arrows->Value());
    m_direction = padDirection;
    for (std::size_t side = 0; side < std::size(m_directions); ++side) {
        // Only a group that is not exclusive can have neither button checked.
        m_directions[side]->setAutoExclusive(false);
        m_directions[side]->setChecked(padDirection == static_cast<std::int32_t>(side));
        m_directions[side]->setAutoExclusive(true);
    }
    exec();
}

void frmPad::ChooseField()
{
    const QList<QTreeWidgetItem*> chosen = m_fields->selectedItems();
    if (!chosen.isEmpty())
        RunOrEnd([&] { ChoosePadField(m_session.Pad, chosen.constFirst()->text(0)); });
}

void frmPad::ShowLength(int length)
{
    m_length->setText(PadLengthText(length));
}

void frmPad::FollowLengthText()
{
    const bool valid = IsPadLength(m_length->text());
    QPalette colors = m_length->palette();
    colors.setColor(QPalette::Base, valid ? Qt::white : Qt::red);
    colors.setColor(QPalette::Text, valid ? Qt::black : Qt::white);
    m_length->setPalette(colors);
    // A length that is no number could not be saved.
    m_save->setEnabled(valid);
    if (valid) {
        const QSignalBlocker keepText(m_arrows);
        m_arrows->SetValue(ToInteger(m_length->text()));
    }
}

std::int32_t frmPad::Direction() const
{
    std::int32_t direction = m_direction;
    for (std::size_t side = 0; side < std::size(m_directions); ++side) {
        if (m_directions[side]->isChecked())
            direction = static_cast<std::int32_t>(side);
    }
    return direction;
}

void frmPad::Save()
{
    SavePad(m_session.Pad, m_data->text(), m_length->text(), Direction());
    accept();
}

} // namespace vantrel
