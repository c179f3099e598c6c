#include "station/compose/FieldDialogs.h"
#include "station/compose/SerializerComposer.h"
#include "station/compose/StreamElement.h"
#include "station/compose/TrackElements.h"
#include "support/Layouts.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

int DataFieldNodes(const std::vector<ElementNode>& nodes)
{
    return static_cast<int>(std::count_if(nodes.begin(), nodes.end(), [](const ElementNode& node) {
        return node.Key.startsWith(DataFieldKey);
    }));
}

TEST(ComposerLists, OfAMillionValuesShowTheFirstThousand)
{
    FieldValues values;
    for (int number = 0; number < 1'000'000; ++number)
        values.Add(QStringLiteral("A"));
    EXPECT_EQ(PadFieldTexts(values).size(), 1000);
    EXPECT_EQ(PadFieldTexts(values).last(), QStringLiteral("Data Field 1000"));
    EXPECT_EQ(DataFieldNodes(StreamElementNodes(values)), 1000);
    const std::vector<ElementNode> nodes = TrackElementNodes(values.Count(), 1);
    EXPECT_EQ(DataFieldNodes(nodes), 1000);
    EXPECT_EQ(nodes.back().Text, QStringLiteral("AutoNumber Field 1"));
}

TEST(ComposerLists, OfALongValueShowItsBeginning)
{
    FieldValues values;
    values.Add(QStringLiteral("12") + QString(1'000'000, QLatin1Char('x')));
    const QString text = StreamElementNodes(values).back().Text;
    EXPECT_TRUE(text.startsWith(QStringLiteral("Data Field 1        (12xxx")));
    EXPECT_LT(text.size(), 2000);
}

TEST(SerializerPreview, OfLongValuesIsTheBeginningOfTheStream)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Mailer"), PrinterTypeCode::Serialized);
    SetRecord(station.Session, {QString(1'000'000, QLatin1Char('x')), QStringLiteral("B")});
    SerializerComposer composer(station.Session);
    composer.Drop(QStringLiteral("KEY=2"));
    for (int element = 0; element < 20; ++element)
        composer.Drop(QStringLiteral("KEY=1"));
    const QString shown = composer.Preview({});
    EXPECT_TRUE(shown.startsWith(QStringLiteral(" Bxxx")));
    // More than its line keeps, and no more than a part of one value.
    EXPECT_GT(shown.size(), 32767);
    EXPECT_LT(shown.size(), 100'000);
}

} // namespace
} // namespace vantrel::test
