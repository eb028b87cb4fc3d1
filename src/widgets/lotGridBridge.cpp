// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridBridge.h"

#include "widgets/lotGridValues.h"
#include "widgets/lotPalette.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

namespace {

/// What a row for new records holds before anything is typed into it.
bool IsNothing(const TlotValue& value) {
    return TlotCustomDataSource::AsString(value).empty() && TlotCustomDataSource::AsDouble(value) == 0 &&
           !TlotCustomDataSource::AsBoolean(value);
}

} // namespace

TGridBridge::TGridBridge(TGridLink& link, std::vector<TGridColumn> columns, const TNumberLocale& locale,
                         QString newRowText, int master, QObject* parent)
    : QAbstractTableModel(parent),
      FLink(link),
      FColumns(std::move(columns)),
      FLocale(locale),
      FNewRowText(std::move(newRowText)),
      FMaster(master) {
    FCount = CountRecords();
    connect(&link, &TGridLink::ListChanged, this, &TGridBridge::Reset);
    connect(&link, &TGridLink::ValuesChanged, this, &TGridBridge::ShowValues);
}

void TGridBridge::TurnToMaster() const {
    if (FLink.Source() != nullptr) {
        FLink.Source()->MasterRecord = FMaster;
    }
}

TlotCustomDataSource& TGridBridge::Source() const {
    TurnToMaster();
    return *FLink.Source();
}

int TGridBridge::CountRecords() const {
    return Ask([](TlotCustomDataSource& source) { return source.GetRecordCount(); }, 0);
}

void TGridBridge::Reset() {
    beginResetModel();
    FCount = CountRecords();
    endResetModel();
}

void TGridBridge::SetMaster(int master) {
    FMaster = master;
    Reset();
}

void TGridBridge::ShowValues() {
    if (rowCount() > 0 && columnCount() > 0) {
        // Other cells may hang on an edited one, in other records too.
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

int TGridBridge::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FCount + (HasNewRow() ? 1 : 0);
}

int TGridBridge::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(FColumns.size());
}

TlotValue TGridBridge::Value(int record, int column) const {
    return Ask([&](TlotCustomDataSource& source) { return source.GetValue(record, column); }, TlotValue());
}

const void* TGridBridge::Key(int record) const {
    return Ask([record](TlotCustomDataSource& source) { return source.RecordKey(record); },
               static_cast<const void*>(nullptr));
}

std::string TGridBridge::MaskFor(int row, int column) const {
    const TGridColumn& what = Column(column);
    const std::string mask = what.Mask.empty() ? ",0" : what.Mask;
    return what.MaskOf && !IsNewRow(row) ? Ask([&](auto&) { return what.MaskOf(row); }, mask) : mask;
}

QStringList TGridBridge::ChoicesFor(int column) const {
    const TGridColumn& what = Column(column);
    return what.ChoicesOf ? Ask([&what](auto&) { return what.ChoicesOf(); }, what.Choices) : what.Choices;
}

QString TGridBridge::PressButton(int column, const QString& text) const {
    QString taken;
    if (const auto open = Column(column).OnButton) {
        Guard().Run([&] {
            TurnToMaster();
            taken = open(text);
        });
    }
    return taken;
}

bool TGridBridge::MayEdit(int row, int column) const {
    if (Column(column).Editor == TlotEditor::ReadOnly) {
        return false;
    }
    return IsNewRow(row) || !OnEditing || Ask([&](auto&) { return OnEditing(row, column); }, false);
}

void TGridBridge::ChangeColumn(int column, const std::function<void(TGridColumn&)>& change) {
    change(FColumns.at(static_cast<std::size_t>(column)));
    emit headerDataChanged(Qt::Horizontal, column, column);
    ShowValues();
}

void TGridBridge::SetChoices(int column, const QStringList& choices) {
    FColumns.at(static_cast<std::size_t>(column)).Choices = choices;
}

QString TGridBridge::Shown(int record, int column) const {
    const TGridColumn& what = Column(column);
    const TlotValue value = Value(record, column);
    if (!what.IsFigure()) {
        return QString::fromStdString(TlotCustomDataSource::AsString(value));
    }
    const double figure = TlotCustomDataSource::AsDouble(value);
    if (std::holds_alternative<std::monostate>(value) || (figure == 0 && !what.ShowZero)) {
        return {};
    }
    return QString::fromStdString(vip::FormatMask(MaskFor(record, column), figure, FLocale));
}

QVariant TGridBridge::NewRowData(int column, int role) const {
    switch (role) {
    case Qt::ForegroundRole: return QGuiApplication::palette().brush(QPalette::PlaceholderText);
    case Qt::DisplayRole: return column == 0 ? QVariant(FNewRowText) : QVariant();
    case Qt::AccessibleTextRole: return FNewRowText;
    default: return {};
    }
}

QVariant TGridBridge::Edited(int record, int column) const {
    const TlotValue value = Value(record, column);
    if (Column(column).IsFigure()) {
        return TlotCustomDataSource::AsDouble(value);
    }
    if (Column(column).Editor == TlotEditor::CheckBox) {
        return TlotCustomDataSource::AsBoolean(value);
    }
    return QString::fromStdString(TlotCustomDataSource::AsString(value));
}

