// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotMasterDetailGrid.h"

#include "widgets/lotGridHeader.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

constexpr int Indent = 20;
constexpr int LeastStretch = 120; ///< Pixels that a column gets which takes what the others leave.

} // namespace

TMasterDetailGrid::TMasterDetailGrid(TlotCustomDataSource& master, TlotCustomDataSource& detail,
                                     std::vector<TGridColumn> columns, const TNumberLocale& locale,
                                     const QString& newRowText, QWidget* parent)
    : QScrollArea(parent),
      FColumns(std::move(columns)),
      FLocale(locale),
      FNewRowText(newRowText),
      FMasterLink(master, FGuard),
      FDetailLink(detail, FGuard),
      FHeaderModel(new TGridBridge(FDetailLink, FColumns, locale, {}, -1, this)),
      FHeaderPlace(new QWidget(this)),
      FHeader(new TGridHeader(FHeaderPlace)) {
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
    SetUpHeader();
    connect(&FMasterLink, &TGridLink::ListChanged, this, &TMasterDetailGrid::Rebuild);
    // Before the details read their lists, which are by the masters' places.
    connect(&FDetailLink, &TGridLink::ListChanged, this, &TMasterDetailGrid::CheckMasters);
    Rebuild();
}

TMasterDetailGrid::~TMasterDetailGrid() {
    // The details use what goes with this object's members, and the focus wanders through them as they go.
    for (const auto& section : FSections) {
        section->Grid->removeEventFilter(this);
        section->Label->removeEventFilter(this);
    }
    delete takeWidget();
    delete FHeaderPlace;
    delete FHeaderModel;
}

void TMasterDetailGrid::SetUpHeader() {
    FHeader->setModel(FHeaderModel);
    FHeader->setSectionsClickable(false);
    int least = 0;
    for (int column = 0; column < FHeaderModel->columnCount(); ++column) {
        const int width = FColumns[static_cast<std::size_t>(column)].Width;
        if (width > 0) {
            FHeader->resizeSection(column, width);
        } else {
            FHeader->setSectionResizeMode(column, QHeaderView::Stretch);
        }
        least += width > 0 ? width : LeastStretch;
    }
    widget()->setMinimumWidth(least);
    connect(FHeader, &QHeaderView::sectionResized, this, [this] {
        for (const auto& section : FSections) {
            FollowHeader(*section->Grid);
        }
    });
    setViewportMargins(0, FHeader->sizeHint().height(), 0, 0);
}

int TMasterDetailGrid::MasterRecords() const {
    return FMasterLink.Ask([](TlotCustomDataSource& source) { return source.GetRecordCount(); }, 0);
}

const void* TMasterDetailGrid::MasterKey(int master) const {
    return FMasterLink.Ask([master](TlotCustomDataSource& source) { return source.RecordKey(master); },
                           static_cast<const void*>(nullptr));
}

QString TMasterDetailGrid::MasterLabel(int master) const {
    const TlotValue label =
        FMasterLink.Ask([master](TlotCustomDataSource& source) { return source.GetValue(master, 0); }, TlotValue());
    return QString::fromStdString(TlotCustomDataSource::AsString(label));
}

void TMasterDetailGrid::CheckMasters() {
    const int count = MasterRecords();
    bool same = count == MasterCount();
    for (int master = 0; same && master < count; ++master) {
        same = MasterKey(master) == FSections[static_cast<std::size_t>(master)]->Key;
    }
    if (!same) {
        Rebuild();
    }
}

void TMasterDetailGrid::Rebuild() {
    const int focused = FocusedMaster();
    std::vector<std::unique_ptr<TSection>> before = std::exchange(FSections, {});
    std::vector<std::unique_ptr<TSection>> sections;
    const int count = MasterRecords();
    std::vector<const void*> keys;
    for (int master = 0; master < count; ++master) {
        keys.push_back(MasterKey(master));
        sections.push_back(TakeSection(before, master, keys.back()));
    }
    for (auto& gone : before) {
        if (gone != nullptr) {
            Retire(std::move(gone));
        }
    }
    for (int master = 0; master < count; ++master) {
        auto& section = sections[static_cast<std::size_t>(master)];
        if (section == nullptr) {
            section = MakeSection(master);
        }
        PlaceSection(*section, master, keys[static_cast<std::size_t>(master)]);
    }
    FSections = std::move(sections);
    if (FFocused == nullptr && focused >= 0 && count > 0) {
        FFocused = FSections[static_cast<std::size_t>(std::min(focused, count - 1))].get();
    }
    OrderTabs();
}

