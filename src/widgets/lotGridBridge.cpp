// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridBridge.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <utility>

namespace {

constexpr QRgb MissingRed = 0xC62828;

} // namespace

TGridBridge::TGridBridge(TlotCustomDataSource& source, std::vector<TGridColumn> columns, const TNumberLocale& locale,
                         QString newRowText, int master, QObject* parent)
    : QAbstractTableModel(parent),
      FSource(source),
      FColumns(std::move(columns)),
      FLocale(locale),
      FNewRowText(std::move(newRowText)),
      FMaster(master) {
    if (master < 0) {
        FSource.OnDataChanged = [this] { Reload(); };
    }
}

void TGridBridge::Reload() {
    if (FAppending) {
        return;
    }
    beginResetModel();
    endResetModel();
}

int TGridBridge::RecordCount() const {
    FSource.MasterRecord = FMaster;
    return FSource.GetRecordCount();
}

int TGridBridge::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : RecordCount() + (HasNewRow() ? 1 : 0);
}

int TGridBridge::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(FColumns.size());
}

TlotValue TGridBridge::Value(int record, int column) const {
    FSource.MasterRecord = FMaster;
    return FSource.GetValue(record, column);
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
    return QString::fromStdString(vip::FormatMask(what.MaskFor(record), figure, FLocale));
}

QVariant TGridBridge::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const TGridColumn& column = Column(index.column());
    if (IsNewRow(index.row())) {
        if (role == Qt::ForegroundRole) {
            return QGuiApplication::palette().brush(QPalette::PlaceholderText);
        }
        return role == Qt::DisplayRole && index.column() == 0 ? QVariant(FNewRowText) : QVariant();
    }
    const bool check = column.Editor == TlotEditor::CheckBox;
    switch (role) {
    case Qt::DisplayRole: return check ? QVariant() : Shown(index.row(), index.column());
    case Qt::EditRole: {
        const TlotValue value = Value(index.row(), index.column());
        if (column.IsFigure()) {
            return TlotCustomDataSource::AsDouble(value);
        }
        return check ? QVariant(TlotCustomDataSource::AsBoolean(value))
                     : QVariant(QString::fromStdString(TlotCustomDataSource::AsString(value)));
    }
    case Qt::CheckStateRole:
        if (check) {
            const bool on = TlotCustomDataSource::AsBoolean(Value(index.row(), index.column()));
            return static_cast<int>(on ? Qt::Checked : Qt::Unchecked);
        }
        break;
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter | (column.IsFigure() ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        if (OnLook && OnLook(index.row()).Red) {
            return QBrush(QColor(MissingRed));
        }
        break;
    case Qt::FontRole:
        if (OnLook && OnLook(index.row()).Bold) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        break;
    case Qt::BackgroundRole:
        if (OnLook && OnLook(index.row()).Banded) {
            return QGuiApplication::palette().brush(QPalette::AlternateBase);
        }
        break;
    default: break;
    }
    return {};
}

QVariant TGridBridge::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return Column(section).Caption;
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(Qt::AlignVCenter | (Column(section).IsFigure() ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

Qt::ItemFlags TGridBridge::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    switch (Column(index.column()).Editor) {
    case TlotEditor::ReadOnly: return Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    case TlotEditor::CheckBox: return plain | Qt::ItemIsUserCheckable;
    default: return plain | Qt::ItemIsEditable;
    }
}

TlotValue TGridBridge::Typed(int column, const QVariant& value) const {
    if (Column(column).Editor == TlotEditor::CheckBox) {
        return value.toInt() == Qt::Checked || (value.typeId() == QMetaType::Bool && value.toBool());
    }
    if (!Column(column).IsFigure()) {
        return value.toString().toStdString();
    }
    return value.typeId() == QMetaType::QString ? vip::StrToNumber(value.toString().toStdString(), FLocale)
                                                : value.toDouble();
}

bool TGridBridge::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || (role != Qt::EditRole && role != Qt::CheckStateRole) ||
        Column(index.column()).Editor == TlotEditor::ReadOnly) {
        return false;
    }
    FSource.MasterRecord = FMaster;
    const TlotValue typed = Typed(index.column(), value);
    if (!IsNewRow(index.row())) {
        FSource.SetValue(index.row(), index.column(), typed);
        // Other cells may hang on this one, in other records too.
        emit dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
        return true;
    }
    const TlotValue nothing = Typed(index.column(), QVariant(QString()));
    if (typed == nothing) {
        return false; // Nothing was typed, so nobody wants a record.
    }
    // The record comes in front of the row for new ones, whose editor stays alive that way: a reload would not let it.
    beginInsertRows({}, index.row(), index.row());
    FAppending = true;
    const int record = FSource.AppendRecord();
    FAppending = false;
    endInsertRows();
    FSource.MasterRecord = FMaster;
    FSource.SetValue(record, index.column(), typed);
    emit dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
    return true;
}

double TGridBridge::Sum(int column) const {
    double sum = 0;
    const int count = RecordCount();
    for (int record = 0; record < count; ++record) {
        sum += TlotCustomDataSource::AsDouble(Value(record, column));
    }
    return sum;
}
