// SPDX-License-Identifier: GPL-3.0-or-later
//
// A desktop for tests: an installation in a folder that vanishes, and a user who answers by a script.
#pragma once

#include "app/lotSystem.h"
#include "reportengine/frxReport.h"
#include "shell/base/lotDesktop.h"
#include "support/lotFiles.h"

#include <deque>
#include <utility>

/// A user. What is told and asked is written down; an answer that the script doesn't hold fails the test.
class TScriptedUser final : public TlotMessageService,
                            public TlotQuestionService,
                            public TlotFileService,
                            public TlotTemplateChooser,
                            public TlotReportPreviewer,
                            public TlotMailService,
                            public TlotBusyService {
public:
    std::string Told;    ///< "W: text|" for each message, by the first letter of its kind; "?: text|" for questions.
    std::string Offered; ///< "name|" for each template.
    std::deque<TlotAnswer> Answers;
    TlotAnswer Proposed = TlotAnswer::Cancel; ///< The default button of the last Yes/No question.
    std::deque<std::optional<std::string>> FileNames;
    std::optional<std::size_t> Template;
    TlotFileQuestion LastFileQuestion;
    int BusyNow = 0;
    std::string Read; ///< "4: template, 3 pages|" for each report that was shown, by its engine.
    TlotMailMessage Mail;
    std::vector<bool> MailFilesThere; ///< Whether each attachment was there when the mail program got it.
    bool MailProgram = true;

    /// What was told and asked since the last call.
    [[nodiscard]] std::string TakeTold() { return std::exchange(Told, {}); }

    void Show(TlotMessageKind kind, std::string_view text) override {
        Told += "WEIC"[static_cast<int>(kind)] + (": " + std::string(text) + "|");
    }
    TlotAnswer AskYesNoCancel(std::string_view text) override {
        Told += "?: " + std::string(text) + "|";
        return Next(Answers, TlotAnswer::Cancel);
    }
    bool DecideYesNo(std::string_view text, TlotAnswer proposed) override {
        Proposed = proposed;
        return AskYesNoCancel(text) == TlotAnswer::Yes;
    }
    std::optional<std::string> AskOpen(const TlotFileQuestion& question) override { return AskSave(question); }
    std::optional<std::string> AskSave(const TlotFileQuestion& question) override {
        LastFileQuestion = question;
        return Next(FileNames, std::optional<std::string>());
    }
    std::optional<std::size_t> Choose(std::span<const std::string> names) override {
        for (const std::string& name : names) {
            Offered += name + "|";
        }
        return Template;
    }
    void Preview2(const TgxFR4Preview& preview) override { Show('2', preview); }
    void Preview4(const TgxFR4Preview& preview) override { Show('4', preview); }
    void Send(const TlotMailMessage& message) override {
        if (!MailProgram) {
            throw ELotError("No mail program was found.");
        }
        Mail = message;
        for (const std::string& file : message.Attachments) {
            MailFilesThere.push_back(std::filesystem::exists(file));
        }
    }
    void Begin() override { ++BusyNow; }
    void End() override { --BusyNow; }

private:
    void Show(char engine, const TgxFR4Preview& preview) {
        Read += std::string(1, engine) + ": " +
                std::filesystem::path(preview.Report.TemplateFile()).filename().string() + ", " +
                std::to_string(preview.Report.PageCount()) + "|";
    }
    template <typename T> T Next(std::deque<T>& script, T otherwise) {
        if (script.empty()) {
            ADD_FAILURE() << "The user was asked what the script doesn't answer.";
            return otherwise;
        }
        T answer = std::move(script.front());
        script.pop_front();
        return answer;
    }
};

/// An installation with its user.
class TDesktopScript {
public:
    TDesktopScript()
        : App(Start(), User),
          Data(System, App.Options, Services(), PointLocale),
          Report2(PointLocale),
          Report4(PointLocale),
          Reports(Data, App.Options, {LOTMASTER_REPORTS "/Reports/", LOTMASTER_REPORTS "/Reports4/"}, Report2, Report4,
                  &User),
          Desktop{App, Data, {Services(), User, User, User, User}, Reports, PointLocale} {}

    TTempFolder Folder;
    TScriptedUser User;
    TlotFixedClock Clock{TestToday};
    TlotSystem System{TestToday};
    TAppData App;
    TProjectData Data;
    TfrxReport Report2;
    TfrxReport Report4;
    TReportData Reports;
    TlotDesktop Desktop;

    [[nodiscard]] TlotProject& Project() { return Data.Project(); }
    [[nodiscard]] double& SiteValue() { return Project().BaseValues.SiteValue.Amount; }

private:
    [[nodiscard]] TlotServices Services() { return {User, Clock, User}; }
    [[nodiscard]] TlotStart Start() const {
        for (const char* const name : {"bin", "var", "home", "tmp"}) {
            std::filesystem::create_directory(Folder.File(name));
        }
        const TlotEnvironment environment{Folder.File("home"), "", "", Folder.File("tmp"), "", Folder.File("var")};
        return {Folder.File("bin"), false, FindWellKnownFolders(environment, "Tarvane/Lotmaster"), {}, PointLocale};
    }
};

inline std::string ExampleFile(const std::string& name) {
    return std::string(LOTMASTER_EXAMPLES) + "/" + name;
}
