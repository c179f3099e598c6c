#include "card/PageCheck.h"
#include "base/Contrast.h"
#include "base/DesktopColor.h"
#include "card/CaptionFigure.h"
#include "card/CardDocument.h"
#include "card/FieldValues.h"
#include "card/FittedFont.h"
#include "card/Grounds.h"
#include "card/LayoutParamsRecord.h"
#include "card/ObjectFindings.h"
#include "card/TextLeft.h"
#include "card/TrackFindings.h"
#include "drawing/PageCanvas.h"
#include "drawing/ShownFamily.h"
#include <QHash>
#include <QSet>
#include <algorithm>

namespace vantrel {

namespace {

/// Contrast that text needs; large text needs less.
constexpr double LeastContrast = 4.5;
constexpr double LeastContrastOfLarge = 3;
/// From these sizes on text is large, in points.
constexpr double LargeText = 18;
constexpr double LargeBoldText = 14;

/// Names that stand for whatever family the machine has.
bool IsAnyFamily(const QString& name)
{
    static const QSet<QString> names = {QStringLiteral("sans"),       QStringLiteral("sans-serif"),
                                        QStringLiteral("sans serif"), QStringLiteral("serif"),
                                        QStringLiteral("monospace"),  QStringLiteral("system-ui")};
    return names.contains(name.toLower());
}

QSizeF SizeOf(const CardDocument& document)
{
    return {static_cast<double>(document.Width), static_cast<double>(document.Height)};
}

QRectF BoxOf(const CardObject& object)
{
    return {static_cast<double>(object.Left), static_cast<double>(object.Top),
            static_cast<double>(object.Width), static_cast<double>(object.Height)};
}

QRectF TextBoxOf(const CardObject& label, const Font& shown)
{
    const double width = PageCanvas::TextWidth(label.Caption(), shown);
    return {TextLeft(label, width), static_cast<double>(label.Top), width,
            PageCanvas::TextHeight(label.Caption(), shown)};
}

Finding MissingPicture(const QString& where, const QString& path, const QString& problem)
{
    Finding finding{.Kind = FindingKind::PictureMissing,
                    .Where = where,
                    .What = QStringLiteral("The picture is missing"),
                    .Detail = problem.isEmpty() ? path : problem,
                    .Advice =
                        QStringLiteral("Choose a picture, or put the file back in its place.")};
    if (path.isEmpty())
        finding.What = QStringLiteral("No picture is chosen");
    return finding;
}

class Check
{
public:
    explicit Check(const CheckedPage& page) : m_page(page), m_grounds(SizeOf(page.Document)) {}

    Findings Run()
    {
        m_findings = FindingsOnTracks(m_page.Params, m_page.Values);
        CheckBackImage();
        for (const auto& object : m_page.Document.Objects()) {
            if (!object->IsContent())
                continue;
            if (object->IsLabel())
                CheckLabel(*object);
            else if (object->IsImage())
                CheckImage(*object);
        }
        for (Finding& finding : m_findings)
            finding.Page = m_page.Params.PageIndex;
        return std::move(m_findings);
    }

private:
    void Add(std::optional<Finding> finding)
    {
        if (finding)
            m_findings.push_back(std::move(*finding));
    }

    void Paint(const Picture& picture, PictureFit fit, const QRectF& box)
    {
        if (picture.HasHandle())
            m_grounds.Paint([&](PageCanvas& canvas) {
                canvas.PaintFitted(picture, fit, box.left(), box.top(), box.width(), box.height());
            });
    }

    void CheckBackImage()
    {
        const QString where = QStringLiteral("Background");
        const Picture& picture = m_page.Params.BackImg1Picture;
        if (!m_page.Params.BackImg1Path.isEmpty() && !picture.HasHandle())
            Add(MissingPicture(where, m_page.Params.BackImg1Path, {}));
        const QSizeF card = SizeOf(m_page.Document);
        Add(CoarseFinding(picture, PictureFit::Stretched, card, where));
        Paint(picture, PictureFit::Stretched, {{0, 0}, card});
    }

    void CheckImage(const CardObject& image)
    {
        const bool isCamera = image.Tag == Marker::Camera;
        // Without a record nobody knows which picture it will be.
        const bool isUnknown = image.IsRecordPicture && image.PictureProblem.isEmpty();
        std::optional<Finding> finding;
        if (!image.Picture.HasHandle() && !isCamera && !isUnknown)
            finding = MissingPicture(FindingNameOf(image), image.Tag, image.PictureProblem);
        else if (!isCamera || !(image.Picture == m_page.CameraPlaceholder))
            finding =
                CoarseFinding(image.Picture, image.Fit, BoxOf(image).size(), FindingNameOf(image));
        if (finding)
            finding->Object = ObjectKey{image.Family(), image.Index()};
        Add(std::move(finding));
        Paint(image.Picture, image.Fit, BoxOf(image));
    }

