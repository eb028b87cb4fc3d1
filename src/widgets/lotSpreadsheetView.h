// SPDX-License-Identifier: GPL-3.0-or-later
//
// Shows a sheet: draws what is visible of it, keeps its frozen rows and columns in view, and lets cells be selected,
// copied and, where the view that owns the sheet allows it, edited. Scrolls by whole rows and columns.
//
// Keys: arrows, Home, End, Page Up and Page Down move, with Shift they extend the selection, with Ctrl they jump to the
// next border between filled and empty cells or to the ends of the sheet. Enter goes down, with Shift up. Ctrl+A
// selects all, Ctrl+C copies. F2, typing or a double click edits; Enter, Tab and the vertical arrows end that and go on
// to the next cell, Escape takes it back. Tab outside of an edit leaves the sheet. No key that the sheet takes reaches
// the window around it, so that Enter is never its default button.
//
// Hooks run guarded: what one throws is told to the user, and the sheet goes on with its editor closed and its
// selection where it was.
#pragma once

#include "common/vipNumber.h"
#include "reporting/lotSpreadsheetPage.h"
#include "widgets/lotSheetGeometry.h"

#include <QAbstractScrollArea>
#include <functional>
#include <memory>
#include <optional>

class QLineEdit;

/// A rectangle of cells, both ends included; empty while the sheet has no cells.
struct TSheetSelection {
    int Left = -1;
    int Top = -1;
    int Right = -1;
    int Bottom = -1;

    [[nodiscard]] bool IsEmpty() const noexcept { return Left < 0; }
    [[nodiscard]] bool Holds(int row, int column) const noexcept {
        return row >= Top && row <= Bottom && column >= Left && column <= Right;
    }
    friend bool operator==(const TSheetSelection&, const TSheetSelection&) = default;
};

class TSpreadsheetView : public QAbstractScrollArea {
    Q_OBJECT

public:
    /// Takes over the page's OnChange. The page outlives the view.
    TSpreadsheetView(TSpreadsheetPage& page, const TNumberLocale& locale, QWidget* parent = nullptr);
    ~TSpreadsheetView() override;

    /// May that cell be edited? Without it none may.
    std::function<bool(int row, int column)> OnEditing;
    /// The text that was typed into a cell. A text that an edit began with and that stands there again is none.
    std::function<void(int row, int column, const std::string& text)> OnEndEdit;
    /// The Delete key.
    std::function<void(const TSheetSelection&)> OnClearCells;
    /// Sees every key first; true: the sheet does nothing more with it. A key with Ctrl or Alt that the editor leaves
    /// over ends the edit before it comes here.
    std::function<bool(QKeyEvent&)> OnKeyDown;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;
    std::function<void()> OnSelectionChange;

    [[nodiscard]] TSheetSelection Selection() const noexcept;
    /// Selects from one corner to the other, which is made the current cell and brought into view.
    void Select(int anchorRow, int anchorColumn, int row, int column);
    void Select(int row, int column) { Select(row, column, row, column); }
    [[nodiscard]] int CurrentRow() const noexcept { return FRow; }
    [[nodiscard]] int CurrentColumn() const noexcept { return FColumn; }

    /// Ends an edit in progress as Enter does, without moving on.
    void Post() { EndEdit(true); }
    /// Ends an edit in progress as Escape does. A page that changes drops it too.
    void DropEdit() { EndEdit(false); }

    /// The place of a cell in the viewport; empty while it is out of view.
    [[nodiscard]] QRect CellRect(int row, int column) const;
    /// The place of a column's header; empty while it is out of view, or the page has no headers.
    [[nodiscard]] QRect HeaderRect(int column) const;
    /// The cell at a place of the viewport, or (-1, -1).
    struct TPlace {
        int Row = -1;
        int Column = -1;
    };
    [[nodiscard]] TPlace CellAt(const QPoint& position) const;
    /// The selection as text for a spreadsheet (ClipboardText): figures unrounded, percentages as shown.
    [[nodiscard]] QString SelectedText() const;
    /// What the cell shows.
    [[nodiscard]] QString CellText(int row, int column) const;
    /// What names a row: the text of its first cell.
    [[nodiscard]] QString RowCaption(int row) const { return CellText(row, 0); }
    /// What names a column: its header, or the cell of the lowest frozen row.
    [[nodiscard]] QString ColumnCaption(int column) const;
    [[nodiscard]] const TSpreadsheetPage& Page() const noexcept { return FPage; }
    /// How many cells the last painting drew: a sheet's size doesn't matter to it.
    [[nodiscard]] int PaintedCells() const noexcept { return FPaintedCells; }

    [[nodiscard]] QSize sizeHint() const override { return {800, 480}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A part of the viewport with rows and columns of its own.
    struct TRegion {
        QRect Clip;
        int FirstRow;
        int LastRow;
        int FirstColumn;
        int LastColumn;
    };

    void PageChanged();
    void Relayout();
    void UpdateScrollBars();
    void BringIntoView(int row, int column);
    [[nodiscard]] int HeaderHeight() const;
    [[nodiscard]] int FrozenRows() const;
    [[nodiscard]] int FrozenColumns() const;
    [[nodiscard]] int FirstScrolledRow() const;
    [[nodiscard]] int FirstScrolledColumn() const;
    // In the viewport.
    [[nodiscard]] double X(int column) const;
    [[nodiscard]] double Y(int row) const;
    [[nodiscard]] double FrozenWidth() const;
    [[nodiscard]] double FrozenHeight() const; ///< With the header.

    [[nodiscard]] std::vector<TRegion> Regions() const;
    void PaintRegion(QPainter& painter, const TRegion& region, const TSheetPainter& cells);
    void PaintText(QPainter& painter, const TRegion& region, const TSheetPainter& cells, int row, int column) const;
    void PaintSelection(QPainter& painter, const TRegion& region) const;
    void PaintHeader(QPainter& painter) const;
    void PaintEdges(QPainter& painter) const;

    bool MoveByKey(const QKeyEvent& event);
    [[nodiscard]] TPlace Jump(int rowStep, int columnStep) const;
    void MoveTo(int row, int column, bool extend);
    /// Shows what the cell holds, or begins it afresh with what was typed.
    void BeginEdit(const std::optional<QString>& typed = {});
    /// False if what was typed could not be taken over: its hook threw, or this widget is gone.
    bool EndEdit(bool keep);
    void PlaceEditor();
    bool EditorKey(QKeyEvent& event);
    /// A page key, or one that is pressed together with Ctrl or Alt.
    [[nodiscard]] static bool IsCommandKey(const QKeyEvent& event);

    TSpreadsheetPage& FPage;
    TNumberLocale FLocale;
    std::unique_ptr<TSheetFonts> FFonts;
    std::unique_ptr<TSheetGeometry> FGeometry;
    int FRow = -1;
    int FColumn = -1;
    int FAnchorRow = -1;
    int FAnchorColumn = -1;
    int FPaintedCells = 0;
    QLineEdit* FEditor = nullptr;      // Owned by the viewport; null outside of an edit.
    std::optional<QString> FShownText; // That the editor began with; nothing if typing began it.
};
