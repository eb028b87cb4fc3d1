// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotTable.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <utility>

namespace {

const char* KindName(TlotFieldKind kind) noexcept {
    switch (kind) {
    case TlotFieldKind::Text:
    case TlotFieldKind::LongText: return "text";
    case TlotFieldKind::Number: return "a number";
    case TlotFieldKind::Integer:
    case TlotFieldKind::SmallInteger: return "a whole number";
    case TlotFieldKind::Boolean: return "a boolean";
    case TlotFieldKind::Date: return "a date";
    }
    return "something else";
}

[[noreturn]] void ThrowKind(const std::string& table, const TlotField& field) {
    throw ELotError("Field " + field.Name + " of table " + table + " holds " + KindName(field.Kind));
}

/// The first `length` letters; all of them for a length of 0.
void CutText(std::string& text, int length) {
    if (length <= 0 || text.size() <= static_cast<std::size_t>(length)) {
        return;
    }
    std::size_t end = 0;
    for (int letters = 0; letters < length && end < text.size(); ++letters) {
        static_cast<void>(vip::NextCodePoint(text, end));
    }
    text.resize(end);
}

} // namespace

const TlotCell& TlotRow::Cell(std::string_view field) const {
    return FTable->CellAt(FIndex, field);
}

bool TlotRow::IsEmpty(std::string_view field) const {
    return std::holds_alternative<std::monostate>(Cell(field));
}

std::string TlotRow::Text(std::string_view field) const {
    const TlotCell& cell = Cell(field);
    if (const auto* const text = std::get_if<std::string>(&cell)) {
        return *text;
    }
    if (!std::holds_alternative<std::monostate>(cell)) {
        ThrowKind(FTable->Name(), FTable->Fields()[FTable->FieldIndex(field)]);
    }
    return {};
}

double TlotRow::Number(std::string_view field) const {
    const TlotCell& cell = Cell(field);
    if (const auto* const number = std::get_if<double>(&cell)) {
        return *number;
    }
    if (const auto* const whole = std::get_if<std::int32_t>(&cell)) {
        return *whole;
    }
    if (!std::holds_alternative<std::monostate>(cell)) {
        ThrowKind(FTable->Name(), FTable->Fields()[FTable->FieldIndex(field)]);
    }
    return 0;
}

bool TlotRow::Boolean(std::string_view field) const {
    const TlotCell& cell = Cell(field);
    if (const auto* const flag = std::get_if<bool>(&cell)) {
        return *flag;
    }
    if (!std::holds_alternative<std::monostate>(cell)) {
        ThrowKind(FTable->Name(), FTable->Fields()[FTable->FieldIndex(field)]);
    }
    return false;
}

TlotTable::TlotTable(std::string name, std::vector<TlotField> fields)
    : FName(std::move(name)), FFields(std::move(fields)) {}

TlotTable::~TlotTable() {
    if (FMaster.Table != nullptr) {
        std::erase(FMaster.Table->FFollowers, this);
    }
    for (TlotTable* const follower : FFollowers) {
        follower->FMaster = {};
    }
}

std::size_t TlotTable::FieldIndex(std::string_view field) const {
    const auto found = std::ranges::find_if(FFields, [&](const TlotField& f) { return vip::SameText(f.Name, field); });
    if (found == FFields.end()) {
        throw ELotError("Table " + FName + " has no field " + std::string(field));
    }
    return static_cast<std::size_t>(found - FFields.begin());
}

const TlotCell& TlotTable::CellAt(int row, std::string_view field) const {
    static const TlotCell empty;
    const std::size_t column = FieldIndex(field);
    return row < 0 || row >= RowCount() ? empty : FRows[static_cast<std::size_t>(row)][column];
}

TlotTable& TlotTable::Append() {
    FRows.emplace_back(FFields.size());
    FPosition = RowCount() - 1;
    return *this;
}

TlotTable& TlotTable::Set(std::string_view field, TlotCell value) {
    const std::size_t column = FieldIndex(field);
    if (Eof()) {
        throw ELotError("Table " + FName + " has no current row");
    }
    FRows[static_cast<std::size_t>(FPosition)][column] = Fitted(FFields[column], std::move(value));
    return *this;
}

TlotCell TlotTable::Fitted(const TlotField& field, TlotCell value) const {
    if (std::holds_alternative<std::monostate>(value)) {
        return value;
    }
    switch (field.Kind) {
    case TlotFieldKind::Text:
    case TlotFieldKind::LongText:
        if (auto* const text = std::get_if<std::string>(&value)) {
            CutText(*text, field.Length);
            return value;
        }
        break;
    case TlotFieldKind::Number:
    case TlotFieldKind::Date:
        if (const auto* const whole = std::get_if<std::int32_t>(&value)) {
            return static_cast<double>(*whole);
        }
        if (std::holds_alternative<double>(value)) {
            return value;
        }
        break;
    case TlotFieldKind::Integer:
    case TlotFieldKind::SmallInteger:
        if (std::holds_alternative<std::int32_t>(value)) {
            return value;
        }
        break;
    case TlotFieldKind::Boolean:
        if (std::holds_alternative<bool>(value)) {
            return value;
        }
        break;
    }
    ThrowKind(FName, field);
}

void TlotTable::Clear() {
    FRows.clear();
    First();
}

void TlotTable::Reset() {
    FFilter = nullptr;
    Unfollow();
    Clear();
}

void TlotTable::First() {
    MoveTo(0);
}

void TlotTable::Next() {
    if (!Eof()) {
        MoveTo(FPosition + 1);
    }
}

void TlotTable::MoveTo(int row) {
    FPosition = row;
    while (!Eof() && !Passes(FPosition)) {
        ++FPosition;
    }
    for (TlotTable* const follower : FFollowers) {
        follower->First();
    }
}

bool TlotTable::Passes(int row) const {
    if (const TlotTable* const master = FMaster.Table) {
        if (master->Eof()) {
            return false;
        }
        const TlotCell& wanted = master->FRows[static_cast<std::size_t>(master->FPosition)][FMaster.Field];
        if (FRows[static_cast<std::size_t>(row)][FMaster.OwnField] != wanted) {
            return false;
        }
    }
    return !FFilter || FFilter(Row(row));
}

void TlotTable::SetFilter(TFilter filter) {
    FFilter = std::move(filter);
    First();
}

void TlotTable::Follow(std::string_view field, TlotTable& master, std::string_view masterField) {
    for (const TlotTable* table = &master; table != nullptr; table = table->FMaster.Table) {
        if (table == this) {
            throw ELotError("Table " + FName + " cannot follow itself");
        }
    }
    const TMaster next{&master, master.FieldIndex(masterField), FieldIndex(field)};
    Unfollow();
    master.FFollowers.push_back(this);
    FMaster = next;
    First();
}

void TlotTable::Unfollow() {
    if (FMaster.Table != nullptr) {
        std::erase(FMaster.Table->FFollowers, this);
        FMaster = {};
        First();
    }
}
