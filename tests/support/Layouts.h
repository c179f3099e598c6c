#pragma once

#include "support/TestSession.h"
#include <QString>
#include <QStringList>

namespace vantrel::test {

/// The place of a test's object, in twips.
struct TextAt
{
    std::int32_t Top = 200;
    std::int32_t Left = 200;
    std::int32_t Height = 300;
    std::int32_t Width = 1500;
};

/// Begins a layout of that name on page 1, with the session's current printer, one copy, printed at
/// once when a record comes.
void BeginLayout(vantrel::Session& session, const QString& name, std::int32_t printerType = 9);

/// Adds an object to the page that is open. Boxes are top, left, height, width in twips.
CardObject& AddText(vantrel::Session& session, const QString& caption, TextAt at = {});
CardObject& AddField(vantrel::Session& session, std::int16_t field, TextAt at = {});
CardObject& AddNumber(vantrel::Session& session, double seed, TextAt at = {});
CardObject& AddImage(vantrel::Session& session, const QString& path, TextAt at = {});

/// Saves the open page; the test fails where that fails.
void SavePage(vantrel::Session& session);
/// Goes to a page as the operator's next page command does: empties the form for a new page.
void BeginPage(vantrel::Session& session, std::int16_t page);
/// Makes these the values of the last record.
void SetRecord(vantrel::Session& session, const QStringList& values);
/// The stored current numbers of a layout's automatic numbers, page by page in row order.
QStringList StoredNumbers(vantrel::Session& session, const QString& layoutName);
QStringList StoredNumbers(Connection& store, const QString& layoutName);

} // namespace vantrel::test
