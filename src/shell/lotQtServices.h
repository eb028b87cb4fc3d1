// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the logic asks of the world outside, answered by the desktop: message boxes, questions, file dialogs and the
// hourglass.
#pragma once

#include "app/lotServices.h"

#include <QString>

class TQtMessages final : public TlotMessageService {
public:
    void Show(TlotMessageKind kind, std::string_view text) override;
};

class TQtQuestions final : public TlotQuestionService {
public:
    [[nodiscard]] TlotAnswer AskYesNoCancel(std::string_view text) override;

protected:
    [[nodiscard]] bool DecideYesNo(std::string_view text, TlotAnswer proposed) override;
};

class TQtFiles final : public TlotFileService {
public:
    [[nodiscard]] std::optional<std::string> AskOpen(const TlotFileQuestion& question) override;
    [[nodiscard]] std::optional<std::string> AskSave(const TlotFileQuestion& question) override;

private:
    [[nodiscard]] QString StartFolder(const TlotFileQuestion& question) const;

    QString FFolder; // That the user went to last.
};

class TQtBusy final : public TlotBusyService {
public:
    void Begin() override;
    void End() override;
};
