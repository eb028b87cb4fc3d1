// SPDX-License-Identifier: GPL-3.0-or-later
//
// A grid of two levels: each record of a master as a label row that folds, and below it its details as a grid of their
// own, all under one header. Masters are known by their keys (TlotCustomDataSource::RecordKey): what is folded, focused
// and scrolled to stays so over DataChanged of either source, wherever its master has moved.
//
// Arrows and Enter go on from the end of one detail to the next that isn't folded; Tab stops at the label rows too. On
// a label row Left folds, Right unfolds, Enter and Space do either.
#pragma once

#include "common/lotDataSource.h"
#include "widgets/lotDataGrid.h"
#include "widgets/lotGridLink.h"
#include "widgets/lotHookGuard.h"

#include <QScrollArea>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QToolButton;
class QVBoxLayout;
class TGridHeader;

class TMasterDetailGrid : public QScrollArea {
    Q_OBJECT

public:
    /// See TGridLink of both sources. The master's column 0 is its label.
    TMasterDetailGrid(TlotCustomDataSource& master, TlotCustomDataSource& detail, std::vector<TGridColumn> columns,
                      const TNumberLocale& locale, const QString& newRowText, QWidget* parent = nullptr);
    TMasterDetailGrid(const TMasterDetailGrid&) = delete;
    TMasterDetailGrid& operator=(const TMasterDetailGrid&) = delete;
    ~TMasterDetailGrid() override;

    // The hooks of all details; `master` is the master's record.
    std::function<TGridRowLook(int master, int record)> OnLook;
    std::function<TGridCellLook(int master, int record, int column)> OnCellLook;
    std::function<bool(int master, int record, int column)> OnEditing;
    std::function<bool(int master, int record, int step)> OnMove;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;
    std::function<void(int master, int record)> OnDelete;

    /// The master whose detail had the focus last, or -1.
    [[nodiscard]] int FocusedMaster() const noexcept { return FFocused != nullptr ? FFocused->Master : -1; }
    /// The focused record of that detail, or -1.
    [[nodiscard]] int FocusedRecord() const;
    void FocusRecord(int master, int record, int column = 0);
    [[nodiscard]] int MasterCount() const noexcept { return static_cast<int>(FSections.size()); }
    [[nodiscard]] TDataGrid& Detail(int master) const { return *FSections.at(static_cast<std::size_t>(master))->Grid; }
    [[nodiscard]] bool IsExpanded(int master) const;
    void SetExpanded(int master, bool expanded);
    /// Posts the edit in progress, if any.
    void Post();
    /// Sums a column under each detail.
    void SetFooter(int column, const std::string& mask);
    /// As TGridBridge::ChangeColumn, of all details.
    void ChangeColumn(int column, const std::function<void(TGridColumn&)>& change);
    /// As TDataGrid::SetDeleteClears, of all details.
    void SetDeleteClears(bool clears);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int across, int down) override;

private:
    /// One master's part. The widgets belong to the contents.
    struct TSection {
        const void* Key = nullptr;
        int Master = -1;
        QToolButton* Label = nullptr;
        QWidget* Frame = nullptr;
        TDataGrid* Grid = nullptr;
    };

    void SetUpHeader();
    void Rebuild();
    void CheckMasters();
    [[nodiscard]] std::unique_ptr<TSection> TakeSection(std::vector<std::unique_ptr<TSection>>& from, int master,
                                                        const void* key) const;
    void Retire(std::unique_ptr<TSection> section);
    [[nodiscard]] std::unique_ptr<TSection> MakeSection(int master);
    void MakeLabel(TSection& section);
    void MakeGrid(TSection& section);
    void HangHooks(TSection& section);
    void PlaceSection(TSection& section, int master, const void* key);
    void OrderTabs() const;
    [[nodiscard]] int MasterRecords() const;
    [[nodiscard]] const void* MasterKey(int master) const;
    [[nodiscard]] QString MasterLabel(int master) const;

    [[nodiscard]] TSection* SectionOf(const QObject* widget) const;
    void Expand(TSection& section, bool expanded);
    bool LabelKey(TSection& section, const QKeyEvent& event);
    bool Cross(const TSection& from, TGridStep step, int column);
    bool EnterDetail(TSection& section, TGridStep step, int column);
    void Focused(TSection& section);
    void LayOut();
    void ShowCell(const TSection& section);
    void FollowHeader(TDataGrid& grid) const;
    void PlaceHeader();

    std::vector<TGridColumn> FColumns;
    TNumberLocale FLocale;
    QString FNewRowText;
    int FFooterColumn = -1;
    std::string FFooterMask;
    bool FDeleteClears = true;

    THookGuard FGuard;
    TGridLink FMasterLink;
    TGridLink FDetailLink;

    // Owned by the grid.
    TGridBridge* FHeaderModel;
    QWidget* FHeaderPlace; ///< Cuts the header off where it is scrolled.
    TGridHeader* FHeader;
    QVBoxLayout* FLayout;
    std::vector<std::unique_ptr<TSection>> FSections;
    TSection* FFocused = nullptr;
};
