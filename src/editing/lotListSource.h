// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one data source that the grids of the program's screens stand on: a list of the model, whose columns are told as
// a table of name, reading, writing and mask. What the screens differ in, on purpose, are switches: whether the project
// is recalculated at the next reading after an edit, and what is told to whoever listens.
#pragma once

#include "app/datProject.h"
#include "common/lotDataSource.h"
#include "common/vipErrors.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// One column of a source over records of a kind. The caption on screen and the width are the grid's.
template <class Record> struct TlotColumn {
    std::string_view Name;
    TlotValue (*Get)(const Record& record);
    /// Null: never written. Throws before anything is written, or not at all.
    void (*Set)(Record& record, const TlotValue& value) = nullptr;
    std::string_view Mask = {}; ///< Of figures, by vip::FormatMask; empty for texts and flags.
};

/// What the screens differ in. All is off at first.
struct TlotSourceRules {
    /// After a write the project is recalculated when a cell is next read, and not before.
    bool RecalculateAtNextRead = false;
    bool QuietWrites = false;       ///< A write raises no OnChange.
    bool ChangeWithRecords = false; ///< Adding, inserting and deleting raise OnChange as a write does.
};

/// What is the same whatever the records are.
class TlotEditingSource : public TlotCustomDataSource {
public:
    TlotEditingSource(TProjectData& data, TlotSourceRules rules) : FData(data), FRules(rules) {}

    bool Modified = false; ///< Something was written, added or deleted since whoever reads this cleared it.

    /// Recalculates the project if an edit has left that to the next reading. The mark is cleared before the pass runs,
    /// so that a pass that throws does so once, and the cells then show what stood. Throws what the pass throws.
    void Settle() override;

protected:
    [[nodiscard]] TProjectData& Data() const noexcept { return FData; }
    [[nodiscard]] TlotProject& Project() const noexcept { return FData.Project(); }

    /// After a write.
    void Written();
    /// After records came or went; the grid reads the list afresh.
    void RecordsChanged();

private:
    TProjectData& FData;
    TlotSourceRules FRules;
    bool FDirty = false;
};

/// A source over a list with Count, operator[], Add and Insert, whose records T live at addresses of their own. How a
/// record is deleted is the derived source's, since the project must hear of it.
template <class T, class List> class TlotListSource : public TlotEditingSource {
public:
    TlotListSource(TProjectData& data, std::span<const TlotColumn<T>> columns, TlotSourceRules rules = {})
        : TlotEditingSource(data, rules), FColumns(columns) {}

    [[nodiscard]] std::span<const TlotColumn<T>> Columns() const noexcept { return FColumns; }

    int AppendRecord() override {
        if (List* const list = Records()) {
            Added(list->Add());
            RecordsChanged();
            return list->Count() - 1;
        }
        return -1;
    }
    void InsertRecord(int record) override {
        if (List* const list = Records()) {
            Added(list->Insert(record));
            RecordsChanged();
        }
    }
    void DeleteRecord(int record) override {
        if (Record(record) != nullptr) {
            Delete(record);
            RecordsChanged();
        }
    }
    [[nodiscard]] int GetRecordCount() override {
        const List* const list = Records();
        return list == nullptr ? 0 : list->Count();
    }
    [[nodiscard]] TlotValue GetValue(int record, int column) override {
        if (!InBatch()) {
            Settle();
        }
        const T* const found = Record(record);
        return found == nullptr ? TlotValue() : Column(column).Get(*found);
    }
    void SetValue(int record, int column, const TlotValue& value) override {
        T* const found = Record(record);
        if (found == nullptr || Column(column).Set == nullptr) {
            return;
        }
        Column(column).Set(*found, value);
        AfterSet(*found, column);
        Written();
    }
    /// The record's own address: it is the same one wherever it moves.
    [[nodiscard]] const void* RecordKey(int record) override { return Record(record); }

protected:
    /// The list; null where there is no master, and so no records.
    [[nodiscard]] virtual List* Records() = 0;
    /// Deletes a record that is there.
    virtual void Delete(int record) = 0;
    /// A record was made, with nothing in it yet.
    virtual void Added(T& /*record*/) {}
    /// A column was written: what hangs on it in the record follows.
    virtual void AfterSet(T& /*record*/, int /*column*/) {}

    [[nodiscard]] T* Record(int record) {
        List* const list = Records();
        return list != nullptr && record >= 0 && record < list->Count() ? &(*list)[record] : nullptr;
    }

private:
    /// Throws ERangeError for a column that the table doesn't have.
    [[nodiscard]] const TlotColumn<T>& Column(int column) const {
        if (column < 0 || column >= static_cast<int>(FColumns.size())) {
            throw ERangeError();
        }
        return FColumns[static_cast<std::size_t>(column)];
    }

    std::span<const TlotColumn<T>> FColumns;
};
