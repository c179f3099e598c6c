#include "desktop/EveryWindow.h"
#include "desktop/controls/Contrast.h"
#include "desktop/history/DesktopRecordParts.h"
#include <QApplication>
#include <set>

namespace vantrel::test {
namespace {

constexpr double LeastOfText = 4.5;

std::vector<RecordPart> AllParts()
{
    std::vector<RecordPart> parts;
    parts.reserve(RecordPartCount);
    for (int number = 0; number < RecordPartCount; ++number)
        parts.push_back(static_cast<RecordPart>(number));
    return parts;
}

TEST(RecordPartsView, ColoursAreReadableAndDifferentOnLightAndOnDark)
{
    for (const QPalette& palette : {QApplication::palette(), DarkPalette()}) {
        std::set<QRgb> grounds;
        for (const RecordPart part : AllParts()) {
            const QTextCharFormat format = DesktopRecordParts::FormatOf(part, palette);
            const QColor ground = format.hasProperty(QTextFormat::BackgroundBrush)
                                      ? format.background().color()
                                      : palette.color(QPalette::Base);
            EXPECT_GE(Contrast(format.foreground().color(), ground), LeastOfText)
                << NameOf(part).toStdString();
            grounds.insert(ground.rgb());
        }
        EXPECT_EQ(grounds.size(), std::size_t{RecordPartCount});
    }
}

TEST(RecordPartsView, EachPartHasAMarkAndANameOfItsOwn)
{
    std::set<QChar> marks;
    std::set<QString> names;
    for (const RecordPart part : AllParts()) {
        marks.insert(MarkOf(part));
        names.insert(NameOf(part));
    }
    EXPECT_EQ(marks.size(), std::size_t{RecordPartCount});
    EXPECT_EQ(names.size(), std::size_t{RecordPartCount});
}

TEST(RecordPartsView, ShowsControlCharactersAsTheirCodes)
{
    DesktopRecordParts view(DesktopRecordParts::Form::Text, nullptr);
    view.Show({{RecordPart::Start, 0, "\x02", QStringLiteral("\x02")},
               {RecordPart::Value, 1, "A", QStringLiteral("A")}});
    EXPECT_EQ(view.toPlainText(), QStringLiteral("[02]A"));
    EXPECT_EQ(view.ToldAtCursor(), QStringLiteral("start"));
}

} // namespace
} // namespace vantrel::test
