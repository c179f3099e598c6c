#include "support/Layouts.h"
#include "base/Convert.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "store/Recordset.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {
ObjectBox BoxOf(const TextAt& at)
{
    return {at.Top, at.Left, at.Height, at.Width};
}
} // namespace

void BeginLayout(vantrel::Session& session, const QString& name, std::int32_t printerType)
{
    EnsureDocument(session);
    ClearDoc(session);
    session.CurrentLayoutName = name;
    LayoutParamsRecord params;
    params.PrinterDevice = session.Printers.Current().DeviceName();
    params.PrinterOrientation = OrientationPortrait;
    params.PrinterType = printerType;
    params.PrinterCopies = 1;
    params.PageIndex = 1;
    params.PageCount = 1;
    params.AutoSpool = true;
    session.CurrentParams = params;
}

CardObject& AddText(vantrel::Session& session, const QString& caption, TextAt at)
{
    TextLooks looks;
    looks.cCaption = caption;
    return Draw_Label(OpenForm(session), BoxOf(at), looks);
}

CardObject& AddField(vantrel::Session& session, std::int16_t field, TextAt at)
{
    return Draw_DataField(OpenForm(session), field, BoxOf(at), TextLooks());
}

CardObject& AddNumber(vantrel::Session& session, double seed, TextAt at)
{
    return Draw_AutoNumber(OpenForm(session), seed, BoxOf(at), TextLooks());
}

CardObject& AddImage(vantrel::Session& session, const QString& path, TextAt at)
{
    return Draw_Image(OpenForm(session), BoxOf(at), 0, Picture(), true, path);
}

void SavePage(vantrel::Session& session)
{
    ASSERT_TRUE(SaveLayout(session, SaveMessages::Silent));
}

void BeginPage(vantrel::Session& session, std::int16_t page)
{
    session.CurrentParams.PageIndex = page;
    ClearDoc_Ex(session);
}

void SetRecord(vantrel::Session& session, const QStringList& values)
{
    session.FieldValues = FieldValues();
    for (const QString& value : values)
        session.FieldValues.Add(value);
}

QStringList StoredNumbers(vantrel::Session& session, const QString& layoutName)
{
    return StoredNumbers(session.LayoutDb, layoutName);
}

QStringList StoredNumbers(Connection& store, const QString& layoutName)
{
    QStringList numbers;
    Recordset rows(store);
    rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = '%1'").arg(layoutName));
    for (; !rows.IsEof(); rows.MoveNext()) {
        if (JoinedText(rows.Value(QStringLiteral("C_Param_1"))) == Marker::AutoNumber)
            numbers.append(JoinedText(rows.Value(QStringLiteral("C_Value"))));
    }
    return numbers;
}

} // namespace vantrel::test
