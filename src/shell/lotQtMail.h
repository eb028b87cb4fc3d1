// SPDX-License-Identifier: GPL-3.0-or-later
//
// Drafts in the user's own mail program, by the desktop's mail command, otherwise as a message file that whatever opens
// such files takes.
#pragma once

#include "app/lotMailService.h"

#include <QStringList>
#include <functional>
#include <string>

class TQtMail final : public TlotMailService {
public:
    /// Drafts lie in a folder of their own below `temporaryFolder` (which ends in "/") for a day: a mail program reads
    /// its attachments whenever it gets round to it.
    explicit TQtMail(std::string temporaryFolder);

    void Send(const TlotMailMessage& message) override;

    /// Runs a program; false if there is none of that name or it fails soon. Replaced in tests.
    std::function<bool(const QString& program, const QStringList& arguments)> RunProgram;
    /// Opens a file in the program for its kind.
    std::function<bool(const QString& file)> OpenFile;

private:
    void RemoveOldDrafts() const;

    std::string FDrafts;
};
