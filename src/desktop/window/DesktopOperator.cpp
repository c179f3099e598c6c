#include "desktop/window/DesktopOperator.h"
#include "base/DesktopColor.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopFont.h"
#include "desktop/controls/DesktopOwner.h"
#include "desktop/window/frmMessage.h"
#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

namespace vantrel {

namespace {

/// A box whose text is shown unchanged and never read as markup.
void SetPlainText(QMessageBox& box, const QString& title, const QString& text)
{
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(ShownTitle(title));
    box.setText(ShownLine(text));
}

QMessageBox::Icon SignOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// Shows a box that belongs to the window it comes from, and waits. The main window owns it
/// nevertheless, since any other window may be deleted while the box is open.
int Ask(QDialog& box)
{
    BelongTo(box, WindowInUse());
    return box.exec();
}

} // namespace

bool DesktopOperator::ShowAppMessage(const QString& text, const QString& title,
                                     AppMessageButtons buttons)
{
    frmMessage box(text, title, buttons, m_mainWindow);
    return Ask(box) == QDialog::Accepted;
}

void DesktopOperator::MessageBox(const QString& text, const QString& title, BoxIcon icon)
{
    QMessageBox box(m_mainWindow);
    SetPlainText(box, title, text);
    box.setIcon(SignOf(icon));
    box.setStandardButtons(QMessageBox::Ok);
    Ask(box);
}

bool DesktopOperator::AskYesNo(const QString& text, const QString& title)
{
    QMessageBox box(m_mainWindow);
    SetPlainText(box, title, text);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    return Ask(box) == QMessageBox::Yes;
}

BoxAnswer DesktopOperator::AskYesNoCancel(const QString& text, const QString& title)
{
    QMessageBox box(m_mainWindow);
    SetPlainText(box, title, text);
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    switch (Ask(box)) {
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    default:
        return BoxAnswer::Cancel;
    }
}

QString DesktopOperator::InputBox(const QString& prompt, const QString& title,
                                  const QString& present)
{
    QInputDialog box(m_mainWindow);
    box.setWindowTitle(ShownTitle(title));
    box.setLabelText(prompt);
    box.setTextValue(present);
    // The size of the box follows from its contents.
    box.findChild<QLineEdit*>()->setMinimumWidth(WidthForTitle(title));
    return Ask(box) == QDialog::Accepted ? box.textValue() : QString();
}

std::optional<Font> DesktopOperator::AskFont(const Font& present)
{
    QFontDialog box(DialogFont(present), m_mainWindow);
    box.setOption(QFontDialog::DontUseNativeDialog);
    const Font shown = StoredFont(box.currentFont());
    if (Ask(box) != QDialog::Accepted)
        return std::nullopt;
    Font chosen = StoredFont(box.selectedFont());
    // The dialog knows whole sizes and installed fonts only, so values that the operator did not
    // change are kept as they were.
    if (chosen.Name == shown.Name)
        chosen.Name = present.Name;
    if (chosen.Size == shown.Size)
        chosen.Size = present.Size;
    return chosen;
}

std::optional<ColorValue> DesktopOperator::AskColor(ColorValue present)
{
    QColorDialog box(ColorOf(present), m_mainWindow);
    box.setOption(QColorDialog::DontUseNativeDialog);
    if (Ask(box) != QDialog::Accepted)
        return std::nullopt;
    return ColorValueOf(box.selectedColor());
}

void DesktopOperator::OpenCameraDialog()
{
    if (m_openCamera)
        m_openCamera();
}

void DesktopOperator::LetEventsRun()
{
    QCoreApplication::processEvents();
}

void DesktopOperator::ShowBusyPointer(bool busy)
{
    if (busy == m_busy)
        return;
    m_busy = busy;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace vantrel
