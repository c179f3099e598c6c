#include "card/CardDocument.h"
#include <algorithm>
#include <iterator>

namespace vantrel {

namespace {

constexpr int GripCount = 8;
constexpr Family ContentFamilies[] = {Family::lbl_DATA, Family::lbl_TEXT, Family::lbl_AUTO,
                                      Family::img_LXV, Family::img_CAM};

} // namespace

CardDocument::CardDocument() = default;

CardDocument::~CardDocument() = default;

void CardDocument::Load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    SelectedObject = nullptr;
    for (const Family family : ContentFamilies)
        MarkNotIncluded(Add(family));
    for (int grip = 0; grip < GripCount; ++grip)
        MarkNotIncluded(Add(Family::picHandle));
}

void CardDocument::MarkNotIncluded(CardObject& object)
{
    object.Tag = Marker::NotIncluded;
    if (!object.IsImage())
        object.LinkItem = Marker::NotIncluded;
}

void CardDocument::Unload()
{
    Hide();
    m_loaded = false;
    SelectedObject = nullptr;
    AlsoSelected.clear();
    HandlesShown = false;
    Drag = {};
    for (auto& members : m_members)
        members.clear();
    m_objects.clear();
    Left = Top = Width = Height = 0;
    Tag.clear();
    DefaultFont.reset();
    CamHeight = CamWidth = 0;
    Q_EMIT Changed();
}

int CardDocument::HighestIndex(Family family) const
{
    const auto& members = MembersOf(family);
    return members.empty() ? 0 : static_cast<int>(members.size()) - 1;
}

CardObject* CardDocument::Find(Family family, int index) const
{
    const auto& members = MembersOf(family);
    if (index < 0 || static_cast<std::size_t>(index) >= members.size())
        return nullptr;
    return members[static_cast<std::size_t>(index)];
}

CardObject& CardDocument::Add(Family family)
{
    auto& members = MembersOf(family);
    m_objects.push_back(std::make_unique<CardObject>(family, static_cast<int>(members.size())));
    members.push_back(m_objects.back().get());
    return *m_objects.back();
}

void CardDocument::Forget(const CardObject& object)
{
    if (SelectedObject == &object)
        SelectedObject = nullptr;
    std::erase(AlsoSelected, &object);
    auto& members = MembersOf(object.Family());
    members[static_cast<std::size_t>(object.Index())] = nullptr;
    // The next index follows the highest one in use, so gaps at the end are dropped.
    while (!members.empty() && members.back() == nullptr)
        members.pop_back();
}

void CardDocument::Remove(CardObject& object)
{
    const auto found = std::find_if(m_objects.begin(), m_objects.end(),
                                    [&](const auto& held) { return held.get() == &object; });
    if (found == m_objects.end())
        return;
    Forget(object);
    m_objects.erase(found);
    Q_EMIT Changed();
}

void CardDocument::RemoveContent()
{
    SelectedObject = nullptr;
    std::erase_if(m_objects, [&](const auto& object) {
        if (!object->IsContent())
            return false;
        Forget(*object);
        return true;
    });
    Q_EMIT Changed();
}

std::vector<std::unique_ptr<CardObject>> CardDocument::TakeContent()
{
    SelectedObject = nullptr;
    const auto firstOfContent =
        std::stable_partition(m_objects.begin(), m_objects.end(),
                              [](const auto& object) { return !object->IsContent(); });
    std::vector<std::unique_ptr<CardObject>> content(std::make_move_iterator(firstOfContent),
                                                     std::make_move_iterator(m_objects.end()));
    m_objects.erase(firstOfContent, m_objects.end());
    for (const auto& object : content)
        Forget(*object);
    return content;
}

void CardDocument::PutContent(std::vector<std::unique_ptr<CardObject>> content)
{
    for (auto& object : content) {
        auto& members = MembersOf(object->Family());
        const auto index = static_cast<std::size_t>(object->Index());
        if (members.size() <= index)
            members.resize(index + 1, nullptr);
        members[index] = object.get();
        m_objects.push_back(std::move(object));
    }
    Q_EMIT Changed();
}

void CardDocument::Show()
{
    if (m_shown)
        return;
    m_shown = true;
    Q_EMIT Shown();
}

void CardDocument::Hide()
{
    if (!m_shown)
        return;
    m_shown = false;
    Q_EMIT Hidden();
}

void CardDocument::Refresh()
{
    Q_EMIT Changed();
}

} // namespace vantrel
