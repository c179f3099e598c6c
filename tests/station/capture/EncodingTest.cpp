#include "SerialStation.h"
#include "station/capture/RawDataView.h"
#include "support/Host.h"
#include "support/WarningGuard.h"
#include <QCoreApplication>

using namespace vantrel;
using namespace vantrel::test;

namespace {

const QString name = QStringLiteral("Żółć Ελένη محمد");

/// A station with both kinds of ports whose hosts send UTF-8.
class Utf8Station : public SerialStation
{
protected:
    Utf8Station() : SerialStation({.Encoding = InputEncoding::Utf8})
    {
        Session.Settings.UseIP = true;
        SwitchPorts(Session, SwitchMode::Network);
    }

    int Port() const { return Session.Sock.LocalPort(); }
};

} // namespace

TEST_F(Utf8Station, NamesOfAnyScriptComeInHoweverTheirBytesAreSplit)
{
    const Host host(Port());
    const QByteArray record = "\xEF\xBB\xBF<" + name.toUtf8() + "+B>";
    for (const char byte : record) {
        host.Send(QByteArray(1, byte));
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(ComesAsRecord({name, B}));
    EXPECT_EQ(Session.LastRawData, QLatin1Char('<') + name + QStringLiteral("+B>"));
}

TEST_F(Utf8Station, BytesOfOneHostNeverCompleteTheCharacterOfAnother)
{
    const Host first(Port());
    const Host second(Port());
    first.Send("<\xC5");
    ASSERT_TRUE(ComesToHold("<"));
    second.Send("x");
    ASSERT_TRUE(ComesToHold("<x"));
    first.Send("\xBB>");
    EXPECT_TRUE(ComesAsRecord({QStringLiteral("xŻ")}));
}

TEST_F(Utf8Station, ByteThatIsNoCharacterIsWarnedOfOncePerConnection)
{
    AnnounceWarning(QStringLiteral("127.0.0.1:"));
    const Host host(Port());
    host.Send("<A\xFF+\xC3\xA9\xED\xA0\x80>");
    const QStringList shown{QStringLiteral("A\uFFFD"), QStringLiteral("é\uFFFD\uFFFD\uFFFD")};
    ASSERT_TRUE(ComesAsRecord(shown));
    EXPECT_EQ(HexText(Session.LastRawData, InputEncoding::Utf8),
              QStringLiteral("[3C]  [41]  [FF]  [2B]  [C3]  [A9]  [ED]  [A0]  [80]  [3E]  "));
    EXPECT_EQ(BytesOfInput(Session.LastRawData, InputEncoding::Utf8),
              QByteArray("<A\xFF+\xC3\xA9\xED\xA0\x80>"));
    Session.Settings.BufferData = true;
    host.Send("<A\xFF>");
    ASSERT_TRUE(EventsUntil([&] { return Session.RecordQueue.RecordCount == 1; }));
    EXPECT_EQ(Session.RecordQueue.BufferedRecords.front()->DataFields.Item(1), shown[0]);
}

TEST_F(Utf8Station, DelimitersAndFiltersWorkOnCharacters)
{
    Session.Settings.Framing = {QStringLiteral("«"), QStringLiteral("¦[E9]"), QStringLiteral("»")};
    Session.Settings.Filters.Space = true;
    const Host host(Port());
    host.Send(QStringLiteral("«Ż  ż¦Bé ω »").toUtf8());
    EXPECT_TRUE(ComesAsRecord({QStringLiteral("Ż ż"), B, QStringLiteral("ω")}));
}

TEST_F(Utf8Station, EachOpeningOfTheSerialPortBeginsItsCharactersAnew)
{
    AnnounceWarning(QStringLiteral("COM3 sent bytes that are no UTF-8"));
    const PtyPair cable(Device());
    Open();
    cable.Send("<" + name.toUtf8().first(1));
    ASSERT_TRUE(ComesToHold("<"));
    Open();
    cable.Send(name.toUtf8() + ">");
    ASSERT_TRUE(ComesAsRecord({name}));
    cable.Send("<\xFF>");
    EXPECT_TRUE(ComesAsRecord({QStringLiteral("\uFFFD")}));
}
