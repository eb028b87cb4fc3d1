// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmAbout.h"

#include "shell/base/lotLook.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int PictureSize = 96;
constexpr int BoxWidth = 500;
constexpr int EdgeWidth = 6; // the accent along the left side

void AddLine(QVBoxLayout& layout, const QString& name, const QString& text, const QFont& font, const QColor& colour) {
    auto* const label = new QLabel(text);
    label->setObjectName(name);
    label->setFont(font);
    label->setWordWrap(true);
    look::SetTextColour(*label, colour);
    layout.addWidget(label);
}

} // namespace

TAboutForm::TAboutForm(QWidget* parent)
    : QDialog(parent), FClose(new QPushButton("Close", this)), FTimer(new QTimer(this)) {
    setWindowTitle("About Lotmaster");
    setObjectName("AboutForm");
    setBackgroundRole(QPalette::Base);

    auto* const picture = new QLabel(this);
    picture->setPixmap(look::Icon("lotmaster").pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF()));

    QFont nameFont = look::HeadingFont();
    nameFont.setPointSizeF(24);
    QFont lineFont = look::TextFont();
    lineFont.setPointSizeF(11);
    const QColor text = palette().color(QPalette::WindowText);

    auto* const texts = new QVBoxLayout;
    texts->setSpacing(0);
    AddLine(*texts, "lblProgram", "Lotmaster", nameFont, look::Accent());
    AddLine(*texts, "lblVersion", "Version " LOTMASTER_VERSION, look::TextFont(), look::Subdued());
    texts->addSpacing(look::WideGap);
    AddLine(*texts, "lblPurpose", "Development appraisal: cashflow, finance, profit and land value.", lineFont, text);
    texts->addSpacing(look::WideGap);
    AddLine(*texts, "lblLicence",
            "Tarvane Lotmaster is free software under the GNU General Public License, version 3 or later. It comes "
            "with no warranty, as far as the law permits.",
            look::TextFont(), text);
    texts->addSpacing(look::Gap);
    AddLine(*texts, "lblQt", QString("Made with Qt %1.").arg(qVersion()), look::TextFont(), look::Subdued());

    auto* const top = new QHBoxLayout;
    top->setSpacing(28);
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addLayout(texts, 1);

    FClose->setObjectName("btnClose");
    FClose->setDefault(true);
    connect(FClose, &QPushButton::clicked, this, &QDialog::accept);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(28 + EdgeWidth, 28, 28, 24);
    layout->setSpacing(look::WideGap);
    layout->addLayout(top);
    layout->addWidget(FClose, 0, Qt::AlignRight);
    // The texts wrap, so the height follows from the width; nobody needs another size.
    setFixedWidth(BoxWidth);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

TAboutForm& TAboutForm::ShowSplash(QWidget* parent, std::chrono::milliseconds duration) {
    auto* const splash = new TAboutForm(parent); // deletes itself when closed
    splash->BecomeSplash(duration);
    return *splash;
}

void TAboutForm::BecomeSplash(std::chrono::milliseconds duration) {
    FClose->hide();
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setModal(false);
    // The program ends with its last window: this one is not to count, neither while it is open nor when it closes.
    setAttribute(Qt::WA_QuitOnClose, false);

    FTimer->setSingleShot(true);
    connect(FTimer, &QTimer::timeout, this, &QWidget::close);
    qApp->installEventFilter(this);

    adjustSize();
    const bool overParent = parentWidget() != nullptr && parentWidget()->isVisible();
    const QRect around = overParent ? parentWidget()->window()->frameGeometry() : screen()->availableGeometry();
    move(around.center() - rect().center());
    show();
    // The clock starts once it is shown, since showing it may take long on a busy machine.
    FTimer->start(duration);
}

bool TAboutForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
        qApp->removeEventFilter(this);
        // Closed after the event, which may be on its way to this window.
        QTimer::singleShot(0, this, &QWidget::close);
    }
    return QDialog::eventFilter(watched, event);
}

void TAboutForm::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.fillRect(QRect(0, 0, EdgeWidth, height()), look::Accent());
    if (windowFlags().testFlag(Qt::FramelessWindowHint)) {
        painter.setPen(look::Rule());
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}
