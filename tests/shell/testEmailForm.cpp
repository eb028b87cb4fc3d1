// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmEmail.h"
#include "shell/lotMailDraft.h"
#include "shell/lotQtMail.h"
#include "support/lotDesktopScript.h"
#include "support/lotFakeController.h"

#include <QCheckBox>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {

class EmailForm : public testing::Test {
protected:
    EmailForm() { Script.Data.BuildTestProject(); }

    void Tick(std::initializer_list<const char*> reports, bool project) {
        for (const char* const name : reports) {
            List().findItems(name, Qt::MatchExactly).front()->setCheckState(Qt::Checked);
        }
        Form.findChild<QCheckBox*>("chkProject")->setChecked(project);
    }
    void PressSend() { QTest::keyClick(&Form, Qt::Key_Return); }
    QListWidget& List() { return *Form.findChild<QListWidget*>("lstReports"); }
    [[nodiscard]] std::string FilesLeft() const {
        std::string names;
        for (const auto& entry : std::filesystem::directory_iterator(Script.App.TemporaryFolder)) {
            names += entry.path().filename().string() + "|";
        }
        return names;
    }

    TDesktopScript Script;
    TFakeController Controller;
    TlotEmail Email{Script.Data, Controller, Script.User, Script.User, Script.App.TemporaryFolder};
    TEmailForm Form{Email, Script.Desktop.Services};
};

TEST_F(EmailForm, ReportsGoOutInTheOrderOfTheListAndTheirFilesGo) {
    Form.show();
    Tick({"Addendum", "Appraisal", "Picture"}, true);
    Script.Data.Document.SetFile(Script.Folder.File("home/Scheme.lot"));
    PressSend();
    EXPECT_EQ(Controller.Saved, "Picture|Appraisal|Addendum|");
    const std::string folder = Script.App.TemporaryFolder;
    EXPECT_EQ(Script.User.Mail.Attachments, (std::vector<std::string>{folder + "Picture.pdf", folder + "Appraisal.pdf",
                                                                      folder + "Addendum.pdf", folder + "Scheme.lot"}));
    EXPECT_EQ(Script.User.MailFilesThere, (std::vector<bool>{true, true, true, true}));
    EXPECT_EQ(Script.User.Mail.Subject, "Lotmaster Appraisal");
    EXPECT_TRUE(Script.User.Mail.Body.starts_with(
        "\r\n\r\nProject and reports produced by TARVANE Lotmaster.\r\nFree download from http"));
    EXPECT_EQ(FilesLeft(), "");
    EXPECT_EQ(Script.Data.FileName(), Script.Folder.File("home/Scheme.lot"));
    EXPECT_FALSE(Form.isVisible());
    EXPECT_EQ(Form.findChild<QProgressBar*>("Progress")->value(), 4);
    EXPECT_EQ(Script.User.BusyNow, 0);
}

TEST_F(EmailForm, NothingTickedStaysOpen) {
    Form.show();
    PressSend();
    EXPECT_EQ(Script.User.TakeTold(), "I: Nothing selected.|");
    EXPECT_TRUE(Form.isVisible());
    EXPECT_TRUE(Script.User.Mail.Subject.empty());
    QTest::keyClick(&Form, Qt::Key_Escape);
    EXPECT_FALSE(Form.isVisible());
}

TEST_F(EmailForm, AProjectWithoutANameIsUntitledInTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(Script.Folder.File("home"));
    Tick({}, true);
    Form.Send();
    EXPECT_EQ(Script.User.Mail.Attachments, std::vector<std::string>{"Untitled.lot"});
    EXPECT_FALSE(std::filesystem::exists("Untitled.lot"));
    // What a failed try left behind is written over; a file of the user's own never is.
    Script.User.MailProgram = false;
    EXPECT_THROW(Form.Send(), ELotError);
    EXPECT_TRUE(std::filesystem::exists("Untitled.lot"));
    Script.User.MailProgram = true;
    Form.Send();
    EXPECT_FALSE(std::filesystem::exists("Untitled.lot"));
    std::ofstream("Untitled.lot") << "mine";
    (void)Script.User.TakeTold();
    Form.Send();
    EXPECT_EQ(Script.User.TakeTold(), "I: Unable to save temporary file for attachment.|");
    EXPECT_TRUE(Script.User.Mail.Attachments.empty());
    EXPECT_TRUE(std::filesystem::exists("Untitled.lot"));
    std::filesystem::current_path(before);
}

