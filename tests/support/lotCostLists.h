// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lists for tests of grids: costs in sections, over a data source that computes lazily and fails where it is told to.
#pragma once

#include "common/lotDataSource.h"

#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

struct TCost {
    std::string Name;
    double Amount = 0;
    bool Percentage = false;
    std::string Kind = {};
    double Start = 1;
    double Value = 0; ///< Twice the amount, as of the last pass.
};

using TCostList = std::vector<std::unique_ptr<TCost>>;

inline TCostList CostList(std::vector<TCost> costs) {
    TCostList list;
    for (TCost& cost : costs) {
        cost.Value = 2 * cost.Amount;
        list.push_back(std::make_unique<TCost>(std::move(cost)));
    }
    return list;
}

/// The columns are name, amount, percentage, kind, start and, computed, the value. Without masters, the list is
/// Sections[0].
class TCosts final : public TlotCustomDataSource {
public:
    std::vector<std::unique_ptr<TCostList>> Sections;
    bool Detail = false;
    std::set<std::string> Failing; ///< Names of operations.
    std::string Log;               ///< What was called, but for reading.

    TCosts() {
        Sections.push_back(std::make_unique<TCostList>(CostList({{"Legal", 100}, {"Agent", 12.3456, true}})));
        Sections.push_back(std::make_unique<TCostList>(CostList({{"Roads", 5000}})));
        Sections.push_back(std::make_unique<TCostList>());
    }

    TCost& Cost(int record) { return *List().at(static_cast<std::size_t>(record)); }
    TCostList& List() { return *Sections.at(static_cast<std::size_t>(std::max(0, MasterRecord))); }
    void Swap(int a, int b) { std::swap(List()[static_cast<std::size_t>(a)], List()[static_cast<std::size_t>(b)]); }
    [[nodiscard]] std::string TakeLog() { return std::exchange(Log, {}); }
    void Reach(const std::string& name) {
        if (Failing.contains(name)) {
            throw std::runtime_error(name);
        }
    }

    int AppendRecord() override {
        Log += "append ";
        Reach("AppendRecord");
        List().push_back(std::make_unique<TCost>());
        DataChanged();
        return static_cast<int>(List().size()) - 1;
    }
    void DeleteRecord(int record) override {
        Log += "delete ";
        List().erase(List().begin() + record);
        DataChanged();
    }
    int GetRecordCount() override {
        Reach("GetRecordCount");
        return Detail && (MasterRecord < 0 || MasterRecord >= static_cast<int>(Sections.size()))
                   ? 0
                   : static_cast<int>(List().size());
    }
    TlotValue GetValue(int record, int column) override {
        Reach("GetValue");
        if (!InBatch()) {
            Settle();
        }
        const TCost& cost = Cost(record);
        switch (column) {
        case 0: return cost.Name;
        case 1: return cost.Amount;
        case 2: return cost.Percentage;
        case 3: return cost.Kind;
        case 4: return cost.Start;
        default: return cost.Value;
        }
    }
    void InsertRecord(int record) override {
        List().insert(List().begin() + record, std::make_unique<TCost>());
        DataChanged();
    }
    void SetValue(int record, int column, const TlotValue& value) override {
        Log += "set ";
        Reach("SetValue");
        TCost& cost = Cost(record);
        switch (column) {
        case 0: cost.Name = AsString(value); break;
        case 1: cost.Amount = std::holds_alternative<std::monostate>(value) ? -1 : AsDouble(value); break;
        case 2: cost.Percentage = AsBoolean(value); break;
        case 3: cost.Kind = AsString(value); break;
        default: cost.Start = AsDouble(value);
        }
        FDirty = true;
        Changed();
    }
    void Settle() override {
        if (!std::exchange(FDirty, false)) {
            return;
        }
        Log += "pass ";
        Reach("Settle");
        for (const auto& section : Sections) {
            for (const auto& cost : *section) {
                cost->Value = 2 * cost->Amount;
            }
        }
    }
    const void* RecordKey(int record) override {
        Reach("RecordKey");
        return List().at(static_cast<std::size_t>(record)).get();
    }

private:
    bool FDirty = false;
};

/// The sections of those costs, known by their lists.
class TSections final : public TlotCustomDataSource {
public:
    explicit TSections(TCosts& costs) : FCosts(costs) {}

    std::string Caption = "Section "; ///< Before the number.

    int AppendRecord() override { return 0; }
    void DeleteRecord(int record) override {
        FCosts.Sections.erase(FCosts.Sections.begin() + record);
        DataChanged();
    }
    int GetRecordCount() override { return static_cast<int>(FCosts.Sections.size()); }
    TlotValue GetValue(int record, int /*column*/) override { return Caption + std::to_string(record); }
    void InsertRecord(int record) override {
        FCosts.Sections.insert(FCosts.Sections.begin() + record, std::make_unique<TCostList>());
        DataChanged();
    }
    void SetValue(int /*record*/, int /*column*/, const TlotValue& /*value*/) override {}
    const void* RecordKey(int record) override { return FCosts.Sections.at(static_cast<std::size_t>(record)).get(); }

private:
    TCosts& FCosts;
};
