#include "desktop/designer/frmPlace.h"
#include "base/LengthUnit.h"
#include "card/ObjectArrange.h"
#include "card/ObjectNames.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/controls/ScreenUnits.h"
#include "station/commands/OptionsCommand.h"
#include "station/commands/PlaceCommands.h"
#include "station/session/Session.h"
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr double DialogTop = 3000;
constexpr double DialogLeft = 2000;
constexpr int FieldCharacters = 12;
constexpr int TextCharacters = 34;

struct FieldRow
{
    PlaceSide Side;
    const char* TextName;
    const char* ArrowsName;
    const char* Caption;
};

constexpr FieldRow Rows[] = {
    {PlaceSide::Left, "txtLeft", "udLeft", "&Left"},
    {PlaceSide::Top, "txtTop", "udTop", "&Top"},
    {PlaceSide::Width, "txtWidth", "udWidth", "&Width"},
    {PlaceSide::Height, "txtHeight", "udHeight", "&Height"},
};

/// The units in words, in the order of `LengthUnit`.
constexpr const char* UnitCaptions[] = {"Millimetres", "Inches", "Twips"};

/// What is selected, in a line.
QString SelectionText(const CardDocument& document, const QFontMetrics& metrics, int width)
{
    const std::vector<CardObject*> objects = SelectedObjects(document);
    if (objects.empty())
        return QStringLiteral("No object is selected.");
    if (objects.size() > 1)
        return QStringLiteral("%1 objects").arg(objects.size());
    const QString text = ShownLine(ObjectText(*objects.front()).simplified());
    const QString kind = ObjectKind(*objects.front());
    return text.isEmpty()
               ? kind
               : metrics.elidedText(kind + QStringLiteral(": ") + text, Qt::ElideRight, width);
}

} // namespace

frmPlace::frmPlace(Session& session, QWidget* parent)
    // As a tool of the main window it stays above it, and the menu's keys work in it.
    : QDialog(parent, Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_session(session), m_object(MakeControl<QLabel>("lblObject", this)),
      m_told(MakeControl<QLabel>("lblTold", this)), m_units(MakeControl<QComboBox>("cboUnit", this))
{
    setObjectName(QStringLiteral("frmPlace"));
    setWindowTitle(QStringLiteral("Place and Size"));
    const int width = fontMetrics().averageCharWidth() * TextCharacters;
    m_object->setTextFormat(Qt::PlainText);
    m_object->setFixedWidth(width);
    m_told->setTextFormat(Qt::PlainText);
    m_told->setWordWrap(true);
    m_told->setFixedWidth(width);
    m_told->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_told->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_object);
    column->addWidget(MakeFields());
    column->addWidget(m_told);
    column->setSizeConstraint(QLayout::SetFixedSize);
    connect(&session.Document, &CardDocument::Shown, this, &frmPlace::FollowSoon);
    connect(&session.Document, &CardDocument::Hidden, this, &frmPlace::FollowSoon);
    connect(&session.Document, &CardDocument::Changed, this, &frmPlace::FollowSoon);
    connect(&session.Face, &StationFace::DesignChanged, this, &frmPlace::FollowSoon);
    Follow();
    move(ScreenPixels(DialogLeft), ScreenPixels(DialogTop));
}

frmPlace::~frmPlace()
{
    // A field that still has the focus is left when it goes, and by then there is no window to take
    // what was typed.
    for (QLineEdit* field : m_fields)
        field->disconnect(this);
}

