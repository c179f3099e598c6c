#include "station/compose/FieldDialogs.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "card/Padding.h"
#include "card/ShownValues.h"
#include "station/compose/ComposerElement.h"
#include "station/session/Session.h"
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1StringView FieldText{"Data Field "};
constexpr QChar CarriageReturn{13};

} // namespace

void BeginPad(PadResult& pad)
{
    pad.PadChars.clear();
    pad.PadLen = 0;
    pad.PadDirection = 0;
}

QStringList PadFieldTexts(const FieldValues& values)
{
    QStringList texts;
    const int listed = std::min(values.Count(), MostValuesListed);
    for (int number = 1; number <= listed; ++number)
        texts.append(FieldText + QString::number(number));
    return texts;
}

void ChoosePadField(PadResult& pad, const QString& text)
{
    pad.PadField = ToInteger(text.sliced(FieldText.size()));
}

QString PadLengthText(int length)
{
    return length < 1 ? QStringLiteral("BYP") : QString::number(length);
}

bool IsPadLength(const QString& text)
{
    try {
        ToInteger(text);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void SavePad(PadResult& pad, const QString& padChars, const QString& lengthText,
             std::int32_t direction)
{
    pad.PadLen = ToInteger(lengthText);
    pad.PadChars = padChars;
    pad.PadDirection = direction;
}

PreSuffix SelectedPreSuffix(const CardDocument& document)
{
    const CardObject* field = document.Find(Family::lbl_DATA, document.SelectedIndex);
    if (field == nullptr)
        return {};
    const QStringList parts = field->ToolTipText.split(CarriageReturn);
    return {parts.value(0), parts.value(1)};
}

void SavePreSuffix(CardDocument& document, const PreSuffix& around)
{
    CardObject* field = document.Find(Family::lbl_DATA, document.SelectedIndex);
    if (field != nullptr)
        field->ToolTipText = around.Prefix + CarriageReturn + around.Suffix;
}

QString SelectedFilters(const CardDocument& document)
{
    const CardObject* selected = document.SelectedObject;
    return selected == nullptr ? QString() : selected->Tag;
}

void SaveFilters(CardDocument& document, const QString& characters)
{
    CardObject* selected = document.SelectedObject;
    if (selected != nullptr)
        selected->Tag = characters;
}

ValueSample SampleOfPreSuffix(const Session& session, const PreSuffix& around)
{
    const CardDocument& document = session.Document;
    const CardObject* field = document.Find(Family::lbl_DATA, document.SelectedIndex);
    if (field == nullptr)
        return {};
    CardObject changed = *field;
    changed.ToolTipText = around.Prefix + CarriageReturn + around.Suffix;
    return SampleOf(document, changed, session.FieldValues, MachineDecimalSeparator());
}

ValueSample SampleOfFilters(const Session& session, const QString& characters)
{
    const CardObject* selected = session.Document.SelectedObject;
    if (selected == nullptr || !selected->IsLabel() || selected->Family() == Family::lbl_TEXT)
        return {};
    CardObject changed = *selected;
    changed.Tag = characters;
    return SampleOf(session.Document, changed, session.FieldValues, MachineDecimalSeparator());
}

ValueSample SampleOfPad(const Session& session, const QString& padChars, const QString& lengthText,
                        std::int32_t direction)
{
    ValueSample sample{SampleSource::Example, ExampleValue, {}};
    Skip("value of the field", [&] {
        sample.Value = session.FieldValues.Item(session.Pad.PadField);
        sample.Source = SampleSource::Record;
    });
    if (!IsPadLength(lengthText))
        sample.Printed = sample.Value;
    else
        Skip("sample of padding", [&] {
            sample.Printed = PadValue(sample.Value, ToInteger(lengthText), padChars, direction);
        });
    return sample;
}

} // namespace vantrel
