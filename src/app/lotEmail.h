// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts a message together: the reports and the project file that the user ticked, as attachments of a draft.
#pragma once

#include "app/datProject.h"
#include "app/lotController.h"
#include "app/lotMailService.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

/// The reports that a message may carry, in the order of the list.
inline constexpr std::array<const char*, 6> EmailReports{"Picture",  "Front Page",           "Appraisal",
                                                         "Residual", "Occupational Details", "Addendum"};

struct TEmailChoice {
    std::vector<std::string> Reports; ///< By their names, in the order of the list.
    bool ProjectFile = false;

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(Reports.size()) + (ProjectFile ? 1 : 0); }
};

class TlotEmail {
public:
    /// All that is handed in must outlive it. `temporaryFolder` ends in "/".
    TlotEmail(TProjectData& data, TlotCustomController& controller, TlotMailService& mail, TlotMessageService& messages,
              std::string temporaryFolder);

    /// Makes the attachments, hands the message over and removes them again; `step` is told of each attachment. Throws
    /// what a report or the mail program throws; what was made so far stays in the temporary folder then.
    void Send(const TEmailChoice& choice, const std::function<void()>& step);

private:
    /// Whether a file of the user's own stands where the attachment would be made: it would be written over, and
    /// removed with the attachments. What an earlier try that failed left behind is not the user's.
    [[nodiscard]] bool IsUsers(const std::string& target) const;
    /// The project as it is, under its own name; nothing, the user having been told, where it can't be saved.
    void AttachProject(std::vector<std::string>& attachments);

    TProjectData& FData;
    TlotCustomController& FController;
    TlotMailService& FMail;
    TlotMessageService& FMessages;
    std::string FTemporaryFolder;
    std::string FOwn; ///< The project's attachment until it is removed, with its whole path.
};
