// Cards a second from a record's last byte on a TCP connection to its file in place, the number in
// the store and the station ready for the next, beside the limit measured in the same run: the bare
// cairo and Pango drawing of the same card to a file. The durable commit of the card's rows alone
// is given too, and a card of a made-up number. All take turns, so that what else the machine does
// weighs on them alike.

#include "BareCard.h"
#include "CardParts.h"
#include "app/EntryPoint.h"
#include "app/MainRuntime.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "capture/Listener.h"
#include "capture/Ports.h"
#include "layout/DocumentForm.h"
#include "layout/DrawObjects.h"
#include "layout/SaveLayout.h"
#include "platform/Recordset.h"
#include "platform/Schema.h"
#include "platform/StationPrinters.h"
#include "shaping/CardSequence.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace vantrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

constexpr int FirstNumber = 1000000;
constexpr double NumberX = 1500;
constexpr double NumberY = 1500;

Font NumberStyle()
{
    return {QStringLiteral("Liberation Mono"), 10};
}

/// The card's texts as the bare drawing has them: those of the layout and its number.
std::vector<TextOnCard> TextsAndNumber(int card)
{
    std::vector<TextOnCard> texts = Texts(card);
    texts.push_back({QString::number(FirstNumber + card), NumberStyle(), NumberX, NumberY, false});
    return texts;
}

/// A station nobody stands at.
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

/// A station with a one-page layout of ten texts, a photo, a background and an automatic number.
class Station
{
public:
    Station() : m_printers(Folder(), 1), m_session(Folder(), m_operator, m_printers)
    {
        CreateLayoutDatabase(m_session.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
        OpenLayoutDb(m_session);
        MakeLayout();
        m_session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                      QStringLiteral(">")};
        m_session.Settings.UseIP = true;
        m_session.Settings.Port = 0;
        ConnectSockets(m_session);
        SwitchPorts(m_session, SwitchMode::Network);
        QObject::connect(&m_session.Face, &StationFace::PanelChanged, &m_session.Face,
                         [this](int panel) { m_done = m_done || panel == 3; });
        m_host.connectToHost(QStringLiteral("127.0.0.1"),
                             static_cast<quint16>(m_session.Sock.LocalPort()));
        m_host.waitForConnected();
    }

    QString Path(const QString& name) const { return m_session.PathInFolder(name); }

    void PrintRecord(const QByteArray& record)
    {
        m_done = false;
        m_host.write(record);
        m_host.flush();
        while (!m_done)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// Makes up one number and prints it, as the sequence generator does.
    void PrintNumber(int number)
    {
        SequenceOrder order;
        order.Start = QString::number(number);
        order.End = QString::number(number + 1);
        RunSequence(m_session, order, [](double, double) { return true; });
    }
    /// Writes the page's rows again, as they are, in one durable commit.
    void CommitRows() { SaveLayout(m_session, SaveMessages::Silent); }

private:
    QString Folder() const { return m_folder.path(); }

    void MakeLayout()
    {
        EnsureDocument(m_session);
        m_session.CurrentLayoutName = QStringLiteral("Bench");
        LayoutParamsRecord& params = m_session.CurrentParams;
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
        Draw_Image(m_session, {200, 200, 1440, 1080}, 0, LoadPicture(photo), true, photo);
        std::int16_t field = 0;
        for (const TextOnCard& text : Texts(0)) {
            TextLooks looks;
            looks.cFont = text.Style;
            looks.cCaption = text.Text;
            const ObjectBox box{static_cast<std::int32_t>(text.Y),
                                static_cast<std::int32_t>(text.X), 280, 2600};
            if (text.IsLabel)
                Draw_Label(m_session, box, looks);
            else
                Draw_DataField(m_session, ++field, box, looks);
        }
        // It rises with every card, so that every card has something to save.
        TextLooks looks;
        looks.cFont = NumberStyle();
        Draw_AutoNumber(
            m_session, FirstNumber,
            {static_cast<std::int32_t>(NumberY), static_cast<std::int32_t>(NumberX), 280, 2600},
            looks);
        SaveLayout(m_session, SaveMessages::Silent);
    }

    QString SavePicture(const QString& name, const QImage& image) const
    {
        image.save(Path(name), nullptr, 85);
        return Path(name);
    }

    QTemporaryDir m_folder;
    NoOperator m_operator;
    StationPrinters m_printers;
    Session m_session;
    QTcpSocket m_host;
    bool m_done = false;
};

QByteArray RecordOf(const std::vector<TextOnCard>& texts)
{
    QStringList values;
    for (const TextOnCard& text : texts) {
        if (!text.IsLabel)
            values.append(text.Text);
    }
    return QByteArray("<") + values.join(QLatin1Char('+')).toLatin1() + '>';
}

PictureOnCard JpegOnCard(const QString& path, double x, double y, double width, double height)
{
    QFile file(path);
    const QByteArray bytes = file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    return {QImage(path), bytes, x, y, width, height};
}

void RecordToCard(benchmark::State& state)
{
    Station station;
    const BareCard limit(
        TextsAndNumber(0),
        {JpegOnCard(station.Path(QStringLiteral("back.jpg")), 0, 0, 3060, 4860),
         JpegOnCard(station.Path(QStringLiteral("photo.jpg")), 200, 200, 1080, 1440)});
    double printing = 0;
    double bare = 0;
    double committing = 0;
    double sequence = 0;
    int number = 0;
    for (auto _ : state) {
        ++number;
        const std::vector<TextOnCard> texts = Texts(number);
        const QByteArray record = RecordOf(texts);
        const QString path = station.Path(QStringLiteral("bare-%1.pdf").arg(number));
        auto begin = Clock::now();
        station.PrintRecord(record);
        const double spent = SecondsSince(begin);
        begin = Clock::now();
        limit.DrawTo(path, TextsAndNumber(number));
        bare += SecondsSince(begin);
        begin = Clock::now();
        station.CommitRows();
        committing += SecondsSince(begin);
        begin = Clock::now();
        station.PrintNumber(number);
        sequence += SecondsSince(begin);
        printing += spent;
        state.SetIterationTime(spent);
    }
    state.counters["cards_per_s"] = number / printing;
    state.counters["limit_per_s"] = number / bare;
    state.counters["saves_per_s"] = number / committing;
    state.counters["ratio"] = bare / printing;
    state.counters["made_up_per_s"] = number / sequence;
    state.counters["made_up_ratio"] = printing / sequence;
}

BENCHMARK(RecordToCard)->UseManualTime()->MinTime(3);

} // namespace

} // namespace vantrel::bench
