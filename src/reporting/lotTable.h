// SPDX-License-Identifier: GPL-3.0-or-later
//
// A table in memory, for reports: typed fields with names, rows, and a current row that a report walks with First, Next
// and Eof. Names of fields are looked up without regard to case; a name that isn't there throws ELotError.
//
// A cell is empty until it is set, which is not the same as 0, false or "". A text field of declared length keeps as
// many letters and cuts the rest. A filter hides rows from the walk: a test of one's own, a master's current row, or
// both; `Row` and `RowCount` see all rows all the same.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

enum class TlotFieldKind : std::uint8_t { Text, LongText, Number, Integer, SmallInteger, Boolean, Date };

/// Empty, or text, number (a date too), whole number, boolean.
using TlotCell = std::variant<std::monostate, std::string, double, std::int32_t, bool>;

struct TlotField {
    std::string Name;
    TlotFieldKind Kind = TlotFieldKind::Text;
    int Length = 0; ///< Letters that a Text keeps; 0 means all.
};

class TlotTable;

/// One row of a table, to be read. Where there is no row (a walk at its end) every cell is empty.
class TlotRow {
public:
    TlotRow(const TlotTable& table, int index) : FTable(&table), FIndex(index) {}

    [[nodiscard]] const TlotCell& Cell(std::string_view field) const;
    [[nodiscard]] bool IsEmpty(std::string_view field) const;

    // An empty cell reads as "", 0 and false; a cell of another kind throws ELotError.
    [[nodiscard]] std::string Text(std::string_view field) const;
    [[nodiscard]] double Number(std::string_view field) const; ///< Whole numbers and dates too.
    [[nodiscard]] bool Boolean(std::string_view field) const;

private:
    const TlotTable* FTable; // Not owned; never null.
    int FIndex;
};

class TlotTable {
public:
    using TFilter = std::function<bool(const TlotRow&)>;

    TlotTable(std::string name, std::vector<TlotField> fields);
    TlotTable(const TlotTable&) = delete;
    TlotTable& operator=(const TlotTable&) = delete;
    ~TlotTable();

    [[nodiscard]] const std::string& Name() const noexcept { return FName; }
    [[nodiscard]] std::span<const TlotField> Fields() const noexcept { return FFields; }
    /// Throws ELotError for a name that is no field.
    [[nodiscard]] std::size_t FieldIndex(std::string_view field) const;

    /// Adds a row of empty cells and makes it the current one, whatever the filter says.
    TlotTable& Append();
    /// Stores a cell of the current row. Throws ELotError without one, or for a value that the field cannot hold; a
    /// number field takes whole numbers.
    TlotTable& Set(std::string_view field, TlotCell value);
    /// Drops the rows; the filter and the master stay.
    void Clear();
    /// Drops the rows, the filter and the master.
    void Reset();

    // The walk, over the rows that pass the filter. Moving it sends the tables that follow this one to their first row.
    void First();
    void Next();
    [[nodiscard]] bool Eof() const noexcept { return FPosition >= RowCount(); }
    [[nodiscard]] TlotRow Current() const { return Row(FPosition); }
    [[nodiscard]] int Position() const noexcept { return FPosition; } ///< Of the current row, for `Row`.

    [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(FRows.size()); }
    [[nodiscard]] TlotRow Row(int index) const { return {*this, index}; }

    /// Shows only the rows for which `filter` is true, from the first; an empty function shows all.
    void SetFilter(TFilter filter);
    /// Shows only the rows whose `field` equals `masterField` of the master's current row: none while the master has
    /// no row. Throws ELotError where the master follows this table itself.
    void Follow(std::string_view field, TlotTable& master, std::string_view masterField);
    void Unfollow();

private:
    friend class TlotRow;

    struct TMaster {
        TlotTable* Table = nullptr; // Not owned; tells this table when it goes.
        std::size_t Field = 0;
        std::size_t OwnField = 0;
    };

    [[nodiscard]] const TlotCell& CellAt(int row, std::string_view field) const;
    [[nodiscard]] TlotCell Fitted(const TlotField& field, TlotCell value) const;
    [[nodiscard]] bool Passes(int row) const;
    void MoveTo(int row);

    std::string FName;
    std::vector<TlotField> FFields;
    std::vector<std::vector<TlotCell>> FRows;
    int FPosition = 0;
    TFilter FFilter;
    TMaster FMaster;
    std::vector<TlotTable*> FFollowers; // Not owned.
};
