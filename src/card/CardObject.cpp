#include "card/CardObject.h"
#include "base/Failure.h"
#include "card/StripChars.h"
#include <array>

namespace vantrel {

namespace {

struct FamilyRow
{
    QLatin1StringView Name;
    QLatin1StringView TypeName;
};

constexpr QLatin1StringView LabelType{"Label"};
constexpr QLatin1StringView ImageType{"Image"};
constexpr QLatin1StringView GripType{"PictureBox"};

/// In the order of `Family`.
constexpr std::array<FamilyRow, FamilyCount> FamilyTable = {{
    {QLatin1StringView{"lbl_DATA"}, LabelType},
    {QLatin1StringView{"lbl_TEXT"}, LabelType},
    {QLatin1StringView{"lbl_AUTO"}, LabelType},
    {QLatin1StringView{"img_LXV"}, ImageType},
    {QLatin1StringView{"img_CAM"}, ImageType},
    {QLatin1StringView{"picHandle"}, GripType},
}};

const FamilyRow& RowOf(Family family)
{
    return FamilyTable.at(static_cast<std::size_t>(family));
}

} // namespace

QString FamilyName(Family family)
{
    return RowOf(family).Name;
}

QLatin1StringView WordOfFit(PictureFit fit)
{
    switch (fit) {
    case PictureFit::Whole:
        return Marker::PictureWhole;
    case PictureFit::Filled:
        return Marker::PictureFilled;
    case PictureFit::Stretched:
        break;
    }
    return {};
}

QLatin1StringView CardObject::TypeName() const
{
    return RowOf(m_family).TypeName;
}

bool CardObject::IsLabel() const
{
    return m_family == Family::lbl_DATA || m_family == Family::lbl_TEXT ||
           m_family == Family::lbl_AUTO;
}

bool CardObject::IsImage() const
{
    return m_family == Family::img_LXV || m_family == Family::img_CAM;
}

void CardObject::SetCaption(const QString& text)
{
    // Data fields and automatic numbers are filtered; static texts are not.
    const bool filtered = m_family == Family::lbl_DATA || m_family == Family::lbl_AUTO;
    m_caption = filtered ? StripChars(Tag, text) : text;
}

const Font& CardObject::Font() const
{
    if (!IsLabel()) {
        throw Failure(FailureNumber::PropertyNotSupported,
                      QStringLiteral("Object doesn't support this property or method"));
    }
    return m_font;
}

} // namespace vantrel