TEST_F(EmailForm, AProjectThatCannotBeSavedIsLeftOut) {
    Script.Data.Document.SetFile("Scheme.lot");
    std::filesystem::create_directory(Script.App.TemporaryFolder + "Scheme.lot");
    Tick({"Appraisal"}, true);
    Form.Send();
    EXPECT_EQ(Script.User.TakeTold(), "I: Unable to save temporary file for attachment.|");
    EXPECT_EQ(Script.User.Mail.Attachments.size(), 1U);
}

TEST_F(EmailForm, FailuresPassUpAndLeaveTheFiles) {
    Tick({"Appraisal", "Residual"}, false);
    Controller.Broken = "Residual";
    EXPECT_THROW(Form.Send(), ELotError);
    EXPECT_EQ(FilesLeft(), "Appraisal.pdf|");
    Controller.Broken.clear();
    Script.User.MailProgram = false;
    EXPECT_THROW(Form.Send(), ELotError);
    EXPECT_NE(FilesLeft(), "");
    EXPECT_EQ(Script.User.BusyNow, 0);
}

TEST(Mail, DraftsAreWholeMessages) {
    const TTempFolder folder;
    const std::string file = folder.Write("Gr\xC3\xBC\xC3\x9F"
                                          "e 1.pdf",
                                          std::string(200, '\xFF'));
    const std::string draft = MailDraft({"S\xC3\xBC"
                                         "d",
                                         "Hello\r\n",
                                         {file}})
                                  .toStdString();
    for (const char* const part :
         {"X-Unsent: 1\r\n", "Subject: =?UTF-8?B?U8O8ZA==?=\r\n", "MIME-Version: 1.0\r\n",
          "Content-Type: text/plain; charset=utf-8\r\n", "SGVsbG8NCg==\r\n", "Content-Type: application/pdf\r\n",
          " filename*=UTF-8''Gr%C3%BC%C3%9Fe%201.pdf\r\n"}) {
        EXPECT_NE(draft.find(part), std::string::npos) << part;
    }
    std::istringstream lines(draft);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(line.ends_with('\r') && line.size() <= 79) << line;
    }
    EXPECT_THROW(MailDraft({"", "", {folder.File("none")}}), EFileError);
}

TEST(Mail, CopiesAreHandedOverAndOldDraftsGo) {
    const TTempFolder folder;
    const std::string file = folder.Write("a.pdf", "content");
    TQtMail mail(folder.File("tmp/"));
    QStringList got;
    QString opened;
    mail.OpenFile = [&](const QString& draft) {
        opened = draft;
        return true;
    };
    mail.RunProgram = [&](const QString& program, const QStringList& arguments) {
        got = arguments;
        return program == "xdg-email";
    };
    mail.Send({"Subject", "Body; $(rm)", {file}});
    ASSERT_EQ(got.size(), 7);
    EXPECT_EQ(got.mid(0, 6).join('|'), "--utf8|--subject|Subject|--body|Body; $(rm)|--attach");
    std::filesystem::remove(file);
    EXPECT_EQ(ReadBytes(got[6].toStdString()), "content") << "a copy of its own";
    EXPECT_TRUE(opened.isEmpty());

    std::filesystem::last_write_time(std::filesystem::path(got[6].toStdString()).parent_path(),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(25));
    mail.RunProgram = [](const QString&, const QStringList&) { return false; };
    mail.Send({"Subject", "Body", {}});
    EXPECT_FALSE(std::filesystem::exists(got[6].toStdString())) << "older than a day";
    EXPECT_TRUE(ReadBytes(opened.toStdString()).starts_with("X-Unsent: 1"));
    mail.OpenFile = [](const QString&) { return false; };
    EXPECT_THROW(mail.Send({"Subject", "Body", {}}), ELotError);
}

} // namespace
