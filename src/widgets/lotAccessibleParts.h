// SPDX-License-Identifier: GPL-3.0-or-later
//
// Accessibility of widgets that draw their own parts: cells, cards, pages. Assistive programs see each part as a child
// of the widget, with a role, texts, a place and a state. Parts are made as they are asked for and belong to the
// toolkit's register, which knows them by number: when the widget goes, or says that its parts are others now, they
// leave the register, and nobody holds a part that is gone.
#pragma once

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAccessibleWidget>
#include <map>

/// The interface of such a widget.
class TAccessibleParts : public QAccessibleWidget {
public:
    ~TAccessibleParts() override;

    /// Their numbers run from 0.
    [[nodiscard]] virtual int PartCount() const = 0;
    [[nodiscard]] virtual QAccessible::Role PartRole(int part) const = 0;
    [[nodiscard]] virtual QString PartText(int part, QAccessible::Text kind) const = 0;
    /// In the viewport; empty while out of view.
    [[nodiscard]] virtual QRect PartRect(int part) const = 0;
    /// The part at a place of the viewport; -1: none.
    [[nodiscard]] virtual int PartAt(const QPoint& place) const = 0;
    /// The one that keys act on; -1: none.
    [[nodiscard]] virtual int CurrentPart() const = 0;
    virtual void SetCurrentPart(int part) const = 0;
    [[nodiscard]] virtual bool IsPartSelected(int part) const { return part == CurrentPart(); }

    /// Forgets all parts: the widget has others now.
    void DropParts();
    [[nodiscard]] QWidget* Viewport() const;
    [[nodiscard]] QWidget* Widget() const { return widget(); }

    [[nodiscard]] int childCount() const override { return PartCount(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

protected:
    TAccessibleParts(QAbstractScrollArea& widget, QAccessible::Role role);

    /// A new part, which the register takes over.
    [[nodiscard]] virtual QAccessibleInterface* MakePart(int part) const;

private:
    mutable std::map<int, QAccessible::Id> FParts; ///< Those asked for so far.
};

/// One part. Lives no longer than the widget's interface.
class TAccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TAccessiblePart(const TAccessibleParts& owner, int part) : FOwner(owner), FPart(part) {}

    [[nodiscard]] int Part() const noexcept { return FPart; }
    [[nodiscard]] const TAccessibleParts& Owner() const noexcept { return FOwner; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return FOwner.window(); }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(FOwner.Widget());
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return FOwner.PartRole(FPart); }
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // The one action: make it the current part.
    [[nodiscard]] QStringList actionNames() const override { return {setFocusAction()}; }
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

private:
    const TAccessibleParts& FOwner;
    int FPart;
};

/// From now on a widget of that class, or of one that derives from it, answers by an interface of that class. To be
/// called where the widget is constructed; counts once.
template <typename TWidget, typename TInterface> void InstallAccessible() {
    static const bool installed = [] {
        QAccessible::installFactory([](const QString& name, QObject* object) -> QAccessibleInterface* {
            auto* const widget = qobject_cast<TWidget*>(object);
            const bool mine = widget != nullptr && name == TWidget::staticMetaObject.className();
            return mine ? new TInterface(*widget) : nullptr;
        });
        return true;
    }();
    static_cast<void>(installed);
}

/// Tells assistive programs that another part is current, if the widget has the focus.
void TellCurrentPart(QWidget& widget);
/// Tells them that the widget's parts are others now.
void TellPartsRebuilt(QWidget& widget);
/// Takes the widget's interface and its parts out of the register: for the destructor of a widget with parts, behind
/// which they would look at what is gone already.
void DropAccessible(QWidget& widget);
