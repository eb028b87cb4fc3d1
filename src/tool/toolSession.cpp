// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/toolSession.h"

#include "app/datApp.h"

#include <filesystem>
#include <ostream>
#include <system_error>

void TToolMessages::Show(TlotMessageKind /*kind*/, std::string_view text) {
    Fail(text);
}

void TToolMessages::Fail(std::string_view text) {
    FErr << "lotcalc: ";
    if (!Subject.empty() && !text.starts_with(Subject)) {
        FErr << Subject << ": ";
    }
    bool blank = false;
    for (const char c : text) {
        if (c == '\r' || c == '\n') {
            blank = true;
        } else {
            FErr << (blank ? " " : "") << c;
            blank = false;
        }
    }
    FErr << '\n';
    FSpoken = true;
}

TToolSession::TToolSession(std::ostream& out, std::ostream& err, const TNumberLocale& locale, double today)
    : Out(out),
      Locale(locale),
      Messages(err),
      FClock(today),
      FSystem(today),
      FData(FSystem, FOptions, TlotServices{Messages, FClock, FBusy}, locale) {}

void TToolSession::Open(const std::string& fileName) {
    Messages.Subject = fileName;
    std::error_code error;
    if (!std::filesystem::exists(fileName, error)) {
        throw ELotError("File does not exist.");
    }
    if (std::filesystem::path(fileName).extension() == ".resi") {
        if (!Data().ImportProject(fileName)) {
            throw ELotError("There is no Project element in the file.");
        }
        return; // It has no project file's name until it is saved.
    }
    if (!Data().LoadProject(fileName)) {
        if (!Messages.Spoken()) {
            throw ELotError("There is no Project element in the file.");
        }
        throw EToolRefused();
    }
    Data().Document.SetFile(fileName);
}

TReportFolders TToolSession::UseInstallation(const std::string& systemFolder) {
    TlotStart start = ProcessStart(0, nullptr);
    start.Locale = Locale;
    start.OnlyReads = true;
    if (!systemFolder.empty()) {
        start.Arguments = {"-syspath", systemFolder};
    }
    const TAppData app(start, Messages);
    FOptions = app.Options;
    return {app.OlderReportFolder, app.NewerReportFolder};
}

void TToolSession::Save(const std::string& fileName) {
    Messages.Subject = fileName;
    if (!Data().SaveProject(fileName)) {
        throw EToolRefused();
    }
}
