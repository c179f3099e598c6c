#include "desktop/window/frmNav.h"
#include "desktop/controls/Contrast.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/dialogs/frmGetLayout.h"
#include "desktop/window/NavIcons.h"
#include "station/commands/Commands.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/Navigation.h"
#include <QEvent>
#include <QGridLayout>
#include <QToolButton>

namespace vantrel {

namespace {

constexpr double LeftOfMainWidth = 1650;
constexpr double TopOfWorkspace = 200;
constexpr int ButtonSize = 34;
constexpr int IconSize = 18;

struct NavButton
{
    const char* Name;
    const char* Meaning;
    NavPicture Picture;
    bool NeedsLayout;
    int Row;
    int Column;
    void (*Action)(Session& session, QWidget* parent);
};

constexpr NavButton Buttons[] = {
    {"cmdPrev", "Previous Page", NavPicture::Previous, true, 0, 0,
     [](Session& session, QWidget* /*parent*/) { PreviousPage(session); }},
    {"cmdNext", "Next Page", NavPicture::Next, true, 0, 1,
     [](Session& session, QWidget* /*parent*/) { NextPage(session); }},
    {"cmdNewPage", "New Page", NavPicture::NewPage, true, 1, 0,
     [](Session& session, QWidget* /*parent*/) { NewPageCommand(session); }},
    {"cmdDelete", "Delete Page", NavPicture::DeletePage, true, 1, 1,
     [](Session& session, QWidget* /*parent*/) { DeletePageCommand(session); }},
    {"cmdOpen", "Open Layout", NavPicture::Open, false, 2, 0,
     [](Session& session, QWidget* parent) { OpenDialog<frmGetLayout>(session, parent); }},
    {"cmdSave", "Save Page", NavPicture::Save, true, 2, 1,
     [](Session& session, QWidget* /*parent*/) { SaveCommand(session); }},
};

} // namespace

frmNav::frmNav(Session& session, QWidget* parent) : QFrame(parent), m_session(session)
{
    setObjectName(QStringLiteral("frmNav"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setSpacing(2);
    for (const NavButton& entry : Buttons) {
        auto* button = new QToolButton(this);
        button->setObjectName(QLatin1StringView(entry.Name));
        button->setAccessibleName(QLatin1StringView(entry.Meaning));
        button->setToolTip(QLatin1StringView(entry.Meaning));
        button->setIconSize({IconSize, IconSize});
        button->setFixedSize(ButtonSize, ButtonSize);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        connect(
            button, &QToolButton::clicked, this,
            [this, &entry] {
                RunOrEnd([&] {
                    NoteDesign(m_session);
                    entry.Action(m_session, window());
                    NoteDesign(m_session);
                });
            },
            Qt::QueuedConnection);
        grid->addWidget(button, entry.Row, entry.Column);
    }
    DrawIcons();
    adjustSize();
}

void frmNav::DrawIcons()
{
    const QColor ink =
        InkOn(palette().color(QPalette::Window), palette().color(QPalette::ButtonText));
    for (const NavButton& entry : Buttons)
        findChild<QToolButton*>(QLatin1StringView(entry.Name))
            ->setIcon(NavIcon(entry.Picture, ink));
}

void frmNav::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        DrawIcons();
}

void frmNav::KeepPlace(int mainWidth, int top)
{
    move(mainWidth - ScreenPixels(LeftOfMainWidth), top + ScreenPixels(TopOfWorkspace));
    raise();
}

void frmNav::SetLayoutCommandsEnabled(bool enabled)
{
    for (const NavButton& entry : Buttons) {
        if (entry.NeedsLayout)
            findChild<QToolButton*>(QLatin1StringView(entry.Name))->setEnabled(enabled);
    }
}

void frmNav::TakeColor(const QColor& color)
{
    QPalette colored = palette();
    colored.setColor(QPalette::Window, color);
    setPalette(colored);
}

void frmNav::enterEvent(QEnterEvent* event)
{
    QFrame::enterEvent(event);
    raise();
}

} // namespace vantrel
