#pragma once

#include "base/Color.h"
#include "base/Font.h"
#include "drawing/Picture.h"
#include "drawing/PictureFit.h"
#include <QJsonObject>
#include <QString>
#include <cstdint>

namespace vantrel {

/// The families of objects on the document, addressed by family and index.
enum class Family { lbl_DATA, lbl_TEXT, lbl_AUTO, img_LXV, img_CAM, picHandle };
inline constexpr int FamilyCount = 6;

/// @return the family's name, such as "lbl_DATA"
QString FamilyName(Family family);

/// Words used in the slots of objects and in the store. They are compared exactly, case included.
namespace Marker {
inline constexpr QLatin1StringView StaticText{"LXV01"};
inline constexpr QLatin1StringView DataField{"LXV01BDF"};
inline constexpr QLatin1StringView AutoNumber{"AUTO"};
inline constexpr QLatin1StringView DataFieldRow{"BDF"};
inline constexpr QLatin1StringView StaticTextRow{"TXT"};
inline constexpr QLatin1StringView Camera{"CVIEW"};
inline constexpr QLatin1StringView NotIncluded{"NO_INCL"};
inline constexpr QLatin1StringView LabelRow{"VB.Label"};
inline constexpr QLatin1StringView ImageRow{"VB.Image"};
inline constexpr QLatin1StringView PictureWhole{"WHOLE"};
inline constexpr QLatin1StringView PictureFilled{"FILL"};
/// Reserved words; nothing sets or tests them.
inline constexpr QLatin1StringView Reserved[] = {
    QLatin1StringView{"LTS"}, QLatin1StringView{"NVIEW"}, QLatin1StringView{"SVIEW"},
    QLatin1StringView{"RDF"}, QLatin1StringView{"LBC"},   QLatin1StringView{"_TimeStamp_"}};
} // namespace Marker

/// The word that a row of an image has for the way its picture is drawn; empty for a stretched one.
QLatin1StringView WordOfFit(PictureFit fit);

/// One drawable object of the page. `Tag`, `LinkItem`, `DataField`, `DataMember` and `ToolTipText`
/// hold the station's own data. Positions and sizes are in twips, from the page's top left corner.
class CardObject
{
public:
    /// @param index  0 for the hidden template of the family, else from 1
    CardObject(vantrel::Family family, int index) : m_family(family), m_index(index) {}

    vantrel::Family Family() const { return m_family; }
    int Index() const { return m_index; }
    /// "Label", "Image" or "PictureBox".
    QLatin1StringView TypeName() const;
    bool IsLabel() const;
    bool IsImage() const;
    /// Whether it is card content, that is, its `Tag` is not "NO_INCL".
    bool IsContent() const { return Tag != Marker::NotIncluded; }

    const QString& Caption() const { return m_caption; }
    /// Sets the caption. For data fields and automatic numbers all characters of `Tag` are removed
    /// from it, even if the text has not changed.
    void SetCaption(const QString& text);
    /// Takes the caption as another object shows it, without removing anything.
    void TakeCaption(const CardObject& other) { m_caption = other.m_caption; }

    /// The font of a label. Fails with `PropertyNotSupported` for other objects.
    const vantrel::Font& Font() const;
    void SetFont(const vantrel::Font& font) { m_font = font; }

    float Top = 0;
    float Left = 0;
    float Height = 0;
    float Width = 0;
    /// 0 left, 1 right, 2 centre.
    std::int16_t Alignment = 0;
    std::int16_t BorderStyle = 0;
    std::int16_t Appearance = 0;
    std::int16_t BackStyle = 0;
    ColorValue BackColor = ColorWhite;
    ColorValue ForeColor = ColorBlack;
    bool Visible = false;
    bool Stretch = false;
    /// How an image draws its picture in its box.
    PictureFit Fit = PictureFit::Stretched;
    vantrel::Picture Picture;
    /// Whether the record in hand names the picture, see `FillRecordPictures`. It is then printed
    /// as it is here, and not read from the path.
    bool IsRecordPicture = false;
    /// Why there is no such picture; empty otherwise.
    QString PictureProblem;
    /// For a text its filter characters, for an image its path or "CVIEW"; "NO_INCL" if it is not
    /// card content.
    QString Tag;
    /// The kind of the object, one of `Marker`.
    QString LinkItem;
    /// For a data field the position of its value in the record, for an automatic number its
    /// current number, in decimal.
    QString DataField;
    /// For an automatic number the key of its row in the store; 0 before it was loaded or saved.
    qlonglong StoreKey = 0;
    /// Tells the object from all others while the designer's steps are kept; 0 for none yet.
    qulonglong DesignKey = 0;
    /// Properties that have no column of their own in the store, by their names; nearly always
    /// empty. See `ObjectExtras.h`.
    QJsonObject Extras;
    /// The word of its check digit scheme; empty for none.
    QString DataMember;
    /// For a data field: prefix, carriage return and suffix.
    QString ToolTipText;

private:
    vantrel::Family m_family;
    int m_index;
    QString m_caption;
    vantrel::Font m_font;
};

} // namespace vantrel
