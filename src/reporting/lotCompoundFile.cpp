// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotCompoundFile.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace {

// Names are those of the published description of the format.
constexpr std::uint32_t SectorShift = 9;
constexpr std::size_t SectorSize = std::size_t{1} << SectorShift;
constexpr std::uint32_t MiniSectorShift = 6;
constexpr std::size_t MiniStreamCutoffSize = 4096; // Smaller streams would need a second kind of sectors.
constexpr std::size_t EntriesPerSector = SectorSize / 4;
constexpr std::size_t DifatInHeader = 109; // Places of sectors of the FAT that the header itself holds.
constexpr std::uint32_t FreeSect = 0xFFFFFFFF;
constexpr std::uint32_t EndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t FatSect = 0xFFFFFFFD;
constexpr std::uint32_t DifSect = 0xFFFFFFFC;
constexpr std::uint32_t NoStream = 0xFFFFFFFF;

void Put16(std::string& bytes, std::uint32_t value) {
    bytes += static_cast<char>(value & 0xFF);
    bytes += static_cast<char>((value >> 8) & 0xFF);
}

void Put32(std::string& bytes, std::uint32_t value) {
    Put16(bytes, value & 0xFFFF);
    Put16(bytes, value >> 16);
}

std::size_t Sectors(std::size_t bytes, std::size_t each = SectorSize) {
    return (bytes + each - 1) / each;
}

/// Where everything lies: the stream, its directory, the chains (FAT), and the list of the chains' own sectors.
struct TLayout {
    explicit TLayout(std::size_t streamBytes) : Stream(Sectors(streamBytes)) {
        // The chains chain themselves too, so their number is found by trying.
        for (std::size_t before = 0; before != Fat + Difat || Fat == 0;) {
            before = Fat + Difat;
            Fat = Sectors(Stream + 1 + Fat + Difat, EntriesPerSector);
            Difat = Fat > DifatInHeader ? Sectors(Fat - DifatInHeader, EntriesPerSector - 1) : 0;
        }
    }

    std::size_t Stream;
    std::size_t Fat = 0;
    std::size_t Difat = 0;

    [[nodiscard]] std::uint32_t Directory() const { return static_cast<std::uint32_t>(Stream); }
    [[nodiscard]] std::uint32_t FirstFat() const { return Directory() + 1; }
    [[nodiscard]] std::uint32_t FirstDifat() const { return FirstFat() + static_cast<std::uint32_t>(Fat); }
};

constexpr std::string_view Signature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::uint32_t MinorVersion = 0x3E;
constexpr std::uint32_t MajorVersion = 3;
constexpr std::uint32_t LowByteFirst = 0xFFFE;

void PutHeader(std::string& file, const TLayout& layout) {
    file += Signature;
    file.append(16, '\0');
    Put16(file, MinorVersion);
    Put16(file, MajorVersion);
    Put16(file, LowByteFirst);
    Put16(file, SectorShift);
    Put16(file, MiniSectorShift);
    file.append(10, '\0');
    Put32(file, static_cast<std::uint32_t>(layout.Fat));
    Put32(file, layout.Directory());
    Put32(file, 0);
    Put32(file, MiniStreamCutoffSize);
    Put32(file, EndOfChain); // No small sectors.
    Put32(file, 0);
    Put32(file, layout.Difat > 0 ? layout.FirstDifat() : EndOfChain);
    Put32(file, static_cast<std::uint32_t>(layout.Difat));
    for (std::size_t i = 0; i < DifatInHeader; ++i) {
        Put32(file, i < layout.Fat ? layout.FirstFat() + static_cast<std::uint32_t>(i) : FreeSect);
    }
}

enum class TObjectType : std::uint8_t { Unallocated = 0, Stream = 2, RootStorage = 5 };

void PutEntry(std::string& file, std::string_view name, TObjectType type, std::uint32_t child, std::uint32_t first,
              std::size_t size) {
    constexpr char black = 1; // The entries under one storage are a tree of red and black ones; here it is one alone.
    for (std::size_t i = 0; i < 32; ++i) {
        Put16(file, i < name.size() ? static_cast<unsigned char>(name[i]) : 0U);
    }
    Put16(file, name.empty() ? 0 : static_cast<std::uint32_t>(2 * (name.size() + 1)));
    file += static_cast<char>(type);
    file += type == TObjectType::Unallocated ? '\0' : black;
    Put32(file, NoStream);
    Put32(file, NoStream);
    Put32(file, child);
    file.append(16 + 4 + 16, '\0'); // No class, no flags, no times.
    Put32(file, first);
    Put32(file, static_cast<std::uint32_t>(size));
    Put32(file, 0);
}

void PutDirectory(std::string& file, std::string_view streamName, std::size_t streamBytes) {
    PutEntry(file, "Root Entry", TObjectType::RootStorage, 1, EndOfChain, 0);
    PutEntry(file, streamName, TObjectType::Stream, NoStream, 0, streamBytes);
    PutEntry(file, {}, TObjectType::Unallocated, NoStream, 0, 0);
    PutEntry(file, {}, TObjectType::Unallocated, NoStream, 0, 0);
}

void PutFat(std::string& file, const TLayout& layout) {
    std::vector<std::uint32_t> chains;
    chains.reserve(layout.Fat * EntriesPerSector);
    for (std::size_t i = 1; i < layout.Stream; ++i) {
        chains.push_back(static_cast<std::uint32_t>(i));
    }
    chains.push_back(EndOfChain);
    chains.push_back(EndOfChain); // The directory.
    chains.insert(chains.end(), layout.Fat, FatSect);
    chains.insert(chains.end(), layout.Difat, DifSect);
    chains.resize(layout.Fat * EntriesPerSector, FreeSect);
    for (const std::uint32_t entry : chains) {
        Put32(file, entry);
    }
}

void PutDifat(std::string& file, const TLayout& layout) {
    std::size_t fat = DifatInHeader;
    for (std::size_t sector = 0; sector < layout.Difat; ++sector) {
        for (std::size_t i = 0; i + 1 < EntriesPerSector; ++i, ++fat) {
            Put32(file, fat < layout.Fat ? layout.FirstFat() + static_cast<std::uint32_t>(fat) : FreeSect);
        }
        const bool last = sector + 1 == layout.Difat;
        Put32(file, last ? EndOfChain : layout.FirstDifat() + static_cast<std::uint32_t>(sector + 1));
    }
}

} // namespace

std::string CompoundFile(std::string_view streamName, std::string stream) {
    stream.resize(std::max(stream.size(), MiniStreamCutoffSize));
    const TLayout layout(stream.size());
    std::string file;
    file.reserve((1 + layout.Stream + 1 + layout.Fat + layout.Difat) * SectorSize);
    PutHeader(file, layout);
    file += stream;
    file.resize((1 + layout.Stream) * SectorSize);
    PutDirectory(file, streamName, stream.size());
    PutFat(file, layout);
    PutDifat(file, layout);
    return file;
}
