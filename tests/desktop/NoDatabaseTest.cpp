#include "desktop/EveryWindow.h"
#include "desktop/dialogs/frmGetLayout.h"
#include "support/FailureOf.h"
#include <QListWidget>
#include <QMenu>

namespace vantrel::test {
namespace {

/// A station whose database is missing: each query fails in silence in its own routine.
class NoDatabase : public ::testing::TestWithParam<WindowRow>
{
protected:
    NoDatabase() { Station.Session.LayoutDb.Close(); }

    FullStation Station;
};

TEST_P(NoDatabase, TheWindowStillOpens)
{
    QWidget* window = nullptr;
    EXPECT_EQ(FailureOf([&] { window = &GetParam().Open(Station); }), 0);
    ASSERT_NE(window, nullptr);
    OnEachFace(*window, [&] { EXPECT_TRUE(window->isVisible()); });
}

INSTANTIATE_TEST_SUITE_P(OfEveryWindow, NoDatabase, ::testing::ValuesIn(EveryWindow()),
                         NameOfWindow);

TEST(GetLayoutWindow, OffersNothingWithoutADatabase)
{
    FullStation station;
    station.Session.LayoutDb.Close();
    station.Choose("cmdOpen");
    EXPECT_EQ(station.Get<QListWidget>("lstLayouts").count(), 0);
    EXPECT_FALSE(
        DesktopStation::Named<QAbstractButton>(station.Get<frmGetLayout>("frmGetLayout"), "cmdLoad")
            .isEnabled());
}

} // namespace
} // namespace vantrel::test
