// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotEmail.h"

#include "app/lotProduct.h"
#include "common/vipErrors.h"

#include <filesystem>
#include <system_error>
#include <utility>

TlotEmail::TlotEmail(TProjectData& data, TlotCustomController& controller, TlotMailService& mail,
                     TlotMessageService& messages, std::string temporaryFolder)
    : FData(data),
      FController(controller),
      FMail(mail),
      FMessages(messages),
      FTemporaryFolder(std::move(temporaryFolder)) {}

bool TlotEmail::IsUsers(const std::string& target) const {
    std::error_code error;
    if (FData.FileName().empty()) {
        return std::filesystem::exists(target, error) && std::filesystem::absolute(target).string() != FOwn;
    }
    return std::filesystem::equivalent(target, FData.FileName(), error);
}

void TlotEmail::AttachProject(std::vector<std::string>& attachments) {
    // A project without a name is written into the current folder, on purpose.
    const std::string name = std::filesystem::path(FData.FileName()).filename().string();
    const std::string target = name.empty() ? "Untitled.lot" : FTemporaryFolder + name;
    bool saved = false;
    try {
        if (!IsUsers(target)) {
            saved = FData.SaveProject(target);
            FOwn = saved ? std::filesystem::absolute(target).string() : FOwn;
        }
    } catch (const EFileError&) {
        saved = false;
    }
    if (saved) {
        attachments.push_back(target);
    } else {
        FMessages.Show(TlotMessageKind::Information, "Unable to save temporary file for attachment.");
    }
}

void TlotEmail::Send(const TEmailChoice& choice, const std::function<void()>& step) {
    TlotMailMessage message;
    message.Subject = "Lotmaster Appraisal";
    for (const std::string& name : choice.Reports) {
        const std::string path = FTemporaryFolder + name + ".pdf";
        FController.SaveReport(name, path);
        message.Attachments.push_back(path);
        step();
    }
    if (choice.ProjectFile) {
        AttachProject(message.Attachments);
        step();
    }
    message.Body = std::string("\r\n\r\nProject and reports produced by TARVANE Lotmaster.\r\nFree download from ") +
                   ProductWebAddress;
    FMail.Send(message);
    for (const std::string& file : message.Attachments) {
        std::error_code error;
        std::filesystem::remove(file, error);
    }
    FOwn.clear();
}
