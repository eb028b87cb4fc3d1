// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A user's text as a tool tip that shows it letter for letter: by itself the toolkit takes what looks like a tag for
/// one, and an escaped text without any for plain.
inline QString ToolTipText(const QString& text) {
    return text.isEmpty() ? QString() : "<qt>" + text.toHtmlEscaped() + "</qt>";
}
