// SPDX-License-Identifier: GPL-3.0-or-later
//
// A grid over a data source: edits in place, a row for new records, a footer that sums a column. Never sorts: the order
// of the list is the order of the model. The current cell and the scroll position outlast DataChanged, which closes an
// open editor unposted.
//
// Keys: arrows, Home, End, Page Up and Page Down walk, with Shift they mark a block; Enter goes down and Tab right,
// posting the edit in progress. F2 or typing edits, Alt+Down opens a cell's list or what is behind its button. Ctrl+C,
// Ctrl+X and Ctrl+V exchange blocks with a spreadsheet; Delete empties cells. Ctrl+Up and Ctrl+Down move a record,
// Ctrl+Delete asks its owner to delete it.
#pragma once

#include "widgets/lotGridBlock.h"
#include "widgets/lotGridBridge.h"
#include "widgets/lotGridDelegate.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>
#include <functional>
#include <string>
#include <vector>

class QLabel;

class TDataGrid : public QTableView {
    Q_OBJECT

public:
    /// See TGridLink and TGridBridge.
    TDataGrid(TlotCustomDataSource& source, std::vector<TGridColumn> columns, const TNumberLocale& locale,
              const QString& newRowText = {}, QWidget* parent = nullptr);
    /// One of several grids over one source: `master` as TlotCustomDataSource::MasterRecord. The link outlives the
    /// grid.
    TDataGrid(TGridLink& link, std::vector<TGridColumn> columns, const TNumberLocale& locale, const QString& newRowText,
              int master, QWidget* parent);
    TDataGrid(const TDataGrid&) = delete;
    TDataGrid& operator=(const TDataGrid&) = delete;
    ~TDataGrid() override;

    // Each of these hooks may delete the grid.

    /// Ctrl+Up (-1) and Ctrl+Down (1) on a record; true if it was moved. The focus follows it.
    std::function<bool(int record, int step)> OnMove;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;
    /// Ctrl+Delete on a record. The owner asks whether that is meant. Without it the key does nothing.
    std::function<void(int record)> OnDelete;
    /// Enter or an arrow wants to leave through the top (Up) or bottom (Down); true if the focus went elsewhere.
    std::function<bool(TGridStep step, int column)> OnEdge;

    [[nodiscard]] TGridBridge& Bridge() const { return *FBridge; }
    /// The record with the focus, or -1: none, or the row for new ones.
    [[nodiscard]] int FocusedRecord() const;
    void FocusRecord(int record, int column = 0);
    /// Posts the edit in progress, if any.
    void Post();
    [[nodiscard]] bool IsEditing() const { return !FEditor.isNull(); }
    /// The current cell is being given back after the list was read afresh: nobody has moved it.
    [[nodiscard]] bool IsReloading() const noexcept { return FReloading; }
    /// Shows the cells and the footer afresh; their values may have changed, their number not.
    void Refresh();
    /// Shows the sum of a column under it, by a mask.
    void SetFooter(int column, const std::string& mask);
    /// As high as its rows: for a grid within a scrolled page.
    void SetGrowing(bool growing);
    /// Whether the Delete key empties cells; it does at first.
    void SetDeleteClears(bool clears) noexcept { FDeleteClears = clears; }

    // The block that is marked, or else the current cell.
    void Copy() const;
    void Paste();
    void Clear();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void keyboardSearch(const QString& search) override;

protected:
    using QTableView::edit;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// What outlasts the list's being read afresh.
    struct TKept {
        int Row = -1;
        int Column = 0;
        bool NewRow = false;
        int Across = 0;
        int Down = 0;
    };

    void SetUp();
    void SetUpColumns();

    // lotGridKeys.cpp
    [[nodiscard]] bool IsOwnKey(const QKeyEvent& event) const;
    bool RecordKeyPress(const QKeyEvent& event);
    bool BlockKeyPress(const QKeyEvent& event);
    bool StepKeyPress(QKeyEvent& event);
    bool WalkKeyPress(const QKeyEvent& event);
    bool OpenKeyPress(const QKeyEvent& event);
    bool Step(TGridStep step);
    bool StepDown(int rows);
    bool StepRight(int step);
    [[nodiscard]] QModelIndex WalkedTo(const QKeyEvent& event, bool marking) const;
    /// The next column in that direction that is shown and, unless a block is marked, takes the focus; -1 if none.
    [[nodiscard]] int NextColumn(int column, int step, bool marking = false) const;
    void FocusCell(const QModelIndex& index);
    void MarkTo(const QModelIndex& index);
    [[nodiscard]] TGridBlock Marked() const;
    [[nodiscard]] std::vector<int> ColumnsFrom(int first, int last) const;

    [[nodiscard]] THookGuard& Guard() const { return FBridge->Guard(); }
    void Finish(QWidget* editor, TGridStep step);
    void DropEditor();
    void Keep();
    void Restore();
    void Follow();
    void PlaceFooter();
    [[nodiscard]] int RowsHeight() const;

    TGridBridge* FBridge;            // Owned by the grid, as is the footer.
    QWidget* FFooterPlace = nullptr; ///< Cuts the footer off where the columns are scrolled.
    QLabel* FFooter = nullptr;
    int FFooterColumn = -1;
    std::string FFooterMask;
    bool FGrowing = false;
    bool FDeleteClears = true;
    bool FPosting = false;
    bool FPlacing = false;
    bool FReloading = false;
    QPointer<QWidget> FEditor;
    int FAppended = -1;                ///< The record that the open editor has made.
    QPersistentModelIndex FAnchor;     ///< Where a marked block begins.
    const void* FCurrentKey = nullptr; ///< Of the current cell's record.
    TKept FKept;
};
