// SPDX-License-Identifier: GPL-3.0-or-later
//
// A grid over a data source: edits in place, a row for new records, a footer that sums a column. Never sorts: the order
// of the list is the order of the model.
#pragma once

#include "widgets/lotGridBridge.h"

#include <QTableView>
#include <functional>
#include <memory>

class QLabel;

class TDataGrid : public QTableView {
    Q_OBJECT

public:
    /// As TGridBridge.
    TDataGrid(TlotCustomDataSource& source, std::vector<TGridColumn> columns, const TNumberLocale& locale,
              const QString& newRowText = {}, int master = -1, QWidget* parent = nullptr);

    /// Ctrl+Up (-1) and Ctrl+Down (1) on a record; true if it was moved. The focus follows it.
    std::function<bool(int record, int step)> OnMove;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;
    /// The Delete key, on a record. Without it the key does nothing.
    std::function<void(int record)> OnDelete;

    [[nodiscard]] TGridBridge& Bridge() const { return *FBridge; }
    /// The record with the focus, or -1: none, or the row for new ones.
    [[nodiscard]] int FocusedRecord() const;
    void FocusRecord(int record, int column = 0);
    /// Posts the edit in progress, if any.
    void Post();
    /// Draws the cells and the footer afresh; their values may have changed, their number not.
    void Refresh();
    /// Shows the sum of a column under it, by a mask.
    void SetFooter(int column, const std::string& mask);
    /// As high as its rows: for a grid within a scrolled page.
    void SetGrowing(bool growing);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Follow();
    void PlaceFooter();
    [[nodiscard]] int RowsHeight() const;

    TGridBridge* FBridge; // Owned by the grid, as is the footer.
    QLabel* FFooter = nullptr;
    int FFooterColumn = -1;
    std::string FFooterMask;
    bool FGrowing = false;
};
