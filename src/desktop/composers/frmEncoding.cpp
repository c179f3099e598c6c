#include "desktop/composers/frmEncoding.h"
#include "base/Skip.h"
#include "desktop/composers/DesktopElementRow.h"
#include "desktop/composers/DesktopElementTree.h"
#include "desktop/composers/DesktopPreview.h"
#include "desktop/composers/frmPad.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopOwner.h"
#include "desktop/controls/RunTimeError.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr ColorValue SelectedColor = ColorWhite;
constexpr ColorValue OtherColor = 14074048;
constexpr double LiftTwips = 200;
constexpr QSize FirstSize{720, 480};

} // namespace

frmEncoding::frmEncoding(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_composer(session),
      m_tree(MakeControl<DesktopElementTree>("tvwData", QStringLiteral("Elements"), this)),
      m_clear(MakeControl<QPushButton>("cmdClear", QStringLiteral("C&lear Track"), this)),
      m_save(MakeControl<QPushButton>("cmdOk", QStringLiteral("&Save Settings"), this))
{
    setObjectName(QStringLiteral("frmEncoding"));
    setWindowTitle(QStringLiteral("Magnetic Track Encoding"));
    auto* parts = new QHBoxLayout;
    parts->addLayout(MakeElementPart(), 2);
    parts->addLayout(MakeTrackPart(), 3);
    auto* column = new QVBoxLayout(this);
    column->addLayout(parts, 1);
    column->addLayout(MakeButtons());
    resize(FirstSize);
    CentreOver(*this, parent, LiftTwips);

    QWidget* before = m_tree;
    for (const TrackView& track : m_tracks) {
        setTabOrder(before, track.Row);
        before = track.Row;
    }
    setTabOrder(before, m_clear);

    for (int track = 1; track <= TrackCount; ++track)
        ShowRow(track);
    ShowSelected();
    EnableButtons();
    connect(&session.Face, &StationFace::FieldsChanged, this, &frmEncoding::ShowPreviews);
    // The caption changes before a layout has been opened or closed completely, so this is queued.
    connect(&session.Face, &StationFace::CaptionChanged, this, &frmEncoding::EnableButtons,
            Qt::QueuedConnection);
}

QLayout* frmEncoding::MakeElementPart()
{
    m_tree->SetNodes(m_composer.Nodes());
    connect(m_tree, &DesktopElementTree::Chosen, this, &frmEncoding::Append);
    auto* caption = new QLabel(QStringLiteral("&Elements"), this);
    caption->setBuddy(m_tree);
    auto* column = new QVBoxLayout;
    column->addWidget(caption);
    column->addWidget(m_tree);
    return column;
}

frmEncoding::TrackView frmEncoding::MakeTrack(int track)
{
    const QString name = QStringLiteral("Track%1").arg(track);
    auto* row = new DesktopElementRow(QStringLiteral("T%1Element").arg(track),
                                      QStringLiteral("Track %1").arg(track), this);
    row->setObjectName(name);
    connect(row, &DesktopElementRow::Clicked, this, [this, track] { Select(track); });
    connect(row, &DesktopElementRow::Dropped, this,
            [this, track](const QString& key) { Drop(track, key); });
    connect(row, &DesktopElementRow::Opened, this,
            [this, track](int index) { OpenElement(track, index); });
    auto* preview = MakePreview(QStringLiteral("Track %1 with the last record").arg(track), this);
    preview->setObjectName(name + QStringLiteral("Preview"));
    return {row, preview};
}

QLayout* frmEncoding::MakeTrackPart()
{
    auto* column = new QVBoxLayout;
    for (int track = 1; track <= TrackCount; ++track) {
        TrackView& view = m_tracks[static_cast<std::size_t>(track - 1)];
        view = MakeTrack(track);
        auto* caption = new QLabel(QStringLiteral("Track &%1").arg(track), this);
        caption->setBuddy(view.Row);
        column->addWidget(caption);
        column->addWidget(view.Row);
        column->addWidget(view.Preview);
        column->addStretch();
    }
    column->addWidget(MakeHint(
        QStringLiteral("Drag elements onto a track, or click a track and press Enter on an "
                       "element. Double-click an element to set its text or padding."),
        this));
    return column;
}

QLayout* frmEncoding::MakeButtons()
{
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    m_save->setDefault(true);
    for (QPushButton* other : {m_clear, cancel})
        other->setAutoDefault(false);
    connect(m_clear, &QPushButton::clicked, this, [this] {
        m_composer.ClearTrack();
        if (SelectedTrack() != 0)
            ShowRow(SelectedTrack());
    });
    connect(m_save, &QPushButton::clicked, this, &frmEncoding::Save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(m_clear);
    row->addStretch();
    row->addWidget(m_save);
    row->addWidget(cancel);
    return row;
}

void frmEncoding::Select(int track)
{
    m_composer.Select(track);
    ShowSelected();
}

void frmEncoding::Drop(int track, const QString& key)
{
    m_composer.Drop(track, key);
    ShowSelected();
    ShowRow(track);
}

void frmEncoding::Append(const QString& key)
{
    if (SelectedTrack() != 0)
        Drop(SelectedTrack(), key);
}

void frmEncoding::OpenElement(int track, int index)
{
    const TrackElement* const element = m_composer.Find(track, index);
    if (element == nullptr)
        return;
    if (element->Kind == TokenKind::FormattedField)
        OpenPad(track, index);
    else if (element->Kind == TokenKind::Literal)
        OpenStaticText(track, index);
}

void frmEncoding::OpenPad(int track, int index)
{
    const QPointer<frmEncoding> self(this);
    const PadResult present = ReadPad(m_composer.Find(track, index)->LinkItem);
    Skip("ask for padding", [&] {
        frmPad pad(m_session, parentWidget());
        BelongTo(pad, this);
        pad.Show_Data(present.PadChars, present.PadLen, present.PadDirection);
    });
    if (self.isNull())
        return;
    m_composer.TakePad(track, index);
    ShowRow(track);
}

void frmEncoding::OpenStaticText(int track, int index)
{
    const QPointer<frmEncoding> self(this);
    const QString present = m_composer.Find(track, index)->LinkItem;
    const QString answer = AskStaticText(m_session.Operator, present);
    if (self.isNull())
        return;
    if (TrackElement* const element = m_composer.Find(track, index))
        SetStaticText(*element, answer);
    ShowRow(track);
}

void frmEncoding::Save()
{
    RunOrEnd([this] {
        m_composer.Save();
        accept();
    });
}

void frmEncoding::ShowRow(int track)
{
    std::vector<DesktopElementRow::Shown> shown;
    for (const TrackElement& element : m_composer.Row(track))
        shown.push_back({LookOf(element), element.ToolTipText});
    m_tracks[static_cast<std::size_t>(track - 1)].Row->SetElements(shown);
    ShowPreviews();
}

void frmEncoding::ShowSelected()
{
    for (int track = 1; track <= TrackCount; ++track)
        m_tracks[static_cast<std::size_t>(track - 1)].Row->SetBackColor(
            track == SelectedTrack() ? SelectedColor : OtherColor);
}

void frmEncoding::ShowPreviews()
{
    for (int track = 1; track <= TrackCount; ++track) {
        const TrackPreview preview = m_composer.Preview(track);
        ShowPreview(*m_tracks[static_cast<std::size_t>(track - 1)].Preview, preview.Text,
                    preview.Remark);
    }
}

void frmEncoding::EnableButtons()
{
    m_clear->setEnabled(m_composer.HasLayout());
    m_save->setEnabled(m_composer.HasLayout());
}

} // namespace vantrel
