#include "station/commands/Version4Import.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "drawing/PageCanvas.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <QFileInfo>

namespace vantrel {

namespace {

/// Initial size of a text in twips, before it is fitted to its caption.
constexpr std::int32_t FirstWidth = 1500;
constexpr std::int32_t FirstHeight = 600;

const QString SettingsSection = QStringLiteral("Settings");
const QString PictureSection = QStringLiteral("Picture");

/// How the keys of one kind of text are built: `Prefix`, a word and the number; the key of the text
/// itself differs.
struct TextKeys
{
    const char* Count;
    const char* Text;
    const char* Prefix;
};

constexpr TextKeys FieldKeys{"NumberOfFields", "CardDatafldCaption", "CardDatafld"};
constexpr TextKeys StaticKeys{"NumberOfText", "Text", "Text"};

/// One text object of the file.
struct OldText
{
    TextLooks Looks;
    ObjectBox Box;
};

/// A session file of version 4. A missing key reads as the empty text, which fails where a number
/// or boolean is expected.
class OldSession
{
public:
    explicit OldSession(const QString& path) { m_file.SetINI_Filename(path); }

    QString Text(const QString& section, const QString& key) const
    {
        return m_file.ReadSetting(section, key, QString()).value_or(QString());
    }
    std::int32_t Number(const QString& section, const QString& key) const
    {
        return ToLong(Text(section, key));
    }
    /// Reads the ten keys of a text. Fails like `ToLong`.
    OldText ReadText(const TextKeys& keys, int number) const
    {
        const auto value = [&](const char* word) {
            return Text(SettingsSection, QLatin1StringView(keys.Prefix) + QLatin1StringView(word) +
                                             QString::number(number));
        };
        OldText text;
        text.Looks.cCaption =
            Text(SettingsSection, QLatin1StringView(keys.Text) + QString::number(number));
        text.Looks.cAlignment = ToInteger(value("Align"));
        text.Box = {ToLong(value("Top")), ToLong(value("Left")), FirstHeight, FirstWidth};
        Font& font = text.Looks.cFont;
        font.Name = value("FontName");
        font.Size = ToDouble(value("FontSize"));
        font.Bold = ToBoolean(value("FontBold"));
        font.Italic = ToBoolean(value("FontItalic"));
        font.Underline = ToBoolean(value("FontUnderline"));
        text.Looks.cForeColor = ToLong(value("FontColor"));
        return text;
    }

private:
    ESet2 m_file;
};

void TakeSizeOfCaption(CardObject& object)
{
    object.Width = static_cast<float>(PageCanvas::TextWidth(object.Caption(), object.Font()));
    object.Height = static_cast<float>(PageCanvas::TextHeight(object.Caption(), object.Font()));
}

void DrawFields(Session& session, const OldSession& old)
{
    const std::int16_t count =
        ToInteger(old.Text(SettingsSection, QLatin1StringView(FieldKeys.Count)));
    for (std::int16_t number = 0; number < count; ++number) {
        const OldText text = old.ReadText(FieldKeys, number);
        // The file counts fields from 0, a record counts values from 1.
        const auto field = static_cast<std::int16_t>(number + 1);
        TakeSizeOfCaption(Draw_DataField(OpenForm(session), field, text.Box, text.Looks));
    }
}

void DrawTexts(Session& session, const OldSession& old)
{
    const std::int16_t count =
        ToInteger(old.Text(SettingsSection, QLatin1StringView(StaticKeys.Count)));
    for (std::int16_t number = 0; number < count; ++number) {
        const OldText text = old.ReadText(StaticKeys, number);
        TakeSizeOfCaption(Draw_Label(OpenForm(session), text.Box, text.Looks));
    }
}

void DrawLogo(Session& session, const OldSession& old)
{
    if (old.Number(PictureSection, QStringLiteral("Checked")) < 1)
        return;
    // Version 4 wrote paths with backslashes.
    const QString name = old.Text(PictureSection, QStringLiteral("LogoName"))
                             .replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString path = session.PathInFolder(name);
    const Picture logo = LoadPicture(path);
    const auto length = [&](const char* key) {
        return old.Number(PictureSection, QLatin1StringView(key));
    };
    const std::int32_t top = length("Top");
    const std::int32_t left = length("Left");
    const std::int32_t width = length("Width");
    const std::int32_t height = length("Height");
    Draw_Image(OpenForm(session), {top, left, height, width}, 0, logo, true, path);
}

} // namespace

void ImportVersion4Session(Session& session, const QString& path)
{
    if (!QFileInfo(path).isFile())
        return;
    // The first failure ends the import.
    Skip("import version 4 session", [&] {
        const OldSession old(path);
        DrawFields(session, old);
        DrawTexts(session, old);
        DrawLogo(session, old);
    });
}

} // namespace vantrel
