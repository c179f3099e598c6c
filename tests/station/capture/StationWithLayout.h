#pragma once

#include "station/capture/Pipeline.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

/// A station on which records come as from one host, with a layout of two data fields to open.
class StationWithLayout : public ::testing::Test
{
protected:
    StationWithLayout()
    {
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    }

    /// Stores a layout that prints by itself and opens it.
    void OpenLayout(bool withCamera = false)
    {
        const QString name = QStringLiteral("Badge");
        Station.WithDatabase();
        BeginLayout(Session, name);
        AddField(Session, 1);
        AddField(Session, 2);
        if (withCamera)
            Draw_CamView(OpenForm(Session), {}, 0, Picture(), true, {});
        SavePage(Session);
        ASSERT_TRUE(LoadLayout(Session, name));
        Station.Printers.Operations.clear();
    }

    void Arrive(const char* characters)
    {
        TakeArrival(Session, QString::fromLatin1(characters),
                    {QStringLiteral("Got Data (TCP/IP)"), QStringLiteral("192.0.2.7")});
    }

    /// The texts that went to the printer, without the blank that opens each page.
    QStringList Printed() const
    {
        QStringList texts = Station.Printers.Only({QStringLiteral("Print(")});
        texts.removeAll(QStringLiteral("Print(\" \")"));
        return texts;
    }

    static QStringList Prints(const QStringList& texts)
    {
        QStringList operations;
        for (const QString& text : texts)
            operations.append(QStringLiteral("Print(\"%1\")").arg(text));
        return operations;
    }

    QStringList Values() const
    {
        QStringList values;
        for (int position = 1; position <= Session.FieldValues.Count(); ++position)
            values.append(Session.FieldValues.Item(position));
        return values;
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
    const QString A = QStringLiteral("A");
    const QString B = QStringLiteral("B");
    const QString C = QStringLiteral("C");
    const QString D = QStringLiteral("D");
};

} // namespace vantrel::test
