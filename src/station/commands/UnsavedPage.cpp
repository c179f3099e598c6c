#include "station/commands/UnsavedPage.h"
#include "base/Skip.h"
#include "card/PageDesign.h"
#include "station/commands/ClipCommands.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/NewLayout.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QSaveFile>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

/// Longest file that is read. A page of ten thousand objects has a tenth of it.
constexpr qint64 MostBytes = qint64{64} * 1024 * 1024;

const QString LayoutName = QStringLiteral("Layout");
const QString PageNumber = QStringLiteral("Page");
const QString Objects = QStringLiteral("Objects");
const QString RowKey = QStringLiteral("RowKey");
const QString AutoSpool = QStringLiteral("AutoSpool");
const QString BackImage = QStringLiteral("BackImage");

/// A parameter of the page by its name.
template <typename Value>
struct ParamRow
{
    const char* Name;
    Value ParamsDesign::*Member;
};

constexpr ParamRow<QString> TextParams[] = {{"PrinterDevice", &ParamsDesign::PrinterDevice},
                                            {"Track1", &ParamsDesign::Track1},
                                            {"Track2", &ParamsDesign::Track2},
                                            {"Track3", &ParamsDesign::Track3},
                                            {"BackImg1", &ParamsDesign::BackImg1Path},
                                            {"BackImg2", &ParamsDesign::BackImg2Path}};
constexpr ParamRow<std::int32_t> NumberParams[] = {
    {"PrinterOrientation", &ParamsDesign::PrinterOrientation},
    {"PrinterType", &ParamsDesign::PrinterType}};

QByteArray Describe(const LayoutPage& page)
{
    QJsonObject described{{LayoutName, page.LayoutName},
                          {PageNumber, page.Params.PageIndex},
                          {AutoSpool, page.Params.AutoSpool},
                          {BackImage, page.Document.Tag}};
    const ParamsDesign params = DesignOf(page.Params);
    for (const auto& row : TextParams)
        described.insert(QLatin1StringView(row.Name), params.*row.Member);
    for (const auto& row : NumberParams)
        described.insert(QLatin1StringView(row.Name), params.*row.Member);
    described.insert(QStringLiteral("PrinterCopies"), params.PrinterCopies);
    described.insert(QStringLiteral("Encode"), params.Encode);
    QJsonArray objects;
    for (const auto& object : page.Document.Objects()) {
        if (!object->IsContent())
            continue;
        QJsonObject row = DescribeObject(*object);
        if (object->StoreKey != 0)
            row.insert(RowKey, QString::number(object->StoreKey));
        objects.append(row);
    }
    described.insert(Objects, objects);
    return QJsonDocument(described).toJson(QJsonDocument::Compact);
}

PageDesign ParamsOf(const QJsonObject& described)
{
    PageDesign design;
    for (const auto& row : TextParams)
        design.Params.*row.Member = described.value(QLatin1StringView(row.Name)).toString();
    for (const auto& row : NumberParams)
        design.Params.*row.Member = described.value(QLatin1StringView(row.Name)).toInt();
    design.Params.PrinterCopies =
        static_cast<std::int16_t>(described.value(QStringLiteral("PrinterCopies")).toInt(1));
    design.Params.Encode = described.value(QStringLiteral("Encode")).toBool();
    design.BackImage = described.value(BackImage).toString();
    return design;
}

QJsonObject ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MostBytes)
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

/// Opens the page as it is stored, or a new one where it is not.
void OpenPage(Session& session, const QJsonObject& left)
{
    const QString layoutName = left.value(LayoutName).toString();
    const auto page = static_cast<std::int16_t>(left.value(PageNumber).toInt(1));
    LayoutParamsRecord& params = session.CurrentParams;
    params.PageIndex = page;
    if (!LoadLayout(session, layoutName)) {
        NewLayout(session, layoutName);
        params.PageIndex = page;
        params.AutoSpool = left.value(AutoSpool).toBool();
        session.Face.SetTick(Tick::chkAutoSpool, params.AutoSpool);
    }
    session.Document.Show();
    NoteDesign(session);
}

void PutObjects(Session& session, const QJsonArray& rows)
{
    session.Document.RemoveContent();
    for (const auto& row : rows) {
        const QJsonObject described = row.toObject();
        CardObject* object = AddDescribedObject(session, described);
        if (object != nullptr && object->Family() == Family::lbl_AUTO)
            object->StoreKey = described.value(RowKey).toString().toLongLong();
    }
}

void TakeUp(Session& session, const QJsonObject& left)
{
    OpenPage(session, left);
    PutObjects(session, left.value(Objects).toArray());
    PutParams(session.Document, session.CurrentParams, ParamsOf(left));
    SelectPagePrinter(session, session.Surface);
    session.Document.Refresh();
    NoteDesign(session);
    session.Face.NotifyDesign();
}

} // namespace

UnsavedPage::UnsavedPage(Session& session) : m_session(session)
{
    m_isLeft = session.Options.DesignTools && QFile::exists(Path());
}

QString UnsavedPage::Path() const
{
    return m_session.PathInFolder(
        QStringLiteral("Unsaved page %1.json").arg(m_session.SessionNumber));
}

void UnsavedPage::Keep()
{
    const std::int16_t page = m_session.CurrentParams.PageIndex;
    if (!m_session.Options.DesignTools)
        return;
    // What has changed is known since the operator's last press; nothing is noted in between.
    if (m_session.CurrentLayoutName.isEmpty() || !m_session.History.IsChanged(page)) {
        if (!m_kept.isEmpty())
            GiveUp();
        return;
    }
    QByteArray now = Describe(m_session.Surface);
    if (now == m_kept)
        return;
    if (!WriteFile(Path(), now)) {
        qCWarning(stationLog).noquote()
            << "The page that is not saved could not be kept in" << Path();
        return;
    }
    m_kept = std::move(now);
    m_isLeft = false;
}

void UnsavedPage::GiveUp()
{
    if (!m_isLeft)
        Remove();
}

void UnsavedPage::Remove()
{
    QFile::remove(Path());
    m_kept.clear();
    m_isLeft = false;
}

void UnsavedPage::Offer()
{
    if (!m_isLeft || m_isAsked)
        return;
    m_isAsked = true;
    const QJsonObject left = ReadFile(Path());
    const QString layoutName = left.value(LayoutName).toString();
    if (layoutName.isEmpty()) {
        qCWarning(stationLog).noquote() << "There is no page in" << Path();
        Remove();
        return;
    }
    const QString question = QStringLiteral("The station ended before page %1 of the layout (")
                                 .arg(left.value(PageNumber).toInt(1)) +
                             layoutName + QStringLiteral(") was saved. Take up its changes again?");
    const BoxAnswer answer =
        m_session.Operator.AskYesNoCancel(question, QStringLiteral("Take Up Changes?"));
    // Changes that were made while the question was open have taken the place in the file.
    if (answer == BoxAnswer::Cancel || !m_isLeft)
        return;
    if (answer == BoxAnswer::No) {
        Remove();
        return;
    }
    if (!MayLeavePage(m_session))
        return;
    TakeUp(m_session, left);
    m_isLeft = false;
    Keep();
    if (m_kept.isEmpty())
        Remove();
}

} // namespace vantrel
