#pragma once

#include "card/PageDesign.h"
#include <QString>
#include <deque>
#include <map>
#include <memory>

namespace vantrel {

class CardDocument;
struct LayoutParamsRecord;

/// One step of the designer: a page before and after.
struct DesignStep
{
    std::int16_t Page = 0;
    std::shared_ptr<const PageDesign> Before;
    std::shared_ptr<const PageDesign> After;
};

enum class StepDirection { Back, Forward };

/// The steps of the designer on the pages of one layout, which can be taken back and taken again,
/// and what each page was when it was last loaded or saved. Bounded in steps and in memory: the
/// oldest steps are forgotten first.
class DesignHistory
{
public:
    static constexpr std::size_t MostSteps = 200;
    /// Most memory of all steps together, in bytes. The newest step is kept whatever it takes.
    static constexpr std::size_t MostBytes = std::size_t{64} * 1024 * 1024;

    void Clear();
    /// The page in memory was replaced by the stored one, or by a page of another layout.
    void PageWasLoaded() { m_loaded = true; }

    /// Notes the page as it is now. If its design has changed since the last time, and not by being
    /// loaded, that is a step, and the steps that were taken back are forgotten. A page of another
    /// layout than before clears the history.
    /// @param layoutName  empty if none is open
    /// @return whether something has changed
    bool Note(const QString& layoutName, const CardDocument& document,
              const LayoutParamsRecord& params);
    /// The page was saved as it was when it was last noted.
    void PageWasSaved(std::int16_t page);
    /// Whether the objects of the page, as last noted, differ from those last loaded or saved.
    bool IsChanged(std::int16_t page) const;

    /// The step that comes next in a direction; null if there is none.
    const DesignStep* Next(StepDirection direction) const;
    /// What that step makes of its page.
    static const PageDesign& Aim(const DesignStep& step, StepDirection direction);
    /// Goes over the next step, which was taken or had nothing to change.
    void Pass(StepDirection direction);

    const NumberMarks& Numbers() const { return m_numbers; }
    /// The operator has set an automatic number: what it was before does not come back with a step.
    void NumberWasSet(const CardObject& number) { MarkSetNumber(number, m_numbers); }

private:
    using Design = std::shared_ptr<const PageDesign>;

    void Push(DesignStep step);
    /// Gives each object a key that has none.
    void GiveKeys(const CardDocument& document, const PageDesign* last);

    QString m_layoutName;
    bool m_loaded = false;
    std::deque<DesignStep> m_steps;
    /// How many of the steps are taken; those behind were taken back.
    std::size_t m_taken = 0;
    std::size_t m_bytes = 0;
    /// The pages as they were last noted, and as they were last loaded or saved.
    std::map<std::int16_t, Design> m_pages;
    std::map<std::int16_t, Design> m_stored;
    NumberMarks m_numbers;
    qulonglong m_lastKey = 0;
};

} // namespace vantrel
