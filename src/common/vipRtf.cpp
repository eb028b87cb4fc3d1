// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipRtf.h"

#include "common/vipText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace {

constexpr char32_t Replacement = U'\uFFFD';

/// Windows-1252 from 0x80 to 0x9F; 0 where it has no letter.
constexpr std::array<char32_t, 32> UpperControls = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                                    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr char32_t OfWindows1252(unsigned char byte) noexcept {
    return byte >= 0x80 && byte < 0xA0 ? UpperControls.at(byte - 0x80U) : byte;
}

/// Groups that hold what is not part of the text.
constexpr std::array<std::string_view, 17> Ignored = {
    "fonttbl", "colortbl", "stylesheet", "info",    "pict",    "object",   "header", "headerl", "headerr",
    "headerf", "footer",   "footerl",    "footerr", "footerf", "footnote", "xe",     "tc"};

struct TSymbol {
    std::string_view Word;
    char32_t Letter;
};

constexpr std::array<TSymbol, 11> Symbols = {{{"tab", U'\t'},
                                              {"cell", U'\t'},
                                              {"line", U'\n'},
                                              {"lquote", U'\u2018'},
                                              {"rquote", U'\u2019'},
                                              {"ldblquote", U'\u201C'},
                                              {"rdblquote", U'\u201D'},
                                              {"bullet", U'\u2022'},
                                              {"endash", U'\u2013'},
                                              {"emdash", U'\u2014'},
                                              {"emspace", U'\u2003'}}};

