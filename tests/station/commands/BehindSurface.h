#pragma once

#include "station/capture/Pipeline.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/Navigation.h"
#include "store/Recordset.h"
#include "store/StoreDatabase.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <gtest/gtest.h>

namespace vantrel::test {

/// A station with design tools, on which records come as from one host. The layout "Badge" has the
/// texts "Visitor" and "Back" on its two pages, each with a field. On the surface its first page is
/// changed and not saved: "Visitor" was moved, and the text "Draft", which is selected, was added.
/// Three further layouts "A", "B" and "C" print their names, and field 1.
class BehindSurface : public ::testing::Test
{
protected:
    BehindSurface()
    {
        Session.Options.DesignTools = true;
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Station.WithDatabase();
        for (const char* name : {"A", "B", "C"}) {
            BeginLayout(Session, QLatin1StringView(name));
            AddText(Session, QLatin1StringView(name));
            AddField(Session, 1);
            SavePage(Session);
        }
        BeginLayout(Session, Badge);
        AddText(Session, QStringLiteral("Visitor"));
        AddField(Session, 1);
        SavePage(Session);
        BeginPage(Session, 2);
        AddText(Session, QStringLiteral("Back"));
        AddField(Session, 2);
        SavePage(Session);
        OpenLayout(Session, Badge);
        Change();
        Station.Printers.Operations.clear();
    }

    void Change()
    {
        NoteDesign(Session);
        Text(1).Left = 900;
        NoteDesign(Session);
        Session.Document.SelectedObject = &AddText(Session, QStringLiteral("Draft"));
        NoteDesign(Session);
        Began = Surface();
    }

    CardObject& Text(int index) { return *Session.Document.Find(Family::lbl_TEXT, index); }

    /// Everything that the operator sees of the page, and can take back.
    QString Surface()
    {
        const CardObject* selected = Session.Document.SelectedObject;
        return PageText(Session) + Session.CurrentLayoutName +
               QStringLiteral(" %1/%2 %3 %4 %5 ")
                   .arg(Session.CurrentParams.PageIndex)
                   .arg(Session.CurrentParams.PageCount)
                   .arg(selected == nullptr ? QString() : selected->Caption())
                   .arg(CanUndoDesign(Session))
                   .arg(IsPageUnsaved(Session)) +
               Session.Face.Caption() + Station.Printers.Current().DeviceName();
    }

    void Arrive(const QString& record = QStringLiteral("<one+two>"))
    {
        TakeArrival(Session, record,
                    {QStringLiteral("Got Data (TCP/IP)"), QStringLiteral("192.0.2.7")});
    }

    /// The texts that went to the printer since the last call, without the blank of each page.
    QStringList TakePrinted()
    {
        QStringList texts;
        for (QString text : Station.Printers.Only({QStringLiteral("Print(\"")})) {
            text = text.sliced(7).chopped(2);
            if (text != QStringLiteral(" "))
                texts.append(text);
        }
        Station.Printers.Operations.clear();
        return texts;
    }

    void DefineMacro(const QStringList& layouts)
    {
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [Macros]"), CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("ID"), 1);
        rows.SetValue(QStringLiteral("MacroName"), QStringLiteral("Chain"));
        rows.Update();
        rows.Open(QStringLiteral("SELECT * FROM [MacroElements]"), CursorLock::Optimistic);
        for (const QString& layout : layouts) {
            rows.AddNew();
            rows.SetValue(QStringLiteral("MacroID"), 1);
            rows.SetValue(QStringLiteral("LayoutName"), layout);
            rows.Update();
        }
    }

    const QString Badge = QStringLiteral("Badge");
    /// What the two pages of the stored layout print for the usual record.
    const QStringList Stored = {QStringLiteral("Visitor"), QStringLiteral("one"),
                                QStringLiteral("Back"), QStringLiteral("two")};
    TestSession Station{{QStringLiteral("Card Printer"), QStringLiteral("Paper Printer")}};
    vantrel::Session& Session = Station.Session;
    QString Began;
};

} // namespace vantrel::test
