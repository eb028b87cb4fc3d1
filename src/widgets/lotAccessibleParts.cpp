// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotAccessibleParts.h"

#include <utility>

TAccessibleParts::TAccessibleParts(QAbstractScrollArea& widget, QAccessible::Role role)
    : QAccessibleWidget(&widget, role) {}

TAccessibleParts::~TAccessibleParts() {
    DropParts();
}

void TAccessibleParts::DropParts() {
    for (const auto& [part, id] : std::exchange(FParts, {})) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

QWidget* TAccessibleParts::Viewport() const {
    return dynamic_cast<QAbstractScrollArea&>(*widget()).viewport();
}

QAccessibleInterface* TAccessibleParts::MakePart(int part) const {
    return new TAccessiblePart(*this, part);
}

QAccessibleInterface* TAccessibleParts::child(int index) const {
    if (index < 0 || index >= PartCount()) {
        return nullptr;
    }
    const auto [entry, added] = FParts.try_emplace(index, 0U);
    if (added) {
        entry->second = QAccessible::registerAccessibleInterface(MakePart(index));
    }
    return QAccessible::accessibleInterface(entry->second);
}

int TAccessibleParts::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const part = dynamic_cast<const TAccessiblePart*>(child);
    return part != nullptr && &part->Owner() == this ? part->Part() : -1;
}

QAccessibleInterface* TAccessibleParts::childAt(int x, int y) const {
    return child(PartAt(Viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* TAccessibleParts::focusChild() const {
    return widget()->hasFocus() ? child(CurrentPart()) : QAccessibleWidget::focusChild();
}

bool TAccessiblePart::isValid() const {
    return FOwner.isValid() && FPart < FOwner.PartCount();
}

QString TAccessiblePart::text(QAccessible::Text kind) const {
    return isValid() ? FOwner.PartText(FPart, kind) : QString();
}

QRect TAccessiblePart::rect() const {
    const QRect place = isValid() ? FOwner.PartRect(FPart) : QRect();
    return place.isEmpty() ? QRect() : QRect(FOwner.Viewport()->mapToGlobal(place.topLeft()), place.size());
}

QAccessible::State TAccessiblePart::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.focusable = true;
    state.selectable = true;
    state.selected = FOwner.IsPartSelected(FPart);
    state.focused = FOwner.Widget()->hasFocus() && FOwner.CurrentPart() == FPart;
    state.active = FOwner.CurrentPart() == FPart;
    state.offscreen = FOwner.PartRect(FPart).isEmpty();
    state.invisible = !FOwner.Widget()->isVisible();
    return state;
}

void* TAccessiblePart::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void TAccessiblePart::doAction(const QString& action) {
    if (action == setFocusAction() && isValid()) {
        FOwner.Widget()->setFocus(Qt::OtherFocusReason);
        FOwner.SetCurrentPart(FPart);
    }
}

void TellCurrentPart(QWidget& widget) {
    const auto* const parts = dynamic_cast<TAccessibleParts*>(QAccessible::queryAccessibleInterface(&widget));
    if (parts != nullptr && widget.hasFocus() && parts->CurrentPart() >= 0) {
        QAccessibleEvent event(&widget, QAccessible::Focus);
        event.setChild(parts->CurrentPart());
        QAccessible::updateAccessibility(&event);
    }
}

void TellPartsRebuilt(QWidget& widget) {
    auto* const parts = dynamic_cast<TAccessibleParts*>(QAccessible::queryAccessibleInterface(&widget));
    if (parts == nullptr) {
        return;
    }
    parts->DropParts();
    if (parts->tableInterface() != nullptr) {
        QAccessibleTableModelChangeEvent event(&widget, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleEvent event(&widget, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
    }
}

void DropAccessible(QWidget& widget) {
    if (QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget)) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(interface));
    }
}
