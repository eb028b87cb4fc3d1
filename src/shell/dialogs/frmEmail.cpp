// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmEmail.h"

#include "app/lotFailures.h"
#include "shell/base/lotLook.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

TEmailForm::TEmailForm(TlotEmail& email, const TlotServices& services, QWidget* parent)
    : QDialog(parent),
      FEmail(email),
      FServices(services),
      chkProject(new QCheckBox("Project File (.lot)", this)),
      lstReports(new QListWidget(this)),
      Progress(new QProgressBar(this)),
      btnSend(new QPushButton("&Send", this)),
      btnCancel(new QPushButton("Cancel", this)) {
    setWindowTitle("Email");
    setObjectName("EmailForm");
    chkProject->setObjectName("chkProject");
    lstReports->setObjectName("lstReports");
    Progress->setObjectName("Progress");
    btnSend->setObjectName("btnSend");
    btnCancel->setObjectName("btnCancel");
    lstReports->setAccessibleName("PDF reports");
    for (const char* const name : EmailReports) {
        auto* const item = new QListWidgetItem(name, lstReports);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    Progress->setTextVisible(false);
    Progress->setRange(0, 1);
    Progress->setValue(0);
    BuildLayout();
    connect(btnSend, &QPushButton::clicked, this, [this] { Guarded([this] { Send(); }); });
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void TEmailForm::BuildLayout() {
    auto* const hint = new QLabel("Choose email attachments below, then press <B>Send</B>.", this);
    hint->setMinimumWidth(360);
    auto* const caption = new QLabel("PDF reports", this);
    caption->setBuddy(lstReports);
    // All of the list is seen at once.
    const int rows = lstReports->sizeHintForRow(0) * lstReports->count();
    lstReports->setFixedHeight(rows + 2 * lstReports->frameWidth() + look::SmallGap);
    Progress->setFixedHeight(look::Gap);
    QSizePolicy kept = Progress->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    Progress->setSizePolicy(kept);
    Progress->hide();

    btnSend->setDefault(true);
    btnCancel->setAutoDefault(false);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(btnSend);
    buttons->addWidget(btnCancel);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    layout->setSpacing(look::Gap);
    layout->addWidget(hint);
    layout->addSpacing(look::SmallGap);
    layout->addWidget(chkProject);
    layout->addSpacing(look::SmallGap);
    layout->addWidget(caption);
    layout->addWidget(lstReports);
    layout->addWidget(Progress);
    layout->addSpacing(look::SmallGap);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

TEmailChoice TEmailForm::Choice() const {
    TEmailChoice choice;
    for (int i = 0; i < lstReports->count(); ++i) {
        if (lstReports->item(i)->checkState() == Qt::Checked) {
            choice.Reports.push_back(lstReports->item(i)->text().toStdString());
        }
    }
    choice.ProjectFile = chkProject->isChecked();
    return choice;
}

void TEmailForm::Send() {
    const TEmailChoice choice = Choice();
    if (choice.Count() == 0) {
        FServices.Messages.Show(TlotMessageKind::Information, "Nothing selected.");
        return;
    }
    Progress->setRange(0, choice.Count());
    Progress->setValue(0);
    Progress->show();
    {
        const TlotBusy busy(FServices.Busy);
        FEmail.Send(choice, [this] {
            Progress->setValue(Progress->value() + 1);
            Progress->repaint(); // The loop of events stands still meanwhile.
        });
    }
    accept();
}
