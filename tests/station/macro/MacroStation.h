#pragma once

#include "station/capture/StationWithLayout.h"
#include "station/macro/RunMacro.h"
#include "store/Recordset.h"

namespace vantrel::test {

/// A station with the layouts "A", "B", "C" and "Manual" in its store, the last without automatic
/// printing. Each prints its name as one text, then field 1; the record at hand is "one".
class MacroStation : public StationWithLayout
{
protected:
    MacroStation()
    {
        Station.WithDatabase();
        for (const char* name : {"A", "B", "C", "Manual"}) {
            BeginCard(QString::fromLatin1(name));
            Session.CurrentParams.AutoSpool =
                QLatin1StringView(name) != QLatin1StringView("Manual");
            SavePage(Session);
        }
        CloseLayout(Session);
        SetRecord(Session, {QStringLiteral("one")});
        Station.Printers.Operations.clear();
    }

    void BeginCard(const QString& name)
    {
        BeginLayout(Session, name);
        AddText(Session, name);
        AddField(Session, 1);
    }

    /// An empty name makes a row without one.
    void DefineMacro(const QString& name, const QStringList& layouts)
    {
        const int id = ++m_lastId;
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [Macros]"), CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("ID"), id);
        rows.SetValue(QStringLiteral("MacroName"), name);
        rows.Update();
        rows.Open(QStringLiteral("SELECT * FROM [MacroElements]"), CursorLock::Optimistic);
        for (const QString& layout : layouts) {
            rows.AddNew();
            rows.SetValue(QStringLiteral("MacroID"), id);
            if (!layout.isEmpty())
                rows.SetValue(QStringLiteral("LayoutName"), layout);
            rows.Update();
        }
    }

    /// What cards print, each given as "layout value".
    static QStringList Cards(const QStringList& cards)
    {
        QStringList texts;
        for (const QString& card : cards) {
            const qsizetype blank = card.lastIndexOf(u' ');
            for (const QString& text : {card.left(blank), card.mid(blank + 1)})
                texts.append(QStringLiteral("Print(\"%1\")").arg(text));
        }
        return texts;
    }

    const QString Macro = QStringLiteral("Card and carrier");

private:
    int m_lastId = 0;
};

} // namespace vantrel::test
