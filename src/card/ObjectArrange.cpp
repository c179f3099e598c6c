#include "card/ObjectArrange.h"
#include "card/CardDocument.h"
#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

/// Place and length of an object along one axis.
struct Axis
{
    float CardObject::*Place;
    float CardObject::*Length;
};

constexpr Axis AcrossAxis{&CardObject::Left, &CardObject::Width};
constexpr Axis DownAxis{&CardObject::Top, &CardObject::Height};
constexpr float Half = 0.5F;

float EndOf(const CardObject& object, const Axis& axis)
{
    return object.*axis.Place + object.*axis.Length;
}

/// Where the line lies between beginning and end: 0, a half or 1.
float ShareOf(AlignLine line)
{
    switch (line) {
    case AlignLine::Left:
    case AlignLine::Top:
        return 0;
    case AlignLine::Middle:
    case AlignLine::Centre:
        return Half;
    case AlignLine::Right:
    case AlignLine::Bottom:
        break;
    }
    return 1;
}

bool IsAcross(AlignLine line)
{
    return line == AlignLine::Left || line == AlignLine::Middle || line == AlignLine::Right;
}

using Content = std::vector<std::unique_ptr<CardObject>>;

/// Exchanges each selected object with the next one that is not, from that end of the stack on.
template <typename Iterator, typename Selected>
void StepTowards(Iterator first, Iterator last, Selected selected)
{
    for (Iterator at = first; at != last; ++at) {
        const Iterator next = std::next(at);
        if (next != last && !selected(*at) && selected(*next))
            std::iter_swap(at, next);
    }
}

void Restack(Content& content, StackMove move, const std::vector<CardObject*>& moved)
{
    const auto selected = [&](const auto& object) {
        return std::ranges::find(moved, object.get()) != moved.end();
    };
    switch (move) {
    case StackMove::ToFront:
        std::stable_partition(content.begin(), content.end(),
                              [&](const auto& object) { return !selected(object); });
        break;
    case StackMove::ToBack:
        std::stable_partition(content.begin(), content.end(), selected);
        break;
    case StackMove::Up:
        StepTowards(content.rbegin(), content.rend(), selected);
        break;
    case StackMove::Down:
        StepTowards(content.begin(), content.end(), selected);
        break;
    }
}

} // namespace

bool IsSelected(const CardDocument& document, const CardObject& object)
{
    return document.SelectedObject != nullptr &&
           (document.SelectedObject == &object ||
            std::ranges::find(document.AlsoSelected, &object) != document.AlsoSelected.end());
}

std::vector<CardObject*> SelectedObjects(const CardDocument& document)
{
    std::vector<CardObject*> objects;
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && IsSelected(document, *object))
            objects.push_back(object.get());
    }
    return objects;
}

void MoveObjects(const std::vector<CardObject*>& objects, float right, float down)
{
    for (CardObject* object : objects) {
        object->Left += right;
        object->Top += down;
    }
}

void AlignObjects(const CardDocument& document, const std::vector<CardObject*>& objects,
                  AlignLine line)
{
    if (objects.empty())
        return;
    const Axis& axis = IsAcross(line) ? AcrossAxis : DownAxis;
    float begin = 0;
    float end = IsAcross(line) ? document.Width : document.Height;
    if (objects.size() > 1) {
        begin = objects.front()->*axis.Place;
        end = EndOf(*objects.front(), axis);
        for (const CardObject* object : objects) {
            begin = std::min(begin, object->*axis.Place);
            end = std::max(end, EndOf(*object, axis));
        }
    }
    const float share = ShareOf(line);
    for (CardObject* object : objects)
        object->*axis.Place =
            std::round(begin + (end - begin) * share - object->*axis.Length * share);
}

void SpreadObjects(const std::vector<CardObject*>& objects, SpreadAxis direction)
{
    constexpr std::size_t fewest = 3;
    if (objects.size() < fewest)
        return;
    const Axis& axis = direction == SpreadAxis::Across ? AcrossAxis : DownAxis;
    std::vector<CardObject*> ordered = objects;
    std::ranges::stable_sort(ordered, {}, [&](const CardObject* object) {
        return object->*axis.Place + object->*axis.Length * Half;
    });
    float taken = 0;
    for (const CardObject* object : ordered)
        taken += object->*axis.Length;
    const float begin = ordered.front()->*axis.Place;
    const float room = EndOf(*ordered.back(), axis) - begin - taken;
    const float gap = room / static_cast<float>(ordered.size() - 1);
    float place = begin;
    for (std::size_t at = 0; at + 1 < ordered.size(); ++at) {
        if (at > 0)
            ordered[at]->*axis.Place = std::round(place);
        place += ordered[at]->*axis.Length + gap;
    }
}

void RestackSelected(CardDocument& document, StackMove move)
{
    const std::vector<CardObject*> moved = SelectedObjects(document);
    if (moved.empty())
        return;
    CardObject* const selected = document.SelectedObject;
    const std::vector<CardObject*> also = document.AlsoSelected;
    Content content = document.TakeContent();
    Restack(content, move, moved);
    document.PutContent(std::move(content));
    document.SelectedObject = selected;
    document.AlsoSelected = also;
}

} // namespace vantrel
