// SPDX-License-Identifier: GPL-3.0-or-later
//
// A grid of two levels: each record of a master as a label row that folds, and below it its details as a grid of their
// own, all under one header.
#pragma once

#include "common/lotDataSource.h"
#include "widgets/lotDataGrid.h"

#include <QScrollArea>
#include <functional>
#include <vector>

class QHeaderView;
class QToolButton;
class QVBoxLayout;

class TMasterDetailGrid : public QScrollArea {
    Q_OBJECT

public:
    /// Takes over OnDataChanged of both sources, which outlive the grid. The master's column 0 is its label.
    TMasterDetailGrid(TlotCustomDataSource& master, TlotCustomDataSource& detail, std::vector<TGridColumn> columns,
                      const TNumberLocale& locale, const QString& newRowText, QWidget* parent = nullptr);

    // The hooks of all details; `master` is the master's record.
    std::function<TGridRowLook(int master, int record)> OnLook;
    std::function<bool(int master, int record, int step)> OnMove;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;
    std::function<void(int master, int record)> OnDelete;

    /// The master whose detail had the focus last, or -1.
    [[nodiscard]] int FocusedMaster() const noexcept { return FFocused; }
    /// The focused record of that detail, or -1.
    [[nodiscard]] int FocusedRecord() const;
    [[nodiscard]] int MasterCount() const noexcept { return static_cast<int>(FSections.size()); }
    [[nodiscard]] TDataGrid& Detail(int master) const { return *FSections.at(static_cast<std::size_t>(master)).Grid; }
    void SetExpanded(int master, bool expanded);
    /// Posts the edit in progress, if any.
    void Post();
    /// Sums a column under each detail.
    void SetFooter(int column, const std::string& mask);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct TSection {
        QToolButton* Label;
        TDataGrid* Grid;
    };

    void Rebuild();
    void AddSection(int master);
    void ReloadDetails();
    void FollowHeader(TDataGrid& grid) const;
    void PlaceHeader();

    TlotCustomDataSource& FMaster;
    TlotCustomDataSource& FDetail;
    std::vector<TGridColumn> FColumns;
    TNumberLocale FLocale;
    QString FNewRowText;
    int FFooterColumn = -1;
    std::string FFooterMask;
    int FFocused = -1;
    std::vector<int> FCollapsed; ///< Masters that were folded.

    // Owned by the grid.
    TGridBridge* FHeaderModel;
    QHeaderView* FHeader;
    QVBoxLayout* FLayout;
    std::vector<TSection> FSections;
};