    void CheckLabel(const CardObject& label)
    {
        if (!IsFigureFont(label.Font())) {
            CheckText(label);
            return;
        }
        const CaptionFigure figure = FigureOf(label, m_page.DotsPerInch);
        if (IsCodeFont(label.Font()))
            CheckCode(label, figure);
        else
            m_grounds.Paint(
                [&](PageCanvas& canvas) { canvas.FillBoxes(figure.Boxes, label.ForeColor); });
    }

    void CheckText(const CardObject& label)
    {
        if (label.Caption().isEmpty())
            return;
        const Font shown = FittedFont(label);
        Add(TextFinding(label, shown, SizeOf(m_page.Document)));
        CheckFont(label);
        const bool isLarge = shown.Size >= LargeText || (shown.Bold && shown.Size >= LargeBoldText);
        CheckContrast(label, TextBoxOf(label, shown),
                      isLarge ? LeastContrastOfLarge : LeastContrast);
    }

    void CheckCode(const CardObject& label, const CaptionFigure& figure)
    {
        const bool isOnlyName = label.Family() == Family::lbl_DATA && m_page.Values.Count() == 0;
        if (figure.Trouble.isEmpty() || figure.NeedsLargerBox || !isOnlyName)
            Add(CodeFinding(label, figure));
        if (label.Caption().isEmpty())
            return;
        const auto ground = m_grounds.Mean(BoxOf(label));
        if (ground && IsLighter(label.ForeColor, *ground)) {
            Finding finding = FindingOn(label, FindingKind::ContrastLow);
            finding.What = QStringLiteral("The code is lighter than what lies behind it");
            finding.Advice = QStringLiteral("Most readers want dark modules on a light ground.");
            Add(finding);
            return;
        }
        CheckContrast(label, BoxOf(label), LeastContrast);
    }

    static bool IsLighter(ColorValue one, ColorValue other)
    {
        return Contrast(ColorOf(one), Qt::black) > Contrast(ColorOf(other), Qt::black);
    }

    void CheckContrast(const CardObject& label, const QRectF& box, double least)
    {
        const auto ground = m_grounds.Mean(box);
        if (!ground)
            return;
        const double contrast = Contrast(ColorOf(label.ForeColor), ColorOf(*ground));
        if (contrast >= least)
            return;
        Finding finding = FindingOn(label, FindingKind::ContrastLow);
        finding.What = QStringLiteral("The colour is hard to tell from what lies behind it");
        finding.Detail = QStringLiteral("contrast %1 to 1, at least %2 is wanted")
                             .arg(QString::number(contrast, 'f', 1), QString::number(least));
        finding.Advice = QStringLiteral("Choose a darker or lighter colour (Properties, Colors).");
        Add(finding);
    }

    void CheckFont(const CardObject& label)
    {
        const Font& font = label.Font();
        auto shown = m_families.constFind(font.Name);
        if (shown == m_families.cend())
            shown = m_families.insert(font.Name, OtherFamily(font));
        if (shown->isEmpty())
            return;
        Finding finding = FindingOn(label, FindingKind::FontMissing);
        finding.What = QStringLiteral("The font %1 is not installed").arg(font.Name);
        finding.Detail = QStringLiteral("%1 is printed instead").arg(*shown);
        finding.Advice = QStringLiteral("Install the font, or choose another one.");
        Add(finding);
    }

    /// The family that takes the place of a font's own; empty if that is there.
    QString OtherFamily(const Font& font)
    {
        if (m_installed.isEmpty()) {
            for (const QString& name : PageCanvas::FontFamilies())
                m_installed.insert(name.toLower());
        }
        if (IsAnyFamily(font.Name) || m_installed.contains(font.Name.toLower()))
            return {};
        QString shown = ShownFamily(font);
        return shown.compare(font.Name, Qt::CaseInsensitive) == 0 ? QString() : shown;
    }

    const CheckedPage& m_page;
    Grounds m_grounds;
    Findings m_findings;
    QHash<QString, QString> m_families;
    QSet<QString> m_installed;
};

} // namespace

Findings CheckPage(const CheckedPage& page)
{
    return Check(page).Run();
}

} // namespace vantrel
