#include "station/commands/FigureCommands.h"
#include "base/Skip.h"
#include "card/CaptionFigure.h"
#include "card/CardDocument.h"
#include "card/LayoutParamsRecord.h"
#include "card/PaintDocument.h"
#include "drawing/PageCanvas.h"
#include "station/session/Session.h"
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1StringView TextChoice{"Text"};

Font FontFor(const CardDocument& document, Font font, const QString& choice)
{
    if (choice != TextChoice)
        font.Name = choice;
    else if (IsFigureFont(font))
        font.Name = document.DefaultFont.value_or(Font()).Name;
    return font;
}

} // namespace

const CardObject* SelectedLabel(const CardDocument& document)
{
    const CardObject* selected = document.SelectedObject;
    return selected != nullptr && selected->IsLabel() ? selected : nullptr;
}

QString FigureChoiceOf(const CardObject& label)
{
    return IsFigureFont(label.Font()) ? label.Font().Name : QString(TextChoice);
}

QStringList FigureChoices()
{
    return QStringList(QString(TextChoice)) + FigureFontNames();
}

void ChooseFigure(Session& session, const CardObject* label, const QString& choice)
{
    CardDocument& document = session.Document;
    CardObject* selected = document.SelectedObject;
    if (selected == nullptr || selected != label || SelectedLabel(document) == nullptr)
        return;
    selected->SetFont(FontFor(document, selected->Font(), choice));
    document.Refresh();
}

QImage FigurePreview(const CardObject& label, const QString& choice, QSize room)
{
    CardDocument page;
    page.Load();
    page.Width = std::max(label.Width, 1.0F);
    page.Height = std::max(label.Height, 1.0F);
    CardObject& shown = page.Add(Family::lbl_TEXT);
    shown.SetFont(FontFor(page, label.Font(), choice));
    shown.SetCaption(label.Caption());
    shown.ForeColor = label.ForeColor;
    shown.Alignment = label.Alignment;
    shown.Width = label.Width;
    shown.Height = label.Height;
    const QSizeF size(static_cast<double>(page.Width), static_cast<double>(page.Height));
    const double scale = std::min(room.width() / size.width(), room.height() / size.height());
    QImage picture((size * scale).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    picture.fill(Qt::white);
    Skip("draw preview", [&] {
        const auto canvas = PageCanvas::OnImage(picture, scale);
        PaintDocument(page, {}, *canvas);
        canvas->Finish();
    });
    return picture;
}

} // namespace vantrel