void TMasterDetailGrid::Retire(std::unique_ptr<TSection> section) {
    if (FFocused == section.get()) {
        FFocused = nullptr;
    }
    section->Grid->removeEventFilter(this);
    section->Label->removeEventFilter(this);
    section->Grid->OnEdge = {};
    section->Grid->Bridge().SetMaster(-1); // It shows nothing, and its editor is dropped.
    // What goes on may be a key of that grid, so the widgets live on a little, and their hooks look into the section.
    QToolButton* const label = section->Label;
    QWidget* const frame = section->Frame;
    connect(frame, &QObject::destroyed, [owner = std::shared_ptr<TSection>(std::move(section))] {});
    for (QWidget* const widget : {static_cast<QWidget*>(label), frame}) {
        FLayout->removeWidget(widget);
        widget->hide();
        widget->deleteLater();
    }
}

/// The part that the master had before, by its key, or without one by its place; nullptr if it had none.
std::unique_ptr<TMasterDetailGrid::TSection>
TMasterDetailGrid::TakeSection(std::vector<std::unique_ptr<TSection>>& from, int master, const void* key) const {
    const auto found = std::ranges::find_if(from, [&](const std::unique_ptr<TSection>& section) {
        return section != nullptr && section->Key == key && (key != nullptr || section->Master == master);
    });
    return found != from.end() ? std::move(*found) : nullptr;
}

std::unique_ptr<TMasterDetailGrid::TSection> TMasterDetailGrid::MakeSection(int master) {
    auto section = std::make_unique<TSection>();
    section->Master = master;
    MakeLabel(*section);
    MakeGrid(*section);
    HangHooks(*section);
    if (FFooterColumn >= 0) {
        section->Grid->SetFooter(FFooterColumn, FFooterMask);
    }
    section->Grid->SetDeleteClears(FDeleteClears);
    section->Grid->SetGrowing(true);
    FollowHeader(*section->Grid);
    Expand(*section, true);
    return section;
}

void TMasterDetailGrid::MakeLabel(TSection& section) {
    auto* const label = new QToolButton(widget());
    label->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    label->setAutoRaise(true);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    label->setFocusPolicy(Qt::StrongFocus);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->installEventFilter(this);
    connect(label, &QToolButton::clicked, this, [this, &section] { Expand(section, section.Frame->isHidden()); });
    section.Label = label;
    label->show();
}

void TMasterDetailGrid::MakeGrid(TSection& section) {
    section.Frame = new QWidget(widget());
    auto* const indented = new QVBoxLayout(section.Frame);
    indented->setContentsMargins(Indent, 0, 0, 6);
    section.Grid = new TDataGrid(FDetailLink, FColumns, FLocale, FNewRowText, section.Master, section.Frame);
    section.Grid->horizontalHeader()->hide();
    section.Grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    section.Grid->setFrameShape(QFrame::NoFrame);
    section.Grid->installEventFilter(this);
    indented->addWidget(section.Grid);
}

void TMasterDetailGrid::HangHooks(TSection& section) {
    TDataGrid& grid = *section.Grid;
    grid.Bridge().OnLook = [this, &section](int record) {
        return OnLook ? OnLook(section.Master, record) : TGridRowLook{};
    };
    grid.Bridge().OnCellLook = [this, &section](int record, int column) {
        return OnCellLook ? OnCellLook(section.Master, record, column) : TGridCellLook{};
    };
    grid.Bridge().OnEditing = [this, &section](int record, int column) {
        return !OnEditing || OnEditing(section.Master, record, column);
    };
    grid.OnMove = [this, &section](int record, int step) { return OnMove && OnMove(section.Master, record, step); };
    grid.OnDelete = [this, &section](int record) {
        if (OnDelete) {
            OnDelete(section.Master, record);
        }
    };
    grid.OnContextMenu = [this](const QPoint& place) {
        if (OnContextMenu) {
            OnContextMenu(place);
        }
    };
    grid.OnEdge = [this, &section](TGridStep step, int column) { return Cross(section, step, column); };
    connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, &grid,
            [this, &section] { ShowCell(section); });
}

