#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopFont.h"
#include "desktop/window/DesktopOperator.h"
#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Runs a routine on the dialog that opens next, and closes the dialog if the routine did not.
template <typename Dialog, typename Use>
void WithNext(Use use)
{
    QTimer::singleShot(0, [use] {
        auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        use(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
}

TEST(Asking, AQuestionHasThreeAnswersAndAQuestionMark)
{
    DesktopOperator desk;
    const std::pair<QMessageBox::StandardButton, BoxAnswer> rows[] = {
        {QMessageBox::Yes, BoxAnswer::Yes},
        {QMessageBox::No, BoxAnswer::No},
        {QMessageBox::Cancel, BoxAnswer::Cancel},
        {QMessageBox::NoButton, BoxAnswer::Cancel}};
    for (const auto& [button, answer] : rows) {
        WithNext<QMessageBox>([pressed = button](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Really Delete?"));
            EXPECT_EQ(box.text(), QStringLiteral("Sure? "));
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            if (QAbstractButton* found = box.button(pressed))
                found->click();
        });
        EXPECT_EQ(desk.AskYesNoCancel(QStringLiteral("Sure? "), QStringLiteral("Really Delete?")),
                  answer);
    }
}

TEST(Asking, AnInputBoxGivesItsTextOrNothing)
{
    DesktopOperator desk;
    WithNext<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("New Layout"));
        EXPECT_EQ(box.labelText(), QStringLiteral("Enter Layout Name"));
        auto* line = box.findChild<QLineEdit*>();
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->text(), QStringLiteral("Badge"));
        line->setText(QStringLiteral("Pass"));
        box.accept();
    });
    const auto ask = [&] {
        return desk.InputBox(QStringLiteral("Enter Layout Name"), QStringLiteral("New Layout"),
                             QStringLiteral("Badge"));
    };
    EXPECT_EQ(ask(), QStringLiteral("Pass"));
    WithNext<QInputDialog>([](QInputDialog&) {});
    EXPECT_EQ(ask(), QString());
}

TEST(Asking, TheFontDialogTakesAndGivesSixValues)
{
    DesktopOperator desk;
    const Font present{QStringLiteral("Liberation Sans"), 12, true, false, true, false};
    const Font chosen{QStringLiteral("Liberation Serif"), 8, false, true, false, true};
    WithNext<QFontDialog>([&](QFontDialog& box) {
        EXPECT_EQ(StoredFont(box.currentFont()), present);
        box.setCurrentFont(DialogFont(chosen));
        box.accept();
    });
    EXPECT_EQ(desk.AskFont(present), chosen);
    WithNext<QFontDialog>([](QFontDialog&) {});
    EXPECT_EQ(desk.AskFont(present), std::nullopt);
}

TEST(Asking, TheFontDialogKeepsWhatItWasLeftAt)
{
    DesktopOperator desk;
    const Font present{QStringLiteral("No Such Font"), 12.3456, false, false, false, false};
    WithNext<QFontDialog>([](QFontDialog& box) { box.accept(); });
    EXPECT_EQ(desk.AskFont(present), present);
}

TEST(Asking, TheColourDialogTakesAndGivesAStoredColour)
{
    DesktopOperator desk;
    constexpr ColorValue present = 0x563412;
    WithNext<QColorDialog>([](QColorDialog& box) {
        EXPECT_EQ(box.currentColor(), QColor(0x12, 0x34, 0x56));
        box.setCurrentColor(QColor(1, 2, 3));
        box.accept();
    });
    EXPECT_EQ(desk.AskColor(present), 0x030201);
    WithNext<QColorDialog>([](QColorDialog&) {});
    EXPECT_EQ(desk.AskColor(present), std::nullopt);
}

} // namespace
} // namespace vantrel::test
