// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotDocument.h"

#include "common/vipText.h"

#include <filesystem>

std::string TlotDocument::NameOnly() const {
    return std::filesystem::path(FFileName).filename().string();
}

bool TlotDocument::IsProjectFile() const {
    return vip::SameText(std::filesystem::path(FFileName).extension().string(), ".lot");
}
