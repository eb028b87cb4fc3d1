// SPDX-License-Identifier: GPL-3.0-or-later
//
// Pictures of reports: logos, photographs.
#pragma once

#include <QImage>
#include <memory>
#include <string>

namespace report {

/// Turned upright, and no larger than paper can show. Throws ELotError for a file that is no picture.
[[nodiscard]] std::shared_ptr<const QImage> LoadPicture(const std::string& fileName);

} // namespace report
