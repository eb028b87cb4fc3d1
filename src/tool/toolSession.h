// SPDX-License-Identifier: GPL-3.0-or-later
//
// What one call of the tool works with: the long-lived objects in their order, the services as lines on standard error,
// and the opening of files.
#pragma once

#include "app/datProject.h"
#include "app/datReport.h"
#include "app/lotServices.h"
#include "app/lotSystem.h"
#include "common/vipErrors.h"
#include "common/vipNumber.h"
#include "persistence/lotOptions.h"

#include <iosfwd>
#include <string>
#include <string_view>

/// The input was refused; the reason has been told already.
class EToolRefused : public ELotError {
public:
    EToolRefused() : ELotError("refused") {}
};

/// The words of the call make no sense, which showed only once the file was open.
class EToolUsage : public ELotError {
public:
    using ELotError::ELotError;
};

/// Messages as single lines: "lotcalc: file: text".
class TToolMessages final : public TlotMessageService {
public:
    explicit TToolMessages(std::ostream& err) : FErr(err) {}

    std::string Subject; ///< The file that messages are about.

    void Show(TlotMessageKind kind, std::string_view text) override;
    /// Tells a failure, naming the subject unless the text does.
    void Fail(std::string_view text);
    [[nodiscard]] bool Spoken() const noexcept { return FSpoken; }

private:
    std::ostream& FErr;
    bool FSpoken = false;
};

/// No cursor to change.
class TToolBusy final : public TlotBusyService {
public:
    void Begin() override {}
    void End() override {}
};

class TToolSession {
public:
    TToolSession(std::ostream& out, std::ostream& err, const TNumberLocale& locale, double today);

    std::ostream& Out;
    TNumberLocale Locale;
    TToolMessages Messages;

    [[nodiscard]] TProjectData& Data() noexcept { return FData; }
    [[nodiscard]] TlotProject& Project() noexcept { return FData.Project(); }
    [[nodiscard]] const TlotOptions& Options() const noexcept { return FOptions; }

    /// Takes the options of the installation (the firm's heading, logo, footer and colours), which otherwise are the
    /// built-in ones, so that a script's figures depend on its file alone. `systemFolder` stands in for the shared
    /// folder of settings, unless empty. Returns where the report templates are.
    TReportFolders UseInstallation(const std::string& systemFolder);

    /// Opens a project file. Throws EToolRefused where the reason has been told, ELotError otherwise.
    void Open(const std::string& fileName);
    /// Saves under that name; throws as Open.
    void Save(const std::string& fileName);

private:
    TlotFixedClock FClock;
    TToolBusy FBusy;
    TlotOptions FOptions;
    TlotSystem FSystem;
    TProjectData FData;
};