bool IsLetter(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// The paragraphs as they grow.
class TRtfText {
public:
    void Add(char32_t c, bool bold) {
        if (FHigh != 0) {
            const char32_t high = FHigh;
            FHigh = 0;
            if (c >= 0xDC00 && c <= 0xDFFF) {
                Append(0x10000 + ((high - 0xD800) << 10) + (c - 0xDC00), bold);
                return;
            }
            Append(Replacement, bold);
        }
        if (c >= 0xD800 && c <= 0xDBFF) {
            FHigh = c;
        } else {
            Append(c >= 0xDC00 && c <= 0xDFFF ? Replacement : c, bold);
        }
    }

    void EndParagraph() {
        FHigh = 0;
        FParagraphs.push_back(std::move(FCurrent));
        FCurrent.clear();
    }

    /// A last paragraph need not be ended.
    std::vector<TRtfParagraph> Take() {
        if (!FCurrent.empty()) {
            EndParagraph();
        }
        return std::move(FParagraphs);
    }

private:
    void Append(char32_t c, bool bold) {
        if ((c < 0x20 && c != U'\t' && c != U'\n') || (c >= 0x7F && c < 0xA0)) {
            return;
        }
        if (FCurrent.empty() || FCurrent.back().Bold != bold) {
            FCurrent.push_back({{}, bold});
        }
        vip::AppendCodePoint(FCurrent.back().Text, c);
    }

    std::vector<TRtfParagraph> FParagraphs;
    TRtfParagraph FCurrent;
    char32_t FHigh = 0; ///< The first half of a letter that takes two.
};

class TRtfReader {
public:
    explicit TRtfReader(std::string_view text) : FText(text.substr(0, vip::MostRtfBytes)) {}

    std::vector<TRtfParagraph> Read() {
        do {
            Step();
        } while (FPosition < FText.size() && FDepth > 0);
        return FResult.Take();
    }

private:
    /// What a group takes over from the one around it.
    struct TState {
        bool Bold = false;
        bool Skipped = false;
        int Fallback = 1; ///< Characters that stand in for each \u where it is not known.
    };

    TState& State() noexcept { return FStates.at(static_cast<std::size_t>(std::min(FDepth, vip::MostRtfLevels + 1))); }

    void Step() {
        const char c = FText[FPosition++];
        switch (c) {
        case '{': Open(); break;
        case '}': Close(); break;
        case '\\': Control(); break;
        case '\r':
        case '\n': break;
        default: Letter(OfWindows1252(static_cast<unsigned char>(c))); break;
        }
    }

    void Open() {
        FSkip = 0;
        const TState around = State();
        ++FDepth;
        State() = around;
        State().Skipped = around.Skipped || FDepth > vip::MostRtfLevels;
    }

    void Close() {
        FSkip = 0;
        --FDepth;
    }

    void Letter(char32_t c) {
        if (FSkip > 0) {
            --FSkip;
        } else if (c != 0 && !State().Skipped) {
            FResult.Add(c, State().Bold);
        }
    }

    /// Behind a backslash.
    void Control() {
        if (FPosition >= FText.size()) {
            return;
        }
        if (IsLetter(FText[FPosition])) {
            ControlWord();
            return;
        }
        const char c = FText[FPosition++];
        switch (c) {
        case '\'': Letter(OfWindows1252(HexByte())); break;
        case '*': State().Skipped = true; break;
        case '~': Letter(U'\u00A0'); break;
        case '_': Letter(U'\u2011'); break;
        case '\r':
        case '\n': Paragraph(); break;
        case '\\':
        case '{':
        case '}': Letter(static_cast<unsigned char>(c)); break;
        default: FSkip -= FSkip > 0 ? 1 : 0; break; // Such as "\-", where a word may be broken.
        }
    }

    /// 0 if two such digits do not follow.
    unsigned char HexByte() {
        std::uint8_t byte = 0;
        const char* const begin = FText.data() + FPosition;
        const char* const end = begin + std::min<std::size_t>(2, FText.size() - FPosition);
        const auto [stop, error] = std::from_chars(begin, end, byte, 16);
        const bool read = error == std::errc() && stop == begin + 2;
        FPosition += read ? 2 : 0;
        return read ? byte : 0;
    }

    void ControlWord() {
        const std::size_t start = FPosition;
        while (FPosition < FText.size() && IsLetter(FText[FPosition])) {
            ++FPosition;
        }
        const std::string_view word = FText.substr(start, FPosition - start);
        const std::optional<int> number = Number();
        if (FPosition < FText.size() && FText[FPosition] == ' ') {
            ++FPosition;
        }
        if (word == "bin") {
            FPosition += std::min(FText.size() - FPosition, static_cast<std::size_t>(std::max(number.value_or(0), 0)));
        }
        if (FSkip > 0) {
            --FSkip;
            return;
        }
        Apply(word, number);
    }

    /// The number of a control word; one that is too large for any of them counts as 0.
    std::optional<int> Number() {
        const std::size_t start = FPosition;
        std::size_t digits = start + (start < FText.size() && FText[start] == '-' ? 1 : 0);
        if (digits >= FText.size() || !IsDigit(FText[digits])) {
            return std::nullopt;
        }
        while (digits < FText.size() && IsDigit(FText[digits])) {
            ++digits;
        }
        FPosition = digits;
        int number = 0;
        std::from_chars(FText.data() + start, FText.data() + digits, number);
        return number;
    }

    void Apply(std::string_view word, std::optional<int> number) {
        TState& state = State();
        if (word == "b") {
            state.Bold = number != 0;
        } else if (word == "plain") {
            state.Bold = false;
        } else if (word == "par" || word == "sect" || word == "page" || word == "row") {
            Paragraph();
        } else if (word == "uc") {
            state.Fallback = std::max(number.value_or(1), 0);
        } else if (word == "u") {
            Unicode(number.value_or(0));
        } else if (std::ranges::find(Ignored, word) != Ignored.end()) {
            state.Skipped = true;
        } else if (const auto symbol = std::ranges::find(Symbols, word, &TSymbol::Word); symbol != Symbols.end()) {
            Letter(symbol->Letter);
        }
    }

    /// Code units are written as signed numbers of 16 bits, but by some programs as they are.
    void Unicode(int number) {
        const int unit = number < 0 ? number + 0x10000 : number;
        Letter(unit < 0 || unit > 0x10FFFF ? Replacement : static_cast<char32_t>(unit));
        FSkip = State().Fallback;
    }

    void Paragraph() {
        if (!State().Skipped) {
            FResult.EndParagraph();
        }
    }

    std::string_view FText;
    std::size_t FPosition = 0;
    int FDepth = 0;
    int FSkip = 0;                                      ///< Characters still to be passed over behind a \u.
    std::array<TState, vip::MostRtfLevels + 2> FStates; ///< By depth; the last one is that of all deeper groups.
    TRtfText FResult;
};

} // namespace

namespace vip {

std::vector<TRtfParagraph> ReadRtf(std::string_view rtf) {
    if (rtf.starts_with("\xEF\xBB\xBF")) {
        rtf.remove_prefix(3);
    }
    rtf = Trim(rtf);
    if (!rtf.starts_with("{\\rtf")) {
        return {};
    }
    return TRtfReader(rtf).Read();
}

} // namespace vip
