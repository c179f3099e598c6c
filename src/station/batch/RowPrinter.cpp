#include "station/batch/RowPrinter.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "printers/Printer.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/StoredNumbers.h"
#include "station/macro/MacroTable.h"
#include "station/macro/RunMacro.h"
#include "station/print/PrintCard.h"
#include "station/session/Session.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1StringView LayoutChanged{"The layout was changed meanwhile."};

QString NoSuch(const char* kind, const QString& name)
{
    return QStringLiteral("There is no %1 %2.").arg(QLatin1StringView(kind), name);
}

} // namespace

RowPrinter::RowPrinter(Session& session, BatchTarget target)
    : m_session(session), m_target(std::move(target))
{
    if (!m_target.Macro.isEmpty()) {
        if (!MacroNames(session.LayoutDb).contains(m_target.Macro))
            throw Failure(FailureNumber::ItemNotFound, NoSuch("macro", m_target.Macro));
    } else if (!LoadFirstPage(session, m_target.Layout)) {
        throw Failure(FailureNumber::ItemNotFound, NoSuch("layout", m_target.Layout));
    }
    session.Keeper = this;
}

RowPrinter::~RowPrinter()
{
    m_session.Keeper = nullptr;
}

RowPlan RowPrinter::Plan()
{
    RowPlan plan;
    m_newPlan = &plan;
    PrintValues({});
    m_newPlan = nullptr;
    if (plan.empty()) {
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("%1 prints no card: look at its printer type and copies.")
                          .arg(m_target.Name()));
    }
    return plan;
}

void RowPrinter::PrintValues(const QStringList& values)
{
    m_session.FieldValues = {};
    m_session.Pictures.Columns = m_batch == nullptr ? QStringList() : m_batch->Columns;
    for (const QString& value : values)
        m_session.FieldValues.Add(value);
    if (!m_target.Macro.isEmpty()) {
        RunMacro(m_session, m_target.Macro);
        return;
    }
    // A layout that vanished closes, and may come back.
    if (m_session.CurrentLayoutName == m_target.Layout || LoadFirstPage(m_session, m_target.Layout))
        PrintCard(m_session);
}

bool RowPrinter::Begin(const QString& layoutName, std::int16_t page, CardDocument& document)
{
    if (m_newPlan != nullptr) {
        const auto copies =
            std::count_if(m_newPlan->begin(), m_newPlan->end(), [&](const PlannedCard& card) {
                return card.Layout == layoutName && card.Page == page;
            });
        m_newPlan->push_back({.Layout = layoutName,
                              .Page = page,
                              .Copy = static_cast<int>(copies) + 1,
                              .Numbers = static_cast<int>(NumbersOn(document).size())});
        return true;
    }
    return TakeNextOfPlan(layoutName, page, document);
}

bool RowPrinter::TakeNextOfPlan(const QString& layoutName, std::int16_t page,
                                CardDocument& document)
{
    RowResult& result = (*m_results)[m_row];
    const std::vector<CardObject*> numbers = NumbersOn(document);
    const bool isPlanned = m_next < m_plan->size() && (*m_plan)[m_next].Layout == layoutName &&
                           (*m_plan)[m_next].Page == page &&
                           (*m_plan)[m_next].Numbers == static_cast<int>(numbers.size());
    if (!isPlanned) {
        result.Reason = LayoutChanged;
        return false;
    }
    const QStringList taken = NumbersOnCard(*m_batch, *m_plan, m_row, m_next);
    // Where no numbers were taken, as for a trial, the page shows those that come next.
    for (qsizetype i = 0; i < taken.size(); ++i)
        numbers[static_cast<std::size_t>(i)]->DataField = NumberText(ToDouble(taken.at(i)) - 1);
    if (m_numberFile)
        m_numberFile(m_batch->FirstFile + static_cast<qint64>(m_row * m_plan->size() + m_next));
    result.Cards.emplace_back();
    ++m_next;
    return true;
}

void RowPrinter::Note(const QString& remark)
{
    if (m_newPlan != nullptr)
        return;
    QString& known = (*m_results)[m_row].Cards.back().Remark;
    known += known.isEmpty() ? remark : QLatin1Char(' ') + remark;
}

void RowPrinter::End(Printer& printer)
{
    if (m_newPlan != nullptr) {
        printer.EndDoc();
        return;
    }
    printer.EndDocAndTell(
        [results = m_results, row = m_row, card = m_next - 1](const JobOutcome& outcome) {
            (*results)[row].Cards[card].Job = outcome;
        });
}

void RowPrinter::Judge(RowResult& result) const
{
    if (!result.Reason.isEmpty())
        return;
    const auto failed = std::find_if(result.Cards.begin(), result.Cards.end(),
                                     [](const CardResult& card) { return !card.Job.HandedOver; });
    if (failed != result.Cards.end())
        result.Reason =
            failed->Job.Reason.isEmpty() ? QString::fromLatin1(NothingDrawn) : failed->Job.Reason;
    else if (result.Cards.size() < m_plan->size())
        result.Reason = LayoutChanged;
}

void RowPrinter::DrawRow(const BatchRow& row)
{
    m_results->push_back({.Number = row.Number, .Line = row.Line, .Cards = {}, .Reason = {}});
    m_next = 0;
    PrintValues(row.Values);
}

bool RowPrinter::PrintRow(const BatchRow& row)
{
    DrawRow(row);
    StoreDatabase& store = m_session.LayoutDb.Database();
    RowResult& result = m_results->back();
    if (!result.Cards.empty()) {
        if (result.Cards.size() < m_plan->size() && !store.Trouble().isEmpty())
            result.Reason = store.Trouble();
        return true;
    }
    if (!IsStoreAddress(store.Location()))
        return true;
    // A layout that cannot be loaded looks like one that was changed. If the server was lost for a
    // moment only, the row is drawn after all.
    m_results->pop_back();
    if (!Skip("ask the store", [&] { store.Ask(); }))
        return false;
    DrawRow(row);
    const bool isLost = m_results->back().Cards.empty() && !store.Trouble().isEmpty();
    if (isLost)
        m_results->pop_back();
    return !isLost;
}

std::vector<RowResult> RowPrinter::Print(const Batch& batch, const RowPlan& plan,
                                         const std::function<bool(std::size_t row)>& begin,
                                         const std::function<void()>& finish)
{
    m_batch = &batch;
    m_plan = &plan;
    m_results = std::make_shared<std::vector<RowResult>>();
    // Jobs that are told later keep their place.
    m_results->reserve(batch.Rows.size());
    for (m_row = 0; m_row < batch.Rows.size() && begin(m_row); ++m_row) {
        if (!PrintRow(batch.Rows[m_row]))
            break;
    }
    finish();
    std::vector<RowResult> results = *m_results;
    for (RowResult& result : results)
        Judge(result);
    return results;
}

} // namespace vantrel
