// SPDX-License-Identifier: GPL-3.0-or-later
//
// A message as a file that mail programs open as a draft.
#pragma once

#include "app/lotMailService.h"

#include <QByteArray>

/// The whole message, attachments in it, in Internet message format. Throws EFileError for an attachment that can't be
/// read.
[[nodiscard]] QByteArray MailDraft(const TlotMailMessage& message);
