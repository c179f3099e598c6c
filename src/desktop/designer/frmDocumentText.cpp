// Texts edited in their place on the card, at a station with design tools.

#include "desktop/designer/DesktopTextInPlace.h"
#include "desktop/designer/frmDocument.h"
#include "station/commands/ObjectCommands.h"
#include "station/layout/DesignSteps.h"
#include "station/session/Session.h"

namespace vantrel {

void frmDocument::EditText()
{
    const CardDocument& document = m_session.Document;
    if (HasTools() && !IsDragging() && document.SelectedObject != nullptr &&
        document.SelectedObject->Family() == Family::lbl_TEXT)
        BeginText(*document.SelectedObject);
}

QWidget* frmDocument::TextField() const
{
    return m_text == nullptr || m_text->isHidden() ? nullptr : m_text.data();
}

void frmDocument::BeginText(const CardObject& object)
{
    TakeText();
    CloseSizeDialog();
    m_text = new DesktopTextInPlace(object, PageOnForm(m_session), this);
    connect(m_text, &DesktopTextInPlace::Taken, this, &frmDocument::TakeText);
    connect(m_text, &DesktopTextInPlace::Left, this, &frmDocument::EndText);
    connect(m_text, &DesktopTextInPlace::Grown, this, &frmDocument::PlaceText);
    PlaceText();
    Reveal(object);
    m_text->setFocus(Qt::OtherFocusReason);
}

void frmDocument::TakeText()
{
    DesktopTextInPlace* const text = m_text;
    // While another page is on the form the text waits for its own.
    if (text == nullptr || text->isHidden())
        return;
    const QString typed = text->toPlainText();
    const bool isChanged = text->document()->isModified();
    const int index = text->Index();
    EndText();
    if (!isChanged)
        return;
    NoteDesign(m_session);
    GiveText(m_session.Document, index, typed);
    NoteDesign(m_session);
}

void frmDocument::EndText()
{
    DesktopTextInPlace* const text = m_text;
    m_text.clear();
    if (text == nullptr)
        return;
    const bool hadFocus = text->hasFocus();
    text->disconnect(this);
    text->hide();
    // It may be inside one of its own events.
    text->deleteLater();
    if (hadFocus)
        setFocus(Qt::OtherFocusReason);
}

void frmDocument::PlaceText()
{
    DesktopTextInPlace* const text = m_text;
    if (text == nullptr)
        return;
    if (m_session.CurrentLayoutName.isEmpty()) {
        EndText();
        return;
    }
    // A record may have another page on the form; the text stays until its own is back.
    const CardObject* const object = PageOnForm(m_session) == text->Page()
                                         ? ShownObject(Family::lbl_TEXT, text->Index())
                                         : nullptr;
    if (object == nullptr) {
        text->hide();
        return;
    }
    text->TakeZoom(m_zoom);
    const QRect box = BoxOf(*object);
    const QPoint frame(text->frameWidth(), text->frameWidth());
    text->setGeometry(QRect(box.topLeft() - frame, text->SizeFor(box.size())));
    text->show();
}

} // namespace vantrel
