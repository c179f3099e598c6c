#include "card/DesignHistory.h"
#include "card/CardDocument.h"
#include "card/LayoutParamsRecord.h"
#include <algorithm>
#include <set>
#include <utility>

namespace vantrel {

namespace {

/// The object of a design that a loaded number is; null if there is none.
const CardObject* NumberOfRow(const PageDesign& design, const CardObject& number)
{
    if (number.Family() != Family::lbl_AUTO || number.StoreKey == 0)
        return nullptr;
    for (const ObjectDesign& entry : design.Objects) {
        if (entry.Object->Family() == Family::lbl_AUTO && entry.Object->StoreKey == number.StoreKey)
            return entry.Object.get();
    }
    return nullptr;
}

} // namespace

void DesignHistory::Clear()
{
    m_layoutName.clear();
    m_steps.clear();
    m_taken = 0;
    m_bytes = 0;
    m_pages.clear();
    m_stored.clear();
    m_numbers.clear();
}

void DesignHistory::GiveKeys(const CardDocument& document, const PageDesign* last)
{
    std::set<qulonglong> given;
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        if (object->DesignKey == 0 && last != nullptr) {
            if (const CardObject* number = NumberOfRow(*last, *object))
                object->DesignKey = number->DesignKey;
        }
        // A copy of an object has the key of its original.
        if (object->DesignKey == 0 || !given.insert(object->DesignKey).second) {
            object->DesignKey = ++m_lastKey;
            given.insert(object->DesignKey);
        }
    }
}

bool DesignHistory::Note(const QString& layoutName, const CardDocument& document,
                         const LayoutParamsRecord& params)
{
    const bool wasEmpty = m_steps.empty();
    if (layoutName != m_layoutName)
        Clear();
    m_layoutName = layoutName;
    const bool loaded = std::exchange(m_loaded, false);
    if (layoutName.isEmpty())
        return !wasEmpty;
    const std::int16_t page = params.PageIndex;
    const Design last = m_pages[page];
    if (last != nullptr && HasDesign(document, params, *last)) {
        TakeKeys(document, *last);
        MarkNumbers(document, m_numbers);
        if (loaded)
            m_stored[page] = last;
        return false;
    }
    GiveKeys(document, last.get());
    MarkNumbers(document, m_numbers);
    const auto now = std::make_shared<const PageDesign>(TakeDesign(document, params, last.get()));
    m_pages[page] = now;
    if (loaded) {
        m_stored[page] = now;
    } else if (last == nullptr) {
        // A page that was not loaded is new: nothing of it is stored.
        m_stored[page] = nullptr;
    } else {
        Push({page, last, now});
    }
    return true;
}

void DesignHistory::Push(DesignStep step)
{
    const auto bytesOf = [](const DesignStep& of) { return of.Before->Bytes + of.After->Bytes; };
    while (m_steps.size() > m_taken) {
        m_bytes -= bytesOf(m_steps.back());
        m_steps.pop_back();
    }
    m_bytes += bytesOf(step);
    m_steps.push_back(std::move(step));
    while (m_steps.size() > MostSteps || (m_steps.size() > 1 && m_bytes > MostBytes)) {
        m_bytes -= bytesOf(m_steps.front());
        m_steps.pop_front();
    }
    m_taken = m_steps.size();
}

void DesignHistory::PageWasSaved(std::int16_t page)
{
    m_stored[page] = m_pages[page];
}

bool DesignHistory::IsChanged(std::int16_t page) const
{
    const auto now = m_pages.find(page);
    if (now == m_pages.end() || now->second == nullptr)
        return false;
    const auto stored = m_stored.find(page);
    if (stored == m_stored.end() || stored->second == nullptr)
        return !now->second->Objects.empty();
    if (stored->second == now->second)
        return false;
    return !std::ranges::equal(stored->second->Objects, now->second->Objects,
                               [](const ObjectDesign& one, const ObjectDesign& other) {
                                   return SameDesign(*one.Object, *other.Object);
                               });
}

const DesignStep* DesignHistory::Next(StepDirection direction) const
{
    if (direction == StepDirection::Back)
        return m_taken == 0 ? nullptr : &m_steps[m_taken - 1];
    return m_taken == m_steps.size() ? nullptr : &m_steps[m_taken];
}

const PageDesign& DesignHistory::Aim(const DesignStep& step, StepDirection direction)
{
    return direction == StepDirection::Back ? *step.Before : *step.After;
}

void DesignHistory::Pass(StepDirection direction)
{
    const DesignStep* step = Next(direction);
    if (step == nullptr)
        return;
    m_pages[step->Page] = direction == StepDirection::Back ? step->Before : step->After;
    if (direction == StepDirection::Back)
        --m_taken;
    else
        ++m_taken;
}

} // namespace vantrel