void TMasterDetailGrid::PlaceSection(TSection& section, int master, const void* key) {
    section.Key = key;
    const QString label = MasterLabel(master);
    section.Label->setText(QString(label).replace('&', "&&")); // A name, not the caption of a command.
    section.Label->setObjectName(QString("btnMaster%1").arg(master));
    section.Grid->setObjectName(QString("grdDetail%1").arg(master));
    section.Grid->setAccessibleName(label);
    section.Master = master;
    section.Grid->Bridge().SetMaster(master);
    // Each has two places in the layout; what stands there already stays.
    if (FLayout->indexOf(section.Label) != 2 * master) {
        FLayout->removeWidget(section.Label);
        FLayout->removeWidget(section.Frame);
        FLayout->insertWidget(2 * master, section.Label);
        FLayout->insertWidget(2 * master + 1, section.Frame);
    }
}

void TMasterDetailGrid::OrderTabs() const {
    QWidget* last = nullptr;
    for (const auto& section : FSections) {
        for (QWidget* const widget : {static_cast<QWidget*>(section->Label), static_cast<QWidget*>(section->Grid)}) {
            if (last != nullptr) {
                QWidget::setTabOrder(last, widget);
            }
            last = widget;
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
    const int height = FHeader->sizeHint().height();
    FHeaderPlace->setGeometry(area.left(), area.top() - height, area.width(), height);
    FHeader->setGeometry(-horizontalScrollBar()->value(), 0, std::max(area.width(), widget()->minimumWidth()), height);
}

void TMasterDetailGrid::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    PlaceHeader();
}

void TMasterDetailGrid::scrollContentsBy(int across, int down) {
    QScrollArea::scrollContentsBy(across, down);
    PlaceHeader();
}

int TMasterDetailGrid::FocusedRecord() const {
    return FFocused != nullptr ? FFocused->Grid->FocusedRecord() : -1;
}

void TMasterDetailGrid::FocusRecord(int master, int record, int column) {
    TSection& section = *FSections.at(static_cast<std::size_t>(master));
    Expand(section, true);
    section.Grid->setFocus();
    section.Grid->FocusRecord(record, column);
    Focused(section); // Where the window isn't in front, no focus comes.
}

bool TMasterDetailGrid::IsExpanded(int master) const {
    return !FSections.at(static_cast<std::size_t>(master))->Frame->isHidden();
}

void TMasterDetailGrid::SetExpanded(int master, bool expanded) {
    Expand(*FSections.at(static_cast<std::size_t>(master)), expanded);
}

void TMasterDetailGrid::Expand(TSection& section, bool expanded) {
    if (!expanded) {
        section.Grid->Post();
        if (section.Grid->hasFocus()) {
            section.Label->setFocus();
        }
    }
    section.Frame->setVisible(expanded);
    section.Label->setArrowType(expanded ? Qt::DownArrow : Qt::RightArrow);
    section.Label->setAccessibleDescription(expanded ? "expanded" : "collapsed");
}

void TMasterDetailGrid::Post() {
    for (const auto& section : FSections) {
        section->Grid->Post();
    }
}

void TMasterDetailGrid::SetFooter(int column, const std::string& mask) {
    FFooterColumn = column;
    FFooterMask = mask;
    for (const auto& section : FSections) {
        section->Grid->SetFooter(column, mask);
    }
}

void TMasterDetailGrid::ChangeColumn(int column, const std::function<void(TGridColumn&)>& change) {
    change(FColumns.at(static_cast<std::size_t>(column)));
    FHeaderModel->ChangeColumn(column, change);
    for (const auto& section : FSections) {
        section->Grid->Bridge().ChangeColumn(column, change);
    }
}

void TMasterDetailGrid::SetDeleteClears(bool clears) {
    FDeleteClears = clears;
    for (const auto& section : FSections) {
        section->Grid->SetDeleteClears(clears);
    }
}
