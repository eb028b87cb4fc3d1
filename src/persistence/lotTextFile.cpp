// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotTextFile.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t LargestFile = 1024 * 1024;

/// Windows-1252 from 0x80 to 0x9F; the rest of it is as in Unicode, and so are its five unused places.
constexpr std::array<char32_t, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t FromWindows1252(unsigned char byte) noexcept {
    return byte >= 0x80 && byte < 0xA0 ? Windows1252.at(byte - 0x80U) : byte;
}

bool IsControl(char32_t c) noexcept {
    return (c < 0x20 && c != U'\t') || (c >= 0x7F && c < 0xA0);
}

} // namespace

std::string ReadTextFile(const std::string& fileName) {
    std::error_code error;
    const fs::file_status status = fs::status(fileName, error);
    if (status.type() == fs::file_type::not_found) {
        return {};
    }
    const std::uintmax_t size = fs::is_regular_file(status) ? fs::file_size(fileName, error) : LargestFile + 1;
    if (error || size > LargestFile) {
        throw EFileError(fileName + ": is no settings file that can be read");
    }
    std::ifstream file(fileName, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad() || content.size() != size) {
        throw EFileError(fileName + ": cannot be read");
    }
    return content;
}

std::vector<std::string> SplitLines(std::string_view content) {
    std::vector<std::string> lines;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        lines.emplace_back(content.substr(0, end));
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
    }
    return lines;
}

std::string SoundText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    const bool utf8 = vip::IsValidUtf8(bytes);
    for (std::size_t position = 0; position < bytes.size();) {
        const char32_t c =
            utf8 ? vip::NextCodePoint(bytes, position) : FromWindows1252(static_cast<unsigned char>(bytes[position++]));
        if (!IsControl(c)) {
            vip::AppendCodePoint(text, c);
        }
    }
    return text;
}

std::vector<std::string> ReadTextLines(const std::string& fileName) {
    std::string content;
    try {
        content = ReadTextFile(fileName);
    } catch (const EFileError&) {
        return {};
    }
    std::vector<std::string> lines = SplitLines(std::string_view(content).substr(ByteOrderMarkSize(content)));
    for (std::string& line : lines) {
        line = SoundText(line);
    }
    return lines;
}

std::size_t ByteOrderMarkSize(std::string_view content) noexcept {
    return content.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}
