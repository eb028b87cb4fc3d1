// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmEmail.h"

#include "shell/base/lotLook.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

TEmailForm::TEmailForm(TlotEmail& email, const TlotServices& services, QWidget* parent)
    : TDialogForm({"EmailForm", "Email", "E-mail", "&Send"}, TDialogButtons::OkCancel, parent),
      FEmail(email),
      FServices(services),
      FFields(*this, {}),
      lstReports(new QListWidget(this)),
      Progress(new QProgressBar(this)) {
    lstReports->setObjectName("lstReports");
    Progress->setObjectName("Progress");
    DefaultButton().setObjectName("btnSend");
    Buttons().button(QDialogButtonBox::Cancel)->setObjectName("btnCancel");
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

    layout()->setSpacing(look::Gap);
    Body().addWidget(hint);
    Body().addSpacing(look::SmallGap);
    FFields.Check(Body(), {"Project File (.lot)", "chkProject"}, FChoice.ProjectFile);
    Body().addSpacing(look::SmallGap);
    Body().addWidget(caption);
    Body().addWidget(lstReports);
    Body().addWidget(Progress);
    Body().addSpacing(look::SmallGap);
    FixSize();
}

void TEmailForm::TakeChoice() {
    FFields.Store();
    FChoice.Reports.clear();
    for (int i = 0; i < lstReports->count(); ++i) {
        if (lstReports->item(i)->checkState() == Qt::Checked) {
            FChoice.Reports.push_back(lstReports->item(i)->text().toStdString());
        }
    }
}

bool TEmailForm::Send() {
    TakeChoice();
    if (FChoice.Count() == 0) {
        FServices.Messages.Show(TlotMessageKind::Information, "Nothing selected.");
        return false;
    }
    Progress->setRange(0, FChoice.Count());
    Progress->setValue(0);
    Progress->show();
    const TlotBusy busy(FServices.Busy);
    FEmail.Send(FChoice, [this] {
        Progress->setValue(Progress->value() + 1);
        Progress->repaint(); // Nothing else repaints while the work runs.
    });
    return true;
}
