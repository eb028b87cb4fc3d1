// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSheetAccessible.h"

#include "widgets/lotAccessibleParts.h"
#include "widgets/lotSpreadsheetView.h"

#include <algorithm>
#include <numeric>

namespace {

QList<int> Range(int first, int last) {
    QList<int> numbers(std::max(0, last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

/// The cells are the parts, row by row. Where the page has column headers, they are the first row of parts; rows of the
/// table are those of the page all the same.
class TSheetAccessible final : public TAccessibleParts, public QAccessibleTableInterface {
public:
    explicit TSheetAccessible(TSpreadsheetView& view) : TAccessibleParts(view, QAccessible::Table), FView(view) {}

    /// -1: a column header.
    [[nodiscard]] int RowOf(int part) const { return part / std::max(1, columnCount()) - HeaderRows(); }
    [[nodiscard]] int ColumnOf(int part) const { return part % std::max(1, columnCount()); }
    [[nodiscard]] int PartOf(int row, int column) const { return (row + HeaderRows()) * columnCount() + column; }
    [[nodiscard]] int HeaderRows() const { return Page().ColumnHeaders.empty() ? 0 : 1; }
    [[nodiscard]] const TSpreadsheetPage& Page() const { return FView.Page(); }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : TAccessibleParts::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString own = TAccessibleParts::text(kind);
        return own.isEmpty() && kind == QAccessible::Name ? QString::fromStdString(Page().Title) : own;
    }

    // The parts
    [[nodiscard]] int PartCount() const override { return (rowCount() + HeaderRows()) * columnCount(); }
    [[nodiscard]] QAccessible::Role PartRole(int part) const override {
        return RowOf(part) < Page().FrozenRows         ? QAccessible::ColumnHeader
               : ColumnOf(part) < Page().FrozenColumns ? QAccessible::RowHeader
                                                       : QAccessible::Cell;
    }
    [[nodiscard]] QString PartText(int part, QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) {
            return {};
        }
        return RowOf(part) < 0 ? FView.ColumnCaption(ColumnOf(part)) : FView.CellText(RowOf(part), ColumnOf(part));
    }
    [[nodiscard]] QRect PartRect(int part) const override {
        return RowOf(part) < 0 ? FView.HeaderRect(ColumnOf(part)) : FView.CellRect(RowOf(part), ColumnOf(part));
    }
    [[nodiscard]] int PartAt(const QPoint& place) const override {
        const TSpreadsheetView::TPlace cell = FView.CellAt(place);
        return cell.Row < 0 ? -1 : PartOf(cell.Row, cell.Column);
    }
    [[nodiscard]] int CurrentPart() const override {
        return FView.Selection().IsEmpty() ? -1 : PartOf(FView.CurrentRow(), FView.CurrentColumn());
    }
    void SetCurrentPart(int part) const override { FView.Select(std::max(0, RowOf(part)), ColumnOf(part)); }
    [[nodiscard]] bool IsPartSelected(int part) const override {
        return FView.Selection().Holds(RowOf(part), ColumnOf(part));
    }

    // The table
    [[nodiscard]] int rowCount() const override { return Page().RowCount(); }
    [[nodiscard]] int columnCount() const override { return Page().ColumnCount(); }
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override {
        const bool inside = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
        return inside ? child(PartOf(row, column)) : nullptr;
    }
    [[nodiscard]] QString columnDescription(int column) const override { return FView.ColumnCaption(column); }
    [[nodiscard]] QString rowDescription(int row) const override { return FView.RowCaption(row); }

    [[nodiscard]] int selectedCellCount() const override {
        const TSheetSelection selected = FView.Selection();
        return selected.IsEmpty() ? 0 : (selected.Right - selected.Left + 1) * (selected.Bottom - selected.Top + 1);
    }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override {
        const TSheetSelection selected = FView.Selection();
        QList<QAccessibleInterface*> cells;
        for (int row = selected.Top; row <= selected.Bottom && !selected.IsEmpty(); ++row) {
            for (int column = selected.Left; column <= selected.Right; ++column) {
                cells << cellAt(row, column);
            }
        }
        return cells;
    }
    [[nodiscard]] QList<int> selectedRows() const override {
        const TSheetSelection selected = FView.Selection();
        const bool whole = selected.Left == 0 && selected.Right == columnCount() - 1;
        return whole && !selected.IsEmpty() ? Range(selected.Top, selected.Bottom) : QList<int>();
    }
    [[nodiscard]] QList<int> selectedColumns() const override {
        const TSheetSelection selected = FView.Selection();
        const bool whole = selected.Top == 0 && selected.Bottom == rowCount() - 1;
        return whole && !selected.IsEmpty() ? Range(selected.Left, selected.Right) : QList<int>();
    }
    [[nodiscard]] int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    [[nodiscard]] int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    [[nodiscard]] bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    [[nodiscard]] bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
    bool selectRow(int row) override {
        FView.Select(row, columnCount() - 1, row, 0);
        return isRowSelected(row);
    }
    bool selectColumn(int column) override {
        FView.Select(rowCount() - 1, column, 0, column);
        return isColumnSelected(column);
    }
    // The sheet always has a selection, one rectangle.
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

protected:
    [[nodiscard]] QAccessibleInterface* MakePart(int part) const override;

private:
    TSpreadsheetView& FView;
};

class TSheetCellAccessible final : public TAccessiblePart, public QAccessibleTableCellInterface {
public:
    TSheetCellAccessible(const TSheetAccessible& sheet, int part) : TAccessiblePart(sheet, part), FSheet(sheet) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        const bool cell = type == QAccessible::TableCellInterface && FSheet.RowOf(Part()) >= 0;
        return cell ? static_cast<QAccessibleTableCellInterface*>(this) : TAccessiblePart::interface_cast(type);
    }

    [[nodiscard]] bool isSelected() const override { return FSheet.IsPartSelected(Part()); }
    [[nodiscard]] int rowIndex() const override { return FSheet.RowOf(Part()); }
    [[nodiscard]] int columnIndex() const override { return FSheet.ColumnOf(Part()); }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override {
        if (FSheet.HeaderRows() > 0) {
            return {FSheet.child(FSheet.PartOf(-1, columnIndex()))};
        }
        const int header = FSheet.Page().FrozenRows - 1;
        return header >= 0 && rowIndex() > header ? QList{FSheet.cellAt(header, columnIndex())}
                                                  : QList<QAccessibleInterface*>();
    }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override {
        return columnIndex() > 0 ? QList{FSheet.cellAt(rowIndex(), 0)} : QList<QAccessibleInterface*>();
    }

private:
    const TSheetAccessible& FSheet;
};

QAccessibleInterface* TSheetAccessible::MakePart(int part) const {
    return new TSheetCellAccessible(*this, part);
}

} // namespace

void InstallSheetAccessible() {
    InstallAccessible<TSpreadsheetView, TSheetAccessible>();
}
