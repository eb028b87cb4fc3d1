// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotQtMail.h"

#include "common/vipErrors.h"
#include "persistence/lotAtomicFile.h"
#include "shell/lotMailDraft.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>
#include <utility>

namespace {

constexpr int MostMilliseconds = 5000; // For a mail program to say that it takes the message or not.
constexpr qint64 SecondsKept = 24 * 60 * 60;

bool Run(const QString& program, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty()) {
        return false;
    }
    auto process = std::make_unique<QProcess>();
    process->start(path, arguments);
    if (process->waitForFinished(MostMilliseconds)) {
        return process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0;
    }
    if (process->state() == QProcess::NotRunning) {
        return false;
    }
    // Where it was not running yet, the mail program stays below the command until its user closes it: the draft is
    // open then, and must not end with us.
    QProcess* const open = process.release();
    QObject::connect(open, &QProcess::finished, open, &QObject::deleteLater);
    return true;
}

} // namespace

TQtMail::TQtMail(std::string temporaryFolder)
    : RunProgram(Run),
      OpenFile([](const QString& file) { return QDesktopServices::openUrl(QUrl::fromLocalFile(file)); }),
      FDrafts(std::move(temporaryFolder) + "Drafts/") {}

void TQtMail::RemoveOldDrafts() const {
    const QDateTime limit = QDateTime::currentDateTime().addSecs(-SecondsKept);
    const QDir drafts(QFile::decodeName(FDrafts.c_str()));
    for (const QFileInfo& entry : drafts.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
        if (entry.lastModified() < limit) {
            QDir(entry.filePath()).removeRecursively();
        }
    }
}

void TQtMail::Send(const TlotMailMessage& message) {
    const QString drafts = QFile::decodeName(FDrafts.c_str());
    RemoveOldDrafts();
    QDir().mkpath(drafts);
    QTemporaryDir folder(drafts + "draft-XXXXXX"); // For this user alone.
    if (!folder.isValid()) {
        throw EFileError(FDrafts + ": " + folder.errorString().toStdString());
    }
    folder.setAutoRemove(false);
    QStringList arguments{"--utf8", "--subject", QString::fromStdString(message.Subject), "--body",
                          QString::fromStdString(message.Body)};
    for (const std::string& file : message.Attachments) {
        const QString source = QFile::decodeName(file.c_str());
        const QString copy = folder.filePath(QFileInfo(source).fileName());
        if (!QFile::copy(source, copy)) {
            throw EFileError(file + ": The attachment cannot be copied.");
        }
        arguments << "--attach" << copy;
    }
    if (RunProgram("xdg-email", arguments)) {
        return;
    }
    const std::string draft = QFile::encodeName(folder.filePath("Lotmaster Appraisal.eml")).toStdString();
    WriteFileAtomically(draft, MailDraft(message).toStdString());
    if (!OpenFile(QFile::decodeName(draft.c_str()))) {
        throw ELotError("No mail program was found. The message lies in " + draft);
    }
}
