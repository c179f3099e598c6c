#include "station/commands/NumberCommands.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "station/layout/SetNumber.h"
#include "station/layout/StoredNumbers.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <algorithm>
#include <optional>

namespace vantrel {

namespace {

const QString Title = QStringLiteral("Set Number");
/// Digits of a number that all steps of numbering count exactly.
constexpr qsizetype MostDigits = 15;
constexpr qsizetype LongestTold = 20;

std::optional<double> NumberOfText(const QString& text)
{
    const auto isDigit = [](QChar of) { return of >= u'0' && of <= u'9'; };
    if (text.isEmpty() || text.size() > MostDigits || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    const double number = text.toDouble();
    return number < 1 ? std::nullopt : std::optional(number);
}

/// What the operator wants: the number typed and, if it is one that was given, that this is meant.
struct WantedNumber
{
    QString Text;
    double Next = 0;
    bool MayRepeat = false;
};

QString NextText(double last)
{
    return NumberText(last + 1);
}

/// @return nothing if the operator has given up
std::optional<WantedNumber> AskForNumber(Operator& stationOperator, double last)
{
    for (;;) {
        const QString typed =
            stationOperator
                .InputBox(
                    QStringLiteral("The next card gets the number %1.\nNumber of the next card:")
                        .arg(NextText(last)),
                    Title, NextText(last))
                .trimmed();
        if (typed.isEmpty())
            return std::nullopt;
        if (const auto next = NumberOfText(typed))
            return WantedNumber{typed, *next};
        stationOperator.MessageBox(QStringLiteral("\"%1\" is no number for a card. Type a whole "
                                                  "number from 1 on, of at most %2 digits.")
                                       .arg(typed.left(LongestTold))
                                       .arg(MostDigits),
                                   Title, BoxIcon::Information);
    }
}

bool MayRepeat(Operator& stationOperator, const WantedNumber& wanted, double last)
{
    const QString question =
        QStringLiteral("Numbers up to %1 were given already. From %2 on, cards would get numbers "
                       "that other cards have. Set the number to %2 nevertheless?")
            .arg(NumberText(last), NumberText(wanted.Next));
    return stationOperator.ShowAppMessage(question, Title, AppMessageButtons::NoYes);
}

/// The number that was asked about, if it is still on the page. A record may have replaced it by a
/// copy of the same row while the operator was asked.
CardObject* FindAgain(const CardDocument& document, const CardObject* asked, qlonglong storeKey)
{
    for (CardObject* number : NumbersOn(document)) {
        if (storeKey != 0 ? number->StoreKey == storeKey : number == asked)
            return number;
    }
    return nullptr;
}

void TellResult(Operator& stationOperator, const WantedNumber& wanted)
{
    const QString shown = NumberText(wanted.Next);
    if (wanted.Text != shown)
        stationOperator.MessageBox(
            QStringLiteral("The next card gets the number %1. Numbers print without zeros before "
                           "them.")
                .arg(shown),
            Title, BoxIcon::Information);
}

} // namespace

CardObject* NumberAtHand(const CardDocument& document)
{
    CardObject* selected = document.SelectedObject;
    if (selected != nullptr && selected->LinkItem == Marker::AutoNumber)
        return selected;
    const std::vector<CardObject*> numbers = NumbersOn(document);
    return numbers.size() == 1 ? numbers.front() : nullptr;
}

void SetNumberCommand(Session& session)
{
    CardObject* number = NumberAtHand(session.Document);
    if (session.CurrentLayoutName.isEmpty() || number == nullptr) {
        session.Operator.MessageBox(QStringLiteral("Select an automatic number on the card first."),
                                    Title, BoxIcon::Information);
        return;
    }
    const CardObject* const asked = number;
    const qlonglong storeKey = number->StoreKey;
    try {
        for (;;) {
            const double last = LastNumber(session, *number);
            auto wanted = AskForNumber(session.Operator, last);
            if (!wanted)
                return;
            if (wanted->Next <= last) {
                if (!MayRepeat(session.Operator, *wanted, last))
                    return;
                wanted->MayRepeat = true;
            }
            number = FindAgain(session.Document, asked, storeKey);
            if (number == nullptr)
                return;
            // A card that was printed meanwhile may have got the number.
            if (SetNextNumber(session, *number, wanted->Next, wanted->MayRepeat)) {
                TellResult(session.Operator, *wanted);
                return;
            }
        }
    } catch (const Failure& failure) {
        session.Operator.MessageBox(
            QStringLiteral("The number could not be stored. %1").arg(failure.Text()), Title,
            BoxIcon::Critical);
    }
}

} // namespace vantrel
