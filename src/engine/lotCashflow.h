// SPDX-License-Identifier: GPL-3.0-or-later
//
// The timed money line and the project's collection of lines. Everything in the model that falls in time is a
// TlotCashflowItem: it knows its total, when it happens, and how the total falls in each month. Months are whole
// numbers from 0, the month of the project's start.
#pragma once

#include "common/lotDoubles.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A series of money by month, read past its end as 0 and lengthened by a write past it.
class TlotCashflowValues {
public:
    TlotCashflowValues() = default;
    virtual ~TlotCashflowValues() = default;

    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual double GetValue(int month) const = 0;
    virtual void SetValue(int month, double value) = 0;

protected:
    TlotCashflowValues(const TlotCashflowValues&) = default;
    TlotCashflowValues& operator=(const TlotCashflowValues&) = default;
};

enum class TlotSpreadKind : std::uint8_t {
    Spread = 0, ///< Amount falls over the months.
    Repeat = 1, ///< Amount falls in each month: a rent.
    Linked = 2, ///< Amount is a percentage of LinkedValues, month by month.
};

/// When a line happens, as a user lays it out.
struct TlotLineTerms {
    int Start = 0;        ///< First month where there are no Portions.
    int Period = 0;       ///< Number of months where there are no Portions.
    TlotDoubles Portions; ///< Weights by month; empty means a straight line over Start and Period.

    friend bool operator==(const TlotLineTerms&, const TlotLineTerms&) = default;
};

class TlotCashflowItem final : public TlotCashflowValues, public TlotLineTerms {
public:
    bool ReadOnly = false; ///< Set for a linked item at each calculation.
    TlotSpreadKind SpreadKind = TlotSpreadKind::Spread;
    const TlotCashflowValues* LinkedValues = nullptr; ///< Not owned.
    TlotDoubles Values;                               ///< Result: money in each month.
    bool Income = false;                              ///< Money in.
    std::int16_t Colour = 0;                          ///< Palette index of the timescale.
    std::uint32_t BarColour = 0;                      ///< RGB of the bar.
    bool NoTotal = false;                             ///< The cashflow view shows no total for this line.
    std::string AccountCode;
    double Amount = 0; ///< Total of the line, or the monthly sum where SpreadKind is Repeat.

    [[nodiscard]] int Count() const override { return Values.Count(); }
    [[nodiscard]] double GetValue(int month) const override { return Values.Get(month); }
    void SetValue(int month, double value) override { Values.Set(month, value); }

    /// Works out Values from the rest. Where it reaches a straight line it mends a Period below 1 and a Start below 0.
    void Spread();

    /// Empties Values and Portions; Amount stays.
    void ClearValues();
    /// Empties Values and Portions and sets Amount to 0.
    void ClearAll();

    /// Adds the other's months and amount, lengthening to it.
    void Add(const TlotCashflowItem& other);
    /// Takes off the other's months and amount, lengthening to it.
    void Subtract(const TlotCashflowItem& other);
    /// Takes over the other's months, length included, and not its amount.
    void CopyValues(const TlotCashflowItem& other);
    /// Takes over Amount, Start, Period, ReadOnly, Colour, Values and Portions.
    void Assign(const TlotCashflowItem& other);

    /// Portions := each month's share of the sum of `line`, as long as `line`; all 0 if that sum is 0.
    void SetPortionsFrom(const TlotCashflowItem& line);

    /// Multiplies each month by (1 + rate / 100)^(month / 12); rate in percent a year. Amount stays, so that inflation
    /// shows in the cashflow and not in the appraisal.
    void Inflate(double rate);
    /// Multiplies each month by its factor; there must be as many.
    void MultiplyMonths(std::span<const double> factors);

    /// Sum of Values.
    [[nodiscard]] double Sum() const;

    /// Present value at `rate` percent a year, month 0 undiscounted.
    [[nodiscard]] double NPVAt(double rate) const;
    /// Internal rate of return of the first 120 months, in percent a year: the monthly root nearest to 4.0, compounded.
    /// 0 where there is none or where those months sum to exactly 0.
    [[nodiscard]] double IRR120() const;

    /// First and last month with a portion that isn't 0, or -1.
    [[nodiscard]] int FirstPortion() const;
    [[nodiscard]] int LastPortion() const;

    /// First month of the line: of its portions where it has any (0 if they are all 0), otherwise Start.
    [[nodiscard]] int FirstMonth() const;
    /// One past the last month with money, or Start + Period where nothing has been spread yet.
    [[nodiscard]] int EndMonth() const;
    [[nodiscard]] bool InRange(int month) const;

    /// Turns portions that say no more than a straight line into Start and Period, as files store it.
    void Simplify();

    // Editing, by the timescale. Months may lie outside the line; a negative one is a range error where it is stored.
    [[nodiscard]] double GetPortion(int month) const { return Portions.Get(month); }
    void SetPortion(int month, double weight) { Portions.Set(month, weight); }
    /// Gives a straight line of at least one month explicit weights of 1.
    void EnsurePortions();
    /// Drops the portions: Amount / Period in each month of the span.
    void ResetToLevel();
    /// Takes Start and Period from the span of the portions, then ResetToLevel.
    void NormaliseSpan();
    /// Weighs `count` months from `month` so that they take `percent` of the total. Nothing for a percent of 0 or a
    /// count that isn't below Period. Throws ERangeError past the end of the line, EEvaluatorError for 100 %.
    void AllocatePortion(int month, int count, double percent);
    void NudgeLeft();
    void NudgeRight();
    /// Moves the line so that it begins at `month`; stored as given, also below 0.
    void AlignLeft(int month);
    /// Moves a straight line so that it ends before `end`, and one with portions so that its last stands at `end`. The
    /// two differ by one month, deliberately.
    void AlignRight(int end);
    [[nodiscard]] bool AtStart() const;

private:
    void SpreadLinked();
    void SpreadByPortions();
    void SpreadLevel();
};

/// Lines that it doesn't own: units, items and the rest do.
using TlotCashflowItemList = std::vector<TlotCashflowItem*>;

struct TlotCashflowResults {
    TlotCashflowItem Total; ///< Income less costs, before finance.
    double NPV = 0;         ///< Money.
    double IRR = 0;         ///< Percent a year.
};

class TlotCashflow : public TlotCashflowResults {
public:
    TlotCashflow();

    TlotCashflowItemList Items; ///< All lines of the project, in the order of the last calculation.

    /// Empties Items and clears Total with its amount.
    void Clear();
    /// Total := income less costs over Items, amounts included.
    void Sum();
    /// Takes a line out of Items, since it is about to be deleted; Total stays as it was computed.
    void Forget(const TlotCashflowItem& line);
    /// Largest EndMonth over Items, 0 if there are none.
    [[nodiscard]] int LastMonth() const;

    /// IRR := the annual rate of Total, found between 0 and 100,000 percent within 0.5 of money; 0 if there is none.
    void CalculateIRR();
    /// NPV := Total at `rate` percent a year, each month discounted to its own end.
    void CalculateNPV(double rate);
};
