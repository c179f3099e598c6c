#include "BenchStation.h"
#include "card/AutoNumber.h"
#include "printers/StationPrinters.h"
#include "station/capture/Listener.h"
#include "station/capture/Ports.h"
#include "station/compose/CardSequence.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/SaveLayout.h"
#include "station/ledger/StationLedger.h"
#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "station/start/EntryPoint.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

namespace vantrel::bench {

namespace {

constexpr int FirstNumber = 1000000;
constexpr double NumberX = 1500;
constexpr double NumberY = 1500;
const QString MeasuredLayout = QStringLiteral("Bench");

Font NumberStyle()
{
    return {QStringLiteral("Liberation Mono"), 10};
}

/// An operator who never answers.
class NoOperator : public Operator
{
public:
    bool ShowAppMessage(const QString& /*text*/, const QString& /*title*/,
                        AppMessageButtons /*buttons*/) override
    {
        return false;
    }
    void MessageBox(const QString& /*text*/, const QString& /*title*/, BoxIcon /*icon*/) override {}
    bool AskYesNo(const QString& /*text*/, const QString& /*title*/) override { return false; }
    BoxAnswer AskYesNoCancel(const QString& /*text*/, const QString& /*title*/) override
    {
        return BoxAnswer::No;
    }
    QString InputBox(const QString& /*prompt*/, const QString& /*title*/,
                     const QString& /*present*/) override
    {
        return {};
    }
    std::optional<Font> AskFont(const Font& /*present*/) override { return std::nullopt; }
    std::optional<ColorValue> AskColor(ColorValue /*present*/) override { return std::nullopt; }
    void OpenCameraDialog() override {}
    void LetEventsRun() override { QCoreApplication::processEvents(); }
    void ShowBusyPointer(bool /*busy*/) override {}
};

QByteArray RecordOf(int card)
{
    QStringList values;
    for (const TextOnCard& text : Texts(card)) {
        if (!text.IsLabel)
            values.append(text.Text);
    }
    return QByteArray("<") + values.join(QLatin1Char('+')).toLatin1() + '>';
}

/// @return a port that was free at the time of the call
int FreePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

} // namespace

std::vector<TextOnCard> TextsAndNumber(int card)
{
    std::vector<TextOnCard> texts = Texts(card);
    texts.push_back({QString::number(FirstNumber + card), NumberStyle(), NumberX, NumberY, false});
    return texts;
}

struct BenchStation::Private
{
    QTemporaryDir Folder;
    NoOperator Nobody;
    StationPrinters Printers{Folder.path(), 1};
    vantrel::Session Session{Folder.path(), Nobody, Printers};
    QTcpSocket Host;
    bool IsDone = false;

