// SPDX-License-Identifier: GPL-3.0-or-later
//
// The focus of TMasterDetailGrid: across details, and on the label rows.
#include "widgets/lotMasterDetailGrid.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QToolButton>
#include <algorithm>

TMasterDetailGrid::TSection* TMasterDetailGrid::SectionOf(const QObject* widget) const {
    const auto found =
        std::ranges::find_if(FSections, [widget](const auto& it) { return it->Grid == widget || it->Label == widget; });
    return found != FSections.end() ? found->get() : nullptr;
}

bool TMasterDetailGrid::eventFilter(QObject* watched, QEvent* event) {
    if (TSection* const section = SectionOf(watched)) {
        if (event->type() == QEvent::FocusIn && watched == section->Grid) {
            Focused(*section);
        } else if (event->type() == QEvent::FocusIn) {
            ensureWidgetVisible(section->Label, 0, 0);
        } else if (event->type() == QEvent::KeyPress && watched == section->Label) {
            return LabelKey(*section, static_cast<QKeyEvent&>(*event));
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

void TMasterDetailGrid::Focused(TSection& section) {
    FFocused = &section;
    // A block is marked in one detail at a time.
    for (const auto& other : FSections) {
        if (other.get() != &section) {
            other->Grid->clearSelection();
        }
    }
    ShowCell(section);
}

/// Gives the details, whose numbers of rows may have changed, their places now: the page knows then how far it scrolls.
void TMasterDetailGrid::LayOut() {
    for (const auto& section : FSections) {
        section->Frame->layout()->activate();
    }
    widget()->layout()->activate();
    QEvent due(QEvent::LayoutRequest);
    event(&due);
}

/// The details don't scroll themselves, so the page around them does.
void TMasterDetailGrid::ShowCell(const TSection& section) {
    const QModelIndex current = section.Grid->currentIndex();
    if (FFocused != &section || !current.isValid() || !section.Grid->hasFocus() || section.Grid->IsReloading()) {
        return;
    }
    LayOut();
    const QRect cell = section.Grid->visualRect(current);
    const QPoint centre = section.Grid->viewport()->mapTo(widget(), cell.center());
    ensureVisible(centre.x(), centre.y(), std::min(cell.width(), viewport()->width()) / 2, cell.height());
}

bool TMasterDetailGrid::Cross(const TSection& from, TGridStep step, int column) {
    const int direction = step == TGridStep::Down ? 1 : -1;
    for (int master = from.Master + direction; master >= 0 && master < MasterCount(); master += direction) {
        if (EnterDetail(*FSections[static_cast<std::size_t>(master)], step, column)) {
            return true;
        }
    }
    return false;
}

/// From above (Down) or below (Up); false if it is folded or empty.
bool TMasterDetailGrid::EnterDetail(TSection& section, TGridStep step, int column) {
    const int rows = section.Grid->Bridge().rowCount();
    if (section.Frame->isHidden() || rows == 0) {
        return false;
    }
    FocusRecord(section.Master, step == TGridStep::Down ? 0 : rows - 1, column);
    return true;
}

bool TMasterDetailGrid::LabelKey(TSection& section, const QKeyEvent& event) {
    const int column = std::max(0, section.Grid->currentIndex().column());
    const auto neighbour = [&](int master) {
        return master >= 0 && master < MasterCount() ? FSections[static_cast<std::size_t>(master)].get() : nullptr;
    };
    switch (event.key()) {
    case Qt::Key_Left: Expand(section, false); return true;
    case Qt::Key_Right: Expand(section, true); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: Expand(section, section.Frame->isHidden()); return true;
    case Qt::Key_Down:
        if (!EnterDetail(section, TGridStep::Down, column)) {
            if (TSection* const next = neighbour(section.Master + 1)) {
                next->Label->setFocus();
            }
        }
        return true;
    case Qt::Key_Up:
        if (TSection* const previous = neighbour(section.Master - 1)) {
            if (!EnterDetail(*previous, TGridStep::Up, column)) {
                previous->Label->setFocus();
            }
        }
        return true;
    default: return false;
    }
}
