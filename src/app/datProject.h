// SPDX-License-Identifier: GPL-3.0-or-later
//
// The data module between the screens (or the command line) and the files: the one open project and its file name,
// opening and saving, new projects, the one way to recompute, and the check that a project has what a calculation
// needs.
#pragma once

#include "app/lotDocument.h"
#include "app/lotServices.h"
#include "app/lotSystem.h"
#include "common/vipNumber.h"
#include "persistence/lotOptions.h"
#include "reporting/lotReportTables.h"

#include <string>

class TlotReader;

class TProjectData {
public:
    /// All that is handed in must outlive it. `locale` is the user's: of the files that it writes, and of numbers in
    /// base formulae. `editionFlag` marks the hand-held edition.
    TProjectData(TlotSystem& system, const TlotOptions& options, const TlotServices& services,
                 const TNumberLocale& locale, bool editionFlag = false);

    [[nodiscard]] TlotProject& Project() noexcept { return FSystem.Project; }
    [[nodiscard]] const TlotProject& Project() const noexcept { return FSystem.Project; }

    [[nodiscard]] TlotSAModelNew& SAModelNew() noexcept { return FSystem.SAModelNew; }
    [[nodiscard]] TlotSAModelOld& SAModelOld() noexcept { return FSystem.SAModelOld; }

    TlotDocument Document;         ///< Told by whoever opens or saves the project, or changes it.
    TlotReportTables ReportTables; ///< Copies for printing and charts, as of the last BuildReportTables.

    /// Of the open project; empty for one that has no file.
    [[nodiscard]] const std::string& FileName() const noexcept { return Document.FileName(); }

    /// The one way in which the project is made current: one pass, then, with a residual target, the search for the
    /// site value that meets it. Always true. Throws what the pass throws; the site value is as it was then.
    bool Recalculate();

    /// Opens a project file into the project, telling the user what is wrong where it can't. False leaves the project
    /// as it was; so does the EFileError, naming file and element, that damaged content throws.
    [[nodiscard]] bool LoadProject(const std::string& fileName);

    /// Imports a residual file into the project. False, the user having been told nothing, where it holds no project;
    /// throws EFileError for what cannot be imported. The project is as it was in both cases.
    [[nodiscard]] bool ImportProject(const std::string& fileName);

    /// Saves under that name in one step; false where the user was told why it can't. Throws EFileError where the new
    /// file cannot be written. An old file stays whole in both cases.
    [[nodiscard]] bool SaveProject(const std::string& fileName);

    /// Clears the project, as New does before it fills it.
    void ClearProject();
    /// Fills the project with the built-in sections, after three defaults from the options.
    void BuildDefaultProject();
    /// Clears the project and fills it with the sample data.
    void BuildTestProject();

    /// True if the project, as computed, has build costs and sales; otherwise `message` says what is missing.
    [[nodiscard]] bool CheckUnits(std::string& message) const;
    /// The same, telling the user.
    [[nodiscard]] bool CheckUnitsShow() const;

    /// Pours the project, which must be current, into the report tables.
    void BuildReportTables(TlotReportKind kind);

private:
    [[nodiscard]] bool LoadHandheld(TlotReader& reader);
    [[nodiscard]] bool ReadInto(TlotReader& reader, TlotProject& project);

    TlotSystem& FSystem;
    const TlotOptions& FOptions;
    TlotServices FServices;
    TNumberLocale FLocale;
    bool FEditionFlag = false;
};
