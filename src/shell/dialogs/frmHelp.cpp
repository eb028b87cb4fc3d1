// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmHelp.h"

#include "shell/base/lotLook.h"

#include <QAbstractTextDocumentLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {

constexpr int TextWidth = 720; // Pixels; longer lines are hard to read.
constexpr int PlaceRole = Qt::UserRole;

} // namespace

QVariant TGuideBrowser::loadResource(int type, const QUrl& name) {
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type == QTextDocument::ImageResource) {
        QImage image = resource.value<QImage>();
        if (image.isNull()) {
            image.loadFromData(resource.toByteArray());
        }
        // Scaled for the screen's own pixels, shown at the width of the text.
        const qreal ratio = devicePixelRatioF();
        const int width = static_cast<int>((TextWidth - 2 * look::Margin) * ratio);
        if (image.width() > width) {
            image = image.scaledToWidth(width, Qt::SmoothTransformation);
        }
        image.setDevicePixelRatio(ratio);
        return image;
    }
    return resource;
}

THelpForm::THelpForm(QWidget* parent)
    : QWidget(parent, Qt::Window),
      lstContents(new QListWidget(this)),
      edtFind(new QLineEdit(this)),
      txtGuide(new TGuideBrowser(this)) {
    setObjectName("HelpForm");
    setWindowTitle("Lotmaster Help");
    lstContents->setObjectName("lstContents");
    lstContents->setFixedWidth(220);
    lstContents->setAccessibleName("Contents");
    edtFind->setObjectName("edtFind");
    edtFind->setPlaceholderText("Find in the guide");
    edtFind->setAccessibleName("Find");
    edtFind->setClearButtonEnabled(true);
    txtGuide->setObjectName("txtGuide");
    txtGuide->setAccessibleName("Guide");
    txtGuide->setMinimumWidth(TextWidth + look::Margin);
    txtGuide->setOpenExternalLinks(false);
    txtGuide->setOpenLinks(false);
    txtGuide->document()->setDocumentMargin(look::Margin);

    auto* const side = new QVBoxLayout;
    side->setSpacing(look::Gap);
    side->addWidget(edtFind);
    side->addWidget(lstContents, 1);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::Gap, look::Gap, look::Gap, look::Gap);
    layout->setSpacing(look::Gap);
    layout->addLayout(side);
    layout->addWidget(txtGuide, 1);
    resize(TextWidth + 300, 760);

    txtGuide->setSource(QUrl("qrc:/help/user-guide.md"), QTextDocument::MarkdownResource);
    ListContents();
    connect(lstContents, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr) {
            const QTextBlock block = txtGuide->document()->findBlock(item->data(PlaceRole).toInt());
            txtGuide->setTextCursor(QTextCursor(block));
            const int top = static_cast<int>(txtGuide->document()->documentLayout()->blockBoundingRect(block).top());
            txtGuide->verticalScrollBar()->setValue(top - look::Gap);
        }
    });
    connect(edtFind, &QLineEdit::returnPressed, this, &THelpForm::Find);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, edtFind, qOverload<>(&QWidget::setFocus));
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

bool THelpForm::ShowTopic(const QString& heading) {
    for (int i = 0; i < lstContents->count(); ++i) {
        if (lstContents->item(i)->text().trimmed() == heading) {
            lstContents->setCurrentRow(i);
            return true;
        }
    }
    return false;
}

void THelpForm::ListContents() {
    for (QTextBlock block = txtGuide->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 2 || level == 3) {
            auto* const item = new QListWidgetItem(QString(level == 3 ? "    " : "") + block.text(), lstContents);
            item->setData(PlaceRole, block.position());
        }
    }
}

void THelpForm::Find() {
    // From the top again where nothing follows.
    if (!txtGuide->find(edtFind->text())) {
        txtGuide->moveCursor(QTextCursor::Start);
        txtGuide->find(edtFind->text());
    }
}