QWidget* frmPlace::MakeFields()
{
    auto* fields = new QWidget(this);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    int line = 0;
    for (const FieldRow& row : Rows) {
        auto* caption = new QLabel(QLatin1StringView(row.Caption), fields);
        const QString name = caption->text().remove(u'&');
        auto* text = MakeControl<QLineEdit>(row.TextName, fields);
        text->setAccessibleName(name);
        text->setAlignment(Qt::AlignRight);
        text->setMinimumWidth(text->fontMetrics().averageCharWidth() * FieldCharacters);
        caption->setBuddy(text);
        text->installEventFilter(this);
        auto* arrows = MakeControl<DesktopUpDown>(row.ArrowsName, name, fields);
        arrows->StandBeside(*text);
        connect(text, &QLineEdit::editingFinished, this, [this, &row] { Take(row.Side); });
        connect(arrows, &DesktopUpDown::Up, this, [this, &row] { Step(row.Side, 1); });
        connect(arrows, &DesktopUpDown::Down, this, [this, &row] { Step(row.Side, -1); });
        grid->addWidget(caption, line, 0);
        grid->addWidget(text, line, 1);
        grid->addWidget(arrows, line, 2);
        m_fields[static_cast<std::size_t>(row.Side)] = text;
        ++line;
    }
    MakeUnits();
    auto* caption = new QLabel(QStringLiteral("&Unit"), fields);
    caption->setBuddy(m_units);
    grid->addWidget(caption, line, 0);
    grid->addWidget(m_units, line, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    return fields;
}

void frmPlace::MakeUnits()
{
    for (const char* unit : UnitCaptions)
        m_units->addItem(QLatin1StringView(unit));
    m_units->setAccessibleName(QStringLiteral("Unit"));
    m_units->setAccessibleDescription(QStringLiteral("The unit in which lengths are shown"));
    connect(m_units, &QComboBox::activated, this, &frmPlace::ChooseUnit);
}

bool frmPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const auto found = std::ranges::find(m_fields, watched);
    if (found == m_fields.end() || (key != Qt::Key_Up && key != Qt::Key_Down))
        return QDialog::eventFilter(watched, event);
    Step(static_cast<PlaceSide>(found - m_fields.begin()), key == Qt::Key_Up ? 1 : -1);
    return true;
}

void frmPlace::reject()
{
    for (const FieldRow& row : Rows)
        Show(row.Side);
    QDialog::reject();
}

void frmPlace::FollowSoon()
{
    // A record changes every object of the page; the fields follow once for all of them.
    if (m_followAsked)
        return;
    m_followAsked = true;
    QMetaObject::invokeMethod(this, &frmPlace::Follow, Qt::QueuedConnection);
}

void frmPlace::Follow()
{
    m_followAsked = false;
    m_object->setText(
        SelectionText(m_session.Document, m_object->fontMetrics(), m_object->width()));
    m_units->setCurrentIndex(static_cast<int>(m_session.Options.Unit));
    const std::vector<CardObject*> objects = SelectedObjects(m_session.Document);
    const bool areOthers = objects != std::exchange(m_shown, objects);
    if (areOthers)
        m_told->clear();
    for (const FieldRow& row : Rows) {
        QLineEdit& field = *m_fields[static_cast<std::size_t>(row.Side)];
        field.setEnabled(!objects.empty());
        field.setPlaceholderText(objects.size() > 1 ? QStringLiteral("different") : QString());
        // What is being typed for these objects is left alone.
        if (areOthers || !field.hasFocus() || !field.isModified())
            Show(row.Side);
    }
}

void frmPlace::Show(PlaceSide side)
{
    QLineEdit& field = *m_fields[static_cast<std::size_t>(side)];
    const QString text = SelectedSideText(m_session, side);
    if (field.text() != text)
        field.setText(text);
    field.setModified(false);
}

void frmPlace::Take(PlaceSide side)
{
    QLineEdit& field = *m_fields[static_cast<std::size_t>(side)];
    if (!field.isModified())
        return;
    field.setModified(false);
    // What was typed for other objects must not move those that are selected now.
    if (SelectedObjects(m_session.Document) != m_shown) {
        Show(side);
        return;
    }
    RunOrEnd([&] {
        const QString wrong = TypeSelectedSide(m_session, side, field.text());
        m_told->setText(wrong.isEmpty()
                            ? QString()
                            : QString(wrong + QStringLiteral(" The old value is kept.")));
    });
    Show(side);
    if (field.hasFocus())
        field.selectAll();
}

void frmPlace::Step(PlaceSide side, int steps)
{
    Take(side);
    RunOrEnd([&] { StepSelectedSide(m_session, side, steps); });
    Show(side);
}

void frmPlace::ChooseUnit(int unit)
{
    const StationOptions before = m_session.Options;
    StationOptions chosen = before;
    chosen.Unit = static_cast<LengthUnit>(unit);
    SaveOptions(m_session, before, chosen);
    m_session.Face.NotifyDesign();
    Follow();
}

} // namespace vantrel
