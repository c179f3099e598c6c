#pragma once

#include "printers/JobOutcome.h"
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace vantrel {

/// @file Rows of a file that become cards, some at a time. What is known before a row is drawn (its
/// numbers and its files) travels with it, so that several processes can share the rows.

/// What a row is printed on: a layout, or the layouts of a macro.
struct BatchTarget
{
    QString Layout;
    /// If not empty, the layouts of this macro are printed and `Layout` is empty.
    QString Macro;

    const QString& Name() const { return Macro.isEmpty() ? Layout : Macro; }
};

/// One card that each row becomes: one page of one copy.
struct PlannedCard
{
    QString Layout;
    std::int16_t Page = 1;
    /// Counts from 1.
    int Copy = 1;
    /// Automatic numbers on the page.
    int Numbers = 0;
};

/// The cards of a row in the order in which they print.
using RowPlan = std::vector<PlannedCard>;

/// One row of a file.
struct BatchRow
{
    /// Its position in the file, counted from 1. A line of names does not count.
    qint64 Number = 0;
    /// The line where it begins, counted from 1, or its number where records have no lines.
    qint64 Line = 0;
    QStringList Values;
};

/// The automatic numbers of one page that were taken for the rows of a batch. Each printing of the
/// page shows the next ones.
struct PageNumbers
{
    QString Layout;
    std::int16_t Page = 1;
    /// How often a row prints the page.
    int CardsPerRow = 1;
    /// The first of each number on the page, in stacking order.
    std::vector<double> First;
};

/// Rows that are printed one after the other.
struct Batch
{
    std::vector<BatchRow> Rows;
    /// The names of the values; empty if they have none.
    QStringList Columns;
    std::vector<PageNumbers> Numbers;
    /// The number of the first card's file; each card has the next one. 0 where cards have no files
    /// of their own.
    qint64 FirstFile = 0;
};

/// What became of a card.
struct CardResult
{
    JobOutcome Job;
    /// What is not on it as its layout has it, such as a missing picture; empty for nothing.
    QString Remark;
};

/// What became of a row.
struct RowResult
{
    qint64 Number = 0;
    qint64 Line = 0;
    /// Of the cards that were begun, in the order of the plan.
    std::vector<CardResult> Cards;
    /// Why not all of its cards were handed over; empty if they were.
    QString Reason;

    bool IsPrinted() const { return Reason.isEmpty(); }
};

/// The numbers on the card at `index` of a row's plan, from those that were taken for its batch.
/// @param row  index of the row in the batch
QStringList NumbersOnCard(const Batch& batch, const RowPlan& plan, std::size_t row,
                          std::size_t index);

/// A batch and its results as bytes, for another process of the same program.
QByteArray BytesOf(const Batch& batch);
Batch BatchOf(const QByteArray& bytes);
QByteArray BytesOf(const std::vector<RowResult>& results);
std::vector<RowResult> ResultsOf(const QByteArray& bytes);

} // namespace vantrel
