// SPDX-License-Identifier: GPL-3.0-or-later
//
// The adapter between a grid and a list of the model: the grid asks it for records and cells and hands it what was
// typed, and the adapter writes straight into the model, with no copy. It knows no widget, and columns by their place
// only.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>

/// A cell's value: nothing, or one of the kinds that grids edit.
using TlotValue = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

class TlotCustomDataSource {
public:
    TlotCustomDataSource() = default;
    TlotCustomDataSource(const TlotCustomDataSource&) = delete;
    TlotCustomDataSource& operator=(const TlotCustomDataSource&) = delete;
    virtual ~TlotCustomDataSource() = default;

    /// Adds a record at the end and returns its index.
    virtual int AppendRecord() = 0;
    virtual void DeleteRecord(int record) = 0;
    [[nodiscard]] virtual int GetRecordCount() = 0;
    /// Nothing past the end of the list.
    [[nodiscard]] virtual TlotValue GetValue(int record, int column) = 0;
    /// Adds a record in front of that one.
    virtual void InsertRecord(int record) = 0;
    virtual void SetValue(int record, int column, const TlotValue& value) = 0;
    /// Brings computed figures up to date where an edit has left that for later. Grids call it after their edits and
    /// before they read, never while they paint. May throw; what is read then is what stood before.
    virtual void Settle() {}
    /// What the record is, wherever it stands; null: known by its place only.
    [[nodiscard]] virtual const void* RecordKey(int /*record*/) { return nullptr; }
    /// The list behind it has changed: the grid reads it afresh.
    virtual void DataChanged() {
        if (OnDataChanged) {
            OnDataChanged();
        }
    }

    int MasterRecord = -1; ///< Of a detail: the record of the master that it works on; -1: none, and so no records.

    std::function<void()> OnChange;      ///< SetValue has written to the model.
    std::function<void()> OnDataChanged; ///< For the grid.

    // The value of a cell; what is empty or of another kind is the type's zero.
    [[nodiscard]] static bool AsBoolean(const TlotValue& value) {
        const bool* const boolean = std::get_if<bool>(&value);
        return boolean != nullptr && *boolean;
    }
    [[nodiscard]] static double AsDouble(const TlotValue& value) {
        if (const double* const number = std::get_if<double>(&value)) {
            return *number;
        }
        const std::int64_t* const whole = std::get_if<std::int64_t>(&value);
        return whole != nullptr ? static_cast<double>(*whole) : 0;
    }
    /// Rounded to the nearest, within what a whole number holds.
    [[nodiscard]] static std::int64_t AsInteger(const TlotValue& value) {
        constexpr double largest = 9'000'000'000'000'000;
        return std::llround(std::fmin(std::fmax(AsDouble(value), -largest), largest));
    }
    [[nodiscard]] static std::string AsString(const TlotValue& value) {
        const std::string* const text = std::get_if<std::string>(&value);
        return text != nullptr ? *text : std::string();
    }
};
