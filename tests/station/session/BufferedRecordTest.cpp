#include "station/session/BufferedRecord.h"
#include "base/Failure.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

using namespace vantrel;
using vantrel::test::TestSession;

namespace {

class KeptRecords : public ::testing::Test
{
protected:
    KeptRecords()
    {
        Station.Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                            QStringLiteral(">")};
    }

    TestSession Station;
};

} // namespace

TEST(FieldValues, CountFromOne)
{
    FieldValues values;
    EXPECT_EQ(values.Count(), 0);
    values.Add(QStringLiteral("A"));
    values.Add(QString());
    EXPECT_EQ(values.Count(), 2);
    EXPECT_EQ(values.Item(1), QStringLiteral("A"));
    EXPECT_EQ(values.Item(2), QString());
    for (const int position : {0, 3, -1}) {
        try {
            values.Item(position);
            ADD_FAILURE() << position;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::SubscriptOutOfRange);
        }
    }
}

TEST_F(KeptRecords, TakeTheSurroundingsIntoTheirValues)
{
    VT5_BufferedRecord record;
    QString text = QStringLiteral("x<A+B>y");
    const QDateTime before = QDateTime::currentDateTime();
    ASSERT_TRUE(record.Create_From_Stream(Station.Session.Settings, text));
    EXPECT_EQ(record.RawData, QStringLiteral("x<A+B>y"));
    ASSERT_EQ(record.DataFields.Count(), 2);
    EXPECT_EQ(record.DataFields.Item(1), QStringLiteral("xA"));
    EXPECT_EQ(record.DataFields.Item(2), QStringLiteral("By"));
    EXPECT_TRUE(record.Valid);
    EXPECT_GE(record.TimeCreated, before);
    EXPECT_LE(record.TimeCreated, QDateTime::currentDateTime());
    EXPECT_EQ(text, QStringLiteral("xA+By"));
}

TEST_F(KeptRecords, FilterTheirValues)
{
    Station.Session.Settings.Filters.Lf = true;
    Station.Session.Settings.Framing.DataSeperator = QStringLiteral("[9]");
    VT5_BufferedRecord record;
    QString text = QStringLiteral("< A\n\t\n>");
    ASSERT_TRUE(record.Create_From_Stream(Station.Session.Settings, text));
    ASSERT_EQ(record.DataFields.Count(), 2);
    EXPECT_EQ(record.DataFields.Item(1), QStringLiteral("A"));
    EXPECT_EQ(record.DataFields.Item(2), QString());
}

TEST_F(KeptRecords, NeedNoDelimitersInTheText)
{
    VT5_BufferedRecord record;
    QString text = QStringLiteral("A+B");
    EXPECT_TRUE(record.Create_From_Stream(Station.Session.Settings, text));
    EXPECT_EQ(record.DataFields.Count(), 2);

    VT5_BufferedRecord empty;
    QString delimitersOnly = QStringLiteral("<>");
    EXPECT_TRUE(empty.Create_From_Stream(Station.Session.Settings, delimitersOnly));
    EXPECT_TRUE(empty.Valid);
    EXPECT_EQ(empty.DataFields.Count(), 0);
}

TEST_F(KeptRecords, AnEmptyTextFillsNothingButIsKept)
{
    VT5_BufferedRecord record;
    QString text;
    EXPECT_FALSE(record.Create_From_Stream(Station.Session.Settings, text));
    EXPECT_FALSE(record.Valid);
    EXPECT_FALSE(record.TimeCreated.isValid());

    QString nothing;
    BufferRecord(Station.Session.RecordQueue, Station.Session.Settings, nothing);
    ASSERT_EQ(Station.Session.RecordQueue.RecordCount, 1);
    EXPECT_FALSE(Station.Session.RecordQueue.BufferedRecords.at(0)->Valid);
}

TEST_F(KeptRecords, StandInOrderOfArrivalUntilFlushed)
{
    VT5_BufferedRecordQue& queue = Station.Session.RecordQueue;
    for (QString text : {QStringLiteral("<A>"), QStringLiteral("<B>")})
        BufferRecord(Station.Session.RecordQueue, Station.Session.Settings, text);
    EXPECT_TRUE(queue.AddRecord(std::make_shared<VT5_BufferedRecord>()));
    EXPECT_EQ(queue.RecordCount, 3);
    ASSERT_EQ(queue.BufferedRecords.size(), 3U);
    EXPECT_EQ(queue.BufferedRecords[0]->DataFields.Item(1), QStringLiteral("A"));
    EXPECT_EQ(queue.BufferedRecords[1]->DataFields.Item(1), QStringLiteral("B"));
    EXPECT_EQ(queue.BufferedRecords[1]->RawData, QStringLiteral("<B>"));

    EXPECT_TRUE(queue.FlushRecords());
    EXPECT_EQ(queue.RecordCount, 0);
    EXPECT_TRUE(queue.BufferedRecords.empty());
}
