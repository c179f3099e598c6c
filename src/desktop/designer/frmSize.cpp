#include "desktop/designer/frmSize.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/controls/ScreenUnits.h"
#include "station/session/Session.h"
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

namespace vantrel {

namespace {

constexpr double DialogTop = 3000;
constexpr double DialogLeft = 2000;
constexpr int FieldCharacters = 8;

struct FieldRow
{
    SizeField Field;
    const char* TextName;
    const char* ArrowsName;
    const char* Caption;
};

constexpr FieldRow Rows[] = {
    {SizeField::Top, "txtTop", "udTop", "&Top"},
    {SizeField::Left, "txtLeft", "udLeft", "&Left"},
    {SizeField::Height, "txtHeight", "udHeight", "&Height"},
    {SizeField::Width, "txtWidth", "udWidth", "&Width"},
};

} // namespace

frmSize::frmSize(Session& session, QWidget* parent) : QDialog(parent), m_session(session)
{
    const SizeFields fields = SizeFieldsOfSelected(session.Document);
    setObjectName(QStringLiteral("frmSize"));
    setWindowTitle(QStringLiteral(" Adjust Size"));
    auto* grid = new QGridLayout(this);
    int line = 0;
    for (const FieldRow& row : Rows) {
        const auto index = static_cast<std::size_t>(row.Field);
        auto* caption = new QLabel(QLatin1StringView(row.Caption), this);
        const QString name = caption->text().remove(QLatin1Char('&'));
        auto* text = MakeControl<QLineEdit>(row.TextName, fields[index], this);
        text->setAccessibleName(name);
        text->setAlignment(Qt::AlignRight);
        text->setMinimumWidth(text->fontMetrics().averageCharWidth() * FieldCharacters);
        caption->setBuddy(text);
        text->installEventFilter(this);
        auto* arrows = MakeControl<DesktopUpDown>(row.ArrowsName, name, this);
        arrows->StandBeside(*text);
        connect(arrows, &DesktopUpDown::Up, this, [this, &row] { Step(row.Field, StepUp); });
        connect(arrows, &DesktopUpDown::Down, this, [this, &row] { Step(row.Field, StepDown); });
        grid->addWidget(caption, line, 0);
        grid->addWidget(text, line, 1);
        grid->addWidget(arrows, line, 2);
        grid->addWidget(new QLabel(QStringLiteral("twips"), this), line, 3);
        m_fields[index] = text;
        ++line;
    }
    grid->setSizeConstraint(QLayout::SetFixedSize);
    move(ScreenPixels(DialogLeft), ScreenPixels(DialogTop));
}

bool frmSize::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const auto found = std::find(m_fields.begin(), m_fields.end(), watched);
    if (found == m_fields.end() || (key != Qt::Key_Up && key != Qt::Key_Down))
        return QDialog::eventFilter(watched, event);
    Step(static_cast<SizeField>(found - m_fields.begin()), key == Qt::Key_Up ? StepUp : StepDown);
    return true;
}

void frmSize::Step(SizeField field, void (*step)(QString& text))
{
    SizeFields fields;
    for (std::size_t index = 0; index < fields.size(); ++index)
        fields[index] = m_fields[index]->text();
    const auto stepped = static_cast<std::size_t>(field);
    step(fields[stepped]);
    m_fields[stepped]->setText(fields[stepped]);
    RunOrEnd([&] { ApplySizeFields(m_session.Document, fields); });
}

} // namespace vantrel
