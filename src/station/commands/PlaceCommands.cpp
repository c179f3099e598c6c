#include "station/commands/PlaceCommands.h"
#include "base/Convert.h"
#include "base/LengthUnit.h"
#include "card/Grips.h"
#include "card/ObjectArrange.h"
#include "station/layout/DesignSteps.h"
#include "station/session/Session.h"
#include <cmath>

namespace vantrel {

namespace {

double StepOf(LengthUnit unit)
{
    constexpr double ofMillimetres = 0.1;
    constexpr double ofInches = 0.01;
    switch (unit) {
    case LengthUnit::Millimetres:
        return ofMillimetres;
    case LengthUnit::Inches:
        return ofInches;
    case LengthUnit::Twips:
        break;
    }
    return 1;
}

/// The objects that may be changed now. During a drag they belong to the mouse.
std::vector<CardObject*> ObjectsAtHand(const Session& session)
{
    const CardDocument& document = session.Document;
    if (!session.Options.DesignTools || document.Drag.Mode != DragMode::None)
        return {};
    return SelectedObjects(document);
}

/// Changes the page as a step of its own and shows the grips where the object is now.
template <typename Change>
void ChangePlaces(Session& session, Change change)
{
    NoteDesign(session);
    change();
    if (session.Document.SelectedObject != nullptr)
        AdjustHandles(session.Document, *session.Document.SelectedObject);
    session.Document.Refresh();
    NoteDesign(session);
}

QString Allowed(const Session& session, PlaceSide side)
{
    const LengthUnit unit = session.Options.Unit;
    const bool isSize = side == PlaceSide::Width || side == PlaceSide::Height;
    const double least = isSize ? 1 : -FarthestPlace;
    return QStringLiteral("It must be from %1 to %2.")
        .arg(LengthText(least, unit), LengthWithUnit(FarthestPlace, unit));
}

} // namespace

QString SelectedSideText(const Session& session, PlaceSide side)
{
    const auto shared = SharedSide(SelectedObjects(session.Document), side);
    return shared ? LengthText(*shared, session.Options.Unit) : QString();
}

QString TypeSelectedSide(Session& session, PlaceSide side, const QString& text)
{
    constexpr qsizetype longestTold = 20;
    const std::vector<CardObject*> objects = ObjectsAtHand(session);
    if (objects.empty())
        return QStringLiteral("No object is selected.");
    const auto twips = LengthOfText(text, session.Options.Unit);
    if (!twips)
        return QStringLiteral("\"%1\" is no length.").arg(text.simplified().left(longestTold));
    if (!IsSideAllowed(side, *twips))
        return Allowed(session, side);
    if (SharedSide(objects, side) != *twips)
        ChangePlaces(session, [&] { SetSide(objects, side, *twips); });
    return {};
}

void StepSelectedSide(Session& session, PlaceSide side, int steps)
{
    const std::vector<CardObject*> objects = ObjectsAtHand(session);
    if (objects.empty())
        return;
    const LengthUnit unit = session.Options.Unit;
    ChangePlaces(session, [&] {
        for (CardObject* object : objects) {
            // Whole steps of what is shown: 7.06 mm becomes 7.16 mm.
            const double shown = SideOf(*object, side) / TwipsPerUnit(unit);
            const double twips =
                RoundHalfToEven((shown + steps * StepOf(unit)) * TwipsPerUnit(unit));
            constexpr double most = FarthestPlace;
            if (std::abs(twips) <= most && IsSideAllowed(side, static_cast<std::int32_t>(twips)))
                SetSide({object}, side, static_cast<std::int32_t>(twips));
        }
    });
}

} // namespace vantrel
