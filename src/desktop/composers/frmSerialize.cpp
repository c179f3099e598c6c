#include "desktop/composers/frmSerialize.h"
#include "desktop/composers/DesktopElementRow.h"
#include "desktop/composers/DesktopElementTree.h"
#include "desktop/composers/DesktopPreview.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/ScreenUnits.h"
#include "station/session/Session.h"
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double LeftTwips = 1800;
constexpr double TopTwips = 1500;
constexpr QSize FirstSize{720, 400};

} // namespace

frmSerialize::frmSerialize(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_composer(session),
      m_tree(MakeControl<DesktopElementTree>("tvwData", QStringLiteral("Stream Elements"), this)),
      m_stream(MakeControl<DesktopElementRow>("OStream", QStringLiteral("T1Element"),
                                              QStringLiteral("Output Stream"), this)),
      m_preview(MakePreview(QStringLiteral("Output with the last record"), this)),
      m_filter(MakeControl<QLineEdit>("txtFilter", m_composer.Filter(), this))
{
    setObjectName(QStringLiteral("frmSerialize"));
    setWindowTitle(QStringLiteral("Data Stream Serializer"));
    move(ScreenPixels(LeftTwips), ScreenPixels(TopTwips));
    auto* parts = new QHBoxLayout;
    parts->addLayout(MakeElementPart(), 2);
    parts->addLayout(MakeStreamPart(), 3);
    auto* column = new QVBoxLayout(this);
    column->addLayout(parts, 1);
    column->addLayout(MakeButtons());
    resize(FirstSize);
    ShowRow();
    connect(&session.Face, &StationFace::FieldsChanged, this, &frmSerialize::ShowText);
}

QLayout* frmSerialize::MakeElementPart()
{
    m_tree->SetNodes(m_composer.Nodes());
    connect(m_tree, &DesktopElementTree::Chosen, this, &frmSerialize::Drop);
    auto* caption = new QLabel(QStringLiteral("Stream &Elements"), this);
    caption->setBuddy(m_tree);
    auto* column = new QVBoxLayout;
    column->addWidget(caption);
    column->addWidget(m_tree);
    return column;
}

QLayout* frmSerialize::MakeStreamPart()
{
    m_preview->setObjectName(QStringLiteral("OStreamPreview"));
    m_stream->SetBackColor(ColorWhite);
    connect(m_stream, &DesktopElementRow::Dropped, this, &frmSerialize::Drop);
    connect(m_stream, &DesktopElementRow::Opened, this, &frmSerialize::OpenElement);
    connect(m_stream, &DesktopElementRow::RightReleased, this, &frmSerialize::OfferRemoval);
    connect(m_stream, &DesktopElementRow::DeletePressed, this, [this](int index) {
        m_composer.Remember(index);
        RemoveElement();
    });
    connect(m_filter, &QLineEdit::textChanged, this, &frmSerialize::ShowText);

    auto* caption = new QLabel(QStringLiteral("&Output Stream"), this);
    caption->setBuddy(m_stream);
    auto* filter = new QFormLayout;
    filter->addRow(QStringLiteral("&Filter"), m_filter);
    auto* column = new QVBoxLayout;
    column->addWidget(caption);
    column->addWidget(m_stream);
    column->addWidget(m_preview);
    column->addLayout(filter);
    column->addStretch();
    column->addWidget(MakeHint(
        QStringLiteral("Drag elements onto the stream, or press Enter on one. Double-click a text "
                       "to change it; Delete or the right button removes an element."),
        this));
    return column;
}

QLayout* frmSerialize::MakeButtons()
{
    auto* clear = MakeControl<QPushButton>("cmdClear", QStringLiteral("&Clear"), this);
    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this);
    auto* cancel = MakeControl<QPushButton>("cmdExit", QStringLiteral("&Cancel"), this);
    save->setDefault(true);
    for (QPushButton* other : {clear, cancel})
        other->setAutoDefault(false);
    connect(clear, &QPushButton::clicked, this, [this] {
        m_composer.Clear();
        ShowRow();
    });
    connect(save, &QPushButton::clicked, this, &frmSerialize::Save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(clear);
    row->addStretch();
    row->addWidget(save);
    row->addWidget(cancel);
    return row;
}

void frmSerialize::Drop(const QString& key)
{
    m_composer.Drop(key);
    ShowRow();
}

void frmSerialize::OpenElement(int index)
{
    const StreamElement* const element = m_composer.Find(index);
    if (element == nullptr || !element->IsText())
        return;
    const QPointer<frmSerialize> self(this);
    const QString answer = AskStreamText(m_session.Operator);
    if (self.isNull())
        return;
    if (StreamElement* const text = m_composer.Find(index))
        text->SetText(answer);
    ShowRow();
}

void frmSerialize::OfferRemoval(int index, const QPoint& globalPosition)
{
    m_composer.Remember(index);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* remove = menu->addAction(QStringLiteral("&Remove Element"));
    remove->setObjectName(QStringLiteral("cmdRemove"));
    connect(remove, &QAction::triggered, this, &frmSerialize::RemoveElement);
    menu->popup(globalPosition);
}

void frmSerialize::RemoveElement()
{
    m_composer.RemoveRemembered();
    ShowRow();
}

void frmSerialize::Save()
{
    m_composer.SaveStreamElements(m_filter->text());
    accept();
}

void frmSerialize::ShowRow()
{
    std::vector<DesktopElementRow::Shown> shown;
    for (const StreamElement& element : m_composer.Row())
        shown.push_back({LookOf(element), element.ToolTipText});
    m_stream->SetElements(shown);
    ShowText();
}

void frmSerialize::ShowText()
{
    ShowPreview(*m_preview, m_composer.Preview(m_filter->text()), {});
}

} // namespace vantrel
