// SPDX-License-Identifier: GPL-3.0-or-later
//
// The adapter between a grid and a list of the model: the grid asks it for records and cells and hands it what was
// typed, and the adapter writes straight into the model, with no copy. It knows no widget, and columns by their place
// only.
//
// After an edit a grid goes on in this order, whatever of it throws: OnChange, Settle, its own view, and last the box
// that tells the user what went wrong. Edits of many cells, as when a block is pasted, are one batch: OnChange and
// Settle come once, at its end.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <variant>

/// A cell's value: nothing, or one of the kinds that grids edit.
using TlotValue = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

class TlotCustomDataSource {
public:
    TlotCustomDataSource() = default;
    TlotCustomDataSource(const TlotCustomDataSource&) = delete;
    TlotCustomDataSource& operator=(const TlotCustomDataSource&) = delete;
    virtual ~TlotCustomDataSource() {
        if (OnGone) {
            OnGone();
        }
    }

    /// Adds a record at the end and returns its index.
    virtual int AppendRecord() = 0;
    virtual void DeleteRecord(int record) = 0;
    [[nodiscard]] virtual int GetRecordCount() = 0;
    /// Nothing past the end of the list.
    [[nodiscard]] virtual TlotValue GetValue(int record, int column) = 0;
    /// Adds a record in front of that one.
    virtual void InsertRecord(int record) = 0;
    /// Writes to the model, then calls Changed. Nothing as the value is what the Delete key and an emptied field write.
    /// What throws, throws before anything is written; what is computed afterwards and may fail is Settle's.
    virtual void SetValue(int record, int column, const TlotValue& value) = 0;
    /// Brings computed figures up to date, where an edit has left them behind; may throw. Grids call it once after each
    /// edit or batch, and before they read the list afresh, never while they paint: a cell that is only drawn finds
    /// nothing left to compute. A source that computes lazily forgets that it has to before it begins, so that what
    /// throws here doesn't throw again at each cell that is read.
    virtual void Settle() {}
    /// What tells this record from all others for as long as it is there, wherever it moves in the list, such as the
    /// address of its object; never looked into. nullptr: records are known by their place.
    [[nodiscard]] virtual const void* RecordKey(int /*record*/) { return nullptr; }
    /// The list behind it has changed: the grid reads it afresh.
    virtual void DataChanged() {
        if (OnDataChanged) {
            OnDataChanged();
        }
    }

    /// Of a detail: the record of the master that it works on; with -1, or one that is gone, it has no records.
    int MasterRecord = -1;

    /// From here to the end of the outermost batch OnChange waits; then it comes once, if anything has changed.
    void BeginBatch() noexcept { ++FBatches; }
    void EndBatch() {
        if (--FBatches == 0 && std::exchange(FWaiting, false) && OnChange) {
            OnChange();
        }
    }
    /// A source that computes lazily leaves it while this is so: what is read between the edits of a batch is of
    /// before.
    [[nodiscard]] bool InBatch() const noexcept { return FBatches > 0; }
    /// How often Changed was called: tells whether a SetValue that threw had written.
    [[nodiscard]] int Changes() const noexcept { return FChanges; }

    std::function<void()> OnChange;      ///< The model has been written to.
    std::function<void()> OnDataChanged; ///< For the grid.
    std::function<void()> OnGone;        ///< For the grid, too: it asks no more. Must not throw.

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

protected:
    /// For SetValue, and for what else counts as an edit: raises OnChange, in a batch at its end; a quiet one doesn't.
    void Changed(bool quiet = false) {
        ++FChanges;
        if (quiet) {
            return;
        }
        if (FBatches > 0) {
            FWaiting = true;
        } else if (OnChange) {
            OnChange();
        }
    }

private:
    int FBatches = 0;
    int FChanges = 0;
    bool FWaiting = false;
};
