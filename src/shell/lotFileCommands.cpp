// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotFileCommands.h"

#include "app/lotFailures.h"
#include "app/lotTemplates.h"
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

} // namespace

TFileCommands::TFileCommands(const TlotDesktop& desktop, TFileCommandHooks hooks)
    : FDesktop(desktop), FHooks(std::move(hooks)) {}

bool TFileCommands::CheckSave() {
    // Where that fails the user, who has been told, decides; refusing for good would keep the window open for ever.
    if (!Guarded(FHooks.TakeEdits)) {
        Document().MarkChanged();
    }
    if (!Document().Changed()) {
        return true;
    }
    std::string question = "Do you want to save the changes you made";
    if (!Document().FileName().empty()) {
        question += " to \"" + Document().NameOnly() + "\"";
    }
    switch (FDesktop.Services.Questions.AskYesNoCancel(question + "?")) {
    case TlotAnswer::Yes: return Save();
    case TlotAnswer::No: Document().GiveUpChanges(); return true;
    case TlotAnswer::Cancel: break;
    }
    return false;
}

bool TFileCommands::Save() {
    if (!Document().IsProjectFile()) {
        return SaveAs();
    }
    if (!FDesktop.Data.SaveProject(Document().FileName())) {
        return false;
    }
    Document().Saved();
    return true;
}

std::string TFileCommands::ProposedName() const {
    const std::string& name = Document().FileName();
    if (name.empty() || Document().IsProjectFile()) {
        return name;
    }
    // A template or an import becomes a project of its own, in the data folder. Deliberately, the first dot counts
    // wherever it stands, in a folder's name too.
    const std::string project = name.substr(0, name.find('.')) + ".lot";
    return FDesktop.App.FilesFolder + fs::path(project).filename().string();
}

bool TFileCommands::SaveAs() {
    const std::optional<std::string> chosen =
        FDesktop.Services.Files.AskSave({SaveFilter, FFolder, ProposedName(), {}});
    if (!chosen || !FDesktop.Data.SaveProject(*chosen)) {
        return false;
    }
    Document().SetFile(*chosen);
    RecentFiles.Add(*chosen);
    FHooks.NameChanged();
    return true;
}

void TFileCommands::FileOpen() {
    if (const std::optional<std::string> chosen = FDesktop.Services.Files.AskOpen({OpenFilter, FFolder, {}, {}})) {
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
    FHooks.DropEdits();
    // The test is exact, so an import file in capitals is taken for a project, and refused as one.
    if (fs::path(name).extension() == ".resi") {
        if (!FDesktop.Data.ImportProject(name)) {
            return;
        }
        Document().MarkChanged();
    } else {
        if (!FDesktop.Data.LoadProject(name)) {
            return;
        }
        Document().SetFile(name);
        RecentFiles.Add(name);
    }
    FHooks.ShowOpened();
}

void TFileCommands::OpenArgument(const std::vector<std::string>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (vip::SameText(argument, "-syspath") || vip::SameText(argument, "/syspath")) {
            ++i; // The folder that follows is no file to open.
            continue;
        }
        if (argument.empty() || argument.front() == '-') {
            continue;
        }
        if (vip::SameText(fs::path(argument).extension().string(), ".lot")) {
            // The recent files outlive the folder that the program was started in.
            OpenProject(fs::absolute(argument).lexically_normal().string());
        } else {
            FDesktop.Services.Messages.Show(TlotMessageKind::Information,
                                            "\"" + argument + "\" is not a Lotmaster file.");
        }
        return;
    }
}

void TFileCommands::FileNew() {
    if (!CheckSave()) {
        return;
    }
    FHooks.DropEdits();
    FDesktop.Data.ClearProject();
    std::exception_ptr failure;
    try {
        NewProject(FDesktop.Data, FDesktop.App.TemplatesFolder, FDesktop.Services.Clock, FDesktop.Services.Templates);
    } catch (...) {
        failure = std::current_exception();
    }
    // A template that is damaged leaves a cleared project, which must not be saved under the old one's name.
    Document().ForgetFile();
    FHooks.ShowNew();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void TFileCommands::FileTestData() {
    if (!CheckSave()) {
        return;
    }
    FHooks.DropEdits();
    FDesktop.Data.BuildTestProject();
    Document().ForgetFile();
    FHooks.ShowOpened();
}
