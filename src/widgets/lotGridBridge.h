// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any data source as a model of the toolkit: a flat table of its records, with, at its end if wanted, the row for a new
// one. A value posted in that row appends the record. The bridge knows how many records there are from when it last
// read the list: whoever changes the list calls DataChanged.
#pragma once

#include "common/vipNumber.h"
#include "widgets/lotGridColumn.h"
#include "widgets/lotGridLink.h"

#include <QAbstractTableModel>
#include <functional>
#include <string>
#include <utility>
#include <vector>

class TGridBridge : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int BandRole = Qt::UserRole; ///< Of a header: its column's band.

    /// The link outlives the bridge. `newRowText` stands in the row for new records; without one there is no such row.
    /// `master`: see TlotCustomDataSource::MasterRecord.
    TGridBridge(TGridLink& link, std::vector<TGridColumn> columns, const TNumberLocale& locale, QString newRowText = {},
                int master = -1, QObject* parent = nullptr);

    std::function<TGridRowLook(int record)> OnLook;
    std::function<TGridCellLook(int record, int column)> OnCellLook;
    /// Whether a cell may be edited now, its column allowing it at all.
    std::function<bool(int record, int column)> OnEditing;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Takes a text as typed, a number, a boolean, or an invalid value for nothing. False if the cell refuses it.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// Chooses a text by its place in the column's list.
    bool Choose(const QModelIndex& index, int choice);

    [[nodiscard]] const TGridColumn& Column(int column) const { return FColumns.at(static_cast<std::size_t>(column)); }
    /// Changes a column's caption, editor, mask or choices.
    void ChangeColumn(int column, const std::function<void(TGridColumn&)>& change);
    void SetChoices(int column, const QStringList& choices);
    [[nodiscard]] QStringList ChoicesFor(int column) const;
    [[nodiscard]] std::string MaskFor(int row, int column) const;
    /// Opens what is behind a TextButton's button; a null string if that came to nothing.
    [[nodiscard]] QString PressButton(int column, const QString& text) const;
    [[nodiscard]] bool MayEdit(int row, int column) const;

    [[nodiscard]] bool HasNewRow() const { return !FNewRowText.isEmpty(); }
    [[nodiscard]] bool IsNewRow(int row) const { return HasNewRow() && row == FCount; }
    [[nodiscard]] int RecordCount() const noexcept { return FCount; }
    [[nodiscard]] TlotValue Value(int record, int column) const;
    [[nodiscard]] const void* Key(int record) const;
    /// The sum of a column's figures.
    [[nodiscard]] double Sum(int column) const;
    [[nodiscard]] const TNumberLocale& Locale() const noexcept { return FLocale; }
    [[nodiscard]] TGridLink& Link() const noexcept { return FLink; }
    [[nodiscard]] THookGuard& Guard() const noexcept { return FLink.Guard(); }
    void SetMaster(int master);

    // The steps of TGridLink::Write. False if the cell refuses the value; what the source throws comes out.
    bool Put(int row, int column, const TlotValue& value);
    bool PutText(int row, int column, const QString& text);
    /// By the place in the column's list.
    bool PutChoice(int row, int column, int choice);

    /// Reads the list afresh.
    void Reset();

signals:
    /// A value posted in the row for new records has made this one.
    void Appended(int record);

private:
    /// TGridLink::Ask with the source turned to this bridge's master.
    template <typename TResult, typename TWork> TResult Ask(const TWork& work, TResult otherwise) const {
        TurnToMaster();
        return FLink.Ask(work, std::move(otherwise));
    }
    void TurnToMaster() const;
    /// Turned to this bridge's master. Within a Write, where there is one.
    [[nodiscard]] TlotCustomDataSource& Source() const;
    [[nodiscard]] QString Shown(int record, int column) const;
    [[nodiscard]] QVariant NewRowData(int column, int role) const;
    [[nodiscard]] QVariant Edited(int record, int column) const;
    [[nodiscard]] QVariant LookOf(int record, int column, int role) const;
    [[nodiscard]] int CountRecords() const;
    /// False if the value is nothing worth a record.
    bool PutInNewRow(int column, const TlotValue& value, const TlotValue& taken);
    void AppendRow();
    void TakeBack();
    void ShowValues();

    TGridLink& FLink;
    std::vector<TGridColumn> FColumns;
    TNumberLocale FLocale;
    QString FNewRowText;
    int FMaster;
    int FCount = 0;
};
