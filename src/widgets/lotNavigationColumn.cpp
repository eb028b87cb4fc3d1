// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotNavigationColumn.h"

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int EntryHeight = 32;
constexpr int IconSize = 20;
constexpr int Indent = 14;
constexpr int MarkWidth = 3;
constexpr auto Unfolded = "Expanded"; // A group's header as assistive programs read it.
constexpr auto Folded = "Collapsed";

/// An action as a row of the column.
class TEntry final : public QAbstractButton {
public:
    TEntry(QAction& action, QWidget* parent) : QAbstractButton(parent), FAction(action) {
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
        setAttribute(Qt::WA_Hover);
        setObjectName("nav" + action.objectName());
        connect(&action, &QAction::changed, this, [this] { Follow(); });
        connect(this, &QAbstractButton::clicked, &action, &QAction::trigger);
        Follow();
    }

    [[nodiscard]] QSize sizeHint() const override {
        QFont bold = font();
        bold.setWeight(QFont::DemiBold);
        return {Indent + IconSize + 10 + QFontMetrics(bold).horizontalAdvance(text()) + Indent, EntryHeight};
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QColor accent = palette().color(QPalette::Highlight);
        QColor ground = accent;
        ground.setAlpha(FAction.isChecked() ? 30 : underMouse() && isEnabled() ? 14 : 0);
        painter.fillRect(rect(), ground);
        if (FAction.isChecked()) {
            painter.fillRect(QRect(0, 0, MarkWidth, height()), accent);
        }
        const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
        const QRect icon(Indent, (height() - IconSize) / 2, IconSize, IconSize);
        FAction.icon().paint(&painter, icon, Qt::AlignCenter, mode, FAction.isChecked() ? QIcon::On : QIcon::Off);
        QFont font = painter.font();
        font.setWeight(FAction.isChecked() ? QFont::DemiBold : QFont::Normal);
        painter.setFont(font);
        painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
        painter.drawText(rect().adjusted(icon.right() + 10, 0, -4, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
        if (hasFocus()) {
            painter.setPen(QPen(accent, 1));
            painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -1.5, -1.5));
        }
    }
    void nextCheckState() override {} // The action says what is checked.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
        } else {
            QAbstractButton::keyPressEvent(event);
        }
    }

private:
    void Follow() {
        setText(QString(FAction.text()).remove('&').remove("..."));
        setToolTip(FAction.toolTip());
        setCheckable(FAction.isCheckable());
        setChecked(FAction.isChecked());
        setEnabled(FAction.isEnabled());
        setVisible(FAction.isVisible());
        update();
    }

    QAction& FAction;
};

} // namespace

TNavigationColumn::TNavigationColumn(QWidget* parent) : QScrollArea(parent) {
    setObjectName("NavigationColumn");
    setAccessibleName("Navigation");
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setWidgetResizable(true);
    auto* const contents = new QWidget(this);
    contents->setAutoFillBackground(true);
    contents->setBackgroundRole(QPalette::Window);
    FLayout = new QVBoxLayout(contents);
    FLayout->setContentsMargins(0, 8, 0, 8);
    FLayout->setSpacing(0);
    FLayout->addStretch();
    setWidget(contents);
}

void TNavigationColumn::AddGroup(const QString& caption) {
    auto* const header = new QToolButton(widget());
    header->setText(caption.toUpper());
    header->setAccessibleName(caption);
    header->setAccessibleDescription(Unfolded);
    header->setArrowType(Qt::DownArrow);
    header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    header->setAutoRaise(true);
    header->setIconSize(QSize(9, 9));
    header->setFocusPolicy(Qt::StrongFocus);
    header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QFont font = header->font();
    font.setPointSizeF(font.pointSizeF() * 0.82);
    font.setLetterSpacing(QFont::PercentageSpacing, 108);
    header->setFont(font);
    header->setMinimumHeight(EntryHeight - 4);
    header->installEventFilter(this);

    FEntries = new QWidget(widget());
    auto* const entries = new QVBoxLayout(FEntries);
    entries->setContentsMargins(0, 0, 0, 6);
    entries->setSpacing(0);
    FLayout->insertWidget(FLayout->count() - 1, header);
    FLayout->insertWidget(FLayout->count() - 1, FEntries);
    FButtons.push_back(header);
    connect(header, &QToolButton::clicked, this, [this, header, group = FEntries] { Fold(header, group); });
}

void TNavigationColumn::Fold(QToolButton* header, QWidget* entries) {
    const bool open = entries->isHidden();
    entries->setVisible(open);
    header->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    header->setAccessibleDescription(open ? Unfolded : Folded);
}

void TNavigationColumn::AddEntry(QAction& action) {
    auto* const entry = new TEntry(action, FEntries);
    entry->installEventFilter(this);
    FEntries->layout()->addWidget(entry);
    FButtons.push_back(entry);
}

QSize TNavigationColumn::sizeHint() const {
    return {widget()->sizeHint().width() + verticalScrollBar()->sizeHint().width(), 400};
}

std::vector<QWidget*> TNavigationColumn::Stops() const {
    std::vector<QWidget*> stops;
    std::ranges::copy_if(FButtons, std::back_inserter(stops),
                         [](const QWidget* button) { return button->isVisible() && button->isEnabled(); });
    return stops;
}

bool TNavigationColumn::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        ensureWidgetVisible(qobject_cast<QWidget*>(watched), 0, EntryHeight);
    }
    if (event->type() != QEvent::KeyPress) {
        return QScrollArea::eventFilter(watched, event);
    }
    const int key = dynamic_cast<QKeyEvent*>(event)->key();
    const std::vector<QWidget*> stops = Stops();
    const auto at = std::ranges::find(stops, watched) - stops.begin();
    const auto last = static_cast<std::ptrdiff_t>(stops.size()) - 1;
    std::ptrdiff_t to = at;
    switch (key) {
    case Qt::Key_Up: to = at - 1; break;
    case Qt::Key_Down: to = at + 1; break;
    case Qt::Key_Home: to = 0; break;
    case Qt::Key_End: to = last; break;
    default: return false;
    }
    stops[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(to, 0, last))]->setFocus(Qt::TabFocusReason);
    return true;
}
