#pragma once

#include "base/Color.h"
#include "base/Font.h"
#include "drawing/Picture.h"
#include <QString>
#include <cstdint>

namespace vantrel {

/// The families of objects on the document, addressed by family and index.
enum class Family { lbl_DATA, lbl_TEXT, lbl_AUTO, img_LXV, img_CAM, picHandle };
inline constexpr int FamilyCount = 6;

/// @return the family's name, such as "lbl_DATA"
QString FamilyName(Family family);

/// Words that stand in an object's slots and in the store. Compared exactly, case included.
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
/// Part of the vocabulary, set and tested by nothing.
inline constexpr QLatin1StringView Reserved[] = {
    QLatin1StringView{"LTS"}, QLatin1StringView{"NVIEW"}, QLatin1StringView{"SVIEW"},
    QLatin1StringView{"RDF"}, QLatin1StringView{"LBC"},   QLatin1StringView{"_TimeStamp_"}};
} // namespace Marker

/// One drawable element of the page. The station keeps its own data in the slots `Tag`, `LinkItem`,
/// `DataField`, `DataMember` and `ToolTipText`. Geometry is twips from the page's top left corner.
class CardObject
{
public:
    CardObject(vantrel::Family family, int index) : m_family(family), m_index(index) {}

    vantrel::Family Family() const { return m_family; }
    int Index() const { return m_index; }
    /// "Label", "Image" or "PictureBox".
    QLatin1StringView TypeName() const;
    bool IsLabel() const;
    bool IsImage() const;
    /// Whether it is card content: anything whose `Tag` is not "NO_INCL".
    bool IsContent() const { return Tag != Marker::NotIncluded; }

    const QString& Caption() const { return m_caption; }
    /// Sets the caption. On data fields and automatic numbers every character of `Tag` is removed
    /// from it, also where the text is the one it already has.
    void SetCaption(const QString& text);

    /// Fails with `PropertyNotSupported` on anything but a label.
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
    vantrel::Picture Picture;
    /// Filter characters of a text; the path of an image, or "CVIEW"; "NO_INCL" on what is no card
    /// content.
    QString Tag;
    /// The kind marker.
    QString LinkItem;
    /// Position of the value in the record, or the current number, in decimal.
    QString DataField;
    /// The check digit word.
    QString DataMember;
    /// Prefix, carriage return, suffix of a data field.
    QString ToolTipText;

private:
    vantrel::Family m_family;
    int m_index;
    QString m_caption;
    vantrel::Font m_font;
};

} // namespace vantrel
