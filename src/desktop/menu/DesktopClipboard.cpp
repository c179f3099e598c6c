#include "desktop/menu/DesktopClipboard.h"
#include "station/commands/ClipCommands.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace vantrel {

namespace {

void Offer(const QByteArray& copied)
{
    if (copied.isEmpty())
        return;
    auto* data = new QMimeData;
    data->setData(CopiedObjectsType, copied);
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace

void CutCommand(Session& session, QMainWindow& /*window*/)
{
    Offer(CutSelected(session));
}

void CopyCommand(Session& session, QMainWindow& /*window*/)
{
    Offer(CopySelected(session));
}

void PasteCommand(Session& session, QMainWindow& /*window*/)
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr)
        return;
    if (data->hasFormat(CopiedObjectsType))
        PasteObjects(session, data->data(CopiedObjectsType));
    else if (data->hasText())
        PasteText(session, data->text());
}

} // namespace vantrel