QVariant TGridBridge::LookOf(int record, int column, int role) const {
    const TGridRowLook row = OnLook ? Ask([&](auto&) { return OnLook(record); }, TGridRowLook{}) : TGridRowLook{};
    const TGridCellLook cell =
        OnCellLook ? Ask([&](auto&) { return OnCellLook(record, column); }, TGridCellLook{}) : TGridCellLook{};
    if (role == Qt::ForegroundRole && cell.Grey) {
        return QBrush(colour::NotApplying());
    }
    if (role == Qt::ForegroundRole && (cell.Red || row.Red)) {
        return QBrush(colour::Missing());
    }
    if (role == Qt::BackgroundRole && cell.Tinted) {
        return QBrush(colour::Tinted());
    }
    if (role == Qt::BackgroundRole && row.Banded) {
        return QBrush(colour::Band());
    }
    if (role == Qt::FontRole && row.Bold) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}

QVariant TGridBridge::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const int record = index.row();
    const TGridColumn& column = Column(index.column());
    if (IsNewRow(record)) {
        return NewRowData(index.column(), role);
    }
    const bool check = column.Editor == TlotEditor::CheckBox;
    switch (role) {
    case Qt::DisplayRole: return check ? QVariant() : Shown(record, index.column());
    case Qt::EditRole: return Edited(record, index.column());
    case Qt::CheckStateRole:
        if (check) {
            return static_cast<int>(Edited(record, index.column()).toBool() ? Qt::Checked : Qt::Unchecked);
        }
        return {};
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter | (column.IsFigure() ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
    case Qt::FontRole:
    case Qt::BackgroundRole: return LookOf(record, index.column(), role);
    default: return {};
    }
}

QVariant TGridBridge::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const TGridColumn& column = Column(section);
    switch (role) {
    case Qt::DisplayRole: return column.Caption;
    case BandRole: return column.Band;
    // Columns of two bands may have one caption.
    case Qt::AccessibleTextRole: return column.Band.isEmpty() ? column.Caption : column.Band + ": " + column.Caption;
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter | (column.IsFigure() ? Qt::AlignRight : Qt::AlignLeft));
    default: return {};
    }
}

Qt::ItemFlags TGridBridge::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (!MayEdit(index.row(), index.column())) {
        return plain;
    }
    const bool check = Column(index.column()).Editor == TlotEditor::CheckBox;
    return plain | (check ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool TGridBridge::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || (role != Qt::EditRole && role != Qt::CheckStateRole)) {
        return false;
    }
    bool done = false;
    FLink.Write([&] {
        if (role == Qt::CheckStateRole) {
            done = Put(index.row(), index.column(), value.toInt() == Qt::Checked);
        } else if (!value.isValid()) {
            done = Put(index.row(), index.column(), std::monostate());
        } else if (value.typeId() == QMetaType::QString) {
            done = PutText(index.row(), index.column(), value.toString());
        } else if (value.typeId() == QMetaType::Bool) {
            done = Put(index.row(), index.column(), value.toBool());
        } else {
            done = Put(index.row(), index.column(), value.toDouble());
        }
    });
    return done;
}

bool TGridBridge::Choose(const QModelIndex& index, int choice) {
    bool done = false;
    FLink.Write([&] { done = PutChoice(index.row(), index.column(), choice); });
    return done;
}

bool TGridBridge::PutText(int row, int column, const QString& text) {
    if (Column(column).Editor == TlotEditor::Choice) {
        return PutChoice(row, column, FindChoice(ChoicesFor(column), text));
    }
    const auto value = ParseCell(Column(column), text, FLocale);
    return value && Put(row, column, *value);
}

bool TGridBridge::PutChoice(int row, int column, int choice) {
    const QStringList choices = ChoicesFor(column);
    if (choice < 0 || choice >= choices.size() || !MayEdit(row, column)) {
        return false;
    }
    const std::string text = choices[choice].toStdString();
    const bool isNew = IsNewRow(row);
    if ((isNew || TlotCustomDataSource::AsString(Value(row, column)) != text) && !Put(row, column, text)) {
        return false;
    }
    if (const auto chosen = Column(column).OnChosen) {
        TurnToMaster();
        chosen(isNew ? FCount - 1 : row, choice);
    }
    return true;
}

bool TGridBridge::Put(int row, int column, const TlotValue& value) {
    if (!MayEdit(row, column)) {
        return false;
    }
    const TlotValue taken = WithinBounds(Column(column), value);
    if (IsNewRow(row)) {
        return PutInNewRow(column, value, taken);
    }
    Source().SetValue(row, column, taken);
    return true;
}

bool TGridBridge::PutInNewRow(int column, const TlotValue& value, const TlotValue& taken) {
    if (IsNothing(value)) {
        return false;
    }
    AppendRow();
    const int changes = Source().Changes();
    try {
        Source().SetValue(FCount - 1, column, taken);
    } catch (...) {
        // What wasn't taken leaves no bare record behind.
        if (Source().Changes() == changes) {
            TakeBack();
        }
        throw;
    }
    emit Appended(FCount - 1);
    return true;
}

void TGridBridge::AppendRow() {
    TurnToMaster();
    FLink.Append();
    // The record comes in front of the row for new ones, whose editor stays alive that way: a reset would not let it.
    beginInsertRows({}, FCount, FCount);
    ++FCount;
    endInsertRows();
}

void TGridBridge::TakeBack() {
    Source().DeleteRecord(FCount - 1);
    beginRemoveRows({}, FCount - 1, FCount - 1);
    --FCount;
    endRemoveRows();
}

double TGridBridge::Sum(int column) const {
    double sum = 0;
    for (int record = 0; record < FCount; ++record) {
        sum += TlotCustomDataSource::AsDouble(Value(record, column));
    }
    return sum;
}
