// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipRtf.h"
#include "common/vipText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace std::string_literals;

/// Bold in angle brackets, "|" after each paragraph.
std::string Shown(std::string_view rtf) {
    std::string text;
    for (const TRtfParagraph& paragraph : vip::ReadRtf(rtf)) {
        for (const TRtfRun& run : paragraph) {
            text += run.Bold ? "<" + run.Text + ">" : run.Text;
        }
        text += '|';
    }
    return text;
}

std::string Times(int count, std::string_view text) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

TEST(Rtf, ADescriptionOfAWordProcessorReadsAsItLooks) {
    EXPECT_EQ(
        Shown("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1 Symbol;}}\r\n"
              "{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
              "{\\*\\generator Riched20 5.40.11.2210;}{\\info{\\author A. Nobody}}\\viewkind4\\uc1\\pard\\lang2057"
              "\\b\\f0\\fs20 BUILD\\par\r\n\\par\r\n\\b0 The \\b total\\b0  of all units' build costs, in \\'80 or "
              "\\'a3.\\par\r\n{\\b Not}e:\\tab see {\\i SECTION}.\\line Or\r\n not.\\par\r\n}\r\n\0"s),
        "<BUILD>||The <total> of all units' build costs, in € or £.|<Not>e:\tsee SECTION.\nOr not.|");
}

TEST(Rtf, ControlsMeanWhatTheySay) {
    const std::pair<const char*, const char*> cases[] = {
        {"{\\rtf1 a\\\\b \\{c\\}}", "a\\b {c}|"},
        {"{\\rtf1\\b1 a\\plain b}", "<a>b|"},
        {"{\\rtf1 a{\\b b{\\b0 c}d}e}", "a<b>c<d>e|"},
        {"{\\rtf1\\bold x\\blue1 y}", "xy|"},
        {"{\\rtf1 \\u8364?\\u-3?x}", "€\uFFFDx|"},
        {"{\\rtf1\\uc2\\u937 ab{\\uc0\\u937 c}\\u937\\'41\\'42d}", "ΩΩcΩd|"},
        {"{\\rtf1\\uc3\\u937 a}b", "Ω|"}, // the end of a group ends what is passed over
        {"{\\rtf1 \\u-10180?\\u-8258?.}", "\U0001F3BE.|"},
        {"{\\rtf1 \\ldblquote x\\rdblquote\\emdash\\bullet y}", "“x”—•y|"},
        {"{\\rtf1 a\\~b\\-c\\_d}", "a\u00A0bc\u2011d|"},
        {"{\\rtf1 a\\\nb\\\r\nc}", "a|b|c|"},
        {"{\\rtf1\\trowd A\\cell B\\cell\\row C}", "A\tB\t|C|"},
        {"{\\rtf1{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt link}}{\\header head\\par}}", "link|"},
        {"{\\rtf1 x}{\\rtf1 y}", "x|"},
        {"{\\rtf1 {\\pict\\bin3 }}}}ab}", "ab|"},
        {"\xEF\xBB\xBF\r\n{\\rtf1 x}", "x|"},
        {"{\\rtf1}", ""},
        {"{\\rtf1\\par}", "|"},
        {"a plain text", ""},
        {"", ""},
    };
    for (const auto& [rtf, text] : cases) {
        EXPECT_EQ(Shown(rtf), text) << rtf;
    }
}

TEST(Rtf, HostileTextsAreReadAsFarAsTheyGo) {
    const std::pair<std::string, std::string> cases[] = {
        {"{\\rtf1 cut", "cut|"},
        {"{\\rtf1 cut\\", "cut|"},
        {"{\\rtf1 cut\\'4", "cut4|"},
        {"{\\rtf1 cut\\u", "cut|"},
        {"{\\rtf1 a\\'zzb\\'00c"s + '\0' + "d\x01\x7F\\u0?\\u133?}", "azzbcd|"},
        {"{\\rtf1 a\\u99999999999999999999?b\\u2000000?c\\u-99999?d}", "ab\uFFFDc\uFFFDd|"},
        {"{\\rtf1\\uc999999999\\u937?x}y", "Ω|"},
        {"{\\rtf1\\uc-5\\u937x}", "Ωx|"},
        {"{\\rtf1 \\u-10180?x\\u-8258?y\\u-10180?\\par z}", "\uFFFDx\uFFFDy|z|"},
        {"{\\rtf1 a\\bin99 b}", "a|"},
        {"{\\rtf1 a\\bin-1 b\\bin2147483648 c}", "abc|"},
        {"{\\rtf1 a" + Times(100'000, "{") + "x" + Times(100'000, "}") + "b}", "ab|"},
        {"{\\rtf1 a" + Times(vip::MostRtfLevels - 1, "{") + "b{c}d" + Times(vip::MostRtfLevels - 1, "}") + "e}",
         "abde|"},
        {"{\\rtf1 " + Times(300, "}") + "x", ""},
    };
    for (const auto& [rtf, text] : cases) {
        EXPECT_EQ(Shown(rtf), text) << rtf.substr(0, 60);
    }
    EXPECT_LT(Shown("{\\rtf1 " + Times(1'000'000, "x") + "}").size(), vip::MostRtfBytes);
}

TEST(Rtf, AnythingAtAllGivesWellFormedText) {
    constexpr const char* Pieces[] = {"{",    "}",    "\\", "\\b",  "\\b0 ",   "\\u",   "-10180", "55296",
                                      "?",    "\\'",  "e9", "\\uc", "3",       "\\bin", "\\*",    "\\par",
                                      "\xE9", "\xC3", " ",  "x",    "{\\info", "\\\n"};
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        std::string rtf = "{\\rtf1 ";
        for (int i = 0; i < 40; ++i) {
            rtf += Pieces[random() % std::size(Pieces)];
        }
        ASSERT_TRUE(vip::IsValidUtf8(Shown(rtf))) << rtf;
    }
}

} // namespace
