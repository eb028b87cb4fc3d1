// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotMailDraft.h"

#include "common/vipErrors.h"

#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QUrl>

namespace {

constexpr const char* Boundary = "=_Lotmaster_part_0f3c9a5d";
constexpr qsizetype MostLetters = 76; // Of a line of base64.

QByteArray Base64Lines(const QByteArray& bytes) {
    const QByteArray text = bytes.toBase64();
    QByteArray lines;
    for (qsizetype i = 0; i < text.size(); i += MostLetters) {
        lines += text.mid(i, MostLetters) + "\r\n";
    }
    return lines;
}

/// A header's text; other letters than ASCII as an encoded word.
QByteArray HeaderText(const std::string& text) {
    const QByteArray bytes = QByteArray::fromStdString(text);
    const bool plain = std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
    return plain ? bytes : "=?UTF-8?B?" + bytes.toBase64() + "?=";
}

QByteArray Attachment(const std::string& fileName) {
    QFile file(QFile::decodeName(fileName.c_str()));
    if (!file.open(QIODevice::ReadOnly)) {
        throw EFileError(fileName + ": " + file.errorString().toStdString());
    }
    const QString name = QFileInfo(file).fileName();
    // The file's name as a parameter in UTF-8, percent-encoded.
    const QByteArray encoded = QUrl::toPercentEncoding(name);
    return QByteArray("--") + Boundary + "\r\nContent-Type: " +
           QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension).name().toLatin1() +
           "\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment;\r\n filename*=UTF-8''" + encoded +
           "\r\n\r\n" + Base64Lines(file.readAll());
}

} // namespace

QByteArray MailDraft(const TlotMailMessage& message) {
    QByteArray draft = "X-Unsent: 1\r\nSubject: " + HeaderText(message.Subject) +
                       "\r\nMIME-Version: 1.0\r\nContent-Type: multipart/mixed;\r\n boundary=\"" + Boundary +
                       "\"\r\n\r\n";
    draft += QByteArray("--") + Boundary +
             "\r\nContent-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: base64\r\n\r\n" +
             Base64Lines(QByteArray::fromStdString(message.Body));
    for (const std::string& file : message.Attachments) {
        draft += Attachment(file);
    }
    return draft + "--" + Boundary + "--\r\n";
}
