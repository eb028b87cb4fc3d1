// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the logic asks of the world outside: a person to tell things to and to ask, a clock, the busy cursor, the mail
// program. The desktop answers with real boxes, the command line with lines on standard error, tests with a script.
#pragma once

#include "app/lotMailService.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

enum class TlotMessageKind : std::uint8_t { Warning, Error, Information, Confirmation };

class TlotMessageService {
public:
    TlotMessageService() = default;
    TlotMessageService(const TlotMessageService&) = delete;
    TlotMessageService& operator=(const TlotMessageService&) = delete;
    virtual ~TlotMessageService() = default;

    /// Tells `text`, which may have lines ending in CR LF, and waits for OK.
    virtual void Show(TlotMessageKind kind, std::string_view text) = 0;
};

enum class TlotAnswer : std::uint8_t { Yes, No, Cancel };

/// Questions, of programs that have somebody to ask.
class TlotQuestionService {
public:
    TlotQuestionService() = default;
    TlotQuestionService(const TlotQuestionService&) = delete;
    TlotQuestionService& operator=(const TlotQuestionService&) = delete;
    virtual ~TlotQuestionService() = default;

    /// With the buttons Yes, No and Cancel, Yes being the default; closing the box is Cancel.
    [[nodiscard]] virtual TlotAnswer AskYesNoCancel(std::string_view text) = 0;
    /// With the buttons Yes and No; true for Yes alone, closing the box is No. `proposed`, one of the two, is the
    /// default: No for what cannot be had back.
    [[nodiscard]] bool AskYesNo(std::string_view text, TlotAnswer proposed = TlotAnswer::Yes) {
        return DecideYesNo(text, proposed);
    }

protected:
    [[nodiscard]] virtual bool DecideYesNo(std::string_view text, TlotAnswer proposed) = 0;
};

/// What a file dialog shows.
struct TlotFileQuestion {
    std::string Filter; ///< Captions and patterns in turn: "Lotmaster Files (*.lot)|*.lot|All Files (*.*)|*.*"
    std::string Folder; ///< Where it begins.
    std::string Name;   ///< Proposed; with a folder, that is where it begins.
    std::string DefaultExtension; ///< Given to a name typed without one; no dot.
};

/// The dialogs that ask for a file. They remember, from call to call, the folder that the user went to.
class TlotFileService {
public:
    TlotFileService() = default;
    TlotFileService(const TlotFileService&) = delete;
    TlotFileService& operator=(const TlotFileService&) = delete;
    virtual ~TlotFileService() = default;

    /// The full path of an existing file; nothing on Cancel.
    [[nodiscard]] virtual std::optional<std::string> AskOpen(const TlotFileQuestion& question) = 0;
    /// The full path to save under, the user having agreed to any overwriting; nothing on Cancel.
    [[nodiscard]] virtual std::optional<std::string> AskSave(const TlotFileQuestion& question) = 0;
};

/// Asks a person for one of several templates.
class TlotTemplateChooser {
public:
    TlotTemplateChooser() = default;
    TlotTemplateChooser(const TlotTemplateChooser&) = delete;
    TlotTemplateChooser& operator=(const TlotTemplateChooser&) = delete;
    virtual ~TlotTemplateChooser() = default;

    /// The index of one of these names, which are two or more without their extension; nothing on Cancel.
    [[nodiscard]] virtual std::optional<std::size_t> Choose(std::span<const std::string> names) = 0;
};

class TlotClock {
public:
    TlotClock() = default;
    TlotClock(const TlotClock&) = delete;
    TlotClock& operator=(const TlotClock&) = delete;
    virtual ~TlotClock() = default;

    /// Today, as a date of vipDate.
    [[nodiscard]] virtual double Today() const = 0;
};

/// The clock of the machine, in local time.
class TlotSystemClock final : public TlotClock {
public:
    [[nodiscard]] double Today() const override;
};

/// A clock that always shows the same day.
class TlotFixedClock final : public TlotClock {
public:
    explicit TlotFixedClock(double today) : FToday(today) {}
    [[nodiscard]] double Today() const override { return FToday; }

private:
    double FToday = 0;
};

/// Shown as busy from Begin to End; calls nest.
class TlotBusyService {
public:
    TlotBusyService() = default;
    TlotBusyService(const TlotBusyService&) = delete;
    TlotBusyService& operator=(const TlotBusyService&) = delete;
    virtual ~TlotBusyService() = default;

    virtual void Begin() = 0;
    virtual void End() = 0;
};

/// Busy for as long as it lives.
class TlotBusy {
public:
    explicit TlotBusy(TlotBusyService& service) : FService(service) { FService.Begin(); }
    TlotBusy(const TlotBusy&) = delete;
    TlotBusy& operator=(const TlotBusy&) = delete;
    ~TlotBusy() { FService.End(); }

private:
    TlotBusyService& FService;
};

/// The services of any program, together, as the composition hands them over; not owned.
struct TlotServices {
    TlotMessageService& Messages;
    TlotClock& Clock;
    TlotBusyService& Busy;
};

/// The services of a program that somebody sits before.
struct TlotDesktopServices : TlotServices {
    TlotQuestionService& Questions;
    TlotFileService& Files;
    TlotTemplateChooser& Templates;
    TlotMailService& Mail;
};
