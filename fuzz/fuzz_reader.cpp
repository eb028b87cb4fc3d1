// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a project file: the reader refuses them in its own words or reads them, and what it has read computes
// and saves. What was saved once must save again byte for byte; anything else aborts.
#include "common/vipErrors.h"
#include "persistence/lotReader.h"
#include "persistence/lotWriter.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr TNumberLocale Plain{U'.', U','};
constexpr TNumberLocale Comma{U',', U'.'};
constexpr double Today = 45'000;

/// Months of all lines together that a pass may have, so that an input takes milliseconds.
constexpr double MostCells = 20'000;
constexpr std::size_t MostFormula = 4'000;

int EndOf(const TlotCashflowItem& line) {
    return std::max({1, line.Start + line.Period, line.Portions.Count()});
}

/// Small enough to be computed.
bool IsSmall(const TlotProject& project) {
    constexpr double rowsOfALoan = 18;
    double lines = 3 + rowsOfALoan * project.Funding.Loans.Count();
    int longest = EndOf(project.BaseValues.SiteValue);
    std::size_t formula = 0;
    for (const auto& unit : project.Units) {
        lines += 3;
        longest = std::max({longest, EndOf(unit->BuildLine), EndOf(unit->SalesLine), EndOf(unit->RentLine)});
    }
    for (const auto& section : project.Sections) {
        lines += 2;
        for (const auto& item : section->Items) {
            lines += 1;
            longest = std::max(longest, EndOf(item->Line));
            formula += item->BaseFormula.size();
        }
    }
    for (const auto& loan : project.Funding.Loans) {
        longest = std::max({longest, loan->InterestRates.Count(), loan->Start + std::max(loan->Period, 0)});
        formula += loan->Base.size();
    }
    return lines * longest <= MostCells && formula <= MostFormula;
}

/// Reads, computes and writes; nothing where the reader refuses the text, or what is not yet known to be `small` isn't.
std::optional<std::string> Round(std::string_view content, const TNumberLocale& reading, bool small) {
    TlotReader reader(false, reading, Today);
    TlotProject project(Today);
    try {
        if (!reader.LoadFromMemory(content, "input") || !reader.Read(project) || !(small || IsSmall(project))) {
            return std::nullopt;
        }
    } catch (const EFileError&) {
        return std::nullopt;
    }
    try {
        project.Calculate();
    } catch (const ELotError&) {
        // A loan that cannot be computed: the project stays editable, and so fit to be saved.
    }
    TlotWriter writer(false, Plain);
    writer.Write(project);
    return writer.ToText();
}

[[noreturn]] void Fail(const char* what, const std::string& before, const std::string& after) {
    std::fprintf(stderr, "%s\n--- before\n%s\n--- after\n%s\n", what, before.c_str(), after.c_str());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::optional<std::string> saved = Round({reinterpret_cast<const char*>(data), size}, Plain, false);
    if (!saved) {
        return 0;
    }
    // The first save rounds every figure to what a file holds; from there on nothing changes.
    const std::optional<std::string> first = Round(*saved, Comma, true);
    if (!first) {
        Fail("what was saved is refused", *saved, "");
    }
    const std::optional<std::string> second = Round(*first, Plain, true);
    if (!second || *second != *first) {
        Fail("a second save differs", *first, second.value_or(""));
    }
    return 0;
}
