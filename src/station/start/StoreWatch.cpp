#include "station/start/StoreWatch.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
#include "station/session/StoreLocation.h"
#include "station/start/EntryPoint.h"
#include "station/start/StoreTaking.h"
#include "store/StoreDatabase.h"
#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTimer>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(storeLog, "vantrel.store")

constexpr int LookMilliseconds = 500;
constexpr int StepMilliseconds = 1000;
/// After a try to open the store has failed.
constexpr qint64 PauseMilliseconds = 4000;
constexpr QLatin1StringView AwayCaption{"   (the store is away)"};
constexpr QLatin1StringView AwayPanel{"The store is away"};

class StoreWatch : public QObject
{
public:
    explicit StoreWatch(Session& session) : QObject(&session.Face), m_session(session)
    {
        KeepStepsShort();
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] { Look(); });
        m_timer.start(LookMilliseconds);
        Look();
        // Nobody looks at the windows of a station that starts.
        TakeUp();
    }

private:
    /// The windows stand still while the station waits for answers, so all that it waits for
    /// between two rounds of the event loop has a second.
    void KeepStepsShort()
    {
        BeginStep();
        // It is sent in each round of whatever loop there is, also while a record lets events run.
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         this, [this] { BeginStep(); });
    }

    void BeginStep()
    {
        if (m_session.LayoutDb.IsOpen())
            m_session.LayoutDb.Database().SetPatience(StepMilliseconds);
    }

    void Look()
    {
        const QString trouble = Ask();
        if (trouble.isEmpty() && m_isAway)
            TellBack();
        else if (!trouble.isEmpty())
            TellAway(trouble);
    }

    /// @return why the store cannot be reached; empty if it can
    QString Ask()
    {
        Connection& store = m_session.LayoutDb;
        if (m_isToBeTakenUp)
            return m_trouble;
        if (!store.IsOpen())
            return Open();
        // A transaction is not disturbed; what is in it notices for itself.
        if (!store.InTransaction())
            Skip("ask the store", [&] { store.Database().Ask(); });
        return store.Database().Trouble();
    }

    QString Open()
    {
        if (m_tried.isValid() && !m_tried.hasExpired(PauseMilliseconds))
            return m_trouble;
        try {
            OpenLayoutDb(m_session);
            BeginStep();
            m_isToBeTakenUp = true;
            // In a step of its own.
            QTimer::singleShot(0, this, [this] { TakeUp(); });
        } catch (const Failure& failure) {
            m_trouble = failure.Text();
        }
        m_tried.start();
        return m_trouble;
    }

    /// Does what was left out when the station started, if the store was opened since.
    void TakeUp()
    {
        if (!std::exchange(m_isToBeTakenUp, false))
            return;
        OpenLedger(m_session);
        FindUnfinished(m_session);
        ReopenLastLayout(m_session);
        Look();
    }

    void TellAway(const QString& trouble)
    {
        StationFace& face = m_session.Face;
        if (!m_isAway) {
            qCWarning(storeLog).noquote() << trouble;
            m_hold.emplace(m_session.Road);
        }
        m_isAway = true;
        if (!face.Caption().endsWith(AwayCaption))
            face.SetCaption(face.Caption() + AwayCaption);
        face.SetPanelText(LastArrivalPanel, AwayPanel);
        face.SetPanelToolTip(LastArrivalPanel, trouble);
    }

    void TellBack()
    {
        StationFace& face = m_session.Face;
        m_isAway = false;
        qCWarning(storeLog) << "The store is back.";
        if (face.Caption().endsWith(AwayCaption))
            face.SetCaption(face.Caption().chopped(AwayCaption.size()));
        face.SetPanelText(LastArrivalPanel, QString());
        face.SetPanelToolTip(LastArrivalPanel, QString());
        m_hold.reset();
    }

    Session& m_session;
    QTimer m_timer;
    QElapsedTimer m_tried;
    QString m_trouble;
    bool m_isAway = false;
    bool m_isToBeTakenUp = false;
    std::optional<RoadHold> m_hold;
};

} // namespace

void WatchStore(Session& session)
{
    if (IsStoreAddress(StoreLocation(session.ProgramFolder)))
        new StoreWatch(session);
}

} // namespace vantrel
