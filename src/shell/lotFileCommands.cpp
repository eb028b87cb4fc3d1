// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotFileCommands.h"

#include "common/vipText.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr const char* SaveFilter = "Lotmaster Files (*.lot)|*.lot|Lotmaster Templates (*.ltt)|*.ltt";
constexpr const char* OpenFilter = "Lotmaster Files (*.lot)|*.lot|Lotmaster Templates (*.ltt)|*.ltt|"
                                   "Residual Files (*.resi)|*.resi|All Files (*.*)|*.*";

bool IsProjectFile(const std::string& name) {
    return vip::SameText(fs::path(name).extension().string(), ".lot");
}

} // namespace

std::string FileNameOnly(const std::string& name) {
    return fs::path(name).filename().string();
}

TFileCommands::TFileCommands(const TlotDesktop& desktop, bool& changed, TFileCommandHooks hooks)
    : FDesktop(desktop), FChanged(changed), FHooks(std::move(hooks)) {}

bool TFileCommands::CheckSave() {
    if (!FChanged) {
        return true;
    }
    std::string question = "Do you want to save the changes you made";
    if (const std::string& name = FDesktop.Data.FileName; !name.empty()) {
        question += " to \"" + FileNameOnly(name) + "\"";
    }
    switch (FDesktop.Questions.AskYesNoCancel(question + "?")) {
    case TlotAnswer::Yes: return Save();
    case TlotAnswer::No: FChanged = false; return true;
    case TlotAnswer::Cancel: break;
    }
    return false;
}

bool TFileCommands::Save() {
    const std::string& name = FDesktop.Data.FileName;
    if (!IsProjectFile(name)) {
        return SaveAs();
    }
    if (!FDesktop.Data.SaveProject(name)) {
        return false;
    }
    FChanged = false;
    return true;
}

std::string TFileCommands::ProposedName() const {
    const std::string& name = FDesktop.Data.FileName;
    if (name.empty() || IsProjectFile(name)) {
        return name;
    }
    // A template or an import becomes a project of its own, in the data folder. Deliberately, the first dot counts
    // wherever it stands, in a folder's name too.
    const std::string project = name.substr(0, name.find('.')) + ".lot";
    return FDesktop.App.FilesFolder + FileNameOnly(project);
}

bool TFileCommands::SaveAs() {
    const std::optional<std::string> chosen = FDesktop.Files.AskSave({SaveFilter, FFolder, ProposedName(), {}});
    if (!chosen || !FDesktop.Data.SaveProject(*chosen)) {
        return false;
    }
    FDesktop.Data.FileName = *chosen;
    FChanged = false;
    RecentFiles.Add(*chosen);
    FHooks.NameChanged();
    return true;
}

void TFileCommands::FileOpen() {
    if (const std::optional<std::string> chosen = FDesktop.Files.AskOpen({OpenFilter, FFolder, {}, {}})) {
        OpenProject(*chosen);
    }
}

void TFileCommands::OpenProject(const std::string& name) {
    if (!CheckSave()) {
        return;
    }
    std::error_code error;
    if (!fs::exists(name, error)) {
        FDesktop.Services.Messages.Show(TlotMessageKind::Information, "File does not exist.");
        return;
    }
    // The test is exact, so an import file in capitals is taken for a project, and refused as one.
    if (fs::path(name).extension() == ".resi") {
        if (!FDesktop.Data.ImportProject(name)) {
            return;
        }
        FChanged = true;
    } else {
        if (!FDesktop.Data.LoadProject(name)) {
            return;
        }
        FDesktop.Data.FileName = name;
        FChanged = false;
        RecentFiles.Add(name);
    }
    FHooks.ShowOpened();
}

void TFileCommands::FileNew() {
    if (!CheckSave()) {
        return;
    }
    FDesktop.Data.ClearProject();
    std::exception_ptr failure;
    try {
        NewProject(FDesktop.Data, FDesktop.App.TemplatesFolder, FDesktop.Services.Clock, FDesktop.Templates);
    } catch (...) {
        failure = std::current_exception();
    }
    // A template that is damaged leaves a cleared project, which must not be saved under the old one's name.
    FDesktop.Data.FileName.clear();
    FHooks.ShowNew();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void TFileCommands::FileTestData() {
    if (!CheckSave()) {
        return;
    }
    FDesktop.Data.BuildTestProject();
    FDesktop.Data.FileName.clear();
    FHooks.ShowOpened();
}
