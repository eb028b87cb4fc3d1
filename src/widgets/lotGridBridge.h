// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any data source as a model of the toolkit: a flat table of its records, with, at its end if wanted, the row for a new
// one. A value posted in that row appends the record.
#pragma once

#include "common/lotDataSource.h"
#include "common/vipNumber.h"
#include "widgets/lotGridColumn.h"

#include <QAbstractTableModel>
#include <functional>
#include <vector>

class TGridBridge : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Takes over the source's OnDataChanged. The source outlives the bridge. `newRowText` stands in the row for new
    /// records; without one there is no such row. `master`: see TlotCustomDataSource::MasterRecord.
    TGridBridge(TlotCustomDataSource& source, std::vector<TGridColumn> columns, const TNumberLocale& locale,
                QString newRowText = {}, int master = -1, QObject* parent = nullptr);

    std::function<TGridRowLook(int record)> OnLook;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Takes a text, number or boolean, by the column's editor.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    [[nodiscard]] const TGridColumn& Column(int column) const { return FColumns.at(static_cast<std::size_t>(column)); }
    [[nodiscard]] bool IsNewRow(int row) const { return HasNewRow() && row == RecordCount(); }
    [[nodiscard]] int RecordCount() const;
    [[nodiscard]] const TNumberLocale& Locale() const noexcept { return FLocale; }
    /// The sum of a column's figures.
    [[nodiscard]] double Sum(int column) const;
    /// Reads the list afresh, as the source asks for by itself.
    void Reload();

private:
    [[nodiscard]] bool HasNewRow() const { return !FNewRowText.isEmpty(); }
    [[nodiscard]] TlotValue Value(int record, int column) const;
    [[nodiscard]] QString Shown(int record, int column) const;
    [[nodiscard]] TlotValue Typed(int column, const QVariant& value) const;

    TlotCustomDataSource& FSource;
    std::vector<TGridColumn> FColumns;
    TNumberLocale FLocale;
    QString FNewRowText;
    int FMaster;
    bool FAppending = false;
};