    explicit Private(StationSize size)
    {
        Folder.setAutoRemove(!qEnvironmentVariableIsSet("VANTREL_BENCH_KEEP"));
        CreateLayoutDatabase(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
        OpenLayoutDb(Session);
        if (size.KeepsAccount) {
            Session.Options.Ledger = true;
            Session.Options.KeepEveryRecord = true;
            Session.Options.UniqueNumbers = true;
            Printers.SetDurableFiles(true);
            OpenLedger(Session);
        }
        Session.Options.DesignTools = size.HasDesignTools;
        MakeLayout(size.FurtherLabels);
        for (int layout = 1; layout < size.Layouts; ++layout) {
            Session.CurrentLayoutName = QStringLiteral("Layout %1").arg(layout);
            SaveLayout(Session, SaveMessages::Silent);
        }
        Session.CurrentLayoutName = MeasuredLayout;
        Listen();
    }

    void Listen()
    {
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Session.Settings.UseIP = true;
        Session.Settings.Port = FreePort();
        ConnectSockets(Session);
        SwitchPorts(Session, SwitchMode::Network);
        QObject::connect(&Session.Face, &StationFace::PanelChanged, &Session.Face,
                         [this](int panel) { IsDone = IsDone || panel == 3; });
        Host.connectToHost(QStringLiteral("127.0.0.1"),
                           static_cast<quint16>(Session.Sock.LocalPort()));
        Host.waitForConnected();
    }

    void MakeLayout(int furtherLabels)
    {
        EnsureDocument(Session);
        Session.CurrentLayoutName = MeasuredLayout;
        LayoutParamsRecord& params = Session.CurrentParams;
        params.LayoutOpen = true;
        params.PrinterDevice = QStringLiteral("Vantrel PDF");
        params.PrinterOrientation = OrientationPortrait;
        params.PrinterType = PrinterTypeCode::Plain;
        params.PrinterCopies = 1;
        params.PageIndex = 1;
        params.PageCount = 1;
        params.AutoSpool = true;
        params.BackImg1Path = SavePicture(QStringLiteral("back.jpg"), Photo(638, 1012));
        const QString photo = SavePicture(QStringLiteral("photo.jpg"), Photo(300, 400));
        Draw_Image(OpenForm(Session), {200, 200, 1440, 1080}, 0, LoadPicture(photo), true, photo);
        std::int16_t field = 0;
        for (const TextOnCard& text : Texts(0)) {
            TextLooks looks;
            looks.cFont = text.Style;
            looks.cCaption = text.Text;
            const ObjectBox box{static_cast<std::int32_t>(text.Y),
                                static_cast<std::int32_t>(text.X), 280, 2600};
            if (text.IsLabel)
                Draw_Label(OpenForm(Session), box, looks);
            else
                Draw_DataField(OpenForm(Session), ++field, box, looks);
        }
        // The automatic number rises with every card, so every card must be saved.
        TextLooks looks;
        looks.cFont = NumberStyle();
        Draw_AutoNumber(
            OpenForm(Session), FirstNumber,
            {static_cast<std::int32_t>(NumberY), static_cast<std::int32_t>(NumberX), 280, 2600},
            looks);
        looks.cCaption = QStringLiteral("One of many");
        for (int label = 0; label < furtherLabels; ++label)
            Draw_Label(OpenForm(Session), {label * 20, 100, 280, 2600}, looks);
        SaveLayout(Session, SaveMessages::Silent);
    }

    QString SavePicture(const QString& name, const QImage& image) const
    {
        QString path = Session.PathInFolder(name);
        image.save(path, nullptr, 85);
        return path;
    }
};

BenchStation::BenchStation(StationSize size) : m_d(std::make_unique<Private>(size)) {}

BenchStation::~BenchStation() = default;

QString BenchStation::Path(const QString& name) const
{
    return m_d->Session.PathInFolder(name);
}

void BenchStation::PrintRecord(int card)
{
    m_d->IsDone = false;
    m_d->Host.write(RecordOf(card));
    m_d->Host.flush();
    while (!m_d->IsDone)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void BenchStation::PrintBurst(int firstCard, int count)
{
    int taken = 0;
    const auto counting =
        QObject::connect(&m_d->Session.Face, &StationFace::PanelChanged, &m_d->Session.Face,
                         [&](int panel) { taken += panel == 3 ? 1 : 0; });
    QByteArray records;
    for (int card = firstCard; card < firstCard + count; ++card)
        records += RecordOf(card);
    m_d->Host.write(records);
    m_d->Host.flush();
    while (taken < count || !m_d->Session.Ledger.Runs().empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(counting);
}

void BenchStation::PrintNumber(int number)
{
    SequenceOrder order;
    order.Start = QString::number(number);
    order.End = QString::number(number + 1);
    RunSequence(m_d->Session, order, [](double, double) { return true; });
}

void BenchStation::SaveNumber()
{
    for (const auto& object : m_d->Session.Document.Objects())
        Increment_If_AutoNumber(*object);
    SaveLayout(m_d->Session, SaveMessages::Silent);
}

} // namespace vantrel::bench
