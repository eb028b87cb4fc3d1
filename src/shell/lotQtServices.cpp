// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotQtServices.h"

#include "shell/base/lotLook.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStringList>
#include <algorithm>

namespace {

QString BoxText(std::string_view text) {
    QString lines = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    lines.replace("\r\n", "\n");
    return lines;
}

/// A box over the window in use, with our own icon.
void SetUp(QMessageBox& box, std::string_view text, const char* icon) {
    box.setWindowTitle("Lotmaster");
    box.setTextFormat(Qt::PlainText); // Names of files may look like markup.
    box.setText(BoxText(text));
    box.setIconPixmap(look::Icon(icon).pixmap(QSize(40, 40), box.devicePixelRatio()));
}

const char* IconOf(TlotMessageKind kind) {
    switch (kind) {
    case TlotMessageKind::Warning: return "warning";
    case TlotMessageKind::Error: return "error";
    case TlotMessageKind::Information: return "information";
    case TlotMessageKind::Confirmation: break;
    }
    return "question";
}

/// "Captions (*.a)|*.a|..." as file dialogs of the toolkit take it. "*.*" means every file, also one without a dot.
QStringList NameFilters(const std::string& filter) {
    QStringList filters;
    const QStringList parts = QString::fromStdString(filter).split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString caption = parts[i].left(parts[i].lastIndexOf(" ("));
        const QString pattern = parts[i + 1] == "*.*" ? QString("*") : QString(parts[i + 1]).replace(';', ' ');
        filters << QString("%1 (%2)").arg(caption, pattern);
    }
    return filters;
}

/// "a" for "Captions (*.a)", nothing for all files.
QString ExtensionOf(const QString& nameFilter) {
    const qsizetype dot = nameFilter.lastIndexOf("*.");
    return dot < 0 ? QString() : nameFilter.mid(dot + 2).section(')', 0, 0).section(' ', 0, 0);
}

std::string LocalPath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace

void TQtMessages::Show(TlotMessageKind kind, std::string_view text) {
    QMessageBox box(QApplication::activeWindow());
    SetUp(box, text, IconOf(kind));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

TlotAnswer TQtQuestions::AskYesNoCancel(std::string_view text) {
    QMessageBox box(QApplication::activeWindow());
    SetUp(box, text, "question");
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Yes: return TlotAnswer::Yes;
    case QMessageBox::No: return TlotAnswer::No;
    default: return TlotAnswer::Cancel;
    }
}

bool TQtQuestions::DecideYesNo(std::string_view text, TlotAnswer proposed) {
    QMessageBox box(QApplication::activeWindow());
    SetUp(box, text, "question");
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(proposed == TlotAnswer::Yes ? QMessageBox::Yes : QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QString TQtFiles::StartFolder(const TlotFileQuestion& question) const {
    const QFileInfo proposed(QString::fromStdString(question.Name));
    if (question.Name.find('/') != std::string::npos && proposed.dir().exists()) {
        return proposed.absolutePath();
    }
    return FFolder.isEmpty() ? QString::fromStdString(question.Folder) : FFolder;
}

std::optional<std::string> TQtFiles::AskOpen(const TlotFileQuestion& question) {
    QFileDialog dialog(QApplication::activeWindow(), "Open", StartFolder(question));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(NameFilters(question.Filter));
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    FFolder = dialog.directory().absolutePath();
    return LocalPath(dialog.selectedFiles().value(0));
}

std::optional<std::string> TQtFiles::AskSave(const TlotFileQuestion& question) {
    QFileDialog dialog(QApplication::activeWindow(), "Save As", StartFolder(question));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const QStringList filters = NameFilters(question.Filter);
    dialog.setNameFilters(filters);
    dialog.selectFile(QFileInfo(QString::fromStdString(question.Name)).fileName());
    const QString wanted = QString::fromStdString(question.DefaultExtension);
    const auto follow = [&](const QString& filter) {
        const QString extension = ExtensionOf(filter);
        dialog.setDefaultSuffix(extension.isEmpty() ? wanted : extension);
    };
    // The wanted extension holds until another kind of file is chosen.
    if (wanted.isEmpty()) {
        follow(filters.value(0));
    } else {
        dialog.setDefaultSuffix(wanted);
    }
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    FFolder = dialog.directory().absolutePath();
    return LocalPath(dialog.selectedFiles().value(0));
}

void TQtBusy::Begin() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void TQtBusy::End() {
    QApplication::restoreOverrideCursor();
}
