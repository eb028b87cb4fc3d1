// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipEvaluator.h"
#include "common/vipText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(Text, CaseIsDisregardedInEveryAlphabet) {
    const std::pair<const char*, const char*> same[] = {
        {"SiteValue", "SITEVALUE"},
        {"ΈΡΓΟ", "έργο"},
        {"Δρόμος", "ΔΡΌΜΟΣ"}, // The final sigma is a sigma.
        {"ȘCOALĂ", "școală"},
        {"GROẞE STRAẞE", "große straße"},
        {"ŽIŽKOV, ŁÓDŹ, ŸVES", "žižkov, łódź, ÿves"},
        {"ЁЛКА, ЇЖАК", "ёлка, їжак"},
        {"ՇԵՆՔ", "շենք"},
        {"\u212A1", "k1"}, // The Kelvin sign: letters of different lengths.
        {"A\u023A", "a\u2C65"},
        {"", ""},
    };
    for (const auto& [a, b] : same) {
        EXPECT_TRUE(vip::SameText(a, b)) << a << ' ' << b;
        EXPECT_EQ(vip::CompareText(b, a), 0) << a << ' ' << b;
    }
}

TEST(Text, OrderIsByCodePointInLowerCase) {
    // An accent is no case, a sharp s is not "ss", and no country's rule for the dotted I holds.
    const std::pair<const char*, const char*> ordered[] = {
        {"", "a"},         {"Flat", "flats"}, {"flat 10", "Flat 2"}, {"_a", "Z"},
        {"zebra", "Ähre"}, {"ΈΡΓΟ", "εργο"},  {"STRASSE", "straße"}, {"I", "İ"},
        {"i", "ı"},        {"Area", "Areb"},  {"k9", "\u212AA"},     {"\uFFFD", "\U0001F3E0"},
    };
    for (const auto& [a, b] : ordered) {
        EXPECT_LT(vip::CompareText(a, b), 0) << a << ' ' << b;
        EXPECT_GT(vip::CompareText(b, a), 0) << a << ' ' << b;
        EXPECT_FALSE(vip::SameText(a, b)) << a << ' ' << b;
    }
}

TEST(Text, AnyBytesHaveOnePlaceInTheOrderAndInAMapOfNames) {
    // Texts of well-formed letters, cut ones, overlong ones, surrogates, lone bytes and NUL, in both cases.
    const std::array pieces = {"a"sv,    "A"sv,        "\0"sv,       "\xC3\x89"sv,     "\xC3\xA9"sv,
                               "\xC9"sv, "\xC3"sv,     "\xA9"sv,     "\xE2\x84\xAA"sv, "k"sv,
                               "K"sv,    "\xE2\x84"sv, "\xC0\x80"sv, "\xED\xA0\x80"sv, "\xF4\x90\x80\x80"sv,
                               "\xFF"sv, "ς"sv,        "Σ"sv};
    std::mt19937 random(7);
    std::vector<std::string> texts;
    for (int i = 0; i < 90; ++i) {
        std::string& text = texts.emplace_back();
        for (std::size_t n = random() % 4; n > 0; --n) {
            text += pieces.at(random() % pieces.size());
        }
    }
    for (const std::string& a : texts) {
        TStringHashMap<int> map;
        map.Set(a, 1);
        for (const std::string& b : texts) {
            const int order = vip::CompareText(a, b);
            ASSERT_EQ(order, -vip::CompareText(b, a));
            ASSERT_EQ(order == 0, vip::SameText(a, b));
            ASSERT_EQ(order == 0, map.Find(b) != nullptr);
            for (const std::string& c : texts) {
                ASSERT_FALSE(order <= 0 && vip::CompareText(b, c) <= 0 && vip::CompareText(a, c) > 0);
            }
        }
    }
}

TEST(Text, CodePointsComeOutAsTheyWentIn) {
    for (const char32_t c : {U'\x1', U'\x7F', U'\x80', U'\x7FF', U'\x800', U'\uD7FF', U'\uE000', U'\uFFFF',
                             U'\U00010000', U'\U0010FFFF'}) {
        std::string text = "<";
        vip::AppendCodePoint(text, c);
        text += '>';
        std::size_t position = 1;
        EXPECT_TRUE(vip::IsValidUtf8(text));
        EXPECT_EQ(vip::NextCodePoint(text, position), c);
        EXPECT_EQ(position, text.size() - 1);
    }
}

TEST(Text, IllFormedBytesStandForThemselvesAndAreNoUtf8) {
    const std::string_view cases[] = {
        "\x80"sv,             // a following byte alone
        "\xC3"sv,             // cut off
        "\xE2\x84"sv,         // cut off
        "\xF0\x9F\x8F"sv,     // cut off
        "\xC0\xAF"sv,         // overlong
        "\xE0\x9F\xBF"sv,     // overlong
        "\xF0\x8F\xBF\xBF"sv, // overlong
        "\xED\xA0\x80"sv,     // a surrogate
        "\xF4\x90\x80\x80"sv, // beyond the last
        "\xE2(\xAC"sv,        // broken by a letter
        "\xFF\xFE"sv,
    };
    for (const std::string_view text : cases) {
        std::size_t position = 0;
        EXPECT_EQ(vip::NextCodePoint(text, position), static_cast<unsigned char>(text[0]));
        EXPECT_EQ(position, 1U);
        EXPECT_FALSE(vip::IsValidUtf8(text));
        EXPECT_FALSE(vip::IsValidUtf8("ok " + std::string(text)));
    }
    EXPECT_FALSE(vip::IsValidUtf8("a\0b"sv)) << "NUL ends a text for too many readers";
    EXPECT_TRUE(vip::IsValidUtf8(""));
}

TEST(Text, BlanksAreTrimmedAndLineBreaksAreOfOneKind) {
    const std::pair<std::string_view, std::string_view> trimmed[] = {
        {"  a b\t\r\n", "a b"}, {" \n", ""}, {"", ""}, {"\0\x1F x"sv, "x"}, {"\u00A0x\u00A0", "\u00A0x\u00A0"},
    };
    for (const auto& [text, expected] : trimmed) {
        EXPECT_EQ(vip::Trim(text), expected);
    }
    const std::pair<const char*, const char*> lines[] = {
        {"a\nb", "a\r\nb"},   {"a\r\nb", "a\r\nb"},         {"a\rb\r", "a\r\nb\r\n"},
        {"\n\r", "\r\n\r\n"}, {"\r\r\n\n", "\r\n\r\n\r\n"}, {"", ""},
    };
    for (const auto& [text, expected] : lines) {
        EXPECT_EQ(vip::NormaliseLineBreaks(text), expected);
    }
}

TEST(Text, APlainNumberHoldsNothingElse) {
    const std::pair<const char*, double> numbers[] = {
        {"12.5", 12.5}, {"-3", -3}, {"+3", 3}, {"1e3", 1000}, {".5", 0.5}, {"5.", 5}, {"-0", 0},
    };
    for (const auto& [text, value] : numbers) {
        EXPECT_EQ(vip::PlainNumber(text), value) << text;
    }
    for (const char* const text :
         {"", "+", "-", "+-3", "++3", " 1", "1 ", "1,5", "1.5%", "1e999", "inf", "nan", "0x10", "£1", "1.2.3"}) {
        EXPECT_FALSE(vip::PlainNumber(text)) << text;
    }
}

} // namespace
