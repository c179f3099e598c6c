#pragma once

#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/dialogs/frmCommSettings.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/PtyPair.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vantrel::test {
/// A station whose dialog is opened by its menu entry. Its ports are closed until a box is ticked.
class CommSettingsWindow : public ::testing::Test
{
protected:
    CommSettingsWindow()
    {
        Session.Settings.SPort = 3;
        Session.Settings.SSettings = QStringLiteral("9600,n,8,1");
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QStringLiteral("Serial Ports"), QStringLiteral("COM3"),
                                      Device()));
        Station.Load();
    }

    QString Device() const { return Session.PathInFolder(QStringLiteral("adapter")); }

    void Open()
    {
        Station.Choose("cmdCommSettings");
        Dialog = &Station.Get<frmCommSettings>("frmCommSettings");
    }
    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(*Dialog, name);
    }
    void Press(const char* name)
    {
        auto& button = Get<QAbstractButton>(name);
        ASSERT_TRUE(button.isEnabled()) << name;
        button.click();
        QCoreApplication::processEvents();
    }
    void Choose(const char* name, const char* text)
    {
        auto& box = Get<QComboBox>(name);
        const int row = box.findText(QString::fromLatin1(text));
        ASSERT_GE(row, 0) << text;
        box.setCurrentIndex(row);
    }
    void Type(QWidget& widget, int key, const char* text = "")
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text));
        QApplication::sendEvent(&widget, &press);
    }
    void ClickPort(int row)
    {
        auto& ports = Get<QListWidget>("lstPorts");
        Get<QTabWidget>("TabStrip").setCurrentIndex(1);
        ports.scrollToItem(ports.item(row));
        const QPointF at = ports.visualItemRect(ports.item(row)).center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, ports.viewport()->mapToGlobal(at), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(ports.viewport(), &event);
        }
    }
    /// Rows of the list that are ticked.
    QList<int> Ticked()
    {
        QList<int> rows;
        auto& ports = Get<QListWidget>("lstPorts");
        for (int row = 0; row < ports.count(); ++row) {
            if (ports.item(row)->checkState() == Qt::Checked)
                rows.append(row);
        }
        return rows;
    }
    QStringList Rows(const char* name)
    {
        QStringList rows;
        auto& box = Get<QComboBox>(name);
        for (int row = 0; row < box.count(); ++row)
            rows.append(box.itemText(row));
        return rows;
    }
    QLabel& Label(const char* text)
    {
        for (QLabel* label : Dialog->findChildren<QLabel*>()) {
            if (label->text() == QLatin1StringView(text))
                return *label;
        }
        throw std::runtime_error(std::string("no label ") + text);
    }
    QString Stored(const char* key) const
    {
        return ReadProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                                QLatin1StringView(key), QStringLiteral("(absent)"));
    }

    DesktopStation Station;
    vantrel::Session& Session = Station.Session;
    QPointer<frmCommSettings> Dialog;
};

} // namespace vantrel::test
