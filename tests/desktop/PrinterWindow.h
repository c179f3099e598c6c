#pragma once

#include "desktop/DesktopStation.h"
#include "desktop/dialogs/frmPrinters2.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace vantrel::test {

inline const QString First = QStringLiteral("Card Printer");

/// A station whose printer selection is pressed as an operator presses it.
class PrinterWindowTest : public ::testing::Test
{
protected:
    PrinterWindowTest() { Station.WithLayout(); }

    void Open()
    {
        OpenPrinterSelection(Station.Session, &Station.Window);
        Dialog = Station.Window.findChild<frmPrinters2*>();
        ASSERT_NE(Dialog, nullptr);
    }

    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(*Dialog, name);
    }
    QTreeWidget& PrinterList() { return Get<QTreeWidget>("lvwPrinters"); }
    QTreeWidget& KindList() { return Get<QTreeWidget>("lvwTypes"); }
    void Press(const char* name) { Get<QAbstractButton>(name).click(); }
    LayoutParamsRecord& Params() { return Station.Session.CurrentParams; }

    /// A click of the left mouse button on a row.
    static void Click(QTreeWidget& list, int row)
    {
        const QPointF at = list.visualItemRect(list.topLevelItem(row)).center();
        const QPointF onScreen = list.viewport()->mapToGlobal(at);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, onScreen, Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(list.viewport(), &event);
        }
    }
    static QStringList Column(const QTreeWidget& list, int column)
    {
        QStringList texts;
        for (int i = 0; i < list.topLevelItemCount(); ++i)
            texts.append(list.topLevelItem(i)->text(column));
        return texts;
    }
    static QString Selected(const QTreeWidget& list)
    {
        const auto items = list.selectedItems();
        return items.isEmpty() ? QString() : items.constFirst()->text(0);
    }
    /// Selects the kind of that code as a program would, without a click.
    void SelectKind(const QString& name)
    {
        const auto found = KindList().findItems(name, Qt::MatchStartsWith);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        KindList().setCurrentItem(found.constFirst());
    }
    /// Gives the machine these printers; the first one is current and belongs to the open layout.
    void WithPrinters(const QStringList& names) { Station.Printers.Install(names); }

    DesktopStation Station;
    QPointer<frmPrinters2> Dialog;
};

} // namespace vantrel::test
