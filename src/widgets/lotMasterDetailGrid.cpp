// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotMasterDetailGrid.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

constexpr int Indent = 20;

} // namespace

TMasterDetailGrid::TMasterDetailGrid(TlotCustomDataSource& master, TlotCustomDataSource& detail,
                                     std::vector<TGridColumn> columns, const TNumberLocale& locale,
                                     const QString& newRowText, QWidget* parent)
    : QScrollArea(parent),
      FMaster(master),
      FDetail(detail),
      FColumns(std::move(columns)),
      FLocale(locale),
      FNewRowText(newRowText),
      FHeaderModel(new TGridBridge(detail, FColumns, locale, {}, -1, this)),
      FHeader(new QHeaderView(Qt::Horizontal, this)) {
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* const contents = new QWidget(this);
    contents->setBackgroundRole(QPalette::Base);
    contents->setAutoFillBackground(true);
    FLayout = new QVBoxLayout(contents);
    FLayout->setContentsMargins(0, 0, 0, 0);
    FLayout->setSpacing(0);
    FLayout->addStretch();
    setWidget(contents);

    FHeader->setModel(FHeaderModel);
    FHeader->setSectionsClickable(false);
    for (int column = 0; column < FHeaderModel->columnCount(); ++column) {
        const int width = FColumns[static_cast<std::size_t>(column)].Width;
        if (width > 0) {
            FHeader->resizeSection(column, width);
        } else {
            FHeader->setSectionResizeMode(column, QHeaderView::Stretch);
        }
    }
    connect(FHeader, &QHeaderView::sectionResized, this, [this] {
        for (const TSection& section : FSections) {
            FollowHeader(*section.Grid);
        }
    });
    setViewportMargins(0, FHeader->sizeHint().height(), 0, 0);
    FMaster.OnDataChanged = [this] { Rebuild(); };
    FDetail.OnDataChanged = [this] { ReloadDetails(); };
    Rebuild();
}

void TMasterDetailGrid::Rebuild() {
    // What was folded stays so, as far as it is still there.
    for (const TSection& section : FSections) {
        section.Label->deleteLater();
        section.Grid->parentWidget()->deleteLater();
        section.Grid->parentWidget()->hide();
        section.Label->hide();
    }
    FSections.clear();
    const int count = FMaster.GetRecordCount();
    for (int master = 0; master < count; ++master) {
        AddSection(master);
    }
    FFocused = std::min(FFocused, count - 1);
}

void TMasterDetailGrid::AddSection(int master) {
    auto* const label = new QToolButton(widget());
    label->setObjectName(QString("btnMaster%1").arg(master));
    label->setText(QString::fromStdString(TlotCustomDataSource::AsString(FMaster.GetValue(master, 0))));
    label->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    label->setArrowType(Qt::DownArrow);
    label->setAutoRaise(true);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    connect(label, &QToolButton::clicked, this,
            [this, master] { SetExpanded(master, Detail(master).parentWidget()->isHidden()); });

    auto* const frame = new QWidget(widget());
    auto* const indented = new QVBoxLayout(frame);
    indented->setContentsMargins(Indent, 0, 0, 6);
    auto* const grid = new TDataGrid(FDetail, FColumns, FLocale, FNewRowText, master, frame);
    grid->setObjectName(QString("grdDetail%1").arg(master));
    grid->setAccessibleName(label->text());
    grid->horizontalHeader()->hide();
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setFrameShape(QFrame::NoFrame);
    indented->addWidget(grid);
    grid->Bridge().OnLook = [this, master](int record) { return OnLook ? OnLook(master, record) : TGridRowLook{}; };
    grid->OnMove = [this, master](int record, int step) { return OnMove && OnMove(master, record, step); };
    grid->OnDelete = [this, master](int record) {
        if (OnDelete) {
            OnDelete(master, record);
        }
    };
    grid->OnContextMenu = [this](const QPoint& place) {
        if (OnContextMenu) {
            OnContextMenu(place);
        }
    };
    // A figure of one detail may change those of all others.
    connect(&grid->Bridge(), &QAbstractItemModel::dataChanged, this, [this, grid] {
        for (const TSection& section : FSections) {
            if (section.Grid != grid) {
                section.Grid->Refresh();
            }
        }
    });
    if (FFooterColumn >= 0) {
        grid->SetFooter(FFooterColumn, FFooterMask);
    }
    grid->SetGrowing(true);
    grid->installEventFilter(this);
    FollowHeader(*grid);
    FLayout->insertWidget(FLayout->count() - 1, label);
    FLayout->insertWidget(FLayout->count() - 1, frame);
    label->show();
    frame->show();
    FSections.push_back({label, grid});
    if (std::ranges::find(FCollapsed, master) != FCollapsed.end()) {
        SetExpanded(master, false);
    }
}

void TMasterDetailGrid::ReloadDetails() {
    for (const TSection& section : FSections) {
        const QModelIndex before = section.Grid->currentIndex();
        section.Grid->Bridge().Reload();
        if (before.isValid()) {
            section.Grid->FocusRecord(before.row(), before.column());
        }
    }
}

void TMasterDetailGrid::FollowHeader(TDataGrid& grid) const {
    for (int column = 0; column < FHeader->count(); ++column) {
        // The first column begins further in, and ends where the header says.
        grid.setColumnWidth(column, FHeader->sectionSize(column) - (column == 0 ? Indent : 0));
    }
}

void TMasterDetailGrid::PlaceHeader() {
    const QRect area = viewport()->geometry();
    FHeader->setGeometry(area.left(), area.top() - FHeader->sizeHint().height(), area.width(),
                         FHeader->sizeHint().height());
}

void TMasterDetailGrid::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    PlaceHeader();
}

bool TMasterDetailGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        for (std::size_t i = 0; i < FSections.size(); ++i) {
            if (FSections[i].Grid == watched) {
                FFocused = static_cast<int>(i);
                ensureWidgetVisible(FSections[i].Grid, 0, 40);
            }
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

int TMasterDetailGrid::FocusedRecord() const {
    return FFocused < 0 ? -1 : Detail(FFocused).FocusedRecord();
}

void TMasterDetailGrid::SetExpanded(int master, bool expanded) {
    const TSection& section = FSections.at(static_cast<std::size_t>(master));
    section.Grid->parentWidget()->setVisible(expanded);
    section.Label->setArrowType(expanded ? Qt::DownArrow : Qt::RightArrow);
    std::erase(FCollapsed, master);
    if (!expanded) {
        FCollapsed.push_back(master);
    }
}

void TMasterDetailGrid::Post() {
    if (FFocused >= 0) {
        Detail(FFocused).Post();
    }
}

void TMasterDetailGrid::SetFooter(int column, const std::string& mask) {
    FFooterColumn = column;
    FFooterMask = mask;
    for (const TSection& section : FSections) {
        section.Grid->SetFooter(column, mask);
    }
}
