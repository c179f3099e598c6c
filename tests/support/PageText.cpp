#include "support/PageText.h"
#include "card/PageDesign.h"
#include "station/session/Session.h"
#include <QJsonDocument>
#include <QTextStream>

namespace vantrel::test {

QString PageText(const vantrel::Session& session)
{
    QString text;
    QTextStream out(&text);
    for (const auto& object : session.Document.Objects()) {
        if (!object->IsContent())
            continue;
        out << FamilyName(object->Family()) << ' ' << object->Index() << ' ' << object->Left << ' '
            << object->Top << ' ' << object->Width << ' ' << object->Height << ' '
            << object->Alignment << ' ' << object->BorderStyle << ' ' << object->Appearance << ' '
            << object->BackStyle << ' ' << object->BackColor << ' ' << object->ForeColor << ' '
            << object->Visible << object->Stretch << static_cast<int>(object->Fit)
            << object->Picture.HasHandle() << " [" << object->Caption() << "] [" << object->Tag
            << "] [" << object->LinkItem << "] [" << object->DataField << "] ["
            << object->DataMember << "] [" << object->ToolTipText << "] "
            << QJsonDocument(object->Extras).toJson(QJsonDocument::Compact);
        if (object->IsLabel()) {
            const Font& font = object->Font();
            out << ' ' << font.Name << ' ' << font.Size << ' ' << font.Bold << font.Italic
                << font.Underline << font.Strikethrough;
        }
        out << '\n';
    }
    const LayoutParamsRecord& params = session.CurrentParams;
    out << params.PrinterDevice << ' ' << params.PrinterOrientation << ' ' << params.PrinterType
        << ' ' << params.PrinterCopies << ' ' << params.Encode << " [" << params.Track1 << "] ["
        << params.Track2 << "] [" << params.Track3 << "] [" << params.BackImg1Path << ' '
        << params.BackImg1Picture.HasHandle() << "] [" << session.Document.Tag << "] "
        << session.Document.Width << ' ' << session.Document.Height << '\n';
    out.flush();
    return text;
}

} // namespace vantrel::test
