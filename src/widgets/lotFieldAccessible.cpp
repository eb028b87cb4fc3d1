// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotFieldAccessible.h"

#include "widgets/lotAccessibleParts.h"
#include "widgets/lotClickLabel.h"
#include "widgets/lotSpinEdit.h"

#include <QLineEdit>
#include <cmath>

namespace {

class TSpinAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit TSpinAccessible(TSpinEdit& field) : QAccessibleWidget(&field, QAccessible::SpinBox) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        if (type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface) {
            // The text is the inner field's.
            QAccessibleInterface* const text = QAccessible::queryAccessibleInterface(widget()->findChild<QLineEdit*>());
            return text != nullptr ? text->interface_cast(type) : nullptr;
        }
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Field().text() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QVariant currentValue() const override { return Field().Typed(); }
    [[nodiscard]] QVariant minimumValue() const override { return Field().Minimum(); }
    [[nodiscard]] QVariant maximumValue() const override { return Field().Maximum(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override {
        if (!Field().isReadOnly()) {
            Field().Type(value.toDouble());
        }
    }

private:
    [[nodiscard]] TSpinEdit& Field() const { return dynamic_cast<TSpinEdit&>(*widget()); }
};

class TClickLabelAccessible final : public QAccessibleWidget {
public:
    explicit TClickLabelAccessible(TClickLabel& label) : QAccessibleWidget(&label, QAccessible::Button) {}

    /// Its name, if it has one, and what it shows.
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name) {
            return kind == QAccessible::Value ? Label().text() : own;
        }
        return own.isEmpty() || Label().text().isEmpty() ? own + Label().text() : own + " " + Label().text();
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction()) {
            emit Label().Clicked();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    [[nodiscard]] TClickLabel& Label() const { return dynamic_cast<TClickLabel&>(*widget()); }
};

} // namespace

void InstallFieldAccessible() {
    InstallAccessible<TSpinEdit, TSpinAccessible>();
    InstallAccessible<TClickLabel, TClickLabelAccessible>();
}
